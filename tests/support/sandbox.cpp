// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/sandbox.h"

#include "support/longwork.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QTest>
#include <QWidget>

#include <chrono>

using namespace Qt::StringLiterals;

Sandbox::Sandbox()
{
    if (!folder.isValid())
        qFatal("no temporary folder");
    QDir(folder.path()).mkdir(u".settings"_s);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       folder.filePath(u".settings"_s));
    // However slow the machine is, no dialog says how far it is, unless a test asks for it.
    LongWork::setPatience(std::chrono::hours(1));
}

Sandbox::~Sandbox()
{
    const QString target = qEnvironmentVariable("KORVELA_WRITTEN_FILES");
    if (!target.isEmpty())
        copyWrittenFiles(target);
}

void Sandbox::copyWrittenFiles(const QString& target) const
{
    static int number = 0;
    QDirIterator files(folder.path(), {u"*.json"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly) || given.contains(file.readAll()))
            continue;
        const QString copy =
            u"%1/%2-%3.json"_s.arg(target, QCoreApplication::applicationName()).arg(++number);
        if (!file.copy(copy))
            qFatal("cannot write %s", qPrintable(copy));
    }
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
    given.insert(bytes);
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
