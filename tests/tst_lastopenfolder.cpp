// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/lastopenfolder.h"
#include "tests/support/sandboxtest.h"

#include <QDir>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

/// The folder in which file dialogs start.
class TestLastOpenFolder : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTheHomeFolderAtFirst() { QCOMPARE(LastOpenFolder::path(), QDir::homePath()); }

    void askingStoresNothing()
    {
        QCOMPARE(LastOpenFolder::path(), QDir::homePath());
        const QSettings settings(u"Ostravel"_s, u"KORVELA"_s);
        QCOMPARE(settings.allKeys(), QStringList());
    }

    void isTheFolderOfTheLastFile()
    {
        LastOpenFolder::rememberFolderOf(u"/data/first/a.json"_s);
        QCOMPARE(LastOpenFolder::path(), u"/data/first"_s);
        LastOpenFolder::rememberFolderOf(u"/data/second/b.json"_s);
        QCOMPARE(LastOpenFolder::path(), u"/data/second"_s);
    }

    void isStoredUnderItsOneKey()
    {
        LastOpenFolder::rememberFolderOf(u"/data/spectra/a.json"_s);
        const QSettings settings(u"Ostravel"_s, u"KORVELA"_s);
        QCOMPARE(settings.allKeys(), QStringList{u"lastOpenFolder"_s});
        QCOMPARE(settings.value(u"lastOpenFolder"_s), QVariant(u"/data/spectra"_s));
    }

    void isReadFromTheSettings()
    {
        QSettings(u"Ostravel"_s, u"KORVELA"_s).setValue(u"lastOpenFolder"_s, u"/no/longer/there"_s);
        QCOMPARE(LastOpenFolder::path(), u"/no/longer/there"_s);
    }

    void isAbsolute_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("folder");
        const QString here = QDir::currentPath();
        QTest::newRow("bare name") << u"a.json"_s << here;
        QTest::newRow("relative") << u"sub/a.json"_s << here + u"/sub";
        QTest::newRow("blanks and letters outside ASCII")
            << u"/data/my sp\u00e9ctra \u03b1/a b.json"_s << u"/data/my sp\u00e9ctra \u03b1"_s;
        QTest::newRow("characters special to settings files")
            << u"/data/a;b,c=d%20[e]@f\"g/a.json"_s << u"/data/a;b,c=d%20[e]@f\"g"_s;
        QTest::newRow("at the root") << u"/a.json"_s << u"/"_s;
    }

    void isAbsolute()
    {
        QFETCH(const QString, file);
        LastOpenFolder::rememberFolderOf(file);
        QTEST(LastOpenFolder::path(), "folder");
    }
};

QTEST_MAIN(TestLastOpenFolder)
#include "tst_lastopenfolder.moc"
