// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QDir>
#include <QFileDialog>
#include <QJsonDocument>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString untitled = u"KORVELA Entry Edit - (untitled)"_s;
const QString untitledModified = u"KORVELA Entry Edit - (untitled) *"_s;

} // namespace

/// The life of a species document: its title, the question before changes are lost, clean, open,
/// save, save as and close.
class TestDocumentLife : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    // Title and flag

    void titleNamesTheFileWithoutItsFolder()
    {
        const QString path = sandbox->write(u"water.json"_s, speciesFile(u"Water"_s));
        QVERIFY(window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - water.json"_s);
        window->setModified();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - water.json *"_s);
    }

    void leavingAnEditedFieldMarksTheDocument()
    {
        typeInto(*child<QWidget>(*window, "lineEditSpecies"), u"Water"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), untitledModified);
    }

    void leavingAnUnchangedFieldMarksNothing()
    {
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s));
        QVERIFY(window->openEntry(path));
        child<QWidget>(*window, "lineEditSpecies")->setFocus();
        for (int i = 0; i < 12; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
    }

    void spectrumEditsMarkTheDocument_data()
    {
        QTest::addColumn<bool>("needsLeaving");
        QTest::newRow("lineEditTitle") << true;
        QTest::newRow("textEditComments") << true;
        QTest::newRow("textEditSpect") << false;
    }

    void spectrumEditsMarkTheDocument()
    {
        QFETCH(bool, needsLeaving);
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        typeInto(*child<QWidget>(*window, QTest::currentDataTag()), u"1 2"_s);
        if (needsLeaving)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    // The save question

    void cleanDocumentIsReplacedWithoutAQuestion()
    {
        const QString first = sandbox->write(u"a.json"_s, speciesFile(u"A"_s));
        const QString second = sandbox->write(u"b.json"_s, speciesFile(u"B"_s));
        QVERIFY(window->openEntry(first));
        QVERIFY(window->openEntry(second));
        QCOMPARE(cell(*window, SpeciesModel::Name), u"B"_s);
    }

    void saveQuestionBelongsToNoWindow()
    {
        window->setModified();
        dialogs->expect([this](QWidget& dialog) {
            const auto& box = static_cast<QMessageBox&>(dialog);
            if (box.parent() != nullptr || box.standardButtons() != threeAnswers ||
                box.defaultButton() != box.button(QMessageBox::Save))
                dialogs->complain(u"not the save question"_s);
            QTest::mouseClick(box.button(QMessageBox::Cancel), Qt::LeftButton);
        });
        trigger(*window, "actionClean");
    }

    void returnAnswersSave()
    {
        openModified(u"a.json"_s);
        dialogs->expect([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        trigger(*window, "actionClean");
        QCOMPARE(savedName(u"a.json"_s), u"changed"_s);
        QCOMPARE(window->windowTitle(), untitled);
    }

    void closingTheQuestionStops_data()
    {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("Escape") << true;
        QTest::newRow("close button") << false;
    }

    void closingTheQuestionStops()
    {
        QFETCH(bool, byEscape);
        openModified(u"a.json"_s);
        dialogs->expect([byEscape](QWidget& box) {
            if (byEscape)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                box.close();
        });
        trigger(*window, "actionClean");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"changed"_s);
    }

    // Clean

    void cleanEmptiesFormSpectraAndName()
    {
        const QString path =
            sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s, u"two"_s}));
        QVERIFY(window->openEntry(path));
        QTest::keyClick(window.get(), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(window->windowTitle(), untitled);
        QVERIFY(subWindows(*window).isEmpty());
        QCOMPARE(child<QTextEdit>(*window, "lineEditSpecies")->toPlainText(), QString());
        const auto* model = window->findChild<SpeciesModel*>();
        for (int column = 0; column < SpeciesModel::StructureImage; ++column)
            QVERIFY(model->value(column).isNull());
        QVERIFY(model->image().isNull());
        QCOMPARE(rememberedFolder(), sandbox->path());
    }

    void cleanTurnsTheBareTitleIntoUntitled()
    {
        trigger(*window, "actionClean");
        QCOMPARE(window->windowTitle(), untitled);
    }

    void cleanAsksFirst_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("nameOnDisk");
        QTest::addColumn<QString>("title");
        QTest::newRow("Save") << int(QMessageBox::Save) << u"changed"_s << untitled;
        QTest::newRow("Discard") << int(QMessageBox::Discard) << u"original"_s << untitled;
        QTest::newRow("Cancel") << int(QMessageBox::Cancel) << u"original"_s
                                << u"KORVELA Entry Edit - a.json *"_s;
    }

    void cleanAsksFirst()
    {
        QFETCH(int, answer);
        QFETCH(QString, nameOnDisk);
        QFETCH(QString, title);
        openModified(u"a.json"_s);
        dialogs->expectSaveQuestion(static_cast<QMessageBox::StandardButton>(answer));
        trigger(*window, "actionClean");
        QCOMPARE(savedName(u"a.json"_s), nameOnDisk);
        QCOMPARE(window->windowTitle(), title);
        QCOMPARE(cell(*window, SpeciesModel::Name),
                 answer == QMessageBox::Cancel ? u"changed"_s : QString());
        QCOMPARE(subWindows(*window).size(), answer == QMessageBox::Cancel ? 1 : 0);
    }

    void textLeftInAFieldDoesNotComeBackAfterClean()
    {
        typeInto(*child<QWidget>(*window, "lineEditSpecies"), u"Water"_s);
        trigger(*window, "actionClean");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(window->windowTitle(), untitled);
        QCOMPARE(cell(*window, SpeciesModel::Name), QString());
    }

    void dyingSpectraMarkNothing()
    {
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        QVERIFY(window->openEntry(path));
        typeInto(*child<QWidget>(*window, "lineEditTitle"), u"unfinished"_s);
        trigger(*window, "actionClean");
        QTRY_VERIFY(window->findChildren<QMdiSubWindow*>().isEmpty());
        QCOMPARE(window->windowTitle(), untitled);
    }

    // Open

    void openShowsTheFileAndRemembersItsFolder()
    {
        rememberFolder(sandbox->path());
        QVERIFY(QDir(sandbox->path()).mkdir(u"deep"_s));
        const QString path =
            sandbox->write(u"deep/water.json"_s, speciesFile(u"Water"_s, {u"one"_s, u"two"_s}));
        dialogs->expectFileDialog(u"Open Species JSON File"_s, path, sandbox->path());
        trigger(*window, "actionLoadSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - water.json"_s);
        QCOMPARE(child<QTextEdit>(*window, "lineEditSpecies")->toPlainText(), u"Water"_s);
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"two"_s}));
        QCOMPARE(rememberedFolder(), sandbox->path(u"deep"_s));
    }

    void openDialogStartsInTheHomeFolderAtFirst()
    {
        const QByteArray home = qgetenv("HOME");
        qputenv("HOME", sandbox->path().toLocal8Bit());
        dialogs->expectFileDialog(u"Open Species JSON File"_s, {}, sandbox->path());
        trigger(*window, "actionLoadSpecies");
        qputenv("HOME", home);
    }

    void fileDialogsOfferJsonAndAllFiles_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("actionLoadSpecies") << int(QFileDialog::AcceptOpen);
        QTest::newRow("actionSaveSpeciesAs") << int(QFileDialog::AcceptSave);
    }

    void fileDialogsOfferJsonAndAllFiles()
    {
        QFETCH(int, mode);
        dialogs->expect([this, mode](QWidget& widget) {
            auto& dialog = static_cast<QFileDialog&>(widget);
            if (dialog.nameFilters() !=
                    QStringList({u"JSON Files (*.json)"_s, u"All Files (*)"_s}) ||
                dialog.acceptMode() != mode || dialog.parentWidget() != window.get())
                dialogs->complain(u"another dialog than wanted"_s);
            dialog.reject();
        });
        trigger(*window, QTest::currentDataTag());
    }

    void cancelledOpenChangesNothing()
    {
        openModified(u"a.json"_s);
        rememberFolder(u"/nowhere"_s);
        dialogs->expectFileDialog(u"Open Species JSON File"_s, {});
        trigger(*window, "actionLoadSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"changed"_s);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void openAsksFirst_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("nameOnDisk");
        QTest::addColumn<QString>("title");
        const QString opened = u"KORVELA Entry Edit - b.json"_s;
        QTest::newRow("Save") << int(QMessageBox::Save) << u"changed"_s << opened;
        QTest::newRow("Discard") << int(QMessageBox::Discard) << u"original"_s << opened;
        QTest::newRow("Cancel") << int(QMessageBox::Cancel) << u"original"_s
                                << u"KORVELA Entry Edit - a.json *"_s;
    }

    void openAsksFirst()
    {
        QFETCH(int, answer);
        QFETCH(QString, nameOnDisk);
        QFETCH(QString, title);
        openModified(u"a.json"_s);
        const QString path = sandbox->write(u"b.json"_s, speciesFile(u"B"_s));
        dialogs->expectFileDialog(u"Open Species JSON File"_s, path);
        dialogs->expectSaveQuestion(static_cast<QMessageBox::StandardButton>(answer));
        trigger(*window, "actionLoadSpecies");
        QCOMPARE(savedName(u"a.json"_s), nameOnDisk);
        QCOMPARE(window->windowTitle(), title);
        QCOMPARE(cell(*window, SpeciesModel::Name),
                 answer == QMessageBox::Cancel ? u"changed"_s : u"B"_s);
    }

    void openGoesOnWhenSavingTheOldDocumentWasCancelled()
    {
        makeModified();
        const QString path = sandbox->write(u"b.json"_s, speciesFile(u"B"_s));
        dialogs->expectFileDialog(u"Open Species JSON File"_s, path);
        dialogs->expectSaveQuestion(QMessageBox::Save);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        trigger(*window, "actionLoadSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"B"_s);
    }

    void openGoesOnWhenSavingTheOldDocumentFailed()
    {
        openModified(u"a.json"_s);
        makeUnwritable(u"a.json"_s);
        const QString path = sandbox->write(u"b.json"_s, speciesFile(u"B"_s));
        dialogs->expectSaveQuestion(QMessageBox::Save);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for writing."_s);
        QVERIFY(window->openEntry(path));
        QCOMPARE(cell(*window, SpeciesModel::Name), u"B"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json"_s);
    }

    void missingFileLeavesTheDocument()
    {
        openModified(u"a.json"_s);
        rememberFolder(u"/nowhere"_s);
        const QString path = sandbox->path(u"missing <b>.json"_s);
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expectBox(QMessageBox::Warning, u"File Not Found"_s,
                           u"The file "_s % path % u" does not exist."_s);
        QVERIFY(!window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"changed"_s);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void foreignFileLeavesTheDocument()
    {
        openModified(u"a.json"_s);
        rememberFolder(u"/nowhere"_s);
        const QString path = sandbox->write(u"other.json"_s, spectrumFile(u"one"_s));
        dialogs->expectFileDialog(u"Open Species JSON File"_s, path);
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expectBox(QMessageBox::Warning, u"Invalid Species File"_s,
                           u"The file "_s % path % u" is not a valid species file."_s);
        trigger(*window, "actionLoadSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"changed"_s);
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void messagesBelongToTheWindow()
    {
        dialogs->expect([this](QWidget& box) {
            if (box.parentWidget() != window.get() || !box.isModal())
                dialogs->complain(u"not a modal box of the window"_s);
            box.close();
        });
        QVERIFY(!window->openEntry(sandbox->path(u"missing.json"_s)));
    }

    // Save

    void saveWritesTheOpenFileAndRemembersNoFolder()
    {
        openModified(u"a.json"_s);
        rememberFolder(u"/nowhere"_s);
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(savedName(u"a.json"_s), u"changed"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void saveOfAnUntitledDocumentAsksForAName()
    {
        makeModified();
        rememberFolder(sandbox->path());
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(u"new.json"_s),
                                  sandbox->path());
        trigger(*window, "actionSaveSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - new.json"_s);
        QCOMPARE(savedName(u"new.json"_s), u"changed"_s);
    }

    void cancelledSaveKeepsTheUntitledDocumentModified()
    {
        makeModified();
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        trigger(*window, "actionSaveSpecies");
        QCOMPARE(window->windowTitle(), untitledModified);
        QCOMPARE(rememberedFolder(), QString());
    }

    void failedSaveKeepsTheDocumentModified()
    {
        openModified(u"a.json"_s);
        makeUnwritable(u"a.json"_s);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for writing."_s);
        trigger(*window, "actionSaveSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    void saveAsStartsAtTheOpenFile()
    {
        openModified(u"a.json"_s);
        rememberFolder(u"/nowhere"_s);
        dialogs->expect([this](QWidget& widget) {
            auto& dialog = static_cast<QFileDialog&>(widget);
            if (dialog.windowTitle() != u"Save Species JSON File" ||
                dialog.directory() != QDir(sandbox->path()) ||
                child<QLineEdit>(dialog, "fileNameEdit")->text() != u"a.json")
                dialogs->complain(u"does not start at the open file"_s);
            dialog.reject();
        });
        trigger(*window, "actionSaveSpeciesAs");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(savedName(u"a.json"_s), u"original"_s);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void saveAsTakesTheNewNameAndLeavesTheOldFile()
    {
        openModified(u"a.json"_s);
        QVERIFY(QDir(sandbox->path()).mkdir(u"deep"_s));
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(u"deep/b.json"_s));
        trigger(*window, "actionSaveSpeciesAs");
        QCOMPARE(savedName(u"a.json"_s), u"original"_s);
        QCOMPARE(savedName(u"deep/b.json"_s), u"changed"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json"_s);
        QCOMPARE(rememberedFolder(), sandbox->path(u"deep"_s));
    }

    void failedSaveAsHasTakenTheNameAndTheFolder()
    {
        makeModified();
        const QString path = sandbox->path(u"no/such/folder.json"_s);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, path);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for writing."_s);
        trigger(*window, "actionSaveSpeciesAs");
        QCOMPARE(rememberedFolder(), sandbox->path(u"no/such"_s));
        window->setModified();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - folder.json *"_s);
    }

    // Close

    void closeAsksFirst_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("nameOnDisk");
        QTest::addColumn<bool>("closes");
        QTest::newRow("Save") << int(QMessageBox::Save) << u"changed"_s << true;
        QTest::newRow("Discard") << int(QMessageBox::Discard) << u"original"_s << true;
        QTest::newRow("Cancel") << int(QMessageBox::Cancel) << u"original"_s << false;
    }

    void closeAsksFirst()
    {
        QFETCH(int, answer);
        QFETCH(QString, nameOnDisk);
        QFETCH(bool, closes);
        openModified(u"a.json"_s);
        dialogs->expectSaveQuestion(static_cast<QMessageBox::StandardButton>(answer));
        QCOMPARE(window->close(), closes);
        QCOMPARE(window->isVisible(), !closes);
        QCOMPARE(savedName(u"a.json"_s), nameOnDisk);
    }

    void unmodifiedDocumentClosesWithoutAQuestion() { QVERIFY(window->close()); }

    void closeGoesOnWhenSavingWasCancelled()
    {
        makeModified();
        dialogs->expectSaveQuestion(QMessageBox::Save);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        trigger(*window, "actionExit");
        QVERIFY(!window->isVisible());
    }

    void closeGoesOnWhenSavingFailed()
    {
        openModified(u"a.json"_s);
        makeUnwritable(u"a.json"_s);
        dialogs->expectSaveQuestion(QMessageBox::Save);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for writing."_s);
        QVERIFY(window->close());
    }

private:
    static constexpr auto threeAnswers =
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel;

    void makeModified()
    {
        typeInto(*child<QWidget>(*window, "lineEditSpecies"), u"changed"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(window->windowTitle().endsWith(u" *"));
    }

    /// Opens a new file with one spectrum and changes the species name from "original".
    void openModified(const QString& name)
    {
        const QString path = sandbox->write(name, speciesFile(u"original"_s, {u"one"_s}));
        QVERIFY(window->openEntry(path));
        makeModified();
    }

    /// A folder in the file's place: not even an administrator can write into that.
    void makeUnwritable(const QString& name)
    {
        QVERIFY(QFile::remove(sandbox->path(name)));
        QVERIFY(QDir(sandbox->path()).mkdir(name));
    }

    [[nodiscard]] QString savedName(const QString& file) const
    {
        const QJsonObject root = QJsonDocument::fromJson(sandbox->read(file)).object();
        return root[u"Species"].toObject()[u"Name"].toString();
    }
};

QTEST_MAIN(TestDocumentLife)
#include "tst_documentlife.moc"
