// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QList>

#include <optional>

/// The species file: one species with all its spectrum datasets, as a JSON object of "Type",
/// "Species" and "Dataset1", "Dataset2", ...
namespace SpeciesFile {

/// Whether the object says of itself that it is a species file.
[[nodiscard]] bool isSpecies(const QJsonObject& file);

/// The content of the file at @p path, if it can be read, is well-formed JSON and is a species
/// file.
[[nodiscard]] std::optional<QJsonObject> read(const QString& path);

/// The species object; empty when there is none.
[[nodiscard]] QJsonObject species(const QJsonObject& file);

/// The dataset objects, in the order of their keys as text ("Dataset10" before "Dataset2"): gaps
/// and leading zeros in the numbers are accepted.
[[nodiscard]] QList<QJsonObject> datasets(const QJsonObject& file);

/// The content of a species file, datasets numbered from 1.
[[nodiscard]] QJsonObject assemble(const QJsonObject& species, const QList<QJsonObject>& datasets);

} // namespace SpeciesFile
