// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/confinement.h"

#include "species/sanitized.h"

#include <QFile>
#include <QStandardPaths>
#include <QStringList>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

#if defined(Q_OS_LINUX) && __has_include(<linux/landlock.h>)
#include <array>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>
#define KORVELA_HAS_LANDLOCK
#endif

using namespace Qt::StringLiterals;

// NOLINTBEGIN(cppcoreguidelines-pro-type-vararg): the system has no other form of these calls

namespace {

#ifdef KORVELA_HAS_LANDLOCK

/// Where fonts are, and what the links among them lead to.
QStringList fontFolders()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::FontsLocation);
    return folders << u"/usr/share"_s << u"/usr/local/share"_s;
}

void allowReading(int rules, const QString& folder)
{
    const int descriptor = open(QFile::encodeName(folder).constData(), O_PATH | O_CLOEXEC);
    if (descriptor < 0)
        return;
    landlock_path_beneath_attr beneath{};
    beneath.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
    beneath.parent_fd = descriptor;
    syscall(SYS_landlock_add_rule, rules, LANDLOCK_RULE_PATH_BENEATH, &beneath, 0);
    close(descriptor);
}

/// What is not named here, because it came with later kernels, RLIMIT_FSIZE refuses, too.
void giveUpFiles()
{
    landlock_ruleset_attr handled{};
    constexpr quint64 lastOfFirstKernel = LANDLOCK_ACCESS_FS_MAKE_SYM;
    handled.handled_access_fs = 2 * lastOfFirstKernel - 1; // all from the first to this one
    const auto rules =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0));
    if (rules < 0)
        return;
    const QStringList folders = fontFolders();
    for (const QString& folder : folders)
        allowReading(rules, folder);
    syscall(SYS_landlock_restrict_self, rules, 0);
    close(rules);
}

#if defined(__x86_64__)
constexpr quint32 machine = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr quint32 machine = AUDIT_ARCH_AARCH64;
#else
constexpr quint32 machine = 0; // not tried: no filter
#endif

/// How a process reaches the network, and other programs. Descriptors of either kind do not exist
/// yet, so what works on one can stay.
constexpr std::array refusedCalls{
    SYS_socket,
    SYS_socketpair,
    SYS_connect,
    SYS_bind,
    SYS_execve,
    SYS_execveat,
    SYS_ptrace,
    SYS_process_vm_readv,
    SYS_process_vm_writev,
    SYS_kill,
    SYS_io_uring_setup,
    SYS_bpf,
    SYS_perf_event_open,
    SYS_userfaultfd,
    SYS_keyctl,
    SYS_pidfd_getfd,
#ifdef SYS_fork
    SYS_fork,
    SYS_vfork,
#endif
};

/// A program for the kernel that looks at each system call.
class CallFilter
{
public:
    CallFilter()
    {
        load(offsetof(seccomp_data, arch));
        answerUnless(machine, SECCOMP_RET_KILL_PROCESS);
        load(offsetof(seccomp_data, nr));
        for (const long call : refusedCalls)
            answerIf(static_cast<quint32>(call), refused);
        // Its flags are out of sight; who is told that it is missing takes the older one.
        answerIf(SYS_clone3, SECCOMP_RET_ERRNO | quint32{ENOSYS});
        constexpr quint32 firstOfOtherKind = 0x40000000; // 32 bit addresses on x86-64
        add(BPF_JMP | BPF_JGE | BPF_K, firstOfOtherKind, 0, 1);
        answer(refused);
        // Threads are welcome, processes are not.
        add(BPF_JMP | BPF_JEQ | BPF_K, SYS_clone, 0, 3);
        load(offsetof(seccomp_data, args));
        add(BPF_JMP | BPF_JSET | BPF_K, CLONE_THREAD, 1, 0);
        answer(refused);
        answer(SECCOMP_RET_ALLOW);
    }

    void install()
    {
        const sock_fprog program{static_cast<unsigned short>(code.size()), code.data()};
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
    }

private:
    static constexpr quint32 refused = SECCOMP_RET_ERRNO | quint32{EPERM};

    void add(int operation, quint32 operand, quint8 ifTrue = 0, quint8 ifFalse = 0)
    {
        code.push_back({static_cast<quint16>(operation), ifTrue, ifFalse, operand});
    }
    void load(std::size_t offset) { add(BPF_LD | BPF_W | BPF_ABS, static_cast<quint32>(offset)); }
    void answer(quint32 action) { add(BPF_RET | BPF_K, action); }
    void answerIf(quint32 value, quint32 action)
    {
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 0, 1);
        answer(action);
    }
    void answerUnless(quint32 value, quint32 action)
    {
        add(BPF_JMP | BPF_JEQ | BPF_K, value, 1, 0);
        answer(action);
    }

    std::vector<sock_filter> code;
};

void giveUpCalls()
{
    if constexpr (machine != 0)
        CallFilter().install();
}

#endif

#ifdef Q_OS_UNIX

/// Pipes are no files in this sense.
void giveUpWriting()
{
    constexpr rlimit nothing{0, 0};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &nothing);
}

#endif

} // namespace

namespace Confinement {

void enter()
{
    if constexpr (isSanitized)
        return;
#ifdef Q_OS_UNIX
    giveUpWriting();
#endif
#ifdef KORVELA_HAS_LANDLOCK
    // Without it neither of the two is granted: a program with more rights could be started.
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return;
    giveUpFiles();
    giveUpCalls();
#endif
}

} // namespace Confinement

// NOLINTEND(cppcoreguidelines-pro-type-vararg)
