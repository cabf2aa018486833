// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumarea.h"

#include "spectrum/closedspectra.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumtabs.h"
#include "spectrum/spectrumwatch.h"
#include "spectrum/spectrumwindow.h"
#include "support/longwork.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsView>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array layoutEvents{QEvent::PolishRequest, QEvent::UpdateLater,
                                  QEvent::LayoutRequest};

/// Lays a widget out if it has asked for that.
void layOut(QWidget& widget)
{
    if (widget.layout() == nullptr && qobject_cast<QScrollArea*>(&widget) == nullptr)
        return;
    QEvent layoutRequest(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(&widget, &layoutRequest);
}

/// Does at once, for a spectrum that is shown in the area whose updates are disabled, what the
/// toolkit would do soon. It looks through all events that wait before it adds one, a new window
/// makes hundreds, and each that is delivered by itself leaves its place in the queue until the
/// program is idle; those that are taken back do not. Nothing else is delivered: an answer from the
/// network has no business in a half-opened entry.
void settle(SpectrumWindow& window)
{
    // Showing has polished everything, and enabling the updates paints everything.
    for (const QEvent::Type type : layoutEvents)
        QCoreApplication::removePostedEvents(nullptr, type);
    auto widgets = window.findChildren<QWidget*>();
    widgets << &window << window.parentWidget();
    for (QWidget* widget : std::as_const(widgets))
        layOut(*widget);
    for (QWidget* widget : std::as_const(widgets)) {
        // Whether scroll bars are needed, and what is new in the scene of the chart.
        if (qobject_cast<QAbstractScrollArea*>(widget) != nullptr)
            QCoreApplication::sendPostedEvents(widget, QEvent::MetaCall);
        if (const auto* view = qobject_cast<QGraphicsView*>(widget))
            QCoreApplication::sendPostedEvents(view->scene(), QEvent::MetaCall);
    }
}

/// The same for all that is no spectrum: its requests were taken back with the others, and it does
/// not ask twice.
void settleAround()
{
    QWidgetList widgets = QApplication::topLevelWidgets();
    for (qsizetype i = 0; i < widgets.size(); ++i) {
        if (qobject_cast<QMdiSubWindow*>(widgets.at(i)) == nullptr)
            widgets += widgets.at(i)->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    }
    std::for_each(widgets.crbegin(), widgets.crend(), [](QWidget* widget) { layOut(*widget); });
}

/// Each sub-window loads the icons of its menu anew; they are those of all others.
void shareIcons(const QMdiSubWindow& first, QMdiSubWindow& other)
{
    const QList<QAction*> known = first.actions();
    const QList<QAction*> loaded = other.actions();
    for (qsizetype i = 0; i < std::min(known.size(), loaded.size()); ++i) {
        if (!loaded.at(i)->icon().isNull())
            loaded.at(i)->setIcon(known.at(i)->icon());
    }
}

/// Adds the window as the area itself would. To raise a sub-window the area looks through all that
/// it has for each that it has, but for one that stays on top.
QMdiSubWindow* addUnraised(QMdiArea& area, QWidget* window)
{
    auto* subWindow = new QMdiSubWindow(area.viewport());
    subWindow->setWidget(window);
    const Qt::WindowFlags usual = subWindow->windowFlags();
    subWindow->overrideWindowFlags(usual | Qt::WindowStaysOnTopHint);
    area.addSubWindow(subWindow);
    subWindow->overrideWindowFlags(usual);
    if (const QMdiSubWindow* current = area.currentSubWindow())
        shareIcons(*current, *subWindow);
    return subWindow;
}

} // namespace

SpectrumArea::SpectrumArea(QMdiArea& multipleDocumentArea)
    : area(multipleDocumentArea)
    , tabs(new SpectrumTabs(&multipleDocumentArea))
    , spectrumWatch(new SpectrumWatch(&multipleDocumentArea))
    , closedSpectra(new ClosedSpectra(&multipleDocumentArea))
{}

void SpectrumArea::add(SpectrumWindow* window)
{
    window->setWindowTitle(addWithoutTitle(window, false));
}

QString SpectrumArea::addWithoutTitle(SpectrumWindow* window, bool quietly)
{
    QString windowTitle = window->windowTitle();
    window->setWindowTitle({});
    QMdiSubWindow* subWindow = quietly ? addUnraised(area, window) : area.addSubWindow(window);
    subWindow->setAttribute(Qt::WA_DeleteOnClose);
    // As a stop of the Tab key it would catch every Shift+Tab of the form.
    subWindow->setFocusPolicy(Qt::ClickFocus);
    spectrumWatch->follow(window);
    closedSpectra->follow(window);
    // A sub-window measures its whole title whenever it is laid out, and its tab shows far less.
    const auto setCaption = [subWindow](const QString& title) {
        constexpr qsizetype mostCharacters = 1000;
        if (!title.isEmpty())
            subWindow->setWindowTitle(title.first(std::min(title.size(), mostCharacters)));
    };
    QObject::connect(window, &QWidget::windowTitleChanged, subWindow, setCaption);
    tabs->follow(subWindow); // behind the caption, which the area puts on the tab
    // Each that is activated takes the focus, of which all others are told, and makes the area
    // deactivate them. What is disabled is not activated when it is shown, and the attribute alone
    // does not reach the fields.
    subWindow->setAttribute(Qt::WA_Disabled, quietly);
    window->show();
    subWindow->setAttribute(Qt::WA_Disabled, false);
    return windowTitle;
}

