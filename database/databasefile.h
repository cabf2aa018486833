// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"

#include <QByteArray>
#include <QDate>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// The database file: a header and one entry for each species file, which is its whole object
/// unchanged but for its "Type".
namespace DatabaseFile {

struct Header
{
    QString version;
    QString release; ///< Data release; stands under the key "Database".
    QString title;
    QDate date; ///< Day of writing.
};

/// The species file at an index from 0, or nothing when it cannot be used. Asked once for each
/// index, in the order of the entries in the file: their keys are sorted as text, "Entry10" before
/// "Entry2".
using EntryAt = std::function<std::optional<QJsonObject>(qsizetype index)>;

/// Takes the text of the database piece by piece.
using Sink = std::function<void(const QByteArray& piece)>;

/// Hands the database of @p count species files on to @p sink, with no more than one of them in
/// memory. Together the pieces are the text that QJsonDocument would write. Stops and returns false
/// at the first file that cannot be used.
[[nodiscard]] bool assemble(const Header& header, qsizetype count, const EntryAt& entryAt,
                            QJsonDocument::JsonFormat format, const Sink& sink);

enum class Outcome {
    Written, ///< Also when a device failed while it was written to, which nobody is told.
    SourceNotOpened,
    SourceIsNoSpecies,
    TargetNotOpened
};

struct Result
{
    Outcome outcome;
    QString source; ///< The first unusable species file, in the order of the list.
    /// How saving went; not opened when it did not come to that.
    SaveResult saved = SaveResult::NotOpened;
};

/// Compiles the species files @p sources into the file @p target. The target stays as it was unless
/// all of them can be used.
[[nodiscard]] Result write(const QString& target, const Header& header, const QStringList& sources,
                           QJsonDocument::JsonFormat format);

} // namespace DatabaseFile
