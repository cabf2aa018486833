// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::ProgramRun;

/// The console program as scripts use it: its general options, and "check".
class TestEntriesCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        QDir(sandbox->path()).mkdir(u"d"_s);
        const QDir examples(QStringLiteral(KORVELA_EXAMPLES_FOLDER));
        const QStringList names = examples.entryList({u"*.json"_s});
        for (const QString& name : names) {
            QFile file(examples.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            sandbox->write(u"d/"_s + name, file.readAll());
        }
        good = sandbox->read(u"d/entry11-benzene.json"_s);
        sandbox->write(u"cas.json"_s, QByteArray(good).replace("71-43-2", "71-43-3"));
        sandbox->write(u"mass.json"_s, QByteArray(good).replace("78.1118", "79.1118"));
        sandbox->write(u"torn.json"_s, good.first(good.size() / 2));
    }

    void cleanup() { sandbox.reset(); }

    void helpAndVersionAreShown_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("--help") << QStringList{u"--help"_s}
                                << QByteArray("Usage: korvela-entries COMMAND");
        QTest::newRow("-h") << QStringList{u"-h"_s} << QByteArray("Usage: korvela-entries COMMAND");
        QTest::newRow("check --help") << QStringList{u"check"_s, u"--help"_s}
                                      << QByteArray("Usage: korvela-entries check [OPTION]...");
        QTest::newRow("--version")
            << QStringList{u"--version"_s} << QByteArray("korvela-entries (KORVELA Entry Edit) 0.");
        QTest::newRow("check --rules") << QStringList{u"check"_s, u"--rules"_s}
                                       << QByteArray("unreadable (error, in the schemas)\n    ");
    }

    void helpAndVersionAreShown()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QByteArray, start);
        const ProgramRun run = entries(arguments);
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.startsWith(start), run.output.constData());
        QCOMPARE(run.errors, QByteArray());
    }

    void wrongUsageIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("error");
        const auto add = [](const QString& line, const char* error) {
            QTest::newRow(qPrintable(line))
                << line.split(u' ', Qt::SkipEmptyParts) << QByteArray(error);
        };
        add({}, "Which command?");
        add(u"compare"_s, "There is no command 'compare'.");
        add(u"check"_s, "Which files or folders?");
        add(u"check --fast d"_s, "Unknown option 'fast'.");
        add(u"check --format xml d"_s, "There is no format 'xml'; there are text and json.");
        add(u"check --disable cas d"_s, "There is no rule 'cas'; --rules lists them.");
        add(u"check d --format"_s, "Missing value after '--format'.");
    }

    void wrongUsageIsRefused()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QByteArray, error);
        const ProgramRun run = entries(arguments);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.output, QByteArray());
        const QList<QByteArray> lines = run.errors.split('\n');
        QCOMPARE(lines.at(0), "korvela-entries: " + error);
        QVERIFY(lines.at(1).contains("--help' for more information."));
    }

    void goodFolderIsGood()
    {
        const ProgramRun run = entries({u"check"_s, u"--disable"_s, u"stepping-order"_s, u"d"_s});
        QCOMPARE(run.output, QByteArray("6 files: 0 errors, 0 warnings\n"));
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.errors, QByteArray());
    }

    void eachFindingIsALine()
    {
        const ProgramRun run = entries({u"check"_s, u"cas.json"_s, u"mass.json"_s});
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.output,
                 QByteArray("cas.json: /Species/CAS: error: \"71-43-3\" is no CAS number: expected "
                            "are digits, two digits and the right check digit, as in 58-08-2. "
                            "[cas-number]\n"
                            "mass.json: /Species/Mass: warning: The mass is 79.1118; that of C6H6 "
                            "is 78.114 on average and 78.0469 with the main isotopes. "
                            "[mass-formula]\n"
                            "mass.json: /Species/InChI: warning: The InChI "
                            "InChI=1S/C6H6/c1-2-4-6-5-3-1/h1-6H stands in cas.json, too; each "
                            "species has one entry. [same-inchi]\n"
                            "2 files: 1 error, 2 warnings\n"));
    }

    void warningsAloneAreGoodUnlessStrict()
    {
        QCOMPARE(entries({u"check"_s, u"mass.json"_s}).exitCode, 0);
        const ProgramRun run = entries({u"check"_s, u"--strict"_s, u"mass.json"_s});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.output.contains("mass.json: /Species/Mass: error: "));
        QVERIFY(run.output.endsWith("1 file: 1 error, 0 warnings\n"));
    }

    void rulesAreSwitchedOffByName()
    {
        const ProgramRun run =
            entries({u"check"_s, u"--disable=cas-number,mass-formula"_s, u"--disable"_s,
                     u"same-inchi"_s, u"cas.json"_s, u"mass.json"_s});
        QCOMPARE(run.output, QByteArray("2 files: 0 errors, 0 warnings\n"));
        QCOMPARE(run.exitCode, 0);
    }

    void oneBadFileStopsNoOther()
    {
        const ProgramRun run =
            entries({u"check"_s, u"missing.json"_s, u"torn.json"_s, u"cas.json"_s, u"d"_s});
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.output.startsWith("missing.json: error: The file cannot be read"));
        QVERIFY(run.output.contains("\ntorn.json: error: This is not JSON: "));
        QVERIFY(run.output.contains("\ncas.json: /Species/CAS: error: "));
        QVERIFY(run.output.contains("\n9 files: 3 errors, "));
    }

    void folderWithoutFilesCannotBeChecked()
    {
        QDir(sandbox->path()).mkdir(u"empty"_s);
        const ProgramRun run = entries({u"check"_s, u"empty"_s});
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.errors, QByteArray("korvela-entries: No JSON files in the folder empty\n"));
    }

    void folderThatCannotBeReadIsTold()
    {
        QDir(sandbox->path()).mkdir(u"closed"_s);
        const QString closed = sandbox->path(u"closed"_s);
        QVERIFY(QFile::setPermissions(closed, {}));
        const bool isReadable = QFileInfo(closed).isReadable();
        const ProgramRun run = entries({u"check"_s, u"closed"_s, u"cas.json"_s});
        QFile::setPermissions(closed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.output.startsWith("cas.json: /Species/CAS: error: "));
        // Root reads everything; tst_inputfiles asks as somebody else.
        QCOMPARE(run.errors,
                 QByteArray(isReadable ? "korvela-entries: No JSON files in the folder closed\n"
                                       : "korvela-entries: The folder closed cannot be read.\n"));
    }

    void nothingInAFolderIsLeftOutWithoutAWord()
    {
        const ProgramRun made = TestSupport::runProgram(
            u"/bin/sh"_s,
            {u"-c"_s, u"mkdir o o/sub.json; cp cas.json o/a.json; ln -s loop1.json o/loop2.json; "
                      "ln -s loop2.json o/loop1.json; ln -s missing o/broken.json; ln -s . o/self; "
                      "mkfifo o/pipe.json; cp cas.json \"$(printf 'o/x\\377.json')\"; "
                      "cp cas.json \"$(printf 'o/line\\nfeed.json')\""_s},
            sandbox->path());
#ifdef Q_OS_LINUX
        QCOMPARE(made.exitCode, 0);
#else
        if (made.exitCode != 0)
            QSKIP("this system has no such files");
#endif
        const ProgramRun run = entries({u"check"_s, u"o"_s});
        QCOMPARE(run.exitCode, 2);
        for (const char* name : {"broken", "loop1", "loop2", "pipe"}) {
            const QByteArray line =
                QByteArray("o/") + name + ".json: error: The file cannot be read";
            QVERIFY2(run.output.contains(line), line.constData());
        }
        QVERIFY(run.output.contains("o/a.json: /Species/CAS: error: "));
        QVERIFY(run.output.contains("o/line\xef\xbf\xbd"
                                    "feed.json: /Species/CAS: error: "));
        QVERIFY(run.output.contains("\n6 files: 6 errors, "));
        QCOMPARE(run.errors, QByteArray("korvela-entries: The file o/x\xef\xbf\xbd.json cannot be "
                                        "read: its name is no UTF-8.\n"));
    }

    void fileThatIsNamedTwiceIsNoSecondEntry()
    {
        const ProgramRun run = entries({u"check"_s, u"mass.json"_s, u"mass.json"_s,
                                        u"./mass.json"_s, u"--disable=mass-formula"_s});
        QCOMPARE(run.output, QByteArray("3 files: 0 errors, 0 warnings\n"));
    }

    void entriesOfADatabaseAreComparedToo()
    {
        sandbox->write(u"db.json"_s, "{\"Type\":\"Database v1\",\"Entry1\":" + good +
                                         ",\"Entry2\":" + good + '}');
        const ProgramRun run = entries({u"check"_s, u"db.json"_s});
        QVERIFY(run.output.contains("db.json: /Entry2/Species/CAS: warning: The CAS number 71-43-2 "
                                    "stands at /Entry1/Species/CAS, too; "));
    }

    void programsGetOneObject()
    {
        const ProgramRun run = entries({u"check"_s, u"--format=json"_s, u"cas.json"_s, u"d"_s});
        QCOMPARE(run.exitCode, 1);
        const QJsonObject object = QJsonDocument::fromJson(run.output).object();
        QCOMPARE(object.value(u"Type"_s).toString(), u"Check v1"_s);
        QCOMPARE(object.value(u"files"_s).toInt(), 7);
        QCOMPARE(object.value(u"errors"_s).toInt(), 1);
        const QJsonArray findings = object.value(u"findings"_s).toArray();
        QCOMPARE(object.value(u"warnings"_s).toInt(), findings.size() - 1);
        const QJsonObject first = findings.at(0).toObject();
        QCOMPARE(first.keys(),
                 (QStringList{u"file"_s, u"place"_s, u"rule"_s, u"severity"_s, u"text"_s}));
        QCOMPARE(first.value(u"place"_s).toString(), u"/Species/CAS"_s);
        QCOMPARE(first.value(u"rule"_s).toString(), u"cas-number"_s);
        QCOMPARE(first.value(u"severity"_s).toString(), u"error"_s);
    }

    void filesOfAFolderComeInSteppingOrder()
    {
        sandbox->write(u"d/B1.json"_s, "{");
        sandbox->write(u"d/a10.json"_s, "{");
        sandbox->write(u"d/a2.JSON"_s, "{");
        const ProgramRun run = entries({u"check"_s, u"d"_s, u"--disable=stepping-order"_s});
        QStringList names;
        for (const QByteArray& line : run.output.split('\n')) {
            if (line.endsWith("[not-json]"))
                names.append(QString::fromUtf8(line.first(line.indexOf(':'))));
        }
        QCOMPARE(names, (QStringList{u"d/a2.JSON"_s, u"d/a10.json"_s, u"d/B1.json"_s}));
    }

    void hostileTextDoesNotCommandTheTerminal()
    {
        sandbox->write(u"esc.json"_s,
                       QByteArray(good).replace("71-43-2", "\\u001b[2J\\u202e\\n71"));
        const ProgramRun run = entries({u"check"_s, u"esc.json"_s});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!run.output.contains('\x1b'));
        QVERIFY(!run.output.contains("\xe2\x80\xae"));
        QCOMPARE(run.output.count('\n'), 3);
    }

    void fullDiskIsNoticed()
    {
        if (!QFile::exists(u"/dev/full"_s))
            QSKIP("needs /dev/full");
        const ProgramRun run =
            TestSupport::runProgram(u"/bin/sh"_s,
                                    {u"-c"_s, u"exec \"$0\" check d > /dev/full"_s,
                                     QStringLiteral(KORVELA_ENTRIES_PROGRAM)},
                                    sandbox->path());
        QCOMPARE(run.exitCode, 2);
    }

    void pipeIsNotWaitedFor()
    {
        const ProgramRun made =
            TestSupport::runProgram(u"/bin/sh"_s, {u"-c"_s, u"mkfifo p.json"_s}, sandbox->path());
        if (made.exitCode != 0)
            QSKIP("needs mkfifo");
        QCOMPARE(entries({u"check"_s, u"p.json"_s}).exitCode, 2);
    }

private:
    [[nodiscard]] ProgramRun entries(const QStringList& arguments) const
    {
        return TestSupport::runProgram(QStringLiteral(KORVELA_ENTRIES_PROGRAM), arguments,
                                       sandbox->path());
    }

    std::unique_ptr<Sandbox> sandbox;
    QByteArray good; ///< The entry of benzene.
};

QTEST_GUILESS_MAIN(TestEntriesCheck)
#include "tst_entriescheck.moc"
