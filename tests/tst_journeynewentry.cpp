// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/journeytest.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

void type(const QString& text)
{
    QTest::keyClicks(QApplication::focusWidget(), text);
}

QString focusName()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
}

/// Presses @p key until the focus is in the field; whether it gets there.
bool goTo(const QString& field, Qt::Key key = Qt::Key_Tab)
{
    constexpr int mostStops = 40;
    for (int i = 0; i < mostStops && focusName() != field; ++i)
        press(key);
    return focusName() == field;
}

/// Goes on to each field with Tab and types its text.
void fillOn(const QList<std::pair<QString, QString>>& fields)
{
    for (const auto& [field, text] : fields) {
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), field);
        type(text);
    }
}

/// Presses Return until the dialog is gone: names offered for completion take the first one.
void pressReturnIn(QDialog& dialog)
{
    constexpr int most = 3;
    for (int i = 0; i < most && dialog.isVisible(); ++i) {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : dialog.focusWidget(), Qt::Key_Return);
    }
}

} // namespace

/// The first entry, as the manual tells it, from nothing to its file.
class TestJourneyNewEntry : public JourneyTest
{
    Q_OBJECT

private Q_SLOTS:
    void entryIsMadeWithTheKeyboardAlone()
    {
        go<TestJourneyNewEntry>(
            {&TestJourneyNewEntry::startAfresh, &TestJourneyNewEntry::nameTheSpecies,
             &TestJourneyNewEntry::giveItsNumbers, &TestJourneyNewEntry::addSpectrumByTheMenu,
             &TestJourneyNewEntry::describeTheSpectrum, &TestJourneyNewEntry::pasteItsPoints,
             &TestJourneyNewEntry::normaliseAndDrawSticks, &TestJourneyNewEntry::save,
             &TestJourneyNewEntry::findAllOfItInTheFile,
             &TestJourneyNewEntry::stepToTheNextFileAndBack});
    }

private:
    void startAfresh()
    {
        rememberFolder(sandbox->path());
        press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
    }

    void nameTheSpecies()
    {
        QVERIFY(goTo(u"lineEditSpecies"_s));
        type(u"water"_s);
        fillOn({{u"textEditAliases"_s, u"oxidane"_s}});
        press(Qt::Key_Return);
        type(u"dihydrogen oxide"_s);
        fillOn({{u"lineEditMass"_s, u"18.0153"_s}, {u"lineEditSumFormula"_s, u"H2O"_s}});
        selectCharacter(1);
        press(Qt::Key_B, Qt::ControlModifier);
        fillOn({{u"lineEditInChI"_s, u"InChI=1S/H2O/h1H2"_s},
                {u"lineEditCAS"_s, u"7732-18-5"_s},
                {u"buttonDownload"_s, {}},
                {u"lineEditCID"_s, u"962"_s}});
    }

    void giveItsNumbers()
    {
        fillOn(
            {{u"lineEditAIE"_s, u"12.6223(3)"_s}, {u"lineEditAIEComment"_s, u"X 2B1 of H2O+"_s}});
        selectCharacter(2);
        press(Qt::Key_P, Qt::ControlModifier);
        fillOn({{u"lineEditVIE"_s, u"12.62"_s}, {u"lineEditVIEComment"_s, u"10.1000/182"_s}});
        press(Qt::Key_Tab);
    }

