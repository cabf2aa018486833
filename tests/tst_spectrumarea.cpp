// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumarea.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/longwork.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandboxtest.h"
#include "tests/support/testdocument.h"

#include <QAction>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QtCharts/QChartView>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

QList<QJsonObject> datasets(const QStringList& titles)
{
    QList<QJsonObject> all;
    for (const QString& title : titles)
        all.append(datasetTitled(title));
    return all;
}

/// Counts how often tabs are measured.
class CountingStyle : public QProxyStyle
{
public:
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& size, const QWidget* widget) const override
    {
        measured += type == CT_TabBarTab ? 1 : 0;
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }

    mutable qsizetype measured = 0;
};

/// Counts how often somebody who looks through all children asks what this one is.
class CountingChild : public QWidget
{
public:
    using QWidget::QWidget;

    [[nodiscard]] const QMetaObject* metaObject() const override
    {
        ++asked;
        return QWidget::metaObject();
    }

    mutable qsizetype asked = 0;
};

} // namespace

/// The spectra of a document in an area of their own, without the editor's window.
class TestSpectrumArea : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        document = std::make_unique<TestDocument>();
        mdiArea = new QMdiArea(document.get());
        mdiArea->setViewMode(QMdiArea::TabbedView);
        document->layout()->addWidget(mdiArea);
        elsewhere = new QLineEdit(document.get());
        document->layout()->addWidget(elsewhere);
        area = std::make_unique<SpectrumArea>(*mdiArea);
        QVERIFY(showActive(*document));
    }

    void cleanup() override
    {
        area.reset();
        document.reset();
        SandboxTest::cleanup();
    }

    void emptyAreaHasNothing()
    {
        QVERIFY(area->active() == nullptr);
        QVERIFY(area->records().isEmpty());
        QVERIFY(!area->closeActive());
        show({});
        QVERIFY(area->active() == nullptr);
    }

    void datasetsAreShownInTheirOrder()
    {
        const QStringList titles{u"one"_s, u"two"_s, u"three"_s};
        show(datasets(titles));
        QCOMPARE(recordedTitles(), titles);
        QCOMPARE(captions(), titles);
        QCOMPARE(tabs(), titles);
        QCOMPARE(area->active()->windowTitle(), u"one"_s);
        QVERIFY(area->active()->isAncestorOf(QApplication::focusWidget()));
        QVERIFY(mdiArea->activeSubWindow()->isMaximized());
    }

    void nothingComesBetweenTheSpectraOfAnEntry()
    {
        constexpr qsizetype many = 70;
        bool isAnswered = false;
        QMetaObject::invokeMethod(
            mdiArea, [&isAnswered] { isAnswered = true; }, Qt::QueuedConnection);
        show(datasets(QStringList(many, u"one"_s)));
        QVERIFY(!isAnswered);
        QCOMPARE(area->records().size(), many);
        QCoreApplication::processEvents();
        QVERIFY(isAnswered);
    }

    void whatIsAroundIsLaidOutAgain()
    {
        auto* line = new QWidget(document.get());
        auto* label = new QLabel(u"-"_s, line);
        (new QHBoxLayout(line))->addWidget(label);
        line->layout()->addWidget(new QLineEdit(line));
        document->layout()->addWidget(line);
        QCoreApplication::processEvents();
        // As a status does, in the midst of the opening.
        connect(mdiArea, &QMdiArea::subWindowActivated, label,
                [label] { label->setText(u"Several words about the spectrum"_s); });
        show(datasets({u"one"_s, u"two"_s, u"three"_s}));
        QCoreApplication::processEvents();
        QVERIFY(label->width() >= label->sizeHint().width());
        label->setText(u"Still more words, which take more than half of the line"_s);
        QCoreApplication::processEvents();
        QVERIFY(label->width() >= label->sizeHint().width());
    }

    void documentLearnsNothingOfWindowsThatAreMade()
    {
        document->modifications = 0;
        LongWork work(document.get(), {});
        const auto windows =
            SpectrumArea::prepare(datasets({u"one"_s, u"two"_s}), document.get(), work);
        QVERIFY(windows.has_value());
        QCOMPARE(windows->size(), 2U);
        QCOMPARE(document->modifications, 0);
        QVERIFY(area->records().isEmpty());
        windows->front()->model()->setValue(SpectrumModel::Title, u"new"_s);
        QCOMPARE(document->modifications, 1);
    }

    void moreDatasetsComeBehindThoseThere()
    {
        show(datasets({u"one"_s}));
        show(datasets({u"two"_s, u"three"_s}));
        QCOMPARE(recordedTitles(), QStringList({u"one"_s, u"two"_s, u"three"_s}));
        QCOMPARE(area->active()->windowTitle(), u"one"_s);
    }

    void addedSpectrumIsInFront()
    {
        show(datasets({u"one"_s, u"two"_s}));
        auto* added = new SpectrumWindow(datasetTitled(u"three"_s), document.get());
        area->add(added);
        QCOMPARE(area->active(), added);
        QCOMPARE(captions(), QStringList({u"one"_s, u"two"_s, u"three"_s}));
        QCOMPARE(tabs().constLast(), u"three"_s);
        QVERIFY(mdiArea->activeSubWindow()->isMaximized());
    }

    void captionFollowsTheBeginningOfTheTitle()
    {
        show(datasets({u"one"_s}));
        SpectrumWindow* window = area->active();
        window->setWindowTitle(QString(5000, u'x'));
        QCOMPARE(captions(), QStringList(QString(1000, u'x')));
        window->setWindowTitle(u"R&D"_s);
        QCOMPARE(captions(), QStringList(u"R&D"_s));
        QCOMPARE(tabs(), QStringList(u"R&&D"_s));
    }

    void closedSpectrumIsGone()
    {
        show(datasets({u"one"_s, u"two"_s, u"three"_s}));
        const QPointer<SpectrumWindow> first = area->active();
        QVERIFY(area->closeActive());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull());
        QCOMPARE(area->active()->windowTitle(), u"two"_s);
        QVERIFY(mdiArea->activeSubWindow()->isMaximized());
        QCOMPARE(recordedTitles(), QStringList({u"two"_s, u"three"_s}));
        area->closeAll();
        QVERIFY(area->records().isEmpty());
        QVERIFY(area->active() == nullptr);
    }

    void manySpectraComeAndGoInStepWithTheirNumber()
    {
        CountingStyle style;
        tabBar()->setStyle(&style);
        tabBar()->setFocus(); // as in a window that was just opened
        QSignalSpy activated(mdiArea, &QMdiArea::subWindowActivated);
        constexpr qsizetype many = 60;
        show(datasets(QStringList(many, u"one"_s)));
        QVERIFY2(style.measured < 20 * many, QByteArray::number(style.measured).constData());
        QVERIFY2(activated.size() <= 3, QByteArray::number(activated.size()).constData());
        QVERIFY(tabBar()->isVisible());
        for (int tab = 0; tab < tabBar()->count(); ++tab)
            QVERIFY(tabBar()->isTabVisible(tab));

        style.measured = 0;
        area->closeAll();
        QVERIFY2(style.measured < 20 * many, QByteArray::number(style.measured).constData());
        tabBar()->setStyle(nullptr);
    }

    void areaDoesNotGoThroughAllSpectraForEach()
    {
        constexpr qsizetype many = 60;
        constexpr qsizetype few = many / 2;
        const CountingChild child(mdiArea->viewport());
        const QSignalSpy focused(qApp, &QApplication::focusChanged);
        const QSignalSpy activated(mdiArea, &QMdiArea::subWindowActivated);
        show(datasets(QStringList(many, u"one"_s)));
        QVERIFY2(child.asked < few, QByteArray::number(child.asked).constData());
        QVERIFY2(focused.size() < few, QByteArray::number(focused.size()).constData());

        const qsizetype asked = child.asked;
        area->closeAll();
        QVERIFY2(child.asked - asked < few, QByteArray::number(child.asked - asked).constData());
        QVERIFY2(focused.size() < few, QByteArray::number(focused.size()).constData());
        QVERIFY2(activated.size() < few, QByteArray::number(activated.size()).constData());
    }

    void allAreShownAndOneIsActive()
    {
        show(datasets(QStringList(5, u"one"_s)));
        QCoreApplication::processEvents();
        const QList<QMdiSubWindow*> subWindows = mdiArea->subWindowList();
        for (const QMdiSubWindow* subWindow : subWindows) {
            QVERIFY(subWindow->isVisible());
            QVERIFY(subWindow->isEnabled());
            QCOMPARE(subWindow->windowFlags(), subWindows.constFirst()->windowFlags());
            QVERIFY(subWindow->widget()->findChild<QWidget*>(u"textEditSpect"_s)->isVisible());
            QCOMPARE(subWindow->windowState().testFlag(Qt::WindowActive),
                     subWindow == subWindows.constFirst());
            QCOMPARE(subWindow->isMaximized(), subWindow == subWindows.constFirst());
        }
        QCOMPARE(tabBar()->currentIndex(), 0);
    }

    void allHaveTheIconsOfTheFirst()
    {
        show(datasets(QStringList(3, u"one"_s)));
        const QList<QMdiSubWindow*> subWindows = mdiArea->subWindowList();
        const QList<qint64> icons = iconsOf(*subWindows.constFirst());
        QVERIFY(!icons.isEmpty());
        for (const QMdiSubWindow* subWindow : subWindows)
            QCOMPARE(iconsOf(*subWindow), icons);
    }

    void closingAllLaysOutNoOtherChart()
    {
        show(datasets({u"one"_s, u"two"_s, u"three"_s}));
        QSignalSpy laidOut(chartOf(1), &QChart::plotAreaChanged);
        area->closeAll();
        QCOMPARE(laidOut.size(), 0);
        show(datasets({u"four"_s}));
        QVERIFY(mdiArea->activeSubWindow()->isMaximized());
        QVERIFY(mdiArea->updatesEnabled());
    }

    void keysGoFromSpectrumToSpectrum()
    {
        show(datasets({u"one"_s, u"two"_s, u"three"_s}));
        QStringList visited;
        for (int i = 0; i < 3; ++i) {
            elsewhere->setFocus();
            QTest::keyClick(elsewhere, Qt::Key_Tab, Qt::ControlModifier);
            visited.append(area->active()->windowTitle());
            QVERIFY(area->active()->isAncestorOf(QApplication::focusWidget()));
        }
        QCOMPARE(visited, QStringList({u"two"_s, u"three"_s, u"one"_s}));
    }

