// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

/// What whoever uses the windows from outside needs, be it a test, a benchmark or the tour.
namespace TestSupport {

/// The only descendant of that type and name; ends the program when there is none.
template <typename T>
[[nodiscard]] T* child(const QObject& parent, const char* name)
{
    auto* found = parent.findChild<T*>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no %s in the window", name);
    return found;
}

} // namespace TestSupport
