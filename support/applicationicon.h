// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// Gives all windows of the running application the icon of the editor.
void setApplicationIcon();
