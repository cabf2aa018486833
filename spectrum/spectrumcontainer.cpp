// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumcontainer.h"

#include "support/jsonfile.h"

namespace {

constexpr QLatin1StringView spectrumType("Spectrum v1");

} // namespace

namespace SpectrumContainer {

QJsonObject wrap(QJsonObject record)
{
    record.insert(JsonFile::typeKey, QString(spectrumType));
    return record;
}

bool isSpectrum(const QJsonObject& container)
{
    return JsonFile::isOfType(container, spectrumType);
}

} // namespace SpectrumContainer
