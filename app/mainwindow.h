// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/modifiabledocument.h"
#include "support/jsonfile.h"

#include <QMainWindow>
#include <QStringList>
#include <QTextCharFormat>

#include <memory>

class CreateDatabase;
class QDataWidgetMapper;
class QDir;
class QNetworkAccessManager;
class QNetworkReply;
class SpeciesModel;
class SpectrumWindow;

namespace Ui {
class MainWindow;
} // namespace Ui

/// The program's window: the form of one species in a dock and its spectra in a tabbed area. It
/// keeps the species document (record, spectra, file name, modified flag) and asks before changes
/// are lost.
///
/// The implementation is told in chapters: construction (mainwindow.cpp) and one file for each of
/// document life, folder stepping, spectrum windows, structure image, text formatting and database.
class MainWindow : public QMainWindow, public ModifiableDocument
{
    Q_OBJECT
    Q_INTERFACES(ModifiableDocument)

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Replaces the document by the species file at @p path, after asking to save a modified one.
    /// Returns whether the file was loaded; what went wrong has been shown by then.
    bool loadSpecies(const QString& path);

    /// Whether the last createSpeciesDatabase() ended with its message of success.
    [[nodiscard]] bool isDatabaseCreated() const;

public Q_SLOTS:
    // The order is part of the meta-object interface.
    void setModified() override;
    void onButtonDownloadClicked();
    void onImageDownloaded(QNetworkReply* reply);
    void applySubscript();
    void applySuperscript();
    void applyTextFormatting(QTextCharFormat::VerticalAlignment alignment);
    void createNewSpectrumWindow();
    void cleanUp();
    void deleteCurrentSpectrum();
    /// Deliberately wired to no action: reachable only by invoking it by name.
    void createSpeciesDatabase();
    void selectSpeciesFolder();
    void loadPreviousSpeciesFile();
    void loadNextSpeciesFile();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Construction
    void fitForm();
    void connectSignals();
    void connectActions();
    void setupMapper();

    // Document life
    void setModified(bool modified);
    /// Whether the caller may drop the current document.
    [[nodiscard]] bool askToSave();
    void openSpecies();
    void saveSpecies();
    void saveSpeciesAs();
    /// Adds the content of the file to the cleaned document; false after a message when it cannot.
    bool loadSpeciesFile(const QString& path);
    /// Drops the document, whether modified or not, and shows the species file.
    void replaceDocument(const QString& path, const QJsonObject& file);
    void showSpecies(const QJsonObject& file);
    /// Writes the document to the current file.
    void saveSpeciesFile();
    [[nodiscard]] JsonFile::WriteResult writeSpeciesFile() const;
    [[nodiscard]] static QString jsonFileFilter();

    // Folder stepping
    enum class Direction { Previous = -1, First = 0, Next = 1 };
    bool step(const QString& path, Direction direction);
    bool stepTo(const QString& path, const QJsonObject& file);
    bool loadFirstSpeciesFile(const QDir& folder, const QStringList& fileNames);
    bool loadNeighbour(const QDir& folder, const QStringList& fileNames, const QString& current,
                       Direction direction);

    // Spectrum windows
    void addSpectrumWindow(SpectrumWindow* window);
    [[nodiscard]] SpectrumWindow* activeSpectrum() const;
    void copySpectrum();
    void pasteSpectrum();
    void openSpectrum();
    void saveSpectrum();

    // Structure image
    void showWhetherDownloading();
    void setStructureImage(const QVariant& image);
    void showImage();
    void showImageMenu(const QPoint& position);
    void clearImage();
    void pasteImageFromClipboard();

    // Database
    static bool writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                              const QString& databaseFile, const QString& version,
                              const QString& release, const QString& title, bool compact);

    std::unique_ptr<Ui::MainWindow> ui;
    QNetworkAccessManager* networkManager;
    SpeciesModel* speciesModel;
    QDataWidgetMapper* mapper;
    CreateDatabase* createDatabase = nullptr;
    bool databaseCreated = false;
    QString currentFile; ///< Full path; empty while the document is untitled.
    bool isModified = false;
    QStringList recentList; ///< Part of the window's state by design; nothing reads it yet.
};
