// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/spectrumtest.h"

#include <QCheckBox>
#include <QDate>
#include <QJsonArray>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace TestSupport;

namespace {

using Points = QList<QPointF>;

void click(const SpectrumWindow& window, const char* button)
{
    QTest::mouseClick(child<QPushButton>(window, button), Qt::LeftButton);
}

/// Clicks the box itself: the middle of a wide check box is no part of it.
void toggleLineSpectrum(const SpectrumWindow& window)
{
    auto* box = child<QCheckBox>(window, "checkBoxLineSpectrum");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

} // namespace

/// The editor of one dataset, as it is used.
class TestSpectrumWindow : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void newWindowShowsItsCreationDay()
    {
        const QDate before = QDate::currentDate();
        const SpectrumWindow window;
        const QDate after = QDate::currentDate();
        const QString created = child<QLabel>(window, "labelCreated")->text();
        QVERIFY(created == before.toString(u"yyyy-MM-dd"_s) ||
                created == after.toString(u"yyyy-MM-dd"_s));
        QCOMPARE(cell(window, 7).toString(), created);
    }

    void newWindowHasOnlyDateAndType()
    {
        const SpectrumWindow window;
        QCOMPARE(cell(window, 3), QVariant(0));
        for (const int column : {0, 1, 2, 4, 5, 6, 8, 9, 10, 11, 12, 13, 14, 15})
            QVERIFY(!cell(window, column).isValid());
        QCOMPARE(window.model()->parent(), &window);
        QCOMPARE(window.model()->points(), Points());
    }

    void creationDateOfADatasetReplacesToday_data()
    {
        QTest::addColumn<QJsonObject>("dataset");
        QTest::addColumn<QString>("shown");
        QTest::newRow("other day")
            << QJsonObject{{u"CreatedDate"_s, u"2019-12-31"_s}} << u"2019-12-31"_s;
        QTest::newRow("none") << QJsonObject() << QString();
        QTest::newRow("markup is shown as it is")
            << QJsonObject{{u"CreatedDate"_s, u"<b>2019</b>"_s}} << u"<b>2019</b>"_s;
    }
    void creationDateOfADatasetReplacesToday()
    {
        QFETCH(QJsonObject, dataset);
        const SpectrumWindow window(dataset);
        const auto* label = child<QLabel>(window, "labelCreated");
        QTEST(label->text(), "shown");
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QTEST(cell(window, 7).toString(), "shown");
    }

    void titleFollowsEveryKey()
    {
        auto* window = show();
        const QSignalSpy titles(window, &QWidget::windowTitleChanged);
        auto* field = child<QWidget>(*window, "lineEditTitle");
        QTest::keyClicks(field, u"C6"_s);
        QCOMPARE(window->windowTitle(), u"C6"_s);
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(window->windowTitle(), u"C"_s);
        QTest::keyClick(field, Qt::Key_Backspace);
        QCOMPARE(window->windowTitle(), QString());
        QCOMPARE(titles.count(), 4);
    }

    void captionInTheTabbedAreaFollowsTheTitle()
    {
        QMdiArea area(document.get());
        auto* window = new SpectrumWindow(document.get());
        const QMdiSubWindow* subWindow = area.addSubWindow(window);
        QVERIFY(showActive(*document));
        auto* field = child<QWidget>(*window, "lineEditTitle");
        QTest::keyClicks(field, u"N"_s);
        QCOMPARE(subWindow->windowTitle(), u"N"_s);
        QTest::keyClicks(field, u"O"_s);
        QCOMPARE(subWindow->windowTitle(), u"NO"_s);
    }

    void titleDropsMarkup()
    {
        const SpectrumWindow window(
            {{u"Title"_s, u"H<sub>2</sub>O, X<sup>+</sup>"_s}, {u"SpectType"_s, 2}});
        QCOMPARE(window.windowTitle(), u"H2O, X+"_s);
    }

    void commaToDotReplacesEveryComma_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::newRow("decimal commas") << u"1,5 2,0"_s << u"1.5 2.0"_s;
        QTest::newRow("whatever their role") << u"1.5,2.0"_s << u"1.5.2.0"_s;
        QTest::newRow("all lines") << u"a,b,,\n1,5;2\n\n3 4"_s << u"a.b..\n1.5;2\n\n3 4"_s;
        QTest::newRow("no comma") << u"1.5 2"_s << u"1.5 2"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void commaToDotReplacesEveryComma()
    {
        QFETCH(QString, typed);
        const SpectrumWindow window;
        setPoints(window, typed);
        click(window, "buttonCommaToDot");
        QTEST(pointEditor(window)->toPlainText(), "text");
    }

