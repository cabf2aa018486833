// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/pictureprocess.h"

#include "species/picturelimits.h"
#include "species/sanitized.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>

#include <chrono>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_UNIX

constexpr rlim_t mostSeconds = 2;

/// Runs in the new process before its program. macOS takes the limit of memory but does not hold
/// it; not tried there.
void limitResources()
{
    constexpr rlim_t mostBytes = rlim_t{256} * 1024 * 1024;
    const auto limit = [](auto resource, rlim_t most) {
        const rlimit limits{most, most};
        setrlimit(resource, &limits);
    };
    limit(RLIMIT_CPU, mostSeconds);
    limit(RLIMIT_CORE, 0);
    if constexpr (!isSanitized)
        limit(RLIMIT_DATA, mostBytes);
}

#endif

/// Waits until the process has ended, for a time that is longer than its processor time because the
/// computer may be busy with something else. Whether it ended by itself.
bool waitForEnd(QProcess& process)
{
    // Elsewhere than on Unix this is the only limit of the work; not tried there.
#ifdef Q_OS_UNIX
    constexpr std::chrono::seconds longest(15);
#else
    constexpr std::chrono::seconds longest(3);
#endif
    constexpr qint64 mostBytes =
        PictureLimits::mostPixels * PictureLimits::bytesPerPixel + PictureLimits::mostPixels;
    const QDeadlineTimer deadline(longest);
    while (process.state() != QProcess::NotRunning) {
        const auto remaining = static_cast<int>(deadline.remainingTime());
        if (remaining == 0 || process.bytesAvailable() > mostBytes) {
            process.kill();
            process.waitForFinished();
            return false;
        }
        if (!process.waitForReadyRead(remaining))
            process.waitForFinished(static_cast<int>(deadline.remainingTime()));
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == EXIT_SUCCESS;
}

} // namespace

namespace PictureProcess {

QByteArray toPng(const QByteArray& picture)
{
    QProcess process;
    process.setProgram(program());
    if (process.program().isEmpty())
        return {};
    process.setStandardErrorFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    process.setChildProcessModifier(limitResources);
#endif
    process.start();
    process.write(picture);
    process.closeWriteChannel();
    return waitForEnd(process) ? process.readAllStandardOutput() : QByteArray();
}

QString program()
{
    const QString own = QCoreApplication::applicationDirPath();
    // One or two folders up: installed programs are in "bin", tests and tools in folders of the
    // build's.
    QStringList folders{own};
    for (const QString& base : {own, QString(own + "/.."_L1), QString(own + "/../.."_L1)})
        folders.append(QDir(base).absoluteFilePath(QStringLiteral(KORVELA_LIBEXEC_FOLDER)));
    return QStandardPaths::findExecutable(u"korvela-picture"_s, folders);
}

} // namespace PictureProcess
