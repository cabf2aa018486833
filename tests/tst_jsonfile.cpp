// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfile.h"
#include "tests/support/fulldisk.h"
#include "tests/support/otheruser.h"
#include "tests/support/sandbox.h"
#include "tests/support/traps.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using JsonFile::WriteResult;

void setMode(const QString& path, mode_t mode)
{
    if (chmod(QFile::encodeName(path).constData(), mode) != 0)
        qFatal("cannot set the mode of %s", qPrintable(path));
}

uint modeOf(const QString& path)
{
    struct stat status = {};
    stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 0777U;
}

QJsonObject small()
{
    return {{u"a"_s, 1}};
}

QByteArray smallText()
{
    return "{\"a\":1}";
}

QJsonObject large()
{
    return {{u"a"_s, QString(1'000'000, u'x')}};
}

WriteResult write(const QString& path, const QJsonObject& object)
{
    return JsonFile::write(path, object, QJsonDocument::Compact);
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

} // namespace

/// Reading whole JSON files, and writing them whole or not at all.
class TestJsonFile : public QObject
{
    Q_OBJECT

    /// An empty folder of the sandbox, which an ordinary user can reach.
    static QString newFolder(const Sandbox& sandbox)
    {
        setMode(sandbox.path(), 0755);
        QDir(sandbox.path()).mkdir(u"folder"_s);
        setMode(sandbox.path(u"folder"_s), 0777);
        return sandbox.path(u"folder"_s);
    }

private Q_SLOTS:
    void readsWholeDocumentsOnly_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QJsonObject>("object");
        const QJsonObject none;
        const QByteArray good = R"({"a": 1, "b": "\u00e4"})";
        const QJsonObject goodObject{{u"a"_s, 1}, {u"b"_s, u"\u00e4"_s}};

        QTest::newRow("object") << good << goodObject;
        QTest::newRow("with a byte-order mark") << "\xEF\xBB\xBF" + good << goodObject;
        QTest::newRow("white space around") << "\r\n\t " + good + " \n\n" << goodObject;
        QTest::newRow("empty object") << QByteArray("{}") << none;
        QTest::newRow("array") << QByteArray("[{\"a\": 1}]") << none;
        QTest::newRow("of equal keys the last") << QByteArray(R"({"a": 2, "a": 1})") << small();
        QTest::newRow("500 levels")
            << QByteArray("{\"a\":") + QByteArray(500, '[') + QByteArray(500, ']') + "}"
            << QJsonDocument::fromJson("{\"a\":" + QByteArray(500, '[') + QByteArray(500, ']') +
                                       "}")
                   .object();

