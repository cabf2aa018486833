// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dearfiles.h"
#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QFile>
#include <QStandardPaths>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::ProgramRun;

/// The console program on a terminal: "script" gives it one that nobody sees.
class TestEntriesTerminal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        script = QStandardPaths::findExecutable(u"script"_s);
        QVERIFY2(!script.isEmpty(), "the program script is missing (Debian package: bsdutils)");
    }

    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        sandbox->write(u"bad.json"_s, "{");
    }

    void cleanup() { sandbox.reset(); }

    void coloursAreForTerminals_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("coloured");
        QTest::newRow("terminal") << u"TERM=xterm $0 check bad.json"_s << true;
        QTest::newRow("NO_COLOR") << u"TERM=xterm NO_COLOR=1 $0 check bad.json"_s << false;
        QTest::newRow("empty NO_COLOR") << u"TERM=xterm NO_COLOR= $0 check bad.json"_s << true;
        QTest::newRow("dumb terminal") << u"TERM=dumb $0 check bad.json"_s << false;
        QTest::newRow("pipe") << u"TERM=xterm $0 check bad.json | cat"_s << false;
        QTest::newRow("JSON") << u"TERM=xterm $0 check --format json bad.json"_s << false;
        QTest::newRow("refused to compile")
            << u"TERM=xterm $0 compile --check --output x bad.json"_s << true;
    }

    void coloursAreForTerminals()
    {
        QFETCH(const QString, command);
        QFETCH(const bool, coloured);
        const ProgramRun run = onTerminal(command);
        QVERIFY2(run.output.contains("bad.json"), run.output.constData());
        QCOMPARE(run.output.contains("\x1b[1;31merror\x1b[0m"), coloured);
        QCOMPARE(run.output.contains('\x1b'), coloured);
    }

    void warningsHaveAColourOfTheirOwn()
    {
        sandbox->write(u"warning.json"_s,
                       R"({"Type":"Species v1","Species":{"Name":"","AIE":"a"}})");
        const ProgramRun run = onTerminal(u"TERM=xterm $0 check warning.json"_s);
        QVERIFY2(run.output.contains("\x1b[1;33mwarning\x1b[0m"), run.output.constData());
    }

    /// A drawing that takes all the time that it is given is long enough for progress to show.
    void longWorkShowsItsProgress_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<bool>("shown");
        QTest::newRow("terminal") << u"TERM=xterm $0 check dear.json"_s << true;
        QTest::newRow("errors elsewhere") << u"TERM=xterm $0 check dear.json 2> errors"_s << false;
        QTest::newRow("dumb terminal") << u"TERM=dumb $0 check dear.json"_s << false;
    }

    void longWorkShowsItsProgress()
    {
        QFETCH(const QString, command);
        QFETCH(const bool, shown);
        const auto& drawings = DearFiles::drawings();
        const auto curves =
            std::find_if(drawings.begin(), drawings.end(), [](const DearFiles::Family& family) {
                return qstrcmp(family.name, "drawing/curves") == 0;
            });
        QVERIFY(curves != drawings.end());
        sandbox->write(u"dear.json"_s, curves->make(curves->size));
        const ProgramRun run = onTerminal(command);
        const QByteArray progress("\r\x1b[K0 of 1 files");
        QCOMPARE(run.output.contains(progress), shown);
        if (shown) // it is gone in the end
            QVERIFY(run.output.lastIndexOf("\r\x1b[K") > run.output.lastIndexOf(progress));
        QVERIFY(!QFile::exists(sandbox->path(u"errors"_s)) || sandbox->read(u"errors"_s).isEmpty());
    }

private:
    /// A command line in which $0 is the program.
    [[nodiscard]] ProgramRun onTerminal(QString command) const
    {
        command.replace(u"$0"_s, u'\'' + QStringLiteral(KORVELA_ENTRIES_PROGRAM) + u'\'');
        return TestSupport::runProgram(script, {u"-q"_s, u"-e"_s, u"-c"_s, command, u"/dev/null"_s},
                                       sandbox->path());
    }

    QString script;
    std::unique_ptr<Sandbox> sandbox;
};

QTEST_GUILESS_MAIN(TestEntriesTerminal)
#include "tst_entriesterminal.moc"
