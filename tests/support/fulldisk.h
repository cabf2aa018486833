// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file grows beyond a limit (bytes): what is written behind that is cut off, as
/// on a full disk. Unix only.
class FullDisk
{
public:
    explicit FullDisk(rlim_t mostBytes = 65536)
    {
        oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &oldLimit);
        rlimit limit = oldLimit;
        limit.rlim_cur = mostBytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &oldLimit);
        std::signal(SIGXFSZ, oldHandler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    void (*oldHandler)(int) = nullptr;
    rlimit oldLimit{};
};
