// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTextCursor;

/// A line below a point list in which an energy is typed; with every key the line of the nearest
/// point is selected in the list, as the list is at that moment. Enter goes on to the next point
/// that is as near. Hidden until its key is pressed.
class EnergyFinder : public QWidget
{
    Q_OBJECT

public:
    /// Ctrl+F opens it from anywhere in @p window; Escape in its field closes it and gives the
    /// focus to the list, which has to outlive it.
    EnergyFinder(QPlainTextEdit& pointList, QWidget* window);

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    void open();
    void giveUp();
    void find(qsizetype fromLine);
    void findNext();
    void say(const QString& text);
    void scrollIntoView();

    QPlainTextEdit& list;
    QLineEdit* field = nullptr; ///< Made when it is opened for the first time, with the others.
    QLabel* message = nullptr;
};
