// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QDir>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QStatusBar>
#include <QTest>
#include <QTextEdit>
#include <QWindow>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// Files dragged onto the window.
class TestDocumentDrop : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        QVERIFY(QDir(sandbox->path()).mkdir(u"in"_s));
    }

    void onlyLocalJsonFilesAreAccepted_data()
    {
        QTest::addColumn<QList<QUrl>>("urls");
        QTest::addColumn<bool>("accepted");
        const auto file = [](const char* name) {
            const QString path = u"/data/"_s + QLatin1StringView(name);
            return QUrl::fromLocalFile(path);
        };
        QTest::newRow("json") << QList<QUrl>{file("a.json")} << true;
        QTest::newRow("upper case") << QList<QUrl>{file("A.JSON")} << true;
        QTest::newRow("mixed case") << QList<QUrl>{file("a.Json")} << true;
        QTest::newRow("only the ending") << QList<QUrl>{file(".json")} << true;
        QTest::newRow("blank and umlaut")
            << QList<QUrl>{QUrl::fromLocalFile(u"/data/a \u00e4.json"_s)} << true;
        QTest::newRow("text") << QList<QUrl>{file("a.txt")} << false;
        QTest::newRow("no ending") << QList<QUrl>{file("json")} << false;
        QTest::newRow("ending in the middle") << QList<QUrl>{file("a.json.bak")} << false;
        QTest::newRow("folder") << QList<QUrl>{file("a.json/")} << false;
        QTest::newRow("json first") << QList<QUrl>{file("a.json"), file("b.txt")} << true;
        QTest::newRow("json second") << QList<QUrl>{file("b.txt"), file("a.json")} << false;
        QTest::newRow("remote") << QList<QUrl>{QUrl(u"https://host/a.json"_s)} << false;
        QTest::newRow("nothing") << QList<QUrl>{} << false;
    }

    void onlyLocalJsonFilesAreAccepted()
    {
        QFETCH(QList<QUrl>, urls);
        QFETCH(bool, accepted);
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter(statusBarCentre(), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &enter);
        QCOMPARE(enter.isAccepted(), accepted);
        if (accepted)
            QCOMPARE(enter.dropAction(), Qt::CopyAction);
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(window->windowHandle(), &leave);
    }

    void draggedTextIsLeftAlone()
    {
        QMimeData data;
        data.setText(u"/data/a.json"_s);
        QDragEnterEvent enter(statusBarCentre(), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &enter);
        QVERIFY(!enter.isAccepted());
    }

    void droppedFileOpens_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::newRow("lower case") << u"in/a.json"_s;
        QTest::newRow("upper case") << u"in/A.JSON"_s;
    }

    void droppedFileOpens()
    {
        QFETCH(QString, fileName);
        const QString path = sandbox->write(fileName, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        const QString title = u"KORVELA Entry Edit - "_s % fileName.mid(3);
        QCOMPARE(window->windowTitle(), title);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"Water"_s);
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
        QCOMPARE(rememberedFolder(), sandbox->path(u"in"_s));

        trigger(*window, "actionNew");
        trigger(*window, "actionSaveSpecies");
        QVERIFY(sandbox->read(fileName).contains("Dataset2"));
    }

    /// After a move the file manager would delete the file.
    void dropIsACopyWhateverIsProposed_data()
    {
        QTest::addColumn<QByteArray>("onto");
        QTest::addColumn<Qt::DropActions>("offered");
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        const Qt::DropActions all = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
        for (const char* onto : {"statusbar", "lineEditSpecies", "textEditSpect"}) {
            QTest::addRow("Shift, %s", onto)
                << QByteArray(onto) << all << Qt::KeyboardModifiers(Qt::ShiftModifier);
            QTest::addRow("no key, %s", onto)
                << QByteArray(onto) << all << Qt::KeyboardModifiers(Qt::NoModifier);
            QTest::addRow("nothing but a move, %s", onto)
                << QByteArray(onto) << Qt::DropActions(Qt::MoveAction)
                << Qt::KeyboardModifiers(Qt::NoModifier);
        }
    }

    void dropIsACopyWhateverIsProposed()
    {
        QFETCH(const QByteArray, onto);
        QFETCH(const Qt::DropActions, offered);
        QFETCH(const Qt::KeyboardModifiers, keys);
        const QString old = sandbox->write(u"old.json"_s, speciesFile(u"Old"_s, {u"old"_s}));
        QVERIFY(window->openEntry(old));
        QCoreApplication::processEvents();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(
            sandbox->write(u"in/a.json"_s, speciesFile(u"Water"_s, {u"one"_s})))});
        const auto* target = child<QWidget>(*window, onto.constData());
        const QPoint position = target->mapTo(window.get(), target->rect().center());
        QWindow* handle = window->windowHandle();

        // While it hovers a drag can be accepted only with an action that is offered.
        const bool copyOffered = offered.testFlag(Qt::CopyAction);
        const Qt::DropAction hovering = copyOffered ? Qt::CopyAction : Qt::MoveAction;
        QDragEnterEvent enter(position, offered, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(handle, &enter);
        QVERIFY(enter.isAccepted());
        QCOMPARE(enter.dropAction(), hovering);
        QDragMoveEvent move(position, offered, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(handle, &move);
        QVERIFY(move.isAccepted());
        QCOMPARE(move.dropAction(), hovering);
        QDropEvent drop(position, offered, &data, Qt::LeftButton, keys);
        QCoreApplication::sendEvent(handle, &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(drop.dropAction(), copyOffered ? Qt::CopyAction : Qt::IgnoreAction);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QVERIFY(QFileInfo::exists(sandbox->path(u"in/a.json"_s)));
    }

    void fieldsLeaveDroppedEntriesToTheWindow_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name :
             {"lineEditSpecies", "textEditAliases", "lineEditVIEComment", "buttonDownload",
              "imageLabel", "mdiArea", "lineEditTitle", "comboBoxType", "textEditCitations",
              "textEditComments", "textEditSpect", "chartSpectrum", "toolBar", "menubar"})
            QTest::newRow(name) << 0;
    }

    void fieldsLeaveDroppedEntriesToTheWindow()
    {
        const QString old = sandbox->write(u"old.json"_s, speciesFile(u"Old"_s, {u"old"_s}));
        QVERIFY(window->openEntry(old));
        QCoreApplication::processEvents();
        const QString path = sandbox->write(u"in/a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(dropFile(*window, *child<QWidget>(*window, QTest::currentDataTag()), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"Water"_s);
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
    }

    void floatingFormLeavesDroppedEntriesToTheWindow()
    {
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        dock->setFloating(true);
        QVERIFY(showActive(*dock));
        const QString path = sandbox->write(u"in/a.json"_s, speciesFile(u"Water"_s));
        QVERIFY(dropFile(*dock, *child<QWidget>(*dock, "lineEditSpecies"), path));
        QCOMPARE(child<QTextEdit>(*dock, "lineEditSpecies")->toPlainText(), u"Water"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
    }

    void textFileIsIgnoredWithoutAMessage()
    {
        openModified();
        const QString path = sandbox->write(u"in/a.txt"_s, speciesFile(u"Water"_s));
        QVERIFY(!dropFile(*window, *window->statusBar(), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - old.json *"_s);
        QCOMPARE(rememberedFolder(), sandbox->path());
    }

    void dropOfAnotherFileThanTheDraggedOneIsIgnored()
    {
        const QString path = sandbox->write(u"in/a.txt"_s, speciesFile(u"Water"_s));
        QMimeData promised;
        promised.setUrls({QUrl::fromLocalFile(u"/data/a.json"_s)});
        QDragEnterEvent enter(statusBarCentre(), Qt::CopyAction, &promised, Qt::LeftButton,
                              Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &enter);
        QVERIFY(enter.isAccepted());
        QMimeData delivered;
        delivered.setUrls({QUrl::fromLocalFile(path)});
        QDropEvent drop(statusBarCentre(), Qt::CopyAction, &delivered, Qt::LeftButton,
                        Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &drop);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        QCOMPARE(rememberedFolder(), QString());
    }

    void modifiedDocumentIsAskedFor_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("saved");
        QTest::addColumn<bool>("opened");
        QTest::newRow("Save") << int(QMessageBox::Save) << true << true;
        QTest::newRow("Discard") << int(QMessageBox::Discard) << false << true;
        QTest::newRow("Cancel") << int(QMessageBox::Cancel) << false << false;
    }

    void modifiedDocumentIsAskedFor()
    {
        QFETCH(int, answer);
        QFETCH(bool, saved);
        QFETCH(bool, opened);
        openModified();
        const QString path = sandbox->write(u"in/a.json"_s, speciesFile(u"Water"_s));
        dialogs->expectSaveQuestion(static_cast<QMessageBox::StandardButton>(answer));
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        QCOMPARE(sandbox->read(u"old.json"_s).contains("Dataset2"), saved);
        QCOMPARE(cell(*window, SpeciesModel::Name), opened ? u"Water"_s : u"Old"_s);
        QCOMPARE(window->windowTitle(),
                 opened ? u"KORVELA Entry Edit - a.json"_s : u"KORVELA Entry Edit - old.json *"_s);
        QCOMPARE(subWindows(*window).size(), opened ? 0 : 2);
        QCOMPARE(rememberedFolder(), opened ? sandbox->path(u"in"_s) : sandbox->path());
    }

    void dropGoesOnWhenSavingWasCancelled()
    {
        trigger(*window, "actionNew");
        const QString path = sandbox->write(u"in/a.json"_s, speciesFile(u"Water"_s));
        dialogs->expectSaveQuestion(QMessageBox::Save);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"Water"_s);
    }

    void failedDropLeavesAnEmptyDocumentAndTheFolder_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("icon");
        QTest::addColumn<QString>("text");
        const QString foreign = u"Species not found in JSON file. Load aborted."_s;
        QTest::newRow("missing") << QByteArray() << int(QMessageBox::Warning)
                                 << u"Could not open file for reading"_s;
        QTest::newRow("spectrum file")
            << spectrumFile(u"one"_s) << int(QMessageBox::Critical) << foreign;
        QTest::newRow("not JSON") << QByteArray("12 5\n13 7\n") << int(QMessageBox::Critical)
                                  << foreign;
        QTest::newRow("truncated")
            << speciesFile(u"Water"_s).chopped(3) << int(QMessageBox::Critical) << foreign;
    }

    void failedDropLeavesAnEmptyDocumentAndTheFolder()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, icon);
        QFETCH(QString, text);
        openModified();
        const QString path = sandbox->path(u"in/bad.json"_s);
        if (!content.isEmpty())
            sandbox->write(u"in/bad.json"_s, content);
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expectBox(static_cast<QMessageBox::Icon>(icon), u"Error"_s, text);
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), QString());
        QVERIFY(subWindows(*window).isEmpty());
        QCOMPARE(rememberedFolder(), sandbox->path(u"in"_s));
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void folderNamedLikeAnEntryCannotBeRead()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"folder.json"_s));
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for reading"_s);
        QVERIFY(dropFile(*window, *window->statusBar(), sandbox->path(u"folder.json"_s)));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
    }

private:
    [[nodiscard]] QPoint statusBarCentre() const
    {
        return window->statusBar()->geometry().center();
    }

    void openModified()
    {
        const QString path = sandbox->write(u"old.json"_s, speciesFile(u"Old"_s, {u"old"_s}));
        QVERIFY(window->openEntry(path));
        trigger(*window, "actionNew");
    }
};

QTEST_MAIN(TestDocumentDrop)
#include "tst_documentdrop.moc"
