// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/commandline.h"

#include <utility>

using namespace Qt::StringLiterals;

CommandLine::CommandLine(Console& output, QString commandUsage, QString what)
    : console(output)
    , usage(std::move(commandUsage))
    , description(std::move(what))
{
    parser.addOption({{u"h"_s, u"help"_s}, u"Show this help and exit."_s});
}

void CommandLine::addFlag(const QString& name, const QString& what)
{
    parser.addOption({name, what});
}

void CommandLine::addValue(const QString& name, const QString& value, const QString& what,
                           const QString& defaultValue)
{
    parser.addOption({name, what, value, defaultValue});
}

std::optional<ExitCode> CommandLine::read(const QStringList& arguments)
{
    // The parser takes the first for the program's name.
    if (!parser.parse(QStringList{u"korvela-entries"_s} + arguments))
        return refuse(parser.errorText());
    if (!parser.isSet(u"help"_s))
        return {};
    console.print(help());
    return console.flush() ? ExitCode::Good : ExitCode::Failed;
}

QString CommandLine::help() const
{
    const QString text = parser.helpText();
    return u"Usage: korvela-entries %1\n%2\n\n%3"_s.arg(
        usage, description, text.sliced(text.indexOf("Options:"_L1)).trimmed());
}

ExitCode CommandLine::refuse(const QString& text) const
{
    console.complain(text);
    console.complain(
        u"Try 'korvela-entries %1 --help' for more information."_s.arg(usage.section(u' ', 0, 0)));
    return ExitCode::Failed;
}
