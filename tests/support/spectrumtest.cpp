// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/spectrumtest.h"

#include "spectrum/spectrumchartview.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"

#include <QPlainTextEdit>
#include <QTest>
#include <QtCharts/QChart>
#include <QtCharts/QXYSeries>

void SpectrumTest::init()
{
    SandboxTest::init();
    document = std::make_unique<TestDocument>();
}

void SpectrumTest::cleanup()
{
    document.reset();
    SandboxTest::cleanup();
}

SpectrumWindow* SpectrumTest::show(const QJsonObject& dataset)
{
    return activate(document->add(dataset));
}

SpectrumWindow* SpectrumTest::show()
{
    return activate(document->add());
}

SpectrumWindow* SpectrumTest::activate(SpectrumWindow* window)
{
    if (!TestSupport::showActive(*document))
        qFatal("the document does not become active");
    return window;
}

namespace TestSupport {

QVariant cell(const SpectrumWindow& window, int column)
{
    return window.model()->data(window.model()->index(0, column));
}

QPlainTextEdit* pointEditor(const SpectrumWindow& window)
{
    return child<QPlainTextEdit>(window, "textEditSpect");
}

SpectrumChartView* chartView(const SpectrumWindow& window)
{
    return child<SpectrumChartView>(window, "chartSpectrum");
}

QList<QPointF> drawn(const SpectrumWindow& window)
{
    return qobject_cast<QXYSeries*>(chartView(window)->chart()->series().constFirst())->points();
}

void setPoints(const SpectrumWindow& window, const QString& text)
{
    pointEditor(window)->setPlainText(text);
    QMetaObject::invokeMethod(window.model(), "emitSpectrumDataChanged", Qt::DirectConnection);
}

} // namespace TestSupport
