// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>

/// Contrast of two opaque colours, 1 to 21, as the Web Content Accessibility Guidelines 2.1 define
/// it.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// The colour made as much darker or lighter as it takes to be read as text on @p background, which
/// may be a light or a dark one: a contrast of 4.5 at least, wherever black or white have it.
[[nodiscard]] QColor readableColour(const QColor& colour, const QColor& background);
