// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QObject;
class QWidget;

/// Whether @p object is a widget inside the window, those in a dock of the window included that
/// floats as a window of its own.
[[nodiscard]] bool isInsideWindow(const QObject* object, const QWidget& window);
