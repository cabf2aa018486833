// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/applicationicon.h"
#include "app/databaseprogram.h"
#include "app/mainwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QPushButton>
#include <QTest>

#include <cstdlib>
#include <memory>

/// The program that only compiles databases.
class TestDatabaseProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        dialogs = std::make_unique<DialogScript>();
        sandbox->write(QStringLiteral("good.json"), TestSupport::speciesFile(QStringLiteral("He")));
        sandbox->write(QStringLiteral("bad.json"), TestSupport::spectrumFile(QStringLiteral("s")));
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
        expectCompilation(QStringLiteral("good.json"));
        expectSuccess();
        QCOMPARE(runDatabaseProgram(), EXIT_SUCCESS);
        QVERIFY(sandbox->read(QStringLiteral("all.json")).contains("\"Type\": \"Database v1\""));
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
        QCOMPARE(runDatabaseProgram(), EXIT_FAILURE);
    }

    void refusedSpeciesFileIsAFailure()
    {
        expectCompilation(QStringLiteral("bad.json"));
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") +
                               sandbox->path(QStringLiteral("bad.json")));
        expectFailure();
        QCOMPARE(runDatabaseProgram(), EXIT_FAILURE);
        QVERIFY(!QFile::exists(sandbox->path(QStringLiteral("all.json"))));
    }

    void targetThatCannotBeWrittenIsAFailure()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("out")));
        expectCompilation(QStringLiteral("good.json"), QStringLiteral("out/all.json"));
        expectFailure();
        QCOMPARE(runDatabaseProgram(), EXIT_FAILURE);
    }

    void missingFilesCanBeAddedAfterTheWarning()
    {
        dialogs->expect([this](QWidget& dialog) {
            close(dialog, QDialogButtonBox::Ok);
            fillIn(dialog);
        });
        dialogs->expectBox(QMessageBox::Warning, QStringLiteral("Error"),
                           QStringLiteral("At least one species has to be added to the database."));
        expectFiles(QStringLiteral("good.json"), QStringLiteral("all.json"));
        expectSuccess();
        QCOMPARE(runDatabaseProgram(), EXIT_SUCCESS);
    }

    void mainWindowStaysHidden()
    {
        dialogs->expect([this](QWidget& dialog) {
            const auto* window = qobject_cast<MainWindow*>(dialog.parentWidget());
            if (window == nullptr || window->isVisible())
                dialogs->complain(QStringLiteral("the main window shows"));
            close(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(runDatabaseProgram(), EXIT_FAILURE);
    }

    void dialogHasTheIconOfTheEditor()
    {
        setApplicationIcon();
        dialogs->expect([this](QWidget& dialog) {
            const QImage icon = dialog.windowIcon().pixmap(32).toImage();
            if (icon != QIcon(QStringLiteral(":/icons/korvela_entry.ico")).pixmap(32).toImage() ||
                icon.size() != QSize(32, 32))
                dialogs->complain(QStringLiteral("the dialog has another icon"));
            close(dialog, QDialogButtonBox::Cancel);
        });
        QCOMPARE(runDatabaseProgram(), EXIT_FAILURE);
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
        QDir(sandbox->path()).rmdir(QStringLiteral("out"));
        close(dialog, QDialogButtonBox::Ok);
    }

    void expectFiles(const QString& species, const QString& target)
    {
        dialogs->expectFileDialog(QStringLiteral("Select JSON Files to be added to the database"),
                                  sandbox->path(species));
        dialogs->expectFileDialog(QStringLiteral("Database will be saved to..."),
                                  sandbox->path(target));
    }

    void expectCompilation(const QString& species,
                           const QString& target = QStringLiteral("all.json"))
    {
        dialogs->expect([this](QWidget& dialog) { fillIn(dialog); });
        expectFiles(species, target);
    }

    void expectSuccess()
    {
        dialogs->expectBox(QMessageBox::Information, QStringLiteral("Success"),
                           QStringLiteral("Species database created successfully."));
    }

    void expectFailure()
    {
        dialogs->expectBox(QMessageBox::Warning, QStringLiteral("Error"),
                           QStringLiteral("Failed to create species database."));
    }

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
};

QTEST_MAIN(TestDatabaseProgram)
#include "tst_databaseprogram.moc"
