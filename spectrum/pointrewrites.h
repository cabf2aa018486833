// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>

class QPlainTextEdit;

/// Puts a new text into a point list in such a way that it can be taken back: one step of the
/// list's own undoing, in order with what was typed before and after. Caret and view stay at the
/// point where they were, and come back with the text when the step is undone or redone.
///
/// Steps of long lists are dear, some 20 MB for 100,000 lines. So all that can be undone is
/// forgotten before a step that would make it more than mostUndoSteps; that step itself can always
/// be undone. A text that is put in with setPlainText() cannot be, and ends what could before.
class PointRewrites : public QObject
{
    Q_OBJECT

public:
    /// What a list keeps for undoing, counted as QTextDocument::availableUndoSteps() does, which is
    /// some 50 bytes each: four for every line of a rewritten text.
    static constexpr int mostUndoSteps = 1'200'000;

    /// That of this list, which owns it.
    static PointRewrites& of(QPlainTextEdit& list);

    /// Replaces the whole text. Where it is the same already, that is announced all the same.
    void replaceText(const QString& text);

private:
    /// A character by its line and its place there, both counted from 0.
    struct Place
    {
        qsizetype line = 0;
        qsizetype column = 0;
    };

    /// What can be seen of the list: the caret with its selection, and the line at the top.
    struct View
    {
        Place anchor;
        Place position;
        qsizetype top = 0;
    };

    /// A rewriting that can be undone or redone, between two numbers of undo steps.
    struct Step
    {
        int stepsBefore = 0;
        int stepsAfter = 0;
        View before;
        View after;
    };

    explicit PointRewrites(QPlainTextEdit* pointList);

    [[nodiscard]] int undoSteps() const;
    [[nodiscard]] View view() const;
    void show(const View& view);
    void showLater(const View& view);
    void makeRoom(const QString& before, const QString& after);
    void followUndoing();

    QPlainTextEdit* list;
    QList<Step> steps;
    int lastUndoSteps = 0;
    qsizetype keptCharacters = 0; ///< Of texts that were replaced.
    bool replacing = false;
};
