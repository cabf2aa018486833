// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/databaseassembly.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const DatabaseAssembly::Header& header()
{
    static const DatabaseAssembly::Header plain{u"1.0"_s, u"3.0"_s, u"Spectra"_s,
                                                QDate(2026, 2, 1)};
    return plain;
}

QJsonObject speciesFile(int mass)
{
    return {{u"Type"_s, u"Species v1"_s}, {u"Species"_s, QJsonObject{{u"Mass"_s, mass}}}};
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
        const DatabaseAssembly::Header typed{QString(), u" 3 "_s, u"<b>\"A\" & \\ B</b>"_s,
                                             QDate(1999, 12, 31)};
        const QJsonObject written = assembled(typed, {}).value(u"Header"_s).toObject();
        QCOMPARE(written.size(), 4);
        QCOMPARE(written.value(u"Version"_s), QJsonValue(QString()));
        QCOMPARE(written.value(u"Database"_s), QJsonValue(u" 3 "_s));
        QCOMPARE(written.value(u"Title"_s), QJsonValue(u"<b>\"A\" & \\ B</b>"_s));
        QCOMPARE(written.value(u"Date"_s), QJsonValue(u"1999-12-31"_s));
    }

    void entriesAreNumberedInTheirOrder()
    {
        const QJsonObject database =
            assembled(header(), {speciesFile(30), speciesFile(10), speciesFile(20)});
        QCOMPARE(database.keys(),
                 QStringList({u"Entry1"_s, u"Entry2"_s, u"Entry3"_s, u"Header"_s, u"Type"_s}));
        QCOMPARE(compact(database.value(u"Entry1"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":30}}"));
        QCOMPARE(compact(database.value(u"Entry2"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":10}}"));
        QCOMPARE(compact(database.value(u"Entry3"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":20}}"));
    }

    void sameFileTwiceMakesTwoEntries()
    {
        const QJsonObject database = assembled(header(), {speciesFile(18), speciesFile(18)});
        QCOMPARE(compact(database.value(u"Entry1"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":18}}"));
        QCOMPARE(compact(database.value(u"Entry2"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":18}}"));
    }

    void numbersHaveNoLeadingZerosSoEntry10ComesBeforeEntry2()
    {
        QList<QJsonObject> files;
        for (int mass = 1; mass <= 11; ++mass)
            files.append(speciesFile(mass));
        const QJsonObject database = assembled(header(), files);
        QCOMPARE(database.keys(),
                 QStringList({u"Entry1"_s, u"Entry10"_s, u"Entry11"_s, u"Entry2"_s, u"Entry3"_s,
                              u"Entry4"_s, u"Entry5"_s, u"Entry6"_s, u"Entry7"_s, u"Entry8"_s,
                              u"Entry9"_s, u"Header"_s, u"Type"_s}));
        QCOMPARE(compact(database.value(u"Entry11"_s).toObject()),
                 QByteArray("{\"Species\":{\"Mass\":11}}"));
    }

    void entryIsTheWholeFileButForItsType()
    {
        QJsonObject file = speciesFile(18);
        file.insert(u"Dataset1"_s,
                    QJsonObject{{u"Type"_s, u"Spectrum v1"_s}, {u"E"_s, QJsonArray{1, u"two"_s}}});
        file.insert(u"Dataset007"_s, QJsonValue(QJsonValue::Null));
        file.insert(u"Note"_s, u"<i>kept</i>"_s);
        const QJsonObject database = assembled(header(), {file});
        QCOMPARE(compact(database.value(u"Entry1"_s).toObject()),
                 QByteArray("{\"Dataset007\":null,"
                            "\"Dataset1\":{\"E\":[1,\"two\"],\"Type\":\"Spectrum v1\"},"
                            "\"Note\":\"<i>kept</i>\",\"Species\":{\"Mass\":18}}"));
    }

    void givenFileStaysAsItIs()
    {
        const QJsonObject file = speciesFile(18);
        QVERIFY(!DatabaseAssembly::entry(1, file, QJsonDocument::Compact).isEmpty());
        QCOMPARE(file.value(u"Type"_s), QJsonValue(u"Species v1"_s));
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
            files.first() = QJsonObject{{u"Type"_s, u"Species v1"_s}};
            files.last().insert(u"Note"_s, u"{\n}\u00b5\u2028"_s);
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
