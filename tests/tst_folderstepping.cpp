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

using namespace Qt::StringLiterals;

namespace {

constexpr auto noSpecies = R"({"Type":"Spectrum v1","Title":"no species"})";

QString titleOf(const QString& fileName)
{
    return "KORVELA Entry Edit - "_L1 + fileName;
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

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), u"a2.json"_s);
        QCOMPARE(window->windowTitle(), titleOf(u"a2.json"_s));
    }

    void nextGoesThroughTheFilesInOrderAndWrapsToTheFirst()
    {
        for (const auto* name : {"a10.json", "a2.json", "B1.json"})
            writeSpecies(QString::fromLatin1(name));
        QVERIFY(window->openEntry(sandbox->path(u"a2.json"_s)));

        QStringList visited;
        for (int step = 0; step < 4; ++step) {
            clickNext();
            visited.append(shownSpecies());
            QCOMPARE(window->windowTitle(), titleOf(visited.constLast()));
        }
        QCOMPARE(visited, QStringList({u"a10.json"_s, u"B1.json"_s, u"a2.json"_s, u"a10.json"_s}));
    }

    void previousGoesThroughTheFilesBackwardsAndWrapsToTheLast()
    {
        for (const auto* name : {"a10.json", "a2.json", "B1.json"})
            writeSpecies(QString::fromLatin1(name));
        QVERIFY(window->openEntry(sandbox->path(u"a2.json"_s)));

        QStringList visited;
        for (int step = 0; step < 4; ++step) {
            clickPrevious();
            visited.append(shownSpecies());
        }
        QCOMPARE(visited, QStringList({u"B1.json"_s, u"a10.json"_s, u"a2.json"_s, u"B1.json"_s}));
    }

    void otherFilesAreSkippedSilently()
    {
        writeSpecies(u"b.json"_s);
        writeSpecies(u"x.json"_s);
        writeSpecies(u"no-entry.txt"_s);
        sandbox->write(u"a.json"_s, noSpecies);
        sandbox->write(u"c.json"_s, noSpecies);
        sandbox->write(u"d.json"_s, R"({"Type":"Database v1"})");
        sandbox->write(u"e.json"_s, R"([{"Type":"Species v1"}])");
        sandbox->write(u"f.json"_s, R"({"Type":"species v1"})");
        sandbox->write(u"g.json"_s, R"({"Type":"Species v1"} trailing)");
        sandbox->write(u"h.json"_s, "");
        sandbox->write(u"i.json"_s, "\x89PNG\r\n\x1a\n");
        QVERIFY(QDir(sandbox->path()).mkdir(u"j.json"_s));
        sandbox->write(u"z.json"_s, noSpecies);

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), u"b.json"_s);
        clickNext();
        QCOMPARE(shownSpecies(), u"x.json"_s);
        clickNext();
        QCOMPARE(shownSpecies(), u"b.json"_s);
        clickPrevious();
        QCOMPARE(shownSpecies(), u"x.json"_s);
        clickPrevious();
        QCOMPARE(shownSpecies(), u"b.json"_s);
    }

    void filesWithAnUpperCaseEndingBelongToTheFolder()
    {
        writeSpecies(u"argon.json"_s);
        writeSpecies(u"BENZENE.JSON"_s);
        writeSpecies(u"caffeine.Json"_s);
        QVERIFY(window->openEntry(sandbox->path(u"argon.json"_s)));

        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"BENZENE.JSON"_s));
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"caffeine.Json"_s));
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"argon.json"_s));
    }

    void steppingRemembersTheFolder()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"entries"_s));
        writeSpecies(u"entries/a.json"_s);

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path(u"entries"_s));
        clickSelectFolder();
        TestSupport::trigger(*window, "actionClean");
        dialogs->expectFileDialog(u"Open Species JSON File"_s, {}, sandbox->path(u"entries"_s));
        TestSupport::trigger(*window, "actionLoadSpecies");
    }

    void folderDialogShowsFoldersAndStartsAtTheCurrentFile()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"first"_s));
        QVERIFY(QDir(sandbox->path()).mkdir(u"second"_s));
        writeSpecies(u"first/a.json"_s);
        const QString dropped = writeSpecies(u"second/b.json"_s);
        QVERIFY(window->openEntry(sandbox->path(u"first/a.json"_s)));

        // The last folder used is another one by now than that of the current file.
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s,
                                  sandbox->write(u"second/s.json"_s, noSpecies));
        TestSupport::trigger(*window, "actionLoadSpectrum");

        dialogs->expect([this](QWidget& widget) {
            auto* dialog = qobject_cast<QFileDialog*>(&widget);
            if (dialog == nullptr || dialog->windowTitle() != "Select Folder"_L1 ||
                dialog->fileMode() != QFileDialog::Directory ||
                !dialog->testOption(QFileDialog::ShowDirsOnly) ||
                dialog->directory() != QDir(sandbox->path(u"first"_s)))
                dialogs->complain(u"another folder dialog was expected"_s);
            widget.close();
        });
        clickSelectFolder();
        QCOMPARE(shownSpecies(), u"first/a.json"_s);
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
        QVERIFY(window->openEntry(sandbox->path(u"c.json"_s)));
        TestSupport::trigger(*window, "actionClean");

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path(), sandbox->path());
        click(action.constData());
        QCOMPARE(shownSpecies(), u"a.json"_s);
    }

    void cancellingTheFolderDialogChangesNothing()
    {
        const QString file = writeSpecies(u"b.json"_s);
        writeSpecies(u"a.json"_s);
        QVERIFY(window->openEntry(file));

        dialogs->expectFileDialog(u"Select Folder"_s, {}, sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), u"b.json"_s);
        QCOMPARE(window->windowTitle(), titleOf(u"b.json"_s));
    }

    void selectingTheFolderAgainStartsAtItsFirstFile()
    {
        writeSpecies(u"a.json"_s);
        const QString file = writeSpecies(u"b.json"_s);
        QVERIFY(window->openEntry(file));

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        clickSelectFolder();
        QCOMPARE(shownSpecies(), u"a.json"_s);
    }

    void folderWithoutJsonFilesIsReported()
    {
        sandbox->write(u"notes.txt"_s, "nothing");
        QVERIFY(QDir(sandbox->path()).mkdir(u"folder.json"_s));

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        expectInformation(u"No JSON Files"_s, u"No JSON files found in the directory."_s);
        clickSelectFolder();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
    }

    void folderWithoutSpeciesIsReported()
    {
        sandbox->write(u"a.json"_s, noSpecies);
        sandbox->write(u"b.json"_s, "{");

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        expectInformation(u"No Species Files"_s,
                          u"No species JSON files found in the directory."_s);
        clickSelectFolder();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
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
        const QString file = writeSpecies(u"m.json"_s);
        if (withOtherFiles) {
            sandbox->write(u"a.json"_s, noSpecies);
            sandbox->write(u"z.json"_s, "not JSON");
        }
        QVERIFY(window->openEntry(file));
        window->createNewSpectrumWindow();

        // Nothing is going to be lost, so nothing is asked although the document is modified.
        expectInformation(u"No Other Species Files"_s,
                          u"No other species JSON files found in the directory."_s);
        click(action.constData());
        QCOMPARE(window->windowTitle(), titleOf(u"m.json *"_s));
        QCOMPARE(shownSpecies(), u"m.json"_s);
    }

    void currentFileThatLeftTheFolderIsReported_data()
    {
        QTest::addColumn<QString>("newName");
        QTest::newRow("removed") << QString();
        QTest::newRow("renamed in case only") << u"M.json"_s;
        QTest::newRow("renamed to another ending") << u"m.txt"_s;
    }

    void currentFileThatLeftTheFolderIsReported()
    {
        QFETCH(const QString, newName);
        writeSpecies(u"a.json"_s);
        const QString file = writeSpecies(u"m.json"_s);
        QVERIFY(window->openEntry(file));
        QVERIFY(newName.isEmpty() ? QFile::remove(file)
                                  : QFile::rename(file, sandbox->path(newName)));

        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"Current file is not in the directory."_s);
        clickNext();
        QCOMPARE(shownSpecies(), u"m.json"_s);
    }

    void folderThatBecameEmptyIsReported()
    {
        const QString file = writeSpecies(u"m.json"_s);
        QVERIFY(window->openEntry(file));
        QVERIFY(QFile::remove(file));

        expectInformation(u"No JSON Files"_s, u"No JSON files found in the directory."_s);
        clickPrevious();
    }

    void currentFileThatBecameAFolderIsReported()
    {
        const QString file = writeSpecies(u"m.json"_s);
        QVERIFY(window->openEntry(file));
        QVERIFY(QFile::remove(file));
        QVERIFY(QDir(sandbox->path()).mkdir(u"m.json"_s));
        writeSpecies(u"m.json/a.json"_s);

        expectInformation(u"No Current File"_s, u"No current file loaded to step from."_s);
        clickNext();
        QCOMPARE(shownSpecies(), u"m.json"_s);
    }

    void cancellingTheSaveQuestionStaysWithTheFile()
    {
        const QString file = writeSpecies(u"a.json"_s);
        writeSpecies(u"b.json"_s);
        QVERIFY(window->openEntry(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"a.json *"_s));
        QCOMPARE(shownSpecies(), u"a.json"_s);
        QCOMPARE(TestSupport::subWindows(*window).size(), 1);
    }

    void discardingTheChangesStepsOn()
    {
        const QString file = writeSpecies(u"a.json"_s);
        writeSpecies(u"b.json"_s);
        const QByteArray before = sandbox->read(u"a.json"_s);
        QVERIFY(window->openEntry(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Discard);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"b.json"_s));
        QVERIFY(TestSupport::subWindows(*window).isEmpty());
        QCOMPARE(sandbox->read(u"a.json"_s), before);
    }

    void savingTheChangesWritesTheFileAndStepsOn()
    {
        const QString file = writeSpecies(u"a.json"_s);
        writeSpecies(u"b.json"_s);
        QVERIFY(window->openEntry(file));
        window->createNewSpectrumWindow();

        dialogs->expectSaveQuestion(QMessageBox::Save);
        clickPrevious();
        QCOMPARE(window->windowTitle(), titleOf(u"b.json"_s));
        QVERIFY(sandbox->read(u"a.json"_s).contains("\"Dataset1\""));
    }

    void choosingAFolderAsksBeforeChangesAreLost()
    {
        writeSpecies(u"a.json"_s);
        window->createNewSpectrumWindow();

        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        clickNext();
        QCOMPARE(window->windowTitle(), titleOf(u"(untitled) *"_s));
    }

    void filesAddedMeanwhileAreFound()
    {
        const QString file = writeSpecies(u"a.json"_s);
        writeSpecies(u"c.json"_s);
        QVERIFY(window->openEntry(file));
        writeSpecies(u"b.json"_s);

        clickNext();
        QCOMPARE(shownSpecies(), u"b.json"_s);
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