private:
    void show(const QList<QJsonObject>& datasets)
    {
        LongWork work(document.get(), {});
        auto windows = SpectrumArea::prepare(datasets, document.get(), work);
        QVERIFY(windows.has_value());
        area->show(std::move(*windows));
    }

    [[nodiscard]] QTabBar* tabBar() const { return mdiArea->findChild<QTabBar*>(); }

    [[nodiscard]] QChart* chartOf(qsizetype number) const
    {
        return mdiArea->subWindowList().at(number)->findChild<QChartView*>()->chart();
    }

    /// Which icons the menu of the sub-window has; those that are the same take memory once.
    static QList<qint64> iconsOf(const QMdiSubWindow& subWindow)
    {
        QList<qint64> icons;
        const QList<QAction*> actions = subWindow.actions();
        for (const QAction* action : actions) {
            if (!action->icon().isNull())
                icons.append(action->icon().cacheKey());
        }
        return icons;
    }

    [[nodiscard]] QStringList recordedTitles() const
    {
        QStringList titles;
        const QList<QJsonObject> records = area->records();
        for (const QJsonObject& record : records)
            titles.append(record[u"Title"].toString());
        return titles;
    }

    [[nodiscard]] QStringList captions() const
    {
        QStringList titles;
        const QList<QMdiSubWindow*> all = mdiArea->subWindowList();
        for (const QMdiSubWindow* subWindow : all)
            titles.append(subWindow->windowTitle());
        return titles;
    }

    [[nodiscard]] QStringList tabs() const
    {
        QStringList texts;
        const auto* bar = mdiArea->findChild<QTabBar*>();
        for (int i = 0; i < bar->count(); ++i)
            texts.append(bar->tabText(i));
        return texts;
    }

    std::unique_ptr<TestDocument> document;
    std::unique_ptr<SpectrumArea> area;
    QMdiArea* mdiArea = nullptr;
    QLineEdit* elsewhere = nullptr;
};

QTEST_MAIN(TestSpectrumArea)
#include "tst_spectrumarea.moc"
