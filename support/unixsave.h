// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filebeside.h"
#include "support/filesave.h"
#include "support/filetarget.h"

/// Saving on Unix, as WholeFile promises it.
class UnixSave : public FileSave
{
public:
    explicit UnixSave(const QString& path);

    void write(const QByteArray& bytes) override;
    [[nodiscard]] SaveResult commit() override;

private:
    /// Where the new content goes first.
    enum class Way {
        None,   ///< Nowhere: the file cannot be opened for writing.
        Beside, ///< Into a file beside it.
        Memory  ///< Into the memory, as the folder takes no other file.
    };

    [[nodiscard]] Way chooseWay();
    [[nodiscard]] SaveResult replaceOrRewrite();
    [[nodiscard]] SaveResult rewriteInPlace();
    [[nodiscard]] SaveResult swallow() const;
    [[nodiscard]] bool hadRoom() const;

    FileTarget target;
    FileBeside beside;
    Way way;
    QByteArray kept;  ///< The content, with Way::Memory.
    qint64 size = 0;  ///< Of all that was to be written.
    qint64 taken = 0; ///< Of what the file beside has taken.
    int error = 0;    ///< The first error of writing there.
};
