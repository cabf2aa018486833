// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointrewrites.h"

#include "spectrum/pointlines.h"

#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>

#include <algorithm>
#include <utility>

namespace {

/// The block of a line, or the last one when there are not so many.
QTextBlock blockOf(const QTextDocument& document, qsizetype line)
{
    const int last = document.blockCount() - 1;
    return document.findBlockByNumber(static_cast<int>(std::min<qsizetype>(line, last)));
}

/// Replaces everything in one step that no later typing is merged with.
void replaceAll(QTextDocument& document, const QString& text)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
    cursor.endEditBlock();
    // What is typed at the end of the text would belong to the step, but for this: nothing is
    // merged with the state that a document says is its unmodified one.
    document.setModified(false);
}

} // namespace

PointRewrites& PointRewrites::of(QPlainTextEdit& list)
{
    auto* found = list.findChild<PointRewrites*>(QString(), Qt::FindDirectChildrenOnly);
    return found != nullptr ? *found : *new PointRewrites(&list);
}

PointRewrites::PointRewrites(QPlainTextEdit* pointList)
    : QObject(pointList)
    , list(pointList)
    , lastUndoSteps(undoSteps())
{
    connect(list, &QPlainTextEdit::textChanged, this, &PointRewrites::followUndoing);
}

void PointRewrites::replaceText(const QString& text)
{
    const QString before = list->toPlainText();
    if (text == before) {
        Q_EMIT list->textChanged();
        return;
    }
    makeRoom(before, text);

    Step step;
    step.stepsBefore = undoSteps();
    step.before = view();
    step.after = step.before;
    const QList<qsizetype> lines = PointLines::counterparts(
        before, {step.before.anchor.line, step.before.position.line, step.before.top}, text);
    step.after.anchor.line = lines.at(0);
    step.after.position.line = lines.at(1);
    step.after.top = lines.at(2);
    {
        const QScopedValueRollback<bool> replacingNow(replacing, true);
        replaceAll(*list->document(), text);
    }
    show(step.after);
    step.stepsAfter = undoSteps();
    steps.removeIf([&step](const Step& other) { return other.stepsAfter > step.stepsBefore; });
    steps.append(step);
    lastUndoSteps = step.stepsAfter;
}

int PointRewrites::undoSteps() const
{
    return list->document()->availableUndoSteps();
}

PointRewrites::View PointRewrites::view() const
{
    const QTextDocument& document = *list->document();
    const auto place = [&document](int position) {
        const QTextBlock block = document.findBlock(position);
        return Place{block.blockNumber(), position - block.position()};
    };
    const QTextCursor caret = list->textCursor();
    return {place(caret.anchor()), place(caret.position()),
            list->cursorForPosition(QPoint(0, 0)).blockNumber()};
}

void PointRewrites::show(const View& view)
{
    const QTextDocument& document = *list->document();
    const auto position = [&document](const Place& place) {
        const QTextBlock block = blockOf(document, place.line);
        const qsizetype last = block.length() - 1;
        return block.position() + static_cast<int>(std::min(place.column, last));
    };
    QTextCursor caret = list->textCursor();
    caret.setPosition(position(view.anchor));
    caret.setPosition(position(view.position), QTextCursor::KeepAnchor);
    list->setTextCursor(caret); // scrolls to it, so that the view comes second
    list->verticalScrollBar()->setValue(blockOf(document, view.top).firstLineNumber());
}

void PointRewrites::showLater(const View& view)
{
    // In the middle of the undoing; the list moves its caret and its view at the end of it.
    const int revision = list->document()->revision();
    const auto showIfCurrent = [this, view, revision] {
        if (list->document()->revision() == revision)
            show(view);
    };
    QMetaObject::invokeMethod(this, showIfCurrent, Qt::QueuedConnection);
}

void PointRewrites::makeRoom(const QString& before, const QString& after)
{
    const auto stepsOf = [](const QString& text) { return 2 * (text.count(u'\n') + 1); };
    if (undoSteps() + stepsOf(before) + stepsOf(after) > mostUndoSteps)
        list->document()->clearUndoRedoStacks();

    // A document that can undo keeps the characters of all texts that it ever had, even of those
    // that it can no longer bring back, until it gets a new one.
    constexpr qsizetype mostCharacters = 16'000'000;
    keptCharacters += before.size();
    if (keptCharacters <= mostCharacters)
        return;
    const View current = view();
    const QSignalBlocker blocker(list);
    list->setPlainText(before);
    show(current);
    keptCharacters = 0;
}

void PointRewrites::followUndoing()
{
    if (replacing)
        return;
    const int now = undoSteps();
    if (!list->document()->isRedoAvailable())
        steps.removeIf([now](const Step& step) { return step.stepsAfter > now; });
    for (const Step& step : std::as_const(steps)) {
        if (lastUndoSteps == step.stepsAfter && now == step.stepsBefore)
            showLater(step.before);
        else if (lastUndoSteps == step.stepsBefore && now == step.stepsAfter)
            showLater(step.after);
    }
    lastUndoSteps = now;
}
