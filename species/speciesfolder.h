// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDir>
#include <QJsonObject>
#include <QStringList>

#include <optional>

/// The JSON files of a folder in the order in which people step through them.
class SpeciesFolder
{
public:
    /// A species file with its content, which was read to see whether it is one.
    struct Found
    {
        QString path;
        QJsonObject content;
    };

    /// Where a step leads, or why it leads nowhere.
    struct Step
    {
        enum class Outcome {
            Found,
            NoJsonFiles,
            NoFileToStepFrom,
            FileNotInFolder,
            NoSpeciesFiles,
            NoOtherSpeciesFiles
        };
        Outcome outcome = Outcome::NoJsonFiles;
        Found found = {};
    };

    /// The step to the first species file of a folder (@p direction 0) or from the file @p path to
    /// the one before (-1) or behind (1) it.
    [[nodiscard]] static Step step(const QString& path, int direction);

    /// Lists the files that are in @p folder now.
    explicit SpeciesFolder(const QString& folder);

    /// Whether the folder has no JSON files.
    [[nodiscard]] bool isEmpty() const { return fileNames.isEmpty(); }
    /// Whether one of them has exactly this name.
    [[nodiscard]] bool contains(const QString& fileName) const;

    /// The first species file; nothing when there is none.
    [[nodiscard]] std::optional<Found> first() const;

    /// The nearest other species file behind (@p direction 1) or before (-1) the file of that name;
    /// behind the last one comes the first. Nothing when there is no other one, or when no file of
    /// the folder has that name.
    [[nodiscard]] std::optional<Found> neighbour(const QString& fileName, int direction) const;

private:
    [[nodiscard]] std::optional<Found> readSpeciesFile(qsizetype index) const;

    QDir directory;
    QStringList fileNames;
};
