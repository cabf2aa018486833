// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "spectrum/spectrumwindow.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAccessible>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTest>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

QString told(QWidget* widget, QAccessible::Text text)
{
    return QAccessible::queryAccessibleInterface(widget)->text(text);
}

QString nameOf(const QWidget& parent, const char* widget)
{
    return told(child<QWidget>(parent, widget), QAccessible::Name);
}

QString descriptionOf(const QWidget& parent, const char* widget)
{
    return told(child<QWidget>(parent, widget), QAccessible::Description);
}

struct Named
{
    const char* widget;
    const char* name;
    bool described; ///< Because the name alone is terse.
};

void verifyNames(const QWidget& parent, const QList<Named>& expected)
{
    for (const Named& field : expected) {
        QCOMPARE(nameOf(parent, field.widget), QString::fromUtf8(field.name));
        QVERIFY2(descriptionOf(parent, field.widget).isEmpty() != field.described, field.widget);
    }
}

/// The widgets that the keyboard reaches have a name; how many there are.
int verifyReachableWidgets(const QWidget& parent)
{
    int reachable = 0;
    const QList<QWidget*> widgets = parent.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || !widget->isVisible())
            continue;
        // The spectra are told by their titles, and a part of a field by the field.
        const bool hasTitles = widget->inherits("QTabBar") || widget->inherits("QMdiSubWindow");
        if (hasTitles || widget->focusProxy() != nullptr)
            continue;
        ++reachable;
        if (told(widget, QAccessible::Name).isEmpty())
            QTest::qFail(qPrintable(u"no name: "_s + widget->objectName()), __FILE__, __LINE__);
    }
    return reachable;
}

QString nameOfFocusWidget()
{
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString() : focus->objectName();
}

/// Where the focus goes with each Tab (or @p key) from the widget @p first.
QStringList tabSequence(const QWidget& parent, const char* first, qsizetype length,
                        Qt::Key key = Qt::Key_Tab)
{
    child<QWidget>(parent, first)->setFocus(Qt::TabFocusReason);
    QStringList names{nameOfFocusWidget()};
    while (names.size() < length) {
        QTest::keyClick(QApplication::focusWidget(), key);
        names.append(nameOfFocusWidget());
    }
    return names;
}

const QStringList formOrder{u"lineEditSpecies"_s,    u"textEditAliases"_s, u"lineEditMass"_s,
                            u"lineEditSumFormula"_s, u"lineEditInChI"_s,   u"lineEditCAS"_s,
                            u"buttonDownload"_s,     u"lineEditCID"_s,     u"lineEditAIE"_s,
                            u"lineEditAIEComment"_s, u"lineEditVIE"_s,     u"lineEditVIEComment"_s};

const QStringList spectrumOrder{
    u"lineEditTitle"_s,        u"lineEditUploader"_s,   u"lineEditSpectDOI"_s,
    u"comboBoxType"_s,         u"textEditCitations"_s,  u"lineEditSource"_s,
    u"lineEditSourceT"_s,      u"lineEditResolution"_s, u"lineEditFlux"_s,
    u"lineEditFacilityDate"_s, u"textEditComments"_s,   u"checkBoxLineSpectrum"_s,
    u"buttonNormalize"_s,      u"buttonSparse"_s,       u"buttonCommaToDot"_s,
    u"textEditSpect"_s,        u"chartSpectrum"_s};

} // namespace

