// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/finding.h"

/// Rules about what is said of a species.
namespace SpeciesRules {

void casNumber(const EntryFile& file, const Complain& complain);
void pictureUnreadable(const EntryFile& file, const Complain& complain);
void nameMissing(const EntryFile& file, const Complain& complain);
void formulaMissing(const EntryFile& file, const Complain& complain);
void inchiMissing(const EntryFile& file, const Complain& complain);
void inchiForm(const EntryFile& file, const Complain& complain);
void inchiFormula(const EntryFile& file, const Complain& complain);
void massFormula(const EntryFile& file, const Complain& complain);
void energyForm(const EntryFile& file, const Complain& complain);
void energyRange(const EntryFile& file, const Complain& complain);
void energyOrder(const EntryFile& file, const Complain& complain);
void energyTransition(const EntryFile& file, const Complain& complain);
void commentDoi(const EntryFile& file, const Complain& complain);

} // namespace SpeciesRules
