// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto waterFile =
    "{\"Type\":\"Species v1\",\"Species\":{\"Name\":\"water\",\"VIE\":\"12.6\"},"
    "\"Dataset1\":{\"Title\":\"threshold\",\"SpectType\":2,\"CreatedDate\":\"2025-03-04\","
    "\"E\":[12.6,12.7],\"I\":[10,20]}}";

QJsonObject part(const QByteArray& file, const char* key)
{
    return QJsonDocument::fromJson(file).object().value(QLatin1StringView(key)).toObject();
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1StringView(key)).toString();
}

} // namespace

/// A day of work with the editor, from the first folder to the last question.
class TestWholeDay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        QVERIFY(QDir(sandbox->path()).mkdir(u"entries"_s));
        dialogs = std::make_unique<DialogScript>();
        window = std::make_unique<MainWindow>();
        QVERIFY(TestSupport::showActive(*window));
    }

    void cleanup()
    {
        window.reset();
        dialogs.reset();
        sandbox.reset();
    }

    void entriesAreRevisedExtendedAndCompiled()
    {
        sandbox->write(u"entries/argon.json"_s, TestSupport::speciesFile(u"argon"_s));
        sandbox->write(u"entries/notes.json"_s, "{\"to do\":[\"helium\"]}");
        sandbox->write(u"entries/water.json"_s, waterFile);

        // In the morning a folder is chosen and looked through.
        dialogs->expectFileDialog(u"Select Folder"_s, entry({}));
        clickTool("actionSelectFolder");
        verifyDocument(u"argon.json"_s, u"argon"_s, {});
        clickTool("actionNextFile");
        verifyDocument(u"water.json"_s, u"water"_s, {u"threshold"_s});

        // The entry is revised with the keyboard and kept under a new name.
        const QByteArray original = sandbox->read(u"entries/water.json"_s);
        activate();
        TestSupport::typeInto(*textField("lineEditVIE"), u"12.62"_s);
        QTest::keyClick(textField("lineEditVIE"), Qt::Key_Tab);
        QVERIFY(textField("lineEditVIEComment")->hasFocus());
        QTest::keyClicks(textField("lineEditVIEComment"), u"own H2O data"_s);
        lowerTheDigitOfWater();
        QTest::keyClick(textField("lineEditVIEComment"), Qt::Key_Tab);
        verifyDocument(u"water.json *"_s, u"water"_s, {u"threshold"_s});

        dialogs->expectFileDialog(u"Save Species JSON File"_s, entry(u"water-2.json"_s), entry({}));
        TestSupport::trigger(*window, "actionSaveSpeciesAs");
        verifyDocument(u"water-2.json"_s, u"water"_s, {u"threshold"_s});
        QCOMPARE(sandbox->read(u"entries/water.json"_s), original);
        const QByteArray revised = sandbox->read(u"entries/water-2.json"_s);
        QCOMPARE(text(part(revised, "Species"), "VIE"), u"12.62"_s);
        QCOMPARE(text(part(revised, "Species"), "VIE_Comment"), u"own H<sub>2</sub>O data"_s);
        QCOMPARE(text(part(revised, "Dataset1"), "Title"), u"threshold"_s);

        // Its spectrum starts a new entry.
        activate();
        press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        press(Qt::Key_D, Qt::ControlModifier);
        verifyDocument(u"(untitled)"_s, {}, {});
        TestSupport::typeInto(*textField("lineEditSpecies"), u"heavy water"_s);
        QTest::keyClick(textField("lineEditSpecies"), Qt::Key_Tab);
        press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        verifyDocument(u"(untitled) *"_s, u"heavy water"_s, {u"threshold"_s});
        const SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        auto* title = TestSupport::child<QTextEdit>(*spectrum, "lineEditTitle");
        TestSupport::typeInto(*title, u"deuterated"_s);
        QTest::keyClick(title, Qt::Key_Tab);
        QTest::mouseClick(TestSupport::child<QPushButton>(*spectrum, "buttonNormalize"),
                          Qt::LeftButton);
        QCOMPARE(TestSupport::child<QPlainTextEdit>(*spectrum, "textEditSpect")->toPlainText(),
                 u"12.6000 500.00\n12.7000 1000.00"_s);

        dialogs->expectFileDialog(u"Save Species JSON File"_s, entry(u"heavy.json"_s), entry({}));
        press(Qt::Key_S, Qt::ControlModifier);
        verifyDocument(u"heavy.json"_s, u"heavy water"_s, {u"deuterated"_s});
        const QByteArray heavy = sandbox->read(u"entries/heavy.json"_s);
        QCOMPARE(part(heavy, "Dataset1").value("I"_L1).toArray(), QJsonArray({500, 1000}));

        // Both entries go into a database.
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton", "pushButton_2", "pushButton_2"})
                QTest::mouseClick(TestSupport::child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(u"Database will be saved to..."_s,
                                  sandbox->path(u"database.json"_s), entry({}));
        for (const auto* name : {"water-2.json", "heavy.json"})
            dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                      entry(QString::fromLatin1(name)), entry({}));
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        const QByteArray database = sandbox->read(u"database.json"_s);
        QCOMPARE(part(database, "Entry1").value("Species"_L1).toObject(), part(revised, "Species"));
        QCOMPARE(part(database, "Entry2").value("Dataset1"_L1).toObject(), part(heavy, "Dataset1"));

        // A last change is nearly forgotten.
        activate();
        TestSupport::typeInto(*textField("lineEditSumFormula"), u"D2O"_s);
        QTest::keyClick(textField("lineEditSumFormula"), Qt::Key_Tab);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        dialogs->expectSaveQuestion(QMessageBox::Save);
        QVERIFY(window->close());
        QVERIFY(!window->isVisible());
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(text(part(sandbox->read(u"entries/heavy.json"_s), "Species"), "Formula"),
                 u"D2O"_s);

        // The next morning starts where this day ended.
        window = std::make_unique<MainWindow>();
        activate();
        dialogs->expectFileDialog(u"Select Folder"_s, entry({}), entry({}));
        clickTool("actionNextFile");
        clickTool("actionNextFile");
        verifyDocument(u"heavy.json"_s, u"heavy water"_s, {u"deuterated"_s});
    }

