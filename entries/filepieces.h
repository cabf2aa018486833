// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/databasescan.h"
#include "entries/entryfile.h"

#include <QHash>
#include <QList>
#include <QStringList>

#include <functional>

/// Files in the pieces in which they are read: each as a whole, but large databases entry by entry,
/// so that the memory does not grow with them.
class FilePieces
{
public:
    static constexpr qint64 usualLargeSize = qint64{16} << 20;

    /// Is told how far the reading of a large database is, in bytes.
    using Progress = std::function<void(qint64 done, qint64 all)>;

    /// Looks through the files that are larger than @p largeSize.
    explicit FilePieces(QStringList files, const Progress& showProgress = {},
                        qint64 largeSize = usualLargeSize);

    [[nodiscard]] qsizetype count() const { return pieces.size(); }

    /// The file that a piece belongs to. Those of a file follow each other.
    [[nodiscard]] const QString& pathOf(qsizetype piece) const;
    [[nodiscard]] bool isLastOfFile(qsizetype piece) const;

    /// Reads a piece. May be called by several threads at once.
    [[nodiscard]] EntryFile read(qsizetype index) const;

private:
    struct Piece
    {
        qsizetype file = 0;
        DatabaseScan::Entry entry; ///< Of a size of 0 when it is all of the file, or its frame.
        qsizetype number = 0;      ///< Of the entry, counted from 0 in the order of the numbers.
    };

    void appendDatabase(qsizetype file, const DatabaseScan& scan);

    const QStringList paths;
    QList<Piece> pieces;
    QHash<qsizetype, EntryFile> frames; ///< Of the large databases.
};
