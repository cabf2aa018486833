// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/savereport.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString outcome(SaveResult result)
{
    switch (result) {
    case SaveResult::Written:
        return u"%1 saved %2"_s;
    case SaveResult::NotOpened:
        return u"%1 not saved %2"_s;
    case SaveResult::NotWritten:
        return u"%1 not saved %2, the disk did not take it"_s;
    }
    Q_UNREACHABLE();
    return {};
}

} // namespace

SaveReport saveReport(const QString& what, const QString& path, SaveResult result,
                      const QDateTime& when)
{
    const QFileInfo file(path);
    const QString folder = QDir::toNativeSeparators(file.absolutePath());
    const QString place = file.fileName() + u" in "_s + folder;
    const QString minute = when.toString(u"'at' HH:mm"_s);
    const QString second = when.toString(u"'on' yyyy-MM-dd 'at' HH:mm:ss"_s);
    const QString name = QDir::toNativeSeparators(file.absoluteFilePath());
    return {outcome(result).arg(what, minute) + u": "_s + place,
            outcome(result).arg(what, second) + u'\n' + name};
}
