// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/filedescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

FileDescriptor FileDescriptor::openAt(int folder, const QByteArray& name, int flags, mode_t mode)
{
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system has no other form
    return FileDescriptor(::openat(folder, name.constData(), flags | O_CLOEXEC, mode));
}

int FileDescriptor::append(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
        if (count < 0 && errno != EINTR)
            return errno;
        if (count == 0)
            return EIO;
        bytes = bytes.sliced(count < 0 ? 0 : count);
    }
    return 0;
}

int FileDescriptor::overwrite(QByteArrayView bytes, qint64 offset) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            ::pwrite(descriptor, bytes.data(), static_cast<size_t>(bytes.size()), offset);
        if (count < 0 && errno != EINTR)
            return errno;
        if (count == 0)
            return EIO;
        const ssize_t written = count < 0 ? 0 : count;
        bytes = bytes.sliced(written);
        offset += written;
    }
    return 0;
}

int FileDescriptor::sync() const
{
#ifdef F_FULLFSYNC // macOS, not tried: fsync() alone leaves the bytes in the drive's own memory.
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): as above
    if (::fcntl(descriptor, F_FULLFSYNC) == 0)
        return 0;
#endif
    if (::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS ||
        errno == EBADF)
        return 0;
    return errno;
}

void FileDescriptor::close()
{
    if (isOpen())
        ::close(descriptor);
    descriptor = -1;
}

bool isShortOfStorage(int error)
{
    return error == ENOSPC || error == EDQUOT;
}