private:
    [[nodiscard]] QString entry(const QString& name) const
    {
        const QString folder = sandbox->path(u"entries"_s);
        return name.isEmpty() ? folder : QString(folder + u'/' + name);
    }

    [[nodiscard]] QTextEdit* textField(const char* name) const
    {
        return TestSupport::child<QTextEdit>(*window, name);
    }

    void activate() { QVERIFY(TestSupport::showActive(*window)); }

    void clickTool(const char* actionName)
    {
        const auto* toolBar = TestSupport::child<QToolBar>(*window, "toolBar");
        auto* action = TestSupport::child<QAction>(*window, actionName);
        QTest::mouseClick(toolBar->widgetForAction(action), Qt::LeftButton);
    }

    /// Presses a shortcut wherever the focus is.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QWidget* target = window->focusWidget();
        QTest::keyClick(target == nullptr ? window.get() : target, key, modifiers);
    }

    /// Selects the 2 of "own H2O data", just typed, and lowers it.
    void lowerTheDigitOfWater()
    {
        QTextEdit* field = textField("lineEditVIEComment");
        QTest::keyClick(field, Qt::Key_Home);
        for (int step = 0; step < 5; ++step)
            QTest::keyClick(field, Qt::Key_Right);
        QTest::keyClick(field, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(field, Qt::Key_B, Qt::ControlModifier);
    }

    void verifyDocument(const QString& title, const QString& species, const QStringList& spectra)
    {
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(window->windowTitle(), "KORVELA Entry Edit - "_L1 + title);
        QCOMPARE(TestSupport::cell(*window, SpeciesModel::Name), species);
        QCOMPARE(TestSupport::spectrumTitles(*window), spectra);
    }

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(TestWholeDay)
#include "tst_wholeday.moc"
