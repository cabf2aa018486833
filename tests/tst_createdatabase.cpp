// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandboxtest.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView targetCaption("Database will be saved to...");
constexpr QLatin1StringView speciesCaption("Select JSON Files to be added to the database");
constexpr QLatin1StringView noSpecies("At least one species has to be added to the database.");
constexpr QLatin1StringView noTarget("Where shall I save the database to? (Click on Set database)");

} // namespace

/// The dialog that collects what a database is compiled from.
class TestCreateDatabase : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        TestSupport::rememberFolder(sandbox->path());
        dialog = std::make_unique<CreateDatabase>(nullptr);
        QVERIFY(TestSupport::showActive(*dialog));
    }

    void cleanup() override
    {
        dialog.reset();
        SandboxTest::cleanup();
    }

    void dialogIsNamedAndSized()
    {
        QCOMPARE(dialog->objectName(), u"CreateDatabase"_s);
        QCOMPARE(dialog->windowTitle(), u"Create database"_s);
        QCOMPARE(CreateDatabase(nullptr).size(), QSize(724, 495));
    }

    void labelsAndFieldsStandInTheirRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("labelText");
        QTest::addColumn<QString>("field");
        const auto row = [](int number, const char* label, const char* text, const char* field) {
            QTest::addRow("row %d", number)
                << number << QString::fromLatin1(label) << QString::fromLatin1(text)
                << QString::fromLatin1(field);
        };
        row(0, "label", "Database version:", "lineEdit");
        row(1, "label_2", "Data release:", "lineEdit_2");
        row(2, "label_3", "Title:", "lineEdit_3");
        row(3, "label_4", "TextLabel", "horizontalLayout_2");
        row(4, "checkBox", "Compact", "label_5");
        row(5, "", "", "listWidget");
    }

    void labelsAndFieldsStandInTheirRows()
    {
        QFETCH(const int, row);
        QFETCH(const QString, label);
        QFETCH(const QString, labelText);
        QFETCH(const QString, field);

        const auto* form = TestSupport::child<QFormLayout>(*dialog, "formLayout");
        QCOMPARE(form->rowCount(), 6);
        const QLayoutItem* labelItem = form->itemAt(row, QFormLayout::LabelRole);
        QCOMPARE(labelItem == nullptr, label.isEmpty());
        if (labelItem != nullptr) {
            QCOMPARE(labelItem->widget()->objectName(), label);
            QCOMPARE(labelItem->widget()->property("text").toString(), labelText);
        }
        QLayoutItem* fieldItem = form->itemAt(row, QFormLayout::FieldRole);
        QObject* fieldObject = fieldItem->widget();
        if (fieldObject == nullptr)
            fieldObject = fieldItem->layout();
        QCOMPARE(fieldObject->objectName(), field);
    }

    void buttonsStandInOneRow()
    {
        auto* row = TestSupport::child<QHBoxLayout>(*dialog, "horizontalLayout_2");
        QStringList buttons;
        for (int index = 0; index < row->count(); ++index) {
            const auto* button = qobject_cast<QPushButton*>(row->itemAt(index)->widget());
            QVERIFY(button != nullptr);
            buttons.append("%1: %2"_L1.arg(button->objectName(), button->text()));
        }
        QCOMPARE(buttons,
                 QStringList({u"pushButton: Set database"_s, u"pushButton_2: Add species"_s,
                              u"pushButton_3: Clear files"_s}));
    }

    void formStandsAboveOkAndCancel()
    {
        auto* layout = TestSupport::child<QVBoxLayout>(*dialog, "verticalLayout");
        QCOMPARE(dialog->layout(), layout);
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->layout()->objectName(), u"formLayout"_s);
        const auto* buttonBox = qobject_cast<QDialogButtonBox*>(layout->itemAt(1)->widget());
        QVERIFY(buttonBox != nullptr);
        QCOMPARE(buttonBox->objectName(), u"buttonBox"_s);
        QCOMPARE(buttonBox->orientation(), Qt::Horizontal);
        QCOMPARE(buttonBox->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    }

    void fieldsStartWithUsefulTexts()
    {
        QCOMPARE(dialog->databaseVersion(), u"1.0"_s);
        QCOMPARE(dialog->dataRelease(), u"3.0"_s);
        QVERIFY(!dialog->title().trimmed().isEmpty());
        QVERIFY(!dialog->title().contains(u'\n'));
        QVERIFY(dialog->files().isEmpty());
        QVERIFY(dialog->databaseFileName().isEmpty());
        QVERIFY(!dialog->isCompact());
        QCOMPARE(shownTarget(), QString());
        QVERIFY(shownFiles().isEmpty());
    }

    void typedValuesAreReadBack()
    {
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit"), u"2.1 beta"_s);
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit_2"), u"4.0"_s);
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit_3"),
                              u" Spectra <i>of</i> 2026 "_s);
        auto* compact = TestSupport::child<QCheckBox>(*dialog, "checkBox");
        QTest::mouseClick(compact, Qt::LeftButton, Qt::NoModifier, {8, compact->height() / 2});
        QCOMPARE(dialog->databaseVersion(), u"2.1 beta"_s);
        QCOMPARE(dialog->dataRelease(), u"4.0"_s);
        QCOMPARE(dialog->title(), u" Spectra <i>of</i> 2026 "_s);
        QVERIFY(dialog->isCompact());
    }

    void dialogAddsNothingToItsMetaObject()
    {
        QCOMPARE(dialog->metaObject()->methodCount(), QDialog::staticMetaObject.methodCount());
        QCOMPARE(dialog->metaObject()->propertyCount(), QDialog::staticMetaObject.propertyCount());
    }

    void targetIsShownWithoutItsFolder()
    {
        const QString target = sandbox->path(u"all.json"_s);
        chooseTarget(target);
        QCOMPARE(dialog->databaseFileName(), target);
        QCOMPARE(shownTarget(), u"all.json"_s);
        QVERIFY(!QFile::exists(target));
    }

    void targetDialogSavesJsonFiles()
    {
        dialogs->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr || chooser->windowTitle() != targetCaption ||
                chooser->acceptMode() != QFileDialog::AcceptSave ||
                chooser->nameFilters() != QStringList(u"JSON Files (*.json)"_s) ||
                chooser->directory() != QDir(sandbox->path()))
                dialogs->complain(u"another file dialog was expected"_s);
            widget.close();
        });
        clickSetDatabase();
    }

    void targetDialogOpensOnThePreviousChoice()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        chooseTarget(sandbox->path(u"out/all.json"_s));
        dialogs->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr || chooser->directory() != QDir(sandbox->path(u"out"_s)) ||
                TestSupport::child<QLineEdit>(*chooser, "fileNameEdit")->text() != "all.json"_L1)
                dialogs->complain(u"the dialog opens elsewhere"_s);
            widget.close();
        });
        clickSetDatabase();
    }

    void cancellingTheTargetForgetsIt()
    {
        addFiles({u"a.json"_s});
        chooseTarget(sandbox->path(u"all.json"_s));
        chooseTarget({});
        QCOMPARE(dialog->databaseFileName(), QString());
        QCOMPARE(shownTarget(), QString());

        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
    }

    void speciesDialogTakesSeveralJsonFiles()
    {
        dialogs->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr || chooser->windowTitle() != speciesCaption ||
                chooser->fileMode() != QFileDialog::ExistingFiles ||
                chooser->acceptMode() != QFileDialog::AcceptOpen ||
                chooser->nameFilters() != QStringList(u"JSON Files (*.json)"_s) ||
                chooser->directory() != QDir(sandbox->path()))
                dialogs->complain(u"another file dialog was expected"_s);
            widget.close();
        });
        clickAddSpecies();
        QVERIFY(dialog->files().isEmpty());
    }

    void speciesDialogAlwaysOpensInTheLastFolder()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        chooseTarget(sandbox->path(u"out/all.json"_s));
        const QString elsewhere = sandbox->write(u"out/a.json"_s, "{}");
        dialogs->expectFileDialog(speciesCaption, elsewhere, sandbox->path());
        clickAddSpecies();
        dialogs->expectFileDialog(speciesCaption, {}, sandbox->path());
        clickAddSpecies();
        QCOMPARE(dialog->files(), QStringList(elsewhere));
        QCOMPARE(TestSupport::rememberedFolder(), sandbox->path());
    }

    void filesAreListedInTheOrderAddedWithoutTheirFolder()
    {
        addFiles({u"b.json"_s, u"a.json"_s});
        addFiles({u"B10.json"_s});
        QCOMPARE(dialog->files(),
                 QStringList({sandbox->path(u"b.json"_s), sandbox->path(u"a.json"_s),
                              sandbox->path(u"B10.json"_s)}));
        QCOMPARE(shownFiles(), QStringList({u"b.json"_s, u"a.json"_s, u"B10.json"_s}));
    }

    void sameFileCanBeAddedTwice()
    {
        addFiles({u"a.json"_s});
        addFiles({u"a.json"_s});
        const QString path = sandbox->path(u"a.json"_s);
        QCOMPARE(dialog->files(), QStringList({path, path}));
        QCOMPARE(shownFiles(), QStringList({u"a.json"_s, u"a.json"_s}));
    }

    void contentOfTheFilesIsNotLookedAt()
    {
        sandbox->write(u"a.json"_s, "no JSON at all");
        dialogs->expectFileDialog(speciesCaption, sandbox->path(u"a.json"_s));
        clickAddSpecies();
        QCOMPARE(shownFiles(), QStringList(u"a.json"_s));
    }

    void cancellingTheSpeciesDialogKeepsTheList()
    {
        addFiles({u"a.json"_s});
        dialogs->expectFileDialog(speciesCaption, {});
        clickAddSpecies();
        QCOMPARE(shownFiles(), QStringList(u"a.json"_s));
        QCOMPARE(dialog->files(), QStringList(sandbox->path(u"a.json"_s)));
    }

    void namesThatLookLikeMarkupAreShownAsTyped()
    {
        const QString name = u"<b>bold<img src='x'>.json"_s;
        addFiles({name});
        chooseTarget(sandbox->path("out "_L1 + name));
        QCOMPARE(shownFiles(), QStringList(name));
        QCOMPARE(shownTarget(), "out "_L1 + name);
        QCOMPARE(TestSupport::child<QLabel>(*dialog, "label_5")->textFormat(), Qt::PlainText);
    }

    void deleteRemovesTheSelectedFiles()
    {
        addFiles({u"a.json"_s, u"b.json"_s});
        addFiles({u"c.json"_s, u"a.json"_s});
        QVERIFY(TestSupport::showActive(*dialog));
        auto* list = TestSupport::child<QListWidget>(*dialog, "listWidget");
        const auto clickOn = [list](int row, Qt::KeyboardModifiers modifiers) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                              list->visualItemRect(list->item(row)).center());
        };
        clickOn(1, {});
        clickOn(3, Qt::ControlModifier);
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(shownFiles(), QStringList({u"a.json"_s, u"c.json"_s}));
        QCOMPARE(dialog->files(),
                 QStringList({sandbox->path(u"a.json"_s), sandbox->path(u"c.json"_s)}));
        list->clearSelection();
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(dialog->files().size(), 2);
        QVERIFY(QFile::exists(sandbox->path(u"b.json"_s)));
    }

    void deleteInAFieldOfTheDialogRemovesNoFile()
    {
        addFiles({u"a.json"_s});
        QVERIFY(TestSupport::showActive(*dialog));
        auto* list = TestSupport::child<QListWidget>(*dialog, "listWidget");
        list->selectAll();
        auto* title = TestSupport::child<QLineEdit>(*dialog, "lineEdit_3");
        title->setFocus();
        title->selectAll();
        QTest::keyClick(title, Qt::Key_Delete);
        QCOMPARE(dialog->files().size(), 1);
        QCOMPARE(dialog->title(), QString());
    }

    void toolTipsTellTheWholePaths()
    {
        const QString name = u"<b>bold.json"_s;
        addFiles({name});
        chooseTarget(sandbox->path(u"all.json"_s));
        const auto* list = TestSupport::child<QListWidget>(*dialog, "listWidget");
        QVERIFY(list->item(0)->toolTip().contains(sandbox->path(name).toHtmlEscaped()));
        const auto* target = TestSupport::child<QLabel>(*dialog, "label_5");
        QVERIFY(target->toolTip().contains(sandbox->path(u"all.json"_s)));
        click("pushButton_3");
        QCOMPARE(target->toolTip(), QString());
    }

    void clearFilesForgetsTheTargetToo()
    {
        addFiles({u"a.json"_s, u"b.json"_s});
        chooseTarget(sandbox->path(u"all.json"_s));
        click("pushButton_3");
        QVERIFY(dialog->files().isEmpty());
        QVERIFY(shownFiles().isEmpty());
        QCOMPARE(dialog->databaseFileName(), QString());
        QCOMPARE(shownTarget(), QString());
        QVERIFY(QFile::exists(sandbox->path(u"a.json"_s)));

        expectWarning(noSpecies);
        clickOk();
        addFiles({u"a.json"_s});
        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
    }

    void clearFilesKeepsTheHeaderAndTheFormat()
    {
        TestSupport::child<QLineEdit>(*dialog, "lineEdit")->setText(u"9"_s);
        TestSupport::child<QCheckBox>(*dialog, "checkBox")->setChecked(true);
        click("pushButton_3");
        QCOMPARE(dialog->databaseVersion(), u"9"_s);
        QVERIFY(dialog->isCompact());
    }

    void okAsksForSpeciesFirst()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        expectWarning(noSpecies);
        clickOk();
        QVERIFY(dialog->isVisible());
        chooseTarget(sandbox->path(u"all.json"_s));
        expectWarning(noSpecies);
        clickOk();
        QVERIFY(dialog->isVisible());
        QCOMPARE(accepted.count(), 0);
    }

    void okAsksForTheTargetNext()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        addFiles({u"a.json"_s});
        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
        QCOMPARE(accepted.count(), 0);
    }

    void okWithFilesAndTargetAccepts()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        addFiles({u"a.json"_s});
        chooseTarget(sandbox->path(u"all.json"_s));
        clickOk();
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QVERIFY(!dialog->isVisible());
    }

    void cancelHidesTheDialog_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }

    void cancelHidesTheDialog()
    {
        QFETCH(const bool, byKey);
        if (byKey)
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        else
            clickButton(QDialogButtonBox::Cancel);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
    }

    void entriesSurviveBothWaysOfClosing()
    {
        TestSupport::child<QLineEdit>(*dialog, "lineEdit_3")->setText(u"Mine"_s);
        TestSupport::child<QCheckBox>(*dialog, "checkBox")->setChecked(true);
        addFiles({u"a.json"_s});
        const QString target = sandbox->path(u"all.json"_s);
        chooseTarget(target);
        for (const auto button : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
            clickButton(button);
            QVERIFY(!dialog->isVisible());
            QVERIFY(TestSupport::showActive(*dialog));
            QCOMPARE(dialog->title(), u"Mine"_s);
            QVERIFY(dialog->isCompact());
            QCOMPARE(shownFiles(), QStringList(u"a.json"_s));
            QCOMPARE(shownTarget(), u"all.json"_s);
            QCOMPARE(dialog->databaseFileName(), target);
        }
    }

