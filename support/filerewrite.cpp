// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/filerewrite.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 mostAtOnce = qint64{1} << 20;

qint64 sizeOf(const FileDescriptor& file)
{
    struct stat status = {};
    return fstat(file.get(), &status) == 0 ? status.st_size : 0;
}

/// Claims the room without a visible change, where the system can do that.
int reserve([[maybe_unused]] const FileDescriptor& file, [[maybe_unused]] qint64 size)
{
#ifdef FALLOC_FL_KEEP_SIZE
    // What else it may answer (not supported, interrupted) is for the writing to find out.
    if (fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) != 0 && isShortOfStorage(errno))
        return errno;
#endif
    return 0;
}

int cut(const FileDescriptor& file, qint64 size)
{
    return ftruncate(file.get(), size) == 0 ? 0 : errno;
}

/// The next bytes from there on, a MiB at most; empty when they cannot be read.
QByteArray pieceOf(const FileContent& content, qint64 offset)
{
    const qint64 length = std::min(mostAtOnce, content.size - offset);
    if (!content.file.isOpen())
        return content.bytes.sliced(offset, length);
    QByteArray piece(length, Qt::Uninitialized);
    ssize_t count = -1;
    do {
        count = pread(content.file.get(), piece.data(), static_cast<size_t>(length), offset);
    } while (count < 0 && errno == EINTR);
    return piece.left(std::max(count, ssize_t{0}));
}

/// Copies the content from one offset to another to the same place in the file.
int copy(const FileContent& content, qint64 from, qint64 to, const FileDescriptor& file)
{
    while (from < to) {
        const QByteArray piece = pieceOf(content, from).left(to - from);
        if (piece.isEmpty())
            return EIO;
        if (const int error = file.overwrite(piece, from))
            return error;
        from += piece.size();
    }
    return 0;
}

/// The whole content; nothing if it may not be read, as in a file that can only be written.
std::optional<QByteArray> contentOf(const FileDescriptor& file, qint64 size)
{
    const FileContent content{file, {}, size};
    QByteArray bytes;
    bytes.reserve(size);
    while (bytes.size() < size) {
        const QByteArray piece = pieceOf(content, bytes.size());
        if (piece.isEmpty())
            return std::nullopt;
        bytes += piece;
    }
    return bytes;
}

} // namespace

RewriteOutcome rewrite(const FileDescriptor& file, const FileContent& content, int& error)
{
    const qint64 oldSize = sizeOf(file);
    error = content.size > oldSize ? reserve(file, content.size) : 0;
    // What goes behind the old content first: until it is there nothing old is touched.
    if (error == 0)
        error = copy(content, oldSize, content.size, file);
    if (error != 0)
        return cut(file, oldSize) == 0 ? RewriteOutcome::Untouched : RewriteOutcome::Torn;

    const auto old = contentOf(file, oldSize);
    error = copy(content, 0, std::min(oldSize, content.size), file);
    if (error == 0)
        error = cut(file, content.size);
    if (error == 0)
        error = file.sync();
    if (error == 0)
        return RewriteOutcome::Done;
    const bool restored =
        old && file.overwrite(*old, 0) == 0 && cut(file, oldSize) == 0 && file.sync() == 0;
    return restored ? RewriteOutcome::Untouched : RewriteOutcome::Torn;
}
