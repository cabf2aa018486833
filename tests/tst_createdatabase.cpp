// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

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

namespace {

constexpr QLatin1String targetCaption("Database will be saved to...");
constexpr QLatin1String speciesCaption("Select JSON Files to be added to the database");
constexpr QLatin1String noSpecies("At least one species has to be added to the database.");
constexpr QLatin1String noTarget("Where shall I save the database to? (Click on Set database)");

} // namespace

/// The dialog that collects what a database is compiled from.
class TestCreateDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        TestSupport::rememberFolder(sandbox->path());
        script = std::make_unique<DialogScript>();
        dialog = std::make_unique<CreateDatabase>(nullptr);
        QVERIFY(TestSupport::showActive(*dialog));
    }

    void cleanup()
    {
        const bool passed = script->passed();
        const QByteArray report = script->report();
        dialog.reset();
        script.reset();
        sandbox.reset();
        QVERIFY2(passed, report.constData());
    }

    void dialogIsNamedAndSized()
    {
        QCOMPARE(dialog->objectName(), QStringLiteral("CreateDatabase"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Create database"));
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
            buttons.append(QLatin1String("%1: %2").arg(button->objectName(), button->text()));
        }
        QCOMPARE(buttons, QStringList({QStringLiteral("pushButton: Set database"),
                                       QStringLiteral("pushButton_2: Add species"),
                                       QStringLiteral("pushButton_3: Clear files")}));
    }

    void formStandsAboveOkAndCancel()
    {
        auto* layout = TestSupport::child<QVBoxLayout>(*dialog, "verticalLayout");
        QCOMPARE(dialog->layout(), layout);
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->layout()->objectName(), QStringLiteral("formLayout"));
        const auto* buttonBox = qobject_cast<QDialogButtonBox*>(layout->itemAt(1)->widget());
        QVERIFY(buttonBox != nullptr);
        QCOMPARE(buttonBox->objectName(), QStringLiteral("buttonBox"));
        QCOMPARE(buttonBox->orientation(), Qt::Horizontal);
        QCOMPARE(buttonBox->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    }

    void fieldsStartWithUsefulTexts()
    {
        QCOMPARE(dialog->databaseVersion(), QStringLiteral("1.0"));
        QCOMPARE(dialog->dataRelease(), QStringLiteral("3.0"));
        QVERIFY(!dialog->title().trimmed().isEmpty());
        QVERIFY(!dialog->title().contains(QLatin1Char('\n')));
        QVERIFY(dialog->files().isEmpty());
        QVERIFY(dialog->databaseFileName().isEmpty());
        QVERIFY(!dialog->isCompact());
        QCOMPARE(shownTarget(), QString());
        QVERIFY(shownFiles().isEmpty());
    }

    void typedValuesAreReadBack()
    {
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit"),
                              QStringLiteral("2.1 beta"));
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit_2"),
                              QStringLiteral("4.0"));
        TestSupport::typeInto(*TestSupport::child<QLineEdit>(*dialog, "lineEdit_3"),
                              QStringLiteral(" Spectra <i>of</i> 2026 "));
        auto* compact = TestSupport::child<QCheckBox>(*dialog, "checkBox");
        QTest::mouseClick(compact, Qt::LeftButton, Qt::NoModifier, {8, compact->height() / 2});
        QCOMPARE(dialog->databaseVersion(), QStringLiteral("2.1 beta"));
        QCOMPARE(dialog->dataRelease(), QStringLiteral("4.0"));
        QCOMPARE(dialog->title(), QStringLiteral(" Spectra <i>of</i> 2026 "));
        QVERIFY(dialog->isCompact());
    }

    void dialogAddsNothingToItsMetaObject()
    {
        QCOMPARE(dialog->metaObject()->methodCount(), QDialog::staticMetaObject.methodCount());
        QCOMPARE(dialog->metaObject()->propertyCount(), QDialog::staticMetaObject.propertyCount());
    }

    void targetIsShownWithoutItsFolder()
    {
        const QString target = sandbox->path(QStringLiteral("all.json"));
        chooseTarget(target);
        QCOMPARE(dialog->databaseFileName(), target);
        QCOMPARE(shownTarget(), QStringLiteral("all.json"));
        QVERIFY(!QFile::exists(target));
    }

    void targetDialogSavesJsonFiles()
    {
        script->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr || chooser->windowTitle() != targetCaption ||
                chooser->acceptMode() != QFileDialog::AcceptSave ||
                chooser->nameFilters() != QStringList(QStringLiteral("JSON Files (*.json)")) ||
                chooser->directory() != QDir(sandbox->path()))
                script->complain(QStringLiteral("another file dialog was expected"));
            widget.close();
        });
        clickSetDatabase();
    }

    void targetDialogOpensOnThePreviousChoice()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("out")));
        chooseTarget(sandbox->path(QStringLiteral("out/all.json")));
        script->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr ||
                chooser->directory() != QDir(sandbox->path(QStringLiteral("out"))) ||
                TestSupport::child<QLineEdit>(*chooser, "fileNameEdit")->text() !=
                    QLatin1String("all.json"))
                script->complain(QStringLiteral("the dialog opens elsewhere"));
            widget.close();
        });
        clickSetDatabase();
    }

    void cancellingTheTargetForgetsIt()
    {
        addFiles({QStringLiteral("a.json")});
        chooseTarget(sandbox->path(QStringLiteral("all.json")));
        chooseTarget({});
        QCOMPARE(dialog->databaseFileName(), QString());
        QCOMPARE(shownTarget(), QString());

        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
    }

    void speciesDialogTakesSeveralJsonFiles()
    {
        script->expect([this](QWidget& widget) {
            auto* chooser = qobject_cast<QFileDialog*>(&widget);
            if (chooser == nullptr || chooser->windowTitle() != speciesCaption ||
                chooser->fileMode() != QFileDialog::ExistingFiles ||
                chooser->acceptMode() != QFileDialog::AcceptOpen ||
                chooser->nameFilters() != QStringList(QStringLiteral("JSON Files (*.json)")) ||
                chooser->directory() != QDir(sandbox->path()))
                script->complain(QStringLiteral("another file dialog was expected"));
            widget.close();
        });
        clickAddSpecies();
        QVERIFY(dialog->files().isEmpty());
    }

    void speciesDialogAlwaysOpensInTheLastFolder()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("out")));
        chooseTarget(sandbox->path(QStringLiteral("out/all.json")));
        const QString elsewhere = sandbox->write(QStringLiteral("out/a.json"), "{}");
        script->expectFileDialog(speciesCaption, elsewhere, sandbox->path());
        clickAddSpecies();
        script->expectFileDialog(speciesCaption, {}, sandbox->path());
        clickAddSpecies();
        QCOMPARE(dialog->files(), QStringList(elsewhere));
        QCOMPARE(TestSupport::rememberedFolder(), sandbox->path());
    }

    void filesAreListedInTheOrderAddedWithoutTheirFolder()
    {
        addFiles({QStringLiteral("b.json"), QStringLiteral("a.json")});
        addFiles({QStringLiteral("B10.json")});
        QCOMPARE(dialog->files(), QStringList({sandbox->path(QStringLiteral("b.json")),
                                               sandbox->path(QStringLiteral("a.json")),
                                               sandbox->path(QStringLiteral("B10.json"))}));
        QCOMPARE(shownFiles(), QStringList({QStringLiteral("b.json"), QStringLiteral("a.json"),
                                            QStringLiteral("B10.json")}));
    }

    void sameFileCanBeAddedTwice()
    {
        addFiles({QStringLiteral("a.json")});
        addFiles({QStringLiteral("a.json")});
        const QString path = sandbox->path(QStringLiteral("a.json"));
        QCOMPARE(dialog->files(), QStringList({path, path}));
        QCOMPARE(shownFiles(), QStringList({QStringLiteral("a.json"), QStringLiteral("a.json")}));
    }

    void contentOfTheFilesIsNotLookedAt()
    {
        sandbox->write(QStringLiteral("a.json"), "no JSON at all");
        script->expectFileDialog(speciesCaption, sandbox->path(QStringLiteral("a.json")));
        clickAddSpecies();
        QCOMPARE(shownFiles(), QStringList(QStringLiteral("a.json")));
    }

    void cancellingTheSpeciesDialogKeepsTheList()
    {
        addFiles({QStringLiteral("a.json")});
        script->expectFileDialog(speciesCaption, {});
        clickAddSpecies();
        QCOMPARE(shownFiles(), QStringList(QStringLiteral("a.json")));
        QCOMPARE(dialog->files(), QStringList(sandbox->path(QStringLiteral("a.json"))));
    }

    void namesThatLookLikeMarkupAreShownAsTyped()
    {
        const QString name = QStringLiteral("<b>bold<img src='x'>.json");
        addFiles({name});
        chooseTarget(sandbox->path(QLatin1String("out ") + name));
        QCOMPARE(shownFiles(), QStringList(name));
        QCOMPARE(shownTarget(), QLatin1String("out ") + name);
        QCOMPARE(TestSupport::child<QLabel>(*dialog, "label_5")->textFormat(), Qt::PlainText);
    }

    void clearFilesForgetsTheTargetToo()
    {
        addFiles({QStringLiteral("a.json"), QStringLiteral("b.json")});
        chooseTarget(sandbox->path(QStringLiteral("all.json")));
        click("pushButton_3");
        QVERIFY(dialog->files().isEmpty());
        QVERIFY(shownFiles().isEmpty());
        QCOMPARE(dialog->databaseFileName(), QString());
        QCOMPARE(shownTarget(), QString());
        QVERIFY(QFile::exists(sandbox->path(QStringLiteral("a.json"))));

        expectWarning(noSpecies);
        clickOk();
        addFiles({QStringLiteral("a.json")});
        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
    }

    void clearFilesKeepsTheHeaderAndTheFormat()
    {
        TestSupport::child<QLineEdit>(*dialog, "lineEdit")->setText(QStringLiteral("9"));
        TestSupport::child<QCheckBox>(*dialog, "checkBox")->setChecked(true);
        click("pushButton_3");
        QCOMPARE(dialog->databaseVersion(), QStringLiteral("9"));
        QVERIFY(dialog->isCompact());
    }

    void okAsksForSpeciesFirst()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        expectWarning(noSpecies);
        clickOk();
        QVERIFY(dialog->isVisible());
        chooseTarget(sandbox->path(QStringLiteral("all.json")));
        expectWarning(noSpecies);
        clickOk();
        QVERIFY(dialog->isVisible());
        QCOMPARE(accepted.count(), 0);
    }

    void okAsksForTheTargetNext()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        addFiles({QStringLiteral("a.json")});
        expectWarning(noTarget);
        clickOk();
        QVERIFY(dialog->isVisible());
        QCOMPARE(accepted.count(), 0);
    }

    void okWithFilesAndTargetAccepts()
    {
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        addFiles({QStringLiteral("a.json")});
        chooseTarget(sandbox->path(QStringLiteral("all.json")));
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
        TestSupport::child<QLineEdit>(*dialog, "lineEdit_3")->setText(QStringLiteral("Mine"));
        TestSupport::child<QCheckBox>(*dialog, "checkBox")->setChecked(true);
        addFiles({QStringLiteral("a.json")});
        const QString target = sandbox->path(QStringLiteral("all.json"));
        chooseTarget(target);
        for (const auto button : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel}) {
            clickButton(button);
            QVERIFY(!dialog->isVisible());
            QVERIFY(TestSupport::showActive(*dialog));
            QCOMPARE(dialog->title(), QStringLiteral("Mine"));
            QVERIFY(dialog->isCompact());
            QCOMPARE(shownFiles(), QStringList(QStringLiteral("a.json")));
            QCOMPARE(shownTarget(), QStringLiteral("all.json"));
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
        script->expectFileDialog(targetCaption, path);
        clickSetDatabase();
    }

    /// Makes the files in the sandbox and adds them all at once.
    void addFiles(const QStringList& names)
    {
        QStringList quoted;
        for (const QString& name : names) {
            const QString path = sandbox->write(name, TestSupport::speciesFile(name));
            quoted.append(QLatin1Char('"') + path + QLatin1Char('"'));
        }
        script->expectFileDialog(speciesCaption, quoted.join(QLatin1Char(' ')));
        clickAddSpecies();
    }

    void expectWarning(const QString& text)
    {
        script->expectBox(QMessageBox::Warning, QStringLiteral("Error"), text);
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

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> script;
    std::unique_ptr<CreateDatabase> dialog;
};

QTEST_MAIN(TestCreateDatabase)
#include "tst_createdatabase.moc"
