// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <sys/types.h>
#include <utility>

/// An open file of the operating system (Unix only), closed with its owner. Functions that can fail
/// return 0 or the error number.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int opened)
        : descriptor(opened)
    {}
    ~FileDescriptor() { close(); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor(std::exchange(other.descriptor, -1))
    {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor, other.descriptor);
        return *this;
    }

    /// Opens a file of the folder; not open, with the reason in errno, when that fails.
    static FileDescriptor openAt(int folder, const QByteArray& name, int flags, mode_t mode = 0);

    [[nodiscard]] bool isOpen() const { return descriptor >= 0; }
    [[nodiscard]] int get() const { return descriptor; }

    /// Writes all bytes at the current position.
    [[nodiscard]] int append(QByteArrayView bytes) const;

    /// Writes all bytes at that offset.
    [[nodiscard]] int overwrite(QByteArrayView bytes, qint64 offset) const;

    /// Waits until the device has everything. A file system that cannot tell is no error.
    [[nodiscard]] int sync() const;

private:
    void close();

    int descriptor = -1;
};

/// Whether the error says that there is no room: on the device, in the quota, for another file.
[[nodiscard]] bool isShortOfStorage(int error);
