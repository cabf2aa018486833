// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"
#include "tests/support/documentwindow.h"
#include "tests/support/testpicture.h"
#include "tests/support/traps.h"
#include "tests/support/windowtest.h"

#include <QImageReader>
#include <QLabel>
#include <QNetworkReply>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using TestSupport::encoded;

namespace {

/// A reply that has arrived, without any network.
class ArrivedReply : public QNetworkReply
{
public:
    explicit ArrivedReply(QByteArray content, NetworkError problem = NoError)
        : body(std::move(content))
    {
        if (problem != NoError)
            setError(problem, u"no luck"_s);
        open(QIODevice::ReadOnly);
        setFinished(true);
    }

    void abort() override {}
    [[nodiscard]] qint64 bytesAvailable() const override
    {
        return body.size() - position + QNetworkReply::bytesAvailable();
    }
    [[nodiscard]] bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override
    {
        const qint64 count = std::min(maxSize, body.size() - position);
        std::copy_n(body.constData() + position, count, data);
        position += count;
        return count;
    }

private:
    QByteArray body;
    qint64 position = 0;
};

QImage twoColours(QImage::Format format)
{
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter(&picture).fillRect(0, 0, 20, 20, Qt::red);
    return picture.convertToFormat(format);
}

/// Two pixels by two, all red. The toolkit reads this format but does not write it.
QByteArray redGif()
{
    return QByteArray::fromBase64("R0lGODlhAgACAIAAAP8AAAAA/ywAAAAAAgACAAACAwQABQA7");
}

/// A vector drawing of 40 by 20 pixels.
QByteArray drawing(const QByteArray& content)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20' "
           "xmlns:xlink='http://www.w3.org/1999/xlink'>" +
           content + "</svg>";
}

bool isNearly(const QColor& seen, const QColor& wanted)
{
    constexpr int tolerance = 8;
    return std::abs(seen.red() - wanted.red()) <= tolerance &&
           std::abs(seen.green() - wanted.green()) <= tolerance &&
           std::abs(seen.blue() - wanted.blue()) <= tolerance;
}

} // namespace

