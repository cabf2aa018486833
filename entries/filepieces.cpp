// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/filepieces.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

bool isLarge(const QString& path, qint64 largeSize)
{
    // Opening a pipe would wait for its other end.
    const QFileInfo info(path);
    return info.isFile() && info.size() > largeSize;
}

} // namespace

FilePieces::FilePieces(QStringList files, const Progress& showProgress, qint64 largeSize)
    : paths(std::move(files))
{
    for (qsizetype i = 0; i < paths.size(); ++i) {
        QFile file(paths.at(i));
        DatabaseScan scan;
        if (isLarge(paths.at(i), largeSize) && file.open(QIODevice::ReadOnly)) {
            const qint64 size = file.size();
            scan = DatabaseScan::of(file, [&](qint64 done) {
                if (showProgress)
                    showProgress(done, size);
            });
        }
        if (scan.entries.isEmpty())
            pieces.append({i, {}, 0});
        else
            appendDatabase(i, scan);
    }
}

const QString& FilePieces::pathOf(qsizetype piece) const
{
    return paths.at(pieces.at(piece).file);
}

bool FilePieces::isLastOfFile(qsizetype piece) const
{
    return piece + 1 == pieces.size() || pieces.at(piece + 1).file != pieces.at(piece).file;
}

EntryFile FilePieces::read(qsizetype index) const
{
    const Piece& piece = pieces.at(index);
    const QString& path = paths.at(piece.file);
    if (piece.entry.size == 0)
        return frames.contains(piece.file) ? frames.value(piece.file) : EntryFiles::read(path);
    QFile file(path);
    EntryFile entry;
    entry.path = path;
    if (!file.open(QIODevice::ReadOnly) || !file.seek(piece.entry.begin))
        return entry;
    entry = EntryFiles::fromEntry(path, piece.entry.key, file.read(piece.entry.size),
                                  piece.entry.begin);
    entry.firstEntry = piece.number;
    return entry;
}

/// The frame comes first, then come the entries by their numbers.
void FilePieces::appendDatabase(qsizetype file, const DatabaseScan& scan)
{
    const EntryFile frame = EntryFiles::fromFrame(paths.at(file), scan);
    pieces.append({file, {}, 0});
    if (frame.kind == EntryFile::Kind::Database) {
        QHash<QString, DatabaseScan::Entry> entries; // of several with a key the last counts
        for (const DatabaseScan::Entry& entry : scan.entries)
            entries.insert(QString::fromLatin1(entry.key), entry);
        const QStringList keys = EntryFiles::entryKeys(frame.object);
        for (qsizetype number = 0; number < keys.size(); ++number) {
            const auto entry = entries.constFind(keys.at(number));
            if (entry != entries.constEnd())
                pieces.append({file, *entry, number});
        }
    } else if (frame.parseError.isEmpty()) {
        return; // no database: read whole
    }
    frames.insert(file, frame);
}
