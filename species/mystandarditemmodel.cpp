// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/mystandarditemmodel.h"

MyStandardItemModel::MyStandardItemModel(QObject* parent)
    : QStandardItemModel(parent)
{}

bool MyStandardItemModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid())
        return false;

    const QVariant oldValue = QStandardItemModel::data(index, role);
    if (value == oldValue)
        return false;

    const bool emptyString =
        value.metaType() == QMetaType::fromType<QString>() && value.toString().isEmpty();
    if (emptyString && (oldValue.isNull() || oldValue.toString().isEmpty()))
        return false;

    return QStandardItemModel::setData(index, value, role);
}

QVariant MyStandardItemModel::value(int column) const
{
    return data(index(0, column), Qt::DisplayRole);
}

void MyStandardItemModel::setValue(int column, const QVariant& value)
{
    setData(index(0, column), value, Qt::EditRole);
}
