// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

QString nested(qsizetype levels)
{
    return QString(levels, u'[') + QString(levels, u']');
}

QString spectrumWith(const QString& rest)
{
    return uR"({"Type": "Spectrum v1", "Title": "pasted", %1})"_s.arg(rest);
}

} // namespace

/// Pasting a spectrum while the clipboard holds anything at all.
class TestHostileClipboard : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, speciesFile(u"A"_s))));
    }

    void textThatIsNoObjectIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("blanks") << u" \n\t"_s;
        QTest::newRow("3000 levels") << nested(3000);
        QTest::newRow("3000 levels in a spectrum") << spectrumWith(u"\"E\": "_s + nested(3000));
        QTest::newRow("a million open braces") << u"{\"a\":"_s.repeated(1'000'000);
        QTest::newRow("megabytes of letters") << QString(5'000'000, u'x');
        QTest::newRow("megabytes of noughts") << QString(5'000'000, QChar(0));
        QTest::newRow("megabytes of points") << u"10.123 4567\n"_s.repeated(400'000);
        QTest::newRow("half surrogate pairs") << QString(1000, QChar(0xd800));
        QTest::newRow("number beyond all numbers") << spectrumWith(uR"("E": [1e999])"_s);
        QTest::newRow("not a number") << spectrumWith(uR"("E": [NaN])"_s);
        QTest::newRow("two objects") << u"{} {}"_s;
    }

    void textThatIsNoObjectIsRefused()
    {
        QFETCH(QString, text);
        QGuiApplication::clipboard()->setText(text);
        expectInvalid();
        trigger(*window, "actionPaste");
        verifyNothingHappened();
    }

    void dataWithoutTextIsRefused_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("JSON") << u"application/json"_s;
        QTest::newRow("HTML") << u"text/html"_s;
        QTest::newRow("bytes") << u"application/octet-stream"_s;
    }

    void dataWithoutTextIsRefused()
    {
        QFETCH(QString, format);
        auto data = std::make_unique<QMimeData>();
        data->setData(format, spectrumFile(u"hidden"_s));
        QGuiApplication::clipboard()->setMimeData(data.release());
        expectInvalid();
        trigger(*window, "actionPaste");
        verifyNothingHappened();
    }

    void objectOfAnotherTypeIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("type null") << uR"({"Type": null})"_s;
        QTest::newRow("type an array") << uR"({"Type": ["Spectrum v1"]})"_s;
        QTest::newRow("type nested") << uR"({"Type": %1})"_s.arg(nested(1000));
        QTest::newRow("type twice, wrong one last")
            << uR"({"Type": "Spectrum v1", "Type": "Species v1"})"_s;
        QTest::newRow("type with a blank") << uR"({"Type": "Spectrum v1 "})"_s;
        QTest::newRow("whole species file") << QString::fromUtf8(speciesFile(u"B"_s, {u"x"_s}));
        QTest::newRow("megabytes") << uR"({"Type": "%1"})"_s.arg(QString(3'000'000, u'x'));
    }

    void objectOfAnotherTypeIsRefused()
    {
        QFETCH(QString, text);
        QGuiApplication::clipboard()->setText(text);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s, u"Format error, cannot paste."_s);
        trigger(*window, "actionPaste");
        verifyNothingHappened();
    }

    void spectrumIsTakenWithWhatIsGoodInIt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("points");
        QTest::newRow("unknown keys")
            << spectrumWith(uR"("Foo": {"E": [1]}, "": 1, "E": [1], "I": [2])"_s) << u"1; 2"_s;
        QTest::newRow("type twice, right one last")
            << spectrumWith(uR"("Type": "x", "Type": "Spectrum v1")"_s) << QString();
        QTest::newRow("1000 levels") << spectrumWith(u"\"Foo\": "_s + nested(1000)) << QString();
        QTest::newRow("1000 levels of points")
            << spectrumWith(u"\"Spectrum\": "_s + nested(1000)) << u"0; 0"_s;
        QTest::newRow("every text a number")
            << spectrumWith(uR"("Uploader": 1, "DOI": 2, "FurtherRefs": 3, "T": 4,
                "FurtherComments": 5, "CreatedDate": 6, "FacilityDate": 7, "Source": 8,
                "Resolution": 9, "Normalization": 10, "SpectType": "4", "LineSpectrum": "true",
                "E": "1", "I": "2")"_s)
            << QString();
        QTest::newRow("every text an object")
            << spectrumWith(uR"("Uploader": {}, "DOI": {}, "FurtherRefs": {}, "T": {},
                "FurtherComments": {}, "CreatedDate": {}, "FacilityDate": {}, "Source": {},
                "Resolution": {}, "Normalization": {}, "SpectType": {}, "LineSpectrum": {},
                "E": {}, "I": {})"_s)
            << QString();
        QTest::newRow("points as strings")
            << spectrumWith(uR"("E": ["1", 2], "I": [3, "4"])"_s) << u"0; 3\n2; 0"_s;
        QTest::newRow("unequal points") << spectrumWith(uR"("E": [1, 2], "I": [3])"_s) << QString();
        QTest::newRow("blanks around")
            << u" \n"_s + spectrumWith(uR"("E": [1], "I": [2])"_s) + u"\n\n"_s << u"1; 2"_s;
    }

    void spectrumIsTakenWithWhatIsGoodInIt()
    {
        QFETCH(QString, text);
        QFETCH(QString, points);
        QGuiApplication::clipboard()->setText(text);
        trigger(*window, "actionPaste");
        QCOMPARE(spectrumTitles(*window), QStringList{u"pasted"_s});
        QCOMPARE(child<QPlainTextEdit>(*window, "textEditSpect")->toPlainText(), points);
        const QJsonObject record = spectra(*window).constFirst()->model()->toJson();
        for (const char* key :
             {"Uploader", "DOI", "FurtherRefs", "T", "FurtherComments", "CreatedDate",
              "FacilityDate", "Source", "Resolution", "Normalization"})
            QCOMPARE(record[QLatin1StringView(key)], QJsonValue(QString()));
        QCOMPARE(record[u"SpectType"], QJsonValue(0));
        QCOMPARE(record[u"LineSpectrum"], QJsonValue(false));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

private:
    void expectInvalid()
    {
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"Clipboard does not contain a valid spectrum."_s);
    }

    void verifyNothingHappened() const
    {
        QVERIFY(subWindows(*window).isEmpty());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(cell(*window, SpeciesModel::Name), u"A"_s);
    }
};

QTEST_MAIN(TestHostileClipboard)
#include "tst_hostileclipboard.moc"
