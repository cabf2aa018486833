// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfolder.h"

#include "species/fileorder.h"
#include "species/speciesfile.h"
#include "support/jsonfile.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

SpeciesFolder::SpeciesFolder(const QString& folder)
    : directory(folder)
    , fileNames(inSteppingOrder(directory.entryList({u"*.json"_s}, QDir::Files)))
{}

SpeciesFolder::Step SpeciesFolder::step(const QString& path, int direction)
{
    using Outcome = Step::Outcome;
    const QFileInfo start(path);
    const SpeciesFolder folder(start.isDir() ? path : start.absolutePath());
    if (folder.isEmpty())
        return {Outcome::NoJsonFiles};
    if (start.isDir() && direction != 0)
        return {Outcome::NoFileToStepFrom};
    if (!start.isDir() && !folder.contains(start.fileName()))
        return {Outcome::FileNotInFolder};

    auto found = direction == 0 ? folder.first() : folder.neighbour(start.fileName(), direction);
    if (!found)
        return {direction == 0 ? Outcome::NoSpeciesFiles : Outcome::NoOtherSpeciesFiles};
    return {Outcome::Found, *std::move(found)};
}

bool SpeciesFolder::contains(const QString& fileName) const
{
    return fileNames.contains(fileName);
}

std::optional<SpeciesFolder::Found> SpeciesFolder::first() const
{
    for (qsizetype index = 0; index < fileNames.size(); ++index) {
        if (auto found = readSpeciesFile(index))
            return found;
    }
    return {};
}

std::optional<SpeciesFolder::Found> SpeciesFolder::neighbour(const QString& fileName,
                                                             int direction) const
{
    const qsizetype count = fileNames.size();
    const qsizetype start = fileNames.indexOf(fileName);
    if (start < 0)
        return {};
    const auto next = [count, direction](qsizetype index) {
        return (index + direction + count) % count;
    };
    for (qsizetype index = next(start); index != start; index = next(index)) {
        if (auto found = readSpeciesFile(index))
            return found;
    }
    return {};
}

std::optional<SpeciesFolder::Found> SpeciesFolder::readSpeciesFile(qsizetype index) const
{
    const QString path = directory.absoluteFilePath(fileNames.at(index));
    const QJsonObject content = JsonFile::read(path).object;
    if (!SpeciesFile::isSpeciesFile(content))
        return {};
    return Found{path, content};
}
