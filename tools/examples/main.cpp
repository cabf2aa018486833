// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/casnumber.h"
#include "support/jsonfile.h"
#include "tools/examples/exampleentries.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

/// What went wrong; empty when the entry was written.
QString write(const ExampleEntry& entry, const QDir& folder)
{
    if (!isValidCasNumber(entry.casNumber))
        return u"%1: invalid CAS number %2"_s.arg(entry.fileName, entry.casNumber);
    const QString path = folder.filePath(entry.fileName);
    if (JsonFile::write(path, entry.content, QJsonDocument::Indented) !=
        JsonFile::WriteResult::Written)
        return u"cannot write %1"_s.arg(path);
    return {};
}

} // namespace

int main(int argc, char* argv[])
{
    // The pictures are drawn in memory: no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QTextStream errors(stderr);

    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 2) {
        errors << "usage: korvela-examples <folder>\n"
                  "Writes the example entries into the folder, which is made if missing.\n";
        return 2;
    }

    const QDir folder(arguments.at(1));
    if (!folder.mkpath(u"."_s)) {
        errors << "korvela-examples: cannot make the folder " << folder.path() << '\n';
        return 1;
    }
    const QList<ExampleEntry> entries = exampleEntries();
    for (const ExampleEntry& entry : entries) {
        const QString problem = write(entry, folder);
        if (!problem.isEmpty()) {
            errors << "korvela-examples: " << problem << '\n';
            return 1;
        }
    }
    return 0;
}
