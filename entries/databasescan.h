// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QList>

#include <functional>

/// Where the entries of a database stand in its text, so that they can be read one by one. Nothing
/// else is looked at: what is no well-formed JSON shows when the parts are parsed.
struct DatabaseScan
{
    struct Entry
    {
        QByteArray key; ///< "Entry12"
        qint64 begin = 0;
        qint64 size = 0;
        qint64 placeInFrame = 0;
    };

    QByteArray frame;     ///< The text with "{}" for every entry of the list.
    QList<Entry> entries; ///< In the order of the text.

    /// Where the character at a place in the frame stands in the whole text.
    [[nodiscard]] qint64 placeInText(qint64 placeInFrame) const;

    /// Reads the text in step with its length, and keeps of it no more than the frame.
    /// @p showProgress is told now and then how many bytes have been read.
    [[nodiscard]] static DatabaseScan of(QIODevice& text,
                                         const std::function<void(qint64)>& showProgress = {});
};
