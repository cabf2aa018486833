// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <functional>

/// How bad a finding is: with an error a file is not what it says it is, or data of it are lost;
/// a warning asks somebody to look.
enum class Severity { Warning, Error };

/// One thing that is wrong with a file.
struct Finding
{
    QString file;  ///< Path as it was given.
    QString place; ///< JSON pointer (RFC 6901) into the file; empty for the file as a whole.
    QString rule;  ///< Stable name of the rule, for scripts.
    Severity severity{};
    QString text; ///< One sentence: what is wrong and what is expected.
};

/// Takes what a rule found in a file: where (JSON pointer), and the sentence.
using Complain = std::function<void(const QString& place, const QString& text)>;
