// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QDate>
#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

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

/// Selects the character @p position of the field, which holds one line.
void selectCharacter(int position)
{
    press(Qt::Key_Home);
    for (int i = 0; i < position; ++i)
        press(Qt::Key_Right);
    press(Qt::Key_Right, Qt::ShiftModifier);
}

} // namespace

/// The first entry, as the manual tells it, from nothing to its file without a mouse.
class TestKeyboardEntry : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void firstEntryIsMadeWithTheKeyboardAlone()
    {
        TestSupport::rememberFolder(sandbox->path());
        press(Qt::Key_D, Qt::ControlModifier);
        fillForm();
        if (QTest::currentTestFailed())
            return;
        addSpectrum();
        if (QTest::currentTestFailed())
            return;
        fillSpectrum();
        if (QTest::currentTestFailed())
            return;
        enterPoints();
        if (QTest::currentTestFailed())
            return;
        save();

        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - water.json"_s);
        const QJsonObject saved = QJsonDocument::fromJson(sandbox->read(u"water.json"_s)).object();
        QCOMPARE(saved, expectedEntry());
    }

private:
    void fillForm()
    {
        QVERIFY(goTo(u"lineEditSpecies"_s));
        type(u"water"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), u"textEditAliases"_s);
        type(u"oxidane"_s);
        press(Qt::Key_Return);
        type(u"dihydrogen oxide"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), u"lineEditMass"_s);
        type(u"18.0106"_s);
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), u"lineEditSumFormula"_s);
        type(u"H2O"_s);
        selectCharacter(1);
        press(Qt::Key_B, Qt::ControlModifier);
        fillOn({{u"lineEditInChI"_s, u"InChI=1S/H2O/h1H2"_s},
                {u"lineEditCAS"_s, u"7732-18-5"_s},
                {u"buttonDownload"_s, {}},
                {u"lineEditCID"_s, u"962"_s},
                {u"lineEditAIE"_s, u"12.6223(3)"_s},
                {u"lineEditAIEComment"_s, u"X 2B1 of H2O+"_s}});
        selectCharacter(2);
        press(Qt::Key_P, Qt::ControlModifier);
        fillOn({{u"lineEditVIE"_s, u"12.62"_s}, {u"lineEditVIEComment"_s, u"10.1000/182"_s}});
        press(Qt::Key_Tab);
    }

    /// Goes on to each field with Tab and types its text.
    static void fillOn(const QList<std::pair<QString, QString>>& fields)
    {
        for (const auto& [field, text] : fields) {
            press(Qt::Key_Tab);
            QCOMPARE(focusName(), field);
            type(text);
        }
    }

    void addSpectrum()
    {
        dialogs->expect([this](QWidget& menu) {
            if (static_cast<QMenu&>(menu).title() != u"S&pectrum")
                dialogs->complain(u"another menu"_s);
            QTest::keyClick(&menu, Qt::Key_N);
        });
        press(Qt::Key_P, Qt::AltModifier);
        QTRY_VERIFY(dialogs->passed());
        QTRY_COMPARE(TestSupport::spectra(*window).size(), 1);
    }

    static void fillSpectrum()
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
        press(Qt::Key_Tab);
        QCOMPARE(focusName(), u"checkBoxLineSpectrum"_s);
    }

    void enterPoints()
    {
        const SpectrumModel* model = TestSupport::spectra(*window).constFirst()->model();
        QVERIFY(goTo(u"textEditSpect"_s));
        QGuiApplication::clipboard()->setText(u"12,60\t10\n12,62\t40\n12,64\t20\n"_s);
        press(Qt::Key_V, Qt::ControlModifier);
        QVERIFY(goTo(u"buttonCommaToDot"_s, Qt::Key_Backtab));
        QSignalSpy announced(model, &SpectrumModel::spectrumDataChanged);
        press(Qt::Key_Space);
        // The points are taken over once typing has paused.
        QVERIFY(announced.wait());
        QCOMPARE(model->points().size(), 3);
        QVERIFY(goTo(u"buttonNormalize"_s, Qt::Key_Backtab));
        press(Qt::Key_Space);
        QCOMPARE(model->points().constLast(), QPointF(12.64, 500));
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
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
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

    static QJsonObject expectedEntry()
    {
        return {
            {u"Type"_s, u"Species v1"_s},
            {u"Species"_s, QJsonObject{{u"Name"_s, u"water"_s},
                                       {u"Aliases"_s, u"oxidane<br>dihydrogen oxide"_s},
                                       {u"Mass"_s, 18.0106},
                                       {u"Formula"_s, u"H<sub>2</sub>O"_s},
                                       {u"InChI"_s, u"InChI=1S/H2O/h1H2"_s},
                                       {u"CAS"_s, u"7732-18-5"_s},
                                       {u"PubChem"_s, u"962"_s},
                                       {u"AIE"_s, u"12.6223(3)"_s},
                                       {u"AIE_Comment"_s, u"X <sup>2</sup>B1 of H2O+"_s},
                                       {u"VIE"_s, u"12.62"_s},
                                       {u"VIE_Comment"_s, u"10.1000/182"_s}}},
            {u"Dataset1"_s,
             QJsonObject{{u"Title"_s, u"Threshold photoelectron spectrum"_s},
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
                         {u"CreatedDate"_s, QDate::currentDate().toString(Qt::ISODate)},
                         {u"LineSpectrum"_s, false},
                         {u"E"_s, QJsonArray{12.6, 12.62, 12.64}},
                         {u"I"_s, QJsonArray{250, 1000, 500}}}},
        };
    }
};

QTEST_MAIN(TestKeyboardEntry)
#include "tst_keyboardentry.moc"
