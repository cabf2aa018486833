// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/child.h"
#include "tests/support/sandbox.h"
#include "tests/support/traps.h"
#include "widgets/elidedlabel.h"
#include "widgets/entrystatus.h"

#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTest>

#include <memory>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

QStringList& announcements()
{
    static QStringList names;
    return names;
}

/// Notes what screen readers are told.
void noteAnnouncement(QAccessibleEvent* event)
{
    if (event->type() == QAccessible::NameChanged)
        announcements().append(event->accessibleInterface()->text(QAccessible::Name));
}

constexpr auto allLabels = {"statusSpectrum", "statusTyped", "statusFetching", "statusClosed",
                            "statusLast"};

} // namespace

/// The line in the status bar: who gets how much room, and what is told of what has too little.
class TestStatusLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        window = std::make_unique<QMainWindow>();
        status = new EntryStatus(window->statusBar());
        window->resize(800, 200);
        QVERIFY(TestSupport::showActive(*window));
    }

    void cleanup() { window.reset(); }

    void sharesAreFair_data()
    {
        QTest::addColumn<QList<int>>("wanted");
        QTest::addColumn<int>("room");
        QTest::addColumn<QList<int>>("shares");
        QTest::newRow("room for all") << QList{10, 20, 30} << 60 << QList{10, 20, 30};
        QTest::newRow("more than enough") << QList{10, 20} << 500 << QList{10, 20};
        QTest::newRow("the long one gives way") << QList{10, 200, 30} << 100 << QList{10, 60, 30};
        QTest::newRow("two long ones") << QList{200, 10, 300} << 100 << QList{45, 10, 45};
        QTest::newRow("one pixel over") << QList{200, 300} << 101 << QList{50, 51};
        QTest::newRow("no room") << QList{5, 6} << 0 << QList{0, 0};
        QTest::newRow("less than none") << QList{5, 6} << -7 << QList{0, 0};
        QTest::newRow("nobody") << QList<int>() << 100 << QList<int>();
    }

    void sharesAreFair()
    {
        QFETCH(QList<int>, wanted);
        QFETCH(int, room);
        QTEST(StatusLine::fairShares(wanted, room), "shares");
    }

    void startsEmpty()
    {
        for (const char* name : allLabels)
            QVERIFY2(!label(name)->isVisible(), name);
    }

    void everyTextHasItsPlace()
    {
        sayEverything(u"spectrum"_s, u"path/a.json"_s);
        window->resize(1600, 200);
        QCoreApplication::processEvents();
        int end = -1;
        for (const char* name : allLabels) {
            QVERIFY2(label(name)->isVisible(), name);
            QCOMPARE(label(name)->text(), label(name)->wholeText());
            QVERIFY2(label(name)->x() > end, name);
            end = label(name)->geometry().right();
        }
        QVERIFY(label("statusSpectrum")->x() < 10);
        QVERIFY(end > status->width() - 10);
    }

    void longTextsGiveWayToShortOnes()
    {
        sayEverything(QString(400, u's'), u"/"_s + QString(200, u'p') + u"/a.json"_s);
        status->setClosed({});
        QCoreApplication::processEvents();
        QCOMPARE(label("statusTyped")->text(), u"Points not yet taken over"_s);
        QCOMPARE(label("statusFetching")->text(), u"Fetching the structure image"_s);
        for (const char* name : {"statusSpectrum", "statusLast"}) {
            QVERIFY(label(name)->text().endsWith(u'\u2026'));
            QVERIFY(label(name)->width() > 100);
        }
        QVERIFY(label("statusSpectrum")->toolTip().contains(QString(400, u's')));
        window->resize(400, 200);
        QCoreApplication::processEvents();
        QCOMPARE(label("statusTyped")->text(), u"Points not yet taken over"_s);
        QVERIFY(label("statusFetching")->text().endsWith(u'\u2026'));
        window->resize(8000, 200);
        QCoreApplication::processEvents();
        QCOMPARE(label("statusSpectrum")->text(), QString(400, u's'));
        QCOMPARE(label("statusSpectrum")->toolTip(), QString());
    }

    void windowBecomesAsSmallAsBefore_data()
    {
        QTest::addColumn<double>("points");
        QTest::newRow("9 pt") << 9.0;
        QTest::newRow("14 pt") << 14.0;
    }

    void windowBecomesAsSmallAsBefore()
    {
        QFETCH(double, points);
        QFont font = window->font();
        font.setPointSizeF(points);
        QMainWindow empty;
        for (QMainWindow* shown : {window.get(), &empty}) {
            shown->setFont(font);
            shown->statusBar()->setFont(font);
        }
        QVERIFY(TestSupport::showActive(empty));
        sayEverything(QString(4000, u's'), u"/"_s + QString(200, u'p') + u"/a.json"_s);
        QCoreApplication::processEvents();
        QCOMPARE(window->minimumSizeHint().width(), empty.minimumSizeHint().width());
        // Rounding can make a painted line a pixel higher than an empty bar is.
        empty.statusBar()->addPermanentWidget(new QLabel(u"X"_s));
        QCOMPARE(window->minimumSizeHint().height(), empty.minimumSizeHint().height());
        window->resize(window->minimumSizeHint());
        QCoreApplication::processEvents();
        for (const char* name : allLabels)
            QVERIFY2(status->rect().contains(label(name)->geometry()), name);
    }

    void textIsOneLine()
    {
        status->setSpectrum(u"one\ntwo\u2028three"_s);
        QCoreApplication::processEvents();
        QCOMPARE(label("statusSpectrum")->text(), u"one two three"_s);
    }

    void markupIsText()
    {
        FifoTrap trap(
            QDir::temp().filePath(u"korvela-status-%1"_s.arg(QCoreApplication::applicationPid())));
        const Deadline deadline;
        const QString image = u"<img src=\"%1\"><b>x</b>"_s.arg(trap.url());
        status->setSpectrum(image);
        status->setClosed(image + QString(500, u'x'));
        QCoreApplication::processEvents();
        QVERIFY(!window->grab().isNull());
        QCOMPARE(label("statusSpectrum")->text(), image);
        QVERIFY(label("statusClosed")->toolTip().contains("&lt;b&gt;x"_L1));
        QVERIFY(!trap.sprung());
    }

    void screenReadersGetTheWhole()
    {
        sayEverything(QString(400, u's'), u"/"_s + QString(200, u'p') + u"/a.json"_s);
        for (const char* name : allLabels) {
            const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(label(name));
            QCOMPARE(told->role(), QAccessible::StaticText);
            QCOMPARE(told->text(QAccessible::Name), label(name)->wholeText());
            QVERIFY2(!told->text(QAccessible::Description).isEmpty(), name);
        }
    }

    void screenReadersAreToldOfWhatIsNewOnce()
    {
        // Whoever listens does so over a bus to which the program connects after its start.
        const bool isDeaf = QGuiApplication::platformName() == "offscreen"_L1;
        if (!QTest::qWaitFor(&QAccessible::isActive, isDeaf ? 0 : 5000))
            QSKIP("needs a platform on which somebody listens to what screen readers are told");
        announcements().clear();
        const auto before = QAccessible::installUpdateHandler(noteAnnouncement);
        for (int key = 0; key < 5; ++key)
            status->setPointsTyped(true);
        status->setSpectrum(u"2 points"_s);
        status->setSpectrum(u"2 points"_s);
        window->resize(300, 200); // what is shown becomes shorter, what is told does not
        status->setPointsTyped(false);
        QAccessible::installUpdateHandler(before);
        announcements().removeAll({});
        QCOMPARE(announcements(), (QStringList{u"Points not yet taken over"_s, u"2 points"_s}));
    }

    void pointsAndFieldAreToldTogether()
    {
        status->setFieldTyped(true);
        QCOMPARE(label("statusTyped")->wholeText(), u"Field not yet taken over"_s);
        status->setPointsTyped(true);
        QCOMPARE(label("statusTyped")->wholeText(), u"Points and field not yet taken over"_s);
        status->setFieldTyped(false);
        QCOMPARE(label("statusTyped")->wholeText(), u"Points not yet taken over"_s);
        status->setPointsTyped(false);
        QVERIFY(!label("statusTyped")->isVisible());
    }

    void savedFileAndHintHideNothingOfEachOther()
    {
        status->setSaved(u"Entry"_s, u"/x/a.json"_s, SaveResult::Written);
        const QString saved = label("statusLast")->wholeText();
        QVERIFY(saved.startsWith("Entry saved at "_L1));
        QVERIFY(label("statusLast")->toolTip().contains("/x/a.json"_L1));
        status->setClosed(u"hint"_s);
        QCOMPARE(label("statusClosed")->wholeText(), u"hint"_s);
        QCOMPARE(label("statusLast")->wholeText(), saved);
        status->setClosed({});
        QVERIFY(!label("statusClosed")->isVisible());
        QCOMPARE(label("statusLast")->wholeText(), saved);
        QVERIFY(label("statusLast")->toolTip().contains("/x/a.json"_L1));
    }

    void messagesOfTheBarHideNothing()
    {
        status->setSpectrum(u"2 points"_s);
        window->statusBar()->showMessage(u"what a menu would say"_s);
        QCoreApplication::processEvents();
        QVERIFY(label("statusSpectrum")->isVisible());
        QCOMPARE(label("statusSpectrum")->text(), u"2 points"_s);
    }

private:
    [[nodiscard]] ElidedLabel* label(const char* name) const
    {
        return child<ElidedLabel>(*window, name);
    }

    void sayEverything(const QString& spectrum, const QString& path)
    {
        status->setSpectrum(spectrum);
        status->setPointsTyped(true);
        status->setFetching(true);
        status->setClosed(u"Ctrl+Shift+T brings back the closed spectrum"_s);
        status->setSaved(u"Entry"_s, path, SaveResult::Written);
    }

    std::unique_ptr<QMainWindow> window;
    EntryStatus* status = nullptr;
};

QTEST_MAIN(TestStatusLine)
#include "tst_statusline.moc"
