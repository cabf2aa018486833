// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

/// Makes every message box of the program show plain text, those included that the toolkit opens
/// itself: its file dialog asks with the name of a file whether to replace it, and a name that
/// looks like markup must not make the question load what it names.
class PlainMessageBoxes : public QObject
{
    Q_OBJECT

public:
    /// Active as long as it lives, for the whole program.
    explicit PlainMessageBoxes(QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
