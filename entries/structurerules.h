// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"
#include "entries/finding.h"

/// Rules about what a file is made of. What the JSON Schemas refuse, one of these complains about;
/// the table of rules says which of them the schemas know, too.
namespace StructureRules {

void unreadable(const EntryFile& file, const Complain& complain);
void notJson(const EntryFile& file, const Complain& complain);
void byteOrderMark(const EntryFile& file, const Complain& complain);
void unknownType(const EntryFile& file, const Complain& complain);
void missingMember(const EntryFile& file, const Complain& complain);
void unknownMember(const EntryFile& file, const Complain& complain);
void repeatedMember(const EntryFile& file, const Complain& complain);
void repeatedDataset(const EntryFile& file, const Complain& complain);
void wrongKind(const EntryFile& file, const Complain& complain);
void spectrumType(const EntryFile& file, const Complain& complain);
void foreignTags(const EntryFile& file, const Complain& complain);
void databaseDate(const EntryFile& file, const Complain& complain);
void pictureForm(const EntryFile& file, const Complain& complain);

} // namespace StructureRules
