// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "tests/support/sandboxtest.h"

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

using Points = QList<QPointF>;

/// Has the model take over the editor's text now, without the pause after typing.
void takeOver(SpectrumModel& model)
{
    QMetaObject::invokeMethod(&model, "emitSpectrumDataChanged", Qt::DirectConnection);
}

QTimer* pauseTimer(const SpectrumModel& model)
{
    return model.findChild<QTimer*>();
}

/// A model with its point editor, as in a spectrum window.
struct EditedModel
{
    explicit EditedModel(const QString& text = {})
    {
        editor.setPlainText(text);
        takeOver(model);
        pauseTimer(model)->stop();
        changes.clear();
    }

    QPlainTextEdit editor;
    SpectrumModel model{nullptr, &editor};
    QSignalSpy changes{&model, &SpectrumModel::spectrumDataChanged};
};

} // namespace

/// One spectrum dataset: its cells, its points and the two commands that rewrite them.
class TestSpectrumModel : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void methodsAreRegisteredInOrder_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QByteArray>("signature");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("access");
        const auto row = [](int position, const char* signature, QMetaMethod::MethodType kind,
                            QMetaMethod::Access access) {
            QTest::newRow(signature)
                << position << QByteArray(signature) << int(kind) << int(access);
        };
        row(0, "spectrumDataChanged()", QMetaMethod::Signal, QMetaMethod::Public);
        row(1, "normalizeSpectrum()", QMetaMethod::Slot, QMetaMethod::Public);
        row(2, "makePointsSparser()", QMetaMethod::Slot, QMetaMethod::Public);
        row(3, "emitSpectrumDataChanged()", QMetaMethod::Slot, QMetaMethod::Private);
    }
    void methodsAreRegisteredInOrder()
    {
        QFETCH(int, position);
        const QMetaObject& meta = SpectrumModel::staticMetaObject;
        const QMetaMethod method = meta.method(meta.methodOffset() + position);
        QTEST(method.methodSignature(), "signature");
        QTEST(int(method.methodType()), "kind");
        QTEST(int(method.access()), "access");
        QCOMPARE(QByteArray(method.typeName()), "void");
    }

    void nothingElseIsRegistered()
    {
        const QMetaObject& meta = SpectrumModel::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), "SpectrumModel");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 4);
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
    }

    void hasOneRowOfSixteenEmptyCells()
    {
        const SpectrumModel model;
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(model.columnCount(), 16);
        for (int column = 0; column < 16; ++column) {
            QVERIFY(!model.data(model.index(0, column), Qt::EditRole).isValid());
            QVERIFY(!model.data(model.index(0, column), Qt::DisplayRole).isValid());
        }
        QCOMPARE(model.points(), Points());
    }

    void columnsHaveTheirNumbers()
    {
        QCOMPARE(int(SpectrumModel::Title), 0);
        QCOMPARE(int(SpectrumModel::Uploader), 1);
        QCOMPARE(int(SpectrumModel::Doi), 2);
        QCOMPARE(int(SpectrumModel::Type), 3);
        QCOMPARE(int(SpectrumModel::FurtherRefs), 4);
        QCOMPARE(int(SpectrumModel::Temperature), 5);
        QCOMPARE(int(SpectrumModel::FurtherComments), 6);
        QCOMPARE(int(SpectrumModel::CreatedDate), 7);
        QCOMPARE(int(SpectrumModel::FacilityDate), 8);
        QCOMPARE(int(SpectrumModel::LineSpectrum), 9);
        QCOMPARE(int(SpectrumModel::Source), 10);
        QCOMPARE(int(SpectrumModel::Resolution), 11);
        QCOMPARE(int(SpectrumModel::Normalization), 12);
        QCOMPARE(int(SpectrumModel::LevelOfTheory), 13);
        QCOMPARE(int(SpectrumModel::ConvolutionFwhm), 14);
        QCOMPARE(int(SpectrumModel::Aie), 15);
        QCOMPARE(int(SpectrumModel::FcSimulation), 4);
    }

    void behavesAsAnItemModelShould()
    {
        SpectrumModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QVERIFY(model.setData(model.index(0, 0), u"title"_s));
        QVERIFY(model.setData(model.index(0, 9), true));
        model.fromJson({{u"SpectType"_s, 4}, {u"AIE"_s, u"9.24"_s}});
    }

    void cellsShareOneValueForShowingAndEditing()
    {
        SpectrumModel model;
        QVERIFY(model.setData(model.index(0, 8), u"Villigen 2024"_s));
        QCOMPARE(model.data(model.index(0, 8), Qt::DisplayRole).toString(), u"Villigen 2024"_s);
        QCOMPARE(model.data(model.index(0, 8), Qt::EditRole).toString(), u"Villigen 2024"_s);
    }

    void writingTheSameValueAgainIsNoChange()
    {
        SpectrumModel model;
        const QSignalSpy cells(&model, &SpectrumModel::dataChanged);
        QVERIFY(model.setData(model.index(0, 0), u"first"_s));
        QVERIFY(!model.setData(model.index(0, 0), u"first"_s));
        QCOMPARE(cells.count(), 1);
        QVERIFY(model.setData(model.index(0, 0), u"second"_s));
        QCOMPARE(cells.count(), 2);
    }

    void writingNothingIntoAnEmptyCellIsNoChange()
    {
        SpectrumModel model;
        const QSignalSpy cells(&model, &SpectrumModel::dataChanged);
        QVERIFY(!model.setData(model.index(0, 5), QString()));
        QCOMPARE(cells.count(), 0);
    }

    void cellWritesDoNotAnnounceNewPoints()
    {
        SpectrumModel model;
        const QSignalSpy changes(&model, &SpectrumModel::spectrumDataChanged);
        model.setData(model.index(0, 0), u"title"_s);
        model.setData(model.index(0, 9), true);
        QCOMPARE(changes.count(), 0);
    }

    void pauseAfterTypingIsTwoSeconds()
    {
        const EditedModel edited;
        QCOMPARE(pauseTimer(edited.model)->interval(), 2000);
        QVERIFY(pauseTimer(edited.model)->isSingleShot());
        QVERIFY(!pauseTimer(edited.model)->isActive());
    }

    void typingAnnouncesThePointsOnceWhenItPauses()
    {
        EditedModel edited;
        const QTimer* pause = pauseTimer(edited.model);
        for (const char key : {'1', ' ', '2'}) {
            QTest::keyClick(&edited.editor, key);
            QVERIFY(pause->remainingTime() > 1000); // started anew
            QTRY_VERIFY_WITH_TIMEOUT(pause->remainingTime() <= 1000, TestSupport::patience);
        }
        QCOMPARE(edited.changes.count(), 0);
        QCOMPARE(edited.model.points(), Points());

        QVERIFY(edited.changes.wait(TestSupport::patience));
        QCOMPARE(edited.changes.count(), 1);
        QCOMPARE(edited.model.points(), (Points{{1, 2}}));
        QVERIFY(!pause->isActive());
    }

    void blankLinesAreDroppedAndLinesOfBlanksIgnored()
    {
        EditedModel edited;
        edited.editor.setPlainText(u"1 2\n\n3 4\n   \n"_s);
        takeOver(edited.model);
        QCOMPARE(edited.model.points(), (Points{{1, 2}, {3, 4}}));
    }

    void deletingTheTextLeavesNoPoints()
    {
        EditedModel edited(u"1 2"_s);
        QCOMPARE(edited.model.points().size(), 1);
        edited.editor.clear();
        takeOver(edited.model);
        QCOMPARE(edited.model.points(), Points());
        QCOMPARE(edited.changes.count(), 1);
    }

    void modelWithoutAnEditorStillAnnounces()
    {
        SpectrumModel model;
        model.fromJson({{u"E"_s, QJsonArray{1}}, {u"I"_s, QJsonArray{2}}});
        const QSignalSpy changes(&model, &SpectrumModel::spectrumDataChanged);
        takeOver(model);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(model.points(), (Points{{1, 2}}));
        model.normalizeSpectrum();
        QCOMPARE(changes.count(), 2);
        QCOMPARE(model.points(), (Points{{1, 1000}}));
    }

    void normalizeRewritesTheText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::newRow("usual") << u"10 5\n11 10\n12 2.5"_s
                               << u"10.0000 500.00\n11.0000 1000.00\n12.0000 250.00"_s;
        QTest::newRow("negative maximum")
            << u"10 -2\n11 -4"_s << u"10.0000 1000.00\n11.0000 2000.00"_s;
        QTest::newRow("lines that are no points go")
            << u"E I\n10;5\n\n1,5 2,0\n# end\n"_s << u"10.0000 1000.00"_s;
        QTest::newRow("order stays") << u"3 1\n1 2"_s << u"3.0000 500.00\n1.0000 1000.00"_s;
        QTest::newRow("energies are rounded") << u"12.345678 7"_s << u"12.3457 1000.00"_s;
    }
    void normalizeRewritesTheText()
    {
        QFETCH(QString, typed);
        QFETCH(QString, text);
        EditedModel edited(typed);
        edited.model.normalizeSpectrum();
        QCOMPARE(edited.editor.toPlainText(), text);
        QCOMPARE(edited.changes.count(), 1);
        QCOMPARE(edited.model.points().size(), text.count(u'\n') + 1);
        QVERIFY(!pauseTimer(edited.model)->isActive());
    }

    void normalizeWithoutIntensitiesChangesNothing_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("empty") << QString();
        QTest::newRow("no usable line") << u"E I\n1,5 2,0"_s;
        QTest::newRow("all zero") << u"10 0\n11 0"_s;
        QTest::newRow("largest is zero") << u"10 -5\n11 0"_s;
    }
    void normalizeWithoutIntensitiesChangesNothing()
    {
        QFETCH(QString, typed);
        EditedModel edited(typed);
        edited.model.normalizeSpectrum();
        QCOMPARE(edited.editor.toPlainText(), typed);
        QCOMPARE(edited.changes.count(), 0);
    }

    void sparseRewritesTheText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::newRow("four steps")
            << u"10.000 0\n10.004 4"_s << u"10.001 1.00\n10.002 2.00\n10.003 3.00"_s;
        QTest::newRow("one step") << u"10 1\n10.001 2"_s << u"10.001 2.00"_s;
        QTest::newRow("less than a step") << u"10 1\n10.0005 2"_s << QString();
        QTest::newRow("single point") << u"10 1"_s << QString();
        QTest::newRow("from high to low") << u"12 1\n11 2\n10 3"_s << QString();
        QTest::newRow("lines that are no points go")
            << u"E I\n10 0\n# middle\n10.002 2\n"_s << u"10.001 1.00"_s;
    }
    void sparseRewritesTheText()
    {
        QFETCH(QString, typed);
        QFETCH(QString, text);
        EditedModel edited(typed);
        edited.model.makePointsSparser();
        QCOMPARE(edited.editor.toPlainText(), text);
        QCOMPARE(edited.changes.count(), 1);
        QCOMPARE(edited.model.points().size(), text.isEmpty() ? 0 : text.count(u'\n') + 1);
        QVERIFY(!pauseTimer(edited.model)->isActive());
    }

    void sparseWithoutAGridChangesNothing_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("empty") << QString();
        QTest::newRow("no usable line") << u"E I\n10"_s;
        QTest::newRow("not a number") << u"nan 1\n10 2"_s;
        QTest::newRow("huge") << u"-1e308 1\n1e308 2"_s;
    }
    void sparseWithoutAGridChangesNothing()
    {
        QFETCH(QString, typed);
        EditedModel edited(typed);
        edited.model.makePointsSparser();
        QCOMPARE(edited.editor.toPlainText(), typed);
        QCOMPARE(edited.changes.count(), 0);
    }

    void commandsLoseWhatWasTypedJustBefore()
    {
        EditedModel edited(u"10 5"_s);
        edited.editor.moveCursor(QTextCursor::End);
        QTest::keyClicks(&edited.editor, u"\r11 10"_s);
        QCOMPARE(edited.editor.toPlainText(), u"10 5\n11 10"_s);
        edited.model.normalizeSpectrum();
        QCOMPARE(edited.editor.toPlainText(), u"10.0000 1000.00"_s);
    }

    void lineSpectrumIsNotResampled()
    {
        QWidget window;
        QPlainTextEdit editor(u"10.000 0\n10.004 4"_s, &window);
        SpectrumModel model(&window, &editor);
        editor.insertPlainText(u"9 1\n"_s);
        takeOver(model);
        model.setData(model.index(0, SpectrumModel::LineSpectrum), true);
        const QSignalSpy changes(&model, &SpectrumModel::spectrumDataChanged);

        const QWidget* boxParent = nullptr;
        dialogs->expect([&](QWidget& box) {
            boxParent = box.parentWidget();
            QCOMPARE(box.windowTitle(), u"Error"_s);
            box.close();
        });
        dialogs->expectBox(QMessageBox::Warning, u"Error"_s, u"Cannot resample line spectra"_s);
        model.makePointsSparser();
        QCOMPARE(boxParent, &window);
        model.makePointsSparser();
        QCOMPARE(editor.toPlainText(), u"9 1\n10.000 0\n10.004 4"_s);
        QCOMPARE(model.points().size(), 3);
        QCOMPARE(changes.count(), 0);
    }

    void warningStandsAloneWhenTheModelBelongsToNoWindow()
    {
        QObject owner;
        SpectrumModel model(&owner);
        model.setData(model.index(0, SpectrumModel::LineSpectrum), true);
        dialogs->expect([this](QWidget& box) {
            if (box.parentWidget() != nullptr)
                dialogs->complain(u"the box has a parent"_s);
            box.close();
        });
        model.makePointsSparser();
    }
};

QTEST_MAIN(TestSpectrumModel)
#include "tst_spectrummodel.moc"
