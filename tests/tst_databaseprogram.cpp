// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseprogram.h"
#include "support/applicationicon.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

/// The program that only compiles databases.
class TestDatabaseProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        dialogs = std::make_unique<DialogScript>();
        sandbox->write(u"good.json"_s, TestSupport::speciesFile(u"He"_s));
        sandbox->write(u"bad.json"_s, TestSupport::spectrumFile(u"s"_s));
    }

    void cleanup()
    {
        const bool passed = dialogs->passed();
        const QByteArray report = dialogs->report();
        dialogs.reset();
        sandbox.reset();
        QVERIFY2(passed, report.constData());
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

    void createdDatabaseIsASuccess()
    {
        expectCompilation(u"good.json"_s);
        expectSuccess();
        QCOMPARE(DatabaseProgram::run(), EXIT_SUCCESS);
        QVERIFY(sandbox->read(u"all.json"_s).contains("\"Type\": \"Database v1\""));
    }

    void cancelIsAFailure_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }

    void cancelIsAFailure()
    {
        QFETCH(const bool, byKey);
        dialogs->expect([byKey](QWidget& dialog) {
            if (byKey)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                close(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(DatabaseProgram::run(), EXIT_FAILURE);
    }

    void refusedSpeciesFileIsAFailure()
    {
        expectCompilation(u"bad.json"_s);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + sandbox->path(u"bad.json"_s));
        expectFailure();
        expectCancel();
        QCOMPARE(DatabaseProgram::run(), EXIT_FAILURE);
        QVERIFY(!QFile::exists(sandbox->path(u"all.json"_s)));
    }

    void targetThatCannotBeWrittenIsAFailure()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        expectCompilation(u"good.json"_s, u"out/all.json"_s);
        expectFailure();
        expectCancel();
        QCOMPARE(DatabaseProgram::run(), EXIT_FAILURE);
    }

    void dialogComesBackAsItWasAfterAFailure()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        expectCompilation(u"good.json"_s, u"out/all.json"_s);
        expectFailure();
        dialogs->expect([this](QWidget& dialog) {
            const auto* list = TestSupport::child<QListWidget>(dialog, "listWidget");
            if (list->count() != 1 || list->item(0)->text() != u"good.json")
                dialogs->complain(u"the list of files is forgotten"_s);
            if (TestSupport::child<QLabel>(dialog, "label_5")->text() != u"all.json")
                dialogs->complain(u"the target is forgotten"_s);
            QDir(sandbox->path()).mkdir(u"out"_s);
            close(dialog, QDialogButtonBox::Ok);
        });
        expectSuccess();
        QCOMPARE(DatabaseProgram::run(), EXIT_SUCCESS);
        QVERIFY(QFile::exists(sandbox->path(u"out/all.json"_s)));
    }

    void missingFilesCanBeAddedAfterTheWarning()
    {
        dialogs->expect([this](QWidget& dialog) {
            close(dialog, QDialogButtonBox::Ok);
            fillIn(dialog);
        });
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"At least one species has to be added to the database."_s);
        expectFiles(u"good.json"_s, u"all.json"_s);
        expectSuccess();
        QCOMPARE(DatabaseProgram::run(), EXIT_SUCCESS);
    }

    void noMainWindowIsMade()
    {
        dialogs->expect([this](QWidget& dialog) {
            if (QApplication::topLevelWidgets() != QWidgetList{&dialog})
                dialogs->complain(u"there is a window besides the dialog"_s);
            close(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(DatabaseProgram::run(), EXIT_FAILURE);
    }

    void dialogHasTheIconOfTheEditor()
    {
        setApplicationIcon();
        dialogs->expect([this](QWidget& dialog) {
            const QImage icon = dialog.windowIcon().pixmap(32).toImage();
            if (icon != QIcon(u":/icons/korvela_entry.ico"_s).pixmap(32).toImage() ||
                icon.size() != QSize(32, 32))
                dialogs->complain(u"the dialog has another icon"_s);
            close(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(DatabaseProgram::run(), EXIT_FAILURE);
    }

private:
    static void click(const QWidget& dialog, const char* button)
    {
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, button), Qt::LeftButton);
    }

    static void close(const QWidget& dialog, QDialogButtonBox::StandardButton button)
    {
        const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    }

    /// Clicks through the dialog; expectFiles() answers the file dialogs that this opens. The
    /// folder "out", where there is one, is gone by the time of OK.
    void fillIn(const QWidget& dialog)
    {
        click(dialog, "pushButton_2");
        click(dialog, "pushButton");
        QDir(sandbox->path()).rmdir(u"out"_s);
        close(dialog, QDialogButtonBox::Ok);
    }

    void expectFiles(const QString& species, const QString& target)
    {
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                  sandbox->path(species));
        dialogs->expectFileDialog(u"Database will be saved to..."_s, sandbox->path(target));
    }

    void expectCompilation(const QString& species, const QString& target = u"all.json"_s)
    {
        dialogs->expect([this](QWidget& dialog) { fillIn(dialog); });
        expectFiles(species, target);
    }

    void expectCancel()
    {
        dialogs->expect([](QWidget& dialog) { close(dialog, QDialogButtonBox::Cancel); });
    }

    void expectSuccess()
    {
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
    }

    void expectFailure()
    {
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"Failed to create species database."_s);
    }

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
};

QTEST_MAIN(TestDatabaseProgram)
#include "tst_databaseprogram.moc"
