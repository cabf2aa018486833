// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/filefacts.h"
#include "tests/support/otheruser.h"
#include "tests/support/traps.h"
#include "tests/support/windowtest.h"

#include <QApplication>
#include <QDate>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>
#include <QTest>

#include <fcntl.h>
#include <functional>
#include <linux/fs.h>
#include <map>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

constexpr uint colleague = 2001;
constexpr uint person = 2002;
constexpr uint team = 3001;
constexpr uint ownGroup = 3002;

enum class Outcome {
    Stored,
    Refused, ///< The message of a target that cannot be opened comes, and all stays as it was.
    Lost     ///< No message, as when a device fails, and all stays as it was.
};

/// What a folder is like before something is saved into it.
struct Situation
{
    Outcome outcome = Outcome::Stored;
    QString target = u"target.json"_s;
    /// Prepares the folder as root; why that cannot be done, or nothing.
    std::function<QString(const QString& folder)> prepare;
};

bool mountsAreOwn = false;

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Makes a file that belongs to @p owner and @p group; it ends the program when it cannot.
void makeFile(const QString& path, uint owner, uint group, uint mode, qsizetype size = 12)
{
    QFile file(path);
    const QByteArray name = QFile::encodeName(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(size, 'o')) != size ||
        !file.flush() || chown(name.constData(), owner, group) != 0 ||
        chmod(name.constData(), mode) != 0)
        qFatal("cannot make %s", name.constData());
}

void setFolder(const QString& path, uint owner, uint group, uint mode)
{
    const QByteArray name = QFile::encodeName(path);
    if (chown(name.constData(), owner, group) != 0 || chmod(name.constData(), mode) != 0)
        qFatal("cannot change %s", name.constData());
}

bool giveAttribute(const QString& path, const char* name, const QByteArray& value)
{
    return setxattr(QFile::encodeName(path).constData(), name, value.constData(),
                    static_cast<size_t>(value.size()), 0) == 0;
}

const auto notAllowed = u"this cannot be set up here"_s;

using Situations = std::vector<std::pair<const char*, Situation>>;

/// Files of others, and files that are not alone.
Situations sharedFiles()
{
    const auto withFolder = [](uint owner, uint group, uint folderMode,
                               const std::function<QString(const QString&)>& rest) {
        return [=](const QString& folder) {
            setFolder(folder, owner, group, folderMode);
            return rest(folder + u"/target.json");
        };
    };
    const auto file = [](uint owner, uint group, uint mode) {
        return [=](const QString& path) {
            makeFile(path, owner, group, mode);
            return QString();
        };
    };
    Situations all;
    const auto add = [&all](const char* name, const auto& prepare, Outcome outcome = {}) {
        all.emplace_back(name, Situation{outcome, u"target.json"_s, prepare});
    };
    add("own file", withFolder(person, ownGroup, 0755, file(person, ownGroup, 0640)));
    add("own file with the group of the team",
        withFolder(person, ownGroup, 0755, file(person, team, 0664)));
    add("foreign file in a sticky folder",
        withFolder(0, 0, 01777, file(colleague, colleague, 0666)));
    add("foreign file of the team in a sticky folder",
        withFolder(0, team, 01775, file(colleague, team, 0664)));
    add("file of a colleague", withFolder(colleague, team, 02775, file(colleague, team, 0664)));
    add("file that may only be written",
        withFolder(colleague, team, 0775, file(colleague, team, 0220)));
    add("file that may only be read",
        withFolder(colleague, team, 0775, file(colleague, team, 0440)), Outcome::Refused);
    add("file in a folder that may not be written",
        withFolder(colleague, team, 0755, file(colleague, team, 0664)));
    add("new file in a folder that may not be written",
        withFolder(colleague, team, 0755, [](const QString&) { return QString(); }),
        Outcome::Refused);
    add("own file in a folder that may not be listed",
        withFolder(colleague, team, 0773, file(person, ownGroup, 0640)));
    add("second name", withFolder(person, ownGroup, 0755, [file](const QString& path) {
            file(person, ownGroup, 0644)(path);
            const bool linked = link(QFile::encodeName(path).constData(),
                                     QFile::encodeName(path + u".other").constData()) == 0;
            return linked ? QString() : notAllowed;
        }));
    return all;
}

