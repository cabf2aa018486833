// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/dialogscript.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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
    if (open == nullptr || !open->isVisible())
        return;

    if (QGuiApplication::overrideCursor() != nullptr)
        complain(QStringLiteral("\"%1\" is open under the wait cursor").arg(open->windowTitle()));
    if (script.empty()) {
        const auto* box = qobject_cast<QMessageBox*>(open);
        complain(QStringLiteral("not expected: \"%1\" %2")
                     .arg(open->windowTitle(), box == nullptr ? QString() : box->text()));
        dismiss(*open);
        return;
    }
    const Answer answer = script.front();
    script.pop();
    answer(*open);
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
            complain(
                QStringLiteral("a message box was expected, not \"%1\"").arg(dialog.windowTitle()));
            dismiss(dialog);
            return;
        }
        if (box->icon() != icon || box->windowTitle() != title || box->text() != text) {
            complain(QStringLiteral("expected box %1 \"%2\" \"%3\" but saw %4 \"%5\" \"%6\"")
                         .arg(icon)
                         .arg(title, text)
                         .arg(box->icon())
                         .arg(box->windowTitle(), box->text()));
        }
        if (answer == QMessageBox::Ok && box->standardButtons() != QMessageBox::Ok)
            complain(QStringLiteral("the box \"%1\" has other buttons than OK").arg(box->text()));
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
    });
}

void DialogScript::expectSaveQuestion(QMessageBox::StandardButton answer)
{
    expect([this, answer](QWidget& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (box == nullptr || box->text() != QLatin1String("The species has been modified.") ||
            box->informativeText() != QLatin1String("Do you want to save your changes?") ||
            box->standardButtons() !=
                (QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel) ||
            box->defaultButton() != box->button(QMessageBox::Save)) {
            complain(QStringLiteral("the save question was expected, not \"%1\"")
                         .arg(box == nullptr ? dialog.windowTitle() : box->text()));
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
            complain(QStringLiteral("expected file dialog \"%1\" but saw \"%2\"")
                         .arg(title, widget.windowTitle()));
            dismiss(widget);
            return;
        }
        const QString start = dialog->directory().absolutePath();
        if (!folder.isEmpty() && QDir(start) != QDir(folder))
            complain(QStringLiteral("\"%1\" starts in %2, not in %3").arg(title, start, folder));
        if (path.isEmpty()) {
            dialog->reject();
            return;
        }
        auto* fileName = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        fileName->setText(QDir::toNativeSeparators(path));
        QMetaObject::invokeMethod(dialog, "accept");
    });
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
        lines.append(QStringLiteral("%1 expected dialogs never came").arg(script.size()));
    return lines.join(QLatin1String("; ")).toUtf8();
}
