// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What a process can give up before it reads what a stranger made.
namespace Confinement {

/// Gives up, for this process and for good, the network, other programs, and all files but those
/// already open and, for reading, fonts. The plugins and the list of fonts have to be loaded
/// before.
///
/// Gives up what the system lets a process give up without being asked by an administrator: on
/// Linux files by Landlock (since 5.13), network and programs by a filter of system calls; on other
/// Unixes the writing of files only; elsewhere nothing. Only the first was tried. Nor is anything
/// given up under AddressSanitizer, which looks for leaks with the help of another process.
void enter();

} // namespace Confinement
