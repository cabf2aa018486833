// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"
#include "widgets/singlelinetextedit.h"

#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>

#include <optional>

using TestSupport::child;
using namespace Qt::StringLiterals;

/// What a person sees at the initial size: nothing is cut off, and everything has its share.
class TestLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox.emplace();
        window = std::make_unique<MainWindow>();
        QVERIFY(TestSupport::showActive(*window));
        QCOMPARE(window->size(), QSize(1272, 873));
        window->createNewSpectrumWindow();
        spectrum = TestSupport::spectra(*window).constFirst();
        // The queued layout passes are over once the tool row has been laid out.
        QTRY_VERIFY(child<QWidget>(*spectrum, "buttonSparse")->isVisible());
        QCoreApplication::processEvents();
    }

    void cleanup()
    {
        window.reset();
        sandbox.reset();
    }

    void dockTakesAboutAThirdOfTheWidth()
    {
        const int width = dock()->width();
        QVERIFY2(width > 1272 * 0.28 && width < 1272 * 0.40, qPrintable(QString::number(width)));
    }

    void spectrumFitsIntoItsAreaWithoutScrollBars_data() { spectrumTypes(); }

    void spectrumFitsIntoItsAreaWithoutScrollBars()
    {
        chooseType();
        const auto* area = child<QMdiArea>(*window, "mdiArea");
        QVERIFY(!area->horizontalScrollBar()->isVisible());
        QVERIFY(!area->verticalScrollBar()->isVisible());
        const QRect subWindow = TestSupport::subWindows(*window).constFirst()->geometry();
        QVERIFY(area->viewport()->rect().contains(subWindow));
        QVERIFY(spectrum->width() >= spectrum->minimumSizeHint().width());
        QVERIFY(spectrum->height() >= spectrum->minimumSizeHint().height());
        QCOMPARE(window->size(), QSize(1272, 873));
    }

    void controlIsWhollyVisible_data()
    {
        QTest::addColumn<bool>("inSpectrum");
        for (const char* name :
             {"lineEditSpecies", "textEditAliases", "lineEditMass", "lineEditSumFormula",
              "lineEditInChI", "lineEditCAS", "buttonDownload", "lineEditCID", "label_11",
              "label_10", "lineEditAIE", "lineEditAIEComment", "lineEditVIE", "lineEditVIEComment",
              "imageLabel"})
            QTest::newRow(name) << false;
        for (const char* name : {"lineEditTitle",    "lineEditUploader",     "labelCreated",
                                 "lineEditSpectDOI", "comboBoxType",         "textEditCitations",
                                 "lineEditSource",   "lineEditSourceT",      "lineEditResolution",
                                 "lineEditFlux",     "lineEditFacilityDate", "textEditComments",
                                 "labelCitations",   "checkBoxLineSpectrum", "buttonNormalize",
                                 "buttonSparse",     "buttonCommaToDot",     "label_14",
                                 "textEditSpect",    "chartSpectrum"})
            QTest::newRow(name) << true;
    }

    void controlIsWhollyVisible()
    {
        QFETCH(bool, inSpectrum);
        const QWidget* parent = inSpectrum ? static_cast<QWidget*>(spectrum) : dock();
        const auto* control = child<QWidget>(*parent, QTest::currentDataTag());
        QVERIFY(control->isVisible());
        QVERIFY(!control->rect().isEmpty());
        const QWidget* outer = control;
        while (!outer->isWindow()) {
            const QRect area(control->mapTo(outer->parentWidget(), QPoint(0, 0)), control->size());
            outer = outer->parentWidget();
            QVERIFY2(outer->rect().contains(area), qPrintable(outer->objectName()));
        }
    }

    void textOfTheToolRowIsNotCutOff_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name :
             {"checkBoxLineSpectrum", "buttonNormalize", "buttonSparse", "buttonCommaToDot"})
            QTest::newRow(name) << 0;
    }

    void textOfTheToolRowIsNotCutOff()
    {
        const auto* control = child<QWidget>(*spectrum, QTest::currentDataTag());
        QVERIFY2(control->width() >= control->sizeHint().width(),
                 qPrintable(u"%1 of %2"_s.arg(control->width()).arg(control->sizeHint().width())));
        QVERIFY(control->height() >= control->sizeHint().height());
    }

    void captionsAreNotCutOff_data() { spectrumTypes(); }

    void captionsAreNotCutOff()
    {
        chooseType();
        const auto labels = window->findChildren<QLabel*>();
        int seen = 0;
        for (const QLabel* label : labels) {
            if (!label->isVisible() || label->text().isEmpty() || label->wordWrap() ||
                label->objectName().isEmpty())
                continue;
            ++seen;
            QVERIFY2(label->width() >= label->fontMetrics().horizontalAdvance(label->text()),
                     qPrintable(label->objectName()));
            QVERIFY2(label->height() >= label->fontMetrics().height(),
                     qPrintable(label->objectName()));
        }
        QVERIFY(seen > 20);
    }

    void oneLineFieldsAreOneLineHigh()
    {
        const auto fields = window->findChildren<SingleLineTextEdit*>();
        QCOMPARE(fields.size(), 18);
        for (const SingleLineTextEdit* field : fields) {
            const double limit = field->fontMetrics().lineSpacing() +
                                 2 * field->document()->documentMargin() + 5 + 1;
            QVERIFY2(field->height() <= limit && field->height() >= field->fontMetrics().height(),
                     qPrintable(field->objectName()));
        }
    }

    void oneLineFieldsAreWideEnoughForTheirValues()
    {
        for (const char* name : {"lineEditAIE", "lineEditVIE"}) {
            const auto* field = child<QWidget>(*window, name);
            QVERIFY(field->width() > field->fontMetrics().horizontalAdvance(u"10.1234(12)"_s));
        }
        for (const char* name : {"lineEditAIEComment", "lineEditVIEComment"}) {
            const auto* field = child<QWidget>(*window, name);
            QVERIFY(field->width() > child<QWidget>(*window, "lineEditAIE")->width() / 2);
        }
    }

    void headingsStartAboveTheirColumns()
    {
        const auto left = [this](const char* name) {
            return child<QWidget>(*dock(), name)->mapTo(window.get(), QPoint(0, 0)).x();
        };
        QVERIFY(std::abs(left("label_11") - left("lineEditAIE")) <= 3);
        QVERIFY(std::abs(left("label_10") - left("lineEditAIEComment")) <= 3);
        QCOMPARE(left("lineEditVIE"), left("lineEditAIE"));
        QCOMPARE(left("lineEditVIEComment"), left("lineEditAIEComment"));
    }

    void chartTakesWhatIsLeftBesideTheList()
    {
        auto* view = child<QChartView>(*spectrum, "chartSpectrum");
        const QRect list = placeOf(*child<QWidget>(*spectrum, "textEditSpect"));
        const QRect chart = placeOf(*view);
        QVERIFY(!view->grab().isNull());
        const QSizeF plot = view->chart()->plotArea().size();
        QVERIFY2(plot.width() >= 450 && plot.height() >= 260,
                 qPrintable(u"%1 x %2"_s.arg(plot.width()).arg(plot.height())));
        QVERIFY2(std::abs(list.width() - 200) <= 20, qPrintable(QString::number(list.width())));
        QCOMPARE(list.top(), chart.top());
        QCOMPARE(list.height(), chart.height());
        QVERIFY(chart.top() > spectrum->height() / 4);
        for (const char* control :
             {"checkBoxLineSpectrum", "buttonNormalize", "buttonSparse", "buttonCommaToDot"})
            QVERIFY(placeOf(*child<QWidget>(*spectrum, control)).bottom() < chart.top());
        QCOMPARE(view->minimumSize(), QSize(0, 200));
    }

    void edgeOfTheListCanBeMoved()
    {
        auto* splitter = child<QSplitter>(*spectrum, "splitterSpectrum");
        const auto* list = child<QWidget>(*spectrum, "textEditSpect");
        const int before = list->width();
        const QSplitterHandle* handle = splitter->handle(1);
        QVERIFY(handle->width() >= 4);
        const QPoint grip = handle->rect().center();
        QTest::mousePress(splitter->handle(1), Qt::LeftButton, {}, grip);
        QTest::mouseMove(splitter->handle(1), grip + QPoint(60, 0));
        QTest::mouseRelease(splitter->handle(1), Qt::LeftButton, {}, grip + QPoint(60, 0));
        QCOMPARE(list->width(), before + 60);
        window->resize(1400, 900);
        QCoreApplication::processEvents();
        QCOMPARE(list->width(), before + 60);
    }

    void aliasesGetWhatTheFormLeavesOver()
    {
        const auto* aliases = child<QWidget>(*dock(), "textEditAliases");
        const auto* image = child<QWidget>(*dock(), "imageLabel");
        QVERIFY2(aliases->height() > 300, qPrintable(QString::number(aliases->height())));
        const int below = image->parentWidget()->height() - image->geometry().bottom();
        QVERIFY2(below < 20, qPrintable(QString::number(below)));
        const int between =
            image->y() - child<QWidget>(*dock(), "lineEditVIE")->geometry().bottom();
        QVERIFY2(between < 20, qPrintable(QString::number(between)));
    }

private:
    static void spectrumTypes()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("ms-TPES") << 0;
        QTest::newRow("FC simulation") << 4;
    }

    [[nodiscard]] QRect placeOf(const QWidget& widget) const
    {
        return {widget.mapTo(spectrum, QPoint(0, 0)), widget.size()};
    }

    [[nodiscard]] QDockWidget* dock() const { return child<QDockWidget>(*window, "speciesDock"); }

    void chooseType()
    {
        QFETCH(int, type);
        child<QComboBox>(*spectrum, "comboBoxType")->setCurrentIndex(type);
        QCoreApplication::processEvents();
    }

    std::optional<Sandbox> sandbox;
    std::unique_ptr<MainWindow> window;
    SpectrumWindow* spectrum = nullptr;
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
