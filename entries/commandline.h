// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/console.h"

#include <QCommandLineParser>

#include <optional>

/// The options of one command, as GNU programs have them.
class CommandLine
{
public:
    /// @p commandUsage is what follows the program's name, @p what tells what the command does.
    CommandLine(Console& output, QString commandUsage, QString what);

    void addFlag(const QString& name, const QString& what);
    void addValue(const QString& name, const QString& value, const QString& what,
                  const QString& defaultValue = {});

    /// Reads the arguments behind the command's name. Returns an exit code when there is nothing
    /// left to do: help was asked for, or an argument is wrong, which is told.
    [[nodiscard]] std::optional<ExitCode> read(const QStringList& arguments);

    [[nodiscard]] bool isSet(const QString& name) const { return parser.isSet(name); }
    [[nodiscard]] QString value(const QString& name) const { return parser.value(name); }
    [[nodiscard]] QStringList values(const QString& name) const { return parser.values(name); }
    [[nodiscard]] QStringList files() const { return parser.positionalArguments(); }

    /// Tells that the arguments are wrong, and where to read on.
    [[nodiscard]] ExitCode refuse(const QString& text) const;

private:
    [[nodiscard]] QString help() const;

    Console& console;
    QString usage;
    QString description;
    QCommandLineParser parser;
};
