// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"
#include "widgets/statusline.h"

#include <QString>

class QStatusBar;

/// What the status bar says while an entry is edited. It says what it is told and finds out nothing
/// itself.
class EntryStatus : public StatusLine
{
    Q_OBJECT

public:
    /// Owned by the bar, which it fills; what the bar itself is given to show does not cover it.
    explicit EntryStatus(QStatusBar* bar);

    /// What was understood of the spectrum in front; empty when there is none.
    void setSpectrum(const QString& text);

    /// Whether there are points that were typed less than two seconds ago.
    void setPointsTyped(bool typed);

    /// Whether there is a field whose text counts only when it is left.
    void setFieldTyped(bool typed);

    /// Whether a structure image is being fetched.
    void setFetching(bool fetching);

    /// How it went, just now, to save @p what ("Entry") in a file. Stays until the next file.
    void setSaved(const QString& what, const QString& path, SaveResult result);

    /// How a closed spectrum is brought back; empty when there is none.
    void setClosed(const QString& hint);

private:
    void showTyped();

    ElidedLabel* spectrum;
    ElidedLabel* typed;
    ElidedLabel* fetched;
    ElidedLabel* closed;
    ElidedLabel* last;
    bool pointsTyped = false;
    bool fieldTyped = false;
};
