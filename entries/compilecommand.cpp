// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/compilecommand.h"

#include "database/databasefile.h"
#include "entries/checkreport.h"
#include "entries/commandline.h"
#include "entries/inputfiles.h"
#include "entries/orderedwork.h"
#include "entries/rules.h"
#include "support/wholefile.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

/// Those of the dialog.
constexpr QLatin1StringView defaultVersion("1.0");
constexpr QLatin1StringView defaultRelease("3.0");
constexpr QLatin1StringView defaultTitle("KORVELA reference database of photoionisation spectra");

void addOptions(CommandLine& line)
{
    line.addValue(u"output"_s, u"FILE"_s, u"The database file; an existing one is replaced."_s);
    line.addFlag(u"compact"_s, u"Leave out indentation and line ends."_s);
    line.addValue(u"database-version"_s, u"V"_s, u"Version of the database; 1.0 if not given."_s,
                  defaultVersion);
    line.addValue(u"release"_s, u"R"_s, u"Data release; 3.0 if not given."_s, defaultRelease);
    line.addValue(u"title"_s, u"T"_s, u"Title of the database."_s, defaultTitle);
    line.addFlag(u"check"_s, u"Refuse to compile entries with errors (see check)."_s);
}

/// Whether the entries have no errors; those that they have are told.
bool areGood(const QStringList& paths, Console& console)
{
    bool good = true;
    const Rules::Selection selection;
    Rules::ToldOfFile told(selection);
    const auto tell = [&](const QList<Finding>& findings) {
        for (const Finding& finding : findings) {
            if (finding.severity != Severity::Error)
                continue;
            good = false;
            console.print(CheckReport::line(finding, console.hasColours()));
        }
    };
    qsizetype done = 0;
    const auto showProgress = [&] { console.showProgress(done, paths.size()); };
    OrderedWork<Rules::Judgement>::run(
        paths.size(),
        [&](qsizetype i) { return Rules::judge(EntryFiles::read(paths.at(i)), selection); },
        [&](qsizetype i, const Rules::Judgement& judgement) {
            tell(told.admit(judgement));
            tell(told.endFile(paths.at(i)));
            done = i + 1;
            showProgress();
            return true;
        },
        showProgress);
    return good;
}

/// Adds the entries to the database. Whether all could be used; those that could not are told in
/// the words of the dialog, in their own order.
bool addAll(const QStringList& paths, QJsonDocument::JsonFormat format,
            DatabaseFile::Assembly& database, Console& console)
{
    using DatabaseFile::Source;
    const QList<qsizetype> order = DatabaseFile::orderInFile(paths.size());
    QMap<qsizetype, QString> problems;
    OrderedWork<Source>::run(
        order.size(),
        [&](qsizetype i) {
            return DatabaseFile::readSource(paths.at(order.at(i)), order.at(i), format);
        },
        [&](qsizetype i, const Source& source) {
            const qsizetype index = order.at(i);
            if (!source.member) {
                problems.insert(index, (source.opened ? u"Invalid species type in file: "_s
                                                      : u"Could not open file: "_s) +
                                           paths.at(index));
            } else if (problems.isEmpty()) {
                database.add(*source.member);
            }
            console.showProgress(i + 1, order.size());
            return true;
        });
    for (const QString& problem : std::as_const(problems))
        console.complain(problem);
    return problems.isEmpty();
}

ExitCode compile(const QStringList& paths, const QString& target,
                 const DatabaseFile::Header& header, QJsonDocument::JsonFormat format,
                 Console& console)
{
    WholeFile file(target);
    DatabaseFile::Assembly database(header, format,
                                    [&file](const QByteArray& piece) { file.write(piece); });
    if (!addAll(paths, format, database, console))
        return ExitCode::Failed;
    database.finish();
    if (file.commit() == WholeFile::Result::Written)
        return ExitCode::Good;
    console.complain(u"%1 cannot be written."_s.arg(target));
    return ExitCode::Failed;
}

} // namespace

ExitCode runCompileCommand(const QStringList& arguments, Console& console)
{
    CommandLine line(console, u"compile --output FILE [OPTION]... FILE|FOLDER..."_s,
                     u"Compile entries into one database file."_s);
    addOptions(line);
    if (const auto done = line.read(arguments))
        return *done;
    if (line.value(u"output"_s).isEmpty())
        return line.refuse(u"Where shall I save the database to? (--output)"_s);
    if (line.files().isEmpty())
        return line.refuse(u"At least one species has to be added to the database."_s);

    const InputFiles inputs = InputFiles::named(line.files());
    for (const QString& problem : inputs.problems)
        console.complain(problem);
    if (!inputs.problems.isEmpty())
        return ExitCode::Failed;
    const QString target = line.value(u"output"_s);
    if (inputs.contains(target)) {
        console.complain(u"%1 is one of the entries; it would be lost."_s.arg(target));
        return ExitCode::Failed;
    }
    if (line.isSet(u"check"_s) && !areGood(inputs.paths, console)) {
        console.complain(u"The entries have errors; nothing was compiled."_s);
        return console.flush() ? ExitCode::Findings : ExitCode::Failed;
    }
    const DatabaseFile::Header header{line.value(u"database-version"_s), line.value(u"release"_s),
                                      line.value(u"title"_s), QDate::currentDate()};
    const auto format = line.isSet(u"compact"_s) ? QJsonDocument::Compact : QJsonDocument::Indented;
    const ExitCode code = compile(inputs.paths, target, header, format, console);
    return console.flush() ? code : ExitCode::Failed;
}