    void addSpectrumByTheMenu()
    {
        dialogs->expect([this](QWidget& menu) {
            if (static_cast<QMenu&>(menu).title() != u"S&pectrum")
                dialogs->complain(u"another menu"_s);
            QTest::keyClick(&menu, Qt::Key_N);
        });
        press(Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(dialogs->passed());
        QTRY_COMPARE(spectra(*window).size(), 1);
        created = child<QLabel>(firstSpectrum(), "labelCreated")->text();
        QVERIFY(QDate::fromString(created, Qt::ISODate).isValid());
    }

    void describeTheSpectrum()
    {
        QVERIFY(goTo(u"lineEditTitle"_s));
        type(u"Threshold photoelectron spectrum"_s);
        fillOn(
            {{u"lineEditUploader"_s, u"A. Person"_s}, {u"lineEditSpectDOI"_s, u"10.1000/183"_s}});
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), u"comboBoxType"_s);
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        fillOn({{u"textEditCitations"_s, u"Own measurement"_s},
                {u"lineEditSource"_s, u"synchrotron"_s},
                {u"lineEditSourceT"_s, u"300"_s},
                {u"lineEditResolution"_s, u"5"_s},
                {u"lineEditFlux"_s, u"photodiode"_s},
                {u"lineEditFacilityDate"_s, u"2026, at home"_s},
                {u"textEditComments"_s, u"none"_s}});
    }

    void pasteItsPoints()
    {
        QVERIFY(goTo(u"textEditSpect"_s));
        QGuiApplication::clipboard()->setText(u"12,60\t10\n12,62\t40\n12,64\t20\n"_s);
        press(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(goTo(u"buttonCommaToDot"_s, Qt::Key_Backtab));
        QSignalSpy announced(firstSpectrum().model(), &SpectrumModel::spectrumDataChanged);
        press(Qt::Key_Space);
        // The points are taken over once typing has paused.
        QVERIFY(announced.wait(patience));
        QCOMPARE(firstSpectrum().model()->points().size(), 3);
    }

    void normaliseAndDrawSticks()
    {
        QVERIFY(goTo(u"buttonNormalize"_s, Qt::Key_Backtab));
        press(Qt::Key_Space);
        QCOMPARE(firstSpectrum().model()->points().constLast(), QPointF(12.64, 500));
        QVERIFY(goTo(u"checkBoxLineSpectrum"_s, Qt::Key_Backtab));
        press(Qt::Key_Space);
    }

    void save()
    {
        dialogs->expect([this](QWidget& dialog) {
            if (dialog.windowTitle() != u"Save Species JSON File")
                dialogs->complain(u"another dialog: "_s + dialog.windowTitle());
            QTest::keyClicks(dialog.focusWidget(), sandbox->path(u"water.json"_s));
            pressReturnIn(static_cast<QDialog&>(dialog));
        });
        press(Qt::Key_S, Qt::ControlModifier);
        verifyDocument(u"water.json"_s, u"water"_s, {u"Threshold photoelectron spectrum"_s});
    }

    void findAllOfItInTheFile()
    {
        const QJsonObject species{{u"Name"_s, u"water"_s},
                                  {u"Aliases"_s, u"oxidane<br>dihydrogen oxide"_s},
                                  {u"Mass"_s, 18.0153},
                                  {u"Formula"_s, u"H<sub>2</sub>O"_s},
                                  {u"InChI"_s, u"InChI=1S/H2O/h1H2"_s},
                                  {u"CAS"_s, u"7732-18-5"_s},
                                  {u"PubChem"_s, u"962"_s},
                                  {u"AIE"_s, u"12.6223(3)"_s},
                                  {u"AIE_Comment"_s, u"X <sup>2</sup>B1 of H2O+"_s},
                                  {u"VIE"_s, u"12.62"_s},
                                  {u"VIE_Comment"_s, u"10.1000/182"_s}};
        const QJsonObject dataset{{u"Title"_s, u"Threshold photoelectron spectrum"_s},
                                  {u"Uploader"_s, u"A. Person"_s},
                                  {u"DOI"_s, u"10.1000/183"_s},
                                  {u"SpectType"_s, 2},
                                  {u"FurtherRefs"_s, u"Own measurement"_s},
                                  {u"Source"_s, u"synchrotron"_s},
                                  {u"T"_s, u"300"_s},
                                  {u"Resolution"_s, u"5"_s},
                                  {u"Normalization"_s, u"photodiode"_s},
                                  {u"FacilityDate"_s, u"2026, at home"_s},
                                  {u"FurtherComments"_s, u"none"_s},
                                  {u"CreatedDate"_s, created},
                                  {u"LineSpectrum"_s, true},
                                  {u"E"_s, QJsonArray{12.6, 12.62, 12.64}},
                                  {u"I"_s, QJsonArray{250, 1000, 500}}};
        QCOMPARE(
            QJsonDocument::fromJson(sandbox->read(u"water.json"_s)).object(),
            QJsonObject(
                {{u"Type"_s, u"Species v1"_s}, {u"Species"_s, species}, {u"Dataset1"_s, dataset}}));
    }

    void stepToTheNextFileAndBack()
    {
        sandbox->write(u"xenon.json"_s, speciesFile(u"xenon"_s, {u"PES"_s}));
        activate();
        press(Qt::Key_PageDown, Qt::AltModifier);
        verifyDocument(u"xenon.json"_s, u"xenon"_s, {u"PES"_s});
        press(Qt::Key_PageUp, Qt::AltModifier);
        verifyDocument(u"water.json"_s, u"water"_s, {u"Threshold photoelectron spectrum"_s});
        QCOMPARE(firstSpectrum().model()->points().size(), 3);
    }

    QString created;
};

QTEST_MAIN(TestJourneyNewEntry)
#include "tst_journeynewentry.moc"
