// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"

#include "spectrum/energyfinder.h"
#include "spectrum/fixedwidthdigits.h"
#include "spectrum/modifiabledocument.h"
#include "spectrum/otherlinemarks.h"
#include "spectrum/pointlistlink.h"
#include "spectrum/pointrewrites.h"
#include "spectrum/spectrumchart.h"
#include "spectrum/spectrummodel.h"
#include "support/longwork.h"
#include "support/waitcursor.h"
#include "ui_spectrumwindow.h"
#include "widgets/wheelguard.h"

#include <QCloseEvent>
#include <QDataWidgetMapper>
#include <QDate>
#include <QScopedValueRollback>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The child of the multiple-document area in which the widget is, if it is in one.
const QWidget* subWindowOf(const QWidget* widget)
{
    while (widget != nullptr && widget->windowType() != Qt::SubWindow)
        widget = widget->parentWidget();
    return widget;
}

void setDocumentModified(QObject* owner)
{
    // Asked anew each time: an owner that is being destroyed is no document any more, while fields
    // that lose the focus to its end still write to their models.
    if (auto* document = qobject_cast<ModifiableDocument*>(owner))
        document->setModified();
}

} // namespace

SpectrumWindow::SpectrumWindow(QWidget* parent)
    : SpectrumWindow(parent, Telling::AtOnce)
{}

SpectrumWindow::SpectrumWindow(QWidget* parent, Telling telling)
    : QWidget(parent)
    , ui(std::make_unique<Ui::SpectrumWindow>())
    , mapper(new QDataWidgetMapper(this))
    , documentOwner(parent)
{
    ui->setupUi(this);
    setFocusProxy(ui->lineEditTitle);
    arrange();
    new WheelGuard(ui->comboBoxType); // its open list is another widget
    new FixedWidthDigits(ui->textEditSpect);
    new OtherLineMarks(ui->textEditSpect);
    ui->verticalLayout_3->addWidget(new EnergyFinder(*ui->textEditSpect, this));
    for (QPushButton* button : {ui->buttonNormalize, ui->buttonSparse, ui->buttonCommaToDot})
        button->setToolTip(button->accessibleDescription());
    fillMappingTable();

    spectrumModel = new SpectrumModel(this, ui->textEditSpect);
    mapper->setModel(spectrumModel);

    if (telling == Telling::AtOnce)
        connectDocument();
    connectSignals();
    buildChart();

    spectrumModel->setValue(SpectrumModel::CreatedDate, QDate::currentDate().toString(Qt::ISODate));
    onSpectrumTypeChanged(ui->comboBoxType->currentIndex());
}

SpectrumWindow::SpectrumWindow(const QJsonObject& dataset, QWidget* parent)
    : SpectrumWindow(parent)
{
    spectrumModel->fromJson(dataset);
    showDataset();
}

SpectrumWindow::~SpectrumWindow() = default;

std::unique_ptr<SpectrumWindow> SpectrumWindow::prepared(const QJsonObject& dataset,
                                                         QWidget* document, LongWork& work)
{
    std::unique_ptr<SpectrumWindow> window(new SpectrumWindow(document, Telling::Later));
    if (!window->spectrumModel->fromJson(dataset, work))
        return nullptr;
    window->showDataset();
    window->connectDocument();
    return window;
}

void SpectrumWindow::showDataset()
{
    onSpectrumTypeChanged(spectrumModel->value(SpectrumModel::Type).toInt());
    updateChart();
}

SpectrumModel* SpectrumWindow::model() const
{
    return spectrumModel;
}

void SpectrumWindow::fitChart()
{
    ui->chartSpectrum->fitChart();
}

void SpectrumWindow::arrange()
{
    constexpr int listWidth = 200;
    ui->splitterSpectrum->setSizes({listWidth, width() - listWidth});
    ui->textEditSpect->resize(listWidth, ui->textEditSpect->height()); // lines may come before that
    ui->splitterSpectrum->setStretchFactor(1, 1); // what is gained or lost is the chart's
    // The smallest size that the box knows of itself is from before its items had their texts.
    ui->comboBoxType->setMinimumWidth(ui->comboBoxType->sizeHint().width());
}

