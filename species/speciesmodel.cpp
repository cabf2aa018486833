// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesmodel.h"

#include "species/structurepicture.h"
#include "widgets/cleanedhtml.h"

#include <array>

namespace {

struct TextField
{
    SpeciesModel::Column column;
    QLatin1String key;
};

constexpr QLatin1String massKey("Mass");
constexpr QLatin1String aliasesKey("Aliases");
constexpr QLatin1String imageKey("StructuralFormula");

constexpr std::array<TextField, 10> textFields{{
    {SpeciesModel::Name, QLatin1String("Name")},
    {SpeciesModel::Aliases, aliasesKey},
    {SpeciesModel::Formula, QLatin1String("Formula")},
    {SpeciesModel::InChI, QLatin1String("InChI")},
    {SpeciesModel::Cas, QLatin1String("CAS")},
    {SpeciesModel::PubChem, QLatin1String("PubChem")},
    {SpeciesModel::Aie, QLatin1String("AIE")},
    {SpeciesModel::Vie, QLatin1String("VIE")},
    {SpeciesModel::AieComment, QLatin1String("AIE_Comment")},
    {SpeciesModel::VieComment, QLatin1String("VIE_Comment")},
}};

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
        QStandardItemModel::setData(index, QVariant::fromValue(newImage), Qt::EditRole);
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
    for (const TextField& field : textFields) {
        const QString text = data(index(0, field.column), Qt::DisplayRole).toString();
        species.insert(field.key, CleanedHtml::withoutForeignTags(text));
    }
    species.insert(massKey, data(index(0, Mass), Qt::DisplayRole).toDouble());

    const QVariant picture = data(index(0, StructureImage), Qt::DisplayRole);
    if (picture.canConvert<QImage>())
        species.insert(imageKey, StructurePicture::toBase64Png(picture.value<QImage>()));
    return species;
}

void SpeciesModel::fromJson(const QJsonObject& species)
{
    for (const TextField& field : textFields) {
        QString text = species.value(field.key).toString();
        if (field.column == Aliases) {
            text.replace(QLatin1String("\r\n"), QLatin1String("<br>"));
            text.replace(QLatin1Char('\n'), QLatin1String("<br>"));
        }
        setData(index(0, field.column), text, Qt::EditRole);
    }
    setData(index(0, Mass), species.value(massKey).toDouble(), Qt::EditRole);

    const QImage image = StructurePicture::fromBase64(species.value(imageKey).toString());
    setData(index(0, StructureImage), image.isNull() ? QVariant() : QVariant::fromValue(image),
            Qt::EditRole);
}
