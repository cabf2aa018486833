// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "support/filedescriptor.h"

/// Makes the new file @p to indistinguishable from the old file @p from but for the content: owner,
/// group, mode, access list, extended attributes (Unix only). False when that cannot be done, also
/// because the old file has a second name, which would go on leading to the old content.
[[nodiscard]] bool giveIdentity(const FileDescriptor& from, const FileDescriptor& to);

/// Whether names can only be added to the folder: a temporary file would stay for ever.
[[nodiscard]] bool isAppendOnly(const FileDescriptor& folder);
