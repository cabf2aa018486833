// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QPlainTextEdit;

/// Shows a point list in the desktop's font of fixed width, so that its columns are columns, in
/// the size that the window around it has. Keeps the list wide enough for a usual line.
class FixedWidthDigits : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p pointList and active as long as it lives.
    explicit FixedWidthDigits(QPlainTextEdit* pointList);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void chooseFamily();
    void keepWideEnough();

    QPlainTextEdit* list;
};