private:
    void click(const char* buttonName)
    {
        QTest::mouseClick(TestSupport::child<QPushButton>(*dialog, buttonName), Qt::LeftButton);
    }
    void clickSetDatabase() { click("pushButton"); }
    void clickAddSpecies() { click("pushButton_2"); }

    void clickButton(QDialogButtonBox::StandardButton button)
    {
        const auto* box = TestSupport::child<QDialogButtonBox>(*dialog, "buttonBox");
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    }
    void clickOk() { clickButton(QDialogButtonBox::Ok); }

    void chooseTarget(const QString& path)
    {
        dialogs->expectFileDialog(targetCaption, path);
        clickSetDatabase();
    }

    /// Makes the files in the sandbox and adds them all at once.
    void addFiles(const QStringList& names)
    {
        QStringList quoted;
        for (const QString& name : names) {
            const QString path = sandbox->write(name, TestSupport::speciesFile(name));
            quoted.append(u'"' + path + u'"');
        }
        dialogs->expectFileDialog(speciesCaption, quoted.join(u' '));
        clickAddSpecies();
    }

    void expectWarning(const QString& text)
    {
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, text);
    }

    [[nodiscard]] QString shownTarget() const
    {
        return TestSupport::child<QLabel>(*dialog, "label_5")->text();
    }

    [[nodiscard]] QStringList shownFiles() const
    {
        const auto* list = TestSupport::child<QListWidget>(*dialog, "listWidget");
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts.append(list->item(row)->text());
        return texts;
    }

    std::unique_ptr<CreateDatabase> dialog;
};

QTEST_MAIN(TestCreateDatabase)
#include "tst_createdatabase.moc"
