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
    return QByteArray(text).replace("@day@", day.toString(QStringLiteral("yyyy-MM-dd")).toLatin1());
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
        sandbox->write(QStringLiteral("water.json"), waterFile);
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        dialogs->expect([this, compact](QWidget& widget) {
            TestSupport::child<QLineEdit>(widget, "lineEdit")->setText(QStringLiteral("1.1"));
            TestSupport::child<QLineEdit>(widget, "lineEdit_2")->setText(QStringLiteral("4.0"));
            TestSupport::child<QLineEdit>(widget, "lineEdit_3")
                ->setText(QStringLiteral("Test & \"try\""));
            TestSupport::child<QCheckBox>(widget, "checkBox")->setChecked(compact);
            fillIn(widget);
        });
        expectFiles({QStringLiteral("water.json"), QStringLiteral("helium.json")});
        expectSuccess();

        // The day may change while the file is being written.
        const QDate before = QDate::currentDate();
        createDatabase();
        const QByteArray written = sandbox->read(QStringLiteral("all.json"));
        const QDate day =
            written == onDay(text.constData(), before) ? before : QDate::currentDate();
        QCOMPARE(written, onDay(text.constData(), day));
    }

    void defaultHeaderIsWritten()
    {
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        QString title;
        dialogs->expect([this, &title](QWidget& widget) {
            title = TestSupport::child<QLineEdit>(widget, "lineEdit_3")->text();
            fillIn(widget);
        });
        expectFiles({QStringLiteral("helium.json")});
        expectSuccess();
        createDatabase();
        const QByteArray written = sandbox->read(QStringLiteral("all.json"));
        QVERIFY(written.contains("\"Version\": \"1.0\""));
        QVERIFY(written.contains("\"Database\": \"3.0\""));
        QVERIFY(written.contains(QByteArray("\"Title\": \"" + title.toUtf8() + "\"")));
    }

    void dateIsTheDayOfWritingAndNotThatOfAnyEntry()
    {
        sandbox->write(QStringLiteral("old.json"),
                       "{\"Type\":\"Species v1\",\"Date\":\"2001-02-03\"}");
        const QDate before = QDate::currentDate();
        compile({QStringLiteral("old.json")});
        const QByteArray written = sandbox->read(QStringLiteral("all.json"));
        const QByteArray header = written.mid(written.indexOf("\"Header\""));
        QVERIFY(header.contains(onDay("\"Date\": \"@day@\"", before)) ||
                header.contains(onDay("\"Date\": \"@day@\"", QDate::currentDate())));
        QVERIFY(written.contains("\"Date\": \"2001-02-03\""));
    }

    void elevenEntriesAreWrittenInTheOrderOfTheirKeys()
    {
        QStringList names;
        for (int number = 1; number <= 11; ++number) {
            names.append(QStringLiteral("%1.json").arg(number));
            sandbox->write(names.constLast(),
                           TestSupport::speciesFile(QStringLiteral("species %1").arg(number)));
        }
        dialogs->expect([this](QWidget& widget) {
            TestSupport::child<QCheckBox>(widget, "checkBox")->setChecked(true);
            fillIn(widget);
        });
        expectFiles(names);
        expectSuccess();
        createDatabase();
        QCOMPARE(sandbox->read(QStringLiteral("all.json"))
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
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        dialogs->expect([](QWidget& widget) {
            clickAddSpecies(widget);
            fillIn(widget);
        });
        expectAddedFiles({QStringLiteral("helium.json")});
        expectFiles({QStringLiteral("helium.json")});
        expectSuccess();
        createDatabase();
        const QByteArray written = sandbox->read(QStringLiteral("all.json"));
        QVERIFY(written.contains("\"Entry1\""));
        QVERIFY(written.contains("\"Entry2\""));
        QCOMPARE(written.count("\"Name\": \"He\""), 2);
    }

    void longerOldFileIsReplacedWhole()
    {
        sandbox->write(QStringLiteral("all.json"), QByteArray(100000, '#'));
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        compile({QStringLiteral("helium.json")});
        const QByteArray written = sandbox->read(QStringLiteral("all.json"));
        QVERIFY(written.endsWith("    \"Type\": \"Database v1\"\n}\n"));
        QVERIFY(!written.contains('#'));
    }

    void speciesFilesAndTheOpenDocumentStayAsTheyAre()
    {
        const QString file = sandbox->write(QStringLiteral("water.json"), waterFile);
        QVERIFY(window->loadSpecies(file));
        compile({QStringLiteral("water.json")});
        QCOMPARE(window->windowTitle(), QStringLiteral("KORVELA Entry Edit - water.json"));
        QCOMPARE(TestSupport::spectrumTitles(*window), QStringList(QString::fromUtf8("caf\u00e9")));
        QCOMPARE(sandbox->read(QStringLiteral("water.json")), QByteArray(waterFile));
    }

    void filesOfOtherTypesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("spectrum file") << TestSupport::spectrumFile(QStringLiteral("s"));
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
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        const QString path = sandbox->write(QStringLiteral("other.json"), content);
        expectDialogFilledIn();
        expectFiles({QStringLiteral("helium.json"), QStringLiteral("other.json")});
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
        QCOMPARE(sandbox->read(QStringLiteral("other.json")), content);
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
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        const QString path = sandbox->write(QStringLiteral("gone.json"), heliumFile);
        expectDialogFilledIn([path, folderInstead] {
            QVERIFY(QFile::remove(path));
            QVERIFY(!folderInstead || QDir().mkdir(path));
        });
        expectFiles({QStringLiteral("helium.json"), QStringLiteral("gone.json")});
        dialogs->expectBox(QMessageBox::Warning, QStringLiteral("Error"),
                           QLatin1String("Could not open file: ") + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void firstBadFileEndsTheCompilation()
    {
        const QString path = sandbox->write(QStringLiteral("a.json"), "{}");
        const QString gone = sandbox->write(QStringLiteral("b.json"), heliumFile);
        expectDialogFilledIn([gone] { QVERIFY(QFile::remove(gone)); });
        expectFiles({QStringLiteral("a.json"), QStringLiteral("b.json")});
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + path);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void firstBadFileIsTheFirstOfTheList()
    {
        // As keys, "Entry10" comes before "Entry2".
        QStringList names;
        for (int number = 1; number <= 10; ++number)
            names.append(QStringLiteral("file%1.json").arg(number));
        for (const QString& name : std::as_const(names))
            sandbox->write(name, heliumFile);
        const QString second = sandbox->write(names.at(1), "{}");
        sandbox->write(names.at(9), "{}");
        expectDialogFilledIn();
        expectFiles(names);
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + second);
        expectFailure();
        createDatabase();
        verifyNoDatabase();
    }

    void failureKeepsTheOldDatabase()
    {
        sandbox->write(QStringLiteral("all.json"), "the old one");
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        const QString path = sandbox->write(QStringLiteral("bad.json"), "{}");
        expectDialogFilledIn();
        expectFiles({QStringLiteral("helium.json"), QStringLiteral("bad.json")});
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + path);
        expectFailure();
        createDatabase();
        QCOMPARE(sandbox->read(QStringLiteral("all.json")), QByteArray("the old one"));
    }

    void targetThatCannotBeOpenedGivesTheGeneralBoxOnly()
    {
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("out")));
        expectDialogFilledIn(
            [this] { QVERIFY(QDir(sandbox->path()).rmdir(QStringLiteral("out"))); });
        expectFiles({QStringLiteral("helium.json")}, QStringLiteral("out/all.json"));
        expectFailure();
        createDatabase();
        QVERIFY(!QFile::exists(sandbox->path(QStringLiteral("out"))));
    }

    void speciesFilesAreCheckedBeforeTheTarget()
    {
        const QString path = sandbox->write(QStringLiteral("bad.json"), "{}");
        QVERIFY(QDir(sandbox->path()).mkdir(QStringLiteral("out")));
        expectDialogFilledIn(
            [this] { QVERIFY(QDir(sandbox->path()).rmdir(QStringLiteral("out"))); });
        expectFiles({QStringLiteral("bad.json")}, QStringLiteral("out/all.json"));
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + path);
        expectFailure();
        createDatabase();
    }

    void fileNamesInBoxesAreShownAsTyped()
    {
        const QString name = QStringLiteral("<b>bold<img src='x'>.json");
        sandbox->write(name, "{}");
        expectDialogFilledIn();
        expectFiles({name});
        dialogs->expect([this, name](QWidget& widget) {
            auto* box = qobject_cast<QMessageBox*>(&widget);
            if (box == nullptr || box->textFormat() != Qt::PlainText || !box->text().endsWith(name))
                dialogs->complain(QStringLiteral("the name is not shown as it is"));
            widget.close();
        });
        expectFailure();
        createDatabase();
    }

    void cancellingWritesNothing()
    {
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        dialogs->expect([](QWidget& widget) {
            clickAddSpecies(widget);
            clickSetDatabase(widget);
            close(widget, QDialogButtonBox::Cancel);
        });
        expectFiles({QStringLiteral("helium.json")});
        createDatabase();
        verifyNoDatabase();
    }

    void sameDialogComesAgainWithItsEntries()
    {
        sandbox->write(QStringLiteral("helium.json"), heliumFile);
        QVERIFY(window->findChild<CreateDatabase*>() == nullptr);
        compile({QStringLiteral("helium.json")});
        auto* dialog = window->findChild<CreateDatabase*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(dialog != nullptr);
        QVERIFY(!dialog->isVisible());
        QVERIFY(QFile::remove(sandbox->path(QStringLiteral("all.json"))));

        dialogs->expect([this, dialog](QWidget& widget) {
            if (&widget != dialog || !widget.isModal() || dialog->files().size() != 1)
                dialogs->complain(QStringLiteral("another dialog came"));
            close(widget, QDialogButtonBox::Ok);
        });
        expectSuccess();
        createDatabase();
        QVERIFY(QFile::exists(sandbox->path(QStringLiteral("all.json"))));
        QCOMPARE(window->findChildren<CreateDatabase*>().size(), 1);
    }

    void failedCompilationCanBeMendedAndRepeated()
    {
        const QString path = sandbox->write(QStringLiteral("a.json"), "{}");
        expectDialogFilledIn();
        expectFiles({QStringLiteral("a.json")});
        dialogs->expectBox(QMessageBox::Critical, QStringLiteral("Error"),
                           QLatin1String("Invalid species type in file: ") + path);
        expectFailure();
        createDatabase();

        sandbox->write(QStringLiteral("a.json"), heliumFile);
        dialogs->expect([](QWidget& widget) { close(widget, QDialogButtonBox::Ok); });
        expectSuccess();
        createDatabase();
        QVERIFY(sandbox->read(QStringLiteral("all.json")).contains("\"He\""));
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
            quoted.append(QLatin1Char('"') + sandbox->path(name) + QLatin1Char('"'));
        dialogs->expectFileDialog(QStringLiteral("Select JSON Files to be added to the database"),
                                  quoted.join(QLatin1Char(' ')));
    }

    void expectFiles(const QStringList& species, const QString& target = QStringLiteral("all.json"))
    {
        expectAddedFiles(species);
        dialogs->expectFileDialog(QStringLiteral("Database will be saved to..."),
                                  sandbox->path(target));
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
        dialogs->expectBox(QMessageBox::Information, QStringLiteral("Success"),
                           QStringLiteral("Species database created successfully."));
    }

    void expectFailure()
    {
        dialogs->expectBox(QMessageBox::Warning, QStringLiteral("Error"),
                           QStringLiteral("Failed to create species database."));
    }

    void compile(const QStringList& species)
    {
        expectDialogFilledIn();
        expectFiles(species);
        expectSuccess();
        createDatabase();
    }

    void verifyNoDatabase() { QVERIFY(!QFile::exists(sandbox->path(QStringLiteral("all.json")))); }
};

QTEST_MAIN(TestDatabase)
#include "tst_database.moc"
