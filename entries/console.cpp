// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/console.h"

#include <QtGlobal>

#ifdef Q_OS_WIN // written, but not tried
#include <io.h>
#else
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

bool isTerminal(std::FILE* stream)
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}

/// Whether colours and lines that are written anew can be shown there.
bool isCapableTerminal(std::FILE* stream)
{
    return isTerminal(stream) && qEnvironmentVariable("TERM") != "dumb"_L1;
}

bool writeAll(std::FILE* stream, const QByteArray& bytes)
{
    return std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream) == size_t(bytes.size());
}

} // namespace

QString printable(QString text)
{
    for (QChar& c : text) {
        if ((c.category() == QChar::Other_Control && c != u'\n') ||
            c.category() == QChar::Other_Format)
            c = QChar::ReplacementCharacter;
    }
    return text;
}

Console::Console()
    // https://no-color.org
    : colours(isCapableTerminal(stdout) && qEnvironmentVariableIsEmpty("NO_COLOR"))
    , progressWanted(isCapableTerminal(stderr))
{
    sinceStart.start();
    sinceProgress.start();
}

void Console::print(const QString& text)
{
    print(QByteArray(text.toUtf8() + '\n'));
}

void Console::print(const QByteArray& bytes)
{
    clearProgress();
    complete &= writeAll(stdout, bytes);
}

void Console::complain(const QString& text)
{
    clearProgress();
    writeAll(stderr, QByteArray("korvela-entries: " + printable(text).toUtf8() + '\n'));
}

void Console::showProgress(qsizetype done, qsizetype all, const QString& things)
{
    constexpr qint64 patience = 1000;
    constexpr qint64 interval = 100;
    if (!progressWanted || sinceStart.elapsed() < patience || sinceProgress.elapsed() < interval)
        return;
    sinceProgress.restart();
    std::fflush(stdout);
    writeAll(stderr, u"\r\x1b[K%1 of %2 %3"_s.arg(done).arg(all).arg(things).toUtf8());
    std::fflush(stderr);
    progressShown = true;
}

std::function<void(qint64, qint64)> Console::progressOfBytes()
{
    return [this](qint64 done, qint64 all) {
        constexpr qint64 mebibyte = qint64{1} << 20;
        showProgress(done / mebibyte, all / mebibyte, u"MiB"_s);
    };
}

void Console::clearProgress()
{
    if (!progressShown)
        return;
    writeAll(stderr, "\r\x1b[K");
    std::fflush(stderr);
    progressShown = false;
}

bool Console::flush()
{
    clearProgress();
    complete &= std::fflush(stdout) == 0;
    return complete;
}
