// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"
#include "tests/support/compression.h"
#include "tests/support/documentwindow.h"
#include "tests/support/picturehost.h"
#include "tests/support/testpicture.h"
#include "tests/support/windowtest.h"

#include <QLabel>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPushButton>
#include <QSignalSpy>
#include <QSslSocket>
#include <QTest>
#include <QTextEdit>

#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::encoded;
using TestSupport::plainPicture;

namespace {

const char* const caffeineTarget = "/cgi/cbook.cgi?Struct=C58082&Type=Color";
/// Rather more than an answer may bring, for what is on the way.
constexpr qint64 mostSent = 100 * 1024 * 1024;

const char* const waterTarget = "/cgi/cbook.cgi?Struct=C7732185&Type=Color";

} // namespace

/// Fetching the structure image for a CAS number, over real HTTPS to a host on this computer.
class TestStructureDownload : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(QSslSocket::supportsSsl(), "pictures are fetched over TLS, which is missing");
    }

    void init() override
    {
        WindowTest::init();
        host = std::make_unique<PictureHost>();
        trust = std::make_unique<TrustInPictureHost>();
        window->findChild<QNetworkAccessManager*>()->setProxy(host->proxy());
    }

    void cleanup() override
    {
        WindowTest::cleanup();
        trust.reset();
        host.reset();
    }

    void pictureOfTheSubstanceIsFetchedAndShown()
    {
        const QImage picture = plainPicture(Qt::darkGreen);
        host->serve(caffeineTarget, encoded(picture));
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        QVERIFY(finishDownload());

        QCOMPARE(host->tunnels(), QByteArrayList{"CONNECT webbook.nist.gov:443"});
        QCOMPARE(host->requests(),
                 QByteArrayList{"GET /cgi/cbook.cgi?Struct=C58082&Type=Color HTTP/1.1 "
                                "@webbook.nist.gov"});
        QCOMPARE(storedPicture(), picture);
        const QPixmap shown = TestSupport::child<QLabel>(*window, "imageLabel")->pixmap();
        QVERIFY(!shown.isNull());
        QCOMPARE(shown.toImage().pixelColor(shown.rect().center()), QColor(Qt::darkGreen));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);
    }

    void pictureMarksASavedDocumentModifiedOnce()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        const QString file = sandbox->write(
            u"caffeine.json"_s, "{\"Type\":\"Species v1\",\"Species\":{\"CAS\":\"58-08-2\"}}");
        QVERIFY(window->openEntry(file));
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - caffeine.json *"_s);

        TestSupport::trigger(*window, "actionSaveSpecies");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - caffeine.json"_s);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(host->requests().size(), 2);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - caffeine.json"_s);
    }

    void nothingIsKeptBetweenDownloads()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        typeCasNumber(u"58-08-2"_s);
        for (int download = 1; download <= 3; ++download) {
            clickDownload();
            QVERIFY(finishDownload());
            QCOMPARE(host->tunnels().size(), download); // no connection
            QCOMPARE(host->cookies(), QByteArrayList());
        }
        QCOMPARE(host->requests().size(), 3);
        QCOMPARE(storedPicture(), plainPicture(Qt::red));
    }

    void casNumbersInAnyDressAreAccepted_data()
    {
        QTest::addColumn<QString>("html");
        QTest::newRow("plain") << u"58-08-2"_s;
        QTest::newRow("blanks around") << u"&nbsp; 58-08-2 &nbsp;"_s;
        QTest::newRow("superscript") << u"<sup>58</sup>-08-2"_s;
        QTest::newRow("subscript") << u"58<sub>-08-</sub>2"_s;
        QTest::newRow("both") << u"<sup>5</sup><sub>8</sub>-08-<sup>2</sup>"_s;
    }

    void casNumbersInAnyDressAreAccepted()
    {
        QFETCH(const QString, html);
        host->serve(caffeineTarget, encoded(plainPicture(Qt::blue)));
        TestSupport::child<QTextEdit>(*window, "lineEditCAS")->setHtml(html);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::blue));
    }

    void blanksTypedAroundTheNumberAreAccepted()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::blue)));
        typeCasNumber(u"  58-08-2  "_s);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::blue));
    }

    void invalidCasNumbersAskForNothing_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("nothing") << QString();
        QTest::newRow("blanks") << u"   "_s;
        QTest::newRow("wrong check digit") << u"58-08-3"_s;
        QTest::newRow("one digit in the middle") << u"58-8-2"_s;
        QTest::newRow("eight digits in front") << u"10000000-00-0"_s;
        QTest::newRow("blank inside") << u"58 -08-2"_s;
        QTest::newRow("no hyphens") << u"58082"_s;
        QTest::newRow("name") << u"caffeine"_s;
    }

    void invalidCasNumbersAskForNothing()
    {
        QFETCH(const QString, typed);
        keepPicture();
        typeCasNumber(typed);
        expectInvalidInput();
        clickDownload();
        verifyNothingWasAsked();
    }

    void dashesInsteadOfHyphensAskForNothing()
    {
        keepPicture();
        TestSupport::child<QTextEdit>(*window, "lineEditCAS")
            ->setPlainText(QString::fromUtf8("58\u201308\u20132"));
        expectInvalidInput();
        clickDownload();
        verifyNothingWasAsked();
    }

    void substanceWithoutAPictureIsReported()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        keepPicture();
        typeCasNumber(u"7732-18-5"_s);
        expectDownloadFailed();
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(host->requests().size(), 1);
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void pageInsteadOfAPictureIsReported_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty body") << QByteArray();
        QTest::newRow("HTML page") << QByteArray("<!DOCTYPE html><html><body>Sorry</body></html>");
        QTest::newRow("half a picture") << encoded(plainPicture(Qt::red)).left(20);
    }

    void pageInsteadOfAPictureIsReported()
    {
        QFETCH(const QByteArray, body);
        host->serve(caffeineTarget, body);
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        dialogs->expectBox(QMessageBox::Critical, u"Image Error"_s,
                           u"Failed to load the image data."_s);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void hostThatCannotProveItsNameIsRefused()
    {
        trust.reset();
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        expectDownloadFailed();
        clickDownload();
        QVERIFY(finishDownload());
        QVERIFY(host->requests().isEmpty());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void redirectionOnTheHostIsFollowed()
    {
        host->redirect(caffeineTarget, "/pictures/58082.png");
        host->serve("/pictures/58082.png", encoded(plainPicture(Qt::red)));
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::red));
    }

    void redirectionElsewhereIsRefused_data()
    {
        QTest::addColumn<QByteArray>("location");
        QTest::newRow("host") << QByteArray("https://elsewhere.example/58082.png");
        QTest::newRow("host inside") << QByteArray("https://pictures.webbook.nist.gov/58082.png");
        QTest::newRow("port") << QByteArray("https://webbook.nist.gov:8443/58082.png");
        QTest::newRow("no encryption") << QByteArray("http://webbook.nist.gov/58082.png");
    }

    void redirectionElsewhereIsRefused()
    {
        QFETCH(const QByteArray, location);
        host->redirect(caffeineTarget, location);
        host->serve("/58082.png", encoded(plainPicture(Qt::red)));
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        expectDownloadFailed();
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(host->tunnels(), QByteArrayList{"CONNECT webbook.nist.gov:443"});
        QCOMPARE(host->requests().size(), 1);
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void unreachableHostIsReported()
    {
        host->close();
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        expectDownloadFailed();
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void answerWithoutEndIsGivenUp_data()
    {
        QTest::addColumn<QByteArray>("beginning");
        QTest::addColumn<QByteArray>("piece");
        const QByteArray ok = "HTTP/1.1 200 OK\r\n";
        const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";
        QTest::newRow("body") << ok + "\r\n" << QByteArray("0");
        QTest::newRow("headers") << ok << QByteArray("Picture: none\r\n");
        QTest::newRow("one header") << ok + "Picture: " << QByteArray("0");
        QTest::newRow("status") << QByteArray("HTTP/1.1 200 ") << QByteArray("0");
        QTest::newRow("no answer at all") << QByteArray() << QByteArray("0");
        QTest::newRow("interim answers")
            << QByteArray() << QByteArray("HTTP/1.1 100 Continue\r\n\r\n");
        QTest::newRow("what may stand behind a chunk's size") << chunked + "1;" << QByteArray("0");
        const QByteArray packed = TestSupport::gzipped(QByteArray(64 * 1024 * 1024, '0'));
        QTest::newRow("packed") << ok + "Content-Encoding: gzip\r\nContent-Length: " +
                                       QByteArray::number(packed.size()) + "\r\n\r\n" + packed
                                << QByteArray("0");
    }

    void answerWithoutEndIsGivenUp()
    {
        QFETCH(const QByteArray, beginning);
        QFETCH(const QByteArray, piece);
#ifndef Q_OS_LINUX
        if (QByteArray(QTest::currentDataTag()) != "body")
            QSKIP("what has come is counted on Linux only");
#endif
        host->serveEndlessly(caffeineTarget, beginning, piece);
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        dialogs->expectBox(QMessageBox::Critical, u"Download Failed"_s,
                           u"Failed to download the image."_s);
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
        QVERIFY2(host->endlessBytesSent() < mostSent,
                 QByteArray::number(host->endlessBytesSent()).constData());
    }

    /// The toolkit ends such an answer at once; what it has brought is no picture. Not every
    /// release takes an interim answer for the answer: to others it never comes.
    void whatFollowsAnAnswerWithoutEndIsNotTaken_data()
    {
        QTest::addColumn<QByteArray>("beginning");
        QTest::addColumn<QByteArray>("piece");
        QTest::newRow("trailers")
            << QByteArray("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n")
            << QByteArray("Picture: none\r\n");
        QTest::newRow("other interim answers")
            << QByteArray() << QByteArray("HTTP/1.1 102 Processing\r\n\r\n");
        QTest::newRow("other answers") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n")
                                       << QByteArray("HTTP/1.1 200 OK\r\n\r\n");
    }

    void whatFollowsAnAnswerWithoutEndIsNotTaken()
    {
        QFETCH(const QByteArray, beginning);
        QFETCH(const QByteArray, piece);
        host->serveEndlessly(caffeineTarget, beginning, piece);
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        dialogs->expect([this](QWidget& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            const QString text = box == nullptr ? QString() : box->text();
            if (text != u"Failed to load the image data." &&
                text != u"Failed to download the image.")
                dialogs->complain(u"no message about the image but "_s + text);
            dialog.close();
        });
        clickDownload();
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
        QVERIFY(host->endlessBytesSent() < mostSent);
    }

    void redirectionInACircleIsGivenUp()
    {
        host->redirect(caffeineTarget, caffeineTarget);
        keepPicture();
        typeCasNumber(u"58-08-2"_s);
        expectDownloadFailed();
        clickDownload();
        QVERIFY(finishDownload());
        QVERIFY(host->requests().size() < 100);
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    void editingGoesOnDuringADownload()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        host->holdAnswers();
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        QTRY_COMPARE_WITH_TIMEOUT(host->requests().size(), 1, TestSupport::patience);

        QVERIFY(TestSupport::child<QPushButton>(*window, "buttonDownload")->isEnabled());
        auto* field = TestSupport::child<QTextEdit>(*window, "lineEditSpecies");
        TestSupport::typeInto(*field, u"caffeine"_s);
        QCOMPARE(field->toPlainText(), u"caffeine"_s);
        QVERIFY(storedPicture().isNull());

        host->release(caffeineTarget);
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::red));
    }

    void ofTwoDownloadsTheLastToFinishWins()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        host->serve(waterTarget, encoded(plainPicture(Qt::blue)));
        host->holdAnswers();
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        typeCasNumber(u"7732-18-5"_s);
        clickDownload();
        QTRY_COMPARE_WITH_TIMEOUT(host->requests().size(), 2, TestSupport::patience);

        host->release(waterTarget);
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::blue));
        host->release(caffeineTarget);
        QVERIFY(finishDownload());
        QCOMPARE(storedPicture(), plainPicture(Qt::red));
    }

    void finishedReplyIsReleased()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        auto* manager = window->findChild<QNetworkAccessManager*>();
        QCOMPARE(manager->findChildren<QNetworkReply*>().size(), 1);
        QVERIFY(finishDownload());
        QTRY_VERIFY(manager->findChildren<QNetworkReply*>().isEmpty());
    }

    void windowMayGoDuringADownload()
    {
        host->serve(caffeineTarget, encoded(plainPicture(Qt::red)));
        host->holdAnswers();
        typeCasNumber(u"58-08-2"_s);
        clickDownload();
        QTRY_COMPARE_WITH_TIMEOUT(host->requests().size(), 1, TestSupport::patience);
        auto* reply = window->findChild<QNetworkReply*>();
        QVERIFY(reply != nullptr);
        const QSignalSpy replyGone(reply, &QObject::destroyed);

        dialogs->expectSaveQuestion(QMessageBox::Discard);
        QVERIFY(window->close());
        window.reset();
        QCOMPARE(replyGone.count(), 1);
        host->release(caffeineTarget);
        QCoreApplication::processEvents();
    }

