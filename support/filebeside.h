// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filedescriptor.h"
#include "support/filetarget.h"

#include <QByteArray>

#include <sys/types.h>

/// A new file in the folder of a target, which takes the target's place or goes away (Unix only).
///
/// It has no name where the system knows such files, so that nothing is left by a program that is
/// killed. Where it has one, that is the target's, cut to a length that every file system takes,
/// with ".part-" (still growing) or ".whole-" (complete) and six characters.
class FileBeside
{
public:
    explicit FileBeside(const FileTarget& target);
    /// Removes the file if it still has a name of its own.
    ~FileBeside() { remove(); }
    Q_DISABLE_COPY_MOVE(FileBeside)

    /// Makes the file, empty; 0 or the error number.
    [[nodiscard]] int open(mode_t mode);

    [[nodiscard]] const FileDescriptor& file() const { return descriptor; }

    /// Gives it the name of a complete copy; 0 or the error number.
    [[nodiscard]] int standAsWholeCopy();

    /// Gives it the target's name and place; 0 or the error number.
    [[nodiscard]] int takePlace();

    /// Takes its name away, if it has one of its own.
    void remove();

    /// It is the only whole version now: leave it there.
    void keep() { ownName.clear(); }

private:
    [[nodiscard]] QByteArray newName(const char* kind) const;
    [[nodiscard]] int link(const QByteArray& name) const;

    const FileTarget& target;
    FileDescriptor descriptor;
    QByteArray ownName; ///< Empty while it has none.
};

/// Whether the error of making a file says that the folder takes none, and not that something is
/// short.
[[nodiscard]] bool isRefusal(int error);
