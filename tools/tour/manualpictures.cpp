// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/manualpictures.h"

#include "species/fileorder.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/child.h"
#include "tools/tour/explainedpictures.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>

#include <cmath>
#include <numbers>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

/// Where the mouse does something, in the chart: as parts of the plot area's width and height.
QPoint inPlotArea(const QChartView& view, double right, double down)
{
    const QRectF area = view.chart()->plotArea();
    return QPointF(area.left() + right * area.width(), area.top() + down * area.height()).toPoint();
}

void sendMouse(const QChartView& view, QEvent::Type type, QPoint position, Qt::MouseButton button,
               Qt::MouseButtons pressed)
{
    QMouseEvent event(type, position, view.mapToGlobal(position), button, pressed, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
}

/// Points as an instrument with steps of 0.2 meV writes them: a band, and on its side a resonance
/// narrower than the grid of the button "Sparse".
QString finePoints()
{
    constexpr int count = 351;
    const auto peak = [](double energy, double centre, double width) {
        return std::exp(-4 * std::numbers::ln2 * std::pow((energy - centre) / width, 2));
    };
    QString text;
    for (int i = 0; i < count; ++i) {
        const double energy = 12.0 + i * 0.0002;
        const double intensity =
            400 * peak(energy, 12.03, 0.025) + 700 * peak(energy, 12.0505, 0.0004);
        text +=
            QString::number(energy, 'f', 4) + u'\t' + QString::number(intensity, 'f', 1) + u'\n';
    }
    return text;
}

} // namespace

ManualPictures::ManualPictures(const QDir& examples, const QDir& output)
    : examplesFolder(examples)
    , outputFolder(output)
{
    outputFolder.mkpath(u"."_s);
}

QStringList ManualPictures::account() const
{
    return told;
}

bool ManualPictures::take()
{
    takeEntry();
    takeFirstEntry();
    takeSaveQuestion();
    takeRaisedText();
    takePointCommands();
    takeThinning();
    takeSticks();
    takeZoom();
    takeTypes();
    takeStructure();
    takeExchange();
    takeDatabase();
    return complete;
}

void ManualPictures::takeEntry()
{
    open(u"entry1-nitric-oxide.json"_s);
    visitor->activateSpectrum(1);
    saveWindow(u"entry"_s);
    save(ExplainedPictures::withNames(*child<QToolBar>(visitor->window(), "toolBar")),
         u"tool-bar"_s);
}

void ManualPictures::takeFirstEntry()
{
    start();
    fillSpecies();
    saveWindow(u"first-entry-species"_s,
               around({"label", "lineEditSpecies", "lineEditVIEComment"}));
    addSpectrum();
    fillSpectrum();
    pastePoints(u"12,60\t10\n12,62\t40\n12,64\t20\n"_s);
    click("buttonCommaToDot");
    waitForPoints();
    click("buttonNormalize");
    saveWindow(u"first-entry"_s);
}

void ManualPictures::takeSaveQuestion()
{
    open(u"entry10-water.json"_s);
    typeInto("lineEditVIE", u"12.6"_s);
    visitor->leaveFields();
    save(ExplainedPictures::withTitleBar(visitor->window(), {480, 48}), u"title-star"_s);
    visitor->whenOneOpens([this](QWidget& box) {
        save(box.grab(), u"save-question"_s);
        box.close();
    });
    visitor->window().close();
}

void ManualPictures::takeRaisedText()
{
    start();
    typeInto("lineEditSpecies", u"water"_s);
    typeInto("lineEditSumFormula", u"H2O"_s);
    const QRect area = around({"menubar", "lineEditSumFormula"}) &
                       QRect(QPoint(), around({"speciesDock"}).bottomRight());
    Visitor::selectCharacter(widget("lineEditSumFormula"), 1);
    saveWindow(u"digit-selected"_s, area);
    visitor->trigger("actionSubscript");
    visitor->leaveFields();
    saveWindow(u"digit-lowered"_s, area);
}

void ManualPictures::takePointCommands()
{
    start();
    addSpectrum();
    pastePoints(u"hv / eV\tcounts\n"
                "9,20\t12\n9,21\t57\n9,22\t211\n9,23\t486\n9,24\t702\n"
                "9,25\t640\n9,26\t371\n9,27\t140\n9,28\t38\n9,29\t9"_s);
    waitForPoints();
    saveWindow(u"points-pasted"_s, aroundPoints());
    click("buttonCommaToDot");
    waitForPoints();
    saveWindow(u"points-with-dots"_s, aroundPoints());
    click("buttonNormalize");
    saveWindow(u"points-normalized"_s, aroundPoints());
}

