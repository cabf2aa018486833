// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "species/speciesfile.h"
#include "spectrum/spectrumcontainer.h"
#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/cleantextedit.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QJsonArray>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

using namespace TestSupport;
using namespace Qt::StringLiterals;

namespace {

/// Everything that means something in HTML, in JSON or to the tag filter, between "[" and "]".
const QString oddText = u"[<b>x</b> <sub>y</sub> <BR> a<b & c>d &lt; \"q\" \\ 50 \u00b5m]"_s;
const QString oddTextFiltered = u"[x <sub>y</sub>  ad &lt; \"q\" \\ 50 \u00b5m]"_s;

constexpr int typeCount = 6;

} // namespace

/// Files of every kind, filled as oddly as a person can fill them. What they hold is compared here;
/// .ci/check-schemas validates them.
class TestWrittenFiles : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void emptyEntry()
    {
        const QJsonObject file = saveEntry(u"empty.json"_s);
        QCOMPARE(file.keys(), QStringList({u"Species"_s, u"Type"_s}));
        QVERIFY(!SpeciesFile::species(file).contains(u"StructuralFormula"));
    }

    void entryWithOddTexts()
    {
        fill(*child<QWidget>(*window, "dockWidgetContents"), oddText);
        const QJsonObject species = SpeciesFile::species(saveEntry(u"odd.json"_s));
        for (const QString& key :
             {u"Name"_s, u"Aliases"_s, u"Formula"_s, u"InChI"_s, u"CAS"_s, u"PubChem"_s, u"AIE"_s,
              u"VIE"_s, u"AIE_Comment"_s, u"VIE_Comment"_s})
            QCOMPARE(species[key], QJsonValue(oddTextFiltered));
        QCOMPARE(species[u"Mass"], QJsonValue(0));
    }

    void entryWithoutFiniteMass_data()
    {
        QTest::addColumn<int>("unused");
        for (const char* typed : {"nan", "inf", "-inf", "1e400", "-1e400"})
            QTest::newRow(typed) << 0;
    }

    void entryWithoutFiniteMass()
    {
        fill(*child<QWidget>(*window, "dockWidgetContents"),
             QString::fromLatin1(QTest::currentDataTag()));
        const QJsonObject species = SpeciesFile::species(saveEntry(u"heavy.json"_s));
        QCOMPARE(species[u"Mass"], QJsonValue(0));
    }

    void entryWithPictureAndWithThePictureTakenAway()
    {
        auto* model = window->findChild<SpeciesModel*>();
        QImage picture(3, 2, QImage::Format_ARGB32);
        picture.fill(Qt::transparent);
        model->setValue(SpeciesModel::StructureImage, picture);
        QVERIFY(SpeciesFile::species(saveEntry(u"picture.json"_s))[u"StructuralFormula"]
                    .toString()
                    .startsWith(u"iVBORw0KGgo"));
        model->setValue(SpeciesModel::StructureImage, QVariant());
        QCOMPARE(SpeciesFile::species(saveEntry(u"cleared.json"_s))[u"StructuralFormula"],
                 QJsonValue(QString()));
    }

    void spectraOfEveryType()
    {
        for (int type = 0; type < typeCount; ++type) {
            trigger(*window, "actionNew");
            SpectrumWindow* spectrum = spectra(*window).constLast();
            child<QComboBox>(*spectrum, "comboBoxType")->setCurrentIndex(type);
            fill(*spectrum, oddText);
            if (type % 2 == 1)
                child<QCheckBox>(*spectrum, "checkBoxLineSpectrum")->click();
            QGuiApplication::clipboard()->setText(
                u"E / eV, I\n10.5 200\n1e-7;-2E3\n11, nan\ninf\t3\n1234.5678 0.1"_s);
            child<QPlainTextEdit>(*spectrum, "textEditSpect")->paste();
        }
        const QList<SpectrumWindow*> filled = spectra(*window);
        for (const SpectrumWindow* spectrum : filled)
            QTRY_COMPARE_WITH_TIMEOUT(spectrum->model()->points().size(), 5, TestSupport::patience);

        // Each one to a file, and through the clipboard back into the entry.
        QList<QJsonObject> containers;
        const QList<QMdiSubWindow*> originals = subWindows(*window);
        for (QMdiSubWindow* original : originals) {
            child<QMdiArea>(*window, "mdiArea")->setActiveSubWindow(original);
            const QString path = sandbox->path(u"spectrum%1.json"_s.arg(containers.size()));
            dialogs->expectFileDialog(u"Save Spectrum"_s, path);
            trigger(*window, "actionSaveSpectrumAs");
            containers.append(JsonFile::read(path).object);
            trigger(*window, "actionCopy");
            trigger(*window, "actionPaste");
        }

        const QJsonObject file = saveEntry(u"all.json"_s);
        QCOMPARE(SpeciesFile::datasets(file).size(), 2 * typeCount);
        for (int type = 0; type < typeCount; ++type) {
            const QJsonObject dataset = file[u"Dataset%1"_s.arg(type + 1)].toObject();
            QCOMPARE(SpectrumContainer::wrap(dataset), containers.at(type));
            QCOMPARE(dataset[u"SpectType"], QJsonValue(type));
            QCOMPARE(dataset[u"LineSpectrum"], QJsonValue(type % 2 == 1));
            // Every coordinate is a number, what is typed for none included.
            QCOMPARE(dataset[u"E"], QJsonValue(QJsonArray{10.5, 1e-7, 11, 0, 1234.5678}));
            QCOMPARE(dataset[u"I"], QJsonValue(QJsonArray{200, -2e3, 0, 3, 0.1}));
            // Loading rounds.
            const QJsonObject pasted = file[u"Dataset%1"_s.arg(type + 1 + typeCount)].toObject();
            QCOMPARE(pasted[u"E"], QJsonValue(QJsonArray{10.5, 1e-7, 11, 0, 1234.57}));
            QCOMPARE(pasted[u"I"], QJsonValue(QJsonArray{200, -2e3, 0, 3, 0.1}));
        }
    }

    void olderPointsAreWrittenInTheNewForm()
    {
        QGuiApplication::clipboard()->setText(
            uR"({"Type": "Spectrum v1", "Spectrum": [{"E": 9.26, "I": 0}, {"E": 9.3, "I": 1}]})"_s);
        trigger(*window, "actionPaste");
        const QJsonObject dataset = SpeciesFile::datasets(saveEntry(u"older.json"_s)).constFirst();
        QVERIFY(!dataset.contains(u"Spectrum"));
        QCOMPARE(dataset[u"E"], QJsonValue(QJsonArray{9.26, 9.3}));
        QCOMPARE(dataset[u"I"], QJsonValue(QJsonArray{0, 1}));
    }

    void databaseOfSavedEntries_data()
    {
        QTest::addColumn<bool>("compact");
        QTest::newRow("indented") << false;
        QTest::newRow("compact") << true;
    }

    void databaseOfSavedEntries()
    {
        QFETCH(const bool, compact);
        saveEntry(u"empty.json"_s);
        trigger(*window, "actionNew");
        saveEntry(u"spectrum.json"_s);

        dialogs->expect([compact](QWidget& dialog) {
            for (const char* button : {"pushButton", "pushButton_2", "pushButton_2"})
                QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
            if (compact)
                child<QCheckBox>(dialog, "checkBox")->click();
            const auto* box = child<QDialogButtonBox>(dialog, "buttonBox");
            QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        const QString path = sandbox->path(u"database.json"_s);
        dialogs->expectFileDialog(u"Database will be saved to..."_s, path);
        for (const QString& name : {u"empty.json"_s, u"spectrum.json"_s})
            dialogs->expectFileDialog(u"Select JSON Files to be added to the database"_s,
                                      sandbox->path(name));
        dialogs->expectBox(QMessageBox::Information, u"Success"_s,
                           u"Species database created successfully."_s);
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QCOMPARE(JsonFile::read(path).object.keys(),
                 QStringList({u"Entry1"_s, u"Entry2"_s, u"Header"_s, u"Type"_s}));
    }

private:
    /// Types the text into every field.
    static void fill(const QWidget& form, const QString& text)
    {
        const QList<CleanTextEdit*> fields = form.findChildren<CleanTextEdit*>();
        for (CleanTextEdit* field : fields) {
            typeInto(*field, text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
    }

    /// Saves the entry under that name and returns what the file holds.
    QJsonObject saveEntry(const QString& name)
    {
        dialogs->expectFileDialog(u"Save Species JSON File"_s, sandbox->path(name));
        trigger(*window, "actionSaveSpeciesAs");
        return JsonFile::read(sandbox->path(name)).object;
    }
};

QTEST_MAIN(TestWrittenFiles)
#include "tst_writtenfiles.moc"
