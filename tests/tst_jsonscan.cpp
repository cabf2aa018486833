// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/jsonscan.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// What a parsed JSON document no longer shows.
class TestJsonScan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repeatedMembersAreFound_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QStringList>("places");
        const auto add = [](const char* name, const char* json, const QStringList& places) {
            QTest::newRow(name) << QByteArray(json) << places;
        };
        add("none", R"({"a": 1, "b": {"a": 2}, "c": [{"a": 1}, {"a": 2}]})", {});
        add("top", R"({"a": 1, "b": 2, "a": 3})", {u"/a"_s});
        add("three times", R"({"a": 1, "a": 2, "a": 3})", {u"/a"_s, u"/a"_s});
        add("nested", R"({"b": {"a": {}, "a": []}})", {u"/b/a"_s});
        add("after nested", R"({"a": {"b": [1, {"c": 1}]}, "d": 1, "a": 2})", {u"/a"_s});
        add("in an array", R"([0, [], {"a": 1, "a": 2}])", {u"/2/a"_s});
        add("escaped", "{\"ab\": 1, \"\\u0061b\": 2}", {u"/ab"_s});
        add("pointer", R"({"a/b~": 1, "a/b~": 2})", {u"/a~1b~0"_s});
        add("values are no keys", "{\"a\": \"b\", \"c\": \"a\", \"b\": \"\\\"c\\\": 1\"}", {});
        add("text ends in a backslash", "{\"a\": \"x\\\\\", \"a\": \"\\\\\\\"\"}", {u"/a"_s});
        add("number", "12", {});
        add("string", "\"a\"", {});
        add("nothing", "", {});
    }

    void repeatedMembersAreFound()
    {
        QFETCH(const QByteArray, json);
        QFETCH(const QStringList, places);
        QCOMPARE(JsonScan::odditiesOf(json).repeatedMembers, places);
    }

    void controlCharactersAreFoundInStringsOnly()
    {
        QVERIFY(!JsonScan::odditiesOf("{\n\t\"a\": \"b\"}").bareControlCharacter);
        QVERIFY(!JsonScan::odditiesOf("{\"a\": \"\xc3\xa4\\n\"}").bareControlCharacter);
        QVERIFY(JsonScan::odditiesOf("{\"a\": \"b\nc\"}").bareControlCharacter);
        QVERIFY(JsonScan::odditiesOf("{\"a\tb\": 1}").bareControlCharacter);
    }

    void byteOrderMarkIsFound()
    {
        QVERIFY(JsonScan::odditiesOf("\xef\xbb\xbf{}").byteOrderMark);
        QVERIFY(!JsonScan::odditiesOf("{}").byteOrderMark);
    }

    void deepNestingIsFollowed()
    {
        const QByteArray json =
            QByteArray("[").repeated(100'000) + QByteArray("]").repeated(100'000);
        QCOMPARE(JsonScan::odditiesOf(json).repeatedMembers.size(), 0);
    }
};

QTEST_APPLESS_MAIN(TestJsonScan)
#include "tst_jsonscan.moc"
