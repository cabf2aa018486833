// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dialogscript.h"

#include <QDialog>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Lets the program run until everything that was due has happened several times over.
void linger()
{
    bool over = false;
    QTimer::singleShot(100, [&over] { over = true; });
    (void)QTest::qWaitFor([&over] { return over; });
}

} // namespace

/// What other tests rely on: each dialog is answered once, in order, and nothing goes unnoticed.
class TestDialogScript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogIsAskedOnceHoweverLongItsAnswerTakes()
    {
        DialogScript dialogs;
        int answers = 0;
        dialogs.expect([&answers](QWidget& dialog) {
            ++answers;
            linger();
            dialog.close();
        });
        QDialog().exec();
        QCOMPARE(answers, 1);
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
    }

    void answerMayOpenTheNextDialogAndWaitAfterIt()
    {
        DialogScript dialogs;
        QStringList answered;
        dialogs.expect([&answered](QWidget& first) {
            QDialog second(&first);
            second.setWindowTitle(u"second"_s);
            second.exec();
            linger();
            answered.append(first.windowTitle());
            first.close();
        });
        dialogs.expect([&answered](QWidget& second) {
            second.close();
            linger();
            answered.append(second.windowTitle());
        });
        QDialog first;
        first.setWindowTitle(u"first"_s);
        first.exec();
        QCOMPARE(answered, QStringList({u"second"_s, u"first"_s}));
        QVERIFY2(dialogs.passed(), dialogs.report().constData());
    }

    void dialogThatWasNotExpectedIsDismissedAndReported()
    {
        DialogScript dialogs;
        QDialog dialog;
        dialog.setWindowTitle(u"Surprise"_s);
        QCOMPARE(dialog.exec(), int(QDialog::Rejected));
        QVERIFY(!dialogs.passed());
        QVERIFY(dialogs.report().contains("Surprise"));
    }

    void dialogThatItsAnswerLeavesOpenIsReported()
    {
        DialogScript dialogs;
        dialogs.expect([](QWidget& /*dialog*/) {});
        QDialog().exec();
        QVERIFY(!dialogs.passed());
    }

    void dialogThatNeverCameIsReported()
    {
        DialogScript dialogs;
        dialogs.expectBox(QMessageBox::Warning, u"Error"_s, u"text"_s);
        QVERIFY(!dialogs.passed());
        QVERIFY(dialogs.report().contains("never came"));
    }

    void dialogUnderTheWaitCursorIsReported()
    {
        DialogScript dialogs;
        dialogs.expect([](QWidget& dialog) { dialog.close(); });
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        QDialog().exec();
        QGuiApplication::restoreOverrideCursor();
        QVERIFY(!dialogs.passed());
    }
};

QTEST_MAIN(TestDialogScript)
#include "tst_dialogscript.moc"
