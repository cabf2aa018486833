// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>
#include <QWidget>

Sandbox::Sandbox()
{
    if (!folder.isValid())
        qFatal("no temporary folder");
    QDir(folder.path()).mkdir(QStringLiteral(".settings"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       folder.filePath(QStringLiteral(".settings")));
}

QString Sandbox::path(const QString& name) const
{
    return name.isEmpty() ? folder.path() : folder.filePath(name);
}

QString Sandbox::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray Sandbox::read(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

namespace TestSupport {

bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

} // namespace TestSupport