void SpectrumWindow::fillMappingTable()
{
    constexpr auto html = "cleanedHtml";
    mappingTable = {
        {ui->lineEditTitle, SpectrumModel::Title, true, true, html},
        {ui->lineEditUploader, SpectrumModel::Uploader, true, true, html},
        {ui->lineEditSpectDOI, SpectrumModel::Doi, true, true, html},
        {ui->textEditCitations, SpectrumModel::FurtherRefs, true, true, html},
        {ui->textEditComments, SpectrumModel::FurtherComments, true, true, html},
        {ui->comboBoxType, SpectrumModel::Type, true, true, "currentIndex"},
        {ui->labelCreated, SpectrumModel::CreatedDate, true, true, "text"},
        {ui->lineEditFacilityDate, SpectrumModel::FacilityDate, true, true, html},
        {ui->checkBoxLineSpectrum, SpectrumModel::LineSpectrum, true, true, "checked"},
        {ui->lineEditSourceT, SpectrumModel::Temperature, true, true, html},
        {ui->lineEditSource, SpectrumModel::LevelOfTheory, true, false, html},
        {ui->lineEditResolution, SpectrumModel::ConvolutionFwhm, true, false, html},
        {ui->lineEditFlux, SpectrumModel::Aie, true, false, html},
        {ui->lineEditSource, SpectrumModel::Source, false, true, html},
        {ui->lineEditResolution, SpectrumModel::Resolution, false, true, html},
        {ui->lineEditFlux, SpectrumModel::Normalization, false, true, html},
    };
}

void SpectrumWindow::connectDocument()
{
    if (qobject_cast<ModifiableDocument*>(documentOwner) == nullptr)
        return;
    const auto setModified = [owner = documentOwner] { setDocumentModified(owner); };
    connect(spectrumModel, &SpectrumModel::dataChanged, documentOwner, setModified);
    connect(ui->textEditSpect, &QPlainTextEdit::textChanged, documentOwner, setModified);
}

void SpectrumWindow::connectSignals()
{
    connect(ui->lineEditTitle, &QTextEdit::textChanged, this, &SpectrumWindow::updateWindowTitle);
    connect(ui->comboBoxType, &QComboBox::currentIndexChanged, this,
            &SpectrumWindow::onSpectrumTypeChanged);
    connect(ui->buttonCommaToDot, &QPushButton::clicked, this,
            &SpectrumWindow::onButtonCommaToDotClicked);
    connect(ui->buttonNormalize, &QPushButton::clicked, spectrumModel,
            &SpectrumModel::normalizeSpectrum);
    connect(ui->buttonSparse, &QPushButton::clicked, spectrumModel,
            &SpectrumModel::makePointsSparser);
    connect(spectrumModel, &SpectrumModel::spectrumDataChanged, this, &SpectrumWindow::updateChart);
    connect(ui->checkBoxLineSpectrum, &QCheckBox::toggled, this,
            &SpectrumWindow::submitLineSpectrum);
    connect(ui->textEditSpect, &QPlainTextEdit::textChanged, this,
            &SpectrumWindow::updateLineCount);
}

void SpectrumWindow::buildChart()
{
    ui->chartSpectrum->takeChart(std::make_unique<SpectrumChart>());
    ui->splitterSpectrum->setMinimumHeight(ui->chartSpectrum->minimumSizeHint().height());
    ui->chartSpectrum->setRenderHint(QPainter::Antialiasing);
    ui->chartSpectrum->setRubberBand(QChartView::RectangleRubberBand);
    new PointListLink(*ui->textEditSpect, *ui->chartSpectrum, this);
}

void SpectrumWindow::applyMappings(int type)
{
    mapper->clearMapping();
    const bool simulation = type == SpectrumModel::FcSimulation;
    for (const MappingEntry& entry : std::as_const(mappingTable)) {
        if (simulation ? entry.forSimulation : entry.forExperiment)
            mapper->addMapping(entry.widget, entry.section, entry.propertyName);
    }
}

