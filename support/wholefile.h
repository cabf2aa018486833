// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QSaveFile>
#include <QString>

/// A file that is written in pieces and becomes real as a whole: an existing one stays as it was
/// until commit(), and for good when there is none. It keeps its permissions, and a symbolic link
/// stays one.
///
/// Where no new file can be made beside the target (a writable file in a read-only folder, a
/// device), the pieces are kept in memory and the target is written in place by commit().
class WholeFile
{
public:
    enum class Result {
        Written,
        NotOpened, ///< The file could not be opened for writing.
        NotWritten ///< Opened, but not all bytes could be stored.
    };

    explicit WholeFile(const QString& path);

    void write(const QByteArray& bytes);
    [[nodiscard]] Result commit();

private:
    [[nodiscard]] Result writeInPlace() const;

    QSaveFile file;
    QByteArray kept; ///< What is to be written in place.
    bool inPlace = false;
    bool complete = true; ///< Every byte so far was taken.
};
