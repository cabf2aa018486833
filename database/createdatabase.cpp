// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"

#include "support/lastopenfolder.h"
#include "support/messages.h"
#include "support/tooltip.h"
#include "ui_createdatabase.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QShortcut>

CreateDatabase::CreateDatabase(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::CreateDatabase>())
{
    ui->setupUi(this);

    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &CreateDatabase::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &CreateDatabase::reject);
    connect(this, &CreateDatabase::accepted, this, &CreateDatabase::hide);
    connect(this, &CreateDatabase::rejected, this, &CreateDatabase::hide);
    connect(ui->pushButton, &QPushButton::clicked, this, &CreateDatabase::setDatabase);
    connect(ui->pushButton_2, &QPushButton::clicked, this, &CreateDatabase::addSpecies);
    connect(ui->pushButton_3, &QPushButton::clicked, this, &CreateDatabase::clearFiles);

    ui->listWidget->setSelectionMode(QAbstractItemView::ExtendedSelection);
    auto* removal = new QShortcut(QKeySequence::Delete, ui->listWidget);
    removal->setContext(Qt::WidgetShortcut);
    connect(removal, &QShortcut::activated, this, &CreateDatabase::removeSelected);
}

CreateDatabase::~CreateDatabase() = default;

QString CreateDatabase::databaseVersion() const
{
    return ui->lineEdit->text();
}

QString CreateDatabase::dataRelease() const
{
    return ui->lineEdit_2->text();
}

QString CreateDatabase::title() const
{
    return ui->lineEdit_3->text();
}

QStringList CreateDatabase::files() const
{
    return speciesFiles;
}

QString CreateDatabase::databaseFileName() const
{
    return databaseFile;
}

bool CreateDatabase::isCompact() const
{
    return ui->checkBox->isChecked();
}

void CreateDatabase::setDatabase()
{
    const QString start = databaseFile.isEmpty() ? LastOpenFolder::path() : databaseFile;
    // A cancelled dialog answers with an empty path: the target is then forgotten on purpose.
    databaseFile = QFileDialog::getSaveFileName(this, tr("Database will be saved to..."), start,
                                                tr("JSON Files (*.json)"));
    ui->label_5->setText(QFileInfo(databaseFile).fileName());
    ui->label_5->setToolTip(ToolTip::plain(databaseFile));
}

void CreateDatabase::addSpecies()
{
    QFileDialog dialog(this, tr("Select JSON Files to be added to the database"),
                       LastOpenFolder::path(), tr("JSON Files (*.json)"));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QStringList paths = dialog.selectedFiles();
    for (const QString& path : paths) {
        speciesFiles.append(path);
        auto* item = new QListWidgetItem(QFileInfo(path).fileName(), ui->listWidget);
        item->setToolTip(ToolTip::plain(path));
    }
}

void CreateDatabase::removeSelected()
{
    const QList<QListWidgetItem*> selected = ui->listWidget->selectedItems();
    for (const QListWidgetItem* item : selected) {
        speciesFiles.removeAt(ui->listWidget->row(item));
        delete item;
    }
}

void CreateDatabase::clearFiles()
{
    ui->listWidget->clear();
    speciesFiles.clear();
    ui->label_5->clear();
    ui->label_5->setToolTip({});
    databaseFile.clear();
}

void CreateDatabase::accept()
{
    if (speciesFiles.isEmpty()) {
        Messages::warning(this, tr("Error"),
                          tr("At least one species has to be added to the database."));
    } else if (databaseFile.isEmpty()) {
        Messages::warning(this, tr("Error"),
                          tr("Where shall I save the database to? (Click on Set database)"));
    } else {
        QDialog::accept();
    }
}
