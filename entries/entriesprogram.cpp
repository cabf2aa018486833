// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/entriesprogram.h"

#include "entries/checkcommand.h"
#include "entries/compilecommand.h"
#include "entries/exportcommand.h"

#include <QCoreApplication>

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Command
{
    const char* name;
    const char* description;
    ExitCode (*run)(const QStringList& arguments, Console& console);
};

constexpr std::array commands{
    Command{"check", "Say what a curator would object to.", runCheckCommand},
    Command{"compile", "Compile entries into one database file.", runCompileCommand},
    Command{"export", "Write datasets for other programs.", runExportCommand},
};

QString help()
{
    QString text = u"Usage: korvela-entries COMMAND [OPTION]... FILE|FOLDER...\n"
                   "Check, compile and export entries, without a window.\n\nCommands:\n"_s;
    for (const Command& command : commands) {
        text += u"  %1 %2\n"_s.arg(QString::fromLatin1(command.name), -9)
                    .arg(QString::fromLatin1(command.description));
    }
    return text + u"\nOptions:\n"
                  "  -h, --help     Show this help, or with a command that of the command.\n"
                  "  -v, --version  Show the version.\n\n"
                  "Of a folder, the files *.json are taken, in the order in which the editor "
                  "steps.\n"
                  "Exit codes: 0 good, 1 errors were found, 2 something could not be done."_s;
}

QString version()
{
    return u"korvela-entries (KORVELA Entry Edit) %1\n"
           "Copyright 2026 KORVELA Entry Edit contributors\n"
           "License GPL-3.0-or-later: GNU GPL version 3 or later <https://gnu.org/licenses/gpl>."_s
               .arg(QCoreApplication::applicationVersion());
}

ExitCode show(const QString& text, Console& console)
{
    console.print(text);
    return console.flush() ? ExitCode::Good : ExitCode::Failed;
}

ExitCode run(const QStringList& arguments, Console& console)
{
    const QString first = arguments.value(1);
    if (first == "--help"_L1 || first == "-h"_L1 || first == "help"_L1)
        return show(help(), console);
    if (first == "--version"_L1 || first == "-v"_L1)
        return show(version(), console);
    for (const Command& command : commands) {
        if (first == QLatin1StringView(command.name))
            return command.run(arguments.mid(2), console);
    }
    console.complain(first.isEmpty() ? u"Which command?"_s
                                     : u"There is no command '%1'."_s.arg(first));
    console.complain(u"Try 'korvela-entries --help' for more information."_s);
    return ExitCode::Failed;
}

} // namespace

int runEntriesProgram(const QStringList& arguments)
{
    Console console;
    return int(run(arguments, console));
}
