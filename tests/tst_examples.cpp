// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/mainwindow.h"
#include "species/casnumber.h"
#include "species/fileorder.h"
#include "species/speciesfile.h"
#include "species/structurepicture.h"
#include "spectrum/spectrummodel.h"
#include "support/jsonfile.h"
#include "tests/support/child.h"
#include "tests/support/sandbox.h"

#include <QAction>
#include <QDir>
#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QDir examples()
{
    return QDir(QStringLiteral(KORVELA_EXAMPLES_FOLDER));
}

QStringList entryNames(const QDir& folder)
{
    return folder.entryList({u"*.json"_s}, QDir::Files, QDir::Name);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QJsonObject exampleNamed(const QString& name)
{
    return JsonFile::read(examples().filePath(name)).object;
}

void addRowForEachExample()
{
    QTest::addColumn<QString>("name");
    const QStringList names = entryNames(examples());
    for (const QString& name : names)
        QTest::newRow(qPrintable(name)) << name;
}

int numberIn(const QString& name)
{
    static const QRegularExpression number(u"^entry(\\d+)-"_s);
    return number.match(name).captured(1).toInt();
}

bool isAscending(const QStringList& names)
{
    return std::is_sorted(names.cbegin(), names.cend(), [](const QString& a, const QString& b) {
        return numberIn(a) < numberIn(b);
    });
}

} // namespace

/// The entries that come with the program.
class TestExamples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAreSeveral() { QVERIFY(entryNames(examples()).size() >= 5); }

    void namesStepInNaturalOrder()
    {
        const QStringList names = entryNames(examples());
        for (const QString& name : names)
            QVERIFY2(numberIn(name) > 0, qPrintable(name));
        QVERIFY(isAscending(inSteppingOrder(names)));
        // Sorted as text they would not be: the names show what the natural order is good for.
        QVERIFY(!isAscending(names));
    }

    void recordIsComplete_data() { addRowForEachExample(); }
    void recordIsComplete()
    {
        QFETCH(const QString, name);
        const QJsonObject file = exampleNamed(name);
        QVERIFY(SpeciesFile::isSpeciesFile(file));
        const QJsonObject species = SpeciesFile::species(file);
        const auto text = [&species](const char* key) {
            return species.value(QLatin1StringView(key)).toString();
        };
        for (const char* key :
             {"Name", "Aliases", "Formula", "InChI", "PubChem", "AIE", "AIE_Comment"})
            QVERIFY2(!text(key).isEmpty(), key);
        QVERIFY(isValidCasNumber(text("CAS")));
        QVERIFY(species.value("Mass"_L1).toDouble() > 0.0);
        QVERIFY(!StructurePicture::fromBase64(text("StructuralFormula")).isNull());
    }

    void spectraSayThatTheyAreComputed_data() { addRowForEachExample(); }
    void spectraSayThatTheyAreComputed()
    {
        QFETCH(const QString, name);
        const QList<QJsonObject> datasets = SpeciesFile::datasets(exampleNamed(name));
        for (const QJsonObject& dataset : datasets) {
            const auto text = [&dataset](const char* key) {
                return dataset.value(QLatin1StringView(key)).toString();
            };
            QCOMPARE(dataset.value("SpectType"_L1).toInt(-1), int(SpectrumModel::FcSimulation));
            for (const char* key : {"Title", "FurtherComments"})
                QVERIFY2(text(key).contains("omputed"_L1), key);
            QVERIFY(!text("LevelOfTheory").isEmpty());
            const bool lines = dataset.value("LineSpectrum"_L1).toBool();
            QCOMPARE(text("ConvolutionFWHM").isEmpty(), lines);
        }
    }

    /// Energies ascend, the strongest value is the full scale and the first line is the 0-0
    /// transition, which is the adiabatic ionisation energy of the species.
    void pointsAreSpectrum_data() { addRowForEachExample(); }
    void pointsAreSpectrum()
    {
        QFETCH(const QString, name);
        const QJsonObject file = exampleNamed(name);
        const QString energyOfSpecies = SpeciesFile::species(file).value("AIE"_L1).toString();
        const QList<QJsonObject> datasets = SpeciesFile::datasets(file);
        for (const QJsonObject& dataset : datasets) {
            SpectrumModel model;
            model.fromJson(dataset);
            const QList<QPointF> points = model.points();
            QVERIFY(points.size() >= 2);
            double highest = 0.0;
            for (qsizetype i = 0; i < points.size(); ++i) {
                QVERIFY(i == 0 || points.at(i).x() > points.at(i - 1).x());
                highest = std::max(highest, points.at(i).y());
            }
            QCOMPARE(highest, 1000.0);

            const QString origin = dataset.value("AIE"_L1).toString();
            QVERIFY(energyOfSpecies.startsWith(origin + u' '));
            if (dataset.value("LineSpectrum"_L1).toBool())
                QCOMPARE(points.constFirst().x(), origin.toDouble());
        }
    }

    void savingUneditedChangesNothing_data() { addRowForEachExample(); }
    void savingUneditedChangesNothing()
    {
        QFETCH(const QString, name);
        const Sandbox sandbox;
        const QString copy = sandbox.write(name, contentOf(examples().filePath(name)));
        MainWindow window;
        QVERIFY(TestSupport::showActive(window));
        QVERIFY(window.openEntry(copy));
        // Removed, so that what is compared is what was saved.
        QVERIFY(QFile::remove(copy));
        TestSupport::child<QAction>(window, "actionSaveSpecies")->trigger();

        const JsonFile::ReadResult saved = JsonFile::read(copy);
        QVERIFY(!saved.object.isEmpty());
        QCOMPARE(saved.object, exampleNamed(name));
    }

    void generatorReproducesThem()
    {
        const Sandbox sandbox;
        const QDir made(sandbox.path(u"made"_s));
        QProcess generator;
        generator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        generator.start(QStringLiteral(KORVELA_EXAMPLES_PROGRAM), {made.path()});
        QVERIFY(generator.waitForFinished());
        QCOMPARE(generator.exitStatus(), QProcess::NormalExit);
        QCOMPARE(generator.exitCode(), 0);

        const QStringList names = entryNames(made);
        QCOMPARE(names, entryNames(examples()));
        for (const QString& name : names) {
            QVERIFY2(contentOf(made.filePath(name)) == contentOf(examples().filePath(name)),
                     qPrintable(name));
        }
    }

    void generatorWantsOneFolder()
    {
        QProcess generator;
        generator.start(QStringLiteral(KORVELA_EXAMPLES_PROGRAM), QStringList());
        QVERIFY(generator.waitForFinished());
        QCOMPARE(generator.exitCode(), 2);
        QVERIFY(generator.readAllStandardError().contains("usage: korvela-examples <folder>"));
    }
};

QTEST_MAIN(TestExamples)
#include "tst_examples.moc"
