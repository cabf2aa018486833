// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dialogscript.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

void dismiss(QWidget& widget)
{
    if (auto* dialog = qobject_cast<QDialog*>(&widget))
        dialog->reject();
    else
        widget.close();
}

} // namespace

DialogScript::DialogScript()
{
    lookAgain();
}

void DialogScript::lookAgain()
{
    // A new single shot each time: a timer does not fire again while its own slot is still running,
    // and an answer may well open the next dialog.
    QTimer::singleShot(5, this, &DialogScript::answerOpenDialog);
}

void DialogScript::answerOpenDialog()
{
    lookAgain();
    QWidget* open = QApplication::activePopupWidget();
    if (open == nullptr)
        open = QApplication::activeModalWidget();
    // An answer that waits for something gets here while its dialog is still open.
    if (open == nullptr || !open->isVisible() || beingAnswered.contains(open))
        return;

    // The person has to wait for work that goes on, not the work for the person.
    const bool isWork = qobject_cast<QProgressDialog*>(open) != nullptr;
    workWasSeen = workWasSeen || isWork;
    if (isWork && workMayGoOn)
        return;
    if (!isWork && QGuiApplication::overrideCursor() != nullptr)
        complain(u"\"%1\" is open under the wait cursor"_s.arg(open->windowTitle()));
    if (script.empty()) {
        const auto* box = qobject_cast<QMessageBox*>(open);
        complain(u"not expected: \"%1\" %2"_s.arg(open->windowTitle(),
                                                  box == nullptr ? QString() : box->text()));
        dismiss(*open);
        return;
    }
    const Answer answer = script.front();
    script.pop();
    beingAnswered.append(open);
    answer(*open);
    beingAnswered.removeLast();
}

void DialogScript::expect(const Answer& answer)
{
    script.push(answer);
}

void DialogScript::expectBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                             QMessageBox::StandardButton answer)
{
    expect([this, icon, title, text, answer](QWidget& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (box == nullptr) {
            complain(u"a message box was expected, not \"%1\""_s.arg(dialog.windowTitle()));
            dismiss(dialog);
            return;
        }
        if (box->icon() != icon || box->windowTitle() != title || box->text() != text) {
            complain(u"expected box %1 \"%2\" \"%3\" but saw %4 \"%5\" \"%6\""_s.arg(icon)
                         .arg(title, text)
                         .arg(box->icon())
                         .arg(box->windowTitle(), box->text()));
        }
        if (answer == QMessageBox::Ok && box->standardButtons() != QMessageBox::Ok)
            complain(u"the box \"%1\" has other buttons than OK"_s.arg(box->text()));
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
    });
}

void DialogScript::expectSaveQuestion(QMessageBox::StandardButton answer)
{
    expect([this, answer](QWidget& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (box == nullptr || box->text() != "The species has been modified."_L1 ||
            box->informativeText() != "Do you want to save your changes?"_L1 ||
            box->standardButtons() !=
                (QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel) ||
            box->defaultButton() != box->button(QMessageBox::Save)) {
            complain(u"the save question was expected, not \"%1\""_s.arg(
                box == nullptr ? dialog.windowTitle() : box->text()));
            dismiss(dialog);
            return;
        }
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
    });
}

void DialogScript::expectFileDialog(const QString& title, const QString& path,
                                    const QString& folder)
{
    expect([this, title, path, folder](QWidget& widget) {
        auto* dialog = qobject_cast<QFileDialog*>(&widget);
        if (dialog == nullptr || dialog->windowTitle() != title) {
            complain(
                u"expected file dialog \"%1\" but saw \"%2\""_s.arg(title, widget.windowTitle()));
            dismiss(widget);
            return;
        }
        const QString start = dialog->directory().absolutePath();
        if (!folder.isEmpty() && QDir(start) != QDir(folder))
            complain(u"\"%1\" starts in %2, not in %3"_s.arg(title, start, folder));
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        auto* fileName = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
        fileName->setText(QDir::toNativeSeparators(path));
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void DialogScript::letWorkGoOn()
{
    workMayGoOn = true;
}

void DialogScript::complain(const QString& problem)
{
    problems.append(problem);
}

bool DialogScript::passed() const
{
    return problems.isEmpty() && script.empty();
}

QByteArray DialogScript::report() const
{
    QStringList lines = problems;
    if (!script.empty())
        lines.append(u"%1 expected dialogs never came"_s.arg(script.size()));
    return lines.join("; "_L1).toUtf8();
}
