// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Work of the editor's windows, until everything is painted, beside what Qt alone takes.

#include "benchmarks/measurement.h"
#include "benchmarks/windows.h"
#include "spectrum/spectrummodel.h"
#include "tests/support/child.h"

#include <QAction>
#include <QFile>
#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using TestSupport::child;
using Windows::Editor;
using Windows::settle;

QJsonObject readEntry(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QJsonDocument::fromJson(file.readAll()).object();
}

// Opening an entry

/// The entry with 20 datasets of 5,000 points each or, as the size says, that with 5 of 1,000.
struct LargeEntry
{
    QString path;
    int datasets = 0;
};

LargeEntry largeEntry(const Subject& subject)
{
    if (subject.size == 5'000)
        return {subject.path(u"large.json"_s), 20};
    return {subject.path(u"small.json"_s), 5};
}

Measurement openEntry(const Subject& subject)
{
    return [path = largeEntry(subject).path, editor = std::make_shared<Editor>()] {
        const Cost cost = costOf([&] {
            editor->load(path);
            editor->charts.settleAndPaint();
        });
        child<QAction>(editor->window, "actionClean")->trigger();
        settle();
        return cost;
    };
}

Measurement openEmptyEntry(const Subject& subject)
{
    return [entry = largeEntry(subject), editor = std::make_shared<Editor>()] {
        const Cost cost = costOf([&] {
            keep(readEntry(entry.path).size());
            editor->addEmptySpectra(entry.datasets);
            editor->charts.settleAndPaint();
        });
        editor->deleteSpectra(entry.datasets);
        settle();
        return cost;
    };
}

/// Like openEmptyEntry(), but the point texts are put into the editors, by Qt's own means alone.
Measurement openTexts(const Subject& subject)
{
    const LargeEntry entry = largeEntry(subject);
    QString text;
    {
        Editor editor;
        editor.load(entry.path);
        text = child<QPlainTextEdit>(editor.window, "textEditSpect")->toPlainText();
    }
    return [entry, text, editor = std::make_shared<Editor>()] {
        const Cost cost = costOf([&] {
            keep(readEntry(entry.path).size());
            editor->addEmptySpectra(entry.datasets);
            const auto texts = editor->window.findChildren<QPlainTextEdit*>(u"textEditSpect"_s);
            for (QPlainTextEdit* field : texts) {
                const QSignalBlocker noTypedEdit(field);
                field->setPlainText(text);
            }
            editor->charts.settleAndPaint();
        });
        editor->deleteSpectra(entry.datasets);
        settle();
        return cost;
    };
}

/// Opens the large entry's twin that has no points, after reading the large one.
Measurement openPointlessEntry(const Subject& subject)
{
    const QString pointless = subject.path(u"pointless.json"_s);
    return [path = largeEntry(subject).path, pointless, editor = std::make_shared<Editor>()] {
        const Cost cost = costOf([&] {
            keep(readEntry(path).size());
            editor->load(pointless);
            editor->charts.settleAndPaint();
        });
        child<QAction>(editor->window, "actionClean")->trigger();
        settle();
        return cost;
    };
}

Measurement openBareEntry(const Subject& subject)
{
    return [path = largeEntry(subject).path, windows = std::make_shared<Windows::BareWindows>()] {
        const Cost cost = costOf([&] {
            windows->open(readEntry(path));
            windows->charts.settleAndPaint();
        });
        windows->closeAll();
        settle();
        return cost;
    };
}

Measurement parseEntry(const Subject& subject)
{
    return [path = largeEntry(subject).path] {
        return costOf([&path] { keep(readEntry(path).size()); });
    };
}

// Stepping through a folder

QString firstOfFolder(const Subject& subject)
{
    return subject.path(u"folder/entry1.json"_s);
}

Measurement step(const Subject& subject)
{
    auto editor = std::make_shared<Editor>();
    editor->load(firstOfFolder(subject));
    settle();
    return [editor] {
        return costOf([&editor] {
            editor->window.loadNextSpeciesFile();
            editor->charts.settleAndPaint();
        });
    };
}

Measurement stepEmpty(const Subject& subject)
{
    return [path = firstOfFolder(subject), editor = std::make_shared<Editor>()] {
        constexpr int datasets = 2;
        const Cost cost = costOf([&] {
            keep(readEntry(path).size());
            editor->addEmptySpectra(datasets);
            editor->charts.settleAndPaint();
        });
        editor->deleteSpectra(datasets);
        settle();
        return cost;
    };
}

Measurement stepBare(const Subject& subject)
{
    return [path = firstOfFolder(subject), windows = std::make_shared<Windows::BareWindows>()] {
        const Cost cost = costOf([&] {
            windows->open(readEntry(path));
            windows->charts.settleAndPaint();
        });
        windows->closeAll();
        settle();
        return cost;
    };
}

// Commands

/// An editor with one spectrum, and what a measurement needs of it.
struct OneSpectrum
{
    QString path;
    std::unique_ptr<Editor> editor;
    SpectrumModel* model = nullptr;
    QPlainTextEdit* text = nullptr;
    QChartView* chart = nullptr;
    QLineSeries* series = nullptr;
};

std::shared_ptr<OneSpectrum> oneSpectrum(const Subject& subject)
{
    auto spectrum = std::make_shared<OneSpectrum>();
    spectrum->path = subject.path(u"entry-%1.json"_s.arg(subject.size));
    spectrum->editor = std::make_unique<Editor>();
    spectrum->editor->load(spectrum->path);
    settle();
    const MainWindow& window = spectrum->editor->window;
    spectrum->model = window.findChild<SpectrumModel*>();
    spectrum->text = child<QPlainTextEdit>(window, "textEditSpect");
    spectrum->chart = child<QChartView>(window, "chartSpectrum");
    spectrum->series = qobject_cast<QLineSeries*>(spectrum->chart->chart()->series().constFirst());
    return spectrum;
}

/// Shows the points of the file again.
void reload(const OneSpectrum& spectrum)
{
    spectrum.model->fromJson(readEntry(spectrum.path).value("Dataset1"_L1).toObject());
    settle();
}

void click(const OneSpectrum& spectrum, const char* button)
{
    child<QPushButton>(spectrum.editor->window, button)->click();
    spectrum.editor->charts.settleAndPaint();
}

Measurement command(const Subject& subject, const char* button)
{
    return [spectrum = oneSpectrum(subject), button] {
        reload(*spectrum);
        return costOf([&] { click(*spectrum, button); });
    };
}

/// Shows in an equal window what the command leaves behind: the text in one call, and the points in
/// one.
Measurement commandResult(const Subject& subject, const char* button)
{
    auto spectrum = oneSpectrum(subject);
    click(*spectrum, button);
    const QString text = spectrum->text->toPlainText();
    const QList<QPointF> points = spectrum->series->points();
    return [spectrum, text, points] {
        reload(*spectrum);
        const QSignalBlocker noTypedEdit(spectrum->text);
        return costOf([&] {
            spectrum->text->setPlainText(text);
            spectrum->series->replace(points);
            // Qt 6.8 does not ask for that by itself when the line itself is not shown.
            spectrum->chart->viewport()->update();
            spectrum->editor->charts.settleAndPaint();
        });
    };
}

// Redrawing

/// Two states of a spectrum that differ in both ranges, shown in turn.
template <typename State>
Measurement inTurn(const State& first, const State& second,
                   const std::function<Cost(const State&)>& show)
{
    return [first, second, show, isSecond = false]() mutable {
        isSecond = !isSecond;
        return show(isSecond ? second : first);
    };
}

Measurement redraw(const Subject& subject)
{
    const auto spectrum = oneSpectrum(subject);
    const QString text = spectrum->text->toPlainText();
    return inTurn<QString>(text, text + "\n13.5; 1100"_L1, [spectrum](const QString& edited) {
        spectrum->text->setPlainText(edited);
        settle();
        // What happens when the pause in the typing is over.
        spectrum->model->findChild<QTimer*>()->stop();
        return costOf([&] {
            QMetaObject::invokeMethod(spectrum->model, "emitSpectrumDataChanged");
            spectrum->editor->charts.settleAndPaint();
        });
    });
}

Measurement redrawNaively(const Subject& subject)
{
    const auto spectrum = oneSpectrum(subject);
    const QList<QPointF> points = spectrum->series->points();
    return inTurn<QList<QPointF>>(points, points + QList<QPointF>{{13.5, 1100}},
                                  [spectrum](const QList<QPointF>& edited) {
                                      return costOf([&] {
                                          Windows::showInChart(*spectrum->chart, edited);
                                          spectrum->editor->charts.settleAndPaint();
                                      });
                                  });
}

/// Painting the chart as it is.
Measurement repaint(const Subject& subject)
{
    return [spectrum = oneSpectrum(subject)] {
        return costOf([&] {
            spectrum->chart->scene()->update();
            spectrum->editor->charts.settleAndPaint();
        });
    };
}

// Saving

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

Measurement saveEntry(const Subject& subject)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString path = folder->filePath(u"saved.json"_s);
    if (!QFile::copy(largeEntry(subject).path, path))
        qFatal("cannot write %s", qPrintable(path));
    const auto editor = std::make_shared<Editor>();
    editor->load(path);
    settle();
    return [folder, editor] {
        return costOf(
            [&editor] { child<QAction>(editor->window, "actionSaveSpecies")->trigger(); });
    };
}

