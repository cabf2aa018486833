// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"
#include "tests/support/windowtest.h"
#include "widgets/singlelinetextedit.h"

#include <QDataWidgetMapper>
#include <QMdiArea>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>

using namespace Qt::StringLiterals;

using TestSupport::child;

namespace {

const QString& cleanTitle()
{
    static const QString title = u"KORVELA Entry Edit - entry.json"_s;
    return title;
}

const QString& modifiedTitle()
{
    static const QString title = u"KORVELA Entry Edit - entry.json *"_s;
    return title;
}

void fieldRows()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("column");
    QTest::newRow("name") << QByteArray("lineEditSpecies") << 0;
    QTest::newRow("aliases") << QByteArray("textEditAliases") << 1;
    QTest::newRow("mass") << QByteArray("lineEditMass") << 2;
    QTest::newRow("sum formula") << QByteArray("lineEditSumFormula") << 3;
    QTest::newRow("InChI") << QByteArray("lineEditInChI") << 4;
    QTest::newRow("CAS number") << QByteArray("lineEditCAS") << 5;
    QTest::newRow("PubChem CID") << QByteArray("lineEditCID") << 6;
    QTest::newRow("AIE") << QByteArray("lineEditAIE") << 7;
    QTest::newRow("VIE") << QByteArray("lineEditVIE") << 8;
    QTest::newRow("AIE comment") << QByteArray("lineEditAIEComment") << 9;
    QTest::newRow("VIE comment") << QByteArray("lineEditVIEComment") << 10;
}

} // namespace

/// The species form and the record behind it.
class TestSpeciesForm : public WindowTest
{
    Q_OBJECT

    SpeciesModel* model = nullptr;
    QPushButton* elsewhere = nullptr;

    [[nodiscard]] CleanTextEdit* field(const QByteArray& name) const
    {
        return child<CleanTextEdit>(*window, name.constData());
    }

    [[nodiscard]] QVariant cell(int column) const { return model->data(model->index(0, column)); }

    void load(int column, const QVariant& value) const
    {
        model->setData(model->index(0, column), value, Qt::EditRole);
    }

    /// Takes the focus out of the field; the form hands its content on when the event loop turns.
    void leave() const
    {
        elsewhere->setFocus();
        QCoreApplication::processEvents();
    }

    void type(const QByteArray& name, const QString& text) const
    {
        CleanTextEdit* typedInto = field(name);
        typedInto->setFocus();
        typedInto->selectAll();
        QTest::keyClick(typedInto, Qt::Key_Delete);
        QTest::keyClicks(typedInto, text);
        leave();
    }

