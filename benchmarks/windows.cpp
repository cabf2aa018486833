// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/windows.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonArray>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTextEdit>
#include <QVBoxLayout>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Windows {

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

ChartWatch::ChartWatch()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void ChartWatch::settleAndPaint()
{
    settle();
    if (!painted)
        qFatal("no chart was painted");
    painted = false;
}

bool ChartWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Paint && qobject_cast<QChartView*>(watched->parent()) != nullptr)
        painted = true;
    return false;
}

Editor::Editor()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    window.show();
    window.activateWindow();
    settle();
}

void Editor::load(const QString& path)
{
    if (!window.openEntry(path))
        qFatal("cannot load %s", qPrintable(path));
}

void Editor::addEmptySpectra(int count)
{
    for (int i = 0; i < count; ++i)
        window.createNewSpectrumWindow();
}

void Editor::deleteSpectra(int count)
{
    for (int i = 0; i < count; ++i)
        window.deleteCurrentSpectrum();
}

void showInChart(const QChartView& view, const QList<QPointF>& points)
{
    const QChart& chart = *view.chart();
    qobject_cast<QLineSeries*>(chart.series().constFirst())->replace(points);
    const auto fit = [&chart, &points](Qt::Orientation orientation, auto coordinate) {
        const auto [lowest, highest] = std::minmax_element(
            points.cbegin(), points.cend(), [coordinate](const QPointF& a, const QPointF& b) {
                return (a.*coordinate)() < (b.*coordinate)();
            });
        chart.axes(orientation)
            .constFirst()
            ->setRange((*lowest.*coordinate)(), (*highest.*coordinate)());
    };
    fit(Qt::Horizontal, &QPointF::x);
    fit(Qt::Vertical, &QPointF::y);
}

QList<QPointF> pointsOf(const QChartView& view)
{
    return qobject_cast<QLineSeries*>(view.chart()->series().constFirst())->points();
}

std::unique_ptr<QChartView> bareChart(const QList<QPointF>& points)
{
    auto* chart = new QChart;
    chart->legend()->hide();
    auto* series = new QLineSeries;
    chart->addSeries(series);
    for (const Qt::Alignment side : {Qt::AlignBottom, Qt::AlignLeft}) {
        auto* axis = new QValueAxis;
        chart->addAxis(axis, side);
        series->attachAxis(axis);
    }
    auto view = std::make_unique<QChartView>(chart);
    view->setRenderHint(QPainter::Antialiasing);
    view->setRubberBand(QChartView::RectangleRubberBand);
    if (!points.isEmpty())
        showInChart(*view, points);
    return view;
}

namespace {

QWidget* bareSpectrumWidget(const QJsonObject& dataset)
{
    constexpr int labels = 14;
    constexpr int textFields = 10;
    constexpr int buttons = 3;

    auto* widget = new QWidget;
    auto* fields = new QGridLayout;
    const auto add = [fields](QWidget* field) {
        constexpr int columns = 4;
        const int index = fields->count();
        fields->addWidget(field, index / columns, index % columns);
    };
    for (int i = 0; i < labels; ++i)
        add(new QLabel(u"Caption"_s));
    for (int i = 0; i < textFields; ++i) {
        auto* field = new QTextEdit;
        field->setHtml(dataset.value("Title"_L1).toString());
        add(field);
    }
    for (int i = 0; i < buttons; ++i)
        add(new QPushButton(u"Button"_s));
    add(new QComboBox);
    add(new QCheckBox(u"Box"_s));

    const QJsonArray energies = dataset.value("E"_L1).toArray();
    const QJsonArray intensities = dataset.value("I"_L1).toArray();
    QString text;
    QList<QPointF> points;
    points.reserve(energies.size());
    for (qsizetype i = 0; i < energies.size(); ++i) {
        const QPointF point(energies.at(i).toDouble(), intensities.at(i).toDouble());
        points.append(point);
        text += QString::number(point.x()) + u' ' + QString::number(point.y()) + u'\n';
    }
    auto* editor = new QPlainTextEdit;
    editor->setPlainText(text);

    QChartView* view = bareChart(points).release();

    auto* layout = new QVBoxLayout(widget);
    layout->addLayout(fields);
    auto* data = new QHBoxLayout;
    data->addWidget(editor);
    data->addWidget(view, 1);
    layout->addLayout(data);
    return widget;
}

} // namespace

BareWindows::BareWindows()
    : area(new QMdiArea)
{
    area->setViewMode(QMdiArea::TabbedView);
    window.setCentralWidget(area);
    window.resize(1272, 873);
    window.show();
    window.activateWindow();
    settle();
}

BareWindows::~BareWindows() = default;

void BareWindows::open(const QJsonObject& entry) const
{
    for (auto value = entry.constBegin(); value != entry.constEnd(); ++value) {
        if (!value.key().startsWith("Dataset"_L1))
            continue;
        QMdiSubWindow* subWindow = area->addSubWindow(bareSpectrumWidget(value->toObject()));
        subWindow->setAttribute(Qt::WA_DeleteOnClose);
        subWindow->show();
    }
}

void BareWindows::closeAll() const
{
    area->closeAllSubWindows();
}

} // namespace Windows
