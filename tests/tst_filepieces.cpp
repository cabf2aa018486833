// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/exporteddataset.h"
#include "entries/exportformats.h"
#include "entries/filepieces.h"
#include "entries/rules.h"
#include "tests/support/sandbox.h"

#include <QBuffer>
#include <QTest>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 everySize = 0;

QByteArray entry(const QByteArray& name, const QByteArray& energies = "[9,10,11]")
{
    return R"({"Species":{"Name":")" + name + R"(","CAS":"10102-43-9"},"Dataset1":{"Title":"a",)" +
           R"("SpectType":2,"E":)" + energies + R"(,"I":[1,2,3]}})";
}

/// "Entry2" and "Entry10" stand in an order of their own.
QByteArray database()
{
    return "{ \"Entry10\":" + entry("ten") + ",\n\"Entry2\" : " + entry("two \\\" { [", "[9,10]") +
           ",\"Entry1\":" + entry("o\"\"ne").replace("\"\"", "") +
           R"(,"Header":{"Date":"x","Entry1":{"a":1}},"Other":[{"Entry5":{}}],"Entry3":4,)" +
           R"("Type":"Database v1"})";
}

QList<Finding> findingsIn(const QString& path, qint64 largeSize)
{
    const Rules::Selection selection;
    Rules::ToldOfFile told(selection);
    const FilePieces pieces({path}, {}, largeSize);
    QList<Finding> findings;
    for (qsizetype i = 0; i < pieces.count(); ++i) {
        findings += told.admit(Rules::judge(pieces.read(i), selection));
        if (pieces.isLastOfFile(i))
            findings += told.endFile(path);
    }
    return findings;
}

QStringList listed(const QString& path, qint64 largeSize)
{
    QStringList lines;
    for (const Finding& finding : findingsIn(path, largeSize))
        lines.append(finding.rule + u' ' + finding.place + u' ' + finding.text);
    lines.sort();
    return lines;
}

QByteArray exported(const QString& path, qint64 largeSize)
{
    const FilePieces pieces({path}, {}, largeSize);
    QByteArray lines;
    for (qsizetype i = 0; i < pieces.count(); ++i) {
        for (const ExportedDataset& dataset : ExportedDataset::of(pieces.read(i)))
            lines += ExportFormats::jsonLine(dataset);
    }
    return lines;
}

DatabaseScan scanned(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return DatabaseScan::of(buffer);
}

} // namespace

