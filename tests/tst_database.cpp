// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QCheckBox>
#include <QDate>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// As a person might have edited it: keys in any order, one that the program does not know.
constexpr auto waterFile =
    "{\"Type\":\"Species v1\", \"Species\":{\"Name\":\"H<sub>2</sub>O\",\"Mass\":18.0153},\n"
    "\"Dataset1\":{\"Title\":\"caf\u00e9\",\"I\":[1,2],\"E\":[12.6,1.3e1],\"Type\":\"any\"}}";
constexpr auto heliumFile =
    "{\"Species\":{\"Name\":\"He\"},\"Type\":\"Species v1\",\"Note\":null,\"Dataset1\":{}}";

constexpr auto compactDatabase =
    "{\"Entry1\":{\"Dataset1\":{\"E\":[12.6,13],\"I\":[1,2],\"Title\":\"caf\u00e9\","
    "\"Type\":\"any\"},\"Species\":{\"Mass\":18.0153,\"Name\":\"H<sub>2</sub>O\"}},"
    "\"Entry2\":{\"Dataset1\":{},\"Note\":null,\"Species\":{\"Name\":\"He\"}},"
    "\"Header\":{\"Database\":\"4.0\",\"Date\":\"@day@\",\"Title\":\"Test & \\\"try\\\"\","
    "\"Version\":\"1.1\"},\"Type\":\"Database v1\"}";

constexpr auto indentedDatabase = "{\n"
                                  "    \"Entry1\": {\n"
                                  "        \"Dataset1\": {\n"
                                  "            \"E\": [\n"
                                  "                12.6,\n"
                                  "                13\n"
                                  "            ],\n"
                                  "            \"I\": [\n"
                                  "                1,\n"
                                  "                2\n"
                                  "            ],\n"
                                  "            \"Title\": \"caf\u00e9\",\n"
                                  "            \"Type\": \"any\"\n"
                                  "        },\n"
                                  "        \"Species\": {\n"
                                  "            \"Mass\": 18.0153,\n"
                                  "            \"Name\": \"H<sub>2</sub>O\"\n"
                                  "        }\n"
                                  "    },\n"
                                  "    \"Entry2\": {\n"
                                  "        \"Dataset1\": {\n"
                                  "        },\n"
                                  "        \"Note\": null,\n"
                                  "        \"Species\": {\n"
                                  "            \"Name\": \"He\"\n"
                                  "        }\n"
                                  "    },\n"
                                  "    \"Header\": {\n"
                                  "        \"Database\": \"4.0\",\n"
                                  "        \"Date\": \"@day@\",\n"
                                  "        \"Title\": \"Test & \\\"try\\\"\",\n"
                                  "        \"Version\": \"1.1\"\n"
                                  "    },\n"
                                  "    \"Type\": \"Database v1\"\n"
                                  "}\n";

QByteArray onDay(const char* text, const QDate& day)
{
    return QByteArray(text).replace("@day@", day.toString(u"yyyy-MM-dd"_s).toLatin1());
}

} // namespace

