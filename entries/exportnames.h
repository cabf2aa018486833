// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>
#include <QString>

/// File names made of the names of species: "nitric-oxide-1.csv". They are good on every system:
/// ASCII letters, digits and hyphens, not too long, and different even where case does not count.
class ExportNames
{
public:
    /// @p suffix is without its dot.
    explicit ExportNames(QString fileSuffix);

    /// A name that was not given out before.
    [[nodiscard]] QString next(const QString& speciesName, int dataset);

private:
    QString suffix;
    QSet<QString> given;             ///< In lower case.
    QHash<QString, int> lastNumbers; ///< Behind names that were given out before.
};
