// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/confinement.h"
#include "species/picturetranslation.h"

#include <QFile>
#include <QGuiApplication>
#include <QImageWriter>

#include <cstdio>
#include <cstdlib>

#ifdef Q_OS_WIN
#include <fcntl.h>
#include <io.h>
#endif
#ifdef Q_OS_LINUX
#include <csignal>
#include <ctime>
#endif

namespace {

#ifdef Q_OS_LINUX

/// The limit that the editor sets is held to ticks of the clock, of which a busy computer loses
/// some; this one is exact.
void endAfterItsTime()
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer = nullptr;
    constexpr itimerspec time{{0, 0}, {2, 0}};
    if (timer_create(CLOCK_PROCESS_CPUTIME_ID, &event, &timer) == 0)
        timer_settime(timer, 0, &time, nullptr);
}

#endif

} // namespace

/// korvela-picture: reads a picture of any format from its standard input and writes it to its
/// standard output as PNG. The editor starts it and limits it, see PictureProcess.
int main(int argc, char* argv[])
{
#ifdef Q_OS_WIN // not tried
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
#endif
#ifdef Q_OS_LINUX
    endAfterItsTime();
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen"); // fonts, but no display
    const QGuiApplication application(argc, argv);
    PictureTranslation::prepare();
    Confinement::enter();
    QFile input;
    QFile output;
    if (!input.open(stdin, QIODevice::ReadOnly) || !output.open(stdout, QIODevice::WriteOnly))
        return EXIT_FAILURE;
    const QImage picture = PictureTranslation::read(input.readAll());
    QImageWriter writer(&output, "PNG");
    constexpr int uncompressed = 100; // what counts here is time
    writer.setQuality(uncompressed);
    return writer.write(picture) ? EXIT_SUCCESS : EXIT_FAILURE;
}
