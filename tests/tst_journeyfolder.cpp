// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/journeytest.h"
#include "tests/support/spectrumtest.h"
#include "widgets/cleantextedit.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

constexpr auto waterFile =
    "{\"Type\":\"Species v1\",\"Species\":{\"Name\":\"water\",\"VIE\":\"12.6\"},"
    "\"Dataset1\":{\"Title\":\"threshold\",\"SpectType\":2,\"CreatedDate\":\"2025-03-04\","
    "\"E\":[12.6,12.7],\"I\":[10,20]}}";

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1StringView(key)).toString();
}

} // namespace

/// A day of work on a folder of entries, from choosing it to finding it again the next morning.
class TestJourneyFolder : public JourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void entriesAreRevisedExtendedAndCompiled()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"entries"_s));
        sandbox->write(u"entries/argon.json"_s, speciesFile(u"argon"_s));
        sandbox->write(u"entries/notes.json"_s, "{\"to do\":[\"helium\"]}");
        sandbox->write(u"entries/water.json"_s, waterFile);
        go<TestJourneyFolder>({&TestJourneyFolder::lookThroughTheFolder,
                               &TestJourneyFolder::reviseAnEntry,
                               &TestJourneyFolder::keepItUnderANewName,
                               &TestJourneyFolder::startAnEntryWithItsSpectrum,
                               &TestJourneyFolder::saveTheNewEntryBesideTheOthers,
                               &TestJourneyFolder::compileBothIntoADatabase,
                               &TestJourneyFolder::nearlyForgetTheLastChange,
                               &TestJourneyFolder::findItTheNextMorning});
    }

private:
    void lookThroughTheFolder()
    {
        dialogs->expectFileDialog(u"Select Folder"_s, entry({}));
        clickTool("actionSelectFolder");
        verifyDocument(u"argon.json"_s, u"argon"_s, {});
        clickTool("actionNextFile");
        verifyDocument(u"water.json"_s, u"water"_s, {u"threshold"_s});
    }

    void reviseAnEntry()
    {
        activate();
        fill(*window, "lineEditVIE", u"12.62"_s);
        QVERIFY(field(*window, "lineEditVIEComment")->hasFocus());
        QTest::keyClicks(field(*window, "lineEditVIEComment"), u"own H2O data"_s);
        selectCharacter(5);
        press(Qt::Key_B, Qt::ControlModifier);
        press(Qt::Key_Tab);
        verifyDocument(u"water.json *"_s, u"water"_s, {u"threshold"_s});
    }

    void keepItUnderANewName()
    {
        dialogs->expectFileDialog(u"Save Species JSON File"_s, entry(u"water-2.json"_s), entry({}));
        trigger(*window, "actionSaveSpeciesAs");
        verifyDocument(u"water-2.json"_s, u"water"_s, {u"threshold"_s});
        QCOMPARE(sandbox->read(u"entries/water.json"_s), QByteArray(waterFile));
        const QJsonObject species = saved(u"entries/water-2.json"_s, "Species");
        QCOMPARE(text(species, "VIE"), u"12.62"_s);
        QCOMPARE(text(species, "VIE_Comment"), u"own H<sub>2</sub>O data"_s);
        QCOMPARE(text(saved(u"entries/water-2.json"_s, "Dataset1"), "Title"), u"threshold"_s);
    }

    void startAnEntryWithItsSpectrum()
    {
        activate();
        press(QKeySequence(u"Ctrl+Shift+C"_s));
        press(QKeySequence(u"Ctrl+D"_s));
        verifyDocument(u"(untitled)"_s, {}, {});
        fill(*window, "lineEditSpecies", u"heavy water"_s);
        press(QKeySequence(u"Ctrl+Shift+V"_s));
        verifyDocument(u"(untitled) *"_s, u"heavy water"_s, {u"threshold"_s});
        fill(firstSpectrum(), "lineEditTitle", u"deuterated"_s);
        QTest::mouseClick(child<QPushButton>(firstSpectrum(), "buttonNormalize"), Qt::LeftButton);
        QCOMPARE(pointEditor(firstSpectrum())->toPlainText(), u"12.6000 500.00\n12.7000 1000.00"_s);
    }

    void saveTheNewEntryBesideTheOthers()
    {
        dialogs->expectFileDialog(u"Save Species JSON File"_s, entry(u"heavy.json"_s), entry({}));
        press(QKeySequence(u"Ctrl+S"_s));
        verifyDocument(u"heavy.json"_s, u"heavy water"_s, {u"deuterated"_s});
        QCOMPARE(saved(u"entries/heavy.json"_s, "Dataset1").value("I"_L1).toArray(),
                 QJsonArray({500, 1000}));
    }

    void compileBothIntoADatabase()
    {
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton", "pushButton_2", "pushButton_2"})
                QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(u"Database will be saved to..."_s,
                                  sandbox->path(u"database.json"_s), entry({}));
        for (const QString& name : {u"water-2.json"_s, u"heavy.json"_s})
            dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                      entry(name), entry({}));
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(saved(u"database.json"_s, "Entry1").value("Species"_L1).toObject(),
                 saved(u"entries/water-2.json"_s, "Species"));
        QCOMPARE(saved(u"database.json"_s, "Entry2").value("Dataset1"_L1).toObject(),
                 saved(u"entries/heavy.json"_s, "Dataset1"));
    }

    void nearlyForgetTheLastChange()
    {
        activate();
        fill(*window, "lineEditSumFormula", u"D2O"_s);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        dialogs->expectSaveQuestion(QMessageBox::Save);
        QVERIFY(window->close());
        QVERIFY(!window->isVisible());
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(text(saved(u"entries/heavy.json"_s, "Species"), "Formula"), u"D2O"_s);
    }

    void findItTheNextMorning()
    {
        window = std::make_unique<MainWindow>();
        activate();
        dialogs->expectFileDialog(u"Select Folder"_s, entry({}), entry({}));
        clickTool("actionNextFile");
        clickTool("actionNextFile");
        verifyDocument(u"heavy.json"_s, u"heavy water"_s, {u"deuterated"_s});
    }

    [[nodiscard]] QString entry(const QString& name) const
    {
        const QString folder = sandbox->path(u"entries"_s);
        return name.isEmpty() ? folder : QString(folder + u'/' + name);
    }

    /// An object at the top of a saved file.
    [[nodiscard]] QJsonObject saved(const QString& file, const char* key) const
    {
        const QJsonObject whole = QJsonDocument::fromJson(sandbox->read(file)).object();
        return whole.value(QLatin1StringView(key)).toObject();
    }
};

QTEST_MAIN(TestJourneyFolder)
#include "tst_journeyfolder.moc"
