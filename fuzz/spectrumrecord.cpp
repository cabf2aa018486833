// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// A spectrum record, or clipboard text, read into a model and written again.

#include "fuzz/fuzztarget.h"
#include "spectrum/spectrumcontainer.h"
#include "spectrum/spectrummodel.h"
#include "support/cleanedhtml.h"

#include <QJsonDocument>

namespace {

QJsonObject readAndWritten(const QJsonObject& record)
{
    SpectrumModel model;
    model.fromJson(record);
    return model.toJson();
}

/// Whether the tag filter has done its work. It runs once a save, and taking a tag out can leave
/// the pieces of another.
bool isFiltered(const QJsonObject& record)
{
    for (const QJsonValue& value : record) {
        if (value.isString() &&
            CleanedHtml::withoutForeignTags(value.toString()) != value.toString())
            return false;
    }
    return true;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QJsonDocument document = QJsonDocument::fromJson(Fuzz::bytes(data, size));
    if (!document.isObject())
        return 0;

    constexpr int keysOfARecord = 15;
    const QJsonObject first = readAndWritten(document.object());
    Fuzz::require(first.size() == keysOfARecord, "a record has exactly 15 keys");
    const QJsonObject second = readAndWritten(first);
    Fuzz::require(!isFiltered(first) || second == first,
                  "reading and writing again changes nothing");
    Fuzz::require(SpectrumContainer::isSpectrum(SpectrumContainer::wrap(second)),
                  "a wrapped record is a spectrum");
    return 0;
}
