// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a fuzz target over the files of corpus folders, without libFuzzer.

#include "fuzz/fuzztarget.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char* argv[])
{
    int tried = 0;
    for (int i = 1; i < argc; ++i) {
        QDirIterator files(QFile::decodeName(argv[i]), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            const QByteArray input = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                                   static_cast<std::size_t>(input.size()));
            ++tried;
        }
    }
    std::printf("%d inputs, all properties hold\n", tried);
    // Unlike libFuzzer this ends in order, and with the application Qt gives its fonts back.
    delete QCoreApplication::instance();
    return tried > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
