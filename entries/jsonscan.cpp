// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/jsonscan.h"

#include "entries/jsonpointer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

namespace {

class Scanner
{
public:
    explicit Scanner(const QByteArray& text)
        : json(text)
    {}

    JsonScan::Oddities scan()
    {
        oddities.byteOrderMark = json.startsWith("\xef\xbb\xbf");
        while (position < json.size())
            readOne();
        return oddities;
    }

private:
    /// An object or array that is open.
    struct Level
    {
        bool isObject = false;
        bool expectsKey = false;
        QSet<QString> keys;
        QString key;         ///< Of the member that is being read.
        qsizetype index = 0; ///< Of the element that is being read.
    };

    void readOne()
    {
        const char c = json.at(position++);
        if (c == '{' || c == '[')
            levels.append({c == '{', c == '{', {}, {}, 0});
        else if ((c == '}' || c == ']') && !levels.isEmpty())
            levels.removeLast();
        else if (c == ',' && !levels.isEmpty())
            beginNext(levels.last());
        else if (c == '"')
            readString();
    }

    static void beginNext(Level& level)
    {
        level.expectsKey = level.isObject;
        ++level.index;
    }

    void readString()
    {
        const qsizetype begin = position;
        bool escaped = false;
        while (position < json.size() && json.at(position) != '"') {
            const char c = json.at(position);
            oddities.bareControlCharacter |= c >= 0 && c < ' ';
            escaped |= c == '\\';
            position += c == '\\' ? 2 : 1;
        }
        const qsizetype end = std::min(position++, json.size());
        if (levels.isEmpty() || !levels.last().expectsKey)
            return;
        levels.last().expectsKey = false;
        takeKey(keyText(json.sliced(begin, end - begin), escaped));
    }

    static QString keyText(const QByteArray& raw, bool escaped)
    {
        if (!escaped)
            return QString::fromUtf8(raw);
        return QJsonDocument::fromJson("[\"" + raw + "\"]").array().at(0).toString();
    }

    void takeKey(const QString& key)
    {
        levels.last().key = key;
        if (levels.last().keys.contains(key))
            oddities.repeatedMembers.append(place());
        else
            levels.last().keys.insert(key);
    }

    [[nodiscard]] QString place() const
    {
        QString place;
        for (const Level& level : levels) {
            place = level.isObject ? JsonPointer::member(place, level.key)
                                   : JsonPointer::element(place, level.index);
        }
        return place;
    }

    const QByteArray& json;
    qsizetype position = 0;
    QList<Level> levels;
    JsonScan::Oddities oddities;
};

} // namespace

JsonScan::Oddities JsonScan::odditiesOf(const QByteArray& json)
{
    return Scanner(json).scan();
}
