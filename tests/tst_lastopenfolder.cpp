// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/lastopenfolder.h"
#include "tests/support/sandbox.h"

#include <QDir>
#include <QSettings>
#include <QTest>

/// The folder in which file dialogs start.
class TestLastOpenFolder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHomeFolderAtFirst()
    {
        const Sandbox sandbox;
        QCOMPARE(LastOpenFolder::path(), QDir::homePath());
    }

    void askingStoresNothing()
    {
        const Sandbox sandbox;
        QCOMPARE(LastOpenFolder::path(), QDir::homePath());
        const QSettings settings(QStringLiteral("Ostravel"), QStringLiteral("KORVELA"));
        QCOMPARE(settings.allKeys(), QStringList());
    }

    void isTheFolderOfTheLastFile()
    {
        const Sandbox sandbox;
        LastOpenFolder::rememberFolderOf(QStringLiteral("/data/first/a.json"));
        QCOMPARE(LastOpenFolder::path(), QStringLiteral("/data/first"));
        LastOpenFolder::rememberFolderOf(QStringLiteral("/data/second/b.json"));
        QCOMPARE(LastOpenFolder::path(), QStringLiteral("/data/second"));
    }

    void isStoredUnderItsOneKey()
    {
        const Sandbox sandbox;
        LastOpenFolder::rememberFolderOf(QStringLiteral("/data/spectra/a.json"));
        const QSettings settings(QStringLiteral("Ostravel"), QStringLiteral("KORVELA"));
        QCOMPARE(settings.allKeys(), QStringList{QStringLiteral("lastOpenFolder")});
        QCOMPARE(settings.value(QStringLiteral("lastOpenFolder")),
                 QVariant(QStringLiteral("/data/spectra")));
    }

    void isReadFromTheSettings()
    {
        const Sandbox sandbox;
        QSettings(QStringLiteral("Ostravel"), QStringLiteral("KORVELA"))
            .setValue(QStringLiteral("lastOpenFolder"), QStringLiteral("/no/longer/there"));
        QCOMPARE(LastOpenFolder::path(), QStringLiteral("/no/longer/there"));
    }

    void isAbsolute_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("folder");
        const QString here = QDir::currentPath();
        QTest::newRow("bare name") << QStringLiteral("a.json") << here;
        QTest::newRow("relative") << QStringLiteral("sub/a.json") << here + u"/sub";
        QTest::newRow("blanks and letters outside ASCII")
            << QStringLiteral("/data/my sp\u00e9ctra \u03b1/a b.json")
            << QStringLiteral("/data/my sp\u00e9ctra \u03b1");
        QTest::newRow("characters special to settings files")
            << QStringLiteral("/data/a;b,c=d%20[e]@f\"g/a.json")
            << QStringLiteral("/data/a;b,c=d%20[e]@f\"g");
        QTest::newRow("at the root") << QStringLiteral("/a.json") << QStringLiteral("/");
    }

    void isAbsolute()
    {
        QFETCH(const QString, file);
        const Sandbox sandbox;
        LastOpenFolder::rememberFolderOf(file);
        QTEST(LastOpenFolder::path(), "folder");
    }
};

QTEST_MAIN(TestLastOpenFolder)
#include "tst_lastopenfolder.moc"
