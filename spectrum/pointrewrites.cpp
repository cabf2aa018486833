// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/pointrewrites.h"

#include "spectrum/pointlines.h"

#include <QPlainTextDocumentLayout>
#include <QPlainTextEdit>
#include <QScrollBar>
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

/// A document for a point list, with a text that undoing does not take out of it; none when it was
/// not to go on.
std::unique_ptr<QTextDocument> documentWith(const QString& text, const QFont& font,
                                            const LongText::GoOn& goOn)
{
    auto document = std::make_unique<QTextDocument>();
    document->setDocumentLayout(new QPlainTextDocumentLayout(document.get()));
    document->setDefaultFont(font);
    document->setUndoRedoEnabled(false);
    if (!LongText::setPlainText(*document, text, goOn))
        return nullptr;
    document->setUndoRedoEnabled(true);
    return document;
}

/// A text with the ends of lines that a document makes of it.
QString asInserted(QString text)
{
    // In one pass: QString::replace() moves all that follows for each thousand of ends.
    QChar* const begin = text.data();
    const QChar* const end = begin + text.size();
    QChar* kept = begin;
    for (const QChar* c = begin; c != end; ++c) {
        if (*c == u'\r' && c + 1 != end && c[1] == u'\n')
            continue;
        const bool isEnd = *c == u'\r' || *c == QChar::ParagraphSeparator || *c == u'\ufdd0' ||
                           *c == u'\ufdd1'; // the last two begin and end frames
        *kept++ = isEnd ? QChar(u'\n') : *c;
    }
    text.truncate(kept - begin);
    return text;
}

} // namespace

/// The step between two documents of the list, as each of them has it among its own: the older one
/// as its last, the newer one as its first. The step in the document that is shown owns the other
/// document; so what can no longer be reached goes with the step that led there.
class PointRewrites::Crossing : public QAbstractUndoItem
{
public:
    /// Takes the step from the document that is shown to @p newer.
    static void take(PointRewrites& rewrites, std::unique_ptr<QTextDocument> newer,
                     const View& before, const View& after)
    {
        rewrites.makeRoom();
        QTextDocument& older = *rewrites.list->document();
        auto forth = std::make_unique<Crossing>(rewrites, after);
        auto back = std::make_unique<Crossing>(rewrites, before);
        forth->other = back.get();
        back->other = forth.get();
        back->countAsKept(older);
        Crossing& taken = *back;
        newer->appendUndoItem(back.release());
        older.appendUndoItem(forth.release());
        taken.hidden = rewrites.exchange(std::move(newer));
        rewrites.announce(after);
    }

    Crossing(PointRewrites& pointRewrites, const View& viewOfTheOther)
        : rewrites(pointRewrites)
        , view(viewOfTheOther)
        , kept(pointRewrites.kept)
    {}

    ~Crossing() override
    {
        kept->lines -= amount.lines;
        kept->characters -= amount.characters;
    }

    Q_DISABLE_COPY_MOVE(Crossing)

    void undo() override { cross(&QTextDocument::undo); }
    void redo() override { cross(&QTextDocument::redo); }

private:
    void countAsKept(const QTextDocument& document)
    {
        amount = {document.blockCount(), document.characterCount()};
        kept->lines += amount.lines;
        kept->characters += amount.characters;
    }

    /// Shows the other document, where the step is taken, too: with nothing to show in its turn.
    void cross(void (QTextDocument::*step)())
    {
        if (!hidden)
            return;
        QTextDocument& shown = *hidden;
        std::unique_ptr<QTextDocument> left = rewrites.exchange(std::move(hidden));
        (shown.*step)();
        other->hidden = std::move(left);
        rewrites.announce(view);
    }

    PointRewrites& rewrites;
    View view; ///< Of the other document.
    std::shared_ptr<Amount> kept;
    Amount amount; ///< What of it is the older document's.
    Crossing* other = nullptr;
    std::unique_ptr<QTextDocument> hidden;
};

PointRewrites& PointRewrites::of(QPlainTextEdit& list)
{
    auto* found = list.findChild<PointRewrites*>(QString(), Qt::FindDirectChildrenOnly);
    return found != nullptr ? *found : *new PointRewrites(&list);
}

