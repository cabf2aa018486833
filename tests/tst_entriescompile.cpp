// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "database/databasefile.h"
#include "database/databaseprogram.h"
#include "tests/support/child.h"
#include "tests/support/dialogscript.h"
#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::ProgramRun;

/// "compile" of the console program: what the dialog makes, without the dialog.
class TestEntriesCompile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        QDir(sandbox->path()).mkdir(u"d"_s);
        for (int i = 1; i <= 11; ++i)
            sandbox->write(u"d/e%1.json"_s.arg(i), entry(i));
    }

    void cleanup() { sandbox.reset(); }

    void folderIsCompiledAsTheDialogDoes_data()
    {
        QTest::addColumn<bool>("compact");
        QTest::newRow("indented") << false;
        QTest::newRow("compact") << true;
    }

    void folderIsCompiledAsTheDialogDoes()
    {
        QFETCH(const bool, compact);
        QStringList arguments{u"compile"_s, u"--output=db.json"_s, u"d"_s};
        if (compact)
            arguments.append(u"--compact"_s);
        const ProgramRun run = entries(arguments);
        QCOMPARE(run.errors, QByteArray());
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.exitCode, 0);

        const CreateDatabase dialog(nullptr);
        const DatabaseFile::Header header{dialog.databaseVersion(), dialog.dataRelease(),
                                          dialog.title(), QDate::currentDate()};
        QStringList sources;
        for (int i = 1; i <= 11; ++i)
            sources.append(sandbox->path(u"d/e%1.json"_s.arg(i)));
        const auto result =
            DatabaseFile::write(sandbox->path(u"dialog.json"_s), header, sources,
                                compact ? QJsonDocument::Compact : QJsonDocument::Indented);
        QCOMPARE(result.outcome, DatabaseFile::Outcome::Written);
        QVERIFY(sandbox->read(u"db.json"_s) == sandbox->read(u"dialog.json"_s));
    }

    void dialogItselfMakesTheSameBytes_data()
    {
        QTest::addColumn<bool>("compact");
        QTest::newRow("indented") << false;
        QTest::newRow("compact") << true;
    }

    void dialogItselfMakesTheSameBytes()
    {
        QFETCH(const bool, compact);
        // Not only what the editor wrote.
        sandbox->write(
            u"d/e3.json"_s,
            R"({"Type": "Species v1", "Species": {"Name": "\u00e4\/", "Mass": 1E1}, "A": []})");
        QStringList arguments{
            u"compile"_s,       u"--output=db.json"_s,     u"--database-version=2.1"_s,
            u"--release=4 ä"_s, u"--title=<b>\"T\"</b>"_s, u"d"_s};
        if (compact)
            arguments.append(u"--compact"_s);
        QCOMPARE(entries(arguments).exitCode, 0);

        DialogScript dialogs;
        dialogs.expect([compact](QWidget& dialog) { fillIn(dialog, compact); });
        for (int i = 1; i <= 11; ++i) {
            dialogs.expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                     sandbox->path(u"d/e%1.json"_s.arg(i)));
        }
        dialogs.expectFileDialog(u"Database will be saved to..."_s,
                                 sandbox->path(u"dialog.json"_s));
        dialogs.expectBox(QMessageBox::Information, u"Success"_s,
                          u"Species database created successfully."_s);
        QCOMPARE(DatabaseProgram::run(), EXIT_SUCCESS);
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
        QVERIFY(sandbox->read(u"db.json"_s) == sandbox->read(u"dialog.json"_s));
        QVERIFY(sandbox->read(u"db.json"_s).contains("ä/"));
    }

    void entryIsNotOverwritten()
    {
        const QByteArray before = sandbox->read(u"d/e1.json"_s);
        for (const QString& output : {u"d/e1.json"_s, u"./d/../d/e1.json"_s}) {
            const ProgramRun run = entries({u"compile"_s, u"--output"_s, output, u"d"_s});
            QCOMPARE(run.exitCode, 2);
            QCOMPARE(run.errors, "korvela-entries: " + output.toUtf8() +
                                     " is one of the entries; it would be lost.\n");
            QCOMPARE(sandbox->read(u"d/e1.json"_s), before);
        }
    }

    void textsOfTheHeaderAreTakenOver()
    {
        QCOMPARE(entries({u"compile"_s, u"--output"_s, u"db.json"_s, u"--database-version"_s,
                          u"2.1"_s, u"--release"_s, u"4 ä"_s, u"--title"_s, u""_s, u"d/e2.json"_s})
                     .exitCode,
                 0);
        const QJsonObject database = QJsonDocument::fromJson(sandbox->read(u"db.json"_s)).object();
        const QJsonObject header = database.value(u"Header"_s).toObject();
        QCOMPARE(header.value(u"Version"_s).toString(), u"2.1"_s);
        QCOMPARE(header.value(u"Database"_s).toString(), u"4 ä"_s);
        QCOMPARE(header.value(u"Title"_s).toString(), QString());
        QVERIFY(database.contains(u"Entry1"_s));
        QVERIFY(!database.contains(u"Entry2"_s));
    }

    void filesAreCompiledInTheGivenOrderAndAsOftenAsGiven()
    {
        QCOMPARE(entries({u"compile"_s, u"--output=db.json"_s, u"d/e3.json"_s, u"d/e1.json"_s,
                          u"d/e3.json"_s})
                     .exitCode,
                 0);
        const QJsonObject database = QJsonDocument::fromJson(sandbox->read(u"db.json"_s)).object();
        QStringList names;
        for (const char* key : {"Entry1", "Entry2", "Entry3"}) {
            names.append(database.value(QLatin1StringView(key))
                             .toObject()
                             .value(u"Species"_s)
                             .toObject()
                             .value(u"Name"_s)
                             .toString());
        }
        QCOMPARE(names, (QStringList{u"3"_s, u"1"_s, u"3"_s}));
    }

    void unusableFileLeavesTheOldDatabase_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");
        QTest::newRow("missing") << QByteArray()
                                 << QByteArray("korvela-entries: Could not open file: bad.json\n");
        QTest::newRow("no JSON")
            << QByteArray("{")
            << QByteArray("korvela-entries: Invalid species type in file: bad.json\n");
        QTest::newRow("spectrum")
            << QByteArray("{\"Type\": \"Spectrum v1\"}")
            << QByteArray("korvela-entries: Invalid species type in file: bad.json\n");
    }

    void unusableFileLeavesTheOldDatabase()
    {
        QFETCH(const QByteArray, content);
        QFETCH(const QByteArray, message);
        sandbox->write(u"db.json"_s, "old");
        if (!content.isEmpty())
            sandbox->write(u"bad.json"_s, content);
        const ProgramRun run =
            entries({u"compile"_s, u"--output=db.json"_s, u"d"_s, u"bad.json"_s});
        QCOMPARE(run.errors, message);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(sandbox->read(u"db.json"_s), QByteArray("old"));
        QCOMPARE(QDir(sandbox->path()).entryList({u"db*"_s}).size(), 1);
    }

    void everyUnusableFileIsNamedInTheOrderOfTheList()
    {
        sandbox->write(u"bad.json"_s, "{");
        const ProgramRun run = entries({u"compile"_s, u"--output=db.json"_s, u"d/e1.json"_s,
                                        u"none.json"_s, u"d"_s, u"bad.json"_s});
        QCOMPARE(run.errors,
                 QByteArray("korvela-entries: Could not open file: none.json\n"
                            "korvela-entries: Invalid species type in file: bad.json\n"));
        QCOMPARE(run.exitCode, 2);
        QVERIFY(!QFile::exists(sandbox->path(u"db.json"_s)));
    }

    void checkRefusesEntriesWithErrors()
    {
        sandbox->write(u"bad.json"_s, entry(1).replace("58-08-2", "58-08-3"));
        const ProgramRun run =
            entries({u"compile"_s, u"--check"_s, u"--output=db.json"_s, u"bad.json"_s});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.output.startsWith("bad.json: /Species/CAS: error: "));
        QVERIFY(!QFile::exists(sandbox->path(u"db.json"_s)));
        QCOMPARE(entries({u"compile"_s, u"--output=db.json"_s, u"bad.json"_s}).exitCode, 0);
    }

    void checkLetsWarningsPass()
    {
        const ProgramRun run =
            entries({u"compile"_s, u"--check"_s, u"--output=db.json"_s, u"d/e1.json"_s});
        QCOMPARE(run.output, QByteArray());
        QCOMPARE(run.exitCode, 0);
    }

    void targetThatCannotBeWrittenIsTold()
    {
        const ProgramRun run = entries({u"compile"_s, u"--output=missing/db.json"_s, u"d"_s});
        QCOMPARE(run.errors, QByteArray("korvela-entries: missing/db.json cannot be written.\n"));
        QCOMPARE(run.exitCode, 2);
    }

    void fullDiskIsNoticedAndLeavesTheOldDatabase()
    {
        sandbox->write(u"db.json"_s, "old");
        const ProgramRun run = TestSupport::runProgram(
            u"/bin/sh"_s,
            {u"-c"_s, u"trap '' XFSZ; ulimit -f 1; exec \"$0\" compile --output=db.json d"_s,
             QStringLiteral(KORVELA_ENTRIES_PROGRAM)},
            sandbox->path());
        if (run.exitCode == 127)
            QSKIP("needs a shell");
        QCOMPARE(run.errors, QByteArray("korvela-entries: db.json cannot be written.\n"));
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(sandbox->read(u"db.json"_s), QByteArray("old"));
    }

    void missingArgumentsAreAskedFor()
    {
        QVERIFY(entries({u"compile"_s, u"d"_s}).errors.contains("(--output)"));
        QVERIFY(entries({u"compile"_s, u"--output=x"_s}).errors.contains("At least one species"));
        QCOMPARE(entries({u"compile"_s, u"--output=x"_s}).exitCode, 2);
    }

