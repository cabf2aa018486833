// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTest>
#include <QToolBar>

#include <memory>

namespace {

constexpr auto noSpecies = R"({"Type":"Spectrum v1","Title":"no species"})";

QString titleOf(const QString& fileName)
{
    return QLatin1String("KORVELA Entry Edit - ") + fileName;
}

} // namespace

/// Stepping through the species files of a folder with the tool bar.
class TestFolderStepping : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void selectingAFolderLoadsItsFirstSpecies()
    {
        for (const auto* name : {"a10.json", "a2.json", "B1.json"})
            writeSpecies(QString::fromLatin1(name));

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), QStringLiteral("a2.json"));
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("a2.json")));
    }

    void nextGoesThroughTheFilesInOrderAndWrapsToTheFirst()
    {
        for (const auto* name : {"a10.json", "a2.json", "B1.json"})
            writeSpecies(QString::fromLatin1(name));
        QVERIFY(window->loadSpecies(sandbox->path(QStringLiteral("a2.json"))));

        QStringList visited;
        for (int step = 0; step < 4; ++step) {
            clickNext();
            visited.append(shownSpecies());
            QCOMPARE(window->windowTitle(), titleOf(visited.constLast()));
        }
        QCOMPARE(visited, QStringList({QStringLiteral("a10.json"), QStringLiteral("B1.json"),
                                       QStringLiteral("a2.json"), QStringLiteral("a10.json")}));
    }

    void previousGoesThroughTheFilesBackwardsAndWrapsToTheLast()
    {
        for (const auto* name : {"a10.json", "a2.json", "B1.json"})
            writeSpecies(QString::fromLatin1(name));
        QVERIFY(window->loadSpecies(sandbox->path(QStringLiteral("a2.json"))));

        QStringList visited;
        for (int step = 0; step < 4; ++step) {
            clickPrevious();
            visited.append(shownSpecies());
        }
        QCOMPARE(visited, QStringList({QStringLiteral("B1.json"), QStringLiteral("a10.json"),
                                       QStringLiteral("a2.json"), QStringLiteral("B1.json")}));
    }

    void otherFilesAreSkippedSilently()
    {
        writeSpecies(QStringLiteral("b.json"));
        writeSpecies(QStringLiteral("x.json"));
        writeSpecies(QStringLiteral("no-entry.txt"));
        sandbox->write(QStringLiteral("a.json"), noSpecies);
        sandbox->write(QStringLiteral("c.json"), noSpecies);
        sandbox->write(QStringLiteral("d.json"), R"({"Type":"Database v1"})");
        sandbox->write(QStringLiteral("e.json"), R"([{"Type":"Species v1"}])");
        sandbox->write(QStringLiteral("f.json"), R"({"Type":"species v1"})");
        sandbox->write(QStringLiteral("g.json"), R"({"Type":"Species v1"} trailing)");
        sandbox->write(QStringLiteral("h.json"), "");
        sandbox->write(QStringLiteral("i.json"), "\x89PNG\r\n\x1a\n");
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("j.json")));
        sandbox->write(QStringLiteral("z.json"), noSpecies);

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), QStringLiteral("b.json"));
        clickNext();
        QCOMPARE(shownSpecies(), QStringLiteral("x.json"));
        clickNext();
        QCOMPARE(shownSpecies(), QStringLiteral("b.json"));
        clickPrevious();
        QCOMPARE(shownSpecies(), QStringLiteral("x.json"));
        clickPrevious();
        QCOMPARE(shownSpecies(), QStringLiteral("b.json"));
    }

    void filesWithAnUpperCaseEndingBelongToTheFolder()
    {
        writeSpecies(QStringLiteral("argon.json"));
        writeSpecies(QStringLiteral("BENZENE.JSON"));
        writeSpecies(QStringLiteral("caffeine.Json"));
        QVERIFY(window->loadSpecies(sandbox->path(QStringLiteral("argon.json"))));

        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("BENZENE.JSON")));
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("caffeine.Json")));
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("argon.json")));
    }

    void steppingRemembersTheFolder()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("entries")));
        writeSpecies(QStringLiteral("entries/a.json"));

        dialogs->expectFileDialog(QStringLiteral("Select Folder"),
                                  sandbox->path(QStringLiteral("entries")));
        clickSelectFolder();
        TestSupport::trigger(*window, "actionClean");
        dialogs->expectFileDialog(QStringLiteral("Open Species JSON File"), {},
                                  sandbox->path(QStringLiteral("entries")));
        TestSupport::trigger(*window, "actionLoadSpecies");
    }

    void folderDialogShowsFoldersAndStartsAtTheCurrentFile()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("first")));
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("second")));
        writeSpecies(QStringLiteral("first/a.json"));
        const QString dropped = writeSpecies(QStringLiteral("second/b.json"));
        QVERIFY(window->loadSpecies(sandbox->path(QStringLiteral("first/a.json"))));

        // The last folder used is another one by now than that of the current file.
        dialogs->expectFileDialog(QStringLiteral("Open Spectrum JSON File"),
                                  sandbox->write(QStringLiteral("second/s.json"), noSpecies));
        TestSupport::trigger(*window, "actionLoadSpectrum");

        dialogs->expect([this](QWidget& widget) {
            auto* dialog = qobject_cast<QFileDialog*>(&widget);
            if (dialog == nullptr || dialog->windowTitle() != QLatin1String("Select Folder") ||
                dialog->fileMode() != QFileDialog::Directory ||
                !dialog->testOption(QFileDialog::ShowDirsOnly) ||
                dialog->directory() != QDir(sandbox->path(QStringLiteral("first"))))
                dialogs->complain(QStringLiteral("another folder dialog was expected"));
            widget.close();
        });
        clickSelectFolder();
        QCOMPARE(shownSpecies(), QStringLiteral("first/a.json"));
    }

    void withoutAFileBothButtonsAskForAFolder_data()
    {
        QTest::addColumn<QByteArray>("action");
        QTest::newRow("next") << QByteArray("actionNextFile");
        QTest::newRow("previous") << QByteArray("actionPreviousFile");
    }

    void withoutAFileBothButtonsAskForAFolder()
    {
        QFETCH(const QByteArray, action);
        for (const auto* name : {"a.json", "b.json", "c.json"})
            writeSpecies(QString::fromLatin1(name));
        QVERIFY(window->loadSpecies(sandbox->path(QStringLiteral("c.json"))));
        TestSupport::trigger(*window, "actionClean");

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path(),
                                  sandbox->path());
        click(action.constData());
        QCOMPARE(shownSpecies(), QStringLiteral("a.json"));
    }

    void cancellingTheFolderDialogChangesNothing()
    {
        const QString file = writeSpecies(QStringLiteral("b.json"));
        writeSpecies(QStringLiteral("a.json"));
        QVERIFY(window->loadSpecies(file));

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), {}, sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), QStringLiteral("b.json"));
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("b.json")));
    }

    void selectingTheFolderAgainStartsAtItsFirstFile()
    {
        writeSpecies(QStringLiteral("a.json"));
        const QString file = writeSpecies(QStringLiteral("b.json"));
        QVERIFY(window->loadSpecies(file));

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), QStringLiteral("a.json"));
    }

    void folderWithoutJsonFilesIsReported()
    {
        sandbox->write(QStringLiteral("notes.txt"), "nothing");
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("folder.json")));

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        expectInformation(QStringLiteral("No JSON Files"),
                          QStringLiteral("No JSON files found in the directory."));
        clickSelectFolder();
        QCOMPARE(window->windowTitle(), QStringLiteral("KORVELA Entry Edit"));
    }

    void folderWithoutSpeciesIsReported()
    {
        sandbox->write(QStringLiteral("a.json"), noSpecies);
        sandbox->write(QStringLiteral("b.json"), "{");

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        expectInformation(QStringLiteral("No Species Files"),
                          QStringLiteral("No species JSON files found in the directory."));
        clickSelectFolder();
        QCOMPARE(window->windowTitle(), QStringLiteral("KORVELA Entry Edit"));
    }

    void onlySpeciesOfAFolderHasNoNeighbour_data()
    {
        QTest::addColumn<bool>("withOtherFiles");
        QTest::addColumn<QByteArray>("action");
        QTest::newRow("alone, next") << false << QByteArray("actionNextFile");
        QTest::newRow("alone, previous") << false << QByteArray("actionPreviousFile");
        QTest::newRow("among others, next") << true << QByteArray("actionNextFile");
        QTest::newRow("among others, previous") << true << QByteArray("actionPreviousFile");
    }

    void onlySpeciesOfAFolderHasNoNeighbour()
    {
        QFETCH(const bool, withOtherFiles);
        QFETCH(const QByteArray, action);
        const QString file = writeSpecies(QStringLiteral("m.json"));
        if (withOtherFiles) {
            sandbox->write(QStringLiteral("a.json"), noSpecies);
            sandbox->write(QStringLiteral("z.json"), "not JSON");
        }
        QVERIFY(window->loadSpecies(file));
        window->createNewSpectrumWindow();

        // Nothing is going to be lost, so nothing is asked although the document is modified.
        expectInformation(QStringLiteral("No Other Species Files"),
                          QStringLiteral("No other species JSON files found in the directory."));
        click(action.constData());
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("m.json *")));
        QCOMPARE(shownSpecies(), QStringLiteral("m.json"));
    }

    void currentFileThatLeftTheFolderIsReported_data()
    {
        QTest::addColumn<QString>("newName");
        QTest::newRow("removed") << QString();
        QTest::newRow("renamed in case only") << QStringLiteral("M.json");
        QTest::newRow("renamed to another ending") << QStringLiteral("m.txt");
    }

    void currentFileThatLeftTheFolderIsReported()
    {
        QFETCH(const QString, newName);
        writeSpecies(QStringLiteral("a.json"));
        const QString file = writeSpecies(QStringLiteral("m.json"));
        QVERIFY(window->loadSpecies(file));
        QVERIFY(newName.isEmpty() ? QFile::remove(file)
                                  : QFile::rename(file, sandbox->path(newName)));

        dialogs->expectBox(QMessageBox::Warning, QStringLiteral("Error"),
                           QStringLiteral("Current file is not in the directory."));
        clickNext();
        QCOMPARE(shownSpecies(), QStringLiteral("m.json"));
    }

    void folderThatBecameEmptyIsReported()
    {
        const QString file = writeSpecies(QStringLiteral("m.json"));
        QVERIFY(window->loadSpecies(file));
        QVERIFY(QFile::remove(file));

        expectInformation(QStringLiteral("No JSON Files"),
                          QStringLiteral("No JSON files found in the directory."));
        clickPrevious();
    }

    void currentFileThatBecameAFolderIsReported()
    {
        const QString file = writeSpecies(QStringLiteral("m.json"));
        QVERIFY(window->loadSpecies(file));
        QVERIFY(QFile::remove(file));
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("m.json")));
        writeSpecies(QStringLiteral("m.json/a.json"));

        expectInformation(QStringLiteral("No Current File"),
                          QStringLiteral("No current file loaded to step from."));
        clickNext();
        QCOMPARE(shownSpecies(), QStringLiteral("m.json"));
    }

    void cancellingTheSaveQuestionStaysWithTheFile()
    {
        const QString file = writeSpecies(QStringLiteral("a.json"));
        writeSpecies(QStringLiteral("b.json"));
        QVERIFY(window->loadSpecies(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("a.json *")));
        QCOMPARE(shownSpecies(), QStringLiteral("a.json"));
        QCOMPARE(TestSupport::subWindows(*window).size(), 1);
    }

    void discardingTheChangesStepsOn()
    {
        const QString file = writeSpecies(QStringLiteral("a.json"));
        writeSpecies(QStringLiteral("b.json"));
        const QByteArray before = sandbox->read(QStringLiteral("a.json"));
        QVERIFY(window->loadSpecies(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Discard);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("b.json")));
        QVERIFY(TestSupport::subWindows(*window).isEmpty());
        QCOMPARE(sandbox->read(QStringLiteral("a.json")), before);
    }

    void savingTheChangesWritesTheFileAndStepsOn()
    {
        const QString file = writeSpecies(QStringLiteral("a.json"));
        writeSpecies(QStringLiteral("b.json"));
        QVERIFY(window->loadSpecies(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Save);
        clickPrevious();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("b.json")));
        QVERIFY(sandbox->read(QStringLiteral("a.json")).contains("\"Dataset1\""));
    }

    void choosingAFolderAsksBeforeChangesAreLost()
    {
        writeSpecies(QStringLiteral("a.json"));
        window->createNewSpectrumWindow();

        dialogs->expectFileDialog(QStringLiteral("Select Folder"), sandbox->path());
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(QStringLiteral("(untitled) *")));
    }

    void filesAddedMeanwhileAreFound()
    {
        const QString file = writeSpecies(QStringLiteral("a.json"));
        writeSpecies(QStringLiteral("c.json"));
        QVERIFY(window->loadSpecies(file));
        writeSpecies(QStringLiteral("b.json"));

        clickNext();
        QCOMPARE(shownSpecies(), QStringLiteral("b.json"));
    }

private:
    /// A species file whose species is called like the file.
    QString writeSpecies(const QString& name) const
    {
        return sandbox->write(name, TestSupport::speciesFile(name));
    }

    /// Name of the species shown, which tells the file.
    [[nodiscard]] QString shownSpecies() const
    {
        return TestSupport::cell(*window, SpeciesModel::Name);
    }

    /// Clicks the tool button of the action.
    void click(const char* actionName)
    {
        const auto* toolBar = TestSupport::child<QToolBar>(*window, "toolBar");
        auto* action = TestSupport::child<QAction>(*window, actionName);
        QTest::mouseClick(toolBar->widgetForAction(action), Qt::LeftButton);
    }
    void clickSelectFolder() { click("actionSelectFolder"); }
    void clickPrevious() { click("actionPreviousFile"); }
    void clickNext() { click("actionNextFile"); }

    void expectInformation(const QString& title, const QString& text)
    {
        dialogs->expectBox(QMessageBox::Information, title, text);
    }
};

QTEST_MAIN(TestFolderStepping)
#include "tst_folderstepping.moc"
