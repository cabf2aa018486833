// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filedescriptor.h"

#include <QByteArray>
#include <QString>

/// Where a file is to be written (Unix only): the folder and the name behind all symbolic links,
/// and what stands there.
class FileTarget
{
public:
    enum class Kind {
        Unusable, ///< Cannot be written, or must not be: a folder, a pipe, a loop of links.
        Missing,  ///< Nothing there yet.
        Regular,
        Sink ///< A device that takes all bytes and keeps none, such as /dev/null.
    };

    explicit FileTarget(const QString& path);

    [[nodiscard]] Kind kind() const { return targetKind; }
    [[nodiscard]] const FileDescriptor& folder() const { return targetFolder; }
    [[nodiscard]] const QByteArray& name() const { return targetName; }

    /// What it took on the device when it was looked at (bytes).
    [[nodiscard]] qint64 allocated() const { return allocatedBytes; }

    /// Opens what stands there, without changing it, for writing and if possible for reading. Not
    /// open, with the reason in errno, if that is not allowed, or it is no file or sink any more.
    [[nodiscard]] FileDescriptor openExisting() const;

    /// Makes the file if there is none.
    [[nodiscard]] FileDescriptor create() const;

private:
    Kind targetKind = Kind::Unusable;
    FileDescriptor targetFolder;
    QByteArray targetName;
    qint64 allocatedBytes = 0;
};