/// Compiling species files into a database file.
class TestDatabase : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void fileHoldsHeaderAndEntriesByteForByte_data()
    {
        QTest::addColumn<bool>("compact");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("compact") << true << QByteArray(compactDatabase);
        QTest::newRow("indented") << false << QByteArray(indentedDatabase);
    }

    void fileHoldsHeaderAndEntriesByteForByte()
    {
        QFETCH(const bool, compact);
        QFETCH(const QByteArray, text);
        sandbox->write(u"water.json"_s, waterFile);
        sandbox->write(u"helium.json"_s, heliumFile);
        dialogs->expect([compact](QWidget& widget) {
            TestSupport::child<QLineEdit>(widget, "lineEdit")->setText(u"1.1"_s);
            TestSupport::child<QLineEdit>(widget, "lineEdit_2")->setText(u"4.0"_s);
            TestSupport::child<QLineEdit>(widget, "lineEdit_3")->setText(u"Test & \"try\""_s);
            TestSupport::child<QCheckBox>(widget, "checkBox")->setChecked(compact);
            fillIn(widget);
        });
        expectFiles({u"water.json"_s, u"helium.json"_s});
        expectSuccess();

        // The day may change while the file is being written.
        const QDate before = QDate::currentDate();
        createDatabase();
        const QByteArray written = sandbox->read(u"all.json"_s);
        const QDate day =
            written == onDay(text.constData(), before) ? before : QDate::currentDate();
        QCOMPARE(written, onDay(text.constData(), day));
    }

    void defaultHeaderIsWritten()
    {
        sandbox->write(u"helium.json"_s, heliumFile);
        QString title;
        dialogs->expect([&title](QWidget& widget) {
            title = TestSupport::child<QLineEdit>(widget, "lineEdit_3")->text();
            fillIn(widget);
        });
        expectFiles({u"helium.json"_s});
        expectSuccess();
        createDatabase();
        const QByteArray written = sandbox->read(u"all.json"_s);
        QVERIFY(written.contains("\"Version\": \"1.0\""));
        QVERIFY(written.contains("\"Database\": \"3.0\""));
        QVERIFY(written.contains(QByteArray("\"Title\": \"" + title.toUtf8() + "\"")));
    }

    void dateIsTheDayOfWritingAndNotThatOfAnyEntry()
    {
        sandbox->write(u"old.json"_s, "{\"Type\":\"Species v1\",\"Date\":\"2001-02-03\"}");
        const QDate before = QDate::currentDate();
        compile({u"old.json"_s});
        const QByteArray written = sandbox->read(u"all.json"_s);
        const QByteArray header = written.mid(written.indexOf("\"Header\""));
        QVERIFY(header.contains(onDay("\"Date\": \"@day@\"", before)) ||
                header.contains(onDay("\"Date\": \"@day@\"", QDate::currentDate())));
        QVERIFY(written.contains("\"Date\": \"2001-02-03\""));
    }

    void elevenEntriesAreWrittenInTheOrderOfTheirKeys()
    {
        QStringList names;
        for (int number = 1; number <= 11; ++number) {
            names.append(u"%1.json"_s.arg(number));
            sandbox->write(names.constLast(),
                           TestSupport::speciesFile(u"species %1"_s.arg(number)));
        }
        dialogs->expect([](QWidget& widget) {
            TestSupport::child<QCheckBox>(widget, "checkBox")->setChecked(true);
            fillIn(widget);
        });
        expectFiles(names);
        expectSuccess();
        createDatabase();
        QCOMPARE(sandbox->read(u"all.json"_s)
                     .split(',')
                     .join('\n')
                     .replace("{\"Species\":{\"Name\":", "")
                     .replace("}", "")
                     .split('\n')
                     .mid(0, 12),
                 QByteArrayList({"{\"Entry1\":\"species 1\"", "\"Entry10\":\"species 10\"",
                                 "\"Entry11\":\"species 11\"", "\"Entry2\":\"species 2\"",
                                 "\"Entry3\":\"species 3\"", "\"Entry4\":\"species 4\"",
                                 "\"Entry5\":\"species 5\"", "\"Entry6\":\"species 6\"",
                                 "\"Entry7\":\"species 7\"", "\"Entry8\":\"species 8\"",
                                 "\"Entry9\":\"species 9\"", "\"Header\":{\"Database\":\"3.0\""}));
    }

    void sameFileTwiceMakesTwoEntries()
    {
        sandbox->write(u"helium.json"_s, heliumFile);
        dialogs->expect([](QWidget& widget) {
            clickAddSpecies(widget);
            fillIn(widget);
        });
        expectAddedFiles({u"helium.json"_s});
        expectFiles({u"helium.json"_s});
        expectSuccess();
        createDatabase();
        const QByteArray written = sandbox->read(u"all.json"_s);
        QVERIFY(written.contains("\"Entry1\""));
        QVERIFY(written.contains("\"Entry2\""));
        QCOMPARE(written.count("\"Name\": \"He\""), 2);
    }

    void longerOldFileIsReplacedWhole()
    {
        sandbox->write(u"all.json"_s, QByteArray(100000, '#'));
        sandbox->write(u"helium.json"_s, heliumFile);
        compile({u"helium.json"_s});
        const QByteArray written = sandbox->read(u"all.json"_s);
        QVERIFY(written.endsWith("    \"Type\": \"Database v1\"\n}\n"));
        QVERIFY(!written.contains('#'));
    }

    void speciesFilesAndTheOpenDocumentStayAsTheyAre()
    {
        const QString file = sandbox->write(u"water.json"_s, waterFile);
        QVERIFY(window->openEntry(file));
        compile({u"water.json"_s});
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - water.json"_s);
        QCOMPARE(TestSupport::spectrumTitles(*window), QStringList(QString::fromUtf8("caf\u00e9")));
        QCOMPARE(sandbox->read(u"water.json"_s), QByteArray(waterFile));
    }

    void filesOfOtherTypesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("spectrum file") << TestSupport::spectrumFile(u"s"_s);
        QTest::newRow("database file") << QByteArray(compactDatabase);
        QTest::newRow("other case") << QByteArray("{\"Type\":\"species v1\"}");
        QTest::newRow("other version") << QByteArray("{\"Type\":\"Species v2\"}");
        QTest::newRow("no type") << QByteArray("{\"Species\":{}}");
        QTest::newRow("type is no string") << QByteArray("{\"Type\":[\"Species v1\"]}");
        QTest::newRow("array") << QByteArray("[{\"Type\":\"Species v1\"}]");
        QTest::newRow("no JSON") << QByteArray("Species v1");
        QTest::newRow("cut short") << QByteArray("{\"Type\":\"Species v1\",\"Species\":{");
        QTest::newRow("text behind") << QByteArray("{\"Type\":\"Species v1\"} end");
        QTest::newRow("empty") << QByteArray();
    }

    void filesOfOtherTypesAreRefused()
    {
        QFETCH(const QByteArray, content);
        sandbox->write(u"helium.json"_s, heliumFile);
        const QString path = sandbox->write(u"other.json"_s, content);
        expectDialogFilledIn();
        expectFiles({u"helium.json"_s, u"other.json"_s});
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
        QCOMPARE(sandbox->read(u"other.json"_s), content);
    }

    void filesThatCannotBeOpenedAreReported_data()
    {
        QTest::addColumn<bool>("folderInstead");
        QTest::newRow("gone") << false;
        QTest::newRow("became a folder") << true;
    }

    void filesThatCannotBeOpenedAreReported()
    {
        QFETCH(const bool, folderInstead);
        sandbox->write(u"helium.json"_s, heliumFile);
        const QString path = sandbox->write(u"gone.json"_s, heliumFile);
        expectDialogFilledIn([path, folderInstead] {
            QVERIFY(QFile::remove(path));
            QVERIFY(!folderInstead || QDir().mkdir(path));
        });
        expectFiles({u"helium.json"_s, u"gone.json"_s});
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, "Could not open file: "_L1 + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void firstBadFileEndsTheCompilation()
    {
        const QString path = sandbox->write(u"a.json"_s, "{}");
        const QString gone = sandbox->write(u"b.json"_s, heliumFile);
        expectDialogFilledIn([gone] { QVERIFY(QFile::remove(gone)); });
        expectFiles({u"a.json"_s, u"b.json"_s});
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void firstBadFileIsTheFirstOfTheList()
    {
        // As keys, "Entry10" comes before "Entry2".
        QStringList names;
        for (int number = 1; number <= 10; ++number)
            names.append(u"file%1.json"_s.arg(number));
        for (const QString& name : std::as_const(names))
            sandbox->write(name, heliumFile);
        const QString second = sandbox->write(names.at(1), "{}");
        sandbox->write(names.at(9), "{}");
        expectDialogFilledIn();
        expectFiles(names);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + second);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void failureKeepsTheOldDatabase()
    {
        sandbox->write(u"all.json"_s, "the old one");
        sandbox->write(u"helium.json"_s, heliumFile);
        const QString path = sandbox->write(u"bad.json"_s, "{}");
        expectDialogFilledIn();
        expectFiles({u"helium.json"_s, u"bad.json"_s});
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + path);
        expectFailure();
        createDatabase();
        QCOMPARE(sandbox->read(u"all.json"_s), QByteArray("the old one"));
    }

    void targetThatCannotBeOpenedGivesTheGeneralBoxOnly()
    {
        sandbox->write(u"helium.json"_s, heliumFile);
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        expectDialogFilledIn([this] { QVERIFY(QDir(sandbox->path()).rmdir(u"out"_s)); });
        expectFiles({u"helium.json"_s}, u"out/all.json"_s);
        expectFailure();
        createDatabase();
        QVERIFY(!QFile::exists(sandbox->path(u"out"_s)));
    }

    void speciesFilesAreCheckedBeforeTheTarget()
    {
        const QString path = sandbox->write(u"bad.json"_s, "{}");
        QVERIFY(QDir(sandbox->path()).mkdir(u"out"_s));
        expectDialogFilledIn([this] { QVERIFY(QDir(sandbox->path()).rmdir(u"out"_s)); });
        expectFiles({u"bad.json"_s}, u"out/all.json"_s);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + path);
        expectFailure();
        createDatabase();
    }

    void fileNamesInBoxesAreShownAsTyped()
    {
        const QString name = u"<b>bold<img src='x'>.json"_s;
        sandbox->write(name, "{}");
        expectDialogFilledIn();
        expectFiles({name});
        dialogs->expect([this, name](QWidget& widget) {
            auto* box = qobject_cast<QMessageBox*>(&widget);
            if (box == nullptr || box->textFormat() != Qt::PlainText || !box->text().endsWith(name))
                dialogs->complain(u"the name is not shown as it is"_s);
            widget.close();
        });
        expectFailure();
        createDatabase();
    }

    void cancellingWritesNothing()
    {
        sandbox->write(u"helium.json"_s, heliumFile);
        dialogs->expect([](QWidget& widget) {
            clickAddSpecies(widget);
            clickSetDatabase(widget);
            close(widget, QDialogButtonBox::Cancel);
        });
        expectFiles({u"helium.json"_s});
        createDatabase();
        verifyNoDatabase();
    }

    void sameDialogComesAgainWithItsEntries()
    {
        sandbox->write(u"helium.json"_s, heliumFile);
        QVERIFY(window->findChild<CreateDatabase*>() == nullptr);
        compile({u"helium.json"_s});
        auto* dialog = window->findChild<CreateDatabase*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(dialog != nullptr);
        QVERIFY(!dialog->isVisible());
        QVERIFY(QFile::remove(sandbox->path(u"all.json"_s)));

        dialogs->expect([this, dialog](QWidget& widget) {
            if (&widget != dialog || !widget.isModal() || dialog->files().size() != 1)
                dialogs->complain(u"another dialog came"_s);
            close(widget, QDialogButtonBox::Ok);
        });
        expectSuccess();
        createDatabase();
        QVERIFY(QFile::exists(sandbox->path(u"all.json"_s)));
        QCOMPARE(window->findChildren<CreateDatabase*>().size(), 1);
    }

    void failedCompilationCanBeMendedAndRepeated()
    {
        const QString path = sandbox->write(u"a.json"_s, "{}");
        expectDialogFilledIn();
        expectFiles({u"a.json"_s});
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           "Invalid species type in file: "_L1 + path);
        expectFailure();
        createDatabase();

        sandbox->write(u"a.json"_s, heliumFile);
        dialogs->expect([](QWidget& widget) { close(widget, QDialogButtonBox::Ok); });
        expectSuccess();
        createDatabase();
        QVERIFY(sandbox->read(u"all.json"_s).contains("\"He\""));
    }