PointRewrites::PointRewrites(QPlainTextEdit* pointList)
    : QObject(pointList)
    , list(pointList)
    , kept(std::make_shared<Amount>())
{}

bool PointRewrites::replaceText(const QString& text, const LongText::GoOn& goOn,
                                const std::function<void()>& taking)
{
    const QString before = list->toPlainText();
    const View viewBefore = view();
    View viewAfter = viewBefore;
    std::unique_ptr<QTextDocument> document;
    const bool isNew = text != before;
    if (isNew) {
        const QList<qsizetype> lines = PointLines::counterparts(
            before, {viewBefore.anchor.line, viewBefore.position.line, *viewBefore.top}, text);
        viewAfter.anchor.line = lines.at(0);
        viewAfter.position.line = lines.at(1);
        viewAfter.top = lines.at(2);
    }
    if (isNew && list->isUndoRedoEnabled()) {
        document = documentWith(text, list->document()->defaultFont(), goOn);
        if (!document)
            return false;
    }
    if (taking)
        taking();
    if (!isNew) {
        Q_EMIT list->textChanged();
    } else if (!document) {
        LongText::setPlainText(*list, text);
        show(viewAfter);
    } else {
        Crossing::take(*this, std::move(document), viewBefore, viewAfter);
    }
    return true;
}

bool PointRewrites::insertText(const QString& text, const LongText::GoOn& goOn)
{
    QTextCursor caret = list->textCursor();
    if (!hasRoom() && list->document()->isUndoAvailable()) {
        caret.insertText(text);
        list->ensureCursorVisible();
        return true;
    }
    const QString inserted = asInserted(text);
    // Plain text would tell blanks and breaks otherwise that are nobody's business here.
    QString after = asInserted(list->document()->toRawText());
    const int start = caret.selectionStart();
    after.replace(start, caret.selectionEnd() - start, inserted);
    const qsizetype end = start + inserted.size();
    const QStringView untilEnd = QStringView(after).first(end);
    const Place caretAfter{untilEnd.count(u'\n'), end - (untilEnd.lastIndexOf(u'\n') + 1)};
    auto document = documentWith(after, list->document()->defaultFont(), goOn);
    if (!document)
        return false;
    Crossing::take(*this, std::move(document), view(), {caretAfter, caretAfter, {}});
    return true;
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
    if (view.top)
        list->verticalScrollBar()->setValue(blockOf(document, *view.top).firstLineNumber());
    else
        list->ensureCursorVisible();
}

void PointRewrites::makeRoom()
{
    if (!hasRoom())
        list->document()->clearUndoRedoStacks();
}

bool PointRewrites::hasRoom() const
{
    const QTextDocument& document = *list->document();
    return kept->lines + document.blockCount() <= mostKeptLines &&
           kept->characters + document.characterCount() <= mostKeptCharacters;
}

std::unique_ptr<QTextDocument> PointRewrites::exchange(std::unique_ptr<QTextDocument> document)
{
    std::unique_ptr<QTextDocument> before(list->document());
    before->setParent(nullptr); // else the list would delete it
    list->setExtraSelections({});
    document->documentLayout()->setPaintDevice(list->viewport());
    if (document->defaultFont() != list->font())
        document->setDefaultFont(list->font());
    document->setParent(list);
    list->setDocument(document.release());
    // What was laid out in the document, more than its text and steps take, goes with its layout.
    before->setDocumentLayout(new QPlainTextDocumentLayout(before.get()));
    return before;
}

void PointRewrites::announce(const View& view)
{
    show(view);
    // Undoing ends with the caret being scrolled to, wherever the view was.
    const QTextDocument* document = list->document();
    const int revision = document->revision();
    const auto showIfCurrent = [this, view, document, revision] {
        if (list->document() == document && document->revision() == revision)
            show(view);
    };
    QMetaObject::invokeMethod(this, showIfCurrent, Qt::QueuedConnection);
    Q_EMIT list->textChanged();
}
