// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/filefacts.h"

#include <QDir>
#include <QFile>

#include <array>
#include <climits>
#include <fcntl.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

QMap<QByteArray, QByteArray> attributesOf(const QByteArray& path)
{
    QMap<QByteArray, QByteArray> attributes;
    QByteArray names(65536, '\0');
    const ssize_t size =
        listxattr(path.constData(), names.data(), static_cast<size_t>(names.size()));
    const QByteArrayList list = names.left(std::max<ssize_t>(size - 1, 0)).split('\0');
    for (const QByteArray& name : list) {
        QByteArray value(65536, '\0');
        const ssize_t length = getxattr(path.constData(), name.constData(), value.data(),
                                        static_cast<size_t>(value.size()));
        if (length >= 0)
            attributes.insert(name, value.left(length));
    }
    return attributes;
}

} // namespace

FileFacts FileFacts::of(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    FileFacts facts;
    struct stat status = {};
    facts.exists = stat(name.constData(), &status) == 0;
    if (facts.exists) {
        facts.owner = status.st_uid;
        facts.group = status.st_gid;
        facts.mode = status.st_mode;
        facts.names = static_cast<uint>(status.st_nlink);
        facts.attributes = attributesOf(name);
    }
    QByteArray target(PATH_MAX, '\0');
    const ssize_t length = readlink(name.constData(), target.data(), PATH_MAX);
    facts.linkTarget = target.left(std::max<ssize_t>(length, 0));
    return facts;
}

QByteArray FileFacts::describe() const
{
    if (!exists)
        return "none -> " + linkTarget;
    QByteArray text = "owner " + QByteArray::number(owner) + "\ngroup " +
                      QByteArray::number(group) + "\nmode " + QByteArray::number(mode, 8) +
                      "\nnames " + QByteArray::number(names) + "\n-> " + linkTarget + '\n';
    for (auto it = attributes.begin(); it != attributes.end(); ++it)
        text += it.key() + ' ' + it.value().toHex() + '\n';
    return text;
}

namespace TestSupport {

QStringList allIn(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

bool setSystemFlag(const QString& path, int flag, bool on)
{
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    int flags = 0;
    bool done = file >= 0 && ioctl(file, FS_IOC_GETFLAGS, &flags) == 0;
    flags = on ? flags | flag : flags & ~flag;
    done = done && ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
    close(file);
    return done;
}

bool setAccessList(const QString& path, uint user, uint userRights, uint groupRights,
                   const char* attribute)
{
    // The form in which the system keeps it: a version, then tag, rights and user of each entry.
    struct Entry
    {
        quint16 tag;
        quint16 rights;
        quint32 id;
    };
    const auto rights = [](uint bits) { return static_cast<quint16>(bits); };
    constexpr quint32 nobody = 0xFFFFFFFF;
    const std::array<Entry, 5> entries{{{0x01, 6, nobody},
                                        {0x02, rights(userRights), user},
                                        {0x04, rights(groupRights), nobody},
                                        {0x10, rights(userRights | groupRights), nobody},
                                        {0x20, 0, nobody}}};
    QByteArray list("\x02\0\0\0", 4);
    list.append(reinterpret_cast<const char*>(entries.data()), sizeof(entries));
    return setxattr(QFile::encodeName(path).constData(), attribute, list.constData(),
                    static_cast<size_t>(list.size()), 0) == 0;
}

bool mountMemory(const QString& folder, const char* options)
{
    return mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, options) == 0;
}

bool mountOnItself(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    return mount(name.constData(), name.constData(), nullptr, MS_BIND, nullptr) == 0;
}

bool remountReadOnly(const QString& path)
{
    return mount(nullptr, QFile::encodeName(path).constData(), nullptr,
                 MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

void unmount(const QString& path)
{
    umount2(QFile::encodeName(path).constData(), MNT_DETACH);
}

bool enterOwnMounts()
{
    return unshare(CLONE_NEWNS) == 0 &&
           mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace TestSupport
