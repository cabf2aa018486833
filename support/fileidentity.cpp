// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/fileidentity.h"

#include <QByteArrayList>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/xattr.h>
#endif
#ifdef Q_OS_DARWIN
#include <copyfile.h>
#endif

namespace {

constexpr mode_t permissionBits = 07777;

bool haveSameOwnerAndMode(const struct stat& a, const struct stat& b)
{
    return a.st_uid == b.st_uid && a.st_gid == b.st_gid &&
           (a.st_mode & permissionBits) == (b.st_mode & permissionBits);
}

bool giveOwnerAndMode(const struct stat& wanted, const FileDescriptor& to)
{
    struct stat present = {};
    if (fstat(to.get(), &present) != 0)
        return false;
    // Only what differs: with an owner that is already right anybody may give away the group.
    const uid_t owner = wanted.st_uid == present.st_uid ? static_cast<uid_t>(-1) : wanted.st_uid;
    const gid_t group = wanted.st_gid == present.st_gid ? static_cast<gid_t>(-1) : wanted.st_gid;
    if ((owner != static_cast<uid_t>(-1) || group != static_cast<gid_t>(-1)) &&
        fchown(to.get(), owner, group) != 0)
        return false;
    return fchmod(to.get(), wanted.st_mode & permissionBits) == 0;
}

#if defined(Q_OS_LINUX)

/// Their names; none where the file system has no attributes, nothing when they cannot be read.
std::optional<QByteArrayList> attributeNames(const FileDescriptor& file)
{
    const ssize_t size = flistxattr(file.get(), nullptr, 0);
    if (size == 0 || (size < 0 && errno == ENOTSUP))
        return QByteArrayList();
    QByteArray names(size < 0 ? 0 : size, Qt::Uninitialized);
    if (size < 0 || flistxattr(file.get(), names.data(), static_cast<size_t>(size)) != size)
        return std::nullopt;
    return names.chopped(1).split('\0');
}

std::optional<QByteArray> attribute(const FileDescriptor& file, const QByteArray& name)
{
    const ssize_t size = fgetxattr(file.get(), name.constData(), nullptr, 0);
    QByteArray value(size < 0 ? 0 : size, Qt::Uninitialized);
    if (size < 0 || (size > 0 && fgetxattr(file.get(), name.constData(), value.data(),
                                           static_cast<size_t>(size)) != size))
        return std::nullopt;
    return value;
}

bool giveAttribute(const FileDescriptor& from, const FileDescriptor& to, const QByteArray& name)
{
    const auto value = attribute(from, name);
    return value && (attribute(to, name) == value ||
                     fsetxattr(to.get(), name.constData(), value->constData(),
                               static_cast<size_t>(value->size()), 0) == 0);
}

/// Access lists are among the attributes here.
bool giveAttributes(const FileDescriptor& from, const FileDescriptor& to)
{
    const auto wanted = attributeNames(from);
    const auto present = attributeNames(to);
    if (!wanted || !present)
        return false;
    // What it has got from the folder goes again.
    const auto isGiven = [&](const QByteArray& name) { return giveAttribute(from, to, name); };
    const auto isRightOrGone = [&](const QByteArray& name) {
        return wanted->contains(name) || fremovexattr(to.get(), name.constData()) == 0;
    };
    return std::all_of(wanted->begin(), wanted->end(), isGiven) &&
           std::all_of(present->begin(), present->end(), isRightOrGone);
}

/// Flags of the file system, of which some cannot be seen on every one.
std::optional<quint64> systemFlags(const FileDescriptor& file)
{
#ifdef STATX_ATTR_APPEND
    struct statx status = {};
    if (statx(file.get(), "", AT_EMPTY_PATH, STATX_BASIC_STATS, &status) == 0)
        return status.stx_attributes;
#endif
    return std::nullopt;
}

bool haveSameFlags(const FileDescriptor& from, const FileDescriptor& to)
{
#ifdef STATX_ATTR_APPEND
    constexpr quint64 chosenByPeople =
        STATX_ATTR_COMPRESSED | STATX_ATTR_NODUMP | STATX_ATTR_IMMUTABLE | STATX_ATTR_APPEND;
    return (systemFlags(from).value_or(0) & chosenByPeople) ==
           (systemFlags(to).value_or(0) & chosenByPeople);
#else
    return from.isOpen() && to.isOpen();
#endif
}

#elif defined(Q_OS_DARWIN)

// Not tried on a Mac.
bool giveAttributes(const FileDescriptor& from, const FileDescriptor& to)
{
    return fcopyfile(from.get(), to.get(), nullptr, COPYFILE_ACL | COPYFILE_XATTR) == 0;
}

bool haveSameFlags(const FileDescriptor& from, const FileDescriptor& to)
{
    struct stat a = {};
    struct stat b = {};
    return fstat(from.get(), &a) == 0 && fstat(to.get(), &b) == 0 && a.st_flags == b.st_flags;
}

#else

/// Nothing is known about access lists and attributes here, so no file can be told to be the same.
bool giveAttributes(const FileDescriptor& /*from*/, const FileDescriptor& /*to*/)
{
    return false;
}

bool haveSameFlags(const FileDescriptor& /*from*/, const FileDescriptor& /*to*/)
{
    return false;
}

#endif

} // namespace

bool giveIdentity(const FileDescriptor& from, const FileDescriptor& to)
{
    struct stat wanted = {};
    struct stat given = {};
    // The mode comes first: with an access list its group bits are the list's mask.
    return fstat(from.get(), &wanted) == 0 && wanted.st_nlink == 1 &&
           giveOwnerAndMode(wanted, to) && giveAttributes(from, to) && haveSameFlags(from, to) &&
           fstat(to.get(), &given) == 0 && haveSameOwnerAndMode(wanted, given);
}

bool isAppendOnly(const FileDescriptor& folder)
{
#if defined(Q_OS_LINUX) && defined(STATX_ATTR_APPEND)
    return (systemFlags(folder).value_or(0) & STATX_ATTR_APPEND) != 0;
#elif defined(Q_OS_DARWIN)
    struct stat status = {};
    return fstat(folder.get(), &status) == 0 && (status.st_flags & (UF_APPEND | SF_APPEND)) != 0;
#else
    return !folder.isOpen();
#endif
}