void ManualPictures::takeThinning()
{
    start();
    addSpectrum();
    pastePoints(finePoints());
    waitForPoints();
    saveWindow(u"sparse-before"_s, aroundPoints());
    click("buttonSparse");
    saveWindow(u"sparse-after"_s, aroundPoints());
}

void ManualPictures::takeSticks()
{
    open(u"entry3-oxygen.json"_s);
    saveWindow(u"line-spectrum"_s, aroundPoints());
}

void ManualPictures::takeZoom()
{
    open(u"entry3-oxygen.json"_s);
    visitor->activateSpectrum(1);
    const auto& chart = *child<QChartView>(visitor->activeSpectrum(), "chartSpectrum");
    const QPoint from = inPlotArea(chart, 0.17, 0.02);
    const QPoint to = inPlotArea(chart, 0.42, 0.96);
    sendMouse(chart, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    sendMouse(chart, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    saveWindow(u"zoom-dragging"_s, around({"chartSpectrum"}));
    sendMouse(chart, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    sendMouse(chart, QEvent::MouseMove, inPlotArea(chart, 0.5, 0.3), Qt::NoButton, Qt::NoButton);
    saveWindow(u"zoom-done"_s, around({"chartSpectrum"}));
}

void ManualPictures::takeTypes()
{
    start();
    addSpectrum();
    auto* types = child<QComboBox>(visitor->activeSpectrum(), "comboBoxType");
    const QRect area =
        around({"label_2", "lineEditTitle", "textEditCitations", "textEditComments"});
    types->setCurrentIndex(SpectrumModel::FcSimulation);
    saveWindow(u"type-simulation"_s, area);
    types->setCurrentIndex(0);
    saveWindow(u"type-measurement"_s, area);
}

void ManualPictures::takeStructure()
{
    open(u"entry11-benzene.json"_s);
    QWidget& image = widget("imageLabel");
    visitor->whenOneOpens([this](QWidget& menu) {
        const QRect area = around({"imageLabel"});
        saveWindow(u"structure-menu"_s, area.adjusted(0, 0, menu.width() / 2, 0));
        menu.close();
    });
    const QPoint position(image.width() * 2 / 3, image.height() / 3);
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, image.mapToGlobal(position));
    QApplication::sendEvent(&image, &event);
}

void ManualPictures::takeExchange()
{
    open(u"entry1-nitric-oxide.json"_s);
    visitor->trigger("actionCopy");
    open(u"entry3-oxygen.json"_s);
    auto* menuBar = child<QMenuBar>(visitor->window(), "menubar");
    auto* menu = child<QMenu>(visitor->window(), "menuSpectrum");
    menuBar->setActiveAction(menu->menuAction());
    saveWindow(u"spectrum-menu"_s, QRect(0, 0, 480, 200));
    menu->close();
    visitor->trigger("actionPaste");
    QRect area = around({"mdiArea"});
    area.setBottom(around({"lineEditUploader"}).bottom());
    saveWindow(u"spectrum-pasted"_s, area);
}

void ManualPictures::takeDatabase()
{
    // File dialogs start in its folder from now on.
    open(u"entry1-nitric-oxide.json"_s);
    visitor->whenOneOpens([this](QWidget& dialog) {
        visitor->whenOneOpens([this](QWidget& fileDialog) {
            const QStringList entries =
                inSteppingOrder(examplesFolder.entryList({u"*.json"_s}, QDir::Files));
            const QString names = u'"' + entries.join(R"(" ")"_L1) + u'"';
            Visitor::chooseFiles(fileDialog, names);
        });
        child<QAbstractButton>(dialog, "pushButton_2")->click();
        visitor->whenOneOpens([this](QWidget& fileDialog) {
            Visitor::chooseFiles(fileDialog, outputFolder.filePath(u"database.json"_s));
        });
        child<QAbstractButton>(dialog, "pushButton")->click();
        dialog.resize(dialog.width(), dialog.height() * 2 / 3); // the list is short
        save(dialog.grab(), u"create-database"_s);
        dialog.close();
    });
    visitor->window().createSpeciesDatabase();
}

void ManualPictures::start()
{
    visitor.reset(); // one person at a time
    visitor = std::make_unique<Visitor>();
}

void ManualPictures::open(const QString& example)
{
    start();
    complete = visitor->open(examplesFolder.filePath(example)) && complete;
}

void ManualPictures::typeInto(const char* field, const QString& text)
{
    Visitor::typeInto(widget(field), text);
}

void ManualPictures::fillSpecies()
{
    typeInto("lineEditSpecies", u"water"_s);
    typeInto("textEditAliases", u"oxidane\ndihydrogen oxide"_s);
    typeInto("lineEditMass", u"18.0153"_s);
    typeInto("lineEditSumFormula", u"H2O"_s);
    Visitor::selectCharacter(widget("lineEditSumFormula"), 1);
    visitor->trigger("actionSubscript");
    typeInto("lineEditInChI", u"InChI=1S/H2O/h1H2"_s);
    typeInto("lineEditCAS", u"7732-18-5"_s);
    typeInto("lineEditCID", u"962"_s);
    typeInto("lineEditAIE", u"12.6223(3)"_s);
    typeInto("lineEditAIEComment", u"X 2B1 of H2O+"_s);
    Visitor::selectCharacter(widget("lineEditAIEComment"), 2);
    visitor->trigger("actionSuperscript");
    typeInto("lineEditVIE", u"12.62"_s);
    typeInto("lineEditVIEComment", u"10.1000/182"_s);
    visitor->leaveFields();
}

void ManualPictures::addSpectrum()
{
    visitor->trigger("actionNew");
    SpectrumModel* model = visitor->activeSpectrum().model();
    // Not today, so that the pictures stay the same.
    model->setValue(SpectrumModel::CreatedDate, u"2026-01-15"_s);
}

void ManualPictures::fillSpectrum()
{
    typeInto("lineEditTitle", u"Threshold photoelectron spectrum"_s);
    typeInto("lineEditUploader", u"A. Person"_s);
    typeInto("lineEditSpectDOI", u"10.1000/183"_s);
    auto* types = child<QComboBox>(visitor->activeSpectrum(), "comboBoxType");
    types->setFocus();
    types->setCurrentText(u"TPES"_s);
    typeInto("textEditCitations", u"Own measurement"_s);
    typeInto("lineEditSource", u"synchrotron"_s);
    typeInto("lineEditSourceT", u"300"_s);
    typeInto("lineEditResolution", u"5"_s);
    typeInto("lineEditFlux", u"photodiode"_s);
    typeInto("lineEditFacilityDate", u"2026, at home"_s);
    typeInto("textEditComments", u"none"_s);
}

void ManualPictures::pastePoints(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    auto* points = child<QPlainTextEdit>(visitor->activeSpectrum(), "textEditSpect");
    points->setFocus();
    points->paste();
    points->moveCursor(QTextCursor::Start);
}

void ManualPictures::click(const char* button)
{
    child<QAbstractButton>(visitor->activeSpectrum(), button)->click();
}

void ManualPictures::waitForPoints()
{
    QEventLoop loop;
    bool taken = false;
    QObject::connect(visitor->activeSpectrum().model(), &SpectrumModel::spectrumDataChanged, &loop,
                     [&loop, &taken] {
                         taken = true;
                         loop.quit();
                     });
    QTimer::singleShot(1min, &loop, &QEventLoop::quit);
    loop.exec();
    complete = taken && complete;
}

QWidget& ManualPictures::widget(const char* name) const
{
    // Every spectrum has widgets of the same names.
    if (!visitor->spectra().isEmpty()) {
        auto* found = visitor->activeSpectrum().findChild<QWidget*>(QString::fromLatin1(name));
        if (found != nullptr)
            return *found;
    }
    return *child<QWidget>(visitor->window(), name);
}

QRect ManualPictures::around(std::initializer_list<const char*> names) const
{
    constexpr int margin = 4;
    QRect area;
    for (const char* name : names) {
        const QWidget& shown = widget(name);
        area |= QRect(shown.mapTo(&visitor->window(), QPoint()), shown.size());
    }
    return area.adjusted(-margin, -margin, margin, margin) & visitor->window().rect();
}

QRect ManualPictures::aroundPoints() const
{
    return around({"label_14", "checkBoxLineSpectrum", "textEditSpect", "chartSpectrum"});
}

void ManualPictures::save(const QPixmap& picture, const QString& name)
{
    const QString fileName = name + ".png"_L1;
    const bool saved = picture.save(outputFolder.filePath(fileName));
    told += saved ? fileName : u"Cannot write %1"_s.arg(fileName);
    complete = saved && complete;
}

void ManualPictures::saveWindow(const QString& name, const QRect& area)
{
    Visitor::letEventsPass(300ms);
    MainWindow& window = visitor->window();
    QPixmap picture = window.grab();
    if (QWidget* menu = QApplication::activePopupWidget()) {
        QPainter painter(&picture);
        painter.drawPixmap(window.mapFromGlobal(menu->pos()), menu->grab());
    }
    save(area.isNull() ? picture : picture.copy(area), name);
}
