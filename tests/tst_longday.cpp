// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/dialogscript.h"
#include "tests/support/documentwindow.h"
#include "tests/support/sandbox.h"

#include <QBuffer>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <memory>

#ifdef Q_OS_LINUX
#include <malloc.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#if defined(__SANITIZE_ADDRESS__) || !defined(Q_OS_LINUX)
// AddressSanitizer keeps freed memory for a while; it looks for leaks in its own way.
constexpr bool memoryCanBeMeasured = false;
#else
constexpr bool memoryCanBeMeasured = true;
#endif

/// What the program holds in memory, free blocks handed back first, in KiB.
qint64 residentMemory()
{
#ifdef Q_OS_LINUX
    malloc_trim(0);
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no /proc/self/statm");
    return file.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE) / 1024;
#else
    return 0;
#endif
}

QString drawnPicture()
{
    QImage picture(200, 150, QImage::Format_RGB32);
    picture.fill(Qt::yellow);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return QString::fromLatin1(bytes.toBase64());
}

/// An entry with a picture and two spectra.
QByteArray entry(const QString& name)
{
    QJsonArray numbers;
    for (int i = 0; i < 500; ++i)
        numbers.append(10 + i * 0.002);
    QJsonObject file{{u"Type"_s, u"Species v1"_s},
                     {u"Species"_s, QJsonObject{{u"Name"_s, name},
                                                {u"Formula"_s, u"H<sub>2</sub>O"_s},
                                                {u"StructuralFormula"_s, drawnPicture()}}}};
    for (const auto* key : {"Dataset1", "Dataset2"}) {
        file.insert(QLatin1StringView(key),
                    QJsonObject{{u"Title"_s, name}, {u"E"_s, numbers}, {u"I"_s, numbers}});
    }
    return QJsonDocument(file).toJson();
}

} // namespace

/// The window stays open over a thousand entries, and takes no more memory at the end of the day.
class TestLongDay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        sandbox = std::make_unique<Sandbox>();
        QVERIFY(QDir(sandbox->path()).mkdir(u"entries"_s));
        for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
            sandbox->write(u"entries/"_s + name + u".json"_s, entry(name));
        dialogs = std::make_unique<DialogScript>();
        window = std::make_unique<MainWindow>();
        QVERIFY(TestSupport::showActive(*window));
    }

    void cleanup()
    {
        window.reset();
        dialogs.reset();
        sandbox.reset();
    }

    void memoryStopsGrowing()
    {
        constexpr qint64 mostGrowth = 2 * 1024; // KiB
        const bool longForm = qEnvironmentVariableIsSet("KORVELA_ROUNDS");
        const int mostRounds = longForm ? qEnvironmentVariableIntValue("KORVELA_ROUNDS") : 1000;
        const QDeadlineTimer shortForm =
            longForm ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(20'000);

        QList<qint64> memory;
        while (memory.size() < mostRounds && (memory.size() < 20 || !shortForm.hasExpired())) {
            workRound();
            if (QTest::currentTestFailed())
                return;
            memory.append(residentMemory());
        }
        const qsizetype last = memory.size() - 1;
        const qsizetype tenth = memory.size() / 10;
        const qint64 growthBefore = memory.at(last - tenth) - memory.at(last - 2 * tenth);
        const qint64 growth = memory.at(last) - memory.at(last - tenth);
        qInfo("%lld rounds: %lld KiB after the first, %lld KiB at the end; %lld KiB in the last "
              "tenth, %lld KiB in the one before",
              static_cast<long long>(memory.size()), static_cast<long long>(memory.constFirst()),
              static_cast<long long>(memory.constLast()), static_cast<long long>(growth),
              static_cast<long long>(growthBefore));
        if (!memoryCanBeMeasured)
            QSKIP("memory is not measured here");
        QVERIFY2(growth < mostGrowth, QByteArray::number(growth).constData());
    }

    void nothingOfAClosedEntryStaysInTheWindow()
    {
        workRound();
        const qsizetype before = window->findChildren<QObject*>().size();
        for (int round = 0; round < 5 && !QTest::currentTestFailed(); ++round)
            workRound();
        QCOMPARE(window->findChildren<QObject*>().size(), before);
    }

private:
    /// Opens an entry, edits, saves and copies it, steps to the next and empties the window.
    void workRound()
    {
        QVERIFY(window->loadSpecies(sandbox->path(u"entries/a.json"_s)));
        QVERIFY(!TestSupport::child<QLabel>(*window, "imageLabel")->pixmap().isNull());
        auto* comment = TestSupport::child<QTextEdit>(*window, "lineEditVIEComment");
        TestSupport::typeInto(*comment, u"seen"_s);
        QTest::keyClick(comment, Qt::Key_Tab);
        QCOMPARE(TestSupport::cell(*window, SpeciesModel::VieComment), u"seen"_s);

        TestSupport::trigger(*window, "actionNew");
        TestSupport::trigger(*window, "actionDelete");
        TestSupport::trigger(*window, "actionCopy");
        TestSupport::trigger(*window, "actionPaste");
        const SpectrumWindow* pasted = TestSupport::spectra(*window).constLast();
        for (const char* button : {"buttonNormalize", "buttonSparse"})
            QTest::mouseClick(TestSupport::child<QPushButton>(*pasted, button), Qt::LeftButton);
        TestSupport::trigger(*window, "actionDelete");
        TestSupport::trigger(*window, "actionSaveSpecies");

        TestSupport::trigger(*window, "actionNextFile");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - b.json"_s);
        TestSupport::trigger(*window, "actionPreviousFile");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - a.json"_s);
        TestSupport::trigger(*window, "actionClean");
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled)"_s);
        QTRY_VERIFY(window->findChildren<SpectrumWindow*>().isEmpty());
        QVERIFY2(dialogs->passed(), dialogs->report().constData());
    }

    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
    std::unique_ptr<MainWindow> window;
};

QTEST_MAIN(TestLongDay)
#include "tst_longday.moc"
