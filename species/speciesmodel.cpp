// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"

#include "species/structurepicture.h"
#include "support/cleanedhtml.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Text, Lines, Number };

struct Field
{
    SpeciesModel::Column column{};
    QLatin1StringView key;
    Kind kind{};
};

constexpr QLatin1StringView imageKey("StructuralFormula");

constexpr std::array<Field, 11> fields{{
    {SpeciesModel::Name, "Name"_L1, Kind::Text},
    {SpeciesModel::Aliases, "Aliases"_L1, Kind::Lines},
    {SpeciesModel::Mass, "Mass"_L1, Kind::Number},
    {SpeciesModel::Formula, "Formula"_L1, Kind::Text},
    {SpeciesModel::InChI, "InChI"_L1, Kind::Text},
    {SpeciesModel::Cas, "CAS"_L1, Kind::Text},
    {SpeciesModel::PubChem, "PubChem"_L1, Kind::Text},
    {SpeciesModel::Aie, "AIE"_L1, Kind::Text},
    {SpeciesModel::Vie, "VIE"_L1, Kind::Text},
    {SpeciesModel::AieComment, "AIE_Comment"_L1, Kind::Text},
    {SpeciesModel::VieComment, "VIE_Comment"_L1, Kind::Text},
}};

QJsonValue toJsonValue(const QVariant& cell, Kind kind)
{
    if (kind == Kind::Number) {
        // JSON has no infinity; what is no finite number is no mass either.
        const double number = cell.toDouble();
        return std::isfinite(number) ? number : 0.0;
    }
    return CleanedHtml::withoutForeignTags(cell.toString());
}

QVariant fromJsonValue(const QJsonValue& value, Kind kind)
{
    if (kind == Kind::Number)
        return value.toDouble();
    QString text = value.toString();
    if (kind == Kind::Lines) {
        text.replace("\r\n"_L1, "<br>"_L1);
        text.replace(u'\n', "<br>"_L1);
    }
    return text;
}

} // namespace

SpeciesModel::SpeciesModel(QObject* parent)
    : MyStandardItemModel(parent)
{
    setRowCount(1);
    setColumnCount(ColumnCount);
}

bool SpeciesModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole)
        return false;
    if (index.column() == StructureImage)
        return setImage(index, value.value<QImage>());
    return MyStandardItemModel::setData(index, value, role);
}

bool SpeciesModel::setImage(const QModelIndex& index, const QImage& newImage)
{
    const auto oldImage = data(index, Qt::DisplayRole).value<QImage>();
    if (newImage != oldImage) {
        MyStandardItemModel::setData(index, QVariant::fromValue(newImage), Qt::EditRole);
        Q_EMIT imageChanged();
    }
    return true;
}

QImage SpeciesModel::image() const
{
    return value(StructureImage).value<QImage>();
}

QJsonObject SpeciesModel::toJson() const
{
    QJsonObject species;
    for (const Field& field : fields) {
        species.insert(field.key, toJsonValue(value(field.column), field.kind));
    }
    const QVariant picture = value(StructureImage);
    if (picture.canConvert<QImage>())
        species.insert(imageKey, StructurePicture::toBase64Png(picture.value<QImage>()));
    return species;
}

void SpeciesModel::fromJson(const QJsonObject& species)
{
    for (const Field& field : fields)
        setValue(field.column, fromJsonValue(species.value(field.key), field.kind));
    const QImage image = StructurePicture::fromBase64(species.value(imageKey).toString());
    setValue(StructureImage, image.isNull() ? QVariant() : QVariant::fromValue(image));
}