/// What a screen reader says of the fields, and how the keyboard moves between them.
class TestAccessibility : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void fieldsOfTheFormAreNamed()
    {
        verifyNames(*window, {
                                 {"lineEditSpecies", "Name", false},
                                 {"textEditAliases", "Aliases", true},
                                 {"lineEditMass", "Mass / amu", false},
                                 {"lineEditSumFormula", "Sum formula", false},
                                 {"lineEditInChI", "InChI", true},
                                 {"lineEditCAS", "CAS number", true},
                                 {"buttonDownload", "Struct", true},
                                 {"lineEditCID", "PubChem CID", true},
                                 {"lineEditAIE", "AIE / eV", true},
                                 {"lineEditAIEComment", "AIE, Comment / DOI", true},
                                 {"lineEditVIE", "VIE / eV", true},
                                 {"lineEditVIEComment", "VIE, Comment / DOI", true},
                                 {"imageLabel", "Structure image", true},
                             });
    }

    void fieldsOfASpectrumAreNamed()
    {
        verifyNames(*newSpectrum(),
                    {
                        {"lineEditTitle", "Title", false},
                        {"lineEditUploader", "Uploader", false},
                        {"lineEditSpectDOI", "Spect. DOI", true},
                        {"textEditCitations",
                         "Further citations (expt., source, light source etc.)", false},
                        {"lineEditSource", "Source", false},
                        {"lineEditSourceT", "Source T / K", true},
                        {"lineEditResolution", "Resolution / meV", true},
                        {"lineEditFlux", "Flux normalization", false},
                        {"lineEditFacilityDate", "Date & facility", true},
                        {"textEditComments",
                         "Comments: mass resolution, extraction field, details of spectral "
                         "treatment, sample / isomeric purity etc.",
                         false},
                        {"checkBoxLineSpectrum", "Line spectrum", true},
                        {"buttonNormalize", "Normalize", true},
                        {"buttonSparse", "Sparse", true},
                        {"buttonCommaToDot", "Comma to dot", true},
                        {"chartSpectrum", "Chart of the spectrum", true},
                    });
    }

    void typeIsToldWithItsCaption()
    {
        const SpectrumWindow* spectrum = newSpectrum();
        auto* type = child<QComboBox>(*spectrum, "comboBoxType");
        QCOMPARE(type->accessibleName(), u"Type"_s);
        QVERIFY(!descriptionOf(*spectrum, "comboBoxType").isEmpty());
    }

    void creationDayIsToldWithItsCaption()
    {
        const SpectrumWindow* spectrum = newSpectrum();
        QCOMPARE(nameOf(*spectrum, "labelCreated"), QDate::currentDate().toString(Qt::ISODate));
        QCOMPARE(descriptionOf(*spectrum, "labelCreated"), u"Created"_s);
    }

    void namesFollowTheSpectrumType()
    {
        const SpectrumWindow* spectrum = newSpectrum();
        const QList<Named> experiment{{"lineEditSource", "Source", false},
                                      {"lineEditSourceT", "Source T / K", true},
                                      {"lineEditResolution", "Resolution / meV", true},
                                      {"lineEditFlux", "Flux normalization", false}};
        auto* type = child<QComboBox>(*spectrum, "comboBoxType");
        type->setCurrentText(u"FC simulation"_s);
        verifyNames(*spectrum,
                    {{"textEditCitations", "Further citations (program(s), theory etc.)", false},
                     {"lineEditSource", "Level(s) of theory", false},
                     {"lineEditSourceT", "Vib. T / K", true},
                     {"lineEditResolution", "Conv. FWHM / meV", true},
                     {"lineEditFlux", "0-0 transition / eV", false},
                     {"textEditComments",
                      "Comments: programs used, approximations, convergence, simulation issues "
                      "etc.",
                      false}});
        type->setCurrentText(u"PIS"_s);
        verifyNames(*spectrum, experiment);
    }

    void pointListIsNamedWithItsNumberOfLines()
    {
        const SpectrumWindow* spectrum = newSpectrum();
        child<QPlainTextEdit>(*spectrum, "textEditSpect")->setPlainText(u"9 1\n10 2"_s);
        QCOMPARE(nameOf(*spectrum, "textEditSpect"), u"Spectrum, I(hv / eV) (2 lines)"_s);
        QVERIFY(!descriptionOf(*spectrum, "textEditSpect").isEmpty());
    }

    void fieldsOfTheDatabaseDialogAreNamed()
    {
        CreateDatabase dialog(window.get());
        verifyNames(dialog, {
                                {"lineEdit", "Database version", false},
                                {"lineEdit_2", "Data release", false},
                                {"lineEdit_3", "Title", false},
                                {"pushButton", "Set database", true},
                                {"pushButton_2", "Add species", true},
                                {"pushButton_3", "Clear files", true},
                                {"checkBox", "Compact", true},
                                {"listWidget", "Species files", true},
                            });
        QCOMPARE(descriptionOf(dialog, "label_5"), u"Database file"_s);
    }

    void everythingThatTheKeyboardReachesIsNamed()
    {
        newSpectrum();
        QCOMPARE(verifyReachableWidgets(*window), formOrder.size() + spectrumOrder.size());
        CreateDatabase dialog(window.get());
        QVERIFY(TestSupport::showActive(dialog));
        QCOMPARE(verifyReachableWidgets(dialog), 10);
    }

    void tabGoesThroughTheFormRowByRow()
    {
        QCOMPARE(tabSequence(*window, "lineEditSpecies", formOrder.size()), formOrder);
    }

    void tabGoesThroughASpectrumRowByRow()
    {
        QCOMPARE(tabSequence(*newSpectrum(), "lineEditTitle", spectrumOrder.size()), spectrumOrder);
    }

    void tabGoesThroughTheDatabaseDialogRowByRow()
    {
        const QStringList order{u"lineEdit"_s,   u"lineEdit_2"_s,   u"lineEdit_3"_s,
                                u"pushButton"_s, u"pushButton_2"_s, u"pushButton_3"_s,
                                u"checkBox"_s,   u"listWidget"_s};
        expectTabSequence(order);
        window->createSpeciesDatabase();
        QVERIFY(dialogs->passed());
    }

    void openingGivesTheFocusToTheFirstSpectrum()
    {
        QVERIFY(window->openEntry(sandbox->write(
            u"a.json"_s, TestSupport::speciesFile(u"Water"_s, {u"one"_s, u"two"_s}))));
        QCOMPARE(QApplication::focusWidget(),
                 child<QWidget>(*TestSupport::spectra(*window).constFirst(), "lineEditTitle"));
    }

    void tabGoesAroundFormAndSpectrum_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Tab") << Qt::Key_Tab;
        QTest::newRow("Shift+Tab") << Qt::Key_Backtab;
    }

    void tabGoesAroundFormAndSpectrum()
    {
        QFETCH(Qt::Key, key);
        newSpectrum();
        // Qt gives the focus to the tab bar of the spectra on one of the two ways.
        constexpr int mostOthers = 2;
        const qsizetype fields = formOrder.size() + spectrumOrder.size();
        QStringList names = tabSequence(*window, "lineEditSpecies", fields + mostOthers + 1, key);
        QVERIFY(names.lastIndexOf(u"lineEditSpecies"_s) >= fields);
        for (const QString& name : formOrder + spectrumOrder)
            QVERIFY2(names.contains(name), qPrintable(name));
        if (key == Qt::Key_Backtab)
            std::reverse(names.begin(), names.end());
        const auto follow = [&names](const QStringList& order) {
            const qsizetype first = names.indexOf(order.constFirst());
            return names.mid(first, order.size()) == order ||
                   names.mid(names.lastIndexOf(order.constFirst()), order.size()) == order;
        };
        QVERIFY2(follow(formOrder), qPrintable(names.join(u' ')));
        QVERIFY2(follow(spectrumOrder), qPrintable(names.join(u' ')));
    }

private:
    /// Once the dialog that is to open is active, which it need not be as soon as it is seen.
    void expectTabSequence(const QStringList& order)
    {
        dialogs->expect([this, order](QWidget& dialog) {
            if (!dialog.isActiveWindow()) {
                expectTabSequence(order);
                return;
            }
            const QByteArray first = order.constFirst().toLatin1();
            QCOMPARE(tabSequence(dialog, first.constData(), order.size()), order);
            static_cast<QDialog&>(dialog).reject();
        });
    }

    SpectrumWindow* newSpectrum()
    {
        window->createNewSpectrumWindow();
        QCoreApplication::processEvents();
        return TestSupport::spectra(*window).constFirst();
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
