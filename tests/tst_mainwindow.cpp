// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"
#include "widgets/cleantextedit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDataWidgetMapper>
#include <QDockWidget>
#include <QFormLayout>
#include <QLabel>
#include <QLayout>
#include <QMdiArea>
#include <QMenuBar>
#include <QMetaMethod>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>

using TestSupport::child;
using namespace Qt::StringLiterals;

/// The window as it comes up: what is in it, where, and what it is called.
class TestMainWindow : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void slotsAreDeclaredInTheirOrder()
    {
        const QMetaObject& meta = MainWindow::staticMetaObject;
        QStringList signatures;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
            signatures.append(QString::fromLatin1(meta.method(i).methodSignature()));
        }
        QCOMPARE(signatures, QStringList({
                                 u"setModified()"_s,
                                 u"onButtonDownloadClicked()"_s,
                                 u"onImageDownloaded(QNetworkReply*)"_s,
                                 u"applySubscript()"_s,
                                 u"applySuperscript()"_s,
                                 u"applyTextFormatting(QTextCharFormat::VerticalAlignment)"_s,
                                 u"createNewSpectrumWindow()"_s,
                                 u"cleanUp()"_s,
                                 u"deleteCurrentSpectrum()"_s,
                                 u"createSpeciesDatabase()"_s,
                                 u"selectSpeciesFolder()"_s,
                                 u"loadPreviousSpeciesFile()"_s,
                                 u"loadNextSpeciesFile()"_s,
                             }));
        QCOMPARE(meta.className(), "MainWindow");
        QCOMPARE(meta.superClass()->className(), "QMainWindow");
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void slotArgumentsAreNamed()
    {
        const QMetaObject& meta = MainWindow::staticMetaObject;
        const QMetaMethod downloaded =
            meta.method(meta.indexOfMethod("onImageDownloaded(QNetworkReply*)"));
        QCOMPARE(downloaded.parameterNames(), QList<QByteArray>{"reply"});
        const QMetaMethod formatting = meta.method(
            meta.indexOfMethod("applyTextFormatting(QTextCharFormat::VerticalAlignment)"));
        QCOMPARE(formatting.parameterNames(), QList<QByteArray>{"alignment"});
    }

    void startsWithTheBareTitleAndItsSize()
    {
        QCOMPARE(window->objectName(), u"MainWindow"_s);
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        QCOMPARE(window->size(), QSize(1272, 873));
        QCOMPARE(window->iconSize(), QSize(16, 16));
        QVERIFY(window->acceptDrops());
        QVERIFY(TestSupport::subWindows(*window).isEmpty());
    }

    void firstChangeMarksTheUntitledDocument()
    {
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit"_s);
        window->createNewSpectrumWindow();
        QCOMPARE(window->windowTitle(), u"KORVELA Entry Edit - (untitled) *"_s);
    }

    void objectHasItsNameAndClass_data()
    {
        QTest::addColumn<QByteArray>("className");
        const auto add = [](const char* name, const char* className) {
            QTest::newRow(name) << QByteArray(className);
        };
        add("centralwidget", "QWidget");
        add("horizontalLayout_5", "QHBoxLayout");
        add("mdiArea", "QMdiArea");
        add("menubar", "QMenuBar");
        add("menuSpecies", "QMenu");
        add("menuSpectrum", "QMenu");
        add("statusbar", "QStatusBar");
        add("toolBar", "QToolBar");
        add("speciesDock", "QDockWidget");
        add("dockWidgetContents", "QWidget");
        add("verticalLayout", "QVBoxLayout");
        add("formLayout", "QFormLayout");
        add("horizontalLayout", "QHBoxLayout");
        add("horizontalLayout_2", "QHBoxLayout");
        add("horizontalLayout_3", "QHBoxLayout");
        add("horizontalLayout_4", "QHBoxLayout");
        add("label", "QLabel");
        for (const char* label : {"label_2", "label_3", "label_4", "label_5", "label_6", "label_7",
                                  "label_10", "label_11", "label_12", "label_13", "imageLabel"})
            add(label, "QLabel");
        for (const char* field : {"lineEditSpecies", "lineEditMass", "lineEditSumFormula",
                                  "lineEditInChI", "lineEditCAS", "lineEditCID", "lineEditAIE",
                                  "lineEditAIEComment", "lineEditVIE", "lineEditVIEComment"})
            add(field, "SingleLineTextEdit");
        add("textEditAliases", "CleanTextEdit");
        add("buttonDownload", "QPushButton");
    }

    void objectHasItsNameAndClass()
    {
        QFETCH(QByteArray, className);
        const auto found =
            window->findChildren<QObject*>(QLatin1StringView(QTest::currentDataTag()));
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.constFirst()->metaObject()->className(), className);
    }

    void helpersBelongToTheWindow()
    {
        QCOMPARE(window->findChildren<QNetworkAccessManager*>(Qt::FindDirectChildrenOnly).size(),
                 1);
        QCOMPARE(window->findChildren<SpeciesModel*>(Qt::FindDirectChildrenOnly).size(), 1);
        const auto mappers = window->findChildren<QDataWidgetMapper*>(Qt::FindDirectChildrenOnly);
        QCOMPARE(mappers.size(), 1);
        QCOMPARE(mappers.constFirst()->model(), window->findChild<SpeciesModel*>());
    }

    void spectraHaveATabbedAreaInTheCentre()
    {
        const auto* centre = child<QWidget>(*window, "centralwidget");
        const auto* area = child<QMdiArea>(*window, "mdiArea");
        QCOMPARE(window->centralWidget(), centre);
        QCOMPARE(centre->layout()->objectName(), u"horizontalLayout_5"_s);
        QCOMPARE(centre->layout()->itemAt(0)->widget(), area);
        QCOMPARE(centre->layout()->count(), 1);
        QCOMPARE(area->viewMode(), QMdiArea::TabbedView);
        QCOMPARE(area->styleSheet(), QString());
        QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
        QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    }

    void barsStandInTheirPlaces()
    {
        QCOMPARE(window->menuWidget(), child<QMenuBar>(*window, "menubar"));
        const auto statusBars = window->findChildren<QStatusBar*>(Qt::FindDirectChildrenOnly);
        QCOMPARE(statusBars.size(), 1);
        const auto* toolBar = child<QToolBar>(*window, "toolBar");
        QCOMPARE(toolBar->windowTitle(), u"toolBar"_s);
        QCOMPARE(window->toolBarArea(toolBar), Qt::TopToolBarArea);
        QCOMPARE(toolBar->iconSize(), QSize(16, 16));
        QCOMPARE(toolBar->toolButtonStyle(), QToolBar().toolButtonStyle());
    }

    void dockMovesAndFloatsButDoesNotClose()
    {
        auto* dock = child<QDockWidget>(*window, "speciesDock");
        QCOMPARE(dock->windowTitle(), u"Species profile"_s);
        QCOMPARE(dock->features(),
                 QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
        QCOMPARE(window->dockWidgetArea(dock), Qt::LeftDockWidgetArea);
        // Small windows scroll it.
        const auto* scrolled = qobject_cast<const QScrollArea*>(dock->widget());
        QVERIFY(scrolled != nullptr);
        QCOMPARE(scrolled->widget(), child<QWidget>(*window, "dockWidgetContents"));
        QVERIFY(!child<QAbstractButton>(*dock, "qt_dockwidget_closebutton")->isVisible());
        QVERIFY(child<QAbstractButton>(*dock, "qt_dockwidget_floatbutton")->isVisible());
        QVERIFY(!dock->toggleViewAction()->isEnabled());
    }

    void dockIsGrey()
    {
        QCOMPARE(child<QDockWidget>(*window, "speciesDock")->styleSheet(),
                 u"QDockWidget::title { background-color: #a0a0a0; padding: 4px; }\n"
                 u"QWidget { background-color: #c9c9c9; }\n"_s);
    }

    void dockHoldsTheFormAboveTheImage()
    {
        const QLayout* layout = child<QWidget>(*window, "dockWidgetContents")->layout();
        QCOMPARE(layout->objectName(), u"verticalLayout"_s);
        QCOMPARE(layout->count(), 2);
        QCOMPARE(layout->itemAt(0)->layout(), child<QFormLayout>(*window, "formLayout"));
        QCOMPARE(layout->itemAt(1)->widget(), child<QLabel>(*window, "imageLabel"));
    }

    void formRow_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("fields");
        const auto add = [](int row, const char* label, const char* text,
                            const QStringList& fields) {
            QTest::newRow(text) << row << QString::fromLatin1(label) << QString::fromLatin1(text)
                                << fields;
        };
        add(0, "label", "Name", {u"lineEditSpecies"_s});
        add(1, "label_2", "Aliases", {u"textEditAliases"_s});
        add(2, "label_4", "Mass / amu", {u"lineEditMass"_s});
        add(3, "label_5", "Sum formula", {u"lineEditSumFormula"_s});
        add(4, "label_6", "InChI", {u"lineEditInChI"_s});
        add(5, "label_3", "CAS number",
            {u"horizontalLayout"_s, u"lineEditCAS"_s, u"buttonDownload"_s});
        add(6, "label_7", "PubChem CID", {u"lineEditCID"_s});
        add(7, "", "", {u"horizontalLayout_4"_s, u"label_11"_s, u"label_10"_s});
        add(8, "label_12", "AIE",
            {u"horizontalLayout_2"_s, u"lineEditAIE"_s, u"lineEditAIEComment"_s});
        add(9, "label_13", "VIE",
            {u"horizontalLayout_3"_s, u"lineEditVIE"_s, u"lineEditVIEComment"_s});
    }

    void formRow()
    {
        QFETCH(int, row);
        QFETCH(QString, label);
        QFETCH(QString, text);
        QFETCH(QStringList, fields);
        const auto* form = child<QFormLayout>(*window, "formLayout");
        QCOMPARE(form->rowCount(), 10);

        const QLayoutItem* labelItem = form->itemAt(row, QFormLayout::LabelRole);
        QCOMPARE(labelItem != nullptr, !label.isEmpty());
        if (labelItem != nullptr) {
            const auto* labelWidget = qobject_cast<QLabel*>(labelItem->widget());
            QCOMPARE(labelWidget->objectName(), label);
            QCOMPARE(labelWidget->text(), text);
        }

        const QLayoutItem* fieldItem = form->itemAt(row, QFormLayout::FieldRole);
        QStringList found;
        if (const QLayout* layout = const_cast<QLayoutItem*>(fieldItem)->layout()) {
            found.append(layout->objectName());
            for (int i = 0; i < layout->count(); ++i)
                found.append(layout->itemAt(i)->widget()->objectName());
        } else {
            found.append(fieldItem->widget()->objectName());
        }
        QCOMPARE(found, fields);
    }

    void energyColumnsHaveHeadings()
    {
        const auto* energy = child<QLabel>(*window, "label_11");
        QCOMPARE(energy->text(), u"eV"_s);
        QCOMPARE(energy->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(energy->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(energy->maximumWidth(), 65);
        QCOMPARE(child<QLabel>(*window, "label_10")->text(), u"Comment / DOI"_s);
        QCOMPARE(child<QPushButton>(*window, "buttonDownload")->text(), u"Struct"_s);
    }

    void aliasesFieldTakesNoDropsAndTurnsBlueWithTheFocus()
    {
        const auto* aliases = child<CleanTextEdit>(*window, "textEditAliases");
        QVERIFY(!aliases->acceptDrops());
        QCOMPARE(aliases->styleSheet().simplified(),
                 u"QTextEdit { background: white; border: 1px solid lightgray; padding: 2px; "
                 u"color: black; } QTextEdit:focus { border: 1px solid #4A90E2; }"_s);
    }

    void imageLabelIsAWhiteRoundedBox()
    {
        const auto* label = child<QLabel>(*window, "imageLabel");
        QCOMPARE(label->minimumSize(), QSize(200, 150));
        QCOMPARE(label->maximumSize(), QSize(20000, 150));
        QCOMPARE(label->alignment(), Qt::AlignCenter);
        QCOMPARE(label->text(), QString());
        QCOMPARE(label->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(label->styleSheet().trimmed(),
                 u"background-color: white;\nborder: 1px solid black;\nborder-radius: 15px;"_s);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(label->palette().color(group, QPalette::WindowText), QColor(Qt::black));
            QCOMPARE(label->palette().color(group, QPalette::Window), QColor(Qt::white));
            QCOMPARE(label->palette().color(group, QPalette::Base), QColor(Qt::white));
        }
    }

    void tabWalksThroughTheForm()
    {
        child<QWidget>(*window, "lineEditSpecies")->setFocus();
        QStringList walked;
        for (int i = 0; i < 12; ++i) {
            walked.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(walked,
                 QStringList({u"lineEditSpecies"_s, u"textEditAliases"_s, u"lineEditMass"_s,
                              u"lineEditSumFormula"_s, u"lineEditInChI"_s, u"lineEditCAS"_s,
                              u"buttonDownload"_s, u"lineEditCID"_s, u"lineEditAIE"_s,
                              u"lineEditAIEComment"_s, u"lineEditVIE"_s, u"lineEditVIEComment"_s}));
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
