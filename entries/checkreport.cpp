// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/checkreport.h"

#include "entries/console.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(Severity severity)
{
    return severity == Severity::Error ? u"error"_s : u"warning"_s;
}

QString coloured(Severity severity, bool colours)
{
    QString name = nameOf(severity);
    if (!colours)
        return name;
    return (severity == Severity::Error ? u"\x1b[1;31m"_s : u"\x1b[1;33m"_s) + name + u"\x1b[0m"_s;
}

QString counted(qsizetype count, const QString& thing)
{
    return u"%1 %2%3"_s.arg(count).arg(thing, count == 1 ? QString() : u"s"_s);
}

/// In one line, whatever the file brought in.
QString inOneLine(const QString& text)
{
    return printable(text).replace(u'\n', QChar::ReplacementCharacter);
}

} // namespace

void CheckReport::add(const QList<Finding>& findings)
{
    for (const Finding& finding : findings) {
        ++(finding.severity == Severity::Error ? errors : warnings);
        if (!keeping)
            continue;
        kept.append(QJsonObject{{u"file"_s, finding.file},
                                {u"place"_s, finding.place},
                                {u"rule"_s, finding.rule},
                                {u"severity"_s, nameOf(finding.severity)},
                                {u"text"_s, finding.text}});
    }
}

QString CheckReport::line(const Finding& finding, bool colours)
{
    const QString place = finding.place.isEmpty() ? QString() : inOneLine(finding.place) + u": "_s;
    return inOneLine(finding.file) + u": "_s + place + coloured(finding.severity, colours) +
           u": "_s + inOneLine(finding.text) + u" ["_s + finding.rule + u']';
}

QString CheckReport::summary() const
{
    return u"%1: %2, %3"_s.arg(counted(files, u"file"_s), counted(errors, u"error"_s),
                               counted(warnings, u"warning"_s));
}

QByteArray CheckReport::toJson() const
{
    return QJsonDocument(QJsonObject{{u"Type"_s, u"Check v1"_s},
                                     {u"files"_s, files},
                                     {u"errors"_s, errors},
                                     {u"warnings"_s, warnings},
                                     {u"findings"_s, kept}})
        .toJson();
}