void SpectrumWindow::onSpectrumTypeChanged(int index)
{
    // Showing the model's values sets the combo box, which calls this again.
    if (typeSwitchInProgress)
        return;
    const QScopedValueRollback<bool> switching(typeSwitchInProgress, true);

    setCaptions(index);
    // The type is stored first: with the new mappings the widgets are filled from the model.
    spectrumModel->setValue(SpectrumModel::Type, index);
    applyMappings(index);
    mapper->toFirst();
}

void SpectrumWindow::setCaptions(int type)
{
    const bool simulation = type == SpectrumModel::FcSimulation;
    const auto setCaption = [simulation](QLabel* label, const QString& forSimulation,
                                         const QString& forExperiment) {
        label->setText(simulation ? forSimulation : forExperiment);
    };
    setCaption(ui->label_8, u"Level(s) of theory"_s, u"Source"_s);
    setCaption(ui->label_9, u"Vib. T / K"_s, u"Source T / K"_s);
    setCaption(ui->label_10, u"Conv. FWHM / meV"_s, u"Resolution / meV"_s);
    setCaption(ui->label_11, u"0-0 transition / eV"_s, u"Flux normalization"_s);
    setCaption(ui->labelComments,
               u"Comments: programs used, approximations, convergence, "
               "simulation issues etc."_s,
               u"Comments: mass resolution, extraction field, details of spectral "
               "treatment, sample / isomeric purity etc."_s);
    setCaption(ui->labelCitations, u"Further citations (program(s), theory etc.)"_s,
               u"Further citations (expt., source, light source etc.)"_s);
}

void SpectrumWindow::submitLineSpectrum()
{
    if (typeSwitchInProgress)
        return;
    mapper->submit();
    updateChart();
}

void SpectrumWindow::updateWindowTitle()
{
    setWindowTitle(ui->lineEditTitle->toPlainText());
}

void SpectrumWindow::onButtonCommaToDotClicked()
{
    const WaitCursor waiting;
    LongWork work(this, tr("Replacing decimal commas"));
    QString text = ui->textEditSpect->document()->toPlainText();
    text.replace(u',', u'.');
    PointRewrites::of(*ui->textEditSpect).replaceText(text, work.question());
}

void SpectrumWindow::updateLineCount()
{
    const QString caption =
        u"Spectrum, I(hv / eV) (%1 lines)"_s.arg(ui->textEditSpect->blockCount());
    ui->label_14->setText(caption);
    ui->textEditSpect->setAccessibleName(caption); // a caption names its neighbours only
}

void SpectrumWindow::updateChart()
{
    const bool asSticks = spectrumModel->value(SpectrumModel::LineSpectrum).toBool();
    if (auto* chart = qobject_cast<SpectrumChart*>(ui->chartSpectrum->chart()))
        chart->fill(spectrumModel->points(), asSticks);
}

// By itself the Tab key would never leave the child of a multiple-document area.
bool SpectrumWindow::focusNextPrevChild(bool next)
{
    const QWidget* focus = window()->focusWidget();
    if (focus == nullptr || !isAncestorOf(focus))
        return QWidget::focusNextPrevChild(next);

    QWidget* candidate = focus->nextInFocusChain();
    if (!next)
        candidate = focus->previousInFocusChain();
    while (candidate != focus) {
        const QWidget* subWindow = subWindowOf(candidate);
        const bool isReachable = subWindow == nullptr || subWindow == subWindowOf(this);
        if (isReachable && (candidate->focusPolicy() & Qt::TabFocus) == Qt::TabFocus &&
            candidate->focusProxy() == nullptr && candidate->isVisible() &&
            candidate->isEnabled()) {
            candidate->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
        candidate = next ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
    }
    return false;
}

void SpectrumWindow::closeEvent(QCloseEvent* event)
{
    // Closing discards the dataset, whichever button did it.
    setDocumentModified(documentOwner);
    QWidget::closeEvent(event);
}
