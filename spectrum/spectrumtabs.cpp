// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumtabs.h"

#include <QEvent>
#include <QFontMetrics>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QShortcut>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

bool isMiddleClick(const QEvent& event)
{
    return (event.type() == QEvent::MouseButtonPress ||
            event.type() == QEvent::MouseButtonDblClick) &&
           static_cast<const QMouseEvent&>(event).button() == Qt::MiddleButton;
}

/// The first characters in one line; "…" stands for the others.
QString beginning(const QString& title, qsizetype length)
{
    const QString line = title.left(length).simplified();
    return title.size() > length ? line + u'\u2026' : line;
}

} // namespace

SpectrumTabs::SpectrumTabs(QMdiArea* mdiArea)
    : QObject(mdiArea)
    , area(mdiArea)
    , bar(mdiArea->findChild<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
{
    Q_ASSERT(bar != nullptr);
    bar->setElideMode(Qt::ElideRight);
    bar->setExpanding(false);
    bar->setIconSize({0, 0}); // or the bar would be higher until the icon of a new tab is gone
    bar->installEventFilter(this);
    addKeys();
}

SpectrumTabs::Many::Many(const SpectrumTabs& tabs)
    : area(*tabs.area)
    , bar(*tabs.bar)
    , hadFocus(bar.hasFocus())
{
    // By itself the focus would go on to a field, which counts as edited when it is left.
    if (hadFocus)
        area.setFocus();
    bar.hide();
}

void SpectrumTabs::Many::hideAllButCurrent()
{
    // From the back: when this is done for each that is added, the others are hidden already.
    for (int tab = bar.count() - 1; tab >= 0; --tab) {
        if (tab == bar.currentIndex()) // hiding that one would activate another
            continue;
        if (!bar.isTabVisible(tab))
            break;
        bar.setTabVisible(tab, false);
    }
}

void SpectrumTabs::Many::showTabs()
{
    for (int tab = 0; tab < bar.count(); ++tab) {
        // The toolkit takes a tab that is seen already for a sign that nothing has changed.
        if (!bar.isTabVisible(tab))
            bar.setTabVisible(tab, true);
    }
}

SpectrumTabs::Many::~Many()
{
    showTabs();
    bar.show();
    if (hadFocus && area.hasFocus())
        bar.setFocus();
}

void SpectrumTabs::addKeys()
{
    // The area itself knows these keys only while one of its spectra has the focus.
    const auto* next = new QShortcut(Qt::CTRL | Qt::Key_Tab, area);
    connect(next, &QShortcut::activated, area, &QMdiArea::activateNextSubWindow);
    connect(next, &QShortcut::activated, this, &SpectrumTabs::focusSpectrum);
    const auto* previous = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, area);
    connect(previous, &QShortcut::activated, area, &QMdiArea::activatePreviousSubWindow);
    connect(previous, &QShortcut::activated, this, &SpectrumTabs::focusSpectrum);
}

void SpectrumTabs::focusSpectrum()
{
    if (const QMdiSubWindow* active = area->activeSubWindow())
        active->widget()->setFocus();
}

void SpectrumTabs::follow(QMdiSubWindow* subWindow)
{
    subWindow->installEventFilter(this);
    // The spectrum's own title: its sub-window keeps the last one when a title is emptied.
    connect(subWindow->widget(), &QWidget::windowTitleChanged, this,
            [this, subWindow] { showTitle(*subWindow); });
    showTitle(*subWindow);
}

bool SpectrumTabs::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == bar)
        return isMiddleClick(*event);
    if (event->type() != QEvent::WindowTitleChange)
        return QObject::eventFilter(watched, event);

    // Past the area, which would measure and show the title whole.
    watched->event(event);
    return true;
}

void SpectrumTabs::showTitle(const QMdiSubWindow& subWindow)
{
    const qsizetype tab = area->subWindowList().indexOf(&subWindow);
    if (tab < 0)
        return;
    constexpr int widestTitle = 40; // characters, of few titles
    const int index = static_cast<int>(tab);
    const QString title = subWindow.widget()->windowTitle();
    const QFontMetrics metrics = bar->fontMetrics();
    const QString text = tabText(title, metrics, widestTitle * metrics.averageCharWidth());
    bar->setTabText(index, text.isEmpty() ? QMdiArea::tr("(Untitled)") : text);
    bar->setTabIcon(index, {}); // the editor's own on every tab leaves less room for titles
    bar->setTabToolTip(index, toolTip(title));
    bar->setAccessibleTabName(index, title);
}

QString SpectrumTabs::tabText(const QString& title, const QFontMetrics& metrics, int width)
{
    constexpr qsizetype mostCharacters = 100; // none is that narrow
    QString text = metrics.elidedText(beginning(title, mostCharacters), Qt::ElideRight, width);
    return text.replace(u'&', u"&&"_s);
}

QString SpectrumTabs::toolTip(const QString& title)
{
    constexpr qsizetype mostCharacters = 500;
    const QString text = beginning(title, mostCharacters);
    return text.isEmpty() ? QString() : "<p>"_L1 + text.toHtmlEscaped() + "</p>"_L1;
}
