// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <queue>

#include <functional>

/// Answers modal dialogs as a person would, in the order in which they are expected. Write the
/// script, do what opens the dialogs, then verify passed():
///
///     DialogScript dialogs;
///     dialogs.expectBox(QMessageBox::Warning, "Error", "Could not open file for reading");
///     action->trigger();
///     QVERIFY2(dialogs.passed(), dialogs.report().constData());
///
/// A dialog that was not expected is dismissed and reported, so that no test ever hangs in one.
class DialogScript : public QObject
{
    Q_OBJECT

public:
    using Answer = std::function<void(QWidget& dialog)>;

    DialogScript();

    /// A message box with exactly this icon, title and text; its button @p answer is clicked.
    void expectBox(QMessageBox::Icon icon, const QString& title, const QString& text,
                   QMessageBox::StandardButton answer = QMessageBox::Ok);

    /// The question whether to save the modified species document.
    void expectSaveQuestion(QMessageBox::StandardButton answer);

    /// A file dialog with this title; @p path is typed and accepted, an empty one cancels. @p
    /// folder, when not empty, is the folder in which it has to start.
    void expectFileDialog(const QString& title, const QString& path, const QString& folder = {});

    /// Any other dialog or popup: @p answer has to close it, may wait for something before, and may
    /// add to report() with complain().
    void expect(const Answer& answer);

    /// From now on work may show how far it is, until it ends by itself.
    void letWorkGoOn();
    /// Whether it did.
    [[nodiscard]] bool sawWork() const { return workWasSeen; }

    void complain(const QString& problem);

    /// Whether all expected dialogs came, as expected, and no others.
    [[nodiscard]] bool passed() const;
    [[nodiscard]] QByteArray report() const;

private:
    void lookAgain();
    void answerOpenDialog();

    std::queue<Answer> script;
    QList<QPointer<QWidget>> beingAnswered; ///< The innermost last.
    QStringList problems;
    bool workMayGoOn = false;
    bool workWasSeen = false;
};
