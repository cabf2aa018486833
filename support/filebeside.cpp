// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/filebeside.h"

#include "support/fileidentity.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace {

/// Where an unnamed file can be found to be given a name; not there in some containers.
QByteArray pathOfDescriptor(const FileDescriptor& file)
{
    return "/proc/self/fd/" + QByteArray::number(file.get());
}

/// The first bytes of the name, no character cut in two.
QByteArray shortened(const QByteArray& name)
{
    constexpr qsizetype mostBytes = 100;
    if (name.size() <= mostBytes)
        return name;
    qsizetype end = mostBytes;
    const auto continuesCharacter = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    while (end > 0 && continuesCharacter(name.at(end)))
        --end;
    return name.left(end);
}

FileDescriptor openUnnamed([[maybe_unused]] const FileDescriptor& folder,
                           [[maybe_unused]] mode_t mode)
{
    errno = EOPNOTSUPP;
#ifdef O_TMPFILE
    if (access("/proc/self/fd", X_OK) == 0)
        return FileDescriptor::openAt(folder.get(), ".", O_TMPFILE | O_RDWR, mode);
#endif
    return {};
}

} // namespace

FileBeside::FileBeside(const FileTarget& fileTarget)
    : target(fileTarget)
{}

void FileBeside::remove()
{
    if (!ownName.isEmpty())
        unlinkat(target.folder().get(), ownName.constData(), 0);
    ownName.clear();
}

QByteArray FileBeside::newName(const char* kind) const
{
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    QByteArray name = shortened(target.name()) + kind;
    for (int i = 0; i < 6; ++i)
        name += letters.at(QRandomGenerator::global()->bounded(quint32{letters.size()}));
    return name;
}

int FileBeside::open(mode_t mode)
{
    descriptor = openUnnamed(target.folder(), mode);
    if (descriptor.isOpen())
        return 0;
    if (isShortOfStorage(errno))
        return errno;
    if (isAppendOnly(target.folder()))
        return EPERM; // it could never be removed
    constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
    for (int attempt = 0; attempt < 100; ++attempt) {
        const QByteArray name = newName(".part-");
        descriptor = FileDescriptor::openAt(target.folder().get(), name, flags, mode);
        if (descriptor.isOpen()) {
            ownName = name;
            return 0;
        }
        if (errno != EEXIST)
            return errno;
    }
    return EEXIST;
}

int FileBeside::link(const QByteArray& name) const
{
    if (linkat(AT_FDCWD, pathOfDescriptor(descriptor).constData(), target.folder().get(),
               name.constData(), AT_SYMLINK_FOLLOW) == 0)
        return 0;
    return errno;
}

int FileBeside::standAsWholeCopy()
{
    if (isAppendOnly(target.folder()))
        return EPERM;
    const QByteArray name = newName(".whole-");
    const int folder = target.folder().get();
    int error = 0;
    if (ownName.isEmpty())
        error = link(name);
    else if (renameat(folder, ownName.constData(), folder, name.constData()) != 0)
        error = errno;
    if (error == 0)
        ownName = name;
    return error;
}

int FileBeside::takePlace()
{
    // Straight to the name if that is free: there is no moment with another one.
    if (ownName.isEmpty() && target.kind() == FileTarget::Kind::Missing) {
        const int error = link(target.name());
        if (error != EEXIST)
            return error;
    }
    if (ownName.isEmpty()) {
        const int error = standAsWholeCopy();
        if (error != 0)
            return error;
    }
    const int folder = target.folder().get();
    if (renameat(folder, ownName.constData(), folder, target.name().constData()) != 0)
        return errno;
    ownName.clear();
    return 0;
}

bool isRefusal(int error)
{
    constexpr std::array refusals{EACCES, EPERM,  EROFS,        EOPNOTSUPP,
                                  ENOSYS, EINVAL, ENAMETOOLONG, ENOTSUP};
    return std::find(refusals.begin(), refusals.end(), error) != refusals.end();
}
