// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/jpegscans.h"
#include "species/picturelimits.h"
#include "species/pngchunks.h"
#include "species/structurepicture.h"
#include "tests/support/compression.h"
#include "tests/support/dearfiles.h"
#include "tests/support/sandboxtest.h"
#include "tests/support/traps.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using TestSupport::gzipped;

namespace {

QImage picture()
{
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::blue);
    return image;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 100);
    return bytes;
}

QImage decodedBase64(const QByteArray& bytes)
{
    return StructurePicture::fromBase64(QString::fromLatin1(bytes.toBase64()));
}

/// A drawing of 20 by 10 pixels, all green, with @p content on top.
QByteArray drawing(const QByteArray& content = {}, const QByteArray& prolog = {})
{
    return prolog +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\""
           " width=\"20\" height=\"10\"><rect width=\"20\" height=\"10\" fill=\"#00ff00\"/>" +
           content + "</svg>";
}

bool isGreen(const QImage& image, int x = 10, int y = 5)
{
    return image.pixelColor(x, y) == QColor(0, 255, 0);
}

/// References to PATH and URL in other places than an image.
void addReferencesOutsideImages()
{
    QTest::newRow("style sheet instruction")
        << drawing({}, "<?xml-stylesheet type=\"text/css\" href=\"PATH\"?>");
    QTest::newRow("style sheet instruction with an address")
        << drawing({}, "<?xml version=\"1.0\"?><?xml-stylesheet type=\"text/css\""
                       " href=\"URL\"?>");
    QTest::newRow("style sheet instruction inside")
        << drawing("<?xml-stylesheet type=\"text/css\" href=\"PATH\"?>");
    QTest::newRow("imported style sheet")
        << drawing("<style>@import url(\"URL\"); @import \"PATH\";</style>");
    QTest::newRow("linked style sheet")
        << drawing("<link xmlns=\"http://www.w3.org/1999/xhtml\" rel=\"stylesheet\""
                   " href=\"PATH\"/>");
    QTest::newRow("fill") << drawing("<rect width=\"9\" height=\"9\" fill=\"url(PATH)\"/>");
    QTest::newRow("font") << drawing(
        "<font><font-face><font-face-src><font-face-uri xlink:href=\"PATH\"/>"
        "</font-face-src></font-face></font><text>a</text>");
    QTest::newRow("use") << drawing("<use xlink:href=\"PATH#a\"/>");
    QTest::newRow("animated reference")
        << drawing("<image width=\"20\" height=\"10\"><set attributeName=\"xlink:href\""
                   " to=\"PATH\"/></image>");
    QTest::newRow("text inside") << drawing(
        "<text x=\"1\" y=\"9\"><tref xlink:href=\"PATH\"/></text>");
}

} // namespace

