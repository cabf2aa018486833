// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/finding.h"

/// Rules about spectra. Points are looked at only where all of them are numbers.
namespace SpectrumRules {

void pointsLength(const EntryFile& file, const Complain& complain);
void pointsNull(const EntryFile& file, const Complain& complain);
void fewPoints(const EntryFile& file, const Complain& complain);
void energiesOrder(const EntryFile& file, const Complain& complain);
void energiesRepeat(const EntryFile& file, const Complain& complain);
void energiesRange(const EntryFile& file, const Complain& complain);
void noIntensity(const EntryFile& file, const Complain& complain);
void evenLines(const EntryFile& file, const Complain& complain);
void manyDigits(const EntryFile& file, const Complain& complain);
void doi(const EntryFile& file, const Complain& complain);
void createdDate(const EntryFile& file, const Complain& complain);
void createdLater(const EntryFile& file, const Complain& complain);

} // namespace SpectrumRules
