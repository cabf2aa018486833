// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/singlelinetextedit.h"

#include "support/tooltip.h"
#include "support/waitcursor.h"
#include "widgets/darktext.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <cstdlib>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

SingleLineTextEdit::SingleLineTextEdit(QWidget* parent)
    : CleanTextEdit(parent)
    , unseenHorizontalBar(std::make_unique<QScrollBar>(Qt::Horizontal))
    , unseenVerticalBar(std::make_unique<QScrollBar>(Qt::Vertical))
{
    const QWidgetList containers{horizontalScrollBar()->parentWidget(),
                                 verticalScrollBar()->parentWidget()};
    setAcceptRichText(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFrameStyle(0);
    setLineWrapMode(QTextEdit::NoWrap);
    // As children of the field they would come under its style sheet. The toolkit keeps seven
    // kilobytes of that for each widget, and asks it at every layout for bars that are never seen.
    setHorizontalScrollBar(unseenHorizontalBar.get());
    setVerticalScrollBar(unseenVerticalBar.get());
    for (QScrollBar* bar : {unseenHorizontalBar.get(), unseenVerticalBar.get()})
        bar->setParent(nullptr);
    for (QWidget* container : containers)
        container->installEventFilter(this);
    setStyleSheet(u"background-color: white; border: 1px solid gray; padding: 2px;"_s);
    setDarkText(*this);
    startHeight();
    connect(this, &QTextEdit::textChanged, this, [this] {
        if (!currentHint.isEmpty())
            underline();
    });
}

SingleLineTextEdit::~SingleLineTextEdit() = default;

bool SingleLineTextEdit::eventFilter(QObject* watched, QEvent* event)
{
    // A style sheet counts for children, too, and the toolkit keeps several kilobytes for each that
    // is polished. Those around the scroll bars, which nobody ever sees here, do without.
    const bool isPolished = event->type() == QEvent::Polish && watched != viewport();
    return isPolished || CleanTextEdit::eventFilter(watched, event);
}

void SingleLineTextEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->ignore();
        return;
    }
    CleanTextEdit::keyPressEvent(event);
    adjustHeight();
}

void SingleLineTextEdit::wheelEvent(QWheelEvent* event)
{
    // By a pixel or two a line can be scrolled up and down; the wheel is meant for the form.
    const QPoint turned = event->angleDelta();
    if (std::abs(turned.x()) > std::abs(turned.y()))
        CleanTextEdit::wheelEvent(event);
    else
        event->ignore();
}

void SingleLineTextEdit::insertFromMimeData(const QMimeData* source)
{
    const WaitCursor waiting;
    // Simplified text has no line breaks left; the two replacements say that none may ever get in.
    QString line = source->text().simplified();
    line.replace(u'\n', u' ');
    line.replace(u'\r', u' ');
    insertPlainly(line);
    adjustHeight();
    ensureCursorVisible();
}

void SingleLineTextEdit::setHint(const QString& hint)
{
    if (hint == currentHint)
        return;
    currentHint = hint;
    underline();
}

void SingleLineTextEdit::underline()
{
    QList<ExtraSelection> marks;
    if (!currentHint.isEmpty()) {
        ExtraSelection all;
        all.cursor = QTextCursor(document());
        all.cursor.select(QTextCursor::Document);
        all.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        constexpr QRgb amber = 0xffb26b00; // seen on white, and not the red of an error
        all.format.setUnderlineColor(QColor(amber));
        marks.append(all);
    }
    setExtraSelections(marks);
}

QString SingleLineTextEdit::toolTipText() const
{
    if (!currentHint.isEmpty())
        return currentHint;
    const bool fits = document()->idealWidth() <= viewport()->width();
    return fits ? toolTip() : ToolTip::plain(toPlainText());
}

bool SingleLineTextEdit::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return CleanTextEdit::viewportEvent(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipText(), this);
    return true;
}

void SingleLineTextEdit::startHeight()
{
    // All fields are empty at first, and laying each one out to measure it is dear.
    static std::pair<QString, int> last;
    const QString key = font().key();
    if (key != last.first) {
        adjustHeight();
        last = {key, height()};
    }
    setFixedHeight(last.second);
}

void SingleLineTextEdit::adjustHeight()
{
    // The frame and the padding of the style sheet take these pixels beside the document.
    constexpr int frameAndPadding = 5;
    layOutNow();
    document()->adjustSize();
    setFixedHeight(static_cast<int>(document()->size().height()) + frameAndPadding);
}
