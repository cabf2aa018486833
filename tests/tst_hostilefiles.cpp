// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfile.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QDir>
#include <QStatusBar>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

QByteArray nested(int levels)
{
    return QByteArray(levels, '[') + QByteArray(levels, ']');
}

/// A species file called "Water" with this further key.
QByteArray speciesWith(const QByteArray& key, const QByteArray& value)
{
    QByteArray file = R"({"Type": "Species v1", "Species": {"Name": "Water"}, "KEY": VALUE})";
    return file.replace("KEY", key).replace("VALUE", value);
}

} // namespace

/// Files that are not what they should be: the program lives on, says so in its words, and
/// what is open stays or goes as it should.
class TestHostileFiles : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        QVERIFY(QDir(sandbox->path()).mkdir(u"in"_s));
        const QString path = sandbox->write(u"good.json"_s, speciesFile(u"Good"_s, {u"good"_s}));
        QVERIFY(window->openEntry(path));
        rememberFolder(u"/nowhere"_s);
    }

    // Files that are refused

    void openKeepsWhatIsOpen_data() { refusedFiles(); }

    void openKeepsWhatIsOpen()
    {
        QFETCH(QByteArray, content);
        const QString path = sandbox->write(u"in/bad.json"_s, content);
        QVERIFY(!SpeciesFile::isSpeciesFile(path));
        dialogs->expectFileDialog(u"Open Species JSON File"_s, path);
        expectNoSpeciesFile(path);
        trigger(*window, "actionLoadSpecies");
        verifyGoodIsOpen();
    }

    void dropEmptiesTheDocument_data() { refusedFiles(); }

    void dropEmptiesTheDocument()
    {
        QFETCH(QByteArray, content);
        const QString path = sandbox->write(u"in/bad.json"_s, content);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           u"Species not found in JSON file. Load aborted."_s);
        QVERIFY(dropFile(*window, *window->statusBar(), path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), QString());
        QVERIFY(subWindows(*window).isEmpty());
        QCOMPARE(rememberedFolder(), sandbox->path(u"in"_s));
    }

    void openOfASpectrumKeepsWhatIsOpen_data() { refusedFiles(); }

    void openOfASpectrumKeepsWhatIsOpen()
    {
        QFETCH(QByteArray, content);
        content.replace("Species v1", "Spectrum v1");
        const QString path = sandbox->write(u"in/bad.json"_s, content);
        // The row with the other type has become a spectrum by now.
        const bool isSpectrum = qstrcmp(QTest::currentDataTag(), "spectrum") == 0;
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s,
                                  isSpectrum ? sandbox->path(u"good.json"_s) : path);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           u"Spectrum not found in JSON file. Load aborted."_s);
        trigger(*window, "actionLoadSpectrum");
        verifyGoodIsOpen();
    }

    void missingFile()
    {
        const QString path = sandbox->path(u"in/missing.json"_s);
        dialogs->expectBox(QMessageBox::Warning, u"File Not Found"_s,
                           u"The file "_s % path % u" does not exist."_s);
        QVERIFY(!window->openEntry(path));
        verifyGoodIsOpen();
    }

    void folderInTheFilesPlace()
    {
        const QString path = sandbox->path(u"in"_s);
        expectNoSpeciesFile(path);
        QVERIFY(!window->openEntry(path));
        verifyGoodIsOpen();
    }

    void fileCutOffAnywhereIsRefused()
    {
        const QByteArray whole = speciesFile(u"\u03b2-Water"_s, {u"one"_s, u"two"_s}).trimmed();
        QVERIFY(whole.size() > 500);
        const QString path = sandbox->path(u"in/bad.json"_s);
        for (qsizetype length = 0; length < whole.size(); ++length) {
            sandbox->write(u"in/bad.json"_s, whole.first(length));
            QVERIFY2(!SpeciesFile::isSpeciesFile(path), qPrintable(QString::number(length)));
        }
        for (qsizetype length = 0; length < whole.size(); length += 29) {
            sandbox->write(u"in/bad.json"_s, whole.first(length));
            expectNoSpeciesFile(path);
            QVERIFY(!window->openEntry(path));
            QVERIFY2(dialogs->passed(), dialogs->report().constData());
        }
        verifyGoodIsOpen();
        sandbox->write(u"in/bad.json"_s, whole);
        QVERIFY(window->openEntry(path));
    }

    void anySingleWrongByteEitherLoadsOrIsRefused_data()
    {
        QTest::addColumn<char>("wrong");
        QTest::newRow("NUL") << '\0';
        QTest::newRow("no UTF-8") << '\xff';
        QTest::newRow("brace") << '{';
        QTest::newRow("quote") << '"';
        QTest::newRow("backslash") << '\\';
        QTest::newRow("digit") << '9';
    }

    void anySingleWrongByteEitherLoadsOrIsRefused()
    {
        QFETCH(char, wrong);
        const QByteArray whole = speciesFile(u"Water"_s, {u"one"_s});
        const QString path = sandbox->path(u"in/bad.json"_s);
        int refused = 0;
        for (qsizetype at = 0; at < whole.size(); at += 5) {
            QByteArray broken = whole;
            broken[at] = wrong;
            sandbox->write(u"in/bad.json"_s, broken);
            if (SpeciesFile::isSpeciesFile(path)) {
                QVERIFY(window->openEntry(path));
                QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - bad.json"_s);
            } else {
                const QString title = window->windowTitle();
                const QString name = cell(*window, SpeciesModel::Name);
                const QStringList titles = spectrumTitles(*window);
                expectNoSpeciesFile(path);
                QVERIFY(!window->openEntry(path));
                QVERIFY2(dialogs->passed(), dialogs->report().constData());
                QCOMPARE(window->windowTitle(), title);
                QCOMPARE(cell(*window, SpeciesModel::Name), name);
                QCOMPARE(spectrumTitles(*window), titles);
                ++refused;
            }
        }
        QVERIFY(refused > 10);
    }

    // Odd files that are taken

    void oddFileIsTaken_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("titles");
        const QByteArray good = speciesFile(u"Water"_s, {u"one"_s});
        const QStringList one{u"one"_s};
        const QStringList none;
        QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf" + good) << one;
        QTest::newRow("blanks around") << QByteArray(" \n\t\r\n" + good + "\n\n  ") << one;
        QTest::newRow("four megabytes of blanks")
            << QByteArray(QByteArray(4'000'000, ' ') + good) << one;
        QTest::newRow("unknown key") << speciesWith("Unknown", R"({"a": [1, null]})") << none;
        QTest::newRow("empty key") << speciesWith("", "1") << none;
        QTest::newRow("type twice, right one last")
            << QByteArray(R"({"Type": "Spectrum v1", "Species": {"Name": "Water"},
                             "Type": "Species v1"})")
            << none;
        QTest::newRow("species twice") << speciesWith("Species", R"({"Name": "Water"})") << none;
        QTest::newRow("dataset twice")
            << speciesWith("Dataset1", R"({"Title": "first"}, "Dataset1": {"Title": "one"})")
            << one;
        QTest::newRow("title twice")
            << speciesWith("Dataset1", R"({"Title": "first", "Title": "one"})") << one;
        QTest::newRow("unknown escape") << speciesWith("Unknown", "\"\\x\"") << none;
        QTest::newRow("1000 levels in an unknown key")
            << speciesWith("Unknown", nested(1000)) << none;
        QTest::newRow("1000 levels for a dataset")
            << speciesWith("Dataset1", nested(1000)) << QStringList{QString()};
        QTest::newRow("1000 levels in a dataset")
            << speciesWith(
                   "Dataset1",
                   QByteArray(R"({"Title": "one", "E": VALUE})").replace("VALUE", nested(1000)))
            << one;
        QTest::newRow("dataset a number") << speciesWith("Dataset1", "7") << QStringList{QString()};
        QTest::newRow("dataset null") << speciesWith("Dataset1", "null") << QStringList{QString()};
        QTest::newRow("absurd dataset number")
            << speciesWith("Dataset999999999999999999999", R"({"Title": "one"})") << one;
        QTest::newRow("half a surrogate pair")
            << speciesWith("Dataset1", R"({"Title": "one", "DOI": "\ud800"})") << one;
        QTest::newRow("NUL character in a text")
            << speciesWith("Dataset1", R"({"Title": "one", "DOI": "a\u0000b"})") << one;
        QTest::newRow("huge picture that is none")
            << speciesWith("Species",
                           QByteArray(R"({"Name": "Water", "StructuralFormula": "TEXT"})")
                               .replace("TEXT", QByteArray(3'000'000, 'A')))
            << none;
        QTest::newRow("word of twenty thousand characters")
            << speciesWith("Dataset1", QByteArray(R"({"Title": "one", "FurtherRefs": "TEXT"})")
                                           .replace("TEXT", QByteArray(20'000, 'x')))
            << one;
        QTest::newRow("a thousand nested tables")
            << speciesWith("Dataset1",
                           QByteArray(R"({"Title": "one", "FurtherComments": "TEXT"})")
                               .replace("TEXT", QByteArray("<table><tr><td>").repeated(1000)))
            << one;
    }

    void oddFileIsTaken()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, titles);
        const QString path = sandbox->write(u"in/odd.json"_s, content);
        QVERIFY(window->openEntry(path));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - odd.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"Water"_s);
        QCOMPARE(spectrumTitles(*window), titles);
        QCOMPARE(rememberedFolder(), sandbox->path(u"in"_s));
        trigger(*window, "actionSaveSpecies");
        QVERIFY(SpeciesFile::isSpeciesFile(path));
    }

