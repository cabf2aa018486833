// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwatch.h"

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumstatus.h"
#include "spectrum/spectrumwindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>

#include <algorithm>
#include <utility>

namespace {

SpectrumModel* modelIn(const QMdiSubWindow* subWindow)
{
    const auto* spectrum =
        subWindow == nullptr ? nullptr : qobject_cast<SpectrumWindow*>(subWindow->widget());
    return spectrum == nullptr ? nullptr : spectrum->model();
}

} // namespace

SpectrumWatch::SpectrumWatch(QMdiArea* watchedArea)
    : QObject(watchedArea)
    , area(watchedArea)
{
    connect(area, &QMdiArea::subWindowActivated, this, &SpectrumWatch::updateSoon);
}

void SpectrumWatch::follow(SpectrumWindow* spectrum)
{
    const SpectrumModel* model = spectrum->model();
    connect(model, &SpectrumModel::spectrumDataChanged, this, [this, model] { forget(model); });
    connect(model, &QObject::destroyed, this, &SpectrumWatch::forget);
    connect(model->editor(), &QPlainTextEdit::textChanged, this, [this, model] {
        if (model->hasTypedPoints())
            updateSoon();
        else
            forget(model);
    });
}

void SpectrumWatch::forget(const QObject* model)
{
    summaries.remove(model);
    updateSoon();
}

void SpectrumWatch::updateSoon()
{
    if (!std::exchange(isUpdating, true))
        QMetaObject::invokeMethod(this, &SpectrumWatch::update, Qt::QueuedConnection);
}

void SpectrumWatch::update()
{
    isUpdating = false;
    Q_EMIT summaryChanged(summary());
    Q_EMIT typedPointsChanged(hasTypedPoints());
}

QString SpectrumWatch::summary()
{
    // There is a current one, but not always an active one, while another program is in front.
    const SpectrumModel* model = modelIn(area->currentSubWindow());
    if (model == nullptr)
        return {};
    // Of a text that is not yet taken over nothing can be said.
    if (!summaries.contains(model) && !model->hasTypedPoints()) {
        const QString text = model->editor()->toPlainText();
        summaries.insert(model, SpectrumStatus::toText(PointText::census(text)));
    }
    return summaries.value(model);
}

bool SpectrumWatch::hasTypedPoints() const
{
    const QList<QMdiSubWindow*> subWindows = area->subWindowList();
    return std::any_of(subWindows.begin(), subWindows.end(), [](const QMdiSubWindow* subWindow) {
        const SpectrumModel* model = modelIn(subWindow);
        return model != nullptr && model->hasTypedPoints();
    });
}
