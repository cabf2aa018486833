// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumcontainer.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString clean = u"KORVELA Entry Edit - a.json"_s;
const QString modified = u"KORVELA Entry Edit - a.json *"_s;

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

void setClipboardText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace

/// Spectra come and go: new, delete, copy, paste, open and save.
class TestSpectrumExchange : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"A"_s, {u"one"_s, u"two"_s}));
        QVERIFY(window->openEntry(path));
    }

    // The container

    void containerIsTheRecordWithItsType()
    {
        QCOMPARE(SpectrumContainer::wrap({{u"Title"_s, u"t"_s}, {u"Type"_s, 5}}),
                 QJsonObject({{u"Title"_s, u"t"_s}, {u"Type"_s, u"Spectrum v1"_s}}));
    }

    void typeDecides_data()
    {
        QTest::addColumn<QJsonObject>("container");
        QTest::addColumn<bool>("spectrum");
        QTest::newRow("right") << QJsonObject{{u"Type"_s, u"Spectrum v1"_s}} << true;
        QTest::newRow("species") << QJsonObject{{u"Type"_s, u"Species v1"_s}} << false;
        QTest::newRow("lower case") << QJsonObject{{u"Type"_s, u"spectrum v1"_s}} << false;
        QTest::newRow("number") << QJsonObject{{u"Type"_s, 1}} << false;
        QTest::newRow("missing") << QJsonObject{{u"Title"_s, u"t"_s}} << false;
    }

    void typeDecides()
    {
        QFETCH(QJsonObject, container);
        QFETCH(bool, spectrum);
        QCOMPARE(SpectrumContainer::isSpectrum(container), spectrum);
    }

    // New and delete

    void newSpectrumIsEmptyAndActive()
    {
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+N"_s));
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"two"_s, QString()}));
        QCOMPARE(active(), spectra(*window).constLast());
        QCOMPARE(window->windowTitle(), modified);
        QVERIFY(active()->model()->points().isEmpty());
        QVERIFY(subWindows(*window).constLast()->testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(active()->isVisible());
    }

    void newSpectrumByInvokingTheSlot()
    {
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createNewSpectrumWindow"));
        QCOMPARE(subWindows(*window).size(), 3);
        QCOMPARE(window->windowTitle(), modified);
    }

    void deleteRemovesTheActiveSpectrum()
    {
        activate(1);
        const QSignalSpy destroyed(spectra(*window).at(1), &QObject::destroyed);
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+D"_s));
        QCOMPARE(spectrumTitles(*window), QStringList{u"one"_s});
        QCOMPARE(window->windowTitle(), modified);
        QTRY_COMPARE(destroyed.size(), 1);
    }

    void deleteWithoutSpectraDoesNothing()
    {
        openWithoutSpectra();
        trigger(*window, "actionDelete");
        QCOMPARE(window->windowTitle(), clean);
    }

    // Copy and paste

    void copyPutsTheActiveSpectrumOnTheClipboardAsCompactText()
    {
        activate(1);
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+C"_s));
        QCOMPARE(
            clipboardText(),
            uR"({"CreatedDate":"2024-05-06","DOI":"","E":[10,10.5],"FacilityDate":"",)"
            uR"("FurtherComments":"","FurtherRefs":"","I":[1,2],"LineSpectrum":false,)"
            uR"("Normalization":"","Resolution":"","Source":"","SpectType":2,"T":"","Title":"two",)"
            uR"("Type":"Spectrum v1","Uploader":""})"_s);
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->formats(), QStringList{u"text/plain"_s});
        QCOMPARE(window->windowTitle(), clean);
    }

    void copyWithoutASpectrumComplains_data() { withoutSpectrum(); }

    void copyWithoutASpectrumComplains()
    {
        activateNoSpectrum();
        setClipboardText(u"kept"_s);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"No spectrum window is selected."_s);
        trigger(*window, "actionCopy");
        QCOMPARE(clipboardText(), u"kept"_s);
    }

    void pasteOpensACopy()
    {
        activate(0);
        trigger(*window, "actionCopy");
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+V"_s));
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"two"_s, u"one"_s}));
        QCOMPARE(spectra(*window).at(2)->model()->toJson(),
                 spectra(*window).at(0)->model()->toJson());
        QCOMPARE(active(), spectra(*window).at(2));
        QCOMPARE(window->windowTitle(), modified);
        QVERIFY(subWindows(*window).at(2)->testAttribute(Qt::WA_DeleteOnClose));
    }

    void pasteComplains_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("icon");
        QTest::addColumn<QString>("message");
        const int warning = QMessageBox::Warning;
        const int critical = QMessageBox::Critical;
        const QString invalid = u"Clipboard does not contain a valid spectrum."_s;
        const QString format = u"Format error, cannot paste."_s;
        QTest::newRow("nothing") << QString() << warning << invalid;
        QTest::newRow("points") << u"10 1\n11 2"_s << warning << invalid;
        QTest::newRow("array") << uR"([{"Type": "Spectrum v1"}])"_s << warning << invalid;
        QTest::newRow("string") << uR"("Spectrum v1")"_s << warning << invalid;
        QTest::newRow("number") << u"1"_s << warning << invalid;
        QTest::newRow("null") << u"null"_s << warning << invalid;
        QTest::newRow("truncated") << uR"({"Type": "Spectrum v1")"_s << warning << invalid;
        QTest::newRow("trailing text") << uR"({"Type": "Spectrum v1"} x)"_s << warning << invalid;
        QTest::newRow("empty object") << u"{}"_s << critical << format;
        QTest::newRow("no type") << uR"({"Title": "t"})"_s << critical << format;
        QTest::newRow("species") << uR"({"Type": "Species v1"})"_s << critical << format;
        QTest::newRow("next version") << uR"({"Type": "Spectrum v2"})"_s << critical << format;
        QTest::newRow("type a number") << uR"({"Type": 1})"_s << critical << format;
        QTest::newRow("type an object")
            << uR"({"Type": {"Type": "Spectrum v1"}})"_s << critical << format;
    }

    void pasteComplains()
    {
        QFETCH(QString, text);
        QFETCH(int, icon);
        QFETCH(QString, message);
        setClipboardText(text);
        dialogs->expectBox(static_cast<QMessageBox::Icon>(icon), u"Error"_s, message);
        trigger(*window, "actionPaste");
        QCOMPARE(subWindows(*window).size(), 2);
        QCOMPARE(window->windowTitle(), clean);
    }

    void pasteOfAPictureComplains()
    {
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QGuiApplication::clipboard()->setImage(picture);
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"Clipboard does not contain a valid spectrum."_s);
        trigger(*window, "actionPaste");
        QCOMPARE(subWindows(*window).size(), 2);
    }

    void messagesBelongToTheWindow()
    {
        dialogs->expect([this](QWidget& box) {
            if (box.parentWidget() != window.get() || !box.isModal())
                dialogs->complain(u"not a modal box of the window"_s);
            box.close();
        });
        trigger(*window, "actionPaste");
    }

    // Open

    void openAddsTheSpectrumAndRemembersItsFolder()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"deep"_s));
        const QString path = sandbox->write(u"deep/s.json"_s, spectrumFile(u"three"_s));
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, path, sandbox->path());
        QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+O"_s));
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"two"_s, u"three"_s}));
        QCOMPARE(spectra(*window).at(2)->model()->points(), QList<QPointF>({{10, 1}, {10.5, 2}}));
        QCOMPARE(window->windowTitle(), modified);
        QCOMPARE(rememberedFolder(), sandbox->path(u"deep"_s));
    }

    void cancelledOpenComplains()
    {
        rememberFolder(u"/nowhere"_s);
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, {});
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for reading"_s);
        trigger(*window, "actionLoadSpectrum");
        QCOMPARE(window->windowTitle(), clean);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void openRefusesOtherFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("species file") << speciesFile(u"B"_s, {u"x"_s});
        QTest::newRow("no JSON") << QByteArray("10 1\n");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("truncated") << spectrumFile(u"t"_s).chopped(3);
        QTest::newRow("array") << QByteArray("[1]");
    }

    void openRefusesOtherFiles()
    {
        QFETCH(QByteArray, content);
        rememberFolder(u"/nowhere"_s);
        const QString path = sandbox->write(u"s.json"_s, content);
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, path);
        dialogs->expectBox(QMessageBox::Critical, u"Error"_s,
                           u"Spectrum not found in JSON file. Load aborted."_s);
        trigger(*window, "actionLoadSpectrum");
        QCOMPARE(subWindows(*window).size(), 2);
        QCOMPARE(window->windowTitle(), clean);
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void dialogsOfferJsonAndAllFiles_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("actionLoadSpectrum") << int(QFileDialog::AcceptOpen);
        QTest::newRow("actionSaveSpectrumAs") << int(QFileDialog::AcceptSave);
    }

    void dialogsOfferJsonAndAllFiles()
    {
        QFETCH(int, mode);
        dialogs->expect([this, mode](QWidget& widget) {
            auto& dialog = static_cast<QFileDialog&>(widget);
            if (dialog.nameFilters() !=
                    QStringList({u"JSON Files (*.json)"_s, u"All Files (*)"_s}) ||
                dialog.acceptMode() != mode || dialog.parentWidget() != window.get())
                dialogs->complain(u"another dialog than wanted"_s);
            dialog.reject();
        });
        if (mode == QFileDialog::AcceptOpen)
            dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                               u"Could not open file for reading"_s);
        trigger(*window, QTest::currentDataTag());
    }

    // Save

    void saveWritesTheActiveSpectrumIndented()
    {
        QVERIFY(QDir(sandbox->path()).mkdir(u"deep"_s));
        activate(1);
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"deep/s.json"_s),
                                  sandbox->path());
        trigger(*window, "actionSaveSpectrumAs");
        QCOMPARE(sandbox->read(u"deep/s.json"_s), QByteArray(R"({
    "CreatedDate": "2024-05-06",
    "DOI": "",
    "E": [
        10,
        10.5
    ],
    "FacilityDate": "",
    "FurtherComments": "",
    "FurtherRefs": "",
    "I": [
        1,
        2
    ],
    "LineSpectrum": false,
    "Normalization": "",
    "Resolution": "",
    "Source": "",
    "SpectType": 2,
    "T": "",
    "Title": "two",
    "Type": "Spectrum v1",
    "Uploader": ""
}
)"));
        QCOMPARE(rememberedFolder(), sandbox->path(u"deep"_s));
    }

    void saveLeavesTheDocumentsNameAndFlag_data()
    {
        QTest::addColumn<bool>("wasModified");
        QTest::newRow("clean") << false;
        QTest::newRow("modified") << true;
    }

    void saveLeavesTheDocumentsNameAndFlag()
    {
        QFETCH(bool, wasModified);
        if (wasModified)
            window->setModified();
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"s.json"_s));
        trigger(*window, "actionSaveSpectrumAs");
        QCOMPARE(window->windowTitle(), wasModified ? modified : clean);
    }

    void cancelledSaveSaysNothing()
    {
        rememberFolder(u"/nowhere"_s);
        dialogs->expectFileDialog(u"Save Spectrum"_s, {});
        trigger(*window, "actionSaveSpectrumAs");
        QCOMPARE(rememberedFolder(), u"/nowhere"_s);
    }

    void saveWithoutASpectrumComplains_data() { withoutSpectrum(); }

    void saveWithoutASpectrumComplains()
    {
        activateNoSpectrum();
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                           u"No active spectrum window to save."_s);
        trigger(*window, "actionSaveSpectrumAs");
    }

    void failedSaveComplains()
    {
        rememberFolder(sandbox->path());
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"no/such/s.json"_s));
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Could not open file for writing"_s);
        trigger(*window, "actionSaveSpectrumAs");
        QCOMPARE(rememberedFolder(), sandbox->path());
        QCOMPARE(window->windowTitle(), clean);
    }

    void savedSpectrumOpensAndPastesAgain()
    {
        activate(1);
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"s.json"_s));
        trigger(*window, "actionSaveSpectrumAs");
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, sandbox->path(u"s.json"_s));
        trigger(*window, "actionLoadSpectrum");
        setClipboardText(QString::fromUtf8(sandbox->read(u"s.json"_s)));
        trigger(*window, "actionPaste");
        QCOMPARE(spectrumTitles(*window), QStringList({u"one"_s, u"two"_s, u"two"_s, u"two"_s}));
        QCOMPARE(spectra(*window).at(2)->model()->toJson(),
                 spectra(*window).at(1)->model()->toJson());
    }

private:
    static void withoutSpectrum()
    {
        QTest::addColumn<bool>("otherKind");
        QTest::newRow("no sub-window") << false;
        QTest::newRow("sub-window of another kind") << true;
    }

    void activateNoSpectrum()
    {
        QFETCH(bool, otherKind);
        openWithoutSpectra();
        if (otherKind)
            child<QMdiArea>(*window, "mdiArea")->addSubWindow(new QLabel(u"note"_s))->show();
    }

    void openWithoutSpectra()
    {
        const QString path = sandbox->write(u"a.json"_s, speciesFile(u"A"_s));
        QVERIFY(window->openEntry(path));
        QVERIFY(subWindows(*window).isEmpty());
    }

    void activate(qsizetype number)
    {
        child<QMdiArea>(*window, "mdiArea")->setActiveSubWindow(subWindows(*window).at(number));
        QCOMPARE(active(), spectra(*window).at(number));
    }

    [[nodiscard]] SpectrumWindow* active() const
    {
        return qobject_cast<SpectrumWindow*>(
            child<QMdiArea>(*window, "mdiArea")->activeSubWindow()->widget());
    }
};

QTEST_MAIN(TestSpectrumExchange)
#include "tst_spectrumexchange.moc"
