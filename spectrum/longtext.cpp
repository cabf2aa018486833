// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/longtext.h"

#include <QCoreApplication>
#include <QList>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// The text cut at line feeds into pieces of a few lines; a single one where that is not worth it.
///
/// A document keeps its lines in balanced trees. Front to back, each line is put behind the last
/// one, where a tree is twice as deep as elsewhere and where the nodes on the way lie powers of two
/// apart, so that they drive each other out of the cache: 3.5 us a line for a million lines. When
/// there is an empty line for each piece beforehand, the ways are short: 2.1 us.
QList<QStringView> piecesOf(const QString& text)
{
    constexpr int linesOfAPiece = 16;
    constexpr qsizetype fewestPieces = 16;
    const QStringView all(text);
    // The two characters of one end of line must stay together.
    if (all.contains(u'\r'))
        return {all};
    QList<QStringView> pieces;
    qsizetype begin = 0;
    int lines = 0;
    for (qsizetype end = all.indexOf(u'\n'); end >= 0; end = all.indexOf(u'\n', end + 1)) {
        if (++lines % linesOfAPiece == 0) {
            pieces.append(all.sliced(begin, end - begin));
            begin = end + 1;
        }
    }
    pieces.append(all.sliced(begin));
    return pieces.size() < fewestPieces ? QList<QStringView>{all} : pieces;
}

/// Tells a list that is not shown yet of its size, which it would hear of only then, and would wrap
/// all lines of its text anew.
void settleSize(QPlainTextEdit& list)
{
    list.ensurePolished();
    const Qt::ScrollBarPolicy policy = list.verticalScrollBarPolicy();
    if (policy == Qt::ScrollBarAsNeeded) // it is going to be
        list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    for (QWidget* widget : {static_cast<QWidget*>(&list), list.viewport()}) {
        QResizeEvent resized(widget->size(), {});
        QCoreApplication::sendEvent(widget, &resized);
    }
    list.setVerticalScrollBarPolicy(policy);
}

bool fill(QTextDocument& document, const QList<QStringView>& pieces, const LongText::GoOn& goOn)
{
    constexpr qsizetype betweenQuestions = 512; // pieces
    bool wanted = true;
    const bool wasUndoable = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    document.setPlainText(QString(pieces.size() - 1, u'\n'));
    for (qsizetype i = pieces.size() - 1; i >= 0 && wanted; --i) { // before are empty lines yet
        if (goOn && i % betweenQuestions == 0)
            wanted = goOn(pieces.size() - i, pieces.size());
        const QStringView piece = pieces.at(i);
        cursor.setPosition(static_cast<int>(i));
        cursor.insertText(QString::fromRawData(piece.data(), piece.size()));
    }
    cursor.endEditBlock();
    document.setUndoRedoEnabled(wasUndoable);
    return wanted;
}

} // namespace

namespace LongText {

bool setPlainText(QTextDocument& document, const QString& text, const GoOn& goOn)
{
    const QList<QStringView> pieces = piecesOf(text);
    if (pieces.size() >= 2)
        return fill(document, pieces, goOn);
    document.setPlainText(text);
    return true;
}

bool setPlainText(QPlainTextEdit& list, const QString& text, const GoOn& goOn)
{
    const QList<QStringView> pieces = piecesOf(text);
    if (pieces.size() < 2) {
        list.setPlainText(text);
        return true;
    }
    if (!list.isVisible())
        settleSize(list);
    // By itself the caret would go along with what is inserted, and stand at the end when the new
    // text is announced.
    QTextCursor start(list.document());
    start.setKeepPositionOnInsert(true);
    list.setTextCursor(start);
    const bool isWhole = fill(*list.document(), pieces, goOn);
    list.document()->setModified(false);
    list.setTextCursor(QTextCursor(list.document()));
    return isWhole;
}

} // namespace LongText
