// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/tooltip.h"

using namespace Qt::StringLiterals;

namespace ToolTip {

QString plain(const QString& text)
{
    constexpr qsizetype mostCharacters = 1000;
    if (text.isEmpty())
        return {};
    const QString shown =
        text.size() > mostCharacters ? QString(text.first(mostCharacters) + u'\u2026') : text;
    return R"(<p style="white-space: pre-wrap">)"_L1 + shown.toHtmlEscaped() + "</p>"_L1;
}

} // namespace ToolTip
