// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#ifdef __SANITIZE_ADDRESS__
// Its header comes with only one of the compilers.
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef __SANITIZE_ADDRESS__
#define KORVELA_MEMORY_IS_COUNTED
#elif defined(__GLIBC__)
#if __GLIBC_PREREQ(2, 33)
#define KORVELA_MEMORY_IS_COUNTED
#endif
#endif

/// The bytes that the program has allocated and not freed.
qint64 allocatedBytes()
{
#if defined(__SANITIZE_ADDRESS__) // has an allocator of its own
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#elif defined(KORVELA_MEMORY_IS_COUNTED)
    const auto counts = mallinfo2();
    return static_cast<qint64>(counts.uordblks + counts.hblkhd);
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

/// An entry with one spectrum.
QByteArray entryOfPoints(int count)
{
    QJsonArray energies;
    QJsonArray intensities;
    for (int i = 0; i < count; ++i) {
        energies.append(8 + i * 1e-4);
        intensities.append(i * 7919 % 1000 + 0.5);
    }
    const QJsonObject spectrum{{u"E"_s, energies}, {u"I"_s, intensities}};
    return QJsonDocument({{u"Type"_s, u"Species v1"_s}, {u"Dataset1"_s, spectrum}}).toJson();
}

} // namespace

/// The window may stay open over a thousand entries: what is closed is gone, and its memory with
/// it.
class TestMemory : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() override
    {
        WindowTest::init();
        QVERIFY(QDir(sandbox->path()).mkdir(u"entries"_s));
        for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
            sandbox->write(u"entries/"_s + name + u".json"_s, entry(name));
    }

    void everyRoundFreesWhatItTook()
    {
#ifndef KORVELA_MEMORY_IS_COUNTED
        QSKIP("allocated memory is not counted here");
#endif
        constexpr int firstRounds = 5; // fill caches
        constexpr qint64 mostGrowth = 32 * 1024;
        const int rounds = qEnvironmentVariableIsSet("KORVELA_ROUNDS")
                               ? qEnvironmentVariableIntValue("KORVELA_ROUNDS")
                               : 25;
        qint64 before = 0;
        for (int round = 1; round <= rounds; ++round) {
            workRound();
            if (QTest::currentTestFailed())
                return;
            const qint64 after = allocatedBytes();
            const QString growth = u"round %1 took %2 bytes"_s.arg(round).arg(after - before);
            if (round > firstRounds)
                QVERIFY2(after - before < mostGrowth, qPrintable(growth));
            before = after;
        }
    }

    void nothingOfAClosedEntryStaysInTheWindow()
    {
        workRound();
        const qsizetype before = window->findChildren<QObject*>().size();
        for (int round = 0; round < 5 && !QTest::currentTestFailed(); ++round)
            workRound();
        QCOMPARE(window->findChildren<QObject*>().size(), before);
    }

    // With what the toolkit sets aside for each line that it lays out, it would be 600.
    void pointTakesAFewHundredBytes()
    {
#ifndef KORVELA_MEMORY_IS_COUNTED
        QSKIP("allocated memory is not counted here");
#endif
        constexpr int points = 29'000; // what grows by doubling is nearly full
        constexpr int most = 400;      // bytes
        const auto bytesWith = [this](int count) {
            const QString path = sandbox->write(u"points.json"_s, entryOfPoints(count));
            if (!window->openEntry(path))
                return qint64{};
            // Painted, and everything of the entry before is gone.
            QTest::qWait(0);
            window->grab();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return allocatedBytes();
        };
        bytesWith(points); // fills caches
        const qint64 before = bytesWith(1);
        const qint64 after = bytesWith(points);
        QCOMPARE(TestSupport::spectra(*window).constFirst()->model()->points().size(), points);
        const qint64 each = (after - before) / points;
        QVERIFY2(each > 0 && each <= most, qPrintable(u"%1 bytes"_s.arg(each)));
    }

private:
    /// Opens an entry, edits, saves and copies it, steps to the next and empties the window.
    void workRound()
    {
        QVERIFY(window->openEntry(sandbox->path(u"entries/a.json"_s)));
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
};

QTEST_MAIN(TestMemory)
#include "tst_memory.moc"
