// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/spectrumwindow.h"
#include "tests/support/spectrumtest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

/// The form of a spectrum window: its parts, their names and captions, and the way through them.
class TestSpectrumForm : public SpectrumTest
{
    Q_OBJECT

private Q_SLOTS:
    void slotsAreRegisteredInOrder()
    {
        const QMetaObject& meta = SpectrumWindow::staticMetaObject;
        QCOMPARE(QByteArray(meta.className()), "SpectrumWindow");
        QCOMPARE(QByteArray(meta.superClass()->className()), "QWidget");
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 0);
        const std::array signatures{"onSpectrumTypeChanged(int)", "updateWindowTitle()",
                                    "onButtonCommaToDotClicked()"};
        int position = meta.methodOffset();
        for (const char* signature : signatures) {
            const QMetaMethod method = meta.method(position++);
            QCOMPARE(method.methodSignature(), signature);
            QCOMPARE(method.methodType(), QMetaMethod::Slot);
        }
        QCOMPARE(meta.method(meta.methodOffset()).parameterNames(), QByteArrayList{"index"});
    }

    void windowHasItsNameAndSize()
    {
        const SpectrumWindow window;
        QCOMPARE(window.objectName(), u"SpectrumWindow"_s);
        QCOMPARE(window.size(), QSize(923, 735));
        QCOMPARE(window.windowTitle(), QString());
    }

    void partsHaveTheirClasses_data()
    {
        QTest::addColumn<QString>("className");
        QTest::newRow("verticalLayout") << u"QVBoxLayout"_s;
        QTest::newRow("horizontalLayout") << u"QHBoxLayout"_s;
        QTest::newRow("verticalLayout_2") << u"QVBoxLayout"_s;
        QTest::newRow("formLayout") << u"QFormLayout"_s;
        QTest::newRow("label_2") << u"QLabel"_s;
        QTest::newRow("label_3") << u"QLabel"_s;
        QTest::newRow("label_4") << u"QLabel"_s;
        QTest::newRow("label_5") << u"QLabel"_s;
        QTest::newRow("label_6") << u"QLabel"_s;
        QTest::newRow("comboBoxType") << u"QComboBox"_s;
        QTest::newRow("lineEditTitle") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditUploader") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditSpectDOI") << u"SingleLineTextEdit"_s;
        QTest::newRow("labelCreated") << u"QLabel"_s;
        QTest::newRow("labelCitations") << u"QLabel"_s;
        QTest::newRow("textEditCitations") << u"CleanTextEdit"_s;
        QTest::newRow("formLayout_2") << u"QFormLayout"_s;
        QTest::newRow("label_8") << u"QLabel"_s;
        QTest::newRow("label_9") << u"QLabel"_s;
        QTest::newRow("label_10") << u"QLabel"_s;
        QTest::newRow("label_11") << u"QLabel"_s;
        QTest::newRow("label_13") << u"QLabel"_s;
        QTest::newRow("lineEditSource") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditSourceT") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditResolution") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditFlux") << u"SingleLineTextEdit"_s;
        QTest::newRow("lineEditFacilityDate") << u"SingleLineTextEdit"_s;
        QTest::newRow("labelComments") << u"QLabel"_s;
        QTest::newRow("textEditComments") << u"CleanTextEdit"_s;
        QTest::newRow("formLayout_3") << u"QFormLayout"_s;
        QTest::newRow("verticalLayout_3") << u"QVBoxLayout"_s;
        QTest::newRow("label_14") << u"QLabel"_s;
        QTest::newRow("horizontalLayout_2") << u"QHBoxLayout"_s;
        QTest::newRow("checkBoxLineSpectrum") << u"QCheckBox"_s;
        QTest::newRow("buttonNormalize") << u"QPushButton"_s;
        QTest::newRow("buttonSparse") << u"QPushButton"_s;
        QTest::newRow("buttonCommaToDot") << u"QPushButton"_s;
        QTest::newRow("textEditSpect") << u"QPlainTextEdit"_s;
        QTest::newRow("chartSpectrum") << u"SpectrumChartView"_s;
    }
    void partsHaveTheirClasses()
    {
        const SpectrumWindow window;
        const auto* part = TestSupport::child<QObject>(window, QTest::currentDataTag());
        const QString actual = QString::fromLatin1(part->metaObject()->className());
        QTEST(actual, "className");
    }

    void captionsReadAsTheyShould_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("label_2") << u"Title"_s;
        QTest::newRow("label_3") << u"Uploader"_s;
        QTest::newRow("label_4") << u"Created"_s;
        QTest::newRow("label_5") << u"Spect. DOI"_s;
        QTest::newRow("label_6") << u"Type"_s;
        QTest::newRow("label_13") << u"Date & facility"_s;
        QTest::newRow("label_14") << u"Spectrum, I(hv / eV)"_s;
        QTest::newRow("checkBoxLineSpectrum") << u"Line spectrum"_s;
        QTest::newRow("buttonNormalize") << u"Normalize"_s;
        QTest::newRow("buttonSparse") << u"Sparse"_s;
        QTest::newRow("buttonCommaToDot") << u", \u2192 ."_s;
    }
    void captionsReadAsTheyShould()
    {
        const SpectrumWindow window;
        const auto* part = TestSupport::child<QWidget>(window, QTest::currentDataTag());
        QTEST(part->property("text").toString(), "caption");
    }

    void captionsStandBesideTheirFields_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("label");
        QTest::newRow("lineEditTitle") << u"formLayout"_s << 0 << u"label_2"_s;
        QTest::newRow("lineEditUploader") << u"formLayout"_s << 1 << u"label_3"_s;
        QTest::newRow("labelCreated") << u"formLayout"_s << 2 << u"label_4"_s;
        QTest::newRow("lineEditSpectDOI") << u"formLayout"_s << 3 << u"label_5"_s;
        QTest::newRow("comboBoxType") << u"formLayout"_s << 4 << u"label_6"_s;
        QTest::newRow("lineEditSource") << u"formLayout_2"_s << 0 << u"label_8"_s;
        QTest::newRow("lineEditSourceT") << u"formLayout_2"_s << 1 << u"label_9"_s;
        QTest::newRow("lineEditResolution") << u"formLayout_2"_s << 2 << u"label_10"_s;
        QTest::newRow("lineEditFlux") << u"formLayout_2"_s << 3 << u"label_11"_s;
        QTest::newRow("lineEditFacilityDate") << u"formLayout_2"_s << 4 << u"label_13"_s;
    }
    void captionsStandBesideTheirFields()
    {
        QFETCH(QString, form);
        const SpectrumWindow window;
        auto* field = TestSupport::child<QWidget>(window, QTest::currentDataTag());
        const auto* layout = TestSupport::child<QFormLayout>(window, form.toLatin1().constData());
        int row = -1;
        QFormLayout::ItemRole role = QFormLayout::SpanningRole;
        layout->getWidgetPosition(field, &row, &role);
        QCOMPARE(role, QFormLayout::FieldRole);
        QTEST(row, "row");
        QTEST(layout->labelForField(field)->objectName(), "label");
    }

    void spectrumTypesAreOffered()
    {
        const SpectrumWindow window;
        const auto* types = TestSupport::child<QComboBox>(window, "comboBoxType");
        QStringList names;
        for (int i = 0; i < types->count(); ++i)
            names.append(types->itemText(i));
        QCOMPARE(names, (QStringList{u"ms-TPES"_s, u"ms-SPES"_s, u"TPES"_s, u"PES"_s,
                                     u"FC simulation"_s, u"PIS"_s}));
        QCOMPARE(types->currentIndex(), 0);
        QCOMPARE(types->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(types->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    }

    void longTextsHaveRoom()
    {
        const SpectrumWindow window;
        QVERIFY(TestSupport::child<QLabel>(window, "labelComments")->wordWrap());
        QCOMPARE(TestSupport::child<QWidget>(window, "textEditComments")->minimumSize(),
                 QSize(0, 0));
        QCOMPARE(TestSupport::child<QWidget>(window, "chartSpectrum")->minimumSize(),
                 QSize(0, 200));
    }

    void tabLeadsThroughTheForm()
    {
        const auto* window = show();
        TestSupport::child<QWidget>(*window, "lineEditTitle")->setFocus();
        const QStringList order{
            u"lineEditTitle"_s,        u"lineEditUploader"_s,   u"lineEditSpectDOI"_s,
            u"comboBoxType"_s,         u"textEditCitations"_s,  u"lineEditSource"_s,
            u"lineEditSourceT"_s,      u"lineEditResolution"_s, u"lineEditFlux"_s,
            u"lineEditFacilityDate"_s, u"textEditComments"_s,   u"checkBoxLineSpectrum"_s,
            u"buttonNormalize"_s,      u"buttonSparse"_s,       u"buttonCommaToDot"_s,
            u"textEditSpect"_s};
        QStringList visited;
        for (qsizetype i = 0; i < order.size(); ++i) {
            visited.append(window->focusWidget()->objectName());
            QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited, order);
        QVERIFY(window->focusWidget()->objectName() != u"textEditSpect"_s);
        QCOMPARE(TestSupport::child<QPlainTextEdit>(*window, "textEditSpect")->toPlainText(),
                 QString());
    }

    void backtabLeadsBack()
    {
        const auto* window = show();
        auto* points = TestSupport::child<QWidget>(*window, "textEditSpect");
        points->setFocus();
        QTest::keyClick(points, Qt::Key_Backtab);
        QCOMPARE(window->focusWidget()->objectName(), u"buttonCommaToDot"_s);
    }
};

QTEST_MAIN(TestSpectrumForm)
#include "tst_spectrumform.moc"
