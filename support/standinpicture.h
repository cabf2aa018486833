// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Empty pictures that stand in a document for text that is kept but not laid out, as their name. A
/// letter shows the marks that it can carry; more would be laid out and painted one over the other
/// at every repaint. In the same way one picture stands for everything behind what a field shows of
/// a text of endless lines, raised and lowered parts, or changes between writings.
namespace StandInPicture {

/// The element of HTML for marks on the letter before it.
[[nodiscard]] QString ofMarks(const QString& marks);

/// The element of HTML for the rest of a text, which may have markup of its own.
[[nodiscard]] QString ofRest(QStringView text);

/// The name of a picture for the rest of a text.
[[nodiscard]] QString nameOfRest(QStringView text);

/// The text for which a picture of this name stands; empty for any other name.
[[nodiscard]] QString textOf(const QString& name);

/// Whether the picture stands for the rest of a text.
[[nodiscard]] bool isOfRest(const QString& name);

} // namespace StandInPicture
