// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/databasescan.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype mostEntries = 1'000'000;

/// "Entry" and a number as the editor writes it.
bool isEntryKey(const QByteArray& key)
{
    constexpr qsizetype prefix = 5;
    return key.size() > prefix && key.startsWith("Entry") && key.at(prefix) != '0' &&
           std::all_of(key.begin() + prefix, key.end(),
                       [](char c) { return c >= '0' && c <= '9'; });
}

class Scanner
{
public:
    void take(const QByteArray& piece)
    {
        const qint64 before = position;
        const char* const begin = piece.constData();
        const char* const end = begin + piece.size();
        for (const char* next = begin; next != end; ++next) {
            // Most of an entry are numbers.
            if (inEntry && !escaped)
                next = std::find_if(next, end, isSpecial);
            position = before + (next - begin);
            if (next == end)
                return;
            takeOne(*next);
        }
        position = before + piece.size();
    }

    [[nodiscard]] DatabaseScan taken() { return std::move(scan); }

private:
    /// How deep the members of the document's object stand.
    static constexpr qint64 memberDepth = 1;

    static bool isSpecial(char c)
    {
        return c == '"' || c == '\\' || c == '{' || c == '}' || c == '[' || c == ']';
    }

    void takeOne(char c)
    {
        if (inString)
            takeOfString(c);
        else
            takeOther(c);
        if (!inEntry)
            scan.frame.append(c);
    }

    void takeOfString(char c)
    {
        if (escaped)
            escaped = false;
        else if (c == '\\')
            escaped = true;
        else if (c == '"')
            inString = false;
        if (depth == memberDepth && inString)
            lastText.append(c);
    }

    void takeOther(char c)
    {
        if (c == '"') {
            inString = true;
            if (depth == memberDepth)
                lastText.clear();
        } else if (c == '{' || c == '[') {
            ++depth;
            if (c == '{' && depth == memberDepth + 1)
                beginEntry();
        } else if (c == '}' || c == ']') {
            --depth;
            if (inEntry && depth == memberDepth)
                endEntry();
        } else if (c == ',' && depth == memberDepth) {
            lastText.clear();
        }
    }

    void beginEntry()
    {
        if (!isEntryKey(lastText) || scan.entries.size() >= mostEntries)
            return;
        scan.entries.append({lastText, position, 0, scan.frame.size()});
        scan.frame.append('{');
        inEntry = true;
    }

    void endEntry()
    {
        scan.entries.last().size = position + 1 - scan.entries.last().begin;
        inEntry = false; // so that the bracket comes into the frame
    }

    DatabaseScan scan;
    QByteArray lastText; ///< Between quotation marks, among the members; the key before a value.
    qint64 position = 0;
    qint64 depth = 0;
    bool inString = false;
    bool escaped = false;
    bool inEntry = false;
};

} // namespace

qint64 DatabaseScan::placeInText(qint64 placeInFrame) const
{
    constexpr qint64 sizeInFrame = 2;
    qint64 place = placeInFrame;
    for (const Entry& entry : entries) {
        if (entry.placeInFrame + sizeInFrame > placeInFrame)
            break;
        place += entry.size - sizeInFrame;
    }
    return place;
}

DatabaseScan DatabaseScan::of(QIODevice& text, const std::function<void(qint64)>& showProgress)
{
    constexpr qint64 pieceSize = qint64{1} << 20;
    Scanner scanner;
    qint64 done = 0;
    for (QByteArray piece = text.read(pieceSize); !piece.isEmpty(); piece = text.read(pieceSize)) {
        scanner.take(piece);
        done += piece.size();
        if (showProgress)
            showProgress(done);
    }
    return scanner.taken();
}
