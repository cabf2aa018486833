// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exportcommand.h"

#include "entries/commandline.h"
#include "entries/exportformats.h"
#include "entries/exportnames.h"
#include "entries/filepieces.h"
#include "entries/inputfiles.h"
#include "entries/orderedwork.h"
#include "support/wholefile.h"

#include <QDir>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Format
{
    const char* name;
    const char* suffix; ///< Of the file of each dataset; nothing when all go into one file.
    QByteArray (*write)(const ExportedDataset&);
};

constexpr std::array formats{
    Format{"csv", "csv", ExportFormats::csv},
    Format{"jcamp", "jdx", ExportFormats::jcamp},
    Format{"jsonl", nullptr, ExportFormats::jsonLine},
};

const Format* formatNamed(const QString& name)
{
    for (const Format& format : formats) {
        if (name == QLatin1StringView(format.name))
            return &format;
    }
    return nullptr;
}

/// What one file comes to in another format.
struct Converted
{
    struct Dataset
    {
        QString speciesName;
        int number = 1;
        QByteArray bytes;
    };

    QString problem;  ///< Why there is nothing.
    QStringList lost; ///< Where points are left out.
    QList<Dataset> datasets;
};

QString problemOf(const EntryFile& file)
{
    if (!file.opened)
        return u"The file cannot be read."_s;
    if (!file.parseError.isEmpty())
        return u"This is not JSON: %1."_s.arg(file.parseError);
    if (file.kind == EntryFile::Kind::Unknown)
        return u"This is no entry, spectrum or database."_s;
    return {};
}

Converted convert(const EntryFile& file, const Format& format)
{
    Converted converted{problemOf(file), {}, {}};
    for (const PlacedEntry& entry : file.entries) {
        for (const PlacedSpectrum& spectrum : entry.spectra) {
            if (!spectrum.points.complete)
                converted.lost.append(spectrum.place);
        }
    }
    const QList<ExportedDataset> datasets = ExportedDataset::of(file);
    for (const ExportedDataset& dataset : datasets)
        converted.datasets.append({dataset.speciesName, dataset.number, format.write(dataset)});
    return converted;
}

bool exists(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// Writes what was converted: into one file, or into a folder.
class Export
{
public:
    Export(Console& output, const Format& wanted, QString outputPath, bool overwrite)
        : console(output)
        , format(wanted)
        , target(std::move(outputPath))
        , force(overwrite)
        , names(QString::fromLatin1(wanted.suffix))
    {}

    [[nodiscard]] ExitCode run(const InputFiles& files)
    {
        inputs = files;
        if (!open())
            return ExitCode::Failed;
        const QStringList& paths = inputs.paths;
        const FilePieces pieces(paths, console.progressOfBytes());
        const QString things = pieces.count() == paths.size() ? u"files"_s : u"entries"_s;
        qsizetype done = 0;
        const auto showProgress = [&] { console.showProgress(done, pieces.count(), things); };
        const auto takeNext = [&](qsizetype i, Converted& converted) {
            tellProblems(pieces.pathOf(i), converted);
            for (const Converted::Dataset& dataset : std::as_const(converted.datasets))
                store(dataset);
            done = i + 1;
            showProgress();
            return true;
        };
        OrderedWork<Converted>::run(
            pieces.count(), [&](qsizetype i) { return convert(pieces.read(i), format); }, takeNext,
            showProgress);
        if (single && single->commit() != WholeFile::Result::Written)
            fail(u"%1 cannot be written."_s.arg(target));
        if (failed)
            return ExitCode::Failed;
        return lossy ? ExitCode::Findings : ExitCode::Good;
    }

private:
    [[nodiscard]] bool open()
    {
        if (format.suffix != nullptr) {
            if (QDir().mkpath(target))
                return true;
            fail(u"The folder %1 cannot be made."_s.arg(target));
            return false;
        }
        if (isRefused(target))
            return false;
        single.emplace(target);
        return true;
    }

    void tellProblems(const QString& path, const Converted& converted)
    {
        if (!converted.problem.isEmpty())
            fail(path + u": "_s + converted.problem);
        for (const QString& place : converted.lost) {
            console.complain(
                u"%1: %2: Points that are no pair of numbers are left out."_s.arg(path, place));
            lossy = true;
        }
    }

    void store(const Converted::Dataset& dataset)
    {
        if (single) {
            single->write(dataset.bytes);
            return;
        }
        const QString path = QDir(target).filePath(names.next(dataset.speciesName, dataset.number));
        if (isRefused(path))
            return;
        WholeFile file(path);
        file.write(dataset.bytes);
        if (file.commit() != WholeFile::Result::Written)
            fail(u"%1 cannot be written."_s.arg(path));
    }

    /// Whether a file stands there that must not be replaced, which is told.
    [[nodiscard]] bool isRefused(const QString& path)
    {
        if (!exists(path))
            return false;
        if (!force)
            fail(u"%1 exists; --force replaces it."_s.arg(path));
        else if (inputs.contains(path))
            fail(u"%1 is one of the files to export; it would be lost."_s.arg(path));
        else
            return false;
        return true;
    }

    void fail(const QString& text)
    {
        console.complain(text);
        failed = true;
    }

    Console& console;
    const Format& format;
    const QString target;
    const bool force;
    ExportNames names;
    std::optional<WholeFile> single;
    InputFiles inputs;
    bool failed = false;
    bool lossy = false;
};

void addOptions(CommandLine& line)
{
    line.addValue(
        u"format"_s, u"csv|jcamp|jsonl"_s,
        u"Write a CSV or JCAMP-DX file for each dataset, or a line of JSON in one file."_s);
    line.addValue(u"output"_s, u"FOLDER|FILE"_s,
                  u"Folder for csv and jcamp, made where it is missing; file for jsonl."_s);
    line.addFlag(u"force"_s, u"Replace existing files."_s);
}

} // namespace

ExitCode runExportCommand(const QStringList& arguments, Console& console)
{
    CommandLine line(console, u"export --format FORMAT --output FOLDER|FILE FILE|FOLDER..."_s,
                     u"Write the datasets of entries, spectra and databases for other programs."_s);
    addOptions(line);
    if (const auto done = line.read(arguments))
        return *done;
    const Format* const format = formatNamed(line.value(u"format"_s));
    if (format == nullptr) {
        return line.refuse(u"There is no format '%1'; there are csv, jcamp and jsonl."_s.arg(
            line.value(u"format"_s)));
    }
    if (line.value(u"output"_s).isEmpty())
        return line.refuse(u"Where shall the output go? (--output)"_s);
    if (line.files().isEmpty())
        return line.refuse(u"Which files or folders?"_s);

    const InputFiles inputs = InputFiles::named(line.files());
    for (const QString& problem : inputs.problems)
        console.complain(problem);
    Export work(console, *format, line.value(u"output"_s), line.isSet(u"force"_s));
    const ExitCode code = work.run(inputs);
    if (!console.flush() || !inputs.problems.isEmpty())
        return ExitCode::Failed;
    return code;
}
