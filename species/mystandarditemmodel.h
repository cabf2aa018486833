// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStandardItemModel>

/// Item model that refuses writes which change nothing, so that showing and re-submitting a form
/// never marks a document modified. Base of the one-row models of a species and of a spectrum.
class MyStandardItemModel : public QStandardItemModel
{
public:
    explicit MyStandardItemModel(QObject* parent = nullptr);

    /// Writes @p value unless the cell holds an equal one already, or the value is an empty string
    /// and the cell is empty or missing. Returns whether the cell was written.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    /// What the cell of the one row holds; an empty variant while it was never written.
    [[nodiscard]] QVariant value(int column) const;

    /// Writes the cell of the one row by setData(), with what that refuses.
    void setValue(int column, const QVariant& value);
};
