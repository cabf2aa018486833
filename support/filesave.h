// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

enum class SaveResult {
    Written,
    NotOpened, ///< The file, or what saving it needs, could not be opened; the old file stays.
    NotWritten ///< Opened, but the device did not take all bytes; the old file stays.
};

/// One way of saving a file whole, of which each kind of system has its own.
class FileSave
{
public:
    FileSave() = default;
    virtual ~FileSave() = default;
    Q_DISABLE_COPY_MOVE(FileSave)

    virtual void write(const QByteArray& bytes) = 0;
    [[nodiscard]] virtual SaveResult commit() = 0;
};