    /// Loads a species file, so that the document is unmodified from here on.
    [[nodiscard]] bool loadEntry(const QByteArray& species) const
    {
        return window->openEntry(sandbox->write(
            u"entry.json"_s, "{\"Type\": \"Species v1\", \"Species\": " + species + "}"));
    }

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        model = window->findChild<SpeciesModel*>();
        elsewhere = child<QPushButton>(*window, "buttonDownload");
    }

    void modelAndMapperBelongToTheWindow()
    {
        QVERIFY(model != nullptr);
        QCOMPARE(model->parent(), window.get());
        const auto mappers =
            window->findChildren<QDataWidgetMapper*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(mappers.size(), 1);
        QCOMPARE(mappers.first()->model(), model);
        QCOMPARE(mappers.first()->currentIndex(), 0);
        QCOMPARE(mappers.first()->orientation(), Qt::Horizontal);
        QCOMPARE(mappers.first()->submitPolicy(), QDataWidgetMapper::AutoSubmit);
    }

    void eachFieldIsBoundToItsColumn_data() { fieldRows(); }

    void eachFieldIsBoundToItsColumn()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const int, column);
        const auto* mapper =
            window->findChild<QDataWidgetMapper*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(mapper->mappedSection(field(name)), column);
        QCOMPARE(mapper->mappedPropertyName(field(name)), QByteArray("cleanedHtml"));
        QVERIFY(mapper->mappedWidgetAt(11) == nullptr);
        const bool singleLine = qobject_cast<SingleLineTextEdit*>(field(name)) != nullptr;
        QCOMPARE(singleLine, name != "textEditAliases");
    }

    void typedTextReachesTheRecordOnLeaving_data() { fieldRows(); }

    void typedTextReachesTheRecordOnLeaving()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const int, column);
        CleanTextEdit* typedInto = field(name);
        typedInto->setFocus();
        QTest::keyClicks(typedInto, u"12.5"_s);
        QCOMPARE(cell(column), QVariant());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);

        leave();
        QTRY_COMPARE(cell(column), QVariant(u"12.5"_s));
        QCOMPARE(cell(column).metaType(), QMetaType::fromType<QString>());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);
        QCOMPARE(typedInto->cleanedHtml(), u"12.5"_s);
        for (int other = 0; other < 11; ++other) {
            if (other != column)
                QCOMPARE(cell(other), QVariant());
        }
    }

    void recordIsShownInTheForm_data() { fieldRows(); }

    void recordIsShownInTheForm()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const int, column);
        load(column, u"a<sub>2</sub> < b"_s);
        QCOMPARE(field(name)->cleanedHtml(), u"a<sub>2</sub> < b"_s);
        QCOMPARE(field(name)->toPlainText(), u"a2 < b"_s);
    }

    void tabKeyCommitsToo()
    {
        field("lineEditVIE")->setFocus();
        QTest::keyClicks(field("lineEditVIE"), u"9.1"_s);
        QTest::keyClick(field("lineEditVIE"), Qt::Key_Tab);
        QVERIFY(field("lineEditVIEComment")->hasFocus());
        QTRY_COMPARE(cell(8), QVariant(u"9.1"_s));
        QCOMPARE(cell(9), QVariant());
    }

    void fieldLeftUnchangedDoesNotModify_data() { fieldRows(); }

    void fieldLeftUnchangedDoesNotModify()
    {
        QFETCH(const QByteArray, name);
        QVERIFY(loadEntry(
            R"({"Name": "R&D", "Aliases": "a\nb", "Mass": 16.04, "Formula": "H<sub>2</sub>O",
                "InChI": "InChI=1S/H2O/h1H2", "CAS": "7732-18-5", "PubChem": "", "AIE": "< 9",
                "VIE": "1 > 2", "AIE_Comment": "9.1\u00a0eV", "VIE_Comment": "a<b"})"));
        QCOMPARE(window->windowTitle(), cleanTitle());
        const QSignalSpy changes(model, &SpeciesModel::dataChanged);
        for (int round = 0; round < 2; ++round) {
            field(name)->setFocus();
            QVERIFY(field(name)->hasFocus());
            leave();
        }
        QCOMPARE(changes.count(), 0);
        QCOMPARE(window->windowTitle(), cleanTitle());
    }

    void leavingOneFieldWritesNoOther()
    {
        QVERIFY(loadEntry(R"({"Name": "<i>more</i> than the  field can show", "CAS": "a"})"));
        type("lineEditCAS", u"b"_s);
        QTRY_COMPARE(cell(5).toString(), u"b"_s);
        QCOMPARE(cell(0).toString(), u"<i>more</i> than the  field can show"_s);
    }

    void openingLeavesNoFieldOnTheWay()
    {
        auto* tabs = child<QMdiArea>(*window, "mdiArea")->findChild<QTabBar*>();
        tabs->setFocus();
        QVERIFY(tabs->hasFocus());
        // The datasets stand beside the species.
        QVERIFY(loadEntry(R"({"Name": "<i>more</i> than the  field can show"},
                              "Dataset1": {"Title": "a"}, "Dataset2": {"Title": "b"})"));
        QCOMPARE(tabs->count(), 2);
        QTRY_VERIFY(!tabs->hasFocus()); // the first spectrum has it
        QCOMPARE(cell(0).toString(), u"<i>more</i> than the  field can show"_s);
        QCOMPARE(window->windowTitle(), cleanTitle());
    }

    void typingAndUndoingDoesNotModify()
    {
        QVERIFY(loadEntry(R"({"Name": "water"})"));
        field("lineEditSpecies")->setFocus();
        QTest::keyClick(field("lineEditSpecies"), Qt::Key_End);
        QTest::keyClicks(field("lineEditSpecies"), u"x"_s);
        QTest::keyClick(field("lineEditSpecies"), Qt::Key_Backspace);
        leave();
        QCOMPARE(window->windowTitle(), cleanTitle());
    }

    void emptyFieldOverANeverSetCellWritesNothing_data() { fieldRows(); }

    void emptyFieldOverANeverSetCellWritesNothing()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const int, column);
        const QSignalSpy changes(model, &SpeciesModel::dataChanged);
        field(name)->setFocus();
        leave();
        QCOMPARE(changes.count(), 0);
        QVERIFY(!cell(column).isValid());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
    }

    void emptiedFieldIsWrittenAndModifies_data() { fieldRows(); }

    void emptiedFieldIsWrittenAndModifies()
    {
        QFETCH(const QByteArray, name);
        QFETCH(const int, column);
        QVERIFY(loadEntry(
            R"({"Name": "1", "Aliases": "1", "Mass": 1, "Formula": "1", "InChI": "1", "CAS": "1",
                "PubChem": "1", "AIE": "1", "VIE": "1", "AIE_Comment": "1", "VIE_Comment": "1"})"));
        QCOMPARE(window->windowTitle(), cleanTitle());
        QCOMPARE(field(name)->cleanedHtml(), u"1"_s);
        type(name, QString());
        QTRY_COMPARE(cell(column), QVariant(QString(""_L1)));
        QCOMPARE(window->windowTitle(), modifiedTitle());
        QCOMPARE(field(name)->cleanedHtml(), QString());
    }

    void loadedMassIsShownAsText_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("text");
        QTest::newRow("fraction") << QByteArray("16.04") << u"16.04"_s;
        QTest::newRow("whole") << QByteArray("16") << u"16"_s;
        QTest::newRow("zero") << QByteArray("0") << u"0"_s;
        QTest::newRow("long") << QByteArray("18.0105646863") << u"18.0105646863"_s;
    }

    void loadedMassIsShownAsText()
    {
        QFETCH(const QByteArray, json);
        QVERIFY(loadEntry("{\"Mass\": " + json + "}"));
        QCOMPARE(cell(2).metaType(), QMetaType::fromType<double>());
        QTEST(field("lineEditMass")->cleanedHtml(), "text");
        field("lineEditMass")->setFocus();
        leave();
        QCOMPARE(cell(2).metaType(), QMetaType::fromType<double>());
        QCOMPARE(window->windowTitle(), cleanTitle());
    }

    void typedMassIsHeldAsTyped()
    {
        QVERIFY(loadEntry(R"({"Mass": 16.04})"));
        type("lineEditMass", u"16.043"_s);
        QTRY_COMPARE(cell(2).toString(), u"16.043"_s);
        QCOMPARE(cell(2).metaType(), QMetaType::fromType<QString>());
        QCOMPARE(window->windowTitle(), modifiedTitle());
    }

    void specialCharactersSurviveLeavingAgainAndAgain_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"resolution < 10 meV", "<", "a<b", "<<", "a <= b", "R&D", "1 > 2",
                                 "1 < 2 > 0", "AT&T; <5", "\"quoted\" 'x'", "10.1000/xyz?a=1&b=2"})
            QTest::newRow(text) << QString::fromLatin1(text);
        QTest::newRow("no-break space") << u"9.1\u00a0eV"_s;
        QTest::newRow("outside Latin 1") << u"\u03b1-pinene \u2192 \u2212 \u00b1"_s;
    }

    void specialCharactersSurviveLeavingAgainAndAgain()
    {
        QFETCH(const QString, text);
        for (const char* name : {"lineEditSpecies", "textEditAliases"}) {
            field(name)->setFocus();
            field(name)->insertPlainText(text);
            for (int round = 0; round < 3; ++round) {
                leave();
                QTRY_COMPARE(field(name)->cleanedHtml(), text);
                field(name)->setFocus();
            }
        }
        QCOMPARE(cell(0).toString(), text);
        QCOMPARE(cell(1).toString(), text);
    }

    void lessThanBesideRaisedTextSurvivesLeaving()
    {
        load(9, u"<sup>3</sup>He < 5"_s);
        QTest::keyClick(field("lineEditAIEComment"), Qt::Key_End);
        field("lineEditAIEComment")->setFocus();
        QTest::keyClick(field("lineEditAIEComment"), Qt::Key_End);
        QTest::keyClicks(field("lineEditAIEComment"), u" < 6"_s);
        leave();
        QTRY_COMPARE(cell(9).toString(), u"<sup>3</sup>He < 5 < 6"_s);
        QCOMPARE(field("lineEditAIEComment")->cleanedHtml(), u"<sup>3</sup>He < 5 < 6"_s);
    }

    void linesOfAliasesAreJoinedInTheRecord()
    {
        field("textEditAliases")->setFocus();
        QTest::keyClicks(field("textEditAliases"), u"one"_s);
        QTest::keyClick(field("textEditAliases"), Qt::Key_Return);
        QTest::keyClicks(field("textEditAliases"), u"two"_s);
        leave();
        QTRY_COMPARE(cell(1).toString(), u"one<br>two"_s);
        QCOMPARE(field("textEditAliases")->toPlainText(), u"one\ntwo"_s);
    }

    void aliasesTakeNoDropsAndHaveTheirStyle()
    {
        QVERIFY(!field("textEditAliases")->acceptDrops());
        const QString style = field("textEditAliases")->styleSheet().simplified().remove(u' ');
        QCOMPARE(style, u"QTextEdit{background:white;border:1pxsolidlightgray;"
                        "padding:2px;color:black;}QTextEdit:focus{border:1pxsolid"
                        "#4A90E2;}"_s);
    }

    void acceptedChangeOfAnyColumnModifiesTheDocument_data()
    {
        QTest::addColumn<int>("column");
        for (int column = 0; column < 12; ++column)
            QTest::addRow("column %d", column) << column;
    }

    void acceptedChangeOfAnyColumnModifiesTheDocument()
    {
        QFETCH(const int, column);
        QVERIFY(loadEntry("{}"));
        QCOMPARE(window->windowTitle(), cleanTitle());
        QImage image(2, 2, QImage::Format_RGB32);
        image.fill(Qt::red);
        load(column, column == 11 ? QVariant::fromValue(image) : QVariant(u"x"_s));
        QCOMPARE(window->windowTitle(), modifiedTitle());
    }
};

QTEST_MAIN(TestSpeciesForm)
#include "tst_speciesform.moc"