private:
    static void refusedFiles()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray good = speciesFile(u"Water"_s, {u"one"_s});
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("blanks") << QByteArray(" \n ");
        QTest::newRow("text") << QByteArray("10 1\n11 2\n");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("array") << QByteArray("[" + good + "]");
        QTest::newRow("string") << QByteArray("\"Species v1\"");
        QTest::newRow("empty object") << QByteArray("{}");
        QTest::newRow("spectrum") << spectrumFile(u"one"_s);
        QTest::newRow("database") << QByteArray(R"({"Type": "Database v1", "Entry1": {}})");
        QTest::newRow("type missing") << QByteArray(R"({"Species": {"Name": "Water"}})");
        QTest::newRow("type of another kind") << QByteArray(R"({"Type": ["Species v1"]})");
        QTest::newRow("type twice, wrong one last")
            << QByteArray(R"({"Type": "Species v1", "Type": "x"})");
        QTest::newRow("two documents") << QByteArray(good + good);
        QTest::newRow("text after it") << QByteArray(good + "x");
        QTest::newRow("NUL after it") << QByteArray(good + '\0');
        QTest::newRow("comment in it") << QByteArray("// entry\n" + good);
        QTest::newRow("trailing comma") << QByteArray(R"({"Type": "Species v1",})");
        QTest::newRow("number beyond all numbers") << speciesWith("Unknown", "1e999");
        QTest::newRow("not a number") << speciesWith("Unknown", "NaN");
        QTest::newRow("invalid UTF-8") << speciesWith("Unknown", "\"\xff\xfe\"");
        QTest::newRow("cut UTF-8") << speciesWith("Unknown", "\"\xce\"");
        QTest::newRow("3000 levels") << speciesWith("Unknown", nested(3000));
        QTest::newRow("3000 levels of nothing else") << nested(3000);
        QTest::newRow("a million open brackets") << QByteArray(1'000'000, '[');
        QTest::newRow("a million open braces") << QByteArray("{\"a\":").repeated(1'000'000);
        const QString text = QString::fromUtf8(good);
        QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char*>(text.utf16()),
                                              text.size() * 2);
        QByteArray junk(3'000'000, '\0');
        unsigned value = 1;
        for (char& byte : junk) {
            value = value * 1103515245U + 12345U;
            byte = static_cast<char>(value >> 16U);
        }
        QTest::newRow("megabytes of junk") << junk;
    }

    void expectNoSpeciesFile(const QString& path)
    {
        dialogs->expectBox(QMessageBox::Warning, u"Invalid Species File"_s,
                           u"The file "_s % path % u" is not a valid species file."_s);
    }

    void verifyGoodIsOpen() const
    {
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - good.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"Good"_s);
        QCOMPARE(spectrumTitles(*window), QStringList{u"good"_s});
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
};

QTEST_MAIN(TestHostileFiles)
#include "tst_hostilefiles.moc"
