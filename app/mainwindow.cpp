// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"

#include "species/specieshint.h"
#include "species/speciesmodel.h"
#include "species/structuredownload.h"
#include "spectrum/closedspectra.h"
#include "spectrum/spectrumarea.h"
#include "spectrum/spectrumwatch.h"
#include "support/messages.h"
#include "ui_mainwindow.h"
#include "widgets/entrydrops.h"
#include "widgets/entrystatus.h"
#include "widgets/fieldhint.h"
#include "widgets/formdock.h"
#include "widgets/typedfield.h"
#include "widgets/windowshortcuts.h"

#include <QDataWidgetMapper>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QShortcut>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Both energy fields show a value with its uncertainty whole; the headings stand above the
/// columns.
void fitEnergyColumns(const Ui::MainWindow& ui)
{
    constexpr int frameAndMargins = 16;
    const QFontMetrics metrics = ui.lineEditAIE->fontMetrics();
    const int width = metrics.horizontalAdvance(u"99.99999 \u00b1 0.00009"_s) + frameAndMargins;
    ui.lineEditAIE->setFixedWidth(width);
    ui.lineEditVIE->setFixedWidth(width);
    const int gap = ui.horizontalLayout_2->spacing();
    ui.horizontalLayout_4->setSpacing(width - ui.label_11->maximumWidth() + gap);
    ui.label_11->setMinimumWidth(ui.label_11->maximumWidth());
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::MainWindow>())
    , networkManager(new QNetworkAccessManager(this))
    , speciesModel(new SpeciesModel(this))
    , mapper(new QDataWidgetMapper(this))
    , download(new StructureDownload(networkManager))
{
    qRegisterMetaType<QNetworkReply*>();
    ui->setupUi(this);
    setCentralWidget(ui->centralwidget);
    spectra = std::make_unique<SpectrumArea>(*ui->mdiArea);
    status = new EntryStatus(ui->statusbar);
    fitEnergyColumns(*ui);

    connectSignals();
    connectActions();
    connectStatus();
    setupMapper();
    setAcceptDrops(true);
    new FormDock(this, ui->speciesDock);
    new EntryDrops(this);
    Messages::keepAllPlain(this);
    // Those that stand in the tool bar only have no shortcuts of their own.
    auto* shortcuts = new WindowShortcuts(this);
    shortcuts->add(Qt::ALT | Qt::Key_PageUp, ui->actionPreviousFile);
    shortcuts->add(Qt::ALT | Qt::Key_PageDown, ui->actionNextFile);
    shortcuts->add(Qt::CTRL | Qt::SHIFT | Qt::Key_F, ui->actionSelectFolder);
    ui->buttonDownload->setToolTip(ui->buttonDownload->accessibleDescription());
    new FieldHint(ui->lineEditCAS, &SpeciesHint::aboutCasNumber);
    new FieldHint(ui->lineEditMass, &SpeciesHint::aboutMass);
}

MainWindow::~MainWindow()
{
    // While they are destroyed, fields that lose the focus still write to their models and pending
    // replies still finish: neither may reach a window that is half gone.
    speciesModel->disconnect(this);
    networkManager->disconnect(this);
    delete ui->mdiArea;
}

void MainWindow::connectSignals()
{
    connect(ui->buttonDownload, &QPushButton::clicked, this, &MainWindow::onButtonDownloadClicked);
    connect(networkManager, &QNetworkAccessManager::finished, this, &MainWindow::onImageDownloaded);
    connect(download, &StructureDownload::runningChanged, ui->buttonDownload,
            [button = ui->buttonDownload](bool running) {
                if (running)
                    button->setCursor(Qt::BusyCursor);
                else
                    button->unsetCursor();
            });
    ui->imageLabel->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(ui->imageLabel, &QLabel::customContextMenuRequested, this, &MainWindow::showImageMenu);
    const QKeySequence imageMenu(Qt::CTRL | Qt::SHIFT | Qt::Key_I);
    connect(new QShortcut(imageMenu, this), &QShortcut::activated, this,
            [this] { showImageMenu(ui->imageLabel->rect().center()); });
    ui->imageLabel->setToolTip(
        tr("Structure: right click or %1").arg(imageMenu.toString(QKeySequence::NativeText)));
}

