// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/otherlinemarks.h"

#include "spectrum/pointlistlines.h"
#include "spectrum/pointtext.h"
#include "widgets/readablecolour.h"

#include <QEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace {

/// A stretch of the document, from its first character to behind its last.
struct Stretch
{
    int begin = 0;
    int end = 0;
};

/// Where the lines of these blocks are that are no points; neighbours are one stretch.
QList<Stretch> otherLines(const QTextBlock& first, const QTextBlock& last)
{
    QList<Stretch> stretches;
    bool continued = false;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        const QString text = PointListLines::plainText(block);
        PointText::forEachLine(text, [&](const PointText::Line& line) {
            const int begin = block.position() + static_cast<int>(line.position);
            const int end = begin + static_cast<int>(line.length);
            const bool isOther =
                !line.point &&
                !PointText::isBlank(QStringView(text).sliced(line.position, line.length));
            if (isOther && continued)
                stretches.last().end = end;
            else if (isOther)
                stretches.append({begin, end});
            continued = isOther;
        });
        if (block == last)
            break;
    }
    return stretches;
}

} // namespace

OtherLineMarks::OtherLineMarks(QPlainTextEdit* pointList)
    : QObject(pointList)
    , list(pointList)
{
    list->viewport()->installEventFilter(this);
}

bool OtherLineMarks::eventFilter(QObject* watched, QEvent* event)
{
    // Whatever changes what is to be seen, a key, scrolling, a new size or palette, ends here.
    if (event->type() == QEvent::Paint)
        markWhatIsSeen();
    return QObject::eventFilter(watched, event);
}

void OtherLineMarks::watchDocument()
{
    const QTextDocument* document = list->document();
    if (document == watchedDocument)
        return;
    if (!watchedDocument.isNull())
        disconnect(watchedDocument, nullptr, this, nullptr);
    watchedDocument = document;
    textIsNew = true;
    connect(document, &QTextDocument::contentsChanged, this, [this] { textIsNew = true; });
}

void OtherLineMarks::markWhatIsSeen()
{
    watchDocument();
    const QTextBlock first = list->cursorForPosition(QPoint(0, 0)).block();
    const QTextBlock last =
        list->cursorForPosition(QPoint(0, list->viewport()->height() - 1)).block();
    const QColor background = list->palette().color(QPalette::Base);
    const Seen seen{first.blockNumber(), last.blockNumber(), background.rgb()};
    if (seen == marked && !textIsNew)
        return;
    marked = seen;
    textIsNew = false;

    const QColor amber(208, 120, 32);
    QTextEdit::ExtraSelection mark;
    mark.format.setForeground(readableColour(amber, background));
    QList<QTextEdit::ExtraSelection> marks;
    const QList<Stretch> stretches = otherLines(first, last);
    for (const Stretch& stretch : stretches) {
        mark.cursor = QTextCursor(list->document());
        mark.cursor.setPosition(stretch.begin);
        mark.cursor.setPosition(stretch.end, QTextCursor::KeepAnchor);
        marks.append(mark);
    }
    list->setExtraSelections(marks);
}
