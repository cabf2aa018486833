// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/sandboxtest.h"
#include "tests/support/testdocument.h"

#include <QPointF>

class QPlainTextEdit;
class SpectrumChartView;

/// Base of tests of spectrum windows, without a main window around them.
class SpectrumTest : public SandboxTest
{
    Q_OBJECT

protected Q_SLOTS:
    void init() override;
    void cleanup() override;

protected:
    /// Adds a window for this dataset, or for an empty one, to the document and shows it active.
    SpectrumWindow* show(const QJsonObject& dataset);
    SpectrumWindow* show();

    std::unique_ptr<TestDocument> document;

private:
    SpectrumWindow* activate(SpectrumWindow* window);
};

namespace TestSupport {

/// One cell of the spectrum record.
[[nodiscard]] QVariant cell(const SpectrumWindow& window, int column);

[[nodiscard]] QPlainTextEdit* pointEditor(const SpectrumWindow& window);
[[nodiscard]] SpectrumChartView* chartView(const SpectrumWindow& window);

/// The points of the chart's curve.
[[nodiscard]] QList<QPointF> drawn(const SpectrumWindow& window);

/// Has the model take over the point text now, without the pause after typing.
void setPoints(const SpectrumWindow& window, const QString& text);

} // namespace TestSupport
