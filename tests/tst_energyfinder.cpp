// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/roomcheck.h"
#include "tests/support/windowtest.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace TestSupport;
using namespace Qt::StringLiterals;

/// Ctrl+F, an energy, and the line of the nearest point is selected.
class TestEnergyFinder : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        usualFont = QApplication::font();
        newSpectrum();
    }

    void cleanup() override
    {
        QApplication::setFont(usualFont);
        WindowTest::cleanup();
    }

    void keyOpensItAnywhereInTheSpectrum_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name : {"lineEditTitle", "textEditComments", "comboBoxType",
                                 "buttonNormalize", "textEditSpect", "chartSpectrum"})
            QTest::newRow(name) << 0;
    }
    void keyOpensItAnywhereInTheSpectrum()
    {
        child<QWidget>(*spectrum, QTest::currentDataTag())->setFocus();
        QVERIFY(spectrum->findChild<QLineEdit*>(u"lineEditFindEnergy"_s) == nullptr); // not yet
        press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(field()->isVisible());
        QVERIFY(field()->hasFocus());
    }

    void escapeGivesTheFocusToTheList()
    {
        type(u"10 1\n11 2"_s);
        open();
        QTest::keyClicks(field(), u"11"_s);
        press(Qt::Key_Escape);
        QVERIFY(!field()->isVisible());
        QVERIFY(list()->hasFocus());
        QCOMPARE(list()->textCursor().selectedText(), u"11 2"_s);
        open();
        QCOMPARE(field()->selectedText(), u"11"_s);
        QTest::mouseClick(spectrum->findChild<QToolButton*>(), Qt::LeftButton);
        QVERIFY(!field()->isVisible());
        QVERIFY(list()->hasFocus());
    }

    void everyKeySelectsTheNearestPoint()
    {
        type(u"E I\n12.5 1\n1 2\n12.7 3\n\n12.68 4\n"_s);
        open();
        const QList<std::pair<QString, QString>> keys{{u"1"_s, u"1 2"_s},
                                                      {u"2"_s, u"12.5 1"_s},
                                                      {u".6"_s, u"12.68 4"_s},
                                                      {u"95"_s, u"12.7 3"_s},
                                                      {u" eV"_s, u"12.7 3"_s}};
        for (const auto& [typed, line] : keys) {
            QTest::keyClicks(field(), typed);
            QCOMPARE(list()->textCursor().selectedText(), line);
            QVERIFY(field()->hasFocus());
        }
        QCOMPARE(message(), u"12.7 eV in line 4"_s);
    }

    void enterGoesOnToPointsAsNear()
    {
        type(u"10 1\n11 2\n10 3\n10 4"_s);
        open();
        QTest::keyClicks(field(), u"10.2"_s);
        for (const auto* line : {"10 1", "10 3", "10 4", "10 1"}) {
            QCOMPARE(list()->textCursor().selectedText(), QLatin1StringView(line));
            press(Qt::Key_Return);
        }
    }

    void listOfThisMomentIsSearched()
    {
        type(u"10 1"_s);
        open();
        QTest::keyClicks(field(), u"12"_s);
        QCOMPARE(list()->textCursor().selectedText(), u"10 1"_s);
        list()->setFocus();
        QTest::keyClick(list(), Qt::Key_End, Qt::ControlModifier);
        type(u"\n12 5"_s);
        QVERIFY(message().isEmpty());
        open();
        press(Qt::Key_Return);
        QCOMPARE(list()->textCursor().selectedText(), u"12 5"_s);
    }

    void whatCannotBeReadIsSaidAndChangesNothing_data()
    {
        QTest::addColumn<QString>("points");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("says");
        const QString noEnergy =
            u"This is no energy. Please type a number with a decimal point, such as 12.62."_s;
        QTest::newRow("decimal comma") << u"10 1"_s << u"12,6"_s << noEnergy;
        QTest::newRow("word") << u"10 1"_s << u"<b>peak</b>"_s << noEnergy;
        QTest::newRow("infinite") << u"10 1"_s << u"inf"_s << noEnergy;
        QTest::newRow("no points")
            << u"1,5 2,0"_s << u"12"_s << u"There are no points in the list."_s;
        QTest::newRow("empty list")
            << QString() << u"12"_s << u"There are no points in the list."_s;
        QTest::newRow("nothing") << u"10 1"_s << u" "_s << QString();
    }
    void whatCannotBeReadIsSaidAndChangesNothing()
    {
        QFETCH(QString, points);
        QFETCH(QString, typed);
        list()->setPlainText(points);
        open();
        field()->setText(typed);
        QTEST(message(), "says");
        QVERIFY(!list()->textCursor().hasSelection());
        QCOMPARE(list()->toPlainText(), points);
        press(Qt::Key_Backspace);
    }

    void lineIsBroughtIntoView()
    {
        QString text;
        for (int i = 0; i < 2'000; ++i)
            text += u"%1 %2\n"_s.arg(10 + i * 0.01, 0, 'f', 2).arg(i);
        list()->setPlainText(text);
        open();
        for (const auto* energy : {"25.5", "10.02", "29.99"}) {
            field()->selectAll();
            QTest::keyClicks(field(), QLatin1StringView(energy));
            QVERIFY(list()->viewport()->rect().contains(list()->cursorRect()));
            QVERIFY(list()->textCursor().selectedText().startsWith(QLatin1StringView(energy)));
        }
    }

    void lineWithinABrokenBlockIsSelected()
    {
        type(u"10 1"_s);
        QTest::keyClick(list(), Qt::Key_Return, Qt::ShiftModifier);
        type(u"11 2"_s);
        open();
        QTest::keyClicks(field(), u"11"_s);
        QCOMPARE(list()->textCursor().selectedText(), u"11 2"_s);
    }

    void searchingModifiesNothing()
    {
        list()->setPlainText(u"10 1\n11 2"_s);
        const QString title = window->windowTitle();
        const QSignalSpy changes(list(), &QPlainTextEdit::textChanged);
        open();
        QTest::keyClicks(field(), u"11"_s);
        press(Qt::Key_Escape);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(window->windowTitle(), title);
    }

    void fieldIsTheLastStopOfTheTabKey()
    {
        open();
        child<QWidget>(*spectrum, "chartSpectrum")->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Tab);
        QVERIFY(field()->hasFocus());
        press(Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(child<QWidget>(*spectrum, "chartSpectrum")->hasFocus());
    }

    void onlyTheSpectrumWithTheFocusAnswers()
    {
        const SpectrumWindow* other = spectrum;
        newSpectrum();
        open();
        QVERIFY(field()->isVisible());
        QVERIFY(other->findChild<QWidget*>(u"lineEditFindEnergy"_s) == nullptr);
    }

    void screenReadersAreTold()
    {
        type(u"10 1"_s);
        open();
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(field());
        QCOMPARE(told->text(QAccessible::Name), u"Find energy / eV"_s);
        QVERIFY(!told->text(QAccessible::Description).isEmpty());
        QTest::keyClicks(field(), u"9"_s);
        QCOMPARE(told->text(QAccessible::Description), u"10 eV in line 1"_s);
        type(u"20 1"_s); // what was found is no longer true
        QVERIFY(!told->text(QAccessible::Description).contains("line 1"_L1));
    }

    void hasRoomInSmallWindows_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("points");
        for (const QSize size : {QSize(800, 600), QSize(910, 512), QSize(1366, 768)}) {
            for (const double points : {9.0, 14.0})
                QTest::addRow("%d x %d, %g pt", size.width(), size.height(), points)
                    << size << points;
        }
    }
    void hasRoomInSmallWindows()
    {
        QFETCH(QSize, size);
        QFETCH(double, points);
        QFont font = usualFont;
        font.setPointSizeF(points);
        QApplication::setFont(font);
        window = std::make_unique<MainWindow>();
        window->resize(size);
        QVERIFY(showActive(*window));
        newSpectrum();
        open();
        QTest::keyClicks(field(), u"12,6"_s);
        for (int pass = 0; pass < 5; ++pass)
            QCoreApplication::processEvents();
        QVERIFY(!field()->visibleRegion().isEmpty());
        QCOMPARE(field()->visibleRegion().boundingRect().size(), field()->size());
        const QStringList faults = RoomCheck::faultsOf(*window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }

private:
    void newSpectrum()
    {
        window->createNewSpectrumWindow();
        spectrum = spectra(*window).constLast();
        list()->setFocus();
        QVERIFY(list()->hasFocus());
    }

    [[nodiscard]] QPlainTextEdit* list() const
    {
        return child<QPlainTextEdit>(*spectrum, "textEditSpect");
    }
    [[nodiscard]] QLineEdit* field() const
    {
        return child<QLineEdit>(*spectrum, "lineEditFindEnergy");
    }
    [[nodiscard]] QString message() const
    {
        return child<QLabel>(*spectrum, "labelFindEnergy")->text();
    }

    /// Presses the key where the focus is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void open() { press(Qt::Key_F, Qt::ControlModifier); }

    void type(const QString& text) const
    {
        QTest::keyClicks(list(), QString(text).replace(u'\n', u'\r'));
    }

    QFont usualFont;
    SpectrumWindow* spectrum = nullptr;
};

QTEST_MAIN(TestEnergyFinder)
#include "tst_energyfinder.moc"
