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

namespace {

constexpr auto waterFile =
    "{\"Type\":\"Species v1\",\"Species\":{\"Name\":\"water\",\"VIE\":\"12.6\"},"
    "\"Dataset1\":{\"Title\":\"threshold\",\"SpectType\":2,\"CreatedDate\":\"2025-03-04\","
    "\"E\":[12.6,12.7],\"I\":[10,20]}}";

QJsonObject part(const QByteArray& file, const char* key)
{
    return QJsonDocument::fromJson(file).object().value(QLatin1String(key)).toObject();
}

QString text(const QJsonObject& object, const char* key)
{
    return object.value(QLatin1String(key)).toString();
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
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("entries")));
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
        sandbox->write(QStringLiteral("entries/argon.json"),
                       TestSupport::speciesFile(QStringLiteral("argon")));
        sandbox->write(QStringLiteral("entries/notes.json"), "{\"to do\":[\"helium\"]}");
        sandbox->write(QStringLiteral("entries/water.json"), waterFile);

        // In the morning a folder is chosen and looked through.
        dialogs->expectFileDialog(QStringLiteral("Select Folder"), entry({}));
        clickTool("actionSelectFolder");
        verifyDocument(QStringLiteral("argon.json"), QStringLiteral("argon"), {});
        clickTool("actionNextFile");
        verifyDocument(QStringLiteral("water.json"), QStringLiteral("water"),
                       {QStringLiteral("threshold")});

        // The entry is revised with the keyboard and kept under a new name.
        const QByteArray original = sandbox->read(QStringLiteral("entries/water.json"));
        activate();
        TestSupport::typeInto(*textField("lineEditVIE"), QStringLiteral("12.62"));
        QTest::keyClick(textField("lineEditVIE"), Qt::Key_Tab);
        QVERIFY(textField("lineEditVIEComment")->hasFocus());
        QTest::keyClicks(textField("lineEditVIEComment"), QStringLiteral("own H2O data"));
        lowerTheDigitOfWater();
        QTest::keyClick(textField("lineEditVIEComment"), Qt::Key_Tab);
        verifyDocument(QStringLiteral("water.json *"), QStringLiteral("water"),
                       {QStringLiteral("threshold")});

        dialogs->expectFileDialog(QStringLiteral("Save Species JSON File"),
                                  entry(QStringLiteral("water-2.json")), entry({}));
        TestSupport::trigger(*window, "actionSaveSpeciesAs");
        verifyDocument(QStringLiteral("water-2.json"), QStringLiteral("water"),
                       {QStringLiteral("threshold")});
        QCOMPARE(sandbox->read(QStringLiteral("entries/water.json")), original);
        const QByteArray revised = sandbox->read(QStringLiteral("entries/water-2.json"));
        QCOMPARE(text(part(revised, "Species"), "VIE"), QStringLiteral("12.62"));
        QCOMPARE(text(part(revised, "Species"), "VIE_Comment"),
                 QStringLiteral("own H<sub>2</sub>O data"));
        QCOMPARE(text(part(revised, "Dataset1"), "Title"), QStringLiteral("threshold"));

        // Its spectrum starts a new entry.
        activate();
        press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        press(Qt::Key_D, Qt::ControlModifier);
        verifyDocument(QStringLiteral("(untitled)"), {}, {});
        TestSupport::typeInto(*textField("lineEditSpecies"), QStringLiteral("heavy water"));
        QTest::keyClick(textField("lineEditSpecies"), Qt::Key_Tab);
        press(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        verifyDocument(QStringLiteral("(untitled) *"), QStringLiteral("heavy water"),
                       {QStringLiteral("threshold")});
        const SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        auto* title = TestSupport::child<QTextEdit>(*spectrum, "lineEditTitle");
        TestSupport::typeInto(*title, QStringLiteral("deuterated"));
        QTest::keyClick(title, Qt::Key_Tab);
        QTest::mouseClick(TestSupport::child<QPushButton>(*spectrum, "buttonNormalize"),
                          Qt::LeftButton);
        QCOMPARE(TestSupport::child<QPlainTextEdit>(*spectrum, "textEditSpect")->toPlainText(),
                 QStringLiteral("12.6000 500.00\n12.7000 1000.00"));

        dialogs->expectFileDialog(QStringLiteral("Save Species JSON File"),
                                  entry(QStringLiteral("heavy.json")), entry({}));
        press(Qt::Key_S, Qt::ControlModifier);
        verifyDocument(QStringLiteral("heavy.json"), QStringLiteral("heavy water"),
                       {QStringLiteral("deuterated")});
        const QByteArray heavy = sandbox->read(QStringLiteral("entries/heavy.json"));
        QCOMPARE(part(heavy, "Dataset1").value(QLatin1String("I")).toArray(),
                 QJsonArray({500, 1000}));

        // Both entries go into a database.
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton", "pushButton_2", "pushButton_2"})
                QTest::mouseClick(TestSupport::child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(QStringLiteral("Database will be saved to..."),
                                  sandbox->path(QStringLiteral("database.json")), entry({}));
        for (const auto* name : {"water-2.json", "heavy.json"})
            dialogs->expectFileDialog(
                QStringLiteral("Select JSON Files to be added to the database"),
                entry(QString::fromLatin1(name)), entry({}));
        dialogs->expectBox(QMessageBox::Information, QStringLiteral("Success"),
                           QStringLiteral("Species database created successfully."));
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        const QByteArray database = sandbox->read(QStringLiteral("database.json"));
        QCOMPARE(part(database, "Entry1").value(QLatin1String("Species")).toObject(),
                 part(revised, "Species"));
        QCOMPARE(part(database, "Entry2").value(QLatin1String("Dataset1")).toObject(),
                 part(heavy, "Dataset1"));

        // A last change is nearly forgotten.
        activate();
        TestSupport::typeInto(*textField("lineEditSumFormula"), QStringLiteral("D2O"));
        QTest::keyClick(textField("lineEditSumFormula"), Qt::Key_Tab);
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        dialogs->expectSaveQuestion(QMessageBox::Save);
        QVERIFY(window->close());
        QVERIFY(!window->isVisible());
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(
            text(part(sandbox->read(QStringLiteral("entries/heavy.json")), "Species"), "Formula"),
            QStringLiteral("D2O"));

        // The next morning starts where this day ended.
        window = std::make_unique<MainWindow>();
        activate();
        dialogs->expectFileDialog(QStringLiteral("Select Folder"), entry({}), entry({}));
        clickTool("actionNextFile");
        clickTool("actionNextFile");
        verifyDocument(QStringLiteral("heavy.json"), QStringLiteral("heavy water"),
                       {QStringLiteral("deuterated")});
    }

private:
    [[nodiscard]] QString entry(const QString& name) const
    {
        const QString folder = sandbox->path(QStringLiteral("entries"));
        return name.isEmpty() ? folder : QString(folder + QLatin1Char('/') + name);
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
        QCOMPARE(window->windowTitle(), QLatin1String("KORVELA Entry Edit - ") + title);
        QCOMPARE(TestSupport::cell(*window, SpeciesModel::Name), species);
        QCOMPARE(TestSupport::spectrumTitles(*window), spectra);
    }

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(TestWholeDay)
#include "tst_wholeday.moc"
