// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The page for curators: its commands do what it says, with the entries that it says.
class TestCurating : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void walkGoesAsWritten()
    {
        const QString bash = QStandardPaths::findExecutable(u"bash"_s);
        QVERIFY2(!bash.isEmpty(), "bash is missing");
        const QString docs = QStringLiteral(KORVELA_DOCS_FOLDER);
        const QString programs = QFileInfo(QStringLiteral(KORVELA_ENTRIES_PROGRAM)).path();
        const Sandbox sandbox;
        const TestSupport::ProgramRun run = TestSupport::runProgram(
            bash,
            {u"-c"_s, u"PATH=$1:$PATH; exec \"$2\" \"$3/curating.md\" \"$3\""_s, u"bash"_s,
             programs, QStringLiteral(KORVELA_WALK_SCRIPT), docs},
            sandbox.path());
        QVERIFY2(run.exitCode == 0, QByteArray(run.output + run.errors).constData());
        QVERIFY2(run.output.endsWith(" commands do what curating.md says\n"),
                 run.output.constData());
    }

    void entriesAreThoseThatTheToolMakes()
    {
        const Sandbox sandbox;
        const QDir kept(QStringLiteral(KORVELA_DOCS_FOLDER) + u"/curating"_s);
        const TestSupport::ProgramRun run = TestSupport::runProgram(
            QStringLiteral(KORVELA_CURATING_PROGRAM), {u"made"_s}, sandbox.path());
        QCOMPARE(run.exitCode, 0);
        const QStringList names = QDir(sandbox.path(u"made"_s)).entryList(QDir::Files);
        QCOMPARE(names.size(), 20);
        QCOMPARE(kept.entryList(QDir::Files), names);
        for (const QString& name : names)
            QCOMPARE(contentOf(kept.filePath(name)), sandbox.read(u"made/"_s + name));
    }
};

QTEST_GUILESS_MAIN(TestCurating)
#include "tst_curating.moc"
