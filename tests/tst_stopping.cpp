// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/longwork.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QDir>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;
using namespace TestSupport;
using namespace std::chrono_literals;

/// Escape stops what takes long, and leaves the entry that was open exactly as it was.
class TestStopping : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        QVERIFY(window->openEntry(entry(u"open/old.json"_s, {u"one"_s, u"two"_s})));
        typePoints();
        rememberFolder(sandbox->path(u"remembered"_s));
        LongWork::setPatience(0ms);
    }

    void cleanup() override
    {
        LongWork::setPatience(1s);
        WindowTest::cleanup();
    }

    void entryStaysAsItIs_data()
    {
        QTest::addColumn<QByteArray>("way");
        QTest::addColumn<bool>("late");
        for (const char* way : {"open", "drop", "step", "step modified"}) {
            QTest::addRow("%s, at once", way) << QByteArray(way) << false;
            QTest::addRow("%s, while spectra are made", way) << QByteArray(way) << true;
        }
    }

    void entryStaysAsItIs()
    {
        QFETCH(const QByteArray, way);
        QFETCH(const bool, late);
        const QString path = entry(u"open/old2.json"_s, many);
        if (way == "step") {
            LongWork::setPatience(1h);
            trigger(*window, "actionSaveSpecies");
            LongWork::setPatience(0ms);
        }
        const Seen before = seen();
        const QByteArray file = sandbox->read(u"open/old.json"_s);
        if (way == "step modified")
            LongWork::setPatience(1h); // until the question
        if (way != "step")
            discard();
        stop(late);
        if (way == "open")
            QVERIFY(!window->openEntry(path));
        else if (way == "drop")
            QVERIFY(dropFile(*window, *window->centralWidget(), path));
        else
            trigger(*window, "actionNextFile");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(showActive(*window));
        QVERIFY(seen() == before);
        QCOMPARE(sandbox->read(u"open/old.json"_s), file);
        goOnEditing();
    }

    void entryStaysAsItIsWithoutTheSpectrum_data()
    {
        QTest::addColumn<bool>("pasted");
        QTest::addColumn<bool>("late");
        QTest::newRow("opened, at once") << false << false;
        QTest::newRow("opened, while its lines are put in") << false << true;
        QTest::newRow("pasted, at once") << true << false;
        QTest::newRow("pasted, while its lines are put in") << true << true;
    }

    void entryStaysAsItIsWithoutTheSpectrum()
    {
        QFETCH(const bool, pasted);
        QFETCH(const bool, late);
        const QByteArray file = longSpectrum();
        const QString path = sandbox->write(u"s.json"_s, file);
        if (pasted)
            QGuiApplication::clipboard()->setText(QString::fromLatin1(file));
        else
            dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, path);
        const Seen before = seen();
        stop(late);
        trigger(*window, pasted ? "actionPaste" : "actionLoadSpectrum");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(showActive(*window));
        QVERIFY(seen() == before);
        goOnEditing();
    }

    void pointsStayAsTheyAre_data()
    {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<bool>("late");
        for (const char* button : {"buttonNormalize", "buttonSparse"})
            QTest::addRow("%s, at once", button) << QByteArray(button) << false;
        for (const char* command : {"buttonNormalize", "buttonSparse", "buttonCommaToDot", "paste"})
            QTest::addRow("%s, while lines are put in", command) << QByteArray(command) << true;
    }

    void pointsStayAsTheyAre()
    {
        QFETCH(const QByteArray, command);
        QFETCH(const bool, late);
        enterManyPoints();
        const Seen before = seen();
        stop(late);
        run(command);
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(showActive(*window));
        QVERIFY(seen() == before);
        goOnEditing();
    }

    void commandEndsBehindTheDialog_data()
    {
        QTest::addColumn<QByteArray>("command");
        for (const char* name : {"buttonNormalize", "buttonSparse", "buttonCommaToDot", "paste"})
            QTest::addRow("%s", name) << QByteArray(name);
    }

    void commandEndsBehindTheDialog()
    {
        QFETCH(const QByteArray, command);
        enterManyPoints();
        const SpectrumModel* model = spectra(*window).constFirst()->model();
        QTRY_VERIFY(!model->hasTypedPoints());
        const QString before = points()->toPlainText();
        LongWork::setPatience(1h);
        run(command);
        const QString after = points()->toPlainText();
        QVERIFY(after != before);
        QTest::keyClick(points(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(points()->toPlainText() == before);
        QTRY_VERIFY(!model->hasTypedPoints());
        LongWork::setPatience(0ms);
        dialogs->letWorkGoOn();
        run(command);
        QVERIFY(dialogs->sawWork());
        QVERIFY(points()->toPlainText() == after);
    }

    // The two seconds after typing can be over in the middle of a command.
    void typedPointsAreTakenOverAfterACommandThatWasStopped()
    {
        enterManyPoints();
        points()->moveCursor(QTextCursor::Start);
        QTest::keyClicks(points(), u"7.5 3"_s);
        QTest::keyClick(points(), Qt::Key_Return);
        SpectrumModel* model = spectra(*window).constFirst()->model();
        inDialog(true, [model](QWidget& dialog) {
            QSignalSpy pause(model->findChild<QTimer*>(), &QTimer::timeout);
            QVERIFY(pause.wait());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        run("buttonNormalize");
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        QTRY_COMPARE(model->points().constFirst(), QPointF(7.5, 3));
    }

    void longSpectrumOpensBehindTheDialog()
    {
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s,
                                  sandbox->write(u"s.json"_s, longSpectrum()));
        dialogs->letWorkGoOn();
        trigger(*window, "actionLoadSpectrum");
        QVERIFY(dialogs->sawWork());
        const auto* list = child<QPlainTextEdit>(*spectra(*window).constLast(), "textEditSpect");
        QCOMPARE(list->blockCount(), pointsOfALongSpectrum);
        QCOMPARE(list->document()->firstBlock().text(), u"1; 2"_s);
        QCOMPARE(list->document()->lastBlock().text(), u"1; 2"_s);
        QCOMPARE(rememberedFolder(), sandbox->path());
    }

    void nothingElseIsDoneMeanwhile()
    {
        const QString other = entry(u"other.json"_s, {u"other"_s});
        const Seen before = seen();
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expect([this, &other](QWidget& dialog) {
            QVERIFY(!window->openEntry(other));
            QVERIFY(!dropFile(*window, *window->centralWidget(), other));
            QVERIFY(!window->close());
            window->cleanUp();
            window->loadNextSpeciesFile();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        QVERIFY(!window->openEntry(entry(u"new.json"_s, many)));
        QVERIFY(showActive(*window));
        QVERIFY(seen() == before);
    }

    void brokenFileIsToldBehindTheDialog()
    {
        const QString path = sandbox->write(u"b.json"_s, "{\"Type\":");
        dialogs->letWorkGoOn();
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->expectBox(QMessageBox::Warning, u"Invalid Species File"_s,
                           u"The file %1 is not a valid species file."_s.arg(path));
        QVERIFY(!window->openEntry(path));
    }

    void entryOpensBehindTheDialog()
    {
        const QString path = entry(u"new.json"_s, QStringList(30, u"new"_s));
        dialogs->expectSaveQuestion(QMessageBox::Discard);
        dialogs->letWorkGoOn();
        QVERIFY(window->openEntry(path));
        QVERIFY(dialogs->sawWork());
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - new.json"_s);
        QCOMPARE(spectrumTitles(*window), QStringList(30, u"new"_s));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(showActive(*window));
        QVERIFY(spectra(*window).constFirst()->isAncestorOf(QApplication::focusWidget()));
    }

private:
    /// All that a person can tell of the entry that is open.
    struct Seen
    {
        QString title;
        QString status;
        QString folder;
        QList<SpectrumWindow*> spectra;
        const QMdiSubWindow* front;
        QString points;
        int caret;
        int undoSteps;
        QString name;
        bool operator==(const Seen&) const = default;
    };

    [[nodiscard]] Seen seen() const
    {
        const QPlainTextEdit* list = points();
        return {window->windowTitle(),
                window->statusBar()->currentMessage(),
                rememberedFolder(),
                spectra(*window),
                child<QMdiArea>(*window, "mdiArea")->activeSubWindow(),
                list->toPlainText(),
                list->textCursor().position(),
                list->document()->availableUndoSteps(),
                cell(*window, SpeciesModel::Name)};
    }

    [[nodiscard]] QPlainTextEdit* points() const
    {
        return child<QPlainTextEdit>(*spectra(*window).constFirst(), "textEditSpect");
    }

    void typePoints()
    {
        points()->setFocus();
        QTest::keyClicks(points(), u"9.5 1"_s);
        QTest::keyClick(points(), Qt::Key_Return);
    }

    /// Some that were taken over, and with which each command has something to do.
    void enterManyPoints()
    {
        QString text = u"7 1\n"_s;
        for (int i = 0; i < 70'000; ++i)
            text += u"8.%1 %2\n"_s.arg(i, 5, 10, QChar(u'0')).arg(i % 100);
        LongWork::setPatience(1h);
        spectra(*window).constFirst()->model()->setPointText(text.repeated(2) + u"8,5\n200 1");
        typePoints();
        LongWork::setPatience(0ms);
    }

    void run(const QByteArray& command)
    {
        if (command != "paste") {
            QTest::mouseClick(
                child<QPushButton>(*spectra(*window).constFirst(), command.constData()),
                Qt::LeftButton);
            return;
        }
        QGuiApplication::clipboard()->setText(u"9.1234 100.5\n"_s.repeated(100'000));
        QTest::keyClick(points(), Qt::Key_V, Qt::ControlModifier);
    }

    static constexpr int pointsOfALongSpectrum = 60'000;

    /// A spectrum file with so many points that they are not put in at once.
    [[nodiscard]] static QByteArray longSpectrum()
    {
        const auto array = [](const QByteArray& number) -> QByteArray {
            return '[' + QByteArray(number + ',').repeated(pointsOfALongSpectrum - 1) + number +
                   ']';
        };
        return R"({"Type":"Spectrum v1","E":)" + array("1") + R"(,"I":)" + array("2") + '}';
    }

    /// What was typed can be taken back, and what is typed arrives.
    void goOnEditing()
    {
        const QString before = points()->toPlainText();
        points()->setFocus();
        QTest::keyClicks(points(), u"8"_s);
        QVERIFY(points()->toPlainText() != before);
        while (points()->document()->isUndoAvailable())
            QTest::keyClick(points(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!points()->toPlainText().contains(u"9.5"_s));
    }

    /// Answers the save question, and is impatient from then on.
    void discard()
    {
        dialogs->expect([](QWidget& dialog) {
            LongWork::setPatience(0ms);
            static_cast<QMessageBox&>(dialog).button(QMessageBox::Discard)->click();
        });
    }

    /// Escape, in the dialog that is open; @p late as soon as it knows how far the work is.
    void stop(bool late)
    {
        inDialog(late, [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    }

    void inDialog(bool late, const std::function<void(QWidget&)>& action)
    {
        dialogs->expect([this, late, action](QWidget& dialog) {
            auto* progress = qobject_cast<QProgressDialog*>(&dialog);
            if (progress != nullptr && late && progress->maximum() == 0)
                inDialog(late, action);
            else
                action(dialog);
        });
    }

    [[nodiscard]] QString entry(const QString& name, const QStringList& titles) const
    {
        QDir(sandbox->path()).mkpath(u"open"_s);
        return sandbox->write(name, speciesFile(u"Water"_s, titles));
    }

    const QStringList many = QStringList(60, u"new"_s);
};

QTEST_MAIN(TestStopping)
#include "tst_stopping.moc"
