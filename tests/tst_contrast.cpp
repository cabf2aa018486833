// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QGraphicsItem>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionDockWidget>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>

#include <algorithm>
#include <cmath>
#include <functional>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

QPalette darkPalette()
{
    const QColor window(45, 45, 45);
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText})
        palette.setColor(role, QColor(240, 240, 240));
    palette.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    palette.setColor(QPalette::Highlight, QColor(40, 90, 150));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette lightPalette()
{
    const QColor window(239, 239, 239);
    QPalette palette(window, window);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(48, 100, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// Relative luminance as the Web Content Accessibility Guidelines define it.
double luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The contrast between the background, the most frequent colour, and the pixel of the text that
/// stands out most; a few stray pixels are no text.
double textContrast(const QImage& picture)
{
    constexpr int fewestPixels = 5;
    QMap<QRgb, int> counts; // a hash, optimised, makes GCC 12 warn of null pointers
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto background = std::max_element(counts.cbegin(), counts.cend());
    QList<double> contrasts;
    for (auto colour = counts.cbegin(); colour != counts.cend(); ++colour)
        contrasts.append(QList<double>(*colour, contrast(background.key(), colour.key())));
    std::sort(contrasts.begin(), contrasts.end(), std::greater());
    return contrasts.value(fewestPixels - 1);
}

} // namespace

/// Every text can be read on light and on dark desktops: the pixels on the screen are measured.
class TestContrast : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void form_data() { desktops(); }

    void form()
    {
        showEntry();
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        measureWidgets(*dock, *window);
        measureTitle(*dock);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QCOMPARE(measured, 24);
    }

    void floatingForm_data() { desktops(); }

    void floatingForm()
    {
        showEntry();
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        dock->setFloating(true);
        QVERIFY(TestSupport::showActive(*dock));
        measureWidgets(*dock, *dock);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QCOMPARE(measured, 23);
    }

    void spectrum_data() { desktops(); }

    void spectrum()
    {
        showEntry();
        SpectrumWindow* spectrum = TestSupport::spectra(*window).constFirst();
        measureWidgets(*spectrum, *window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QCOMPARE(measured, 30);
    }

    void linesThatAreNoPoints_data() { desktops(); }

    void linesThatAreNoPoints()
    {
        showEntry();
        auto* list =
            child<QPlainTextEdit>(*TestSupport::spectra(*window).constFirst(), "textEditSpect");
        list->setPlainText(u"MMMMMMMM MM\n1MMMMMMMMMMM"_s);
        QCoreApplication::processEvents();
        measure(u"lines that are no points"_s, list->viewport()->grab().toImage(),
                list->viewport()->rect());
        QCOMPARE(list->extraSelections().size(), 1);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void chart_data() { desktops(); }

    void chart()
    {
        showEntry();
        auto* view =
            child<QChartView>(*TestSupport::spectra(*window).constFirst(), "chartSpectrum");
        for (const QPoint shift : {QPoint(0, 0), QPoint(1, 1)})
            QTest::mouseMove(view->viewport(), view->viewport()->rect().center() + shift);
        const QImage picture = view->grab().toImage();
        auto* readOut = view->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(readOut->text().startsWith(u"h\u03bd: "));
        measure(u"read-out"_s, picture, readOut->geometry());
        const QList<QGraphicsItem*> items = view->scene()->items();
        for (const QGraphicsItem* item : items) {
            const auto* text = qgraphicsitem_cast<const QGraphicsTextItem*>(item);
            if (text != nullptr && text->isVisible() && !text->toPlainText().isEmpty())
                measure(u"axis text"_s, picture,
                        view->mapFromScene(item->sceneBoundingRect()).boundingRect());
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QVERIFY2(measured >= 1 + 2 + 2 * 5, qPrintable(QString::number(measured)));
    }

    void selectedText_data() { desktops(); }

    void selectedText()
    {
        showEntry();
        for (const char* name :
             {"lineEditSpecies", "textEditAliases", "lineEditTitle", "textEditComments"}) {
            auto* field = child<QTextEdit>(*window, name);
            field->setFocus();
            field->selectAll();
            measure(field->objectName(), window->grab().toImage(), textArea(*field, *window));
            // Without the focus, the selection keeps its mark.
            child<QWidget>(*window, "textEditSpect")->setFocus();
            measure(field->objectName(), window->grab().toImage(), textArea(*field, *window));
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void menusOfTheFields_data() { desktops(); }

    void menusOfTheFields()
    {
        showEntry();
        for (const char* name :
             {"lineEditSpecies", "textEditAliases", "lineEditTitle", "textEditComments"}) {
            auto* field = child<QTextEdit>(*window, name);
            field->selectAll();
            const QPoint centre = field->viewport()->rect().center();
            QContextMenuEvent request(QContextMenuEvent::Mouse, centre,
                                      field->viewport()->mapToGlobal(centre));
            dialogs->expect([this, field](QWidget& popup) {
                measureMenu(field->objectName(), static_cast<QMenu&>(popup));
                popup.close();
            });
            QCoreApplication::sendEvent(field->viewport(), &request);
            QTRY_VERIFY(dialogs->passed());
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QVERIFY2(measured >= 4 * 3, qPrintable(QString::number(measured)));
    }

    void menusTabsAndTools_data() { desktops(); }

    void menusTabsAndTools()
    {
        showEntry();
        const QImage picture = window->grab().toImage();
        const auto* menuBar = child<QMenuBar>(*window, "menubar");
        for (const QAction* action : menuBar->actions()) {
            const QRect area = menuBar->actionGeometry(const_cast<QAction*>(action));
            measure(action->text(), picture, area.translated(menuBar->pos()));
        }
        auto* tabs = window->findChild<QTabBar*>();
        for (int i = 0; i < tabs->count(); ++i)
            measure(u"tab"_s, picture,
                    tabs->tabRect(i)
                        .adjusted(8, 8, -8, -4)
                        .translated(tabs->mapTo(window.get(), QPoint(0, 0))));
        const int before = measured;
        measureWidgets(*window->statusBar(), *window);
        QCOMPARE(measured - before, 1); // what was understood of the points
        for (const char* name : {"menuSpecies", "menuSpectrum"}) {
            auto* menu = child<QMenu>(*window, name);
            menu->popup(QPoint(0, 0));
            measureMenu(menu->objectName(), *menu);
            menu->close();
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void boxes_data() { desktops(); }

    void boxes()
    {
        showEntry();
        dialogs->expect([this](QWidget& box) {
            measureWidgets(box, box);
            box.close();
        });
        TestSupport::trigger(*window, "actionPaste");
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void databaseDialog_data() { desktops(); }

    void databaseDialog()
    {
        showEntry();
        dialogs->expect([this](QWidget& dialog) {
            child<QListWidget>(dialog, "listWidget")->addItem(u"species.json"_s);
            child<QLabel>(dialog, "label_5")->setText(u"database.json"_s);
            QCoreApplication::processEvents();
            measureWidgets(dialog, dialog);
            dialog.close();
        });
        window->createSpeciesDatabase();
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QVERIFY2(measured >= 3 * 2 + 8, qPrintable(QString::number(measured)));
    }

private:
    static void desktops()
    {
        QTest::addColumn<QString>("style");
        QTest::addColumn<QPalette>("palette");
        QTest::addColumn<bool>("changedLater");
        for (const QString& style : {u"Fusion"_s, u"Windows"_s}) {
            for (const bool dark : {false, true}) {
                for (const bool changedLater : {false, true})
                    QTest::addRow("%s, %s%s", qPrintable(style), dark ? "dark" : "light",
                                  changedLater ? ", changed later" : "")
                        << style << (dark ? darkPalette() : lightPalette()) << changedLater;
            }
        }
    }

    /// Shows an entry with one spectrum on the desktop of the test's row.
    void showEntry()
    {
        QFETCH(QString, style);
        QFETCH(QPalette, palette);
        QFETCH(bool, changedLater);
        const QPalette otherPalette =
            palette.color(QPalette::Base) == Qt::white ? darkPalette() : lightPalette();
        faults.clear();
        measured = 0;
        window.reset();
        QApplication::setStyle(style);
        QApplication::setPalette(changedLater ? otherPalette : palette);
        window = std::make_unique<MainWindow>();
        QVERIFY(TestSupport::showActive(*window));
        const QString path =
            sandbox->write(u"a.json"_s, TestSupport::speciesFile(u"Water"_s, {u"Water"_s}));
        QVERIFY(window->openEntry(path));
        for (QTextEdit* field : window->findChildren<QTextEdit*>())
            field->setPlainText(u"Water"_s);
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

    void measure(const QString& what, const QImage& picture, const QRect& area)
    {
        ++measured;
        const double found = textContrast(picture.copy(area));
        if (found < 4.5)
            faults.append(u"%1: %2 to 1"_s.arg(what).arg(found));
    }

    static QRect textArea(const QWidget& widget, const QWidget& top)
    {
        constexpr int frame = 3;
        QRect area = widget.rect();
        const QWidget* shown = &widget;
        if (const auto* scrolling = qobject_cast<const QAbstractScrollArea*>(&widget)) {
            shown = scrolling->viewport();
            area = shown->rect();
        }
        if (qobject_cast<const QLabel*>(&widget) == nullptr)
            area.adjust(frame, frame, -frame, -frame);
        return area.translated(shown->mapTo(&top, QPoint(0, 0)));
    }

    void measureWidgets(const QWidget& parent, QWidget& top)
    {
        const QImage picture = top.grab().toImage();
        for (const QWidget* widget : parent.findChildren<QWidget*>()) {
            const auto* label = qobject_cast<const QLabel*>(widget);
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const bool hasText = (label != nullptr && !label->text().isEmpty()) ||
                                 (button != nullptr && !button->text().isEmpty()) ||
                                 qobject_cast<const QTextEdit*>(widget) != nullptr ||
                                 qobject_cast<const QPlainTextEdit*>(widget) != nullptr ||
                                 qobject_cast<const QLineEdit*>(widget) != nullptr ||
                                 qobject_cast<const QComboBox*>(widget) != nullptr ||
                                 qobject_cast<const QListWidget*>(widget) != nullptr;
            if (hasText && widget->isVisible())
                measure(widget->objectName(), picture, textArea(*widget, top));
        }
    }

    void measureTitle(const QDockWidget& dock)
    {
        QStyleOptionDockWidget option;
        option.initFrom(&dock);
        option.title = dock.windowTitle();
        QRect area = dock.rect();
        area.setBottom(dock.widget()->y() - 1);
        measure(option.title, window->grab(QRect(dock.pos(), area.size())).toImage(),
                QRect(QPoint(6, 3), area.size() - QSize(60, 6)));
    }

    void measureMenu(const QString& what, QMenu& menu)
    {
        const QImage picture = menu.grab().toImage();
        for (QAction* action : menu.actions()) {
            if (action->isEnabled() && !action->isSeparator())
                measure(what + u": "_s + action->text(), picture,
                        menu.actionGeometry(action).adjusted(26, 3, -6, -3));
        }
    }

    QStringList faults;
    int measured = 0;
};

QTEST_MAIN(TestContrast)
#include "tst_contrast.moc"
