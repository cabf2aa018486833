// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QTemporaryDir>

class QWidget;

/// A folder of its own for one test: for its files, and for the program's settings, which are empty
/// at first and never those of the person who runs the tests.
class Sandbox
{
public:
    Sandbox();

    [[nodiscard]] QString path(const QString& name = {}) const;

    /// Writes @p bytes into the file @p name and returns its full path.
    QString write(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QByteArray read(const QString& name) const;

private:
    QTemporaryDir folder;
};

namespace TestSupport {

/// Shows the window and makes it the active one; whether that worked.
[[nodiscard]] bool showActive(QWidget& window);

/// The only descendant of that type and name; ends the program when there is none.
template <typename T>
T* child(const QObject& parent, const char* name)
{
    auto* found = parent.findChild<T*>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no %s in the window", name);
    return found;
}

} // namespace TestSupport
