// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/explainedpictures.h"

#include <QAction>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Named
{
    QPoint foot; ///< The middle of a button's lower edge.
    QString name;
};

QString nameOf(const QAction& action)
{
    if (action.text() == "sup"_L1)
        return u"superscript"_s;
    if (action.text() == "sub"_L1)
        return u"subscript"_s;
    return action.text();
}

QList<Named> namedButtons(const QToolBar& toolBar)
{
    QList<Named> buttons;
    const QList<QAction*> actions = toolBar.actions();
    for (QAction* action : actions) {
        const QWidget* button = toolBar.widgetForAction(action);
        if (action->isSeparator() || button == nullptr || !button->isVisible())
            continue;
        const QPoint foot(button->width() / 2, button->height());
        buttons.append({button->mapTo(toolBar.window(), foot), nameOf(*action)});
    }
    return buttons;
}

} // namespace

namespace ExplainedPictures {

QPixmap withTitleBar(QWidget& window, const QSize& size)
{
    const QStyle& style = *window.style();
    QStyleOptionTitleBar bar;
    bar.initFrom(&window);
    bar.text = window.windowTitle();
    bar.icon = window.windowIcon();
    bar.titleBarState = Qt::WindowActive;
    bar.titleBarFlags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                        Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
    bar.subControls = QStyle::SC_All;
    bar.state |= QStyle::State_Active;
    bar.rect =
        QRect(0, 0, size.width(), style.pixelMetric(QStyle::PM_TitleBarHeight, &bar, &window));

    QPixmap picture(size + QSize(0, bar.rect.height()));
    QPainter painter(&picture);
    style.drawComplexControl(QStyle::CC_TitleBar, &bar, &painter);
    painter.drawPixmap(0, bar.rect.height(), window.grab({{}, size}));
    return picture;
}

QPixmap withNames(const QToolBar& toolBar)
{
    constexpr int gap = 6;
    const QList<Named> buttons = namedButtons(toolBar);
    const QFontMetrics metrics = toolBar.fontMetrics();
    const int lowest = toolBar.geometry().bottom() + gap;
    int right = 0;
    for (const Named& button : buttons)
        right = std::max(right, button.foot.x() + 2 * gap + metrics.horizontalAdvance(button.name));
    const int height = static_cast<int>(buttons.size()) * metrics.lineSpacing() + gap;

    QPixmap picture(right, lowest + height);
    picture.fill(toolBar.palette().window().color());
    QPainter painter(&picture);
    painter.drawPixmap(0, 0, toolBar.window()->grab({0, 0, right, toolBar.geometry().bottom()}));
    painter.setPen(toolBar.palette().windowText().color());
    // Like stairs, the last name on top, so that no line crosses a name.
    int middle = lowest + metrics.lineSpacing() / 2;
    for (auto button = buttons.crbegin(); button != buttons.crend(); ++button) {
        const QPoint corner(button->foot.x(), middle);
        painter.drawLine(button->foot, corner);
        painter.drawLine(corner, corner + QPoint(gap / 2, 0));
        painter.drawText(corner + QPoint(gap, metrics.ascent() / 2 - 1), button->name);
        middle += metrics.lineSpacing();
    }
    return picture;
}

} // namespace ExplainedPictures
