// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/picturehost.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QNetworkAccessManager>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSslSocket>
#include <QTest>
#include <QTextEdit>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

bool isWaiting()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    return cursor != nullptr && cursor->shape() == Qt::WaitCursor;
}

} // namespace

/// The wait cursor is shown during work that large entries make long, and at no other time: neither
/// afterwards (the base class looks at that, too) nor while a message waits for its answer.
class TestWaiting : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void openingAndCleaning()
    {
        watch(window->findChild<SpeciesModel*>(), &SpeciesModel::dataChanged);
        watch(child<QMdiArea>(*window, "mdiArea"), &QMdiArea::subWindowActivated);
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        verifyWaited();
        window->cleanUp();
        verifyWaited();
    }

    void openingBrokenFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("torn") << QByteArray("{\"Type\":\"Species v1\",");
        QTest::newRow("spectrum") << spectrumFile(u"one"_s);
    }

    void openingBrokenFiles()
    {
        QFETCH(QByteArray, content);
        const QString path =
            content.isEmpty() ? sandbox->path(u"b.json"_s) : sandbox->write(u"b.json"_s, content);
        expectBoxWithoutWaiting();
        QVERIFY(!window->openEntry(path));
        verifyOver();

        expectBoxWithoutWaiting();
        dropFile(*window, *window->centralWidget(), path);
        verifyOver();
    }

    void openingSpectra()
    {
        watch(child<QMdiArea>(*window, "mdiArea"), &QMdiArea::subWindowActivated);
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s,
                                  sandbox->write(u"s.json"_s, spectrumFile(u"one"_s)));
        trigger(*window, "actionLoadSpectrum");
        verifyWaited();

        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, entryFile(u"a.json"_s));
        expectBoxWithoutWaiting();
        trigger(*window, "actionLoadSpectrum");
        verifyOver();

        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, {});
        expectBoxWithoutWaiting();
        trigger(*window, "actionLoadSpectrum");
        verifyOver();
    }

    void saving()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        window->setModified();
        watch(window.get(), &QWidget::windowTitleChanged);
        trigger(*window, "actionSaveSpecies");
        verifyWaited();
    }

    void savingWhereNothingCanBeWritten()
    {
        const QString folder = sandbox->path(u"folder"_s);
        QVERIFY(QDir().mkdir(folder));
        QVERIFY(window->openEntry(entryFile(u"folder/a.json"_s)));
        QVERIFY(QDir(folder).removeRecursively());
        expectBoxWithoutWaiting();
        trigger(*window, "actionSaveSpecies");
        verifyOver();
    }

    void stepping()
    {
        entryFile(u"a.json"_s);
        sandbox->write(u"b.json"_s, "{}");
        entryFile(u"c.json"_s);
        dialogs->expectFileDialog(u"Select Folder"_s, sandbox->path());
        trigger(*window, "actionSelectFolder");
        watch(window->findChild<SpeciesModel*>(), &SpeciesModel::dataChanged);
        trigger(*window, "actionNextFile");
        verifyWaited();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - c.json"_s);

        // Nothing else is left to step to.
        QVERIFY(QFile::remove(sandbox->path(u"a.json"_s)));
        expectBoxWithoutWaiting();
        trigger(*window, "actionNextFile");
        verifyOver();
    }

    void exchangingSpectra()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        watch(QGuiApplication::clipboard(), &QClipboard::dataChanged);
        trigger(*window, "actionCopy");
        verifyWaited();
        watch(child<QMdiArea>(*window, "mdiArea"), &QMdiArea::subWindowActivated);
        trigger(*window, "actionPaste");
        verifyWaited();

        QGuiApplication::clipboard()->setText(u"{}"_s);
        expectBoxWithoutWaiting();
        trigger(*window, "actionPaste");
        verifyOver();
    }

    void savingASpectrum()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"s.json"_s));
        trigger(*window, "actionSaveSpectrumAs");
        verifyOver();

        dialogs->expectFileDialog(u"Save Spectrum"_s, sandbox->path(u"no folder/s.json"_s));
        expectBoxWithoutWaiting();
        trigger(*window, "actionSaveSpectrumAs");
        verifyOver();
    }

    void compilingADatabase()
    {
        expectCompilation(entryFile(u"a.json"_s), sandbox->path(u"one.json"_s));
        expectBoxWithoutWaiting();
        window->createSpeciesDatabase();
        verifyOver();

        expectCompilation(sandbox->write(u"s.json"_s, spectrumFile(u"one"_s)),
                          sandbox->path(u"two.json"_s));
        expectBoxWithoutWaiting();
        expectBoxWithoutWaiting();
        window->createSpeciesDatabase();
        verifyOver();
    }

    void downloading()
    {
        QVERIFY2(QSslSocket::supportsSsl(), "pictures are fetched over TLS, which is missing");
        PictureHost host;
        const TrustInPictureHost trust;
        window->findChild<QNetworkAccessManager*>()->setProxy(host.proxy());
        host.holdAnswers();
        auto* button = child<QPushButton>(*window, "buttonDownload");
        for (const char* number : {"58-08-2", "64-17-5"}) {
            typeInto(*child<QWidget>(*window, "lineEditCAS"), QString::fromLatin1(number));
            button->click();
        }
        QCOMPARE(button->cursor().shape(), Qt::BusyCursor);
        // Everything else goes on meanwhile.
        verifyOver();

        QTRY_COMPARE(host.requests().size(), 2);
        expectBoxWithoutWaiting();
        host.release("/cgi/cbook.cgi?Struct=C64175&Type=Color");
        QTRY_VERIFY(dialogs->passed());
        QCOMPARE(button->cursor().shape(), Qt::BusyCursor);
        expectBoxWithoutWaiting();
        host.release("/cgi/cbook.cgi?Struct=C58082&Type=Color");
        QTRY_VERIFY(dialogs->passed());
        QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
    }

    void changingPoints_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* button : {"buttonNormalize", "buttonSparse", "buttonCommaToDot"})
            QTest::newRow(button) << 0;
    }

    void changingPoints()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        auto* points = child<QPlainTextEdit>(*window, "textEditSpect");
        watch(points, &QPlainTextEdit::textChanged);
        child<QPushButton>(*window, QTest::currentDataTag())->click();
        verifyWaited();
    }

    void pastingIntoAField_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* field : {"textEditSpect", "textEditComments", "lineEditUploader"})
            QTest::newRow(field) << 0;
    }

    void pastingIntoAField()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        QGuiApplication::clipboard()->setText(u"9 1\n10 2"_s);
        auto* field = child<QWidget>(*window, QTest::currentDataTag());
        if (auto* points = qobject_cast<QPlainTextEdit*>(field))
            watch(points, &QPlainTextEdit::textChanged);
        else
            watch(qobject_cast<QTextEdit*>(field), &QTextEdit::textChanged);
        field->setFocus();
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        verifyWaited();
    }

    void refusingToThinALineSpectrum()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        child<QAbstractButton>(*window, "checkBoxLineSpectrum")->click();
        expectBoxWithoutWaiting();
        child<QPushButton>(*window, "buttonSparse")->click();
        verifyOver();
    }

    void takingOverTypedPoints()
    {
        QVERIFY(window->openEntry(entryFile(u"a.json"_s)));
        const SpectrumModel* model = spectra(*window).constFirst()->model();
        child<QPlainTextEdit>(*window, "textEditSpect")->setPlainText(u"9 1\n10 2"_s);
        watch(model, &SpectrumModel::spectrumDataChanged);
        QTRY_VERIFY(!seen.isEmpty());
        verifyWaited();
    }

private:
    QString entryFile(const QString& name) const
    {
        return sandbox->write(name, speciesFile(u"Water"_s, {u"one"_s}));
    }

    /// Notes at each such signal whether the wait cursor is shown.
    template <typename Sender, typename Signal>
    void watch(const Sender* sender, Signal signal)
    {
        seen.clear();
        connect(sender, signal, this, [this] { seen.append(isWaiting()); });
    }

    void verifyWaited()
    {
        QVERIFY(!seen.isEmpty());
        QVERIFY(!seen.contains(false));
        verifyOver();
    }

    void verifyOver()
    {
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        seen.clear();
    }

    void expectBoxWithoutWaiting()
    {
        dialogs->expect([this](QWidget& box) {
            if (qobject_cast<QMessageBox*>(&box) == nullptr || isWaiting())
                dialogs->complain(u"a box without the wait cursor was expected"_s);
            static_cast<QDialog&>(box).reject();
        });
    }

    void expectCompilation(const QString& entry, const QString& target)
    {
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton", "pushButton_2"})
                QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(u"Database will be saved to..."_s, target);
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s, entry);
    }

    QList<bool> seen;
};

QTEST_MAIN(TestWaiting)
#include "tst_waiting.moc"