private:
    void typeCasNumber(const QString& text)
    {
        auto* field = TestSupport::child<QTextEdit>(*window, "lineEditCAS");
        TestSupport::typeInto(*field, text);
        if (text.isEmpty())
            QTest::keyClick(field, Qt::Key_Delete);
    }

    void clickDownload()
    {
        finished = std::make_unique<QSignalSpy>(window->findChild<QNetworkAccessManager*>(),
                                                &QNetworkAccessManager::finished);
        QTest::mouseClick(TestSupport::child<QPushButton>(*window, "buttonDownload"),
                          Qt::LeftButton);
    }

    /// Waits until one more reply has been dealt with, its box included.
    bool finishDownload()
    {
        const bool arrived = !finished->isEmpty() || finished->wait(TestSupport::patience);
        finished->clear();
        return arrived &&
               QTest::qWaitFor([this] { return dialogs->passed(); }, TestSupport::patience);
    }

    void keepPicture()
    {
        auto* model = window->findChild<SpeciesModel*>();
        model->setValue(SpeciesModel::StructureImage, plainPicture(Qt::yellow));
    }

    [[nodiscard]] QImage storedPicture() const
    {
        return window->findChild<SpeciesModel*>()->image();
    }

    void expectInvalidInput()
    {
        dialogs->expectBox(QMessageBox::Warning, u"Invalid Input"_s,
                           u"Please enter a valid CAS number (e.g., 58-08-2)."_s);
    }

    void expectDownloadFailed()
    {
        dialogs->expectBox(QMessageBox::Critical, u"Download Failed"_s,
                           u"Failed to download the image."_s);
    }

    void verifyNothingWasAsked()
    {
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(window->findChild<QNetworkReply*>() == nullptr);
        QVERIFY(host->tunnels().isEmpty());
        QCOMPARE(storedPicture(), plainPicture(Qt::yellow));
    }

    std::unique_ptr<PictureHost> host;
    std::unique_ptr<TrustInPictureHost> trust;
    std::unique_ptr<QSignalSpy> finished;
};

QTEST_MAIN(TestStructureDownload)
#include "tst_structuredownload.moc"
