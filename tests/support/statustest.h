// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/windowtest.h"

/// Base of tests of what the status bar of the main window says.
class StatusTest : public WindowTest
{
    Q_OBJECT

protected:
    /// What the label says; empty when nothing of it is shown.
    [[nodiscard]] QString said(const char* label) const;

    [[nodiscard]] QString spectrum() const { return said("statusSpectrum"); }
    [[nodiscard]] QString typed() const { return said("statusTyped"); }
    [[nodiscard]] QString fetching() const { return said("statusFetching"); }
    [[nodiscard]] QString last() const { return said("statusLast"); }
    [[nodiscard]] QString closed() const { return said("statusClosed"); }

    /// What has come to be said by the time that anything is painted.
    void settle() const;

    /// Opens an entry whose spectra have these titles.
    void openEntry(const QString& fileName, const QStringList& titles);
};
