// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"
#include "tests/support/documentwindow.h"
#include "tests/support/testpicture.h"
#include "tests/support/windowtest.h"

#include <QClipboard>
#include <QDockWidget>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView clearEntry("Clear Image");
constexpr QLatin1StringView pasteEntry("Paste Image from Clipboard");

QImage picture(int width, int height, const QColor& colour = Qt::red)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// A species file that holds nothing but the image.
QByteArray entryWith(const QImage& image)
{
    return "{\"Type\":\"Species v1\",\"Species\":{\"StructuralFormula\":\"" +
           TestSupport::encoded(image).toBase64() + "\"}}";
}

} // namespace

/// The structure image in the form: how it is shown, cleared and pasted.
class TestStructureImage : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void labelIsEmptyAtFirst()
    {
        QVERIFY(label().pixmap().isNull());
        QCOMPARE(label().text(), QString());
        QCOMPARE(label().height(), 150);
        QVERIFY(label().width() >= 200);
    }

    void contextMenuOffersToClearAndToPaste()
    {
        const QPoint position(7, 5);
        dialogs->expect([this, position](QWidget& widget) {
            const auto* menu = qobject_cast<QMenu*>(&widget);
            QStringList texts;
            for (const QAction* action : widget.actions())
                texts.append(action->text());
            if (menu == nullptr ||
                texts != QStringList({QString(clearEntry), QString(pasteEntry)}) ||
                menu->title() != "Image Menu"_L1)
                dialogs->complain(u"another menu was expected"_s);
            if (widget.pos() != label().mapToGlobal(position))
                dialogs->complain(u"the menu opens elsewhere"_s);
            QTest::keyClick(&widget, Qt::Key_Escape);
        });
        requestMenu(position);
    }

    void dismissingTheMenuDoesNothing()
    {
        loadEntryWith(picture(40, 30));
        QGuiApplication::clipboard()->setImage(picture(50, 50, Qt::blue));
        dialogs->expect([](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
        requestMenu({10, 10});
        QCOMPARE(storedImage(), picture(40, 30));
        verifyUnmodified();
    }

    void menuCanBeUsedWithTheKeyboard()
    {
        loadEntryWith(picture(40, 30));
        dialogs->expect([](QWidget& menu) {
            QTest::keyClick(&menu, Qt::Key_Down);
            QTest::keyClick(&menu, Qt::Key_Return);
        });
        requestMenu({10, 10});
        QVERIFY(storedImage().isNull());
    }

    void menuIsGoneAfterUse()
    {
        for (int use = 0; use < 2; ++use) {
            dialogs->expect([](QWidget& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
            requestMenu({10, 10});
        }
        QStringList titles;
        const QList<QMenu*> menus = window->findChildren<QMenu*>();
        for (const QMenu* menu : menus)
            titles.append(menu->title());
        QVERIFY(!titles.contains(u"Image Menu"_s));
    }

    void clearingEmptiesTheLabelAndMarksTheDocument()
    {
        loadEntryWith(picture(40, 30));
        QVERIFY(!label().pixmap().isNull());
        choose(clearEntry);
        QVERIFY(storedImage().isNull());
        QVERIFY(label().pixmap().isNull());
        QCOMPARE(label().text(), QString());
        verifyModified();
    }

    void clearingWithoutAnImageDoesNothing()
    {
        loadEntryWith({});
        const QSignalSpy changes(&model(), &SpeciesModel::imageChanged);
        choose(clearEntry);
        QCOMPARE(changes.count(), 0);
        verifyUnmodified();
    }

    void clearingTwiceChangesOnce()
    {
        loadEntryWith(picture(40, 30));
        const QSignalSpy changes(&model(), &SpeciesModel::imageChanged);
        choose(clearEntry);
        TestSupport::trigger(*window, "actionSaveSpecies");
        choose(clearEntry);
        QCOMPARE(changes.count(), 1);
        verifyUnmodified();
    }

    void pastedImageIsStoredUnscaled()
    {
        loadEntryWith({});
        QGuiApplication::clipboard()->setImage(picture(1000, 300));
        choose(pasteEntry);
        QCOMPARE(storedImage(), picture(1000, 300));
        QVERIFY(label().pixmap().width() < 1000);
        verifyModified();
    }

    void pastedImageReplacesTheOldOne()
    {
        loadEntryWith(picture(40, 30, Qt::red));
        QGuiApplication::clipboard()->setImage(picture(40, 30, Qt::blue));
        choose(pasteEntry);
        QCOMPARE(storedImage(), picture(40, 30, Qt::blue));
        QCOMPARE(label().pixmap().toImage().pixelColor(5, 5), QColor(Qt::blue));
        verifyModified();
    }

    void pastingTheSameImageTwiceChangesOnce()
    {
        loadEntryWith({});
        const QSignalSpy changes(&model(), &SpeciesModel::imageChanged);
        QGuiApplication::clipboard()->setImage(picture(60, 40));
        choose(pasteEntry);
        TestSupport::trigger(*window, "actionSaveSpecies");
        verifyUnmodified();
        choose(pasteEntry);
        QCOMPARE(changes.count(), 1);
        verifyUnmodified();
    }

    void pastingWithoutAnImageIsReported_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << QString();
        QTest::newRow("text") << u"58-08-2"_s;
        QTest::newRow("address of a picture") << u"file:///picture.png"_s;
    }

    void pastingWithoutAnImageIsReported()
    {
        QFETCH(const QString, text);
        loadEntryWith(picture(40, 30));
        if (!text.isEmpty())
            QGuiApplication::clipboard()->setText(text);
        chooseFromNextMenu(pasteEntry);
        dialogs->expectBox(QMessageBox::Warning, u"No Image"_s,
                           u"The clipboard does not contain an image."_s);
        requestMenu({10, 10});
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(storedImage(), picture(40, 30));
        QVERIFY(!label().pixmap().isNull());
        verifyUnmodified();
    }

    void imageThatCouldNotBeReadAgainIsNotPasted_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("of many pixels") << QSize(6000, 6200);
        QTest::newRow("wide") << QSize(1'000'001, 1);
        QTest::newRow("high") << QSize(1, 1'000'001);
    }
    void imageThatCouldNotBeReadAgainIsNotPasted()
    {
        QFETCH(const QSize, size);
        loadEntryWith(picture(40, 30));
        QImage large(size, QImage::Format_Mono);
        large.fill(0);
        QGuiApplication::clipboard()->setImage(large);
        chooseFromNextMenu(pasteEntry);
        dialogs->expectBox(QMessageBox::Warning, u"No Image"_s,
                           u"The clipboard does not contain an image."_s);
        requestMenu({10, 10});
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QCOMPARE(storedImage(), picture(40, 30));
        verifyUnmodified();
    }

    void wideImageIsShrunkToTheWidthOfTheLabel()
    {
        const int width = label().width();
        QVERIFY(width < 500);
        paste(picture(1000, 300));
        const QSize shown = label().pixmap().size();
        QCOMPARE(shown.width(), width);
        QVERIFY(qAbs(shown.height() - width * 0.3) <= 1);
    }

    void smallImageIsEnlargedToTheHeightOfTheLabel()
    {
        paste(picture(20, 20));
        QCOMPARE(label().pixmap().size(), QSize(150, 150));
    }

    void tallImageIsShrunkToTheHeightOfTheLabel()
    {
        paste(picture(300, 600));
        QCOMPARE(label().pixmap().size(), QSize(75, 150));
    }

    void imageIsScaledSmoothly()
    {
        QImage halves = picture(4, 3, Qt::black);
        for (int y = 0; y < 3; ++y) {
            halves.setPixelColor(2, y, Qt::white);
            halves.setPixelColor(3, y, Qt::white);
        }
        paste(halves);
        const QImage shown = label().pixmap().toImage();
        QCOMPARE(shown.size(), QSize(200, 150));
        bool grey = false;
        for (int x = 0; x < shown.width(); ++x) {
            const int value = shown.pixelColor(x, 75).red();
            grey = grey || (value > 60 && value < 190);
        }
        QVERIFY(grey);
    }

    void resizingTheLabelDoesNotScaleAgain()
    {
        paste(picture(1000, 300));
        const QSize shown = label().pixmap().size();
        const int width = label().width();
        window->resizeDocks({TestSupport::child<QDockWidget>(*window, "speciesDock")}, {700},
                            Qt::Horizontal);
        QTRY_VERIFY(label().width() > width);
        QCOMPARE(label().pixmap().size(), shown);
    }

    void loadingAnEntryShowsItsImage()
    {
        loadEntryWith(picture(60, 30, Qt::blue));
        QCOMPARE(storedImage().size(), QSize(60, 30));
        QVERIFY(!label().pixmap().isNull());
        verifyUnmodified();
        loadEntryWith({});
        QVERIFY(label().pixmap().isNull());
    }

    void cleaningTheDocumentEmptiesTheLabel()
    {
        loadEntryWith(picture(60, 30));
        TestSupport::trigger(*window, "actionClean");
        QVERIFY(label().pixmap().isNull());
        QVERIFY(storedImage().isNull());
    }

    void pastedImageIsSaved()
    {
        loadEntryWith({});
        paste(picture(33, 22, Qt::green));
        TestSupport::trigger(*window, "actionSaveSpecies");
        const QImage saved = QImage::fromData(QByteArray::fromBase64(savedFormula().toUtf8()));
        QCOMPARE(saved, picture(33, 22, Qt::green));
    }

    void clearedImageIsSavedAsAnEmptyString()
    {
        loadEntryWith(picture(40, 30));
        choose(clearEntry);
        TestSupport::trigger(*window, "actionSaveSpecies");
        QVERIFY(savedSpecies().contains(u"StructuralFormula"_s));
        QVERIFY(savedSpecies().value(u"StructuralFormula"_s).isString());
        QCOMPARE(savedFormula(), QString());
    }

private:
    [[nodiscard]] QLabel& label() const
    {
        return *TestSupport::child<QLabel>(*window, "imageLabel");
    }
    [[nodiscard]] SpeciesModel& model() const { return *window->findChild<SpeciesModel*>(); }
    [[nodiscard]] QImage storedImage() const { return model().image(); }

    /// Presses the right button on the label, as from the window system.
    void requestMenu(const QPoint& position)
    {
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, Qt::NoModifier,
                          label().mapTo(window.get(), position));
    }

    void chooseFromNextMenu(QLatin1StringView text)
    {
        dialogs->expect([this, text](QWidget& widget) {
            const auto* menu = qobject_cast<QMenu*>(&widget);
            const QList<QAction*> actions = widget.actions();
            for (QAction* action : actions) {
                if (menu != nullptr && action->text() == text) {
                    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier,
                                      menu->actionGeometry(action).center());
                    return;
                }
            }
            dialogs->complain("no menu entry "_L1 + text);
            widget.close();
        });
    }

    void choose(QLatin1StringView entry)
    {
        chooseFromNextMenu(entry);
        requestMenu({10, 10});
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    void paste(const QImage& image)
    {
        QGuiApplication::clipboard()->setImage(image);
        choose(pasteEntry);
        QCOMPARE(storedImage(), image);
    }

    void loadEntryWith(const QImage& image)
    {
        const QString file = sandbox->write(u"entry.json"_s, entryWith(image));
        QVERIFY(window->openEntry(file));
        verifyUnmodified();
    }

    void verifyUnmodified() const
    {
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - entry.json"_s);
    }

    void verifyModified() const
    {
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - entry.json *"_s);
    }

    [[nodiscard]] QJsonObject savedSpecies() const
    {
        return QJsonDocument::fromJson(sandbox->read(u"entry.json"_s))
            .object()
            .value(u"Species"_s)
            .toObject();
    }

    [[nodiscard]] QString savedFormula() const
    {
        return savedSpecies().value(u"StructuralFormula"_s).toString();
    }
};

QTEST_MAIN(TestStructureImage)
#include "tst_structureimage.moc"