/// Files with access lists and attributes.
Situations describedFiles()
{
    const auto described = [](uint owner, auto describe) {
        return [=](const QString& folder) {
            setFolder(folder, owner, ownGroup, 0755);
            const QString path = folder + u"/target.json";
            makeFile(path, owner, ownGroup, 0640);
            return describe(path) ? QString() : notAllowed;
        };
    };
    const auto attributed = [](const QString& path) {
        return giveAttribute(path, "user.origin", "beam line") &&
               giveAttribute(path, "user.empty", "");
    };
    const auto listed = [](const QString& path) { return setAccessList(path, colleague, 6, 4); };
    const auto listedForMe = [](const QString& path) { return setAccessList(path, person, 6, 4); };
    const auto listedFolder = [](const QString& path) {
        return setAccessList(QFileInfo(path).path(), colleague, 6, 4, "system.posix_acl_default");
    };
    return {
        {"attributes", {Outcome::Stored, u"target.json"_s, described(person, attributed)}},
        {"access list", {Outcome::Stored, u"target.json"_s, described(person, listed)}},
        {"writable through an access list only",
         {Outcome::Stored, u"target.json"_s, described(colleague, listedForMe)}},
        {"no access list in a folder that gives one",
         {Outcome::Stored, u"target.json"_s, described(person, listedFolder)}},
    };
}

/// Names and links.
Situations namesAndLinks()
{
    Situations all;
    const auto add = [&all](const char* name, const QString& target, bool exists,
                            const QString& linkTarget = {}, Outcome outcome = {}) {
        const auto prepare = [=](const QString& folder) {
            setFolder(folder, person, ownGroup, 0755);
            const QString real = linkTarget.isEmpty() ? target : linkTarget;
            if (exists)
                makeFile(QDir(folder).filePath(real), person, ownGroup, 0640);
            if (!linkTarget.isEmpty() && !QFile::link(linkTarget, folder + u'/' + target))
                return notAllowed;
            return QString();
        };
        all.emplace_back(name, Situation{outcome, target, prepare});
    };
    for (const int length : {249, 255}) {
        const QString longName = QString(length - 5, u'n') + u".json";
        add(length == 249 ? "name of 249 bytes" : "name of 255 bytes", longName, true);
        add(length == 249 ? "new name of 249 bytes" : "new name of 255 bytes", longName, false);
    }
    add("name of 83 characters of three bytes", QString(83, QChar(0x82ef)) + u".json", true);
    add("odd name", u"-\u00e4 'a' $b&.json"_s, true);
    add("symbolic link", u"link.json"_s, true, u"real.json"_s);
    add("symbolic link to a new file", u"link.json"_s, false, u"real.json"_s);
    add("loop of symbolic links", u"link.json"_s, false, u"link.json"_s, Outcome::Refused);
    return all;
}

/// What is no file.
Situations strangeTargets()
{
    Situations all;
    const auto add = [&all](const char* name, const std::function<bool(const QByteArray&)>& make) {
        const auto prepare = [make](const QString& folder) {
            setFolder(folder, person, ownGroup, 0755);
            const QByteArray path = QFile::encodeName(folder + u"/target.json");
            const bool made = make(path) && chmod(path.constData(), 0666) == 0;
            return made ? QString() : notAllowed;
        };
        all.emplace_back(name, Situation{Outcome::Refused, u"target.json"_s, prepare});
    };
    add("pipe", [](const QByteArray& path) { return mkfifo(path.constData(), 0666) == 0; });
    add("socket", [](const QByteArray& path) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const int end = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const bool fits = path.size() < qsizetype{sizeof(address.sun_path)};
        qstrncpy(address.sun_path, path.constData(), sizeof(address.sun_path));
        const bool made =
            fits && bind(end, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
        close(end);
        return made;
    });
    add("device", [](const QByteArray& path) {
        return mknod(path.constData(), S_IFCHR | 0666, makedev(1, 9)) == 0;
    });
    return all;
}

void makeOldFile(const QString& folder, qsizetype size = 12)
{
    setFolder(folder, person, ownGroup, 0755);
    makeFile(folder + u"/target.json", person, ownGroup, 0640, size);
}

/// A file system in memory with these options, an old file of that size and @p more files.
std::function<QString(const QString&)> inMemory(const char* options, qsizetype size, int more)
{
    return [=](const QString& folder) {
        if (!mountsAreOwn || !mountMemory(folder, options))
            return notAllowed;
        makeOldFile(folder, size);
        for (int i = 0; i < more; ++i)
            close(creat(QFile::encodeName(folder + u"/z%1"_s.arg(i)).constData(), 0644));
        return QString();
    };
}

/// The old file is a mount point, in a folder that otherwise is as usual or can only be read.
std::function<QString(const QString&)> mountPoint(bool inReadOnlyFolder)
{
    return [=](const QString& folder) {
        makeOldFile(folder);
        const bool done = mountsAreOwn && (!inReadOnlyFolder || mountOnItself(folder)) &&
                          mountOnItself(folder + u"/target.json") &&
                          (!inReadOnlyFolder || remountReadOnly(folder));
        return done ? QString() : notAllowed;
    };
}

