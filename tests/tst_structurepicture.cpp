// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/structurepicture.h"
#include "tests/support/sandboxtest.h"
#include "tests/support/traps.h"

#include <QBuffer>
#include <QImageReader>
#include <QTest>

using namespace Qt::StringLiterals;

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

QByteArray compressed(const QByteArray& bytes)
{
    // qCompress writes a length and a zlib stream; gzip frames the deflate data inside otherwise.
    const QByteArray deflated = qCompress(bytes).sliced(6).chopped(4);
    quint32 checksum = 0xffffffffU;
    for (const char byte : bytes) {
        checksum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            checksum = (checksum >> 1U) ^ ((checksum & 1U) != 0 ? 0xedb88320U : 0U);
    }
    const auto littleEndian = [](quint32 number) {
        QByteArray result;
        for (unsigned shift = 0; shift < 32; shift += 8)
            result.append(static_cast<char>((number >> shift) & 0xffU));
        return result;
    };
    return QByteArray("\x1f\x8b\x08\0\0\0\0\0\0\x03", 10) + deflated + littleEndian(~checksum) +
           littleEndian(static_cast<quint32>(bytes.size()));
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
        QTest::newRow("with an entity of its own")
            << drawing("<rect width=\"20\" height=\"10\" fill=\"&green;\"/>",
                       "<!DOCTYPE svg [<!ENTITY green \"#00ff00\">]>");
        QTest::newRow("with a reference into itself")
            << drawing("<defs><rect id=\"r\" width=\"20\" height=\"10\" fill=\"#00ff00\"/></defs>"
                       "<use xlink:href=\"#r\"/>");
        QTest::newRow("compressed") << compressed(drawing());
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
        QTest::newRow("compressed") << compressed(image("xlink:href=\"PATH\""));
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
        QTest::newRow("compressed drawing inside") << QByteArray("NESTED") + compressed(inner);
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
            bytes = compressed(
                fillIn(drawing("<image width=\"20\" height=\"10\" xlink:href=\"PATH\"/>")));
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
        QTest::newRow("truncated compressed drawing") << compressed(drawing()).left(40);
        QTest::newRow("compressed text") << compressed("no drawing");
        QTest::newRow("compressed nothing") << QByteArray("\x1f\x8b\x08\0", 4);
        QTest::newRow("other XML") << QByteArray("<?xml version=\"1.0\"?><a><b/></a>");
        QTest::newRow("entities that multiply") << drawing(
            "<text>&e9;</text>", "<!DOCTYPE svg [<!ENTITY e0 \"aaaaaaaaaa\">"
                                 "<!ENTITY e1 \"&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;&e0;\">"
                                 "<!ENTITY e2 \"&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;&e1;\">"
                                 "<!ENTITY e3 \"&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;&e2;\">"
                                 "<!ENTITY e4 \"&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;&e3;\">"
                                 "<!ENTITY e5 \"&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;&e4;\">"
                                 "<!ENTITY e9 \"&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;&e5;\">]>");
        QTest::newRow("expands beyond all bounds")
            << compressed(drawing("<!--" + QByteArray(17 * 1024 * 1024, 'a') + "-->"));
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
