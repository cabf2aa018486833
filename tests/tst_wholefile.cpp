// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/filerewrite.h"
#include "support/filetarget.h"
#include "support/toolkitsave.h"
#include "support/unixsave.h"
#include "tests/support/filefacts.h"
#include "tests/support/fulldisk.h"
#include "tests/support/otheruser.h"
#include "tests/support/sandboxtest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

bool mountsAreOwn = false;

void setMode(const QString& path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot set the mode of %s", qPrintable(path));
}

FileDescriptor opened(const QString& path, int flags = O_RDWR)
{
    return FileDescriptor(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC));
}

ino_t inodeOf(const QString& path)
{
    struct stat status = {};
    stat(QFile::encodeName(path).constData(), &status);
    return status.st_ino;
}

SaveResult saved(FileSave& save, const QByteArrayList& pieces)
{
    for (const QByteArray& piece : pieces)
        save.write(piece);
    return save.commit();
}

SaveResult saved(const QString& path, const QByteArrayList& pieces)
{
    UnixSave save(path);
    return saved(save, pieces);
}

} // namespace

/// The ways of saving a file whole, one by one. What they add up to is in tst_savedfiles.
class TestWholeFile : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        folder = sandbox->path(u"files"_s);
        QVERIFY(QDir(sandbox->path()).mkdir(u"files"_s));
        setMode(sandbox->path(), 0755);
        setMode(folder, 0777);
        path = folder + u"/file.json";
    }

    void cleanup() override
    {
        unmount(folder);
        SandboxTest::cleanup();
    }

    void nameOfAnyLengthIsSavedAgainAndAgain_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("inPlace");
        for (int length = 240; length <= 255; ++length) {
            for (const bool inPlace : {false, true}) {
                const char* way = inPlace ? "in place" : "replaced";
                QTest::addRow("%d bytes, %s", length, way) << QString(length, u'n') << inPlace;
                QTest::addRow("%d bytes in long characters, %s", length, way)
                    << QString(length / 3, QChar(0x82ef)) + QString(length % 3, u'n') << inPlace;
            }
        }
        QTest::newRow("odd characters") << u" -\n\"'\\*?$&\u00e4~ "_s << false;
    }

    void nameOfAnyLengthIsSavedAgainAndAgain()
    {
        QFETCH(const QString, name);
        QFETCH(const bool, inPlace);
        const QString target = folder + u'/' + name;
        QCOMPARE(saved(target, {"first"}), SaveResult::Written);
        QStringList files{name};
        if (inPlace) {
            QCOMPARE(link(QFile::encodeName(target).constData(),
                          QFile::encodeName(folder + u"/other").constData()),
                     0);
            files.append(u"other"_s);
        }
        const FileDescriptor first = opened(target); // so that its inode is not used again
        const ino_t inode = inodeOf(target);
        QCOMPARE(saved(target, {"second,", " longer"}), SaveResult::Written);
        QCOMPARE(saved(target, {"3"}), SaveResult::Written);
        QCOMPARE(sandbox->read(u"files/"_s + name), QByteArray("3"));
        QCOMPARE(inodeOf(target) == inode, inPlace);
        files.sort();
        QCOMPARE(allIn(folder), files);
    }

    void tooLongANameIsNotOpened()
    {
        QCOMPARE(saved(folder + u'/' + QString(256, u'n'), {"new"}), SaveResult::NotOpened);
        QCOMPARE(allIn(folder), QStringList());
    }

    /// Where there is no /proc, as in some containers, or no file without a name.
    void namedFileBesideDoesAsWell_data()
    {
        QTest::addColumn<uint>("owner");
        QTest::newRow("replaced") << uint{OtherUser::nobody};
        QTest::newRow("in place") << 0U;
    }

    void namedFileBesideDoesAsWell()
    {
        QFETCH(const uint, owner);
        if (geteuid() != 0 || !mountsAreOwn || !mountMemory(u"/proc"_s, "size=4k"))
            QSKIP("neither can /proc be hidden here nor another user taken");
        sandbox->write(u"files/file.json"_s, "old");
        QCOMPARE(chown(QFile::encodeName(path).constData(), owner, owner), 0);
        setMode(path, 0666);
        QStringList meanwhile;
        {
            const OtherUser user;
            QVERIFY(user.isValid());
            UnixSave save(path);
            save.write("ne");
            meanwhile = allIn(folder);
            save.write("w");
            QCOMPARE(save.commit(), SaveResult::Written);
        }
        unmount(u"/proc"_s);
        QCOMPARE(meanwhile.size(), 2);
        QVERIFY2(meanwhile.at(1).startsWith(u"file.json.part-"), qPrintable(meanwhile.at(1)));
        QCOMPARE(sandbox->read(u"files/file.json"_s), QByteArray("new"));
        QCOMPARE(FileFacts::of(path).owner, owner);
        QCOMPARE(FileFacts::of(path).mode, S_IFREG | 0666U);
        QCOMPARE(allIn(folder), QStringList{u"file.json"_s});
    }

    /// Who may give files away replaces those of others.
    void rootLeavesTheOwner()
    {
        if (geteuid() != 0)
            QSKIP("only root can give files away");
        sandbox->write(u"files/file.json"_s, "old");
        QCOMPARE(chown(QFile::encodeName(path).constData(), 2001, 3001), 0);
        setMode(path, 0664);
        QVERIFY(setAccessList(path, 2002, 6, 4));
        const FileFacts before = FileFacts::of(path);
        const FileDescriptor old = opened(path);
        QCOMPARE(saved(path, {"new"}), SaveResult::Written);
        QCOMPARE(FileFacts::of(path).describe(), before.describe());
        QCOMPARE(sandbox->read(u"files/file.json"_s), QByteArray("new"));
        struct stat status = {};
        QCOMPARE(fstat(old.get(), &status), 0);
        QCOMPARE(status.st_nlink, nlink_t{0});
    }

    void savingThatIsGivenUpLeavesNothing()
    {
        sandbox->write(u"files/file.json"_s, "old");
        {
            UnixSave existing(path);
            existing.write("new");
            UnixSave missing(folder + u"/none.json");
            missing.write("new");
        }
        QCOMPARE(allIn(folder), QStringList{u"file.json"_s});
        QCOMPARE(sandbox->read(u"files/file.json"_s), QByteArray("old"));
    }

    /// The pieces are not collected: a database need not fit into the memory twice.
    void piecesGoToTheDeviceAtOnce()
    {
        if (!mountsAreOwn || !mountMemory(folder, "size=1m"))
            QSKIP("no file system can be mounted here");
        UnixSave save(path);
        for (int i = 0; i < 12; ++i)
            save.write(QByteArray(64 * 1024, 'x'));
        struct stat before = {};
        QFile rest(folder + u"/rest");
        QVERIFY(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        QVERIFY(rest.write(QByteArray(512 * 1024, 'r')) < 512 * 1024);
        QVERIFY(rest.remove());
        QCOMPARE(save.commit(), SaveResult::Written);
        QCOMPARE(stat(QFile::encodeName(path).constData(), &before), 0);
        QCOMPARE(before.st_size, 12 * 64 * 1024);
    }

    void fileThatCameOrWentMeanwhileIsNoObstacle_data()
    {
        QTest::addColumn<bool>("existed");
        QTest::addColumn<bool>("exists");
        QTest::newRow("came") << false << true;
        QTest::newRow("went") << true << false;
    }

    void fileThatCameOrWentMeanwhileIsNoObstacle()
    {
        QFETCH(const bool, existed);
        QFETCH(const bool, exists);
        if (existed)
            sandbox->write(u"files/file.json"_s, "old");
        const mode_t oldMask = umask(022);
        UnixSave save(path);
        save.write("new");
        if (exists) {
            sandbox->write(u"files/file.json"_s, "of somebody else");
            setMode(path, 0664);
        } else {
            QVERIFY(QFile::remove(path));
        }
        const SaveResult result = save.commit();
        umask(oldMask);
        QCOMPARE(result, SaveResult::Written);
        QCOMPARE(sandbox->read(u"files/file.json"_s), QByteArray("new"));
        QCOMPARE(FileFacts::of(path).mode, S_IFREG | (exists ? 0664U : 0644U));
        QCOMPARE(allIn(folder), QStringList{u"file.json"_s});
    }

    void completeCopyStandsBesideARewrite()
    {
        // The copy is looked for at the moment in which the first old byte may be gone.
        sandbox->write(u"files/file.json"_s, "old");
        const FileTarget target(path);
        FileBeside beside(target);
        QCOMPARE(beside.open(0600), 0);
        QCOMPARE(beside.file().append("new content"), 0);
        QCOMPARE(beside.standAsWholeCopy(), 0);
        const QStringList files = allIn(folder);
        QCOMPARE(files.size(), 2);
        QVERIFY2(files.at(1).startsWith(u"file.json.whole-"), qPrintable(files.at(1)));
        QCOMPARE(files.at(1).size(), u"file.json.whole-"_s.size() + 6);
        QCOMPARE(sandbox->read(u"files/"_s + files.at(1)), QByteArray("new content"));
    }

    void rewriteThatFailsPutsTheOldContentBack_data()
    {
        QTest::addColumn<qint64>("oldSize");
        QTest::addColumn<qint64>("newSize");
        QTest::addColumn<qint64>("readable");
        QTest::newRow("longer") << qint64{3'000'000} << qint64{5'000'000} << qint64{2'000'000};
        QTest::newRow("shorter") << qint64{5'000'000} << qint64{3'000'000} << qint64{2'000'000};
        QTest::newRow("as long") << qint64{3'000'000} << qint64{3'000'000} << qint64{2'000'000};
        QTest::newRow("nothing") << qint64{3'000'000} << qint64{3'000'000} << qint64{0};
    }

    void rewriteThatFailsPutsTheOldContentBack()
    {
        QFETCH(const qint64, oldSize);
        QFETCH(const qint64, newSize);
        QFETCH(const qint64, readable);
        const QByteArray old(oldSize, 'o');
        sandbox->write(u"files/file.json"_s, old);
        // The new content ends too early, which is an error in the middle.
        const QString source = sandbox->write(u"new"_s, QByteArray(readable, 'n'));
        int error = 0;
        const FileDescriptor file = opened(path);
        const FileDescriptor content = opened(source);
        QCOMPARE(rewrite(file, {content, {}, newSize}, error), RewriteOutcome::Untouched);
        QCOMPARE(error, EIO);
        QVERIFY(sandbox->read(u"files/file.json"_s) == old);
    }

    void rewriteThatDoesNotFitTouchesNothing()
    {
        const QByteArray old(10'000, 'o');
        sandbox->write(u"files/file.json"_s, old);
        int error = 0;
        const FileDescriptor file = opened(path);
        {
            const FullDisk disk;
            const FileDescriptor none;
            const QByteArray tooMuch(100'000, 'n');
            QCOMPARE(rewrite(file, {none, tooMuch, tooMuch.size()}, error),
                     RewriteOutcome::Untouched);
        }
        QCOMPARE(error, EFBIG);
        QVERIFY(sandbox->read(u"files/file.json"_s) == old);
    }

    void rewriteInPlaceOnAFullDiskLeavesTheOldFile()
    {
        const QByteArray old(10'000, 'o');
        sandbox->write(u"files/file.json"_s, old);
        QCOMPARE(link(QFile::encodeName(path).constData(),
                      QFile::encodeName(folder + u"/other").constData()),
                 0);
        {
            const FullDisk disk;
            QCOMPARE(saved(path, {QByteArray(100'000, 'n')}), SaveResult::NotWritten);
        }
        QVERIFY(sandbox->read(u"files/file.json"_s) == old);
        QCOMPARE(allIn(folder), QStringList({u"file.json"_s, u"other"_s}));
    }

    void toolkitsWaySavesToo_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::addColumn<QString>("name");
        QTest::newRow("new") << QByteArray() << u"file.json"_s;
        QTest::newRow("longer than before") << QByteArray("old") << u"file.json"_s;
        QTest::newRow("shorter than before") << QByteArray(1'000'000, 'o') << u"file.json"_s;
        QTest::newRow("long name") << QByteArray("old") << QString(255, u'n');
    }

    void toolkitsWaySavesToo()
    {
        QFETCH(const QByteArray, old);
        QFETCH(const QString, name);
        const QString target = folder + u'/' + name;
        if (!old.isEmpty())
            sandbox->write(u"files/"_s + name, old);
        const ino_t inode = old.isEmpty() ? 0 : inodeOf(target);
        {
            ToolkitSave givenUp(target);
            givenUp.write("given up");
        }
        QCOMPARE(old.isEmpty(), !QFile::exists(target));
        ToolkitSave save(target);
        QCOMPARE(saved(save, {"some new", " content"}), SaveResult::Written);
        QCOMPARE(sandbox->read(u"files/"_s + name), QByteArray("some new content"));
        QVERIFY(old.isEmpty() || inodeOf(target) == inode);
        QCOMPARE(allIn(folder), QStringList{name});
    }

    void toolkitsWayKeepsTheOldFileOnAFullDisk()
    {
        sandbox->write(u"files/file.json"_s, "old");
        {
            const FullDisk disk;
            ToolkitSave save(path);
            QCOMPARE(saved(save, {QByteArray(100'000, 'n')}), SaveResult::NotWritten);
            ToolkitSave another(folder + u"/new.json");
            QCOMPARE(saved(another, {QByteArray(100'000, 'n')}), SaveResult::NotWritten);
        }
        QCOMPARE(sandbox->read(u"files/file.json"_s), QByteArray("old"));
        QCOMPARE(allIn(folder), QStringList{u"file.json"_s});
    }

    void toolkitsWayOpensOnlyFiles()
    {
        QVERIFY(QFile::link(u"loop"_s, folder + u"/loop"));
        QCOMPARE(mkfifo(QFile::encodeName(folder + u"/pipe").constData(), 0666), 0);
        for (const QString& target : {u""_s, u"/loop"_s, u"/pipe"_s, u"/none/file.json"_s}) {
            ToolkitSave save(folder + target);
            QCOMPARE(saved(save, {"new"}), SaveResult::NotOpened);
        }
        QCOMPARE(allIn(folder), QStringList({u"loop"_s, u"pipe"_s}));
    }

private:
    QString folder;
    QString path;
};

int main(int argc, char* argv[])
{
    mountsAreOwn = enterOwnMounts();
    const QApplication application(argc, argv);
    TestWholeFile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_wholefile.moc"
