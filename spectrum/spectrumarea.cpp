// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumarea.h"

#include "spectrum/closedspectra.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumtabs.h"
#include "spectrum/spectrumwatch.h"
#include "spectrum/spectrumwindow.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <algorithm>
#include <utility>

namespace {

/// The toolkit looks through all events that wait before it adds one, and new windows make
/// hundreds. Nothing else is delivered: an answer from the network has no business in a half-opened
/// entry.
void deliverLayouts()
{
    for (const QEvent::Type type :
         {QEvent::ChildPolished, QEvent::PolishRequest, QEvent::LayoutRequest, QEvent::UpdateLater,
          QEvent::UpdateRequest})
        QCoreApplication::sendPostedEvents(nullptr, type);
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
    window->setWindowTitle(addWithoutTitle(window));
}

QString SpectrumArea::addWithoutTitle(SpectrumWindow* window)
{
    QString windowTitle = window->windowTitle();
    window->setWindowTitle({});
    QMdiSubWindow* subWindow = area.addSubWindow(window);
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
    window->show();
    return windowTitle;
}

void SpectrumArea::show(const QList<QJsonObject>& datasets, QWidget* document)
{
    area.setUpdatesEnabled(false);
    const SpectrumTabs::Many manyTabs(*tabs);
    QList<std::pair<SpectrumWindow*, QString>> titles;
    for (const QJsonObject& dataset : datasets) {
        auto* window = new SpectrumWindow(dataset, document);
        titles.append({window, addWithoutTitle(window)});
        // The first one fills the area; all others need not do so only to be covered by the next.
        area.setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
        constexpr int mostWaiting = 32; // windows
        if (titles.size() % mostWaiting == 0)
            deliverLayouts();
    }
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
    area.closeAllSubWindows();
}
