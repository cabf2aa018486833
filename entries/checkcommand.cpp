// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/checkcommand.h"

#include "entries/checkreport.h"
#include "entries/commandline.h"
#include "entries/filepieces.h"
#include "entries/inputfiles.h"
#include "entries/orderedwork.h"
#include "entries/rules.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

void addOptions(CommandLine& line)
{
    line.addFlag(u"strict"_s, u"Take warnings for errors."_s);
    line.addValue(u"disable"_s, u"RULE"_s,
                  u"Do not ask this rule; may be given often, or with several names and commas."_s);
    line.addFlag(u"rules"_s, u"List the rules with their reasons and exit."_s);
    line.addValue(u"format"_s, u"text|json"_s,
                  u"Write a line for each finding, or one JSON object for programs."_s, u"text"_s);
}

QString listOfRules()
{
    QStringList lines;
    for (const Rules::Rule& rule : Rules::all()) {
        lines.append(u"%1 (%2%3)\n    %4"_s.arg(
            QString::fromLatin1(rule.name),
            rule.severity == Severity::Error ? u"error"_s : u"warning"_s,
            rule.inSchemas ? u", in the schemas"_s : QString(), QString::fromUtf8(rule.reason)));
    }
    return lines.join(u'\n');
}

/// The first name that is none; empty when all are.
QString unknownRule(const QSet<QString>& names)
{
    for (const QString& name : names) {
        if (!Rules::isRule(name))
            return name;
    }
    return {};
}

Rules::Selection selectionOf(const CommandLine& line)
{
    Rules::Selection selection;
    const QStringList names = line.values(u"disable"_s).join(u',').split(u',', Qt::SkipEmptyParts);
    selection.disabled = QSet<QString>(names.begin(), names.end());
    selection.strict = line.isSet(u"strict"_s);
    return selection;
}

/// What is left of a file, or of a piece of it, when it has been judged.
struct Judged
{
    bool opened = false;
    Rules::Judgement judgement;
    FileSummary summary;
};

class Check
{
public:
    Check(Console& output, const Rules::Selection& rules, bool asJson)
        : console(output)
        , selection(rules)
        , told(rules)
        , json(asJson)
    {
        if (json)
            report.keepFindings();
    }

    /// Whether all files could be read.
    [[nodiscard]] bool run(const QStringList& paths)
    {
        const FilePieces pieces(paths, console.progressOfBytes());
        const auto judge = [this, &pieces](qsizetype i) {
            const EntryFile file = pieces.read(i);
            return Judged{file.opened, Rules::judge(file, selection), FileSummary::of(file)};
        };
        const QString things = pieces.count() == paths.size() ? u"files"_s : u"entries"_s;
        qsizetype done = 0;
        const auto showProgress = [&] { console.showProgress(done, pieces.count(), things); };
        const auto takeNext = [&](qsizetype i, Judged& judged) {
            take(judged);
            if (pieces.isLastOfFile(i))
                endFile(pieces.pathOf(i));
            done = i + 1;
            showProgress();
            return true;
        };
        OrderedWork<Judged>::run(pieces.count(), judge, takeNext, showProgress);
        tell(Rules::compare(summaries, selection));
        if (json)
            console.print(report.toJson());
        else
            console.print(report.summary());
        return allOpened;
    }

    [[nodiscard]] bool hasErrors() const { return report.errorCount() > 0; }

private:
    void take(Judged& done)
    {
        allOpened &= done.opened;
        tell(told.admit(done.judgement));
        summary.species += done.summary.species;
    }

    void endFile(const QString& path)
    {
        tell(told.endFile(path));
        report.countFile();
        summary.path = path;
        summaries.append(std::exchange(summary, {}));
    }

    void tell(const QList<Finding>& findings)
    {
        report.add(findings);
        for (const Finding& finding : findings) {
            if (!json)
                console.print(CheckReport::line(finding, console.hasColours()));
        }
    }

    Console& console;
    const Rules::Selection& selection;
    Rules::ToldOfFile told;
    bool json;
    bool allOpened = true;
    CheckReport report;
    FileSummary summary; ///< Of the file that is being judged.
    QList<FileSummary> summaries;
};

} // namespace

ExitCode runCheckCommand(const QStringList& arguments, Console& console)
{
    CommandLine line(console, u"check [OPTION]... FILE|FOLDER..."_s,
                     u"Say what a curator would object to in entries, spectra and databases."_s);
    addOptions(line);
    if (const auto done = line.read(arguments))
        return *done;
    if (line.isSet(u"rules"_s)) {
        console.print(listOfRules());
        return console.flush() ? ExitCode::Good : ExitCode::Failed;
    }

    const Rules::Selection selection = selectionOf(line);
    const QString unknown = unknownRule(selection.disabled);
    if (!unknown.isEmpty())
        return line.refuse(u"There is no rule '%1'; --rules lists them."_s.arg(unknown));
    const QString format = line.value(u"format"_s);
    if (format != "text"_L1 && format != "json"_L1)
        return line.refuse(u"There is no format '%1'; there are text and json."_s.arg(format));
    if (line.files().isEmpty())
        return line.refuse(u"Which files or folders?"_s);

    const InputFiles inputs = InputFiles::named(line.files());
    for (const QString& problem : inputs.problems)
        console.complain(problem);
    Check check(console, selection, format == "json"_L1);
    const bool allOpened = check.run(inputs.paths);
    if (!console.flush() || !allOpened || !inputs.problems.isEmpty())
        return ExitCode::Failed;
    return check.hasErrors() ? ExitCode::Findings : ExitCode::Good;
}
