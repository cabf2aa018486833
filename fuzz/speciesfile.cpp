// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A species file loaded into the real window, saved, loaded and saved again.

#include "species/speciesfile.h"

#include "app/mainwindow.h"
#include "fuzz/fuzztarget.h"
#include "support/cleanedhtml.h"
#include "support/jsonfile.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    Fuzz::require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
                  "the input can be written to a file");
}

QByteArray loadedAndSaved(MainWindow& window, const QString& path)
{
    Fuzz::require(window.openEntry(path), "a species file can be loaded");
    window.findChild<QAction*>(u"actionSaveSpecies"_s)->trigger();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QFile file(path);
    Fuzz::require(file.open(QIODevice::ReadOnly), "a saved file can be read");
    return file.readAll();
}

/// Whether the tag filter has done its work in every text of the file. It runs once a save, and
/// taking a tag out can leave the pieces of another.
bool isFiltered(const QJsonValue& value)
{
    if (value.isString())
        return CleanedHtml::withoutForeignTags(value.toString()) == value.toString();
    const QJsonObject object = value.toObject();
    return std::all_of(object.begin(), object.end(), isFiltered);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Fuzz::startApplication();
    static const QTemporaryDir folder;
    // Never destroyed, like the application.
    static MainWindow& window = *new MainWindow;
    window.show();

    const QString path = folder.filePath(u"entry.json"_s);
    writeFile(path, Fuzz::bytes(data, size));
    constexpr int mostDatasets = 20;
    if (!SpeciesFile::isSpeciesFile(path) ||
        SpeciesFile::datasets(JsonFile::read(path).object).size() > mostDatasets)
        return 0;

    const QByteArray first = loadedAndSaved(window, path);
    const bool filtered = isFiltered(JsonFile::read(path).object);
    const QByteArray second = loadedAndSaved(window, path);
    Fuzz::require(!filtered || second == first, "the second save equals the first");
    return 0;
}
