// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/closedspectra.h"

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/waitcursor.h"
#include "widgets/typedfield.h"

#include <QApplication>
#include <QEvent>
#include <QKeySequence>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include <numeric>

using namespace Qt::StringLiterals;

ClosedSpectra::ClosedSpectra(QObject* parent)
    : QObject(parent)
{}

void ClosedSpectra::follow(SpectrumWindow* spectrum)
{
    spectrum->installEventFilter(this);
}

void ClosedSpectra::unfollow(SpectrumWindow* spectrum)
{
    spectrum->removeEventFilter(this);
}

QKeySequence ClosedSpectra::keys()
{
    return Qt::CTRL | Qt::SHIFT | Qt::Key_T;
}

bool ClosedSpectra::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        watched->removeEventFilter(this); // nobody refuses
        keep(static_cast<const SpectrumWindow&>(*watched));
    }
    return false;
}

void ClosedSpectra::keep(const SpectrumWindow& spectrum)
{
    const SpectrumModel& model = *spectrum.model();
    Kept kept{spectrum.windowTitle(), {}, model.editor()->toPlainText()};
    for (int column = 0; column < SpectrumModel::ColumnCount; ++column)
        kept.cells.append(model.value(column));
    // The field with the focus has not been left yet.
    const auto typed = typedTextOf(QApplication::focusWidget());
    if (typed && typed->model == &model)
        kept.cells[typed->column] = typed->text;
    closed.append(kept);

    dropTheFirst();
    tell();
}

qsizetype ClosedSpectra::charactersOf(const Kept& kept)
{
    return std::accumulate(
        kept.cells.begin(), kept.cells.end(), kept.pointText.size(),
        [](qsizetype sum, const QVariant& cell) { return sum + cell.toString().size(); });
}

void ClosedSpectra::dropTheFirst()
{
    qsizetype first = closed.size() - 1;
    qsizetype characters = charactersOf(closed.at(first));
    while (first > 0 && closed.size() - first < mostSpectra) {
        characters += charactersOf(closed.at(first - 1));
        if (characters > mostCharacters)
            break;
        --first;
    }
    closed.remove(0, first);
}

void ClosedSpectra::forget()
{
    closed.clear();
    tell();
}

SpectrumWindow* ClosedSpectra::takeBack(QWidget* document)
{
    if (closed.isEmpty())
        return nullptr;
    const WaitCursor waiting;
    const Kept kept = closed.takeLast();
    auto* spectrum = new SpectrumWindow(document);
    SpectrumModel* model = spectrum->model();
    {
        // As when a record is loaded: the form is filled once, with the type's own fields.
        const QSignalBlocker blocker(model);
        for (int column = 0; column < SpectrumModel::ColumnCount; ++column)
            model->setValue(column, kept.cells.at(column));
    }
    spectrum->onSpectrumTypeChanged(model->value(SpectrumModel::Type).toInt());
    model->setPointText(kept.pointText);
    tell();
    return spectrum;
}

void ClosedSpectra::tell()
{
    if (closed.isEmpty()) {
        Q_EMIT hintChanged({});
        return;
    }
    constexpr qsizetype mostOfTheTitle = 60; // characters
    const QString& whole = closed.constLast().title;
    const QString ending = whole.size() > mostOfTheTitle ? u"\u2026"_s : QString();
    const QString title = whole.left(mostOfTheTitle).simplified() + ending;
    const QString hint =
        u"%1 brings back the closed spectrum"_s.arg(keys().toString(QKeySequence::NativeText));
    Q_EMIT hintChanged(title.isEmpty() ? hint : hint + u" \u201c"_s + title + u'\u201d');
}
