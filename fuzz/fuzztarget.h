// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// What a fuzz target provides: one input tried, its property asserted. Called by libFuzzer, and by
/// replay.cpp for the committed corpus in the ordinary test run.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace Fuzz {

/// Ends the program with @p property on standard error unless @p holds.
void require(bool holds, const char* property);

/// Makes the one application object, off-screen and with settings of its own, unless it is there
/// already. Targets that use widgets call it first.
void startApplication();

/// The input as bytes that share its memory.
[[nodiscard]] QByteArray bytes(const std::uint8_t* data, std::size_t size);

} // namespace Fuzz