        const auto refused = [&none](const char* name, const QByteArray& bytes) {
            QTest::newRow(name) << bytes << none;
        };
        refused("empty", "");
        refused("white space", " \n ");
        refused("text", "not JSON");
        refused("scalar", "5");
        refused("string", "\"a\"");
        refused("null", "null");
        refused("truncated", good.left(10));
        refused("truncated by one byte", good.chopped(1));
        refused("corrupt", QByteArray(good).replace(':', ';'));
        refused("text behind", good + "x");
        refused("second document behind", good + good);
        refused("NUL behind", good + '\0');
        refused("comma at the end", "{\"a\": 1,}");
        refused("comment", "{\"a\": 1 /* one */}");
        refused("single quotes", "{'a': 1}");
        refused("NaN", "{\"a\": NaN}");
        refused("number out of range", "{\"a\": 1e999}");
        refused("bad UTF-8", "{\"a\": \"\xff\xfe\"}");
        refused("bad UTF-8 in a key", "{\"\xc3\": 1}");
        refused("UTF-16", QByteArray("\xff\xfe{\0}\0", 6));
        refused("2000 levels", "{\"a\":" + QByteArray(2000, '[') + QByteArray(2000, ']') + "}");
        refused("2000 levels of objects",
                QByteArray("{\"a\":").repeated(2000) + "1" + QByteArray(2000, '}'));
        refused("100000 levels never closed", QByteArray(100000, '['));
        refused("binary", QByteArray("\x89PNG\r\n\x1a\n\0\0\0", 11));
    }

    void readsWholeDocumentsOnly()
    {
        QFETCH(const QByteArray, bytes);
        const Sandbox sandbox;
        const QString path = sandbox.write(u"file.json"_s, bytes);
        const JsonFile::ReadResult result = JsonFile::read(path);
        QVERIFY(result.opened);
        QTEST(result.object, "object");
        QCOMPARE(sandbox.read(u"file.json"_s), bytes);
    }

    void missingFileIsNotOpened()
    {
        const Sandbox sandbox;
        for (const QString& path :
             {sandbox.path(u"none.json"_s), sandbox.path(u"no/folder.json"_s), sandbox.path()}) {
            const JsonFile::ReadResult result = JsonFile::read(path);
            QVERIFY(!result.opened);
            QCOMPARE(result.object, QJsonObject());
        }
        QCOMPARE(filesIn(sandbox.path()), QStringList{u".settings"_s});
    }

    void unreadableFileIsNotOpened()
    {
        const Sandbox sandbox;
        setMode(sandbox.path(), 0755);
        const QString path = sandbox.write(u"file.json"_s, smallText());
        setMode(path, 0);
        const OtherUser user;
        QVERIFY(user.isValid());
        QVERIFY(!JsonFile::read(path).opened);
    }

    void onlyRegularFilesAreRead()
    {
        const Sandbox sandbox;
        const FifoTrap trap(sandbox.path(u"trap"_s));
        QVERIFY(trap.isSet());
        QVERIFY(!JsonFile::read(trap.path()).opened);
        QVERIFY(!trap.sprung());
        QVERIFY(!JsonFile::read(u"/dev/null"_s).opened);
    }

    void newFileIsWritten()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const mode_t oldMask = umask(022);
        const WriteResult result = write(folder + u"/n\u00e4w.json", small());
        umask(oldMask);
        QCOMPARE(result, WriteResult::Written);
        QCOMPARE(sandbox.read(u"folder/n\u00e4w.json"_s), smallText());
        QCOMPARE(modeOf(folder + u"/n\u00e4w.json"), 0644U);
        QCOMPARE(filesIn(folder), QStringList{u"n\u00e4w.json"_s});
    }

    void formatIsAsAskedFor()
    {
        const Sandbox sandbox;
        const QString path = sandbox.path(u"file.json"_s);
        const QJsonObject object{{u"b"_s, u"\u00e4"_s}, {u"a"_s, QJsonArray{1, 2.5}}};
        QCOMPARE(JsonFile::write(path, object, QJsonDocument::Indented), WriteResult::Written);
        QCOMPARE(sandbox.read(u"file.json"_s),
                 QByteArray("{\n    \"a\": [\n        1,\n        2.5\n    ],\n"
                            "    \"b\": \"\xC3\xA4\"\n}\n"));
        QCOMPARE(JsonFile::write(path, object, QJsonDocument::Compact), WriteResult::Written);
        QCOMPARE(sandbox.read(u"file.json"_s), QByteArray("{\"a\":[1,2.5],\"b\":\"\xC3\xA4\"}"));
    }

    void whatWasWrittenIsReadBack()
    {
        const Sandbox sandbox;
        const QString path = sandbox.path(u"file.json"_s);
        QCOMPARE(write(path, large()), WriteResult::Written);
        const JsonFile::ReadResult result = JsonFile::read(path);
        QVERIFY(result.opened);
        QCOMPARE(result.object, large());
    }

    void replacedFileKeepsItsPermissions_data()
    {
        QTest::addColumn<uint>("mode");
        for (const uint mode : {0600U, 0640U, 0644U, 0660U, 0666U, 0755U})
            QTest::addRow("%o", mode) << mode;
    }

    void replacedFileKeepsItsPermissions()
    {
        QFETCH(const uint, mode);
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path =
            sandbox.write(u"folder/file.json"_s, QByteArray("an older and longer content"));
        setMode(path, mode);
        QCOMPARE(write(path, small()), WriteResult::Written);
        QCOMPARE(sandbox.read(u"folder/file.json"_s), smallText());
        QCOMPARE(modeOf(path), mode);
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
    }

    void symbolicLinkStaysOne_data()
    {
        QTest::addColumn<QString>("linkTarget");
        QTest::addColumn<bool>("targetExists");
        QTest::newRow("file beside it") << u"real.json"_s << true;
        QTest::newRow("file elsewhere") << u"../elsewhere.json"_s << true;
        QTest::newRow("file that does not exist yet") << u"real.json"_s << false;
        QTest::newRow("another link") << u"second.json"_s << true;
    }

    void symbolicLinkStaysOne()
    {
        QFETCH(const QString, linkTarget);
        QFETCH(const bool, targetExists);
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString link = folder + u"/link.json";
        QString realFile = u"folder/"_s + linkTarget;
        if (linkTarget == "second.json"_L1) {
            realFile = u"folder/real.json"_s;
            QVERIFY(QFile::link(u"real.json"_s, folder + u"/second.json"));
        }
        if (targetExists)
            sandbox.write(realFile, "old");
        QVERIFY(QFile::link(linkTarget, link));
        const QStringList files = filesIn(folder);

        QCOMPARE(write(link, small()), WriteResult::Written);
        for (const QString& file : files) {
            if (file != "real.json"_L1)
                QVERIFY2(QFileInfo(folder + u'/' + file).isSymLink(), qPrintable(file));
        }
        QCOMPARE(sandbox.read(realFile), smallText());
        QCOMPARE(filesIn(folder).size(), files.size() + (targetExists ? 0 : 1));
    }

    void folderIsNoTarget()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        sandbox.write(u"folder/file.json"_s, smallText());
        QCOMPARE(write(folder, large()), WriteResult::NotOpened);
        QCOMPARE(write(folder + u"/no/such/file.json", small()), WriteResult::NotOpened);
        QCOMPARE(write(folder + u"/file.json/inside.json", small()), WriteResult::NotOpened);
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
        QCOMPARE(sandbox.read(u"folder/file.json"_s), smallText());
    }

    void newFileInReadOnlyFolderIsNotOpened()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        setMode(folder, 0555);
        {
            const OtherUser user;
            QVERIFY(user.isValid());
            QCOMPARE(write(folder + u"/file.json", small()), WriteResult::NotOpened);
        }
        QCOMPARE(filesIn(folder), QStringList());
        setMode(folder, 0777);
    }

    void readOnlyFileIsNotOpened()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        setMode(path, 0444);
        {
            const OtherUser user;
            QVERIFY(user.isValid());
            QCOMPARE(write(path, small()), WriteResult::NotOpened);
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("old"));
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
    }

    void writableFileInReadOnlyFolderIsWrittenInPlace()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path =
            sandbox.write(u"folder/file.json"_s, QByteArray("an older and longer content"));
        setMode(path, 0666);
        setMode(folder, 0555);
        {
            const OtherUser user;
            QVERIFY(user.isValid());
            QCOMPARE(write(path, small()), WriteResult::Written);
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), smallText());
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
        setMode(folder, 0777);
    }

    void fullDiskLeavesTheOldFileWhole()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        {
            const FullDisk disk;
            QCOMPARE(write(path, large()), WriteResult::NotWritten);
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("old"));
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
    }

    void fullDiskLeavesTheOldSmallFileWhole()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        {
            const FullDisk disk(4);
            QCOMPARE(write(path, small()), WriteResult::NotWritten);
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("old"));
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
    }

    void smallLastPieceOnAFullDiskLeavesTheOldFileWhole()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        {
            const FullDisk disk(70'002);
            WholeFile file(path);
            file.write(QByteArray(70'000, 'x'));
            file.write("12345");
            QCOMPARE(file.commit(), WriteResult::NotWritten);
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("old"));
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
    }

    void pieceIsNotSeenBeforeTheWholeFileIs()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        {
            WholeFile file(path);
            file.write("given up");
        }
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("old"));
        QCOMPARE(filesIn(folder), QStringList{u"file.json"_s});
        WholeFile file(path);
        file.write("ne");
        file.write("w");
        QCOMPARE(file.commit(), WriteResult::Written);
        QCOMPARE(sandbox.read(u"folder/file.json"_s), QByteArray("new"));
    }

    void fullDiskLeavesNoNewFile()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        {
            const FullDisk disk;
            QCOMPARE(write(folder + u"/file.json", large()), WriteResult::NotWritten);
        }
        QCOMPARE(filesIn(folder), QStringList());
    }

    void cutOffWriteInPlaceIsNoSuccess()
    {
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = sandbox.write(u"folder/file.json"_s, "old");
        setMode(path, 0666);
        setMode(folder, 0555);
        {
            const OtherUser user;
            QVERIFY(user.isValid());
            const FullDisk disk;
            QCOMPARE(write(path, large()), WriteResult::NotWritten);
        }
        setMode(folder, 0777);
    }

    void fullDeviceIsNoSuccess()
    {
        const QString device = u"/dev/full"_s;
        struct stat status = {};
        if (stat("/dev/full", &status) != 0 || !S_ISCHR(status.st_mode))
            QSKIP("there is no such device here");
        // Never as root, who could replace the device by a file.
        const OtherUser user;
        QVERIFY(user.isValid());
        if (QFileInfo(u"/dev"_s).isWritable())
            QSKIP("the folder of the devices is writable");
        QCOMPARE(write(device, small()), WriteResult::NotWritten);
        QCOMPARE(write(device, large()), WriteResult::NotWritten);
        QVERIFY(!QFileInfo(device).isFile());
    }

    /// Not even when somebody reads at the other end: whose content a pipe takes is never whole.
    void pipeIsRefused_data()
    {
        QTest::addColumn<bool>("isRead");
        QTest::newRow("nobody reads") << false;
        QTest::newRow("somebody reads") << true;
    }

    void pipeIsRefused()
    {
        QFETCH(const bool, isRead);
        const Deadline deadline;
        const Sandbox sandbox;
        const QString folder = newFolder(sandbox);
        const QString path = folder + u"/pipe";
        const QByteArray name = QFile::encodeName(path);
        QCOMPARE(mkfifo(name.constData(), 0666), 0);
        const int reader = isRead ? open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC) : -1;
        QCOMPARE(reader >= 0, isRead);

        QCOMPARE(write(path, small()), WriteResult::NotOpened);
        char arrived = 0;
        if (isRead)
            QCOMPARE(read(reader, &arrived, 1), ssize_t{0});
        close(reader);
        QVERIFY(!QFileInfo(path).isFile());
        QCOMPARE(filesIn(folder), QStringList{u"pipe"_s});
    }
};

QTEST_MAIN(TestJsonFile)
#include "tst_jsonfile.moc"
