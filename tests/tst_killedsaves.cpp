// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/fulldisk.h"
#include "tests/support/sandboxtest.h"
#include "widgets/elidedlabel.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QTextEdit>

#include <climits>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// An entry of several megabytes, every dataset of which differs from that of another @p name.
QByteArray largeEntry(const QString& name, double firstEnergy)
{
    QJsonObject file{{u"Type"_s, u"Species v1"_s}, {u"Species"_s, QJsonObject{{u"Name"_s, name}}}};
    for (int number = 1; number <= 20; ++number) {
        QJsonArray energies;
        QJsonArray intensities;
        for (int i = 0; i < 5000; ++i) {
            energies.append(firstEnergy + i * 0.001);
            intensities.append(number * i);
        }
        file.insert(u"Dataset"_s + QString::number(number),
                    QJsonObject{{u"Title"_s, name}, {u"E"_s, energies}, {u"I"_s, intensities}});
    }
    return QJsonDocument(file).toJson();
}

QByteArray largeSpectrum()
{
    QJsonArray numbers;
    for (int i = 0; i < 5000; ++i)
        numbers.append(i);
    return QJsonDocument(QJsonObject{{u"Type"_s, u"Spectrum v1"_s},
                                     {u"Title"_s, u"large"_s},
                                     {u"E"_s, numbers},
                                     {u"I"_s, numbers}})
        .toJson();
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

/// Saving is whole or nothing: a program that is killed and a disk that is full leave the old file
/// or the new one, and nothing in between.
class TestKilledSaves : public SandboxTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        SandboxTest::init();
        QVERIFY(QDir(sandbox->path()).mkdir(u"files"_s));
    }

    void killedSaveLeavesTheOldEntryOrTheNewOne_data()
    {
        QTest::addColumn<bool>("inPlace");
        QTest::newRow("replaced") << false;
        QTest::newRow("in place") << true;
    }

    /// What a killed save may leave behind is its own temporary file beside the entry: no program
    /// can tidy up after its own SIGKILL. An entry with a second name is rewritten in place, and
    /// may be torn; then a complete copy of the new one stands beside it.
    void killedSaveLeavesTheOldEntryOrTheNewOne()
    {
        QFETCH(const bool, inPlace);
        MainWindow first;
        MainWindow second;
        const QByteArray firstText = savedBy(first, largeEntry(u"first"_s, 10));
        const QByteArray secondText = savedBy(second, largeEntry(u"second"_s, 20.5));
        QVERIFY(firstText.size() > 2'000'000);
        QVERIFY(firstText != secondText);
        if (inPlace)
            QCOMPARE(link(QFile::encodeName(inFolder(u"entry.json"_s)).constData(),
                          QFile::encodeName(sandbox->path(u"other"_s)).constData()),
                     0);

        // The long form (KORVELA_KILLS=300) needs a larger QTEST_FUNCTION_TIMEOUT on a slow
        // machine.
        const int kills = qEnvironmentVariableIsSet("KORVELA_KILLS")
                              ? qEnvironmentVariableIntValue("KORVELA_KILLS")
                              : 40;
        const unsigned aSave = microsecondsOfASave(first);
        QRandomGenerator random(20260101);
        Findings findings;
        for (int kill = 0; kill < kills; ++kill) {
            const pid_t child = fork();
            QVERIFY(child >= 0);
            if (child == 0 && kill % 4 < 2)
                saveForEver(first, second);
            if (child == 0)
                saveForEver(second, first);

            // Half of them at any moment, the others while a file is being written.
            usleep(random.bounded(2 * aSave));
            if (kill % 2 == 1) {
                if (inPlace)
                    waitForCopy();
                else
                    waitForOpenFile(child);
                usleep(random.bounded(3'000U));
            }
            findings.interrupted += killed(child) ? 1 : 0;
            if (QTest::currentTestFailed())
                return;
            lookAt(firstText, secondText, inPlace, findings);
            if (QTest::currentTestFailed())
                return;
        }
        qInfo("%d kills: %d times the first entry, %d times the second, %d times a copy beside; "
              "%d saves interrupted, %d temporary files left",
              kills, findings.first, findings.second, findings.torn, findings.interrupted,
              findings.left);
        QVERIFY(findings.first > 0);
        QVERIFY(findings.second > 0);
#ifdef Q_OS_LINUX
        QVERIFY(findings.interrupted > 0);
#endif
        QCOMPARE(filesIn(folder()), QStringList{u"entry.json"_s});
    }

    void fullDiskLeavesTheOldEntryWithoutAMessage()
    {
        MainWindow window;
        const QByteArray old = savedBy(window, largeEntry(u"first"_s, 10));
        QVERIFY(TestSupport::showActive(window));
        auto* name = TestSupport::child<QTextEdit>(window, "lineEditSpecies");
        TestSupport::typeInto(*name, u"changed"_s);
        QTest::keyClick(name, Qt::Key_Tab);
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - entry.json *"_s);
        {
            const FullDisk disk;
            TestSupport::trigger(window, "actionSaveSpecies");
        }
        QCOMPARE(window.windowTitle(), u"KORVELA Entry Edit - entry.json"_s);
        verifyToldInTheStatusBar(window, u"Entry"_s);
        QCOMPARE(sandbox->read(u"files/entry.json"_s), old);
        QCOMPARE(filesIn(folder()), QStringList{u"entry.json"_s});

        // With room again, the same window saves what was typed.
        TestSupport::trigger(window, "actionSaveSpecies");
        QVERIFY(sandbox->read(u"files/entry.json"_s).contains("\"changed\""));
    }

    void fullDiskLeavesTheOldSpectrumWithoutAMessage()
    {
        const QString path = sandbox->write(u"files/spectrum.json"_s, "the older spectrum");
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        const QString source = sandbox->write(u"large.json"_s, largeSpectrum());
        dialogs->expectFileDialog(u"Open Spectrum JSON File"_s, source);
        TestSupport::trigger(window, "actionLoadSpectrum");
        QCOMPARE(TestSupport::spectrumTitles(window), QStringList{u"large"_s});

        dialogs->expectFileDialog(u"Save Spectrum"_s, path);
        expectReplaceQuestion();
        {
            const FullDisk disk;
            TestSupport::trigger(window, "actionSaveSpectrumAs");
        }
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        verifyToldInTheStatusBar(window, u"Spectrum"_s);
        QCOMPARE(sandbox->read(u"files/spectrum.json"_s), "the older spectrum");
        QCOMPARE(filesIn(folder()), QStringList{u"spectrum.json"_s});
    }

    void fullDiskLeavesTheOldDatabaseAndReportsSuccess()
    {
        const QString path = sandbox->write(u"files/all.json"_s, "the older database");
        const QString source = sandbox->write(u"large.json"_s, largeEntry(u"first"_s, 10));
        MainWindow window;
        dialogs->expect([](QWidget& dialog) {
            QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton"),
                              Qt::LeftButton);
            QTest::mouseClick(TestSupport::child<QPushButton>(dialog, "pushButton_2"),
                              Qt::LeftButton);
            const auto* box = TestSupport::child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        dialogs->expectFileDialog(u"Database will be saved to..."_s, path);
        expectReplaceQuestion();
        dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s, source);
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
        {
            const FullDisk disk;
            QVERIFY(QMetaObject::invokeMethod(&window, "createSpeciesDatabase"));
        }
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
        verifyToldInTheStatusBar(window, u"Database"_s);
        QCOMPARE(sandbox->read(u"files/all.json"_s), "the older database");
        QCOMPARE(filesIn(folder()), QStringList{u"all.json"_s});
    }

private:
    static void verifyToldInTheStatusBar(const QWidget& window, const QString& what)
    {
        const QString last = TestSupport::child<ElidedLabel>(window, "statusLast")->wholeText();
        QVERIFY2(last.startsWith(what + u" not saved at "_s), qPrintable(last));
        QVERIFY2(last.contains("the disk did not take it"_L1), qPrintable(last));
    }

    /// What the kills have left, counted.
    struct Findings
    {
        int first = 0;
        int second = 0;
        int torn = 0;        ///< With a complete copy beside.
        int interrupted = 0; ///< A file was open at that moment.
        int left = 0;
    };

    /// Kills the process; whether it had a file open.
    bool killed(pid_t child) const
    {
        int status = 0;
        if (::kill(child, SIGSTOP) != 0 || waitpid(child, &status, WUNTRACED) != child ||
            !WIFSTOPPED(status))
            qFatal("it ended by itself");
        const bool wasSaving = hasFileOpen(child);
        if (::kill(child, SIGKILL) != 0 || waitpid(child, &status, 0) != child ||
            !WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
            qFatal("it ended by itself");
        return wasSaving;
    }

    void lookAt(const QByteArray& firstText, const QByteArray& secondText, bool inPlace,
                Findings& findings) const
    {
        const QByteArray found = sandbox->read(u"files/entry.json"_s);
        if (found == firstText || found == secondText) {
            ++(found == firstText ? findings.first : findings.second);
        } else {
            QVERIFY2(inPlace, qPrintable(u"torn: %1 bytes"_s.arg(found.size())));
            const QStringList copies =
                QDir(folder()).entryList({u"entry.json.whole-??????"_s}, QDir::Files);
            QCOMPARE(copies.size(), 1);
            const QByteArray copy = sandbox->read(u"files/"_s + copies.constFirst());
            QVERIFY(copy == firstText || copy == secondText);
            ++findings.torn;
            sandbox->write(u"files/entry.json"_s, copy);
        }
        findings.left += removeLeftOver();
    }

    [[nodiscard]] QString folder() const
    {
        return sandbox->path(u"files"_s);
    }
    [[nodiscard]] QString inFolder(const QString& name) const
    {
        return folder() + u'/' + name;
    }

    /// What the window saves after it has opened the entry as entry.json, which it goes on saving
    /// to.
    [[nodiscard]] QByteArray savedBy(MainWindow& window, const QByteArray& entry) const
    {
        if (!window.openEntry(sandbox->write(u"files/entry.json"_s, entry)))
            qFatal("the entry was not opened");
        TestSupport::trigger(window, "actionSaveSpecies");
        return sandbox->read(u"files/entry.json"_s);
    }

    /// The life of a child process: it is never to come back into the test.
    [[noreturn]] static void saveForEver(const MainWindow& one, const MainWindow& other)
    {
        // An orphan of a test that was itself killed goes on for a minute and no longer.
        alarm(60);
        for (;;) {
            TestSupport::trigger(one, "actionSaveSpecies");
            TestSupport::trigger(other, "actionSaveSpecies");
        }
    }

    [[nodiscard]] static unsigned microsecondsOfASave(const MainWindow& window)
    {
        QElapsedTimer timer;
        timer.start();
        TestSupport::trigger(window, "actionSaveSpecies");
        return static_cast<unsigned>(timer.nsecsElapsed() / 1000) + 1;
    }

    /// Whether the process has a file open in the folder, named or not; seen on Linux only.
    [[nodiscard]] bool hasFileOpen(pid_t process) const
    {
        const QByteArray inside = QFile::encodeName(folder()) + '/';
        const QByteArray table = "/proc/" + QByteArray::number(process) + "/fd/";
        for (int descriptor = 0; descriptor < 64; ++descriptor) {
            QByteArray target(PATH_MAX, '\0');
            const QByteArray link = table + QByteArray::number(descriptor);
            if (readlink(link.constData(), target.data(), PATH_MAX) > 0 &&
                target.startsWith(inside))
                return true;
        }
        return false;
    }

    /// Looks often, as the file is open for a moment only; gives up after some seconds.
    void waitForOpenFile(pid_t process) const
    {
        for (int look = 0; look < 20'000 && !hasFileOpen(process); ++look)
            usleep(200);
    }

    /// The same for the copy beside an entry that is being rewritten.
    void waitForCopy() const
    {
        for (int look = 0; look < 20'000 && filesIn(folder()).size() < 2; ++look)
            usleep(100);
    }

    int removeLeftOver() const
    {
        int removed = 0;
        const QStringList files = filesIn(folder());
        for (const QString& file : files) {
            const bool isLeftOver =
                file.startsWith("entry.json.part-"_L1) || file.startsWith("entry.json.whole-"_L1);
            if (isLeftOver && QFile::remove(inFolder(file)))
                ++removed;
        }
        return removed;
    }

    void expectReplaceQuestion()
    {
        dialogs->expect([](QWidget& question) {
            QTest::mouseClick(qobject_cast<QMessageBox*>(&question)->button(QMessageBox::Yes),
                              Qt::LeftButton);
        });
    }
};

QTEST_MAIN(TestKilledSaves)
#include "tst_killedsaves.moc"