private:
    static void fillIn(const QWidget& dialog, bool compact)
    {
        TestSupport::child<QLineEdit>(dialog, "lineEdit")->setText(u"2.1"_s);
        TestSupport::child<QLineEdit>(dialog, "lineEdit_2")->setText(u"4 ä"_s);
        TestSupport::child<QLineEdit>(dialog, "lineEdit_3")->setText(u"<b>\"T\"</b>"_s);
        TestSupport::child<QCheckBox>(dialog, "checkBox")->setChecked(compact);
        for (int i = 1; i <= 11; ++i) {
            QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton_2"),
                              Qt::LeftButton);
        }
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton"), Qt::LeftButton);
        const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }

    static QByteArray entry(int number)
    {
        const QJsonObject species{{u"Name"_s, QString::number(number)},
                                  {u"Aliases"_s, u"ä"_s},
                                  {u"Mass"_s, 30.006},
                                  {u"Formula"_s, u"NO"_s},
                                  {u"InChI"_s, QString()},
                                  {u"CAS"_s, u"58-08-2"_s},
                                  {u"PubChem"_s, QString()},
                                  {u"AIE"_s, QString()},
                                  {u"VIE"_s, QString()},
                                  {u"AIE_Comment"_s, QString()},
                                  {u"VIE_Comment"_s, QString()}};
        return QJsonDocument(QJsonObject{{u"Type"_s, u"Species v1"_s}, {u"Species"_s, species}})
            .toJson(QJsonDocument::Compact);
    }

    [[nodiscard]] ProgramRun entries(const QStringList& arguments) const
    {
        return TestSupport::runProgram(QStringLiteral(KORVELA_ENTRIES_PROGRAM), arguments,
                                       sandbox->path());
    }

    std::unique_ptr<Sandbox> sandbox;
};

QTEST_MAIN(TestEntriesCompile)
#include "tst_entriescompile.moc"