/// The same, and the old file has a second name, so that it has to be rewritten in place.
std::function<QString(const QString&)> inMemoryWithSecondName(const char* options, qsizetype size,
                                                              int more)
{
    return [=](const QString& folder) {
        const QString problem = inMemory(options, size, more)(folder);
        const QByteArray path = QFile::encodeName(folder + u"/target.json");
        const bool linked = problem.isEmpty() &&
                            link(path.constData(), QByteArray(path + ".other").constData()) == 0;
        return linked ? QString() : notAllowed;
    };
}

std::function<QString(const QString&)> withFlag(int flag, const QString& bearer, bool exists)
{
    return [=](const QString& folder) {
        makeOldFile(folder);
        if (!exists)
            QFile::remove(folder + u"/target.json");
        return setSystemFlag(folder + bearer, flag, true) ? QString() : notAllowed;
    };
}

/// What the file system is like.
Situations fileSystems()
{
    // What is saved has 90 to 190 thousand bytes.
    const QString target = u"target.json"_s;
    return {
        {"no inodes", {Outcome::Refused, target, inMemory("size=9m,nr_inodes=5", 20, 9)}},
        {"no room for a second file",
         {Outcome::Refused, target, inMemory("size=280k", 200'000, 0)}},
        {"second name and no inodes",
         {Outcome::Refused, target, inMemoryWithSecondName("size=9m,nr_inodes=6", 20, 3)}},
        {"second name and no room for a copy",
         {Outcome::Refused, target, inMemoryWithSecondName("size=280k", 200'000, 0)}},
        {"second name, a copy and no room to grow",
         {Outcome::Refused, target, inMemoryWithSecondName("size=200k", 20, 0)}},
        {"second name and room",
         {Outcome::Stored, target, inMemoryWithSecondName("size=9m", 20, 0)}},
        {"no room", {Outcome::Lost, target, inMemory("size=60k", 20'000, 0)}},
        {"room", {Outcome::Stored, target, inMemory("size=9m", 200'000, 0)}},
        {"mount point", {Outcome::Stored, target, mountPoint(false)}},
        {"mount point in a read-only folder", {Outcome::Stored, target, mountPoint(true)}},
        {"append-only folder", {Outcome::Stored, target, withFlag(FS_APPEND_FL, {}, true)}},
        {"new file in an append-only folder",
         {Outcome::Stored, target, withFlag(FS_APPEND_FL, {}, false)}},
        {"immutable file",
         {Outcome::Refused, target, withFlag(FS_IMMUTABLE_FL, u"/target.json"_s, true)}},
    };
}

void clear(const QString& folder)
{
    unmount(folder + u"/target.json");
    unmount(folder); // the file system in memory, or the read-only view
    setSystemFlag(folder, FS_APPEND_FL, false);
    setSystemFlag(folder + u"/target.json", FS_IMMUTABLE_FL, false);
}

const Situations& situations()
{
    static const Situations all = [] {
        Situations joined;
        for (const Situations& some :
             {sharedFiles(), describedFiles(), namesAndLinks(), strangeTargets(), fileSystems()})
            joined.insert(joined.end(), some.begin(), some.end());
        return joined;
    }();
    return all;
}

enum Kind { Entry, Spectrum, Database };

QByteArray largeEntry()
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < 3500; ++i) {
        energies.append(10 + i * 0.001);
        intensities.append(i);
    }
    const QJsonObject dataset{{u"Title"_s, u"one"_s}, {u"E"_s, energies}, {u"I"_s, intensities}};
    return QJsonDocument(QJsonObject{{u"Type"_s, u"Species v1"_s},
                                     {u"Species"_s, QJsonObject{{u"Name"_s, u"Water"_s}}},
                                     {u"Dataset1"_s, dataset}})
        .toJson();
}

} // namespace

/// Saving entries, spectra and databases as a person does, where saving is not as simple as at
/// home: what is saved without a word is stored, whole, in what is otherwise still the same file.
class TestSavedFiles : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (geteuid() != 0)
            QSKIP("only root can make files of others, mount file systems and become another user");
        umask(022);
    }

    void init() override
    {
        WindowTest::init();
        folder = sandbox->path(u"files"_s);
        QVERIFY(QDir(sandbox->path()).mkdir(u"files"_s) && QDir(sandbox->path()).mkdir(u"in"_s));
        setFolder(sandbox->path(), 0, 0, 0755);
        source = sandbox->write(u"in/source.json"_s, largeEntry());
        QVERIFY(window->openEntry(source));
    }

    void cleanup() override
    {
        clear(folder);
        WindowTest::cleanup();
    }

    void savedOrRefused_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("number");
        for (size_t i = 0; i < situations().size(); ++i) {
            QTest::addRow("entry: %s", situations()[i].first) << int(Entry) << int(i);
            QTest::addRow("spectrum: %s", situations()[i].first) << int(Spectrum) << int(i);
            QTest::addRow("database: %s", situations()[i].first) << int(Database) << int(i);
        }
    }

    void savedOrRefused()
    {
        QFETCH(const int, kind);
        QFETCH(const int, number);
        const Deadline deadline;
        const Situation& situation = situations()[static_cast<size_t>(number)].second;
        const QString problem = situation.prepare(folder);
        if (!problem.isEmpty())
            QSKIP(qPrintable(problem));
        const QByteArray wanted = wantedOf(kind);
        QVERIFY(wanted.size() > 90'000 && wanted.size() < 190'000);

        const QString path = folder + u'/' + situation.target;
        const FileFacts before = FileFacts::of(path);
        const QByteArray old = contentOf(path);
        QStringList files = allIn(folder);
        {
            const OtherUser user(person, ownGroup, team);
            QVERIFY(user.isValid());
            save(kind, path, situation.outcome);
        }
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        const bool stored = situation.outcome == Outcome::Stored;
        QVERIFY(contentOf(path) == (stored ? wanted : old) ||
                (stored && contentOf(path) == wantedOf(kind)));
        if (before.exists || !stored)
            QCOMPARE(FileFacts::of(path).describe(), before.describe());
        else
            verifyNewFile(path);
        if (before.names == 2 && stored)
            QVERIFY(contentOf(path + u".other") == wanted);
        const QString made = QFileInfo(QFileInfo(path).canonicalFilePath()).fileName();
        if (stored && !files.contains(made))
            files.append(made);
        files.sort();
        QCOMPARE(allIn(folder), files);
    }

private:
    /// What is stored where nothing is special; saved once a day, as databases have a date.
    QByteArray wantedOf(int kind)
    {
        static std::map<std::pair<int, QDate>, QByteArray> known;
        QByteArray& bytes = known[{kind, QDate::currentDate()}];
        if (bytes.isEmpty()) {
            const QString plain = sandbox->path(u"in/plain.json"_s);
            save(kind, plain, Outcome::Stored);
            bytes = bytesOf(plain);
        }
        return bytes;
    }

    static void verifyNewFile(const QString& path)
    {
        const FileFacts facts = FileFacts::of(path);
        QCOMPARE(facts.owner, person);
        QCOMPARE(facts.mode, S_IFREG | 0644U);
        QCOMPARE(facts.names, 1U);
        QVERIFY(facts.attributes.isEmpty());
    }

    /// Nothing for what is no file: reading a pipe would wait.
    static QByteArray contentOf(const QString& path)
    {
        return QFileInfo(path).isFile() ? bytesOf(path) : QByteArray();
    }

    void save(int kind, const QString& path, Outcome outcome)
    {
        const bool refused = outcome == Outcome::Refused;
        if (kind == Entry) {
            expectTarget(u"Save Species JSON File"_s, path);
            if (refused)
                dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                                   u"Could not open file for writing."_s);
            trigger(*window, "actionSaveSpeciesAs");
            QCOMPARE(window->windowTitle().endsWith(u" *"), false);
        } else if (kind == Spectrum) {
            expectTarget(u"Save Spectrum"_s, path);
            if (refused)
                dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                                   u"Could not open file for writing"_s);
            trigger(*window, "actionSaveSpectrumAs");
        } else {
            compile(path, refused);
        }
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    void compile(const QString& path, bool refused)
    {
        dialogs->expect([](QWidget& dialog) {
            for (const char* button : {"pushButton_3", "pushButton", "pushButton_2"})
                QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
            const auto* box = child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        expectTarget(u"Database will be saved to..."_s, path);
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s, source);
        if (refused)
            dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                               u"Failed to create species database."_s);
        else
            dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                               u"Species database created successfully."_s);
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
    }

    /// The file dialog, and its question when there is such a file.
    void expectTarget(const QString& title, const QString& path)
    {
        dialogs->expectFileDialog(title, path);
        if (!QFileInfo::exists(path))
            return;
        dialogs->expect([](QWidget& question) {
            QTest::mouseClick(qobject_cast<QMessageBox*>(&question)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
    }

    QString folder;
    QString source;
};

int main(int argc, char* argv[])
{
    mountsAreOwn = enterOwnMounts();
    const QApplication application(argc, argv);
    TestSavedFiles test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_savedfiles.moc"