private:
    /// Invokes by name, the only way there is.
    void createDatabase()
    {
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    static void clickAddSpecies(QWidget& dialog)
    {
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton_2"), Qt::LeftButton);
    }

    static void clickSetDatabase(QWidget& dialog)
    {
        QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton"), Qt::LeftButton);
    }

    static void close(QWidget& dialog, QDialogButtonBox::StandardButton button)
    {
        const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    }

    /// Clicks through the dialog; expectFiles() answers the file dialogs that this opens.
    static void fillIn(QWidget& dialog, const std::function<void()>& beforeOk = {})
    {
        clickAddSpecies(dialog);
        clickSetDatabase(dialog);
        if (beforeOk)
            beforeOk();
        close(dialog, QDialogButtonBox::Ok);
    }

    void expectDialogFilledIn(const std::function<void()>& beforeOk = {})
    {
        dialogs->expect([beforeOk](QWidget& widget) { fillIn(widget, beforeOk); });
    }

    void expectAddedFiles(const QStringList& species)
    {
        QStringList quoted;
        for (const QString& name : species)
            quoted.append(u'"' + sandbox->path(name) + u'"');
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                  quoted.join(u' '));
    }

    void expectFiles(const QStringList& species, const QString& target = u"all.json"_s)
    {
        expectAddedFiles(species);
        dialogs->expectFileDialog(u"Database will be saved to..."_s, sandbox->path(target));
        if (QFile::exists(sandbox->path(target))) {
            dialogs->expect([](QWidget& replaceQuestion) {
                QTest::mouseClick(
                    qobject_cast<QMessageBox*>(&replaceQuestion)->button(QMessageBox::Yes),
                    Qt::LeftButton);
            });
        }
    }

    void expectSuccess()
    {
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
    }

    void expectFailure()
    {
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"Failed to create species database."_s);
    }

    void compile(const QStringList& species)
    {
        expectDialogFilledIn();
        expectFiles(species);
        expectSuccess();
        createDatabase();
    }

    void verifyNoDatabase() { QVERIFY(!QFile::exists(sandbox->path(u"all.json"_s))); }
};

QTEST_MAIN(TestDatabase)
#include "tst_database.moc"
