// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/filetarget.h"

#include <QFile>

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The path without its last part, and that part.
std::pair<QByteArray, QByteArray> split(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return {slash < 0 ? QByteArray("./") : path.left(slash + 1), path.mid(slash + 1)};
}

/// Replaces a symbolic link by what it leads to, which need not exist; false in a loop. Only the
/// last part is looked at: the system itself follows the links among the folders.
bool followLinks(QByteArray& path)
{
    constexpr int mostLinks = 40; // the system's own limit
    for (int links = 0; links < mostLinks; ++links) {
        QByteArray target(PATH_MAX, Qt::Uninitialized);
        const ssize_t length = readlink(path.constData(), target.data(), PATH_MAX);
        if (length < 0)
            return true;
        target.truncate(length);
        path = target.startsWith('/') ? target : split(path).first + target;
    }
    return false;
}

/// Devices that are often meant, and of which opening has no effect, unlike a tape or a watchdog.
bool isSink(const struct stat& status)
{
    constexpr std::array sinks{"/dev/null", "/dev/full", "/dev/zero"};
    struct stat sink = {};
    for (const char* path : sinks) {
        if (S_ISCHR(status.st_mode) && stat(path, &sink) == 0 && S_ISCHR(sink.st_mode) &&
            sink.st_rdev == status.st_rdev)
            return true;
    }
    return false;
}

FileTarget::Kind kindOf(const struct stat& status)
{
    if (S_ISREG(status.st_mode))
        return FileTarget::Kind::Regular;
    return isSink(status) ? FileTarget::Kind::Sink : FileTarget::Kind::Unusable;
}

FileDescriptor openFolder(const QByteArray& path)
{
    FileDescriptor folder = FileDescriptor::openAt(AT_FDCWD, path, O_RDONLY | O_DIRECTORY);
#ifdef O_PATH
    if (!folder.isOpen() && errno == EACCES) // a folder that may be written but not listed
        folder = FileDescriptor::openAt(AT_FDCWD, path, O_PATH | O_DIRECTORY);
#endif
    return folder;
}

} // namespace

FileTarget::FileTarget(const QString& path)
{
    QByteArray way = QFile::encodeName(path);
    struct stat status = {};
    const bool exists = !way.contains('\0') && stat(way.constData(), &status) == 0;
    if (way.contains('\0') || (!exists && errno != ENOENT) || !followLinks(way))
        return;

    QByteArray folderPath;
    std::tie(folderPath, targetName) = split(way);
    targetFolder = openFolder(folderPath);
    if (!targetFolder.isOpen() || targetName.isEmpty())
        return;

    // The same must be found from the folder: not so at the end of a link in /proc.
    struct stat found = {};
    const bool foundHere =
        fstatat(targetFolder.get(), targetName.constData(), &found, AT_SYMLINK_NOFOLLOW) == 0;
    if (exists != foundHere || (exists && found.st_ino != status.st_ino))
        return;
    targetKind = exists ? kindOf(status) : Kind::Missing;
    allocatedBytes = qint64{status.st_blocks} * 512; // their unit whatever the file system
}

FileDescriptor FileTarget::openExisting() const
{
    // Without O_CREAT, which the system refuses for a file of somebody else in a sticky folder;
    // and never waiting for the other end of a pipe that has come there meanwhile.
    constexpr int flags = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;
    FileDescriptor file = FileDescriptor::openAt(targetFolder.get(), targetName, O_RDWR | flags);
    if (!file.isOpen() && errno == EACCES)
        file = FileDescriptor::openAt(targetFolder.get(), targetName, O_WRONLY | flags);
    struct stat status = {};
    if (!file.isOpen())
        return file;
    if (fstat(file.get(), &status) != 0 || kindOf(status) == Kind::Unusable) {
        file = FileDescriptor();
        errno = EINVAL;
    }
    return file;
}

FileDescriptor FileTarget::create() const
{
    return FileDescriptor::openAt(targetFolder.get(), targetName,
                                  O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
}
