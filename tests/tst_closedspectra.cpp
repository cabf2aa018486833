// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/closedspectra.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/statustest.h"
#include "widgets/cleantextedit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QJsonDocument>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>

#include <algorithm>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

const QString one = u"one"_s;
const QString two = u"two"_s;
const QString three = u"three"_s;

QString hintOf(const QString& title)
{
    return u"Ctrl+Shift+T brings back the closed spectrum \u201c%1\u201d"_s.arg(title);
}

QList<QVariant> cells(const SpectrumWindow& spectrum)
{
    QList<QVariant> found;
    for (int column = 0; column < SpectrumModel::ColumnCount; ++column)
        found.append(spectrum.model()->value(column));
    return found;
}

} // namespace

/// Spectra that were closed by mistake come back.
class TestClosedSpectra : public StatusTest
{
    Q_OBJECT

private Q_SLOTS:
    void comesBackHoweverItWasClosed_data()
    {
        QTest::addColumn<QByteArray>("way");
        for (const char* way : {"menu", "Ctrl+Shift+D", "Ctrl+W", "tab", "button"})
            QTest::newRow(way) << QByteArray(way);
    }

    void comesBackHoweverItWasClosed()
    {
        openEntry(u"a.json"_s, {one, two});
        QFETCH(QByteArray, way);
        close(way);
        QTRY_COMPARE(spectrumTitles(*window), QStringList{two});
        QCOMPARE(closed(), hintOf(one));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{two, one}));
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
        QCOMPARE(closed(), QString());
        QCOMPARE(QApplication::focusWidget(),
                 child<QWidget>(*spectra(*window).at(1), "lineEditTitle"));
        settle();
        QCOMPARE(spectrum(), u"2 points, 10 to 10.5 eV, largest intensity 2"_s);
    }

    void comesBackModified()
    {
        openEntry(u"a.json"_s, {one});
        press("Ctrl+W");
        press("Ctrl+S");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        bringBack();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json *"_s);
    }

    void comesBackWhole()
    {
        const QJsonObject record{{u"Title"_s, u"H<sub>2</sub>O &lt;"_s},
                                 {u"SpectType"_s, 4},
                                 {u"CreatedDate"_s, u"2024-05-06"_s},
                                 {u"LineSpectrum"_s, true},
                                 {u"LevelOfTheory"_s, u"<span>x</span>"_s},
                                 {u"ConvolutionFWHM"_s, u"7"_s},
                                 {u"AIE"_s, u"12.6"_s},
                                 {u"FurtherComments"_s, u"a<br>&lt;b"_s},
                                 {u"T"_s, u"300"_s}};
        open(record);
        auto* type = child<QComboBox>(*window, "comboBoxType");
        type->setCurrentText(u"PES"_s);
        for (const char* name : {"lineEditSource", "lineEditResolution", "lineEditFlux"}) {
            typeInto(*child<QWidget>(*window, name), QString::fromLatin1(name));
            press("Tab");
        }
        type->setCurrentText(u"FC simulation"_s);
        const SpectrumWindow& before = *spectra(*window).constFirst();
        child<QPlainTextEdit>(before, "textEditSpect")->setPlainText(u"E I\n\n9 1\nx\n10 2\n"_s);
        const QList<QVariant> kept = cells(before);
        QCOMPARE(kept.at(SpectrumModel::Source), u"lineEditSource"_s);
        QCOMPARE(kept.at(SpectrumModel::LevelOfTheory), u"<span>x</span>"_s);

        press("Ctrl+W");
        bringBack();
        const SpectrumWindow& after = *spectra(*window).constFirst();
        QCOMPARE(cells(after), kept);
        QCOMPARE(child<QPlainTextEdit>(after, "textEditSpect")->toPlainText(),
                 u"E I\n\n9 1\nx\n10 2\n"_s);
        QVERIFY(child<QCheckBox>(after, "checkBoxLineSpectrum")->isChecked());
        QCOMPARE(child<QWidget>(after, "label_8")->property("text"), u"Level(s) of theory"_s);
        QCOMPARE(after.windowTitle(), u"H2O <"_s);
        child<QComboBox>(after, "comboBoxType")->setCurrentText(u"PES"_s);
        QCOMPARE(child<CleanTextEdit>(after, "lineEditFlux")->toPlainText(), u"lineEditFlux"_s);
    }

    void whatDidNotCountYetCountsAtOnce()
    {
        openEntry(u"a.json"_s, {one});
        auto* points = child<QPlainTextEdit>(*window, "textEditSpect");
        points->setFocus();
        QTest::keyClick(points, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(points, u"5"_s);
        auto* uploader = child<CleanTextEdit>(*window, "lineEditUploader");
        uploader->setFocus();
        QTest::keyClicks(uploader, u"me"_s);
        press("Ctrl+W");
        QCOMPARE(typed(), QString());
        bringBack();
        settle();
        QCOMPARE(typed(), QString());
        QCOMPARE(spectrum(), u"2 points, 10 to 10.5 eV, largest intensity 25"_s);
        press("Ctrl+S");
        const QJsonValue saved = QJsonDocument::fromJson(sandbox->read(u"a.json"_s))[u"Dataset1"];
        QCOMPARE(saved[u"I"][1].toDouble(), 25.0);
        QCOMPARE(saved[u"Uploader"].toString(), u"me"_s);
    }

    void lastClosedComesFirst()
    {
        openEntry(u"a.json"_s, {one, two, three});
        press("Ctrl+W");
        press("Ctrl+W");
        QCOMPARE(spectrumTitles(*window), QStringList{three});
        QCOMPARE(closed(), hintOf(two));
        press("Ctrl+S");
        QVERIFY(last().startsWith("Entry saved at "_L1));
        QCOMPARE(closed(), hintOf(two)); // now that the file is without it
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{three, two}));
        QCOMPARE(closed(), hintOf(one));
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{three, two, one}));
        QVERIFY(last().startsWith("Entry saved at "_L1));
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{three, two, one}));
    }

    void whatCameBackCanBeClosedAgain()
    {
        openEntry(u"a.json"_s, {one});
        for (int round = 0; round < 3; ++round) {
            press("Ctrl+W");
            QCOMPARE(closed(), hintOf(one));
            bringBack();
            QCOMPARE(spectrumTitles(*window), QStringList{one});
        }
        press("Ctrl+W");
        bringBack();
        bringBack();
        QCOMPARE(spectrumTitles(*window), QStringList{one});
    }

    void withNothingClosedNothingHappens()
    {
        bringBack();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        openEntry(u"a.json"_s, {one});
        bringBack();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        QCOMPARE(subWindows(*window).size(), 1);
    }

    void otherEntryForgetsThem_data()
    {
        QTest::addColumn<QByteArray>("way");
        for (const char* way : {"open", "clean", "drop", "failed drop"})
            QTest::newRow(way) << QByteArray(way);
    }

    void otherEntryForgetsThem()
    {
        QFETCH(QByteArray, way);
        openEntry(u"a.json"_s, {one, two});
        press("Ctrl+W");
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        if (way == "open") {
            openEntry(u"b.json"_s, {three});
        } else if (way == "clean") {
            press("Ctrl+D");
        } else {
            if (way == "failed drop")
                dialogs->expect([](QWidget& box) { box.close(); });
            const QByteArray content = way == "drop" ? speciesFile(u"b"_s, {three}) : "{}";
            QVERIFY(dropFile(*window, *window->statusBar(), sandbox->write(u"b.json"_s, content)));
        }
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(showActive(*window));
        QCOMPARE(closed(), QString());
        const QStringList titles = spectrumTitles(*window);
        bringBack();
        QCOMPARE(spectrumTitles(*window), titles);
        QVERIFY(!window->windowTitle().endsWith(u'*'));
    }

    void entryThatStaysKeepsThem()
    {
        openEntry(u"a.json"_s, {one, two});
        press("Ctrl+W");
        dialogs->expectSaveQuestion(QMessageBox::Cancel);
        press("Ctrl+D");
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expect([](QWidget& box) { box.close(); });
        QVERIFY(!window->openEntry(sandbox->write(u"b.json"_s, "{}")));
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(showActive(*window));
        QCOMPARE(closed(), hintOf(one));
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{two, one}));
    }

    void tenAreKept()
    {
        QStringList titles;
        for (int number = 0; number < 12; ++number)
            titles.append(QString(1, QChar(u'a' + number)));
        openEntry(u"a.json"_s, titles);
        titles = spectrumTitles(*window);
        for (int number = 0; number < 12; ++number)
            press("Ctrl+W");
        QCOMPARE(subWindows(*window).size(), 0);
        for (int number = 0; number < 12; ++number)
            bringBack();
        std::reverse(titles.begin(), titles.end());
        QCOMPARE(spectrumTitles(*window), titles.first(10));
    }

    void longTextsAreKeptUpToABound_data()
    {
        QTest::addColumn<qsizetype>("length");
        QTest::addColumn<int>("kept");
        constexpr qsizetype most = ClosedSpectra::mostCharacters;
        QTest::newRow("just all") << most / 3 - 1000 << 3;
        QTest::newRow("the two last") << most / 2 - 1000 << 2;
        QTest::newRow("the last in any case") << most + 1000 << 1;
    }

    void longTextsAreKeptUpToABound()
    {
        QFETCH(qsizetype, length);
        QFETCH(int, kept);
        const auto column = SpectrumModel::LevelOfTheory; // no field shows it for a measurement
        ClosedSpectra closed;
        for (int number = 0; number < 3; ++number) {
            SpectrumWindow spectrum;
            closed.follow(&spectrum);
            spectrum.model()->setValue(column, QString(length, u'x'));
            spectrum.close();
        }
        int back = 0;
        while (const std::unique_ptr<SpectrumWindow> spectrum{closed.takeBack(nullptr)}) {
            QCOMPARE(spectrum->model()->value(column).toString().size(), length);
            ++back;
        }
        QCOMPARE(back, kept);
    }

    void keysWorkInside_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* name : {"lineEditSpecies", "textEditAliases", "lineEditTitle",
                                 "textEditComments", "textEditSpect", "chartSpectrum"})
            QTest::newRow(name) << 0;
    }

    void keysWorkInside()
    {
        openEntry(u"a.json"_s, {one, two});
        press("Ctrl+W");
        auto* field = child<QWidget>(*window, QTest::currentDataTag());
        field->setFocus();
        QVERIFY(field->hasFocus());
        bringBack();
        QCOMPARE(spectrumTitles(*window), (QStringList{two, one}));
    }

    void keysWorkInTheFloatingForm()
    {
        openEntry(u"a.json"_s, {one});
        press("Ctrl+W");
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        dock->setFloating(true);
        QVERIFY(showActive(*dock));
        child<QWidget>(*dock, "lineEditMass")->setFocus();
        bringBack();
        QCOMPARE(spectrumTitles(*window), QStringList{one});
    }

    void hintIsShortAndPlain_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("hint");
        QTest::newRow("none") << QString() << u"Ctrl+Shift+T brings back the closed spectrum"_s;
        QTest::newRow("markup") << u"&lt;b>x"_s << hintOf(u"<b>x"_s);
        QTest::newRow("endless") << QString(5000, u'm') << hintOf(QString(60, u'm') + u'\u2026');
        QTest::newRow("lines") << u"a<br>b"_s << hintOf(u"a b"_s);
    }

    void hintIsShortAndPlain()
    {
        QFETCH(QString, title);
        open({{u"Title"_s, title}});
        press("Ctrl+W");
        QTEST(closed(), "hint");
    }

