// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>

/// The spectrum container: what spectrum files and the clipboard hold, namely a spectrum record
/// with the further key "Type".
namespace SpectrumContainer {

/// The record made a container.
[[nodiscard]] QJsonObject wrap(QJsonObject record);

/// Whether the object says of itself that it is a spectrum container.
[[nodiscard]] bool isSpectrum(const QJsonObject& container);

} // namespace SpectrumContainer
