// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "entries/entryfile.h"

#include <QList>
#include <QString>

#include <functional>

/// What has to be kept of a file in order to compare it with others.
struct FileSummary
{
    struct Species
    {
        QString place; ///< JSON pointer of the species object.
        QString casNumber;
        QString inchi;
    };

    QString path;
    QList<Species> species;

    [[nodiscard]] static FileSummary of(const EntryFile& file);
};

/// Takes what was found between files: in which one, where in it, and the sentence.
using ComplainOfFile =
    std::function<void(const QString& file, const QString& place, const QString& text)>;

/// Rules about files beside each other.
namespace FolderRules {

void sameCasNumber(const QList<FileSummary>& files, const ComplainOfFile& complain);
void sameInchi(const QList<FileSummary>& files, const ComplainOfFile& complain);
void steppingOrder(const QList<FileSummary>& files, const ComplainOfFile& complain);

} // namespace FolderRules
