// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

/// Shows the window and ends the program at once when it and all that follows from it is painted.
/// With the argument "stay" the program then says "ready", and ends when its input does.
int showUntilPainted(QWidget& window);