/// What becomes of each kind of answer to a request for a structure image.
class TestStructureReply : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void pictureFormatIsRecognisedFromTheData_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QSize>("size");
        QTest::newRow("PNG") << encoded(twoColours(QImage::Format_RGB32), "PNG") << QSize(40, 20);
        QTest::newRow("PNG with a palette")
            << encoded(twoColours(QImage::Format_Indexed8), "PNG") << QSize(40, 20);
        QTest::newRow("JPEG") << encoded(twoColours(QImage::Format_RGB32), "JPG") << QSize(40, 20);
        QTest::newRow("BMP") << encoded(twoColours(QImage::Format_RGB32), "BMP") << QSize(40, 20);
        if (QImageReader::supportedImageFormats().contains("gif"))
            QTest::newRow("GIF") << redGif() << QSize(2, 2);
        if (QImageReader::supportedImageFormats().contains("svg"))
            QTest::newRow("SVG") << drawing("<rect width='20' height='20' fill='red'/>")
                                 << QSize(40, 20);
    }

    void pictureFormatIsRecognisedFromTheData()
    {
        QFETCH(const QByteArray, body);
        QFETCH(const QSize, size);
        arrive(new ArrivedReply(body));
        QCOMPARE(storedPicture().size(), size);
        QVERIFY(isNearly(storedPicture().pixelColor(0, 0), Qt::red));
        QVERIFY(!TestSupport::child<QLabel>(*window, "imageLabel")->pixmap().isNull());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);
    }

    void pictureIsKeptInTheColourDepthOfTheScreen_data()
    {
        QTest::addColumn<QImage::Format>("sent");
        QTest::addColumn<QImage::Format>("kept");
        QTest::newRow("true colour") << QImage::Format_RGB32 << QImage::Format_RGB32;
        QTest::newRow("palette") << QImage::Format_Indexed8 << QImage::Format_RGB32;
        QTest::newRow("grey") << QImage::Format_Grayscale8 << QImage::Format_RGB32;
        QTest::newRow("black and white") << QImage::Format_Mono << QImage::Format_RGB32;
    }

    void pictureIsKeptInTheColourDepthOfTheScreen()
    {
        QFETCH(const QImage::Format, sent);
        QFETCH(const QImage::Format, kept);
        arrive(new ArrivedReply(encoded(twoColours(sent), "PNG")));
        QCOMPARE(storedPicture().size(), QSize(40, 20));
        QCOMPARE(storedPicture().format(), kept);
    }

    void transparentPictureStaysTransparent()
    {
        QImage picture(10, 10, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        picture.setPixelColor(3, 4, Qt::blue);
        arrive(new ArrivedReply(encoded(picture, "PNG")));
        QCOMPARE(storedPicture().format(), QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(storedPicture().pixelColor(0, 0).alpha(), 0);
        QCOMPARE(storedPicture().pixelColor(3, 4), QColor(Qt::blue));
    }

    void drawingReadsNoOtherFile()
    {
        const FifoTrap trap(sandbox->path(u"trap.png"_s));
        if (!trap.isSet())
            QSKIP("no pipes on this system");
        const Deadline deadline;
        QByteArray content;
        for (const QString& address : {trap.url(), trap.path(), u"trap.png"_s})
            content += "<image width='40' height='20' xlink:href='" + address.toUtf8() + "'/>";
        content += "<rect width='20' height='20' fill='red'/>";
        arrive(new ArrivedReply(drawing(content)));
        QVERIFY(!trap.sprung());
        QVERIFY(isNearly(storedPicture().pixelColor(0, 0), Qt::red));
    }

    void answerThatIsNoPictureKeepsTheOldOne_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("empty body") << QByteArray();
        QTest::newRow("HTML page") << QByteArray(
            "<html><head><title>NIST Chemistry WebBook</title></head><body></body></html>");
        QTest::newRow("XML") << QByteArray("<?xml version=\"1.0\"?><molecule/>");
        QTest::newRow("text") << QByteArray("Not found");
        QTest::newRow("zeros") << QByteArray(1000, '\0');
        QTest::newRow("picture cut short")
            << encoded(twoColours(QImage::Format_RGB32), "PNG").left(20);
    }

    void answerThatIsNoPictureKeepsTheOldOne()
    {
        QFETCH(const QByteArray, body);
        loadEntryWithPicture();
        dialogs->expectBox(QMessageBox::Critical, u"Image Error"_s,
                           u"Failed to load the image data."_s);
        const QPointer<QNetworkReply> reply = arrive(new ArrivedReply(body));
        verifyEntryIsUntouched();
        QTRY_VERIFY(reply.isNull());
    }

    void networkErrorsKeepTheOldPicture_data()
    {
        QTest::addColumn<QNetworkReply::NetworkError>("error");
        QTest::newRow("refused") << QNetworkReply::ConnectionRefusedError;
        QTest::newRow("host not found") << QNetworkReply::HostNotFoundError;
        QTest::newRow("time-out") << QNetworkReply::TimeoutError;
        QTest::newRow("cancelled") << QNetworkReply::OperationCanceledError;
        QTest::newRow("TLS") << QNetworkReply::SslHandshakeFailedError;
        QTest::newRow("not found") << QNetworkReply::ContentNotFoundError;
        QTest::newRow("server error") << QNetworkReply::InternalServerError;
    }

    void networkErrorsKeepTheOldPicture()
    {
        QFETCH(const QNetworkReply::NetworkError, error);
        loadEntryWithPicture();
        dialogs->expectBox(QMessageBox::Critical, u"Download Failed"_s,
                           u"Failed to download the image."_s);
        // A body that came before the error is not looked at.
        const QPointer<QNetworkReply> reply =
            arrive(new ArrivedReply(encoded(twoColours(QImage::Format_RGB32), "PNG"), error));
        verifyEntryIsUntouched();
        QTRY_VERIFY(reply.isNull());
    }

    void replyIsDeletedOnlyAfterItsHandling()
    {
        const QPointer<QNetworkReply> reply =
            arrive(new ArrivedReply(encoded(twoColours(QImage::Format_RGB32), "PNG")));
        QVERIFY(!reply.isNull());
        QTRY_VERIFY(reply.isNull());
    }

    void replyOutlivesTheBoxThatReportsIt_data()
    {
        QTest::addColumn<QNetworkReply::NetworkError>("error");
        QTest::newRow("download failed") << QNetworkReply::TimeoutError;
        QTest::newRow("no picture") << QNetworkReply::NoError;
    }

    void replyOutlivesTheBoxThatReportsIt()
    {
        QFETCH(const QNetworkReply::NetworkError, error);
        const QPointer<QNetworkReply> reply(new ArrivedReply({}, error));
        dialogs->expect([this, reply](QWidget& box) {
            if (reply.isNull())
                dialogs->complain(u"the reply is gone already"_s);
            box.close();
        });
        arrive(reply);
        QTRY_VERIFY(reply.isNull());
    }

    void samePictureAgainChangesNothing()
    {
        const QByteArray body = encoded(twoColours(QImage::Format_RGB32), "PNG");
        arrive(new ArrivedReply(body));
        const QString file = sandbox->path(u"entry.json"_s);
        dialogs->expectFileDialog(u"Save Species JSON File"_s, file);
        TestSupport::trigger(*window, "actionSaveSpecies");
        const QSignalSpy imageChanges(window->findChild<SpeciesModel*>(),
                                      &SpeciesModel::imageChanged);
        arrive(new ArrivedReply(body));
        QCOMPARE(imageChanges.count(), 0);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - entry.json"_s);

        arrive(new ArrivedReply(redGif()));
        QCOMPARE(imageChanges.count(), 1);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - entry.json *"_s);
    }

    void eachReplyIsTakenAsItArrives()
    {
        QImage first = twoColours(QImage::Format_RGB32);
        first.fill(Qt::green);
        arrive(new ArrivedReply(encoded(first, "PNG")));
        QCOMPARE(storedPicture(), first);
        arrive(new ArrivedReply(encoded(twoColours(QImage::Format_RGB32), "PNG")));
        QCOMPARE(storedPicture(), twoColours(QImage::Format_RGB32));
    }

    void noReplyIsNoHarm()
    {
        loadEntryWithPicture();
        arrive(nullptr);
        verifyEntryIsUntouched();
    }

    void failureAfterASuccessKeepsThePicture()
    {
        arrive(new ArrivedReply(encoded(twoColours(QImage::Format_RGB32), "PNG")));
        dialogs->expectBox(QMessageBox::Critical, u"Download Failed"_s,
                           u"Failed to download the image."_s);
        arrive(new ArrivedReply({}, QNetworkReply::TimeoutError));
        QCOMPARE(storedPicture(), twoColours(QImage::Format_RGB32));
    }

private:
    QPointer<QNetworkReply> arrive(QNetworkReply* arrived)
    {
        QPointer<QNetworkReply> reply(arrived);
        if (!QMetaObject::invokeMethod(window.get(), "onImageDownloaded",
                                       Q_ARG(QNetworkReply*, arrived)))
            qFatal("no such slot");
        return reply;
    }

    [[nodiscard]] QImage storedPicture() const
    {
        return window->findChild<SpeciesModel*>()->image();
    }

    void loadEntryWithPicture()
    {
        const QByteArray picture = encoded(twoColours(QImage::Format_RGB32), "PNG").toBase64();
        const QString file = sandbox->write(
            u"old.json"_s,
            "{\"Type\":\"Species v1\",\"Species\":{\"StructuralFormula\":\"" + picture + "\"}}");
        QVERIFY(window->openEntry(file));
        QCOMPARE(storedPicture(), twoColours(QImage::Format_RGB32));
    }

    void verifyEntryIsUntouched()
    {
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(storedPicture(), twoColours(QImage::Format_RGB32));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - old.json"_s);
    }
};

QTEST_MAIN(TestStructureReply)
#include "tst_structurereply.moc"
