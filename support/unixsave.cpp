// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/unixsave.h"

#include "support/fileidentity.h"
#include "support/filerewrite.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

UnixSave::UnixSave(const QString& path)
    : target(path)
    , beside(target)
    , way(chooseWay())
{}

UnixSave::Way UnixSave::chooseWay()
{
    constexpr mode_t privateMode = 0600;
    constexpr mode_t newFileMode = 0666; // less the person's mask, or as the folder's list says

    const bool isMissing = target.kind() == FileTarget::Kind::Missing;
    if (target.kind() == FileTarget::Kind::Unusable ||
        (!isMissing && !target.openExisting().isOpen()))
        return Way::None;
    if (target.kind() == FileTarget::Kind::Sink)
        return Way::Memory;
    const int refused = beside.open(isMissing ? newFileMode : privateMode);
    if (refused == 0)
        return Way::Beside;
    // Not when something is short: then the old file stays as it is.
    return isRefusal(refused) ? Way::Memory : Way::None;
}

void UnixSave::write(const QByteArray& bytes)
{
    size += bytes.size();
    if (way == Way::Memory)
        kept.append(bytes);
    if (way != Way::Beside || error != 0)
        return;
    error = beside.file().append(bytes);
    if (error == 0)
        taken += bytes.size();
}

SaveResult UnixSave::commit()
{
    if (way == Way::None)
        return SaveResult::NotOpened;
    if (target.kind() == FileTarget::Kind::Sink)
        return swallow();
    if (way == Way::Memory)
        return rewriteInPlace();
    if (error == 0)
        return replaceOrRewrite();
    return isShortOfStorage(error) && hadRoom() ? SaveResult::NotOpened : SaveResult::NotWritten;
}

/// Whether the new content would have fitted in the old file's place: then it is for the second
/// file, which only our way of saving needs, that there is no room.
bool UnixSave::hadRoom() const
{
    return target.kind() == FileTarget::Kind::Regular && size <= target.allocated() + taken;
}

SaveResult UnixSave::replaceOrRewrite()
{
    // Opened anew: since the beginning somebody else may have saved it, or taken it away.
    const FileDescriptor old = target.openExisting();
    const bool isMissing = !old.isOpen() && errno == ENOENT;
    if (!old.isOpen() && !isMissing)
        return SaveResult::NotOpened;
    const bool likeOld =
        isMissing ? target.kind() == FileTarget::Kind::Missing : giveIdentity(old, beside.file());
    error = beside.file().sync();
    if (error != 0)
        return isShortOfStorage(error) && hadRoom() ? SaveResult::NotOpened
                                                    : SaveResult::NotWritten;
    if (likeOld) {
        error = beside.takePlace();
        if (error == 0) {
            static_cast<void>(target.folder().sync());
            return SaveResult::Written;
        }
        if (isShortOfStorage(error))
            return SaveResult::NotOpened;
    }
    return rewriteInPlace();
}

SaveResult UnixSave::rewriteInPlace()
{
    if (way == Way::Beside) {
        // Perhaps it has got a part of the old file's rights, which are not all without the rest.
        static_cast<void>(fchmod(beside.file().get(), 0600));
        if (isShortOfStorage(beside.standAsWholeCopy()))
            return SaveResult::NotOpened;
        static_cast<void>(target.folder().sync());
    }
    FileDescriptor file = target.openExisting();
    const bool isNew = !file.isOpen() && errno == ENOENT;
    if (isNew)
        file = target.create();
    if (!file.isOpen())
        return SaveResult::NotOpened;

    const RewriteOutcome outcome = rewrite(file, {beside.file(), kept, size}, error);
    if (outcome == RewriteOutcome::Torn && !isNew)
        beside.keep();
    beside.remove();
    if (outcome == RewriteOutcome::Done)
        return SaveResult::Written;
    if (isNew)
        unlinkat(target.folder().get(), target.name().constData(), 0);
    return way == Way::Beside && isShortOfStorage(error) ? SaveResult::NotOpened
                                                         : SaveResult::NotWritten;
}

SaveResult UnixSave::swallow() const
{
    const FileDescriptor device = target.openExisting();
    if (!device.isOpen())
        return SaveResult::NotOpened;
    return device.append(kept) == 0 ? SaveResult::Written : SaveResult::NotWritten;
}