    void decimalCommasBecomePointsAfterAPause()
    {
        const SpectrumWindow window;
        setPoints(window, u"1,5 2,0"_s);
        QCOMPARE(window.model()->points(), Points());
        QSignalSpy changes(window.model(), &SpectrumModel::spectrumDataChanged);
        click(window, "buttonCommaToDot");
        QVERIFY(changes.wait(patience));
        QCOMPARE(window.model()->points(), (Points{{1.5, 2}}));
        QCOMPARE(drawn(window), (Points{{1.5, 2}}));
    }

    void linesAreCounted()
    {
        const auto* window = show();
        const auto* caption = child<QLabel>(*window, "label_14");
        auto* editor = pointEditor(*window);
        QTest::keyClicks(editor, u"1"_s);
        QCOMPARE(caption->text(), u"Spectrum, I(hv / eV) (1 lines)"_s);
        QTest::keyClicks(editor, u" 2\r3 4\r"_s);
        QCOMPARE(caption->text(), u"Spectrum, I(hv / eV) (3 lines)"_s);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor, Qt::Key_Delete);
        QCOMPARE(caption->text(), u"Spectrum, I(hv / eV) (1 lines)"_s);
    }

    void linesOfADatasetAreCounted()
    {
        QJsonArray numbers;
        for (int i = 0; i < 1234; ++i)
            numbers.append(i);
        const SpectrumWindow window({{u"E"_s, numbers}, {u"I"_s, numbers}});
        QCOMPARE(child<QLabel>(window, "label_14")->text(), u"Spectrum, I(hv / eV) (1234 lines)"_s);
    }

    void lineSpectrumIsStoredAndDrawnAtOnce()
    {
        const SpectrumWindow window;
        setPoints(window, u"1 5\n2 3"_s);
        QCOMPARE(drawn(window), (Points{{1, 5}, {2, 3}}));
        toggleLineSpectrum(window);
        QCOMPARE(cell(window, 9), QVariant(true));
        QCOMPARE(drawn(window), (Points{{1, 5}, {1, 0}, {2, 3}}));
        toggleLineSpectrum(window);
        QCOMPARE(cell(window, 9), QVariant(false));
        QCOMPARE(drawn(window), (Points{{1, 5}, {2, 3}}));
    }

    void togglingStoresTheWholeForm()
    {
        const SpectrumWindow window;
        child<QTextEdit>(window, "lineEditUploader")->setPlainText(u"me"_s);
        QVERIFY(!cell(window, 1).isValid());
        toggleLineSpectrum(window);
        QCOMPARE(cell(window, 1).toString(), u"me"_s);
    }

    void normalizeButtonScalesTheText()
    {
        const SpectrumWindow window;
        setPoints(window, u"10 5\n11 10\n12 2.5"_s);
        click(window, "buttonNormalize");
        QCOMPARE(pointEditor(window)->toPlainText(),
                 u"10.0000 500.00\n11.0000 1000.00\n12.0000 250.00"_s);
        QCOMPARE(drawn(window), (Points{{10, 500}, {11, 1000}, {12, 250}}));
    }

    void sparseButtonResamplesTheText()
    {
        const SpectrumWindow window;
        setPoints(window, u"10.000 0\n10.004 4"_s);
        click(window, "buttonSparse");
        QCOMPARE(pointEditor(window)->toPlainText(), u"10.001 1.00\n10.002 2.00\n10.003 3.00"_s);
        QCOMPARE(drawn(window), (Points{{10.001, 1}, {10.002, 2}, {10.003, 3}}));
    }

    void sparseButtonRefusesLineSpectra()
    {
        const SpectrumWindow window;
        setPoints(window, u"10.000 0\n10.004 4"_s);
        toggleLineSpectrum(window);
        const QWidget* boxParent = nullptr;
        dialogs->expect([&boxParent](QWidget& box) {
            boxParent = box.parentWidget();
            box.close();
        });
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Cannot resample line spectra"_s);
        click(window, "buttonSparse");
        click(window, "buttonSparse");
        QCOMPARE(boxParent, &window);
        QCOMPARE(pointEditor(window)->toPlainText(), u"10.000 0\n10.004 4"_s);
    }

    void documentLearnsOfChangedFieldsOnly()
    {
        const auto* window = show();
        auto* uploader = child<QWidget>(*window, "lineEditUploader");
        document->modifications = 0;
        typeInto(*uploader, u"me"_s);
        QCOMPARE(document->modifications, 0);
        QTest::keyClick(uploader, Qt::Key_Tab);
        QCOMPARE(document->modifications, 1);
        QTest::keyClick(child<QWidget>(*window, "lineEditSpectDOI"), Qt::Key_Backtab);
        QTest::keyClick(uploader, Qt::Key_Tab);
        QCOMPARE(document->modifications, 1);
    }

    void documentLearnsOfEveryEditOfThePoints()
    {
        const auto* window = show();
        document->modifications = 0;
        QTest::keyClicks(pointEditor(*window), u"1 2"_s);
        QCOMPARE(document->modifications, 3);
    }

    void documentLearnsOfCommands()
    {
        const auto* window = document->add();
        setPoints(*window, u"10 0\n10.01 4"_s);
        for (const char* button : {"buttonNormalize", "buttonSparse", "buttonCommaToDot"}) {
            document->modifications = 0;
            click(*window, button);
            QVERIFY2(document->modifications > 0, button);
        }
        document->modifications = 0;
        toggleLineSpectrum(*window);
        QCOMPARE(document->modifications, 1);
    }

    void documentLearnsOfChangesWhereverTheWindowIsShown()
    {
        QMdiArea elsewhere;
        auto* window = new SpectrumWindow(document.get());
        elsewhere.addSubWindow(window);
        document->modifications = 0;
        window->model()->setData(window->model()->index(0, 0), u"title"_s);
        QCOMPARE(document->modifications, 1);
    }

    void documentLearnsOfADatasetWithPoints()
    {
        document->add();
        const int ofAnEmptyOne = document->modifications;
        document->modifications = 0;
        document->add({{u"E"_s, QJsonArray{1}}, {u"I"_s, QJsonArray{2}}});
        QVERIFY(document->modifications > ofAnEmptyOne);
    }

    void documentLearnsOfClosing()
    {
        QMdiArea area(document.get());
        QMdiSubWindow* subWindow = area.addSubWindow(new SpectrumWindow(document.get()));
        subWindow->setAttribute(Qt::WA_DeleteOnClose);
        QVERIFY(showActive(*document));
        document->modifications = 0;
        const QSignalSpy gone(subWindow, &QObject::destroyed);
        subWindow->close();
        QVERIFY(document->modifications > 0);
        QTRY_COMPARE(gone.count(), 1);
    }

    void mainWindowMayGoWhileAFieldIsBeingEdited()
    {
        auto mainWindow = std::make_unique<MainWindow>();
        mainWindow->createNewSpectrumWindow();
        QVERIFY(showActive(*mainWindow));
        const auto* window = spectra(*mainWindow).constFirst();
        auto* uploader = child<QWidget>(*window, "lineEditUploader");
        typeInto(*uploader, u"me"_s);
        QVERIFY(uploader->hasFocus());
        const QSignalSpy gone(window, &QObject::destroyed);
        mainWindow.reset();
        QCOMPARE(gone.count(), 1);
    }

    void documentMayGoWhileAFieldIsBeingEdited()
    {
        const auto* window = show();
        typeInto(*child<QWidget>(*window, "lineEditUploader"), u"me"_s);
        const QSignalSpy stored(window->model(), &SpectrumModel::dataChanged);
        const QSignalSpy gone(window, &QObject::destroyed);
        document.reset();
        QCOMPARE(stored.count(), 1);
        QCOMPARE(gone.count(), 1);
    }

    void windowWorksWithoutADocument_data()
    {
        QTest::addColumn<bool>("hasParent");
        QTest::newRow("no parent") << false;
        QTest::newRow("parent is no document") << true;
    }
    void windowWorksWithoutADocument()
    {
        QFETCH(bool, hasParent);
        QWidget parent;
        auto window = std::make_unique<SpectrumWindow>(hasParent ? &parent : nullptr);
        QVERIFY(showActive(hasParent ? parent : *window));
        auto* uploader = child<QWidget>(*window, "lineEditUploader");
        typeInto(*uploader, u"me"_s);
        QTest::keyClick(uploader, Qt::Key_Tab);
        QCOMPARE(cell(*window, 1).toString(), u"me"_s);
        setPoints(*window, u"1 2"_s);
        click(*window, "buttonNormalize");
        QCOMPARE(drawn(*window), (Points{{1, 1000}}));
        QVERIFY(window->close());
    }
};

QTEST_MAIN(TestSpectrumWindow)
#include "tst_spectrumwindow.moc"
