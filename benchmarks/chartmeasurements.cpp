// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a person does at a chart and its point list, motion by motion, until everything is painted;
// and the same at a bare chart of Qt Charts and at one of QCustomPlot.

#include "benchmarks/customplot.h"
#include "benchmarks/measurement.h"
#include "benchmarks/windows.h"
#include "tests/support/child.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using TestSupport::child;
using Windows::Editor;
using Windows::settle;

QString entryOf(const Subject& subject)
{
    return subject.path(u"entry-%1.json"_s.arg(subject.size));
}

void mouse(QWidget& target, QEvent::Type type, QPoint at, Qt::MouseButton button,
           Qt::MouseButtons pressed)
{
    QMouseEvent event(type, at, target.mapToGlobal(QPointF(at)), button, pressed, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &event);
}

void key(QWidget& target, int code, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent press(QEvent::KeyPress, code, modifiers);
    QCoreApplication::sendEvent(&target, &press);
    QKeyEvent release(QEvent::KeyRelease, code, modifiers);
    QCoreApplication::sendEvent(&target, &release);
}

/// The editor with one spectrum, or a bare chart of the same size with the same points.
struct Shown
{
    std::unique_ptr<Editor> editor;
    std::unique_ptr<QChartView> bare;
    QChartView* chart = nullptr;
    QPlainTextEdit* list = nullptr;
    bool turn = false;

    [[nodiscard]] QWidget& surface() const { return *chart->viewport(); }

    /// A place in the chart that is another one each time.
    QPoint somewhere(QPoint first, QPoint second)
    {
        turn = !turn;
        const QPoint share = turn ? first : second;
        return {surface().width() * share.x() / 100, surface().height() * share.y() / 100};
    }
};

using Prepare = std::shared_ptr<Shown> (*)(const Subject&);

std::shared_ptr<Shown> editorWithSpectrum(const Subject& subject)
{
    auto shown = std::make_shared<Shown>();
    shown->editor = std::make_unique<Editor>();
    shown->editor->load(entryOf(subject));
    settle();
    shown->chart = child<QChartView>(shown->editor->window, "chartSpectrum");
    shown->list = child<QPlainTextEdit>(shown->editor->window, "textEditSpect");
    return shown;
}

std::shared_ptr<Shown> bareChart(const Subject& subject)
{
    auto shown = std::make_shared<Shown>();
    const auto model = editorWithSpectrum(subject);
    shown->bare = Windows::bareChart(Windows::pointsOf(*model->chart));
    shown->bare->resize(model->chart->size());
    shown->bare->show();
    shown->chart = shown->bare.get();
    settle();
    return shown;
}

/// Moves the mouse over the chart; a read-out follows it in the editor only.
Measurement hover(const Subject& subject, Prepare prepare)
{
    return [shown = prepare(subject)] {
        return costOf([&] {
            mouse(shown->surface(), QEvent::MouseMove, shown->somewhere({40, 40}, {45, 50}),
                  Qt::NoButton, Qt::NoButton);
            settle();
        });
    };
}

Measurement rubberBand(const Subject& subject, Prepare prepare)
{
    auto shown = prepare(subject);
    mouse(shown->surface(), QEvent::MouseButtonPress, shown->somewhere({30, 30}, {30, 30}),
          Qt::LeftButton, Qt::LeftButton);
    return [shown] {
        return costOf([&] {
            mouse(shown->surface(), QEvent::MouseMove, shown->somewhere({60, 60}, {65, 70}),
                  Qt::NoButton, Qt::LeftButton);
            settle();
        });
    };
}

