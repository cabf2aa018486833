// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "tests/support/dearfiles.h"
#include "tests/support/sandbox.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QProgressDialog>
#include <QTextDocument>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

int list()
{
    QTextStream out(stdout);
    for (const DearFiles::Family& family : DearFiles::families())
        out << family.name << '\t' << family.size << '\n';
    return EXIT_SUCCESS;
}

/// Processor time and most memory until now, of this program and of those that it has started.
void report()
{
    rusage own{};
    rusage others{};
    getrusage(RUSAGE_SELF, &own);
    getrusage(RUSAGE_CHILDREN, &others);
    double seconds = 0;
    for (const timeval& time : {own.ru_utime, own.ru_stime, others.ru_utime, others.ru_stime})
        seconds += static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): the system declares it so
    const long mebibytes = (own.ru_maxrss + others.ru_maxrss) / 1024;
    QTextStream(stdout) << seconds << '\t' << mebibytes << Qt::endl;
}

int make(const QByteArray& name, int size, const QString& path)
{
    const auto& all = DearFiles::families();
    const auto family = std::find_if(all.begin(), all.end(),
                                     [&name](const auto& each) { return name == each.name; });
    QFile file(path);
    if (family == all.end() || !file.open(QIODevice::WriteOnly))
        return EXIT_FAILURE;
    const QByteArray bytes = family->make(size);
    return file.write(bytes) == bytes.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Opens the file, paints the window twice and saves it under its name.
int use(const QString& path)
{
    {
        const Sandbox sandbox; // for the settings
        QTimer answers;        // to whatever asks or tells, as that a file is refused
        QObject::connect(&answers, &QTimer::timeout, &answers, [] {
            QWidget* dialog = QApplication::activeModalWidget();
            // Closing the one that shows how far a long opening is would stop it.
            if (dialog != nullptr && qobject_cast<QProgressDialog*>(dialog) == nullptr)
                dialog->close();
        });
        answers.start(std::chrono::milliseconds(10));
        MainWindow window;
        window.show();
        QCoreApplication::processEvents();
        window.openEntry(path);
        QCoreApplication::processEvents();
        window.grab();
        window.grab();
        window.findChild<QAction*>(u"actionSaveSpecies"_s)->trigger();
    }
    report();
    return EXIT_SUCCESS;
}

/// Lays out ordinary text, which is what opening an entry consists of, too, but by the toolkit
/// alone.
int reference()
{
    constexpr int words = 100'000;
    constexpr int width = 300; // pixels
    QTextDocument text;
    text.setPlainText(u"photoelectron "_s.repeated(words));
    text.setTextWidth(width);
    if (text.size().isEmpty())
        return EXIT_FAILURE;
    report();
    return EXIT_SUCCESS;
}

} // namespace

/// korvela-dearfiles: lists the families of dear files with the sizes they are tried with.
/// korvela-dearfiles make family size file
/// korvela-dearfiles use file: prints processor time (s) and most memory (MiB). Writes the file.
/// korvela-dearfiles reference: the same for work that is always the same.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() == 5 && words.at(1) == "make"_L1)
        return make(words.at(2).toUtf8(), words.at(3).toInt(), words.at(4));
    if (words.size() == 3 && words.at(1) == "use"_L1)
        return use(words.at(2));
    if (words.size() == 2 && words.at(1) == "reference"_L1)
        return reference();
    return list();
}
