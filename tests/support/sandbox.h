// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QTemporaryDir>

class QWidget;

/// A folder of its own for one test: for its files, and for the program's settings, which are empty
/// at first and never those of the person who runs the tests.
///
/// When the environment variable KORVELA_WRITTEN_FILES names a folder, the JSON files of the
/// sandbox that the test did not write itself, and which are therefore the program's, are copied
/// there in the end.
class Sandbox
{
public:
    Sandbox();
    ~Sandbox();
    Q_DISABLE_COPY_MOVE(Sandbox)

    [[nodiscard]] QString path(const QString& name = {}) const;

    /// Writes @p bytes into the file @p name and returns its full path.
    QString write(const QString& name, const QByteArray& bytes) const;
    [[nodiscard]] QByteArray read(const QString& name) const;

private:
    void copyWrittenFiles(const QString& target) const;

    QTemporaryDir folder;
    mutable QSet<QByteArray> given; ///< The content of every file that the test wrote.
};

namespace TestSupport {

/// Shows the window and makes it the active one; whether that worked.
[[nodiscard]] bool showActive(QWidget& window);

} // namespace TestSupport
