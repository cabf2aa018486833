// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filesave.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// A file that is written in pieces and becomes real as a whole: an existing one stays as it was
/// until commit(), and for good when there is none. But for its content it stays the same file:
///
/// 1. It is *replaced* by a new one, written beside it, flushed and renamed, when owner, group,
///    mode, access list and attributes can be given to the new one and it has no second name; and
///    when there is none yet.
/// 2. It is *rewritten in place* otherwise, or when renaming is refused (a mount point, the file of
///    somebody else). Where the folder takes another file, a complete copy of the new content,
///    "<name>.whole-" and six characters, stands beside it meanwhile. Old bytes are put back when
///    the new ones cannot be stored.
/// 3. It stays as it is when storage is short, and is never rewritten for that reason.
///
/// A symbolic link stays one; what it leads to is written. Pipes, sockets and devices are not
/// opened, but for those that only swallow (/dev/null). Nothing else is left in the folder, except
/// by a program that is killed.
class WholeFile
{
public:
    using Result = SaveResult;

    explicit WholeFile(const QString& path);

    void write(const QByteArray& bytes);
    [[nodiscard]] Result commit();

private:
    std::unique_ptr<FileSave> save;
};