/// Large databases, read entry by entry: the same comes out.
class TestFilePieces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entriesAreFoundInTheText()
    {
        const QByteArray text = database();
        const DatabaseScan scan = scanned(text);
        QCOMPARE(scan.frame,
                 QByteArray("{ \"Entry10\":{},\n\"Entry2\" : {},\"Entry1\":{},"
                            R"("Header":{"Date":"x","Entry1":{"a":1}},"Other":[{"Entry5":{}}],)"
                            R"("Entry3":4,"Type":"Database v1"})"));
        QCOMPARE(scan.entries.size(), 3);
        const DatabaseScan::Entry& second = scan.entries.at(1);
        QCOMPARE(second.key, QByteArray("Entry2"));
        QCOMPARE(text.sliced(second.begin, second.size), entry("two \\\" { [", "[9,10]"));
        for (const char* word : {"Entry10", "Entry2", "Header", "v1"})
            QCOMPARE(scan.placeInText(scan.frame.lastIndexOf(word)), text.lastIndexOf(word));
    }

    void otherKeysAreLeftInTheFrame_data()
    {
        QTest::addColumn<QByteArray>("text");
        for (const char* text :
             {"", "{}", R"({"Entry":{}})", R"({"Entry0":{}})", R"({"Entry01":{}})",
              R"({"Entry1x":{}})", R"({"entry1":{}})", R"({"Entry1":[{}]})", R"({"Entry1":2})",
              R"(["Entry1",{}])", R"({"a":{"Entry1":{}}})", R"({"Entry\u0031":{}})", "{\"Entry1"})
            QTest::newRow(text) << QByteArray(text);
    }

    void otherKeysAreLeftInTheFrame()
    {
        QFETCH(const QByteArray, text);
        const DatabaseScan scan = scanned(text);
        QCOMPARE(scan.entries.size(), 0);
        QCOMPARE(scan.frame, text);
    }

    void theSameIsFoundAsInTheWholeFile_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("database") << database();
        QTest::newRow("byte order mark") << "\xef\xbb\xbf" + database();
        QTest::newRow("no entry 1") << database().replace("\"Entry1\":{\"S", "\"Entry4\":{\"S");
        QTest::newRow("torn in the frame") << database().chopped(3);
        QTest::newRow("text behind") << database() + "x";
        QTest::newRow("member twice")
            << database().replace("\"Title\"", R"("T":"","T":"","Title")");
        QTest::newRow("control character") << database().replace("ten", "t\ten");
        QTest::newRow("of another type") << database().replace("Database v1", "Species v1");
        QTest::newRow("species") << QByteArray(R"({"Type":"Species v1","Species":{},"Entry1":{}})");
        QTest::newRow("array") << QByteArray("[1]");
        QTest::newRow("empty") << QByteArray();
    }

    void theSameIsFoundAsInTheWholeFile()
    {
        QFETCH(const QByteArray, text);
        const Sandbox sandbox;
        const QString path = sandbox.write(u"f.json"_s, text);
        QCOMPARE(listed(path, everySize), listed(path, FilePieces::usualLargeSize));
        QVERIFY(!listed(path, everySize).isEmpty());
        QCOMPARE(exported(path, everySize), exported(path, FilePieces::usualLargeSize));
    }

    void wrongEntryIsToldByItsPlaceInTheFile()
    {
        const Sandbox sandbox;
        const QByteArray text = database().replace("[9,10]", "[9,1o]");
        const QString path = sandbox.write(u"f.json"_s, text);
        const QStringList whole = listed(path, FilePieces::usualLargeSize);
        QCOMPARE(whole.size(), 1);
        QVERIFY(whole.constFirst().contains(u"(at byte %1)"_s.arg(text.indexOf("1o") + 2)));
        QVERIFY(listed(path, everySize).contains(whole.constFirst()));
        QVERIFY(exported(path, everySize).contains("ten")); // the others are good
    }

    void entriesComeByTheirNumbers()
    {
        const Sandbox sandbox;
        const FilePieces pieces({sandbox.write(u"f.json"_s, database())}, {}, everySize);
        QCOMPARE(pieces.count(), 4);
        QStringList keys;
        for (qsizetype i = 1; i < pieces.count(); ++i)
            keys += pieces.read(i).object.keys();
        QCOMPARE(keys, (QStringList{u"Entry1"_s, u"Entry2"_s, u"Entry10"_s}));
        QVERIFY(!pieces.isLastOfFile(2));
        QVERIFY(pieces.isLastOfFile(3));
    }

    void aHundredOfARuleAreToldOfAllPieces()
    {
        QByteArray text = R"({"Type":"Database v1")";
        for (int i = 1; i <= 150; ++i)
            text += ",\"Entry" + QByteArray::number(i) + "\":{}";
        const Sandbox sandbox;
        const QString path = sandbox.write(u"f.json"_s, text + '}');
        for (const qint64 size : {everySize, FilePieces::usualLargeSize}) {
            const QList<Finding> findings = findingsIn(path, size);
            QVERIFY(findings.constLast().text.startsWith(u"There are 51 more"_s));
            QCOMPARE(std::count_if(findings.begin(), findings.end(),
                                   [](const Finding& f) { return f.rule == u"missing-member"_s; }),
                     101);
        }
    }

    void oddTextsGiveTheSameVerdict()
    {
        const Sandbox sandbox;
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same texts each time
        const QByteArray marks("{}[]:,\"\"\\ 1E");
        for (int round = 0; round < 500; ++round) {
            QByteArray text = database();
            const auto place = qsizetype(random() % text.size());
            text.replace(place, 1, QByteArray(1, marks.at(random() % marks.size())));
            const QString path = sandbox.write(u"f.json"_s, text);
            const QStringList whole = listed(path, FilePieces::usualLargeSize);
            const QStringList pieces = listed(path, everySize);
            const auto isNotJson = [](const QString& line) {
                return line.startsWith(u"not-json ");
            };
            if (std::any_of(whole.begin(), whole.end(), isNotJson))
                QVERIFY2(std::any_of(pieces.begin(), pieces.end(), isNotJson), text.constData());
            else
                QCOMPARE(pieces, whole);
        }
    }
};

QTEST_MAIN(TestFilePieces)
#include "tst_filepieces.moc"
