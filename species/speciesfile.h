// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>

/// The species file: one species with all its spectrum datasets, as a JSON object of "Type",
/// "Species" and "Dataset1", "Dataset2", ...
namespace SpeciesFile {

/// Whether what was read from a file is a species file: it says so itself. What is no well-formed
/// JSON object reads as an empty one, which says nothing.
[[nodiscard]] bool isSpeciesFile(const QJsonObject& content);

/// Whether the file at @p path can be read and is a species file.
[[nodiscard]] bool isSpeciesFile(const QString& path);

/// The species object; empty when there is none.
[[nodiscard]] QJsonObject species(const QJsonObject& file);

/// The dataset objects, in the order of their keys as text ("Dataset10" before "Dataset2"): gaps
/// and leading zeros in the numbers are accepted.
[[nodiscard]] QList<QJsonObject> datasets(const QJsonObject& file);

/// The content of a species file, datasets numbered from 1.
[[nodiscard]] QJsonObject assemble(const QJsonObject& species, const QList<QJsonObject>& datasets);

} // namespace SpeciesFile
