// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseassembly.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace {

const DatabaseAssembly::Header& header()
{
    static const DatabaseAssembly::Header plain{QStringLiteral("1.0"), QStringLiteral("3.0"),
                                                QStringLiteral("Spectra"), QDate(2026, 2, 1)};
    return plain;
}

QJsonObject speciesFile(int mass)
{
    return {{QStringLiteral("Type"), QStringLiteral("Species v1")},
            {QStringLiteral("Species"), QJsonObject{{QStringLiteral("Mass"), mass}}}};
}

QByteArray textOf(const DatabaseAssembly::Header& head, const QList<QJsonObject>& files,
                  QJsonDocument::JsonFormat format)
{
    QByteArray text = DatabaseAssembly::beginning(format);
    const QList<int> order = DatabaseAssembly::entryOrder(static_cast<int>(files.size()));
    for (const int number : order)
        text += DatabaseAssembly::entry(number, files.at(number - 1), format);
    return text + DatabaseAssembly::end(head, format);
}

QJsonObject assembled(const DatabaseAssembly::Header& head, const QList<QJsonObject>& files)
{
    return QJsonDocument::fromJson(textOf(head, files, QJsonDocument::Compact)).object();
}

QByteArray compact(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

/// The content of a database, put together from the contents of species files.
class TestDatabaseAssembly : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void headerCarriesTheTextsAndTheDay()
    {
        QCOMPARE(compact(assembled(header(), {})),
                 QByteArray("{\"Header\":{\"Database\":\"3.0\",\"Date\":\"2026-02-01\","
                            "\"Title\":\"Spectra\",\"Version\":\"1.0\"},"
                            "\"Type\":\"Database v1\"}"));
    }

    void headerTextsAreTakenAsTyped()
    {
        const DatabaseAssembly::Header typed{QString(), QStringLiteral(" 3 "),
                                             QStringLiteral("<b>\"A\" & \\ B</b>"),
                                             QDate(1999, 12, 31)};
        const QJsonObject written = assembled(typed, {}).value(QStringLiteral("Header")).toObject();
        QCOMPARE(written.size(), 4);
        QCOMPARE(written.value(QStringLiteral("Version")), QJsonValue(QString()));
        QCOMPARE(written.value(QStringLiteral("Database")), QJsonValue(QStringLiteral(" 3 ")));
        QCOMPARE(written.value(QStringLiteral("Title")),
                 QJsonValue(QStringLiteral("<b>\"A\" & \\ B</b>")));
        QCOMPARE(written.value(QStringLiteral("Date")), QJsonValue(QStringLiteral("1999-12-31")));
    }

    void entriesAreNumberedInTheirOrder()
    {
        const QJsonObject database =
            assembled(header(), {speciesFile(30), speciesFile(10), speciesFile(20)});
        QCOMPARE(database.keys(), QStringList({QStringLiteral("Entry1"), QStringLiteral("Entry2"),
                                               QStringLiteral("Entry3"), QStringLiteral("Header"),
                                               QStringLiteral("Type")}));
        QCOMPARE(compact(database.value(QStringLiteral("Entry1")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":30}}"));
        QCOMPARE(compact(database.value(QStringLiteral("Entry2")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":10}}"));
        QCOMPARE(compact(database.value(QStringLiteral("Entry3")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":20}}"));
    }

    void sameFileTwiceMakesTwoEntries()
    {
        const QJsonObject database = assembled(header(), {speciesFile(18), speciesFile(18)});
        QCOMPARE(compact(database.value(QStringLiteral("Entry1")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":18}}"));
        QCOMPARE(compact(database.value(QStringLiteral("Entry2")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":18}}"));
    }

    void numbersHaveNoLeadingZerosSoEntry10ComesBeforeEntry2()
    {
        QList<QJsonObject> files;
        for (int mass = 1; mass <= 11; ++mass)
            files.append(speciesFile(mass));
        const QJsonObject database = assembled(header(), files);
        QCOMPARE(database.keys(),
                 QStringList(
                     {QStringLiteral("Entry1"), QStringLiteral("Entry10"),
                      QStringLiteral("Entry11"), QStringLiteral("Entry2"), QStringLiteral("Entry3"),
                      QStringLiteral("Entry4"), QStringLiteral("Entry5"), QStringLiteral("Entry6"),
                      QStringLiteral("Entry7"), QStringLiteral("Entry8"), QStringLiteral("Entry9"),
                      QStringLiteral("Header"), QStringLiteral("Type")}));
        QCOMPARE(compact(database.value(QStringLiteral("Entry11")).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":11}}"));
    }

    void entryIsTheWholeFileButForItsType()
    {
        QJsonObject file = speciesFile(18);
        file.insert(QStringLiteral("Dataset1"),
                    QJsonObject{{QStringLiteral("Type"), QStringLiteral("Spectrum v1")},
                                {QStringLiteral("E"), QJsonArray{1, QStringLiteral("two")}}});
        file.insert(QStringLiteral("Dataset007"), QJsonValue(QJsonValue::Null));
        file.insert(QStringLiteral("Note"), QStringLiteral("<i>kept</i>"));
        const QJsonObject database = assembled(header(), {file});
        QCOMPARE(compact(database.value(QStringLiteral("Entry1")).toObject()),
                 QByteArray("{\"Dataset007\":null,"
                            "\"Dataset1\":{\"E\":[1,\"two\"],\"Type\":\"Spectrum v1\"},"
                            "\"Note\":\"<i>kept</i>\",\"Species\":{\"Mass\":18}}"));
    }

    void givenFileStaysAsItIs()
    {
        const QJsonObject file = speciesFile(18);
        QVERIFY(!DatabaseAssembly::entry(1, file, QJsonDocument::Compact).isEmpty());
        QCOMPARE(file.value(QStringLiteral("Type")), QJsonValue(QStringLiteral("Species v1")));
    }

    void piecesMakeUpTheTextOfTheToolkit_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("no entry") << 0;
        QTest::newRow("one") << 1;
        QTest::newRow("a dozen") << 12;
        QTest::newRow("a hundred and eleven") << 111;
    }
    void piecesMakeUpTheTextOfTheToolkit()
    {
        QFETCH(int, count);
        QList<QJsonObject> files;
        for (int mass = 1; mass <= count; ++mass)
            files.append(speciesFile(mass));
        if (count > 1) {
            files.first() = QJsonObject{{QStringLiteral("Type"), QStringLiteral("Species v1")}};
            files.last().insert(QStringLiteral("Note"), QStringLiteral("{\n}\u00b5\u2028"));
        }
        const QJsonObject whole = assembled(header(), files);
        QCOMPARE(whole.size(), count + 2);
        for (const auto format : {QJsonDocument::Compact, QJsonDocument::Indented})
            QCOMPARE(textOf(header(), files, format), QJsonDocument(whole).toJson(format));
    }

    void indentedTextHasFourBlanksALevel()
    {
        QCOMPARE(textOf(header(), {speciesFile(18)}, QJsonDocument::Indented),
                 QByteArray("{\n"
                            "    \"Entry1\": {\n"
                            "        \"Species\": {\n"
                            "            \"Mass\": 18\n"
                            "        }\n"
                            "    },\n"
                            "    \"Header\": {\n"
                            "        \"Database\": \"3.0\",\n"
                            "        \"Date\": \"2026-02-01\",\n"
                            "        \"Title\": \"Spectra\",\n"
                            "        \"Version\": \"1.0\"\n"
                            "    },\n"
                            "    \"Type\": \"Database v1\"\n"
                            "}\n"));
    }
};

QTEST_MAIN(TestDatabaseAssembly)
#include "tst_databaseassembly.moc"
