// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QString>

#include <optional>

/// The text of a species file on its way into a database.
namespace SpeciesText {

/// What QJsonDocument would write in a database for the species file @p file as its member @p key:
/// `"Entry1": {...}`, without the file's "Type". Copied from the text, which takes a tenth of the
/// time and of the memory of building the document. Empty when the text is not one that
/// QJsonDocument wrote, up to blanks between its parts: then QJsonDocument itself has to judge it.
[[nodiscard]] std::optional<QByteArray> asMember(const QByteArray& file, const QString& key,
                                                 QJsonDocument::JsonFormat format);

} // namespace SpeciesText
