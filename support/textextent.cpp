// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/textextent.h"

#include <QMetaType>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextLength>

#include <algorithm>
#include <cmath>

namespace {

/// More than any text needs, and about the width of a field.
constexpr double longest = 1000;

double lengthOf(const QVariant& value)
{
    if (value.userType() == QMetaType::fromType<QTextLength>().id()) {
        // However wide a table or column is made, it can be too narrow for a word.
        const auto length = value.value<QTextLength>();
        const bool isFree = length.type() == QTextLength::VariableLength;
        return isFree ? 0 : std::max(longest, std::abs(length.rawValue()));
    }
    switch (value.userType()) {
    case QMetaType::Int:
    case QMetaType::Double:
    case QMetaType::Float:
        return std::abs(value.toDouble());
    default:
        return 0;
    }
}

/// What a property counts for; none when it is no length.
double factorOf(int property, double indentWidth)
{
    // Large letters are dear each, and cells of many rows and columns stand for them all.
    constexpr double dearness = 10;
    switch (property) {
    case QTextFormat::ObjectIndex:
    case QTextFormat::FontWeight:
        return 0;
    case QTextFormat::BlockIndent:
    case QTextFormat::ListIndent:
        return indentWidth;
    case QTextFormat::FontPointSize:
    case QTextFormat::FontPixelSize:
    case QTextFormat::TableCellRowSpan:
    case QTextFormat::TableCellColumnSpan:
        return dearness;
    default:
        return 1;
    }
}

double largestLength(const QTextFormat& format, double indentWidth)
{
    double largest = 0;
    const QMap<int, QVariant> properties = format.properties();
    for (auto property = properties.begin(); property != properties.end(); ++property) {
        largest = std::max(largest, lengthOf(*property) * factorOf(property.key(), indentWidth));
    }
    return largest;
}

} // namespace

namespace TextExtent {

bool isBeyondLayout(const QTextDocument& document)
{
    double largest = 0;
    const QList<QTextFormat> formats = document.allFormats();
    for (const QTextFormat& format : formats)
        largest = std::max(largest, largestLength(format, document.indentWidth()));
    // At worst each character is in a line of its own, and that is as high as the largest of them.
    constexpr double mostHeight = 10'000'000; // pixels
    return !(largest <= longest) || largest * document.characterCount() > mostHeight;
}

} // namespace TextExtent
