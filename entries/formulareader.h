// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/composition.h"

/// Reads one sum formula from left to right. See Compositions::fromSumFormula().
class FormulaReader
{
public:
    explicit FormulaReader(const QString& markedUp);

    [[nodiscard]] std::optional<Composition> read();

private:
    using Atoms = QMap<QString, int>;

    [[nodiscard]] bool atEnd() const { return position >= text.size(); }
    [[nodiscard]] QChar next() const { return atEnd() ? QChar() : text.at(position); }
    [[nodiscard]] std::optional<int> readNumber();
    [[nodiscard]] bool readPart(Composition& composition);
    [[nodiscard]] bool readGroups(Atoms& atoms, bool& labelled, int depth);
    [[nodiscard]] bool readBracket(Atoms& atoms, bool& labelled, int depth);
    [[nodiscard]] bool readElement(Atoms& atoms);
    [[nodiscard]] bool readRaised(Composition& composition);
    [[nodiscard]] bool isIsotopeAhead() const;
    [[nodiscard]] bool readTrailingCharge(Composition& composition);

    QString text; ///< Without tags; raised runs stand in braces.
    qsizetype position = 0;
};
