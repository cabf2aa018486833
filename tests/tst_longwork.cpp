// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/longwork.h"
#include "tests/support/sandboxtest.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QWidget>

#include <functional>
#include <memory>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// Work that goes on until this is gone.
class EndlessWork
{
public:
    EndlessWork() = default;
    ~EndlessWork() { mayEnd->release(works); }
    Q_DISABLE_COPY_MOVE(EndlessWork)

    /// What to do in another thread.
    [[nodiscard]] std::function<int()> another()
    {
        ++works;
        return [mayEnd = mayEnd] {
            mayEnd->acquire();
            return 7;
        };
    }

private:
    std::shared_ptr<QSemaphore> mayEnd = std::make_shared<QSemaphore>();
    int works = 0;
};

} // namespace

/// Work that can take long: unseen while it is short, then with a dialog that can stop it.
class TestLongWork : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        window = std::make_unique<QWidget>();
        QVERIFY(TestSupport::showActive(*window));
    }

    void cleanup() override
    {
        LongWork::setPatience(1s);
        window.reset();
        SandboxTest::cleanup();
        QVERIFY(!LongWork::isUnderWay());
    }

    void shortWorkDeliversNoEvent()
    {
        LongWork::setPatience(1h);
        bool delivered = false;
        QMetaObject::invokeMethod(
            window.get(), [&delivered] { delivered = true; }, Qt::QueuedConnection);
        LongWork work(window.get(), u"Counting"_s);
        const QThread* here = QThread::currentThread();
        QCOMPARE(work.aside([here] { return QThread::currentThread() != here; }), true);
        for (int step = 0; step < 1000; ++step)
            QVERIFY(work.goOn(step, 1000));
        QVERIFY(!delivered);
        QVERIFY(!work.isStopped());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void dialogSaysWhatIsDoneAndHowFarItIs()
    {
        LongWork::setPatience(0ms);
        QString text;
        dialogs->expect([this, &text](QWidget& dialog) {
            auto& progress = static_cast<QProgressDialog&>(dialog);
            QCOMPARE(progress.parentWidget(), window.get());
            QCOMPARE(progress.labelText(), u"Counting"_s);
            QCOMPARE(progress.accessibleName(), u"Counting"_s);
            text = progress.findChild<QProgressBar*>()->text();
        });
        LongWork work(window.get(), u"Counting"_s);
        while (text.isEmpty())
            QVERIFY(work.goOn(250, 1000));
        QCOMPARE(text, u"25%"_s);
    }

    void namesOfFilesAreTextAndHaveRoom()
    {
        LongWork::setPatience(0ms);
        const QString what = u"Opening <img src=x><b>"_s + u"y"_s.repeated(250) + u".json"_s;
        bool seen = false;
        dialogs->expect([&seen, what](QWidget& dialog) {
            seen = true;
            const auto* label = dialog.findChild<QLabel*>();
            QCOMPARE(label->textFormat(), Qt::PlainText);
            QVERIFY(label->text().startsWith(u"Opening <img src=x><b>y"_s));
            QVERIFY(label->text().endsWith(u"y.json"_s));
            QVERIFY(dialog.width() < 800);
            QCOMPARE(dialog.accessibleName(), what);
        });
        LongWork work(window.get(), what);
        while (!seen)
            QVERIFY(work.goOn(250, 1000));
    }

    void nobodyKnowsHowFarWorkInAnotherThreadIs()
    {
        LongWork::setPatience(0ms);
        QSemaphore mayEnd;
        int maximum = -1;
        dialogs->expect([&mayEnd, &maximum](QWidget& dialog) {
            maximum = static_cast<QProgressDialog&>(dialog).maximum();
            mayEnd.release();
        });
        LongWork work(window.get(), u"Counting"_s);
        QCOMPARE(work.aside([&mayEnd] {
            mayEnd.acquire();
            return 7;
        }),
                 7);
        QCOMPARE(maximum, 0);
    }

    void keyOrButtonStopsIt_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("key") << true;
        QTest::newRow("button") << false;
    }

    void keyOrButtonStopsIt()
    {
        QFETCH(const bool, byKey);
        LongWork::setPatience(0ms);
        EndlessWork endless;
        dialogs->expect([byKey](QWidget& dialog) {
            if (byKey)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
        });
        {
            LongWork work(window.get(), u"Counting"_s);
            const auto result = work.aside(endless.another());
            QVERIFY(!result.has_value());
            QVERIFY(work.isStopped());
            QVERIFY(!work.goOn(1, 2));
            QVERIFY(!work.aside([] { return 8; }).has_value());
        }
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void keyBeforeTheDialogStopsIt_data()
    {
        QTest::addColumn<bool>("inAnotherThread");
        QTest::newRow("in another thread") << true;
        QTest::newRow("in steps") << false;
    }

    void keyBeforeTheDialogStopsIt()
    {
        QFETCH(const bool, inAnotherThread);
        LongWork::setPatience(0ms);
        EndlessWork endless;
        QLineEdit field(window.get());
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_Escape}) {
            QCoreApplication::postEvent(
                &field, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, u"a"_s));
        }
        LongWork work(window.get(), u"Counting"_s);
        if (inAnotherThread)
            QVERIFY(!work.aside(endless.another()).has_value());
        else
            QVERIFY(!work.goOn(1, 1000));
        QVERIFY(work.isStopped());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QCOMPARE(field.text(), QString());
    }

    void keysAndClicksBeforeTheDialogReachNobody()
    {
        LongWork::setPatience(0ms);
        QLineEdit field(window.get());
        QPushButton button(window.get());
        const QSignalSpy clicks(&button, &QPushButton::clicked);
        QCoreApplication::postEvent(
            &field, new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s));
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(&button, new QMouseEvent(type, QPointF(1, 1), QPointF(1, 1),
                                                                 Qt::LeftButton, Qt::LeftButton,
                                                                 Qt::NoModifier));
        }
        dialogs->letWorkGoOn();
        {
            LongWork work(window.get(), u"Counting"_s);
            while (!dialogs->sawWork())
                QVERIFY(work.goOn(1, 1000));
        }
        QCOMPARE(field.text(), QString());
        QCOMPARE(clicks.count(), 0);
        QTest::keyClicks(&field, u"b"_s);
        QCOMPARE(field.text(), u"b"_s);
    }

    void stoppedThreadsKeepNobodyWaiting()
    {
        LongWork::setPatience(0ms);
        constexpr int several = 20;
        EndlessWork endless;
        for (int i = 0; i < several; ++i) {
            dialogs->expect([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
            LongWork work(window.get(), u"Counting"_s);
            QVERIFY(!work.aside(endless.another()).has_value());
        }
        LongWork::setPatience(1h);
        LongWork work(window.get(), u"Counting"_s);
        QCOMPARE(work.aside([] { return 8; }), 8);
    }

    void whatHasToWaitIsDoneAfterwards()
    {
        bool done = false;
        {
            const LongWork work(window.get(), u"Counting"_s);
            QVERIFY(LongWork::isUnderWay());
            LongWork::whenOver(window.get(), [&done] { done = true; });
            QVERIFY(!done);
        }
        QTRY_VERIFY(done);
        done = false;
        LongWork::whenOver(window.get(), [&done] { done = true; });
        QVERIFY(done);
    }

private:
    std::unique_ptr<QWidget> window;
};

QTEST_MAIN(TestLongWork)
#include "tst_longwork.moc"