private:
    void open(const QJsonObject& record)
    {
        const QJsonObject file{{u"Type"_s, u"Species v1"_s}, {u"Dataset1"_s, record}};
        QVERIFY(window->openEntry(sandbox->write(u"a.json"_s, QJsonDocument(file).toJson())));
    }

    static void press(const char* keys)
    {
        QTest::keySequence(QApplication::focusWidget(), QKeySequence(QLatin1StringView(keys)));
        QCoreApplication::processEvents();
    }

    static void bringBack() { press("Ctrl+Shift+T"); }

    /// Closes the spectrum in front.
    void close(const QByteArray& way)
    {
        if (way == "menu")
            trigger(*window, "actionDelete");
        else if (way == "tab")
            closeByMenuOfTheTab();
        else if (way == "button")
            subWindows(*window).constFirst()->close();
        else
            press(way.constData());
    }

    void closeByMenuOfTheTab()
    {
        auto* bar = window->findChild<QTabBar*>();
        const QPoint place = bar->tabRect(0).center();
        QContextMenuEvent request(QContextMenuEvent::Mouse, place, bar->mapToGlobal(place));
        dialogs->expect([](QWidget& popup) {
            const QList<QAction*> actions = static_cast<QMenu&>(popup).actions();
            const auto close =
                std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
                    return action->text().contains("Close"_L1);
                });
            QVERIFY(close != actions.end());
            popup.close();
            (*close)->trigger();
        });
        QCoreApplication::sendEvent(bar, &request);
    }
};

QTEST_MAIN(TestClosedSpectra)
#include "tst_closedspectra.moc"
