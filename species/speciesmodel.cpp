// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"

#include "species/structurepicture.h"
#include "widgets/cleanedhtml.h"

#include <array>

namespace {

enum class Kind { Text, Lines, Number };

struct Field
{
    SpeciesModel::Column column{};
    QLatin1String key;
    Kind kind{};
};

constexpr QLatin1String imageKey("StructuralFormula");

constexpr std::array<Field, 11> fields{{
    {SpeciesModel::Name, QLatin1String("Name"), Kind::Text},
    {SpeciesModel::Aliases, QLatin1String("Aliases"), Kind::Lines},
    {SpeciesModel::Mass, QLatin1String("Mass"), Kind::Number},
    {SpeciesModel::Formula, QLatin1String("Formula"), Kind::Text},
    {SpeciesModel::InChI, QLatin1String("InChI"), Kind::Text},
    {SpeciesModel::Cas, QLatin1String("CAS"), Kind::Text},
    {SpeciesModel::PubChem, QLatin1String("PubChem"), Kind::Text},
    {SpeciesModel::Aie, QLatin1String("AIE"), Kind::Text},
    {SpeciesModel::Vie, QLatin1String("VIE"), Kind::Text},
    {SpeciesModel::AieComment, QLatin1String("AIE_Comment"), Kind::Text},
    {SpeciesModel::VieComment, QLatin1String("VIE_Comment"), Kind::Text},
}};

QJsonValue toJsonValue(const QVariant& cell, Kind kind)
{
    if (kind == Kind::Number)
        return cell.toDouble();
    return CleanedHtml::withoutForeignTags(cell.toString());
}

QVariant fromJsonValue(const QJsonValue& value, Kind kind)
{
    if (kind == Kind::Number)
        return value.toDouble();
    QString text = value.toString();
    if (kind == Kind::Lines) {
        text.replace(QLatin1String("\r\n"), QLatin1String("<br>"));
        text.replace(QLatin1Char('\n'), QLatin1String("<br>"));
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
    return data(index(0, StructureImage), Qt::DisplayRole).value<QImage>();
}

QJsonObject SpeciesModel::toJson() const
{
    QJsonObject species;
    for (const Field& field : fields) {
        const QVariant cell = data(index(0, field.column), Qt::DisplayRole);
        species.insert(field.key, toJsonValue(cell, field.kind));
    }
    const QVariant picture = data(index(0, StructureImage), Qt::DisplayRole);
    if (picture.canConvert<QImage>())
        species.insert(imageKey, StructurePicture::toBase64Png(picture.value<QImage>()));
    return species;
}

void SpeciesModel::fromJson(const QJsonObject& species)
{
    for (const Field& field : fields) {
        setData(index(0, field.column), fromJsonValue(species.value(field.key), field.kind),
                Qt::EditRole);
    }
    const QImage image = StructurePicture::fromBase64(species.value(imageKey).toString());
    setData(index(0, StructureImage), image.isNull() ? QVariant() : QVariant::fromValue(image),
            Qt::EditRole);
}
