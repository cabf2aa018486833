// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "spectrum/modifiabledocument.h"

#include <QMainWindow>
#include <QStringList>
#include <QTextCharFormat>

#include <memory>

class CreateDatabase;
class EntryStatus;
class LongWork;
class QDataWidgetMapper;
class QJsonObject;
class QNetworkAccessManager;
class QNetworkReply;
class SpeciesModel;
class SpectrumArea;
class SpectrumWindow;
class StructureDownload;

namespace Ui {
class MainWindow;
} // namespace Ui

/// The program's window: the form of one species in a dock and its spectra in a tabbed area. It
/// keeps the species document (record, spectra, file name, modified flag) and asks before changes
/// are lost.
///
/// It asks and shows; the work is done by objects that know no window. The implementation is told
/// in chapters: construction (mainwindow.cpp) and one file for each of document life, folder
/// stepping, spectrum windows, structure download, structure picture, text formatting and database.
class MainWindow : public QMainWindow, public ModifiableDocument
{
    Q_OBJECT
    Q_INTERFACES(ModifiableDocument)

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Replaces the document by the species file at @p path, after asking to save a modified one.
    /// Returns whether the file was loaded; what went wrong has been shown by then.
    bool openEntry(const QString& path);

    /// Compiles the species files into a database, dated today. Returns whether the database file
    /// could be opened for writing; a species file that cannot be used has been shown by then.
    static bool writeDatabase(QWidget* messageParent, const QStringList& speciesFiles,
                              const QString& databaseFile, const QString& version,
                              const QString& release, const QString& title, bool compact);

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
    /// Deliberately wired to no action: the editor is for entries, and those who keep the database
    /// have a program of their own. Invoked by name only.
    void createSpeciesDatabase();
    void selectSpeciesFolder();
    void loadPreviousSpeciesFile();
    void loadNextSpeciesFile();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // Construction
    void connectSignals();
    void connectActions();
    void connectStatus();
    void setupMapper();

    // Document life
    void setModified(bool modified);
    /// Whether the caller may drop the current document.
    [[nodiscard]] bool askToSave();
    void openSpecies();
    void saveSpecies();
    void saveSpeciesAs();
    /// Empties the document, whether modified or not.
    void clear();
    /// Drops the document, whether modified or not, and shows the species file; the document stays
    /// as it is when @p opening was stopped. Returns whether it was replaced.
    bool replaceDocument(const QString& path, const QJsonObject& content, LongWork& opening);
    /// Drops the document and shows the file if it can; what went wrong is told afterwards.
    void takeDrop(const QString& path);
    /// Writes the document to the current file.
    void saveSpeciesFile();

    // Folder stepping
    /// Loads the first species file of the folder (@p direction 0), or the one before (-1) or
    /// behind (1) the file @p path. Returns whether a file was loaded.
    bool step(const QString& path, int direction);

    // Spectrum windows
    void addSpectrumWindow(SpectrumWindow* window);
    /// Adds a window for the dataset; false when the work was stopped.
    bool addSpectrum(const QJsonObject& dataset, LongWork& work);
    void copySpectrum();
    void pasteSpectrum();
    void openSpectrum();
    void saveSpectrum();

    // Structure image
    void showImage();
    void showImageMenu(const QPoint& position);
    void clearImage();
    void pasteImageFromClipboard();

    std::unique_ptr<Ui::MainWindow> ui;
    QNetworkAccessManager* networkManager;
    SpeciesModel* speciesModel;
    QDataWidgetMapper* mapper;
    StructureDownload* download; ///< Belongs to the network manager.
    std::unique_ptr<SpectrumArea> spectra;
    EntryStatus* status = nullptr; ///< Belongs to the status bar.
    CreateDatabase* createDatabase = nullptr;
    QString currentFile; ///< Full path; empty while the document is untitled.
    bool isModified = false;
    QStringList recentList; ///< Kept for the members' sake alone: the list of files is not offered.
};
