// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPixmap>

class QToolBar;
class QWidget;

/// Pictures of parts of a window with something beside them that the window itself does not show.
namespace ExplainedPictures {

/// The top left corner of the window, of this size, below the title bar that a desktop would give
/// it.
[[nodiscard]] QPixmap withTitleBar(QWidget& window, const QSize& size);

/// The buttons of the tool bar, each with a line to its name. What the window has above the bar
/// belongs to the picture.
[[nodiscard]] QPixmap withNames(const QToolBar& toolBar);

} // namespace ExplainedPictures
