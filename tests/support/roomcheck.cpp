// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/roomcheck.h"

#include "widgets/singlelinetextedit.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGraphicsTextItem>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSizeGrip>
#include <QTabBar>
#include <QToolBar>
#include <QtCharts/QChartView>

using namespace Qt::StringLiterals;

namespace {

QList<QWidget*> visibleChildren(const QWidget& parent)
{
    QList<QWidget*> children = parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    children.removeIf([](const QWidget* child) {
        // A grip lies in the corner of what it resizes.
        return !child->isVisible() || child->isWindow() ||
               qobject_cast<const QSizeGrip*>(child) != nullptr;
    });
    return children;
}

QString described(QSize size)
{
    return u"%1 x %2"_s.arg(size.width()).arg(size.height());
}

} // namespace

QStringList RoomCheck::faultsOf(const QWidget& window)
{
    RoomCheck check;
    check.visitChildren(window);
    return check.faults;
}

int RoomCheck::measured()
{
    return count;
}

void RoomCheck::report(const QWidget& widget, const QString& what)
{
    const QString kind = QString::fromLatin1(widget.metaObject()->className());
    faults.append(kind + u' ' + widget.objectName() + u": "_s + what);
}

void RoomCheck::visitChildren(const QWidget& parent)
{
    const QList<QWidget*> children = visibleChildren(parent);
    checkNeighbours(parent, children);
    for (const QWidget* child : children)
        visit(*child);
}

void RoomCheck::checkNeighbours(const QWidget& parent, const QList<QWidget*>& children)
{
    for (qsizetype i = 0; i < children.size(); ++i) {
        const QRect area = children[i]->geometry();
        if (!parent.rect().contains(area))
            report(*children[i], u"reaches beyond "_s + parent.objectName());
        for (qsizetype j = i + 1; j < children.size(); ++j) {
            if (area.intersects(children[j]->geometry()))
                report(*children[i], u"overlaps "_s + children[j]->objectName());
        }
    }
}

void RoomCheck::visit(const QWidget& widget)
{
    if (const auto* scrolled = qobject_cast<const QScrollArea*>(&widget)) {
        checkScrolled(*scrolled);
        visitChildren(*scrolled->widget());
        checkReach(*scrolled);
    } else if (const auto* area = qobject_cast<const QMdiArea*>(&widget)) {
        const QMdiSubWindow* shown = area->activeSubWindow();
        if (shown != nullptr && !area->viewport()->rect().contains(shown->geometry()))
            report(*area, u"is too small for what it shows"_s);
        visitChildren(*area->viewport());
    } else if (!checkLeaf(widget)) {
        visitChildren(widget);
    }
}

void RoomCheck::checkScrolled(const QScrollArea& area)
{
    const QSize beyond = area.widget()->size() - area.viewport()->size();
    const QScrollBar* across = area.horizontalScrollBar();
    const QScrollBar* down = area.verticalScrollBar();
    if (beyond.width() > 0 && (across->maximum() < beyond.width() || !across->isVisible()))
        report(area, u"hides its right edge"_s);
    if (beyond.height() > 0 && (down->maximum() < beyond.height() || !down->isVisible()))
        report(area, u"hides its lower edge"_s);
    constexpr QSize fewest(150, 100);
    checkSize(area, fewest);
}

void RoomCheck::checkReach(const QScrollArea& area)
{
    auto& scrolled = const_cast<QScrollArea&>(area);
    const QRect room = area.viewport()->rect();
    const QList<QWidget*> children = visibleChildren(*area.widget());
    for (const QWidget* child : children) {
        const QRect place = child->geometry();
        scrolled.ensureVisible(place.right() + 1, place.bottom() + 1, 0, 0);
        scrolled.ensureVisible(place.left(), place.top(), 0, 0);
        const QPoint topLeft = child->mapTo(area.viewport(), QPoint(0, 0));
        const QRect seen(topLeft, place.size().boundedTo(room.size()));
        if (!room.contains(seen))
            report(*child, u"cannot be brought into view"_s);
    }
    scrolled.ensureVisible(0, 0);
}

bool RoomCheck::checkLeaf(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        checkCaption(*label);
    } else if (const auto* chart = qobject_cast<const QChartView*>(&widget)) {
        checkChart(*chart);
    } else if (qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr) {
        checkField(widget);
    } else if (const auto* bar = qobject_cast<const QToolBar*>(&widget)) {
        const QList<QAction*> actions = bar->actions();
        for (QAction* action : actions) {
            if (!bar->widgetForAction(action)->isVisible())
                report(*bar, u"hides "_s + action->text());
        }
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (!button->text().isEmpty())
            checkSize(widget, widget.sizeHint());
    } else if (qobject_cast<const QComboBox*>(&widget) != nullptr ||
               qobject_cast<const QMenuBar*>(&widget) != nullptr) {
        checkSize(widget, widget.sizeHint());
    } else {
        return qobject_cast<const QTabBar*>(&widget) != nullptr;
    }
    ++count;
    return true;
}

void RoomCheck::checkCaption(const QLabel& label)
{
    const QRect room = label.contentsRect();
    const int wrap = label.wordWrap() ? Qt::TextWordWrap : 0;
    const QRect endless(0, 0, wrap == 0 ? 0 : room.width(), QWIDGETSIZE_MAX);
    const QSize needed = label.fontMetrics().boundingRect(endless, wrap, label.text()).size();
    if (!label.text().isEmpty() && needed.expandedTo(room.size()) != room.size())
        report(label, described(room.size()) + u", needs "_s + described(needed));
}

void RoomCheck::checkField(const QWidget& field)
{
    const auto* area = qobject_cast<const QAbstractScrollArea*>(&field);
    const bool isOneLine = qobject_cast<const SingleLineTextEdit*>(&field) != nullptr;
    const bool isRichText = qobject_cast<const CleanTextEdit*>(&field) != nullptr;
    const int lines = isRichText && !isOneLine ? 3 : 1;
    constexpr int fewestCharacters = 8;
    const QFontMetrics metrics = field.fontMetrics();
    const QSize needed(fewestCharacters * metrics.averageCharWidth(), lines * metrics.height());
    const QSize room = area->viewport()->size();
    if (needed.expandedTo(room) != room)
        report(field, u"shows "_s + described(room) + u", needs "_s + described(needed));
}

void RoomCheck::checkChart(const QChartView& chart)
{
    const QList<QGraphicsItem*> items = chart.scene()->items();
    for (const QGraphicsItem* item : items) {
        const auto* text = qgraphicsitem_cast<const QGraphicsTextItem*>(item);
        if (text != nullptr && text->isVisible() && text->toPlainText().contains("..."_L1))
            report(chart, text->toPlainText());
    }
}

void RoomCheck::checkSize(const QWidget& widget, QSize needed)
{
    if (needed.expandedTo(widget.size()) != widget.size())
        report(widget, described(widget.size()) + u", needs "_s + described(needed));
}
