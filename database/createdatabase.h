// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

namespace Ui {
class CreateDatabase;
} // namespace Ui

/// Modal dialog that collects what a database is compiled from: header texts, species files, the
/// target and the choice between compact and indented output. It can be accepted only with at least
/// one species file and a target. Kept between uses, its entries survive.
class CreateDatabase : public QDialog
{
    Q_OBJECT

public:
    explicit CreateDatabase(QWidget* parent = nullptr);
    ~CreateDatabase() override;

    [[nodiscard]] QString databaseVersion() const;
    [[nodiscard]] QString dataRelease() const;
    [[nodiscard]] QString title() const;
    /// Full paths in the order added; duplicates are kept.
    [[nodiscard]] QStringList files() const;
    /// Full path of the target.
    [[nodiscard]] QString databaseFileName() const;
    [[nodiscard]] bool isCompact() const;

    void accept() override;

private:
    void setDatabase();
    void addSpecies();
    void clearFiles();
    void removeSelected();

    std::unique_ptr<Ui::CreateDatabase> ui;
    QStringList speciesFiles;
    QString databaseFile;
};
