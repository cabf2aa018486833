// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

/// Everything about a file but its content and its times, so that a test can tell whether it is
/// still the same file. Linux only.
struct FileFacts
{
    /// Those of what the path leads to; a symbolic link on the way is among them.
    static FileFacts of(const QString& path);

    bool operator==(const FileFacts& other) const { return describe() == other.describe(); }

    /// One fact a line.
    [[nodiscard]] QByteArray describe() const;

    bool exists = false;
    uint owner = 0;
    uint group = 0;
    uint mode = 0; ///< With the kind of file.
    uint names = 0;
    QByteArray linkTarget;
    QMap<QByteArray, QByteArray> attributes; ///< The access list is one of them.
};

namespace TestSupport {

/// The names of all that is in the folder.
[[nodiscard]] QStringList allIn(const QString& folder);

/// Sets or clears "append only" or "immutable" (of linux/fs.h); false where the file system does
/// not know them.
bool setSystemFlag(const QString& path, int flag, bool on);

/// Sets an access list by which the user @p user may do what @p userRights say (4 read, 2 write),
/// the owning group only what @p groupRights say; false where there are none. For folders also as
/// what new files get.
bool setAccessList(const QString& path, uint user, uint userRights, uint groupRights,
                   const char* attribute = "system.posix_acl_access");

/// Mounts a file system in memory with these options (see tmpfs(5)) on the folder, or the file on
/// itself; false when this is not allowed.
bool mountMemory(const QString& folder, const char* options);
bool mountOnItself(const QString& path);
bool remountReadOnly(const QString& path);
void unmount(const QString& path);

/// Gives the program mounts of its own that nobody else sees. To be called before there are
/// threads; false when this is not allowed.
bool enterOwnMounts();

} // namespace TestSupport
