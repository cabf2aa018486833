// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/confinement.h"
#include "species/pictureprocess.h"
#include "species/picturetranslation.h"
#include "species/sanitized.h"
#include "tests/support/sandboxtest.h"

#include <QFile>
#include <QFontDatabase>
#include <QProcess>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What a child process says of itself, confined or not; 0 to 255.
int inChild(bool confined, const std::function<int()>& action)
{
    const pid_t child = fork();
    if (child == 0) {
        if (confined)
            Confinement::enter();
        _exit(action());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

int errorOf(int result)
{
    return result < 0 ? errno : 0;
}

bool isConfined(const QProcess& process)
{
    QFile status(QString("/proc/%1/status"_L1).arg(process.processId()));
    return status.open(QIODevice::ReadOnly) && status.readAll().contains("\nSeccomp:\t2\n");
}

QByteArray drawingOf(const QByteArray& text, const QByteArray& family)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"300\" height=\"40\">"
           "<text x=\"5\" y=\"30\" font-size=\"20\" font-family=\"" +
           family + "\">" + text + "</text></svg>";
}

} // namespace

/// What the program that reads strangers' pictures gives up before it does.
class TestConfinement : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (isSanitized)
            QSKIP("the sanitizer needs what would be given up");
        if (inChild(true, [] { return errorOf(socket(AF_INET, SOCK_STREAM, 0)); }) == 0)
            QSKIP("this system lets no process give up the network");
        if (syscall(SYS_landlock_create_ruleset, nullptr, 0, 1) < 0)
            QSKIP("this system has no Landlock");
    }

    void networkIsGivenUp()
    {
        for (const int family : {AF_INET, AF_INET6, AF_UNIX, AF_NETLINK}) {
            const auto connect = [family] { return errorOf(socket(family, SOCK_DGRAM, 0)); };
            QCOMPARE(inChild(true, connect), EPERM);
        }
        QCOMPARE(inChild(false, [] { return errorOf(socket(AF_UNIX, SOCK_STREAM, 0)); }), 0);
    }

    void filesAreGivenUp_data()
    {
        QTest::addColumn<int>("flags");
        QTest::newRow("reading") << O_RDONLY;
        QTest::newRow("writing") << O_WRONLY;
        QTest::newRow("emptying") << (O_WRONLY | O_TRUNC);
        QTest::newRow("making") << (O_WRONLY | O_CREAT | O_EXCL);
    }

    void filesAreGivenUp()
    {
        QFETCH(const int, flags);
        const bool makes = (flags & O_CREAT) != 0;
        const QString path = sandbox->path(u"secret"_s);
        if (!makes)
            sandbox->write(u"secret"_s, "secret");
        const QByteArray name = QFile::encodeName(path);
        const auto openIt = [&name, flags] { return errorOf(open(name.constData(), flags, 0600)); };
        QCOMPARE(inChild(true, openIt), EACCES);
        QCOMPARE(QFile::exists(path), !makes);
        QCOMPARE(inChild(false, openIt), 0);
    }

    void filesStayWhereTheyAre()
    {
        const QByteArray name = QFile::encodeName(sandbox->write(u"kept"_s, "kept"));
        const QByteArray other = name + "2";
        QCOMPARE(inChild(true, [&] { return errorOf(unlink(name.constData())); }), EACCES);
        QCOMPARE(
            inChild(true, [&] { return errorOf(rename(name.constData(), other.constData())); }),
            EACCES);
        QCOMPARE(inChild(true, [&] { return errorOf(mkdir(other.constData(), 0700)); }), EACCES);
        QCOMPARE(sandbox->read(u"kept"_s), "kept");
    }

    void programsAreGivenUp()
    {
        const auto start = [] {
            execl("/bin/true", "true", nullptr);
            return errno;
        };
        QCOMPARE(inChild(true, start), EPERM);
        QCOMPARE(inChild(false, start), 0);
        QCOMPARE(inChild(true, [] { return errorOf(fork()); }), EPERM);
    }

    void threadsStay()
    {
        QCOMPARE(inChild(true,
                         [] {
                             int answer = 0;
                             std::thread([&answer] { answer = 42; }).join();
                             return answer;
                         }),
                 42);
    }

    void programIsConfinedBeforeItReads()
    {
        QProcess process;
        process.start(PictureProcess::program(), {});
        QVERIFY(process.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(isConfined(process), 30'000);
        QCOMPARE(process.state(), QProcess::Running);
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), EXIT_FAILURE); // nothing is no picture
    }

    /// Fonts are read when a letter is drawn, not before.
    void lettersLookAsWithoutConfinement_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("family");
        QTest::newRow("usual") << QByteArray("H2O CH3-NO2") << QByteArray("sans-serif");
        QTest::newRow("serifs") << QByteArray("H2O CH3-NO2") << QByteArray("serif");
        QTest::newRow("fixed width") << QByteArray("H2O CH3-NO2") << QByteArray("monospace");
        QTest::newRow("other writings")
            << QByteArray("\xce\xb1\xce\xb2 \xd0\xb6 \xd7\x90 \xe2\x86\x92") << QByteArray("serif");
        const QStringList families = QFontDatabase::families();
        for (const QString& family : families.mid(0, 20))
            QTest::newRow(qPrintable(family)) << QByteArray("H2O") << family.toUtf8();
    }

    void lettersLookAsWithoutConfinement()
    {
        QFETCH(const QByteArray, text);
        QFETCH(const QByteArray, family);
        const QByteArray drawing = drawingOf(text, family);
        const QImage expected = PictureTranslation::read(drawing);
        QVERIFY(expected != PictureTranslation::read(drawingOf(QByteArray(), family)));
        const QImage drawn = QImage::fromData(PictureProcess::toPng(drawing), "PNG");
        QCOMPARE(drawn.convertToFormat(expected.format()), expected);
    }
};

QTEST_MAIN(TestConfinement)
#include "tst_confinement.moc"
