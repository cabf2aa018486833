// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "tests/support/child.h"
#include "tests/support/roomcheck.h"
#include "tests/support/sandbox.h"

#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QTest>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

/// Lets what was asked for be laid out and painted.
void settle(QWidget& window)
{
    for (int pass = 0; pass < 5; ++pass)
        QCoreApplication::processEvents();
    QVERIFY(!window.grab().isNull());
    QCoreApplication::processEvents();
}

/// How much of the widget none of those around it cuts off.
QSize sizeInView(const QWidget& widget)
{
    QRect area = widget.rect();
    for (const QWidget* inner = &widget; !inner->isWindow(); inner = inner->parentWidget())
        area = area.translated(inner->pos()).intersected(inner->parentWidget()->rect());
    return area.size();
}

} // namespace

/// Both windows at every size of window and text that people use. CTest runs it once for every
/// scale of the screen.
class TestLayoutGrid : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { usualFont = QApplication::font(); }

    void cleanup() { QApplication::setFont(usualFont); }

    void everythingHasItsRoom_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("points");
        // The last four are what screens of 1366 x 768 and 1920 x 1080 leave when they are scaled.
        for (const QSize size :
             {QSize(800, 600), QSize(960, 700), QSize(1050, 768), QSize(1272, 873),
              QSize(1280, 680), QSize(1366, 768), QSize(1920, 1080), QSize(2560, 1440),
              QSize(1093, 614), QSize(910, 512), QSize(1536, 864), QSize(960, 540)}) {
            for (const double points : {9.0, 10.0, 12.0, 14.0})
                QTest::addRow("%d x %d, %g pt", size.width(), size.height(), points)
                    << size << points;
        }
    }

    void everythingHasItsRoom()
    {
        showEntry();
        QFETCH(QSize, size);
        QCOMPARE(window->size(), size);
        auto* type = child<QComboBox>(*window, "comboBoxType");
        for (const char* kind : {"ms-TPES", "FC simulation"}) {
            type->setCurrentText(QString::fromLatin1(kind));
            settle(*window);
            const int before = RoomCheck::measured();
            const QStringList faults = RoomCheck::faultsOf(*window);
            QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
            QVERIFY(RoomCheck::measured() - before > 50);
        }
        const auto* dock = child<QDockWidget>(*window, "speciesDock");
        const int heading = child<QWidget>(*dock, "label_10")->x();
        for (const char* column : {"lineEditAIEComment", "lineEditVIEComment"})
            QVERIFY2(std::abs(child<QWidget>(*dock, column)->x() - heading) <= 3, column);
    }

    void smallestFloatingFormHasItsRoom_data() { fonts(); }

    void smallestFloatingFormHasItsRoom()
    {
        showEntry(QSize(1272, 873));
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        dock->setFloating(true);
        dock->resize(dock->minimumSizeHint());
        settle(*window);
        const QStringList faults = RoomCheck::faultsOf(*dock) + RoomCheck::faultsOf(*window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

    void windowFitsASmallScreen_data() { fonts(); }

    void windowFitsASmallScreen()
    {
        showEntry(QSize(1272, 873));
        // What a screen of 1366 x 768 at 150 % leaves beside a task bar and a title.
        const QSize smallest = window->minimumSizeHint();
        QVERIFY2(smallest.width() <= 800 && smallest.height() <= 440,
                 qPrintable(u"%1 x %2"_s.arg(smallest.width()).arg(smallest.height())));
    }

    void focusByKeyboardIsBroughtIntoView()
    {
        QApplication::setFont(QFont(usualFont.family(), 14));
        showEntry(QSize(800, 600));
        for (const char* name :
             {"lineEditSpecies", "lineEditVIEComment", "lineEditTitle", "textEditComments",
              "buttonCommaToDot", "lineEditUploader", "textEditSpect", "lineEditFlux"}) {
            auto* field = child<QWidget>(*window, name);
            field->setFocus(Qt::TabFocusReason);
            settle(*window);
            const QSize seen = sizeInView(*field);
            const QSize due = field->size().boundedTo(QSize(200, 120)); // what is large, partly
            QVERIFY2(seen.expandedTo(due) == seen, name);
        }
    }

private:
    static void fonts()
    {
        QTest::addColumn<double>("points");
        QTest::newRow("9 pt") << 9.0;
        QTest::newRow("14 pt") << 14.0;
    }

    void showEntry()
    {
        QFETCH(QSize, size);
        showEntry(size);
    }

    void showEntry(QSize size)
    {
        if (QTest::currentDataTag() != nullptr) {
            QFETCH(double, points);
            QFont font = usualFont;
            font.setPointSizeF(points);
            QApplication::setFont(font);
        }
        window = std::make_unique<MainWindow>();
        window->resize(size);
        QVERIFY(TestSupport::showActive(*window));
        QVERIFY(window->openEntry(
            sandbox.write(u"water.json"_s,
                          R"({"Type": "Species v1", "Species": {"Name": "water"}, "Dataset1": {
                "Title": "A title of usual length", "E": [9.2642, 10.45, 11.2138],
                "I": [0.45, 1000, 31.5]}})")));
        settle(*window);
    }

    const Sandbox sandbox;
    QFont usualFont;
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(TestLayoutGrid)
#include "tst_layoutgrid.moc"
