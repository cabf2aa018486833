// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/toolkitsave.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A name of its own length for the file beside, so that a long one does not become too long.
QString copyName(const QFileInfo& file)
{
    constexpr int mostCharacters = 30;
    return file.absolutePath() + u'/' + file.fileName().left(mostCharacters) + ".whole-XXXXXX"_L1;
}

/// Counts the bytes: of a large write a full disk cuts off the end without an error.
bool writeAll(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

ToolkitSave::ToolkitSave(QString path)
    : target(std::move(path))
{
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks && QFileInfo(target).isSymbolicLink(); ++links)
        target = QFileInfo(target).symLinkTarget();
}

void ToolkitSave::write(const QByteArray& bytes)
{
    content.append(bytes);
}

SaveResult ToolkitSave::commit()
{
    const QFileInfo file(target);
    if (file.isSymbolicLink() || (file.exists() && !file.isFile()))
        return SaveResult::NotOpened; // a loop, a folder, a pipe
    return file.exists() ? rewriteWithCopy() : makeNew();
}

SaveResult ToolkitSave::makeNew() const
{
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return SaveResult::NotOpened;
    if (!writeAll(file, content)) {
        file.cancelWriting();
        return SaveResult::NotWritten;
    }
    return file.commit() ? SaveResult::Written : SaveResult::NotOpened;
}

SaveResult ToolkitSave::rewriteWithCopy() const
{
    if (!QFile(target).open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return SaveResult::NotOpened;
    QTemporaryFile copy(copyName(QFileInfo(target)));
    // Without one where the folder takes no other file; but not where it has no room.
    if (copy.open() && !writeAll(copy, content)) {
        // Is it only the second file for which there is no room?
        const bool hadRoom = content.size() <= QFileInfo(target).size() + copy.size();
        return hadRoom ? SaveResult::NotOpened : SaveResult::NotWritten;
    }
    bool isTorn = false;
    const SaveResult result = rewrite(isTorn);
    copy.setAutoRemove(!isTorn);
    return result;
}

SaveResult ToolkitSave::rewrite(bool& isTorn) const
{
    QFile file(target);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return SaveResult::NotOpened;
    const QByteArray old = file.readAll();
    // What goes behind the old content first: until it is there nothing old is touched.
    const bool hasRoom = content.size() <= old.size() || file.resize(content.size());
    if (hasRoom && file.seek(0) && file.write(content) == content.size() &&
        file.resize(content.size()))
        return SaveResult::Written;
    const bool restored = file.seek(0) && file.write(old) == old.size() && file.resize(old.size());
    isTorn = !restored;
    return SaveResult::NotWritten;
}