Measurement saveValue(const Subject& subject)
{
    return
        [folder = std::make_shared<QTemporaryDir>(), value = readEntry(largeEntry(subject).path)] {
            return costOf(
                [&] { write(folder->filePath(u"saved.json"_s), QJsonDocument(value).toJson()); });
        };
}

Measurement saveBytes(const Subject& subject)
{
    return [folder = std::make_shared<QTemporaryDir>(),
            bytes = QJsonDocument(readEntry(largeEntry(subject).path)).toJson()] {
        return costOf([&] { write(folder->filePath(u"saved.json"_s), bytes); });
    };
}

} // namespace

Measurements windowMeasurements()
{
    const auto button = [](auto prepare, const char* name) {
        return [prepare, name](const Subject& subject) { return prepare(subject, name); };
    };
    return {
        {"open", openEntry},
        {"open-empty", openEmptyEntry},
        {"open-texts", openTexts},
        {"open-pointless", openPointlessEntry},
        {"open-bare", openBareEntry},
        {"parse-entry", parseEntry},
        {"step", step},
        {"step-empty", stepEmpty},
        {"step-bare", stepBare},
        {"normalize", button(command, "buttonNormalize")},
        {"normalize-result", button(commandResult, "buttonNormalize")},
        {"sparse", button(command, "buttonSparse")},
        {"sparse-result", button(commandResult, "buttonSparse")},
        {"redraw", redraw},
        {"redraw-naively", redrawNaively},
        {"repaint", repaint},
        {"save", saveEntry},
        {"save-value", saveValue},
        {"save-bytes", saveBytes},
    };
}
