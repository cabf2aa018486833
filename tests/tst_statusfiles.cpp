// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/picturehost.h"
#include "tests/support/statustest.h"
#include "widgets/elidedlabel.h"

#include <QBuffer>
#include <QDialogButtonBox>
#include <QDir>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QRegularExpression>
#include <QSslSocket>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString fetchingText = u"Fetching the structure image"_s;

QByteArray picture()
{
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

/// What the status bar says of files that were saved, and of a structure image under way.
class TestStatusFiles : public StatusTest
{
    Q_OBJECT

private Q_SLOTS:
    void savedEntryIsTold()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        QCOMPARE(last(), QString()); // opening is no saving
        press(u"Ctrl+S"_s);
        verifySaved(u"Entry"_s, u"a.json"_s);
        trigger(*window, "actionClean");
        verifySaved(u"Entry"_s, u"a.json"_s);
    }

    void cancelledSaveIsNone()
    {
        trigger(*window, "actionNew");
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        press(u"Ctrl+S"_s);
        QCOMPARE(last(), QString());
        QVERIFY(showActive(*window));
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(u"b.json"_s));
        press(u"Ctrl+S"_s);
        verifySaved(u"Entry"_s, u"b.json"_s);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, {});
        trigger(*window, "actionSaveSpeciesAs");
        verifySaved(u"Entry"_s, u"b.json"_s);
    }

    void failedSaveIsTold()
    {
        const QString folder = sandbox->path(u"folder"_s);
        QVERIFY(QDir().mkdir(folder));
        openEntry(u"folder/a.json"_s, {});
        press(u"Ctrl+S"_s);
        verifySaved(u"Entry"_s, u"folder/a.json"_s);
        QVERIFY(QDir(folder).removeRecursively());
        expectBoxWhile(u"Could not open file for writing."_s, u"Entry not saved"_s);
        press(u"Ctrl+S"_s);
        verifyTold(u"Entry not saved"_s, u"folder/a.json"_s);
    }

    void savingOnTheWayOutIsTold()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        window->setModified();
        dialogs->expectSaveQuestion(QMessageBox::Save);
        openEntry(u"b.json"_s, {u"two"_s});
        verifySaved(u"Entry"_s, u"a.json"_s);

        QVERIFY(showActive(*window));
        window->setModified();
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        trigger(*window, "actionClean");
        verifySaved(u"Entry"_s, u"a.json"_s);
    }

    void savedSpectrumIsTold()
    {
        openEntry(u"a.json"_s, {u"one"_s});
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"s.json"_s));
        trigger(*window, "actionSaveSpectrumAs");
        verifySaved(u"Spectrum"_s, u"s.json"_s);
        dialogs->expectFileDialog(u"Save Spectrum"_s, {});
        trigger(*window, "actionSaveSpectrumAs");
        verifySaved(u"Spectrum"_s, u"s.json"_s);
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"no folder/s.json"_s));
        expectBoxWhile(u"Could not open file for writing"_s, u"Spectrum not saved"_s);
        trigger(*window, "actionSaveSpectrumAs");
        verifyTold(u"Spectrum not saved"_s, u"no folder/s.json"_s);
    }

    void compiledDatabaseIsTold()
    {
        const QString entry = sandbox->write(u"a.json"_s, speciesFile(u"Water"_s, {u"one"_s}));
        expectCompilation(entry, sandbox->path(u"db.json"_s));
        expectBoxWhile(u"Species database created successfully."_s, u"Database saved"_s);
        window->createSpeciesDatabase();
        verifySaved(u"Database"_s, u"db.json"_s);

        const QString noEntry = sandbox->write(u"s.json"_s, spectrumFile(u"one"_s));
        expectCompilation(noEntry, sandbox->path(u"other.json"_s));
        expectBoxWhile(u"Invalid species type in file: "_s + noEntry, u"Database saved"_s);
        expectBoxWhile(u"Failed to create species database."_s, u"Database not saved"_s);
        window->createSpeciesDatabase();
        verifyTold(u"Database not saved"_s, u"other.json"_s);

        dialogs->expect([](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
        window->createSpeciesDatabase();
        verifyTold(u"Database not saved"_s, u"other.json"_s);
    }

    void imageUnderWayIsTold()
    {
        QVERIFY2(QSslSocket::supportsSsl(), "pictures are fetched over TLS, which is missing");
        PictureHost host;
        const TrustInPictureHost trust;
        window->findChild<QNetworkAccessManager*>()->setProxy(host.proxy());
        host.holdAnswers();
        host.serve("/cgi/cbook.cgi?Struct=C64175&Type=Color", picture());
        askFor(u"64-17-6"_s); // has a wrong digit
        QCOMPARE(fetching(), QString());
        for (const auto& number : {u"58-08-2"_s, u"64-17-5"_s})
            askFor(number);
        QTRY_COMPARE(host.requests().size(), 2);
        QCOMPARE(fetching(), fetchingText);

        host.release("/cgi/cbook.cgi?Struct=C64175&Type=Color");
        QTRY_VERIFY(!window->findChild<SpeciesModel*>()->image().isNull());
        QCOMPARE(fetching(), fetchingText); // the other one
        expectBoxWhile(u"Failed to download the image."_s, {});
        host.release("/cgi/cbook.cgi?Struct=C58082&Type=Color");
        QTRY_VERIFY(dialogs->passed());
        QCOMPARE(fetching(), QString());
    }

private:
    void press(const QString& keys)
    {
        QTest::keySequence(window.get(), QKeySequence(keys));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    void askFor(const QString& casNumber)
    {
        typeInto(*child<QWidget>(*window, "lineEditCAS"), casNumber);
        if (casNumber.endsWith(u'6')) {
            dialogs->expectBox(QMessageBox::Warning, u"Invalid Input"_s,
                               u"Please enter a valid CAS number (e.g., 58-08-2)."_s);
        }
        QTest::mouseClick(child<QPushButton>(*window, "buttonDownload"), Qt::LeftButton);
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(showActive(*window));
    }

    void verifyTold(const QString& outcome, const QString& name)
    {
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        const QFileInfo file(sandbox->path(name));
        QVERIFY2(last().startsWith(outcome + u" at "_s), qPrintable(last()));
        const QString place = file.fileName() + u" in "_s + file.absolutePath();
        QVERIFY2(QDir::fromNativeSeparators(last()).endsWith(u": "_s + place), qPrintable(last()));
        const QString tip = child<QWidget>(*window, "statusLast")->toolTip();
        static const QRegularExpression second(u" on \\d{4}(-\\d\\d){2} at \\d\\d(:\\d\\d){2}"_s);
        QVERIFY2(tip.contains(second), qPrintable(tip));
        QVERIFY(QDir::fromNativeSeparators(tip).contains(file.absoluteFilePath()));
    }

    void verifySaved(const QString& what, const QString& name)
    {
        verifyTold(what + u" saved"_s, name);
        QVERIFY(QFileInfo::exists(sandbox->path(name)));
    }

    /// A box with this text, while which the bar has already come to say what begins with @p said.
    void expectBoxWhile(const QString& text, const QString& said)
    {
        dialogs->expect([this, text, said](QWidget& dialog) {
            const auto* box = qobject_cast<QMessageBox*>(&dialog);
            if (box == nullptr || box->text() != text)
                dialogs->complain(u"no box: "_s + text);
            if (said.isEmpty() ? !fetching().isEmpty() : !last().startsWith(said))
                dialogs->complain(u"said: "_s + last() + fetching());
            static_cast<QDialog&>(dialog).reject();
        });
    }

    void expectCompilation(const QString& entry, const QString& target)
    {
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton_3", "pushButton", "pushButton_2"})
                QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(u"Database will be saved to..."_s, target);
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s, entry);
    }
};

QTEST_MAIN(TestStatusFiles)
#include "tst_statusfiles.moc"