std::optional<SpectrumArea::Windows> SpectrumArea::prepare(const QList<QJsonObject>& datasets,
                                                           QWidget* document, LongWork& work)
{
    for (const QEvent::Type type : layoutEvents)
        QCoreApplication::sendPostedEvents(nullptr, type);
    // What windows put off is done when they are shown, and what all others do, too; until then it
    // would only be in the way.
    const auto takeBack = [] {
        for (const QEvent::Type type : layoutEvents)
            QCoreApplication::removePostedEvents(nullptr, type);
    };
    Windows windows;
    windows.reserve(static_cast<std::size_t>(datasets.size()));
    for (const QJsonObject& dataset : datasets) {
        work.beginPart(static_cast<qsizetype>(windows.size()), datasets.size());
        windows.push_back(SpectrumWindow::prepared(dataset, document, work));
        takeBack();
        if (windows.back() == nullptr || !work.goOn(1, 1)) {
            windows.clear();
            settleAround();
            return {};
        }
    }
    return windows;
}

void SpectrumArea::show(Windows&& windows)
{
    area.setUpdatesEnabled(false);
    SpectrumTabs::Many manyTabs(*tabs);
    for (const QEvent::Type type : layoutEvents)
        QCoreApplication::sendPostedEvents(nullptr, type);
    QList<std::pair<SpectrumWindow*, QString>> titles;
    for (auto& prepared : windows) {
        SpectrumWindow* window = prepared.release(); // the area's from now on
        titles.append({window, addWithoutTitle(window, !titles.isEmpty())});
        manyTabs.hideAllButCurrent();
        // The first one fills the area; all others need not do so only to be covered by the next.
        area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
        settle(*window);
    }
    settleAround();
    manyTabs.showTabs();
    area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);
    showFirst();
    for (const auto& [window, title] : std::as_const(titles))
        window->setWindowTitle(title);
    area.setUpdatesEnabled(true);
    if (SpectrumWindow* spectrum = active())
        spectrum->setFocus();
}

void SpectrumArea::showFirst()
{
    const QList<QMdiSubWindow*> subWindows = area.subWindowList(QMdiArea::CreationOrder);
    if (subWindows.isEmpty())
        return;
    // It is active already, but the others came later, and what came last counts as the current
    // one.
    area.setActiveSubWindow(nullptr);
    area.setActiveSubWindow(subWindows.constFirst());
    // What the windows have put off until now would each paint the first one once more.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    if (SpectrumWindow* spectrum = active())
        spectrum->fitChart();
}

SpectrumWindow* SpectrumArea::active() const
{
    const QMdiSubWindow* subWindow = area.activeSubWindow();
    return subWindow == nullptr ? nullptr : qobject_cast<SpectrumWindow*>(subWindow->widget());
}

QList<SpectrumWindow*> SpectrumArea::all() const
{
    QList<SpectrumWindow*> found;
    const QList<QMdiSubWindow*> subWindows = area.subWindowList(QMdiArea::CreationOrder);
    for (const QMdiSubWindow* subWindow : subWindows) {
        if (auto* spectrum = qobject_cast<SpectrumWindow*>(subWindow->widget()))
            found.append(spectrum);
    }
    return found;
}

QList<QJsonObject> SpectrumArea::records() const
{
    QList<QJsonObject> found;
    const QList<SpectrumWindow*> spectra = all();
    for (const SpectrumWindow* spectrum : spectra)
        found.append(spectrum->model()->toJson());
    return found;
}

bool SpectrumArea::closeActive()
{
    QMdiSubWindow* subWindow = area.activeSubWindow();
    return subWindow != nullptr && subWindow->close();
}

void SpectrumArea::closeAll()
{
    const QList<SpectrumWindow*> spectra = all();
    for (SpectrumWindow* spectrum : spectra)
        closedSpectra->unfollow(spectrum);
    closedSpectra->forget();
    // Each that goes has the next one activated, which nobody is to see.
    area.setUpdatesEnabled(false);
    {
        SpectrumTabs::Many manyTabs(*tabs);
        manyTabs.hideAllButCurrent();
        area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
        // Each that goes while it is the current one makes the area go through all others.
        const QMdiSubWindow* current = area.currentSubWindow();
        const QList<QMdiSubWindow*> subWindows = area.subWindowList();
        for (QMdiSubWindow* subWindow : subWindows) {
            if (subWindow != current)
                subWindow->close();
        }
        area.closeAllSubWindows();
        area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);
    }
    area.setUpdatesEnabled(true);
}
