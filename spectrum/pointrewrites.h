// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/longtext.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QPlainTextEdit;
class QTextDocument;

/// Puts a new text into a point list in such a way that it can be taken back: one step of the
/// list's own undoing, in order with what was typed before and after. Caret and view stay at the
/// point where they were, and come back with the text when the step is undone or redone.
///
/// The text that is left is kept as the document that it is, with all that can be undone in it, and
/// the list gets another document; undoing exchanges them again. So a step costs what it costs to
/// show a text. Recorded as an edit, to take 100,000 lines out one by one took twice as long as all
/// the rest of the command.
///
/// Who is told of the new text (textChanged) must not change it there and then.
///
/// Documents of long lists are large, some 20 MB for 100,000 lines, also when none is laid out. So
/// all that can be undone is forgotten before a step that would keep more than mostKeptLines or
/// mostKeptCharacters; that step itself can always be undone. A text that is put in with
/// setPlainText() cannot be, and ends what could before.
class PointRewrites : public QObject
{
    Q_OBJECT

public:
    /// What all documents that are kept for undoing may hold together.
    static constexpr qsizetype mostKeptLines = 350'000;
    static constexpr qsizetype mostKeptCharacters = 16'000'000;

    /// That of this list, which owns it.
    static PointRewrites& of(QPlainTextEdit& list);

    /// Replaces the whole text. Where it is the same already, that is announced all the same. When
    /// it is not to go on, returns false, and nothing has changed; else @p taking is called once
    /// the text is sure to come, before the list has it.
    bool replaceText(const QString& text, const LongText::GoOn& goOn = {},
                     const std::function<void()>& taking = {});

    /// Puts a text in the place of what is selected, and the caret behind it, as typing does, but
    /// so that it can be stopped; not where all that can be undone would be forgotten for that.
    /// Undoing must be possible in the list.
    bool insertText(const QString& text, const LongText::GoOn& goOn = {});

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
        std::optional<qsizetype> top; ///< None where it is enough that the caret is seen.
    };

    /// Lines and characters.
    struct Amount
    {
        qsizetype lines = 0;
        qsizetype characters = 0;
    };

    class Crossing;

    explicit PointRewrites(QPlainTextEdit* pointList);

    [[nodiscard]] View view() const;
    void show(const View& view);
    void announce(const View& view);
    [[nodiscard]] bool hasRoom() const;
    void makeRoom();
    [[nodiscard]] std::unique_ptr<QTextDocument> exchange(std::unique_ptr<QTextDocument> document);

    QPlainTextEdit* list;
    std::shared_ptr<Amount> kept; ///< By all that can be undone.
};
