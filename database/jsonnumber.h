// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The texts of numbers in JSON.
namespace JsonNumber {

/// Whether reading the number and writing it again with QJsonDocument gives the same characters.
/// Not all numbers of which that is true are known here.
[[nodiscard]] bool isAsWritten(const char* begin, const char* end);

/// What QJsonDocument makes of a number; nothing when it is none.
[[nodiscard]] QByteArray rewritten(QByteArrayView number);

} // namespace JsonNumber