void dragForZoom(Shown& shown)
{
    shown.turn = false;
    const QPoint from = shown.somewhere({40, 20}, {40, 20});
    const QPoint to = shown.somewhere({70, 70}, {70, 70});
    QWidget& surface = shown.surface();
    mouse(surface, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    mouse(surface, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    mouse(surface, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    settle();
}

void showAll(Shown& shown)
{
    if (shown.editor == nullptr)
        shown.chart->chart()->zoomReset();
    else
        mouse(shown.surface(), QEvent::MouseButtonRelease, {60, 60}, Qt::RightButton, Qt::NoButton);
    settle();
}

Measurement zoom(const Subject& subject, Prepare prepare)
{
    return [shown = prepare(subject)] {
        const Cost cost = costOf([&] { dragForZoom(*shown); });
        showAll(*shown);
        return cost;
    };
}

Measurement unzoom(const Subject& subject, Prepare prepare)
{
    return [shown = prepare(subject)] {
        dragForZoom(*shown);
        return costOf([&] { showAll(*shown); });
    };
}

Measurement resize(const Subject& subject, Prepare prepare)
{
    return [shown = prepare(subject)] {
        shown->turn = !shown->turn;
        QWidget* window = shown->chart->window();
        return costOf([&] {
            window->resize(window->width() + (shown->turn ? 7 : -7), window->height());
            settle();
        });
    };
}

Measurement switchTab(const Subject& subject)
{
    auto shown = editorWithSpectrum(subject);
    shown->editor->addEmptySpectra(1);
    auto* area = child<QMdiArea>(shown->editor->window, "mdiArea");
    return [shown, area] {
        area->setActiveSubWindow(area->subWindowList().constLast());
        settle();
        return costOf([&] {
            area->setActiveSubWindow(area->subWindowList().constFirst());
            shown->editor->charts.settleAndPaint();
        });
    };
}

Measurement lineSpectrum(const Subject& subject)
{
    return [shown = editorWithSpectrum(subject)] {
        return costOf([&] {
            child<QCheckBox>(shown->editor->window, "checkBoxLineSpectrum")->click();
            shown->editor->charts.settleAndPaint();
        });
    };
}

std::shared_ptr<Shown> bareList(const Subject& subject)
{
    auto shown = editorWithSpectrum(subject);
    auto* list = new QPlainTextEdit(&shown->editor->window);
    list->setGeometry(shown->list->geometry());
    list->setPlainText(shown->list->toPlainText());
    list->show();
    shown->list = list;
    settle();
    return shown;
}

Measurement selectAll(const Subject& subject, Prepare prepare)
{
    auto shown = prepare(subject);
    shown->list->setFocus();
    return [shown] {
        key(*shown->list, Qt::Key_Home, Qt::NoModifier);
        settle();
        return costOf([&] {
            key(*shown->list, Qt::Key_A, Qt::ControlModifier);
            settle();
        });
    };
}

/// Pastes as many lines over all that are there.
Measurement paste(const Subject& subject, Prepare prepare)
{
    auto shown = prepare(subject);
    QApplication::clipboard()->setText(shown->list->toPlainText());
    shown->list->setFocus();
    return [shown] {
        shown->list->selectAll();
        settle();
        return costOf([&] {
            key(*shown->list, Qt::Key_V, Qt::ControlModifier);
            settle();
        });
    };
}

// The same motions of QCustomPlot

std::shared_ptr<CustomPlot> customPlot(const Subject& subject)
{
    const auto model = editorWithSpectrum(subject);
    auto plot =
        std::make_shared<CustomPlot>(Windows::pointsOf(*model->chart), model->chart->size());
    settle();
    return plot;
}

Measurement custom(const Subject& subject, void (CustomPlot::*motion)())
{
    return [plot = customPlot(subject), motion] {
        return costOf([&] {
            (*plot.*motion)();
            settle();
        });
    };
}

} // namespace

Measurements chartMeasurements()
{
    const auto of = [](auto motion, Prepare prepare) {
        return [motion, prepare](const Subject& subject) { return motion(subject, prepare); };
    };
    const auto ofCustom = [](auto motion) {
        return [motion](const Subject& subject) { return custom(subject, motion); };
    };
    return {
        {"hover", of(hover, editorWithSpectrum)},
        {"hover-bare", of(hover, bareChart)},
        {"rubber-band", of(rubberBand, editorWithSpectrum)},
        {"rubber-band-bare", of(rubberBand, bareChart)},
        {"zoom", of(zoom, editorWithSpectrum)},
        {"zoom-bare", of(zoom, bareChart)},
        {"zoom-custom", ofCustom(&CustomPlot::zoomInOrOut)},
        {"unzoom", of(unzoom, editorWithSpectrum)},
        {"unzoom-bare", of(unzoom, bareChart)},
        {"resize", of(resize, editorWithSpectrum)},
        {"resize-bare", of(resize, bareChart)},
        {"resize-custom", ofCustom(&CustomPlot::widenOrNarrow)},
        {"repaint-custom", ofCustom(&CustomPlot::repaint)},
        {"switch-tab", switchTab},
        {"line-spectrum", lineSpectrum},
        {"select-all", of(selectAll, editorWithSpectrum)},
        {"select-all-bare", of(selectAll, bareList)},
        {"paste", of(paste, editorWithSpectrum)},
        {"paste-bare", of(paste, bareList)},
    };
}
