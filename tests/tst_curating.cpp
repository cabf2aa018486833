// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/entriesprogram.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A command as the page shows it, and what it shows below.
struct Step
{
    QByteArray command;
    QByteArray output;
};

/// The commands behind "$ " in the console blocks of a page.
QList<Step> stepsOf(const QByteArray& page)
{
    QList<Step> steps;
    bool inBlock = false;
    for (const QByteArray& line : page.split('\n')) {
        if (line.startsWith("```"))
            inBlock = line == "```console";
        else if (inBlock && line.startsWith("$ "))
            steps.append({line.sliced(2), {}});
        else if (inBlock && !steps.isEmpty())
            steps.last().output += line + '\n';
    }
    return steps;
}

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
        const QString docs = QStringLiteral(KORVELA_DOCS_FOLDER);
        const QList<Step> steps = stepsOf(contentOf(docs + u"/curating.md"_s));
        QVERIFY(steps.size() >= 8);
        const Sandbox sandbox;
        const QByteArray programs =
            QFile::encodeName(QFileInfo(QStringLiteral(KORVELA_ENTRIES_PROGRAM)).path());
        for (const Step& step : steps) {
            QByteArray command = step.command;
            command.replace("/usr/share/doc/korvela-entry-edit/docs", QFile::encodeName(docs));
            const TestSupport::ProgramRun run = TestSupport::runProgram(
                u"/bin/sh"_s,
                {u"-c"_s, QString::fromUtf8("PATH=" + programs + ":$PATH; " + command)},
                sandbox.path());
            QVERIFY2(run.exitCode == 0 || run.exitCode == 1, step.command.constData());
            QCOMPARE(run.output + run.errors, step.output);
        }
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
