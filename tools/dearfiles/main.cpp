// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "tests/support/dearfiles.h"
#include "tests/support/sandbox.h"

#include <QAction>
#include <QApplication>
#include <QTextStream>

#include <algorithm>
#include <cstring>
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
    const long mebibytes = (own.ru_maxrss + others.ru_maxrss) / 1024;
    QTextStream(stdout) << seconds << '\t' << mebibytes << Qt::endl;
}

/// Opens the file, paints the window twice and saves.
void use(const QByteArray& file)
{
    const Sandbox sandbox;
    const QString path = sandbox.write(u"a.json"_s, file);
    MainWindow window;
    window.show();
    QCoreApplication::processEvents();
    window.loadSpecies(path);
    QCoreApplication::processEvents();
    window.grab();
    window.grab();
    window.findChild<QAction*>(u"actionSaveSpecies"_s)->trigger();
}

} // namespace

/// korvela-dearfiles: lists the families of dear files with the sizes they are tried with.
/// korvela-dearfiles family size: uses one; prints processor time (s) and most memory (MiB).
/// korvela-dearfiles family size file: writes it.
int main(int argc, char* argv[])
{
    if (argc < 3)
        return list();
    const QByteArray name = argv[1];
    const auto& all = DearFiles::families();
    const auto family = std::find_if(all.begin(), all.end(),
                                     [&name](const auto& each) { return name == each.name; });
    if (family == all.end())
        return EXIT_FAILURE;
    const QByteArray file = family->make(QByteArray(argv[2]).toInt());
    if (argc > 3) {
        QFile target(QString::fromLocal8Bit(argv[3]));
        return target.open(QIODevice::WriteOnly) && target.write(file) == file.size()
                   ? EXIT_SUCCESS
                   : EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    use(file);
    report();
    return EXIT_SUCCESS;
}
