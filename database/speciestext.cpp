// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/speciestext.h"

#include "database/growingtext.h"
#include "database/jsonnumber.h"
#include "support/jsonfile.h"

#include <QByteArrayView>

#include <algorithm>
#include <utility>

namespace {

bool isOfNumber(char c)
{
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

/// Copies a document from one text into another, part by part. What takes something returns false
/// where it has to be left to QJsonDocument.
class Rewriter
{
public:
    Rewriter(const QByteArray& source, QJsonDocument::JsonFormat format)
        : position(source.constData())
        , end(position + source.size())
        , compact(format == QJsonDocument::Compact)
        // Room for lines of numbers that stand four columns further in.
        , output(compact ? source.size() : source.size() + source.size() / 4)
    {}

    [[nodiscard]] std::optional<QByteArray> rewrite(const QString& key)
    {
        beginLine();
        output.append('"');
        output.append(key.toLatin1());
        output.append(compact ? "\":" : "\": ");
        if (!isNext('{') || !takeObject(true) || !isSpecies)
            return {};
        skipBlanks();
        if (position != end)
            return {};
        return output.taken();
    }

private:
    static constexpr qsizetype columnsOfLevel = 4;
    static constexpr qsizetype deepestLevel = 32;

    void skipBlanks()
    {
        while (position < end &&
               (*position == ' ' || *position == '\n' || *position == '\r' || *position == '\t'))
            ++position;
    }

    /// Goes behind the character if it is the next one that is no blank.
    [[nodiscard]] bool isNext(char c)
    {
        skipBlanks();
        if (position == end || *position != c)
            return false;
        ++position;
        return true;
    }

    void endLine()
    {
        if (!compact)
            output.append('\n');
    }

    void beginLine()
    {
        if (!compact)
            output.appendBlanks(columnsOfLevel * level);
    }

    void open(char bracket)
    {
        output.append(bracket);
        endLine();
        ++level;
    }

    void close(char bracket, bool isEmpty)
    {
        if (!isEmpty)
            endLine();
        --level;
        beginLine();
        output.append(bracket);
    }

    // deepestLevel ends the recursion.
    // NOLINTNEXTLINE(misc-no-recursion)
    [[nodiscard]] bool takeValue()
    {
        if (position == end)
            return false;
        switch (*position) {
        case '"':
            ++position;
            return takeString();
        case '[':
            ++position;
            return level < deepestLevel && takeArray();
        case '{':
            ++position;
            return level < deepestLevel && takeObject(false);
        case 't':
            return takeWord("true");
        case 'f':
            return takeWord("false");
        case 'n':
            return takeWord("null");
        default:
            return takeNumber();
        }
    }

    // NOLINTNEXTLINE(misc-no-recursion)
    [[nodiscard]] bool takeArray()
    {
        open('[');
        bool isEmpty = true;
        while (!isNext(']')) {
            if (!isEmpty && !isNext(','))
                return false;
            beginElement(isEmpty);
            isEmpty = false;
            if (!takeValue())
                return false;
        }
        close(']', isEmpty);
        return true;
    }

    /// Members have to stand in ascending order, as QJsonDocument writes them.
    // NOLINTNEXTLINE(misc-no-recursion)
    [[nodiscard]] bool takeObject(bool isFile)
    {
        open('{');
        QByteArrayView last; // empty before the first, as no key is
        bool isEmpty = true;
        while (!isNext('}')) {
            const qsizetype before = output.length();
            QByteArrayView key;
            if (!last.isEmpty() && !isNext(','))
                return false;
            beginElement(isEmpty);
            if (!takeKey(key) || key <= last)
                return false;
            const char* const value = position;
            if (!takeValue())
                return false;
            last = key;
            if (isFile && key == JsonFile::typeKey) {
                isSpecies = QByteArrayView(value, position) == "\"Species v1\"";
                output.truncate(before);
            } else {
                isEmpty = false;
            }
        }
        close('}', isEmpty);
        return true;
    }

    /// Goes to the next element or member, and writes what stands before it.
    void beginElement(bool isFirst)
    {
        skipBlanks();
        if (!isFirst) {
            output.append(',');
            endLine();
        }
        beginLine();
    }

    /// A key of ASCII characters, whose order is that of the bytes, with the colon behind it.
    [[nodiscard]] bool takeKey(QByteArrayView& key)
    {
        if (!isNext('"'))
            return false;
        const char* const begin = position;
        if (!takeString())
            return false;
        key = {begin, position - 1};
        const bool isPlain = std::all_of(key.begin(), key.end(),
                                         [](char c) { return c > ' ' && c < '\x7f' && c != '\\'; });
        if (!isPlain || key.isEmpty() || !isNext(':'))
            return false;
        output.append(compact ? ":" : ": ");
        skipBlanks();
        return true;
    }

    /// What stands behind a quotation mark up to the next one. Escaped characters have to be those
    /// that are always escaped.
    [[nodiscard]] bool takeString()
    {
        const char* const begin = position - 1;
        while (position < end && *position != '"') {
            if (*position >= 0 && *position < ' ')
                return false;
            if (*position == '\\' && !isNextAlwaysEscaped())
                return false;
            ++position;
        }
        if (position == end)
            return false;
        ++position;
        output.append({begin, position});
        return true;
    }

    /// Goes to the character behind the backslash.
    [[nodiscard]] bool isNextAlwaysEscaped()
    {
        ++position;
        return position < end && QByteArrayView("\"\\bfnrt").contains(*position);
    }

    [[nodiscard]] bool takeWord(QByteArrayView word)
    {
        if (!QByteArrayView(position, end).startsWith(word))
            return false;
        position += word.size();
        output.append(word);
        return true;
    }

    [[nodiscard]] bool takeNumber()
    {
        const char* const begin = position;
        while (position < end && isOfNumber(*position))
            ++position;
        if (position == begin)
            return false;
        if (JsonNumber::isAsWritten(begin, position)) {
            output.append({begin, position});
            return true;
        }
        const QByteArray number = JsonNumber::rewritten({begin, position});
        if (number.isEmpty())
            return false;
        output.append(number);
        return true;
    }

    const char* position;
    const char* const end;
    const bool compact;
    GrowingText output;
    qsizetype level = 1; ///< How deep what is taken stands, within the object of the database.
    bool isSpecies = false;
};

} // namespace

std::optional<QByteArray> SpeciesText::asMember(const QByteArray& file, const QString& key,
                                                QJsonDocument::JsonFormat format)
{
    if (!file.isValidUtf8())
        return {};
    return Rewriter(file, format).rewrite(key);
}
