// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QString>

#include <cstdio>
#include <functional>

/// What scripts can rely on.
enum class ExitCode {
    Good = 0,
    Findings = 1, ///< There are errors in what was looked at.
    Failed = 2    ///< Something could not be done: wrong usage, unreadable file, full disk.
};

/// Standard output and error, in UTF-8. What a file brought in cannot command the terminal.
class Console
{
public:
    Console();

    /// Writes a line, or lines, to the standard output.
    void print(const QString& text);
    /// Writes raw bytes to the standard output.
    void print(const QByteArray& bytes);
    /// Writes a line about what went wrong to the standard error, with the program's name.
    void complain(const QString& text);

    /// Shows how far a long work is: on a terminal only, once it has taken a second.
    void showProgress(qsizetype done, qsizetype all,
                      const QString& things = QStringLiteral("files"));
    /// Shows the same of the reading of one large file.
    [[nodiscard]] std::function<void(qint64 done, qint64 all)> progressOfBytes();
    void clearProgress();

    /// Whether colours are welcome on the standard output.
    [[nodiscard]] bool hasColours() const { return colours; }

    /// Whether all that was printed has arrived.
    [[nodiscard]] bool flush();

private:
    bool colours = false;
    bool progressWanted = false;
    bool progressShown = false;
    bool complete = true;
    QElapsedTimer sinceStart;
    QElapsedTimer sinceProgress;
};

/// The text without characters that command a terminal or turn the direction of writing.
[[nodiscard]] QString printable(QString text);
