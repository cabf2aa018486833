// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes the inputs of the measurements into a folder: of all, or of those that
// .ci/check-instructions counts.
//
// Usage: korvela-bench-inputs <folder> [small]

#include "benchmarks/inputs.h"
#include "support/jsonfile.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr double lineRange = 10; // eV

void writePoints(const QDir& folder, int count)
{
    QByteArray text;
    const QList<QPointF> points = Inputs::spectrum(count, lineRange);
    for (const QPointF& point : points) {
        text += QByteArray::number(point.x(), 'f', 5) + ' ' +
                QByteArray::number(point.y(), 'f', 2) + '\n';
    }
    QFile file(folder.filePath(u"points-%1.txt"_s.arg(count)));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

void writeEntry(const QString& path, int number, int datasets, int points)
{
    if (JsonFile::write(path, Inputs::entry(number, datasets, points), QJsonDocument::Indented) !=
        JsonFile::WriteResult::Written)
        qFatal("cannot write %s", qPrintable(path));
}

void writeFolder(const QDir& folder, const QString& name, int entries, int points)
{
    folder.mkpath(name);
    for (int number = 1; number <= entries; ++number) {
        const QString path = u"%1/entry%2.json"_s.arg(name).arg(number);
        writeEntry(folder.filePath(path), number, 2, points);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QGuiApplication application(argc, argv); // the picture of an entry is painted
    if (argc < 2)
        qFatal("usage: %s folder [small]", argv[0]);
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(u"."_s);

    writePoints(folder, 5'000);
    writeEntry(folder.filePath(u"small.json"_s), 1, 5, 1'000);
    if (argc > 2)
        return EXIT_SUCCESS;

    for (const int count : {20'000, 100'000, 1'000'000})
        writePoints(folder, count);
    for (const int points : {1'000, 5'000, 10'000, 50'000, 100'000})
        writeEntry(folder.filePath(u"entry-%1.json"_s.arg(points)), 1, 1, points);
    writeEntry(folder.filePath(u"large.json"_s), 1, 20, 5'000);
    writeEntry(folder.filePath(u"pointless.json"_s), 1, 20, 0);
    writeFolder(folder, u"folder"_s, 500, 500);
    writeFolder(folder, u"database"_s, 1'000, 1'150);
}