void MainWindow::connectActions()
{
    connect(ui->actionExit, &QAction::triggered, this, &MainWindow::close);
    connect(ui->actionLoadSpecies, &QAction::triggered, this, &MainWindow::openSpecies);
    connect(ui->actionSaveSpecies, &QAction::triggered, this, &MainWindow::saveSpecies);
    connect(ui->actionSaveSpeciesAs, &QAction::triggered, this, &MainWindow::saveSpeciesAs);
    connect(ui->actionSubscript, &QAction::triggered, this, &MainWindow::applySubscript);
    connect(ui->actionSuperscript, &QAction::triggered, this, &MainWindow::applySuperscript);
    connect(ui->actionClean, &QAction::triggered, this, &MainWindow::cleanUp);
    connect(ui->actionDelete, &QAction::triggered, this, &MainWindow::deleteCurrentSpectrum);
    connect(ui->actionNew, &QAction::triggered, this, [this] { createNewSpectrumWindow(); });
    connect(ui->actionLoadSpectrum, &QAction::triggered, this, &MainWindow::openSpectrum);
    connect(ui->actionSaveSpectrumAs, &QAction::triggered, this, &MainWindow::saveSpectrum);
    connect(ui->actionCopy, &QAction::triggered, this, &MainWindow::copySpectrum);
    connect(ui->actionPaste, &QAction::triggered, this, &MainWindow::pasteSpectrum);
    connect(ui->actionSelectFolder, &QAction::triggered, this, &MainWindow::selectSpeciesFolder);
    connect(ui->actionPreviousFile, &QAction::triggered, this,
            &MainWindow::loadPreviousSpeciesFile);
    connect(ui->actionNextFile, &QAction::triggered, this, &MainWindow::loadNextSpeciesFile);
    connect(speciesModel, &SpeciesModel::imageChanged, this, &MainWindow::showImage);
}

void MainWindow::connectStatus()
{
    const SpectrumWatch& watch = spectra->watch();
    connect(&watch, &SpectrumWatch::summaryChanged, status, &EntryStatus::setSpectrum);
    connect(&watch, &SpectrumWatch::typedPointsChanged, status, &EntryStatus::setPointsTyped);
    connect(new TypedField(this), &TypedField::changed, status, &EntryStatus::setFieldTyped);
    connect(download, &StructureDownload::runningChanged, status, &EntryStatus::setFetching);
    connect(&spectra->closed(), &ClosedSpectra::hintChanged, status, &EntryStatus::setClosed);
    auto* bringBack = new QShortcut(ClosedSpectra::keys(), this);
    bringBack->setAutoRepeat(false); // each press brings back one
    connect(bringBack, &QShortcut::activated, this, [this] {
        if (SpectrumWindow* spectrum = spectra->closed().takeBack(this))
            addSpectrumWindow(spectrum);
    });
}

void MainWindow::setupMapper()
{
    mapper->setModel(speciesModel);
    connect(speciesModel, &SpeciesModel::dataChanged, this, qOverload<>(&MainWindow::setModified),
            Qt::DirectConnection);

    struct Binding
    {
        SpeciesModel::Column column;
        QWidget* field;
    };
    const std::array<Binding, 11> bindings{{
        {SpeciesModel::Name, ui->lineEditSpecies},
        {SpeciesModel::Aliases, ui->textEditAliases},
        {SpeciesModel::Mass, ui->lineEditMass},
        {SpeciesModel::Formula, ui->lineEditSumFormula},
        {SpeciesModel::InChI, ui->lineEditInChI},
        {SpeciesModel::Cas, ui->lineEditCAS},
        {SpeciesModel::PubChem, ui->lineEditCID},
        {SpeciesModel::Aie, ui->lineEditAIE},
        {SpeciesModel::Vie, ui->lineEditVIE},
        {SpeciesModel::AieComment, ui->lineEditAIEComment},
        {SpeciesModel::VieComment, ui->lineEditVIEComment},
    }};
    for (const Binding& binding : bindings)
        mapper->addMapping(binding.field, binding.column, "cleanedHtml");
    mapper->toFirst();
}