/// Structure images out of files and downloads, which may come from anybody.
class TestStructurePicture : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void fittedPictureHasAsManyPixelsAsTheScreen()
    {
        const QImage wide(1000, 300, QImage::Format_RGB32);
        const QPixmap reduced = StructurePicture::fitted(wide, {200, 150}, 2.0);
        QCOMPARE(reduced.size(), QSize(400, 120));
        QCOMPARE(reduced.deviceIndependentSize(), QSizeF(200, 60));
        const QImage small(20, 20, QImage::Format_RGB32);
        QCOMPARE(StructurePicture::fitted(small, {200, 150}, 1.0).size(), QSize(150, 150));
    }

    void pngIsWrittenInBase64()
    {
        const QString text = StructurePicture::toBase64Png(picture());
        QVERIFY(text.startsWith(u"iVBORw0KGgo"));
        QVERIFY(!text.contains(u'\n'));
        QCOMPARE(text.size() % 4, 0);
        QCOMPARE(StructurePicture::fromBase64(text).convertToFormat(QImage::Format_RGB32),
                 picture());
    }

    void nullImageIsWrittenAsEmptyText()
    {
        QCOMPARE(StructurePicture::toBase64Png(QImage()), QString());
    }

    void transparencySurvives()
    {
        QImage image(2, 1, QImage::Format_ARGB32);
        image.setPixelColor(0, 0, QColor(255, 0, 0, 0));
        image.setPixelColor(1, 0, QColor(255, 0, 0, 128));
        const QImage back = StructurePicture::fromBase64(StructurePicture::toBase64Png(image));
        QCOMPARE(back.pixelColor(0, 0).alpha(), 0);
        QCOMPARE(back.pixelColor(1, 0), QColor(255, 0, 0, 128));
    }

    void pixelFormatsAreRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("PNG") << encoded(picture(), "PNG");
        QTest::newRow("JPEG") << encoded(picture(), "JPEG");
        QTest::newRow("BMP") << encoded(picture(), "BMP");
        QTest::newRow("PPM") << encoded(picture(), "PPM");
        QTest::newRow("XPM") << encoded(picture(), "XPM");
        if (QImageReader::supportedImageFormats().contains("gif")) {
            QTest::newRow("GIF") << QByteArray::fromBase64(
                "R0lGODdhBgAEAIAAAAAA/////ywAAAAABgAEAAACDwQIECBAgAABAgQIECDAAgA7");
        }
    }

    void pixelFormatsAreRead()
    {
        QFETCH(const QByteArray, bytes);
        const QImage image = decodedBase64(bytes);
        QCOMPARE(image.size(), QSize(6, 4));
        const QColor colour = image.pixelColor(3, 2);
        QVERIFY(colour.blue() > 250 && colour.red() < 5 && colour.green() < 5);
        QCOMPARE(StructurePicture::decode(bytes), image);
    }

    void drawingsAreRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("bare") << drawing();
        QTest::newRow("with declaration") << drawing({}, "<?xml version=\"1.0\"?>\n");
        QTest::newRow("with document type")
            << drawing({}, "<?xml version=\"1.0\"?><!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\""
                           " \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">");
        QTest::newRow("with comments") << drawing("<!-- note -->", "<!-- made by hand -->");
        QTest::newRow("with character data")
            << drawing("<style><![CDATA[ .a { fill: #00ff00 } ]]></style><title>a &amp; b</title>");
        QTest::newRow("with a reference into itself")
            << drawing("<defs><rect id=\"r\" width=\"20\" height=\"10\" fill=\"#00ff00\"/></defs>"
                       "<use xlink:href=\"#r\"/>");
        QTest::newRow("compressed") << gzipped(drawing());
    }

    void drawingsAreRead()
    {
        QFETCH(const QByteArray, bytes);
        const QImage image = decodedBase64(bytes);
        QCOMPARE(image.size(), QSize(20, 10));
        QVERIFY(isGreen(image));
    }

    void pictureInsideADrawingIsShown_data()
    {
        QTest::addColumn<QByteArray>("reference");
        QTest::newRow("pixels") << "data:image/png;base64," + encoded(picture(), "PNG").toBase64();
        QTest::newRow("drawing")
            << "data:image/svg+xml;base64," +
                   QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"6\" height=\"4\">"
                              "<rect width=\"6\" height=\"4\" fill=\"#0000ff\"/></svg>")
                       .toBase64();
    }

    void pictureInsideADrawingIsShown()
    {
        QFETCH(const QByteArray, reference);
        const QImage image = StructurePicture::decode(
            drawing("<image width=\"20\" height=\"10\" preserveAspectRatio=\"none\" xlink:href=\"" +
                    reference + "\"/>"));
        QCOMPARE(image.size(), QSize(20, 10));
        QCOMPARE(image.pixelColor(10, 5), QColor(Qt::blue));
    }

    void drawingOpensNoOtherFile_data()
    {
        QTest::addColumn<QByteArray>("pattern");
        const auto image = [](const QByteArray& attributes) {
            return drawing("<image width=\"20\" height=\"10\" " + attributes + "/>");
        };
        QTest::newRow("path") << image("xlink:href=\"PATH\"");
        QTest::newRow("address") << image("xlink:href=\"URL\"");
        QTest::newRow("without prefix") << image("href=\"PATH\"");
        QTest::newRow("both") << image("href=\"PATH\" xlink:href=\"PATH\"");
        QTest::newRow("blanks around") << image("xlink:href=\" PATH \"");
        QTest::newRow("single quotes") << image("xlink:href='PATH'");
        QTest::newRow("compressed") << gzipped(image("xlink:href=\"PATH\""));
        QTest::newRow("no namespaces")
            << QByteArray("<svg width=\"20\" height=\"10\"><image width=\"20\" height=\"10\""
                          " xlink:href=\"PATH\"/></svg>");
        QTest::newRow("character references") << image("xlink:href=\"&#x2f;&#46;./PATH\"");
        QTest::newRow("entity in the attribute")
            << drawing("<image width=\"20\" height=\"10\" xlink:href=\"&file;\"/>",
                       "<!DOCTYPE svg [<!ENTITY file \"PATH\">]>");
        QTest::newRow("entity of entities")
            << drawing("<image width=\"20\" height=\"10\" xlink:href=\"&whole;\"/>",
                       "<!DOCTYPE svg [<!ENTITY part \"PATH\"><!ENTITY whole \"&part;\">]>");
        QTest::newRow("entity that holds the element") << drawing(
            "&element;", "<!DOCTYPE svg [<!ENTITY element \"<image width='20' height='10'"
                         " xlink:href='PATH'/>\">]>");
        QTest::newRow("external entity")
            << drawing("<text>&file;</text>", "<!DOCTYPE svg [<!ENTITY file SYSTEM \"URL\">]>");
        QTest::newRow("external parameter entity")
            << drawing({}, "<!DOCTYPE svg [<!ENTITY % file SYSTEM \"URL\"> %file;]>");
        QTest::newRow("external document type") << drawing({}, "<!DOCTYPE svg SYSTEM \"URL\">");
        QTest::newRow("attribute by default")
            << drawing("<image width=\"20\" height=\"10\"/>",
                       "<!DOCTYPE svg [<!ATTLIST image xlink:href CDATA \"PATH\">]>");
        addReferencesOutsideImages();

        const QByteArray inner = image("xlink:href=\"PATH\"");
        QTest::newRow("drawing inside") << QByteArray("NESTED") + inner;
        QTest::newRow("compressed drawing inside") << QByteArray("NESTED") + gzipped(inner);
    }

    void drawingOpensNoOtherFile()
    {
        QFETCH(QByteArray, pattern);
        const FifoTrap trap(sandbox->path(u"trap.png"_s));
        if (!trap.isSet())
            QSKIP("there are no pipes here");
        const auto fillIn = [&trap](QByteArray bytes) {
            return bytes.replace("PATH", trap.path().toUtf8()).replace("URL", trap.url().toUtf8());
        };
        QVERIFY(pattern.size() > 20);

        const bool nested = pattern.startsWith("NESTED");
        if (nested)
            pattern.remove(0, 6);
        QByteArray bytes = pattern;
        if (pattern.startsWith("\x1f\x8b"))
            bytes =
                gzipped(fillIn(drawing("<image width=\"20\" height=\"10\" xlink:href=\"PATH\"/>")));
        else
            bytes = fillIn(pattern);
        if (nested) {
            bytes = drawing("<image width=\"20\" height=\"10\" xlink:href=\""
                            "data:image/svg+xml;base64," +
                            bytes.toBase64() + "\"/>");
        }

        const QImage image = decodedBase64(bytes);
        QVERIFY(!trap.sprung());
        QVERIFY(image.isNull() || image.size() == QSize(20, 10));
    }

    void drawingThatNamesAFileIsShownWithoutIt()
    {
        const QString path = sandbox->path(u"blue.png"_s);
        QVERIFY(picture().save(path, "PNG"));
        const QImage image = StructurePicture::decode(
            drawing("<image width=\"20\" height=\"10\" preserveAspectRatio=\"none\" xlink:href=\"" +
                    path.toUtf8() + "\"/>"));
        QCOMPARE(image.size(), QSize(20, 10));
        QVERIFY(isGreen(image));
    }

    void unreadableBytesGiveNoImage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture at all");
        QTest::newRow("web page") << QByteArray("<html><body>Not found</body></html>");
        QTest::newRow("truncated PNG") << encoded(picture(), "PNG").left(30);
        QTest::newRow("truncated drawing") << drawing().chopped(8);
        QTest::newRow("drawing that is not well-formed") << drawing("<g></svg>");
        QTest::newRow("drawing with an undefined entity") << drawing("&nothing;");
        QTest::newRow("truncated compressed drawing") << gzipped(drawing()).left(40);
        QTest::newRow("compressed text") << gzipped("no drawing");
        QTest::newRow("compressed nothing") << QByteArray("\x1f\x8b\x08\0", 4);
        QTest::newRow("other XML") << QByteArray("<?xml version=\"1.0\"?><a><b/></a>");
        QTest::newRow("with an entity of its own")
            << drawing("<rect width=\"20\" height=\"10\" fill=\"&green;\"/>",
                       "<!DOCTYPE svg [<!ENTITY green \"#00ff00\">]>");
        QTest::newRow("entities that multiply") << drawing(
            "<text>&e9;</text>", "<!DOCTYPE svg [<!ENTITY e0 \"aaaaaaaaaa\">"
                                 "<!ENTITY e1 \"&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;\">"
                                 "<!ENTITY e2 \"&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;\">"
                                 "<!ENTITY e3 \"&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;\">"
                                 "<!ENTITY e4 \"&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;\">"
                                 "<!ENTITY e5 \"&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;\">"
                                 "<!ENTITY e9 \"&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;\">]>");
        QTest::newRow("expands beyond all bounds")
            << gzipped(drawing("<!--" + QByteArray(17 * 1024 * 1024, 'a') + "-->"));
    }

    void unreadableBytesGiveNoImage()
    {
        QFETCH(const QByteArray, bytes);
        const Deadline deadline;
        QVERIFY(decodedBase64(bytes).isNull());
    }

    /// In the formats in which a clipboard may hold it, the largest of which needs 8 bytes a pixel.
    void largePictureIsReadAgain_data()
    {
        QTest::addColumn<int>("format");
        QTest::newRow("colours") << int(QImage::Format_RGB32);
        QTest::newRow("transparent") << int(QImage::Format_ARGB32_Premultiplied);
        QTest::newRow("16 bits a colour") << int(QImage::Format_RGBA64);
    }

    void largePictureIsReadAgain()
    {
        QFETCH(const int, format);
        QImage picture(6000, 6000, static_cast<QImage::Format>(format));
        picture.fill(Qt::darkGreen);
        const QImage again = StructurePicture::fromBase64(StructurePicture::toBase64Png(picture));
        QCOMPARE(again.size(), picture.size());
        QCOMPARE(again.pixelColor(5999, 5999), picture.pixelColor(5999, 5999));
    }

    void needlessChunksAreLeftOut_data()
    {
        QTest::addColumn<QByteArray>("chunk");
        QTest::addColumn<bool>("needed");
        const auto row = [](const char* type, bool needed) {
            QTest::newRow(type) << QByteArray(type) << needed;
        };
        for (const char* type : {"tEXt", "zTXt", "iTXt", "eXIf", "acTL", "bKGD", "abCD"})
            row(type, false);
        for (const char* type : {"tRNS", "gAMA", "cHRM", "sRGB", "pHYs", "iCCP", "ABCD"})
            row(type, true);
    }

    void needlessChunksAreLeftOut()
    {
        QFETCH(const QByteArray, chunk);
        QFETCH(const bool, needed);
        const QByteArray whole = encoded(picture(), "PNG");
        QCOMPARE(PngChunks::withoutNeedless(whole), whole);
        constexpr qsizetype headerSize = 33;
        QByteArray more = whole;
        more.insert(headerSize, QByteArray("\0\0\0\2", 4) + chunk + "xy" + "sum.");
        QCOMPARE(PngChunks::withoutNeedless(more), needed ? more : whole);
        QByteArray cutOff = whole;
        cutOff.insert(headerSize, QByteArray("\xff\0\0\2", 4) + chunk);
        QCOMPARE(PngChunks::withoutNeedless(cutOff), cutOff);
    }

    void onlyOneColourProfileIsKept()
    {
        constexpr qsizetype headerSize = 33;
        const QByteArray chunk = QByteArray("\0\0\0\2", 4) + "iCCPxysum.";
        const QByteArray whole = encoded(picture(), "PNG");
        QByteArray three = whole;
        three.insert(headerSize, chunk.repeated(3));
        QByteArray one = whole;
        one.insert(headerSize, chunk);
        QCOMPARE(PngChunks::withoutNeedless(three), one);
    }

    void scansOfJpegFilesAreCounted()
    {
        QCOMPARE(JpegScans::count(QByteArrayView()), 0);
        QCOMPARE(JpegScans::count(encoded(picture(), "PNG")), 0);
        QCOMPARE(JpegScans::count(encoded(picture(), "JPEG")), 1);
        const QByteArray staged = DearFiles::jpegOfScans(0);
        QVERIFY(JpegScans::count(staged) > 1);
        QCOMPARE(JpegScans::count(DearFiles::jpegOfScans(20)), JpegScans::count(staged) + 20);
        for (qsizetype size = 0; size < staged.size(); ++size)
            QVERIFY(JpegScans::count(staged.first(size)) <= JpegScans::count(staged));
    }

    void jpegOfTooManyScansIsNone()
    {
        QCOMPARE(decodedBase64(DearFiles::jpegOfScans(0)).size(), QSize(90, 90));
        QCOMPARE(decodedBase64(DearFiles::jpegOfScans(80)).size(), QSize(90, 90));
        QVERIFY(decodedBase64(DearFiles::jpegOfScans(100)).isNull());
    }

    void dearPicturesStayWithinTheirBudget_data()
    {
        QTest::addColumn<QByteArray>("file");
        for (const auto& family : DearFiles::pixelPictures() + DearFiles::drawings()) {
            static const QList<QByteArray> shown{"drawing/long entity", "drawing/drawings inside",
                                                 "pixels/compressed texts",
                                                 "pixels/repeated scans"};
            if (shown.contains(family.name))
                QTest::newRow(family.name) << family.make(family.size);
        }
    }

    /// Each of them used to take minutes or gigabytes.
    void dearPicturesStayWithinTheirBudget()
    {
        QFETCH(const QByteArray, file);
        const Deadline deadline;
        const QJsonObject species =
            QJsonDocument::fromJson(file).object().value(u"Species"_s).toObject();
        const QImage image =
            StructurePicture::fromBase64(species.value(u"StructuralFormula"_s).toString());
        QVERIFY(StructurePicture::isAdmitted(image));
    }

    void largeDrawingIsDrawnSmaller()
    {
        const QImage image = StructurePicture::decode(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8000\" height=\"4000\">"
            "<rect width=\"8000\" height=\"4000\" fill=\"#00ff00\"/></svg>");
        QCOMPARE(image.size(), QSize(2000, 1000));
        QVERIFY(isGreen(image, 1990, 990));
    }

    void pictureBeyondTheBoundIsNoneInAnyFormat_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("PNG") << QByteArray("PNG");
        QTest::newRow("JPEG") << QByteArray("JPEG");
        QTest::newRow("BMP") << QByteArray("BMP");
    }

    void pictureBeyondTheBoundIsNoneInAnyFormat()
    {
        QFETCH(const QByteArray, format);
        constexpr int side = 6000;
        QImage image(side, side, QImage::Format_Grayscale8);
        image.fill(Qt::white);
        QVERIFY(StructurePicture::isAdmitted(image));
        QCOMPARE(StructurePicture::decode(encoded(image, format.constData())).size(), image.size());
        constexpr auto rows = static_cast<int>(PictureLimits::mostPixels / side + 1);
        image = QImage(side, rows, QImage::Format_Grayscale8);
        image.fill(Qt::white);
        QVERIFY(!StructurePicture::isAdmitted(image));
        QVERIFY(StructurePicture::decode(encoded(image, format.constData())).isNull());
    }

    void longestSideIsReadAgain()
    {
        QImage image(1'000'000, 1, QImage::Format_Grayscale8);
        image.fill(Qt::white);
        QVERIFY(StructurePicture::isAdmitted(image));
        QCOMPARE(StructurePicture::decode(encoded(image, "PNG")).size(), image.size());
    }

    void onlyPngIsReadWithoutTheProgramForTheOthers()
    {
        const QString alone = sandbox->path(u"alone"_s);
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), alone));
        const auto passes = [&alone](const QString& function) {
            return QProcess::execute(alone, {u"-o"_s, u"/dev/null,txt"_s, function}) == 0;
        };
        QVERIFY(passes(u"pngIsWrittenInBase64"_s));
        QVERIFY(passes(u"unreadableBytesGiveNoImage"_s));
        QVERIFY(!passes(u"drawingsAreRead:bare"_s));
    }

    void absurdlyLargePicturesAreRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto sized = [](const QByteArray& attributes) -> QByteArray {
            return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + attributes +
                   "><rect width=\"5\" height=\"5\"/></svg>";
        };
        QTest::newRow("drawing") << sized("width=\"30000\" height=\"30000\"");
        QTest::newRow("drawing in metres") << sized("width=\"9e6mm\" height=\"9e6mm\"");
        QTest::newRow("view box") << sized("viewBox=\"0 0 30000 30000\"");
        QTest::newRow("beyond integers") << sized("width=\"1e12\" height=\"1e12\"");
        QTest::newRow("PNG") << QByteArray(
            "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\xea\x60\0\0\xea\x60\x08\x06\0\0\0"
            "\x80\xd2\x75\x42",
            33);
        QTest::newRow("BMP") << QByteArray(
            "BM\x36\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x60\xea\0\0\x60\xea\0\0\x01\0"
            "\x18\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
            54);
        QTest::newRow("PPM") << QByteArray("P6 60000 60000 255\nabc");
    }

    void absurdlyLargePicturesAreRefused()
    {
        QFETCH(const QByteArray, bytes);
        const Deadline deadline;
        QVERIFY(decodedBase64(bytes).isNull());
    }

    void absurdlyLargePictureInsideADrawingIsLeftOut()
    {
        const Deadline deadline;
        const QByteArray inner = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30000\""
                                 " height=\"30000\"><rect width=\"5\" height=\"5\"/></svg>";
        const QImage image = StructurePicture::decode(
            drawing("<image width=\"20\" height=\"10\" xlink:href=\"data:image/svg+xml;base64," +
                    inner.toBase64() + "\"/>"));
        QCOMPARE(image.size(), QSize(20, 10));
        QVERIFY(isGreen(image));
    }

    void deeplyNestedDrawingsAreReadInFiniteTime_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QByteArray inside = drawing();
        for (int level = 0; level < 20; ++level)
            inside = drawing("<image width=\"20\" height=\"10\" xlink:href=\"data:;base64," +
                             inside.toBase64() + "\"/>");
        QTest::newRow("drawings in drawings") << inside;
        QTest::newRow("groups") << drawing(QByteArray("<g>").repeated(20000) +
                                           QByteArray("</g>").repeated(20000));
        QTest::newRow("use of itself")
            << drawing("<g id=\"a\"><use xlink:href=\"#a\"/></g><use xlink:href=\"#a\"/>");
    }

    void deeplyNestedDrawingsAreReadInFiniteTime()
    {
        QFETCH(const QByteArray, bytes);
        const Deadline deadline;
        const QImage image = StructurePicture::decode(bytes);
        QVERIFY(image.isNull() || image.size() == QSize(20, 10));
    }
};

QTEST_MAIN(TestStructurePicture)
#include "tst_structurepicture.moc"
