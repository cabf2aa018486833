// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/wholefile.h"

#include <QFile>
#include <QFileInfo>

WholeFile::WholeFile(const QString& path)
    : file(path)
{
    const QFileInfo target(path);
    const bool isDevice = target.exists() && !target.isFile();
    inPlace = isDevice || !file.open(QIODevice::WriteOnly);
}

void WholeFile::write(const QByteArray& bytes)
{
    if (inPlace) {
        kept.append(bytes);
        return;
    }
    // On a full disk a large write() is cut short without an error, and commit() would then replace
    // the good file by a torn one; so the bytes are counted.
    complete = complete && file.write(bytes) == bytes.size();
}

WholeFile::Result WholeFile::commit()
{
    if (inPlace)
        return writeInPlace();
    // commit() itself does not notice when what is still buffered cannot be written.
    if (!complete || !file.flush())
        file.cancelWriting();
    return file.commit() ? Result::Written : Result::NotWritten;
}

WholeFile::Result WholeFile::writeInPlace() const
{
    QFile target(file.fileName());
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Result::NotOpened;
    return target.write(kept) == kept.size() ? Result::Written : Result::NotWritten;
}
