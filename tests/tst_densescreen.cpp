// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A species file whose structure picture is twice as fine as the label on an ordinary screen.
QByteArray entryWithFinePicture()
{
    QImage picture(600, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int y = 0; y < picture.height(); ++y)
        picture.setPixelColor(300, y, Qt::black);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return "{\"Type\":\"Species v1\",\"Species\":{\"StructuralFormula\":\"" + png.toBase64() +
           "\"}}";
}

} // namespace

/// The window on a screen with two pixels for each unit of length.
class TestDenseScreen : public WindowTest
{
    Q_OBJECT

public:
    static void initMain() { qputenv("QT_SCALE_FACTOR", "2"); }

private Q_SLOTS:
    void structurePictureHasEveryPixelOfTheScreen()
    {
        QCOMPARE(window->devicePixelRatioF(), 2.0);
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, entryWithFinePicture())));
        const auto* label = TestSupport::child<QLabel>(*window, "imageLabel");
        const QPixmap shown = label->pixmap();
        QCOMPARE(shown.devicePixelRatio(), 2.0);
        const QSize room = label->size() * 2;
        QCOMPARE(shown.size(), QSize(600, 300).scaled(room, Qt::KeepAspectRatio));
        QVERIFY(shown.height() == room.height() || shown.width() == room.width());
    }
};

QTEST_MAIN(TestDenseScreen)
#include "tst_densescreen.moc"
