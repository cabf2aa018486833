// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"

#include <QByteArray>
#include <QDate>
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
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

/// Takes the text of the database piece by piece.
using Sink = std::function<void(const QByteArray& piece)>;

/// The indices from 0 of @p count entries, in the order in which they stand in the file: their keys
/// are sorted as text, "Entry10" before "Entry2".
[[nodiscard]] QList<qsizetype> orderInFile(qsizetype count);

/// The text of the member that an entry is: its species file @p file under its key.
[[nodiscard]] QByteArray memberText(qsizetype index, const QJsonObject& file,
                                    QJsonDocument::JsonFormat format);

/// One species file as it stands in the database.
struct Source
{
    bool opened = false;
    std::optional<QByteArray> member; ///< Its memberText(); empty when it is no species file.
};

/// Reads the species file at @p path, which becomes the entry at an index.
[[nodiscard]] Source readSource(const QString& path, qsizetype index,
                                QJsonDocument::JsonFormat format);

/// Puts a database together, with no more than one entry in memory. Together the pieces that
/// @p sink gets are the text that QJsonDocument would write.
class Assembly
{
public:
    Assembly(Header header, QJsonDocument::JsonFormat format, Sink sink);

    /// Adds a memberText(); they come in the order of orderInFile().
    void add(const QByteArray& member);
    /// Ends the text, once all entries have been added.
    void finish();

private:
    Header header;
    QJsonDocument::JsonFormat format;
    Sink sink;
};

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
