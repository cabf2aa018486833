// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "species/mystandarditemmodel.h"

#include <QImage>
#include <QJsonObject>

/// The record of one chemical species: one row, one column a field.
///
/// Text cells hold cleaned HTML; the mass is a string as typed and a number after loading; the
/// structure image is a QImage, or an empty variant while none was ever set. Cells can only be
/// written under the edit role.
class SpeciesModel : public MyStandardItemModel
{
    Q_OBJECT

public:
    enum Column {
        Name,
        Aliases, ///< One per line, lines joined by "<br>".
        Mass,    ///< amu
        Formula,
        InChI,
        Cas,
        PubChem,
        Aie, ///< Adiabatic ionisation energy, eV, as typed.
        Vie, ///< Vertical ionisation energy, eV, as typed.
        AieComment,
        VieComment,
        StructureImage,
        ColumnCount
    };

    explicit SpeciesModel(QObject* parent = nullptr);

    /// As the base class, but for the edit role only. The image column answers true in every case,
    /// and emits imageChanged() when it was given a different image; a value that is no image
    /// clears it.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// The structure image; null when there is none.
    [[nodiscard]] QImage image() const;

    /// The species object of a species file. Tags other than sub, sup and br are left out.
    [[nodiscard]] QJsonObject toJson() const;

    /// Overwrites the whole record. Missing keys and values of another type read as empty or 0.
    void fromJson(const QJsonObject& species);

Q_SIGNALS:
    void imageChanged();

private:
    bool setImage(const QModelIndex& index, const QImage& newImage);
};
