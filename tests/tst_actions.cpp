// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "database/createdatabase.h"
#include "tests/support/documentwindow.h"
#include "tests/support/windowtest.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QToolBar>

using TestSupport::child;
using namespace Qt::StringLiterals;

namespace {

/// The names of the actions in their order, a bar for a separator.
QString contents(const QWidget& bar)
{
    QStringList names;
    const QList<QAction*> actions = bar.actions();
    for (const QAction* action : actions)
        names.append(action->isSeparator() ? u"|"_s : action->objectName());
    return names.join(u' ');
}

int paintedPixels(const QIcon& icon)
{
    const QImage image =
        icon.pixmap(QSize(16, 16), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            painted += image.pixelColor(x, y).alpha() > 127 ? 1 : 0;
    }
    return painted;
}

} // namespace

/// The commands of the menus and the tool bar: texts, keys, icons, places and what they start.
class TestActions : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void actionHasItsTextShortcutAndIcon_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shortcut");
        QTest::addColumn<QString>("icon");
        const auto add = [](const char* name, const char* text, const char* shortcut,
                            const char* icon) {
            QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(shortcut)
                                << QString::fromLatin1(icon);
        };
        add("actionLoadSpecies", "&Open", "Ctrl+O", "document-open.svg");
        add("actionSaveSpecies", "&Save", "Ctrl+S", "document-save.svg");
        add("actionSaveSpeciesAs", "Save &as", "", "document-save-as.svg");
        add("actionClean", "&Clean", "Ctrl+D", "edit-clear-history.svg");
        add("actionExit", "E&xit", "", "application-exit.svg");
        add("actionNew", "&New", "Ctrl+Shift+N", "document-new.svg");
        add("actionDelete", "&Delete", "Ctrl+Shift+D", "edit-delete.svg");
        add("actionLoadSpectrum", "&Open", "Ctrl+Shift+O", "document-open.svg");
        add("actionSaveSpectrumAs", "Save &as", "", "document-save-as.svg");
        add("actionCopy", "&Copy", "Ctrl+Shift+C", "edit-copy.svg");
        add("actionPaste", "&Paste", "Ctrl+Shift+V", "edit-paste.svg");
        add("actionSuperscript", "sup", "Ctrl+P", "format-text-superscript.svg");
        add("actionSubscript", "sub", "Ctrl+B", "format-text-subscript.svg");
        add("actionSelectFolder", "Select Folder", "", "folder-new.svg");
        add("actionPreviousFile", "Previous File", "", "go-previous.svg");
        add("actionNextFile", "Next File", "", "go-next.svg");
    }

    void actionHasItsTextShortcutAndIcon()
    {
        QFETCH(QString, text);
        QFETCH(QString, shortcut);
        QFETCH(QString, icon);
        const auto* action = child<QAction>(*window, QTest::currentDataTag());
        QCOMPARE(action->parent(), window.get());
        QCOMPARE(action->text(), text);
        QCOMPARE(action->shortcut().toString(QKeySequence::PortableText), shortcut);

        QVERIFY2(paintedPixels(action->icon()) > 10, "the icon is blank");
        const QString resource = u":/icons/resources/"_s + icon;
        QCOMPARE(action->icon().pixmap(QSize(16, 16), 1.0).toImage(),
                 QIcon(resource).pixmap(QSize(16, 16), 1.0).toImage());
    }

    void noActionsBesideTheSixteen()
    {
        int named = 0;
        const auto actions = window->findChildren<QAction*>(Qt::FindDirectChildrenOnly);
        for (const QAction* action : actions)
            named += action->objectName().startsWith(u"action") ? 1 : 0;
        QCOMPARE(named, 16);
    }

    void formattingActionsSayTheirKeys()
    {
        QCOMPARE(child<QAction>(*window, "actionSuperscript")->toolTip(), u"Ctrl + P"_s);
        QCOMPARE(child<QAction>(*window, "actionSubscript")->toolTip(), u"Ctrl + B"_s);
    }

    void openAndSaveAsShareTheirIconsBetweenTheMenus()
    {
        const auto icon = [this](const char* action) {
            return child<QAction>(*window, action)->icon().cacheKey();
        };
        QCOMPARE(icon("actionLoadSpectrum"), icon("actionLoadSpecies"));
        QCOMPARE(icon("actionSaveSpectrumAs"), icon("actionSaveSpeciesAs"));
        QVERIFY(icon("actionLoadSpecies") != icon("actionSaveSpeciesAs"));
    }

    void iconsDifferFromOneAnother()
    {
        QStringList kinds;
        for (const char* name :
             {"actionLoadSpecies", "actionSaveSpecies", "actionSaveSpeciesAs", "actionClean",
              "actionExit", "actionNew", "actionDelete", "actionCopy", "actionPaste",
              "actionSuperscript", "actionSubscript", "actionSelectFolder", "actionPreviousFile",
              "actionNextFile"}) {
            const QImage image =
                child<QAction>(*window, name)->icon().pixmap(QSize(16, 16), 1.0).toImage();
            kinds.append(QString::fromLatin1(
                QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes())
                    .toBase64()));
        }
        QCOMPARE(kinds.removeDuplicates(), 0);
    }

    void programIconPaints() { QVERIFY(paintedPixels(QIcon(u":/icons/korvela_entry.ico"_s)) > 10); }

    void menusAndToolBarHoldTheActionsInOrder()
    {
        const auto* species = child<QMenu>(*window, "menuSpecies");
        const auto* spectrum = child<QMenu>(*window, "menuSpectrum");
        QCOMPARE(species->title(), u"&Species"_s);
        QCOMPARE(spectrum->title(), u"S&pectrum"_s);
        QCOMPARE(child<QMenuBar>(*window, "menubar")->actions(),
                 QList<QAction*>({species->menuAction(), spectrum->menuAction()}));
        QCOMPARE(contents(*species), u"actionLoadSpecies actionSaveSpecies actionSaveSpeciesAs | "
                                     u"actionClean actionExit"_s);
        QCOMPARE(contents(*spectrum), u"actionNew actionDelete | actionLoadSpectrum "
                                      u"actionSaveSpectrumAs | actionCopy actionPaste"_s);
        QCOMPARE(contents(*child<QToolBar>(*window, "toolBar")),
                 u"actionSuperscript actionSubscript | actionSelectFolder actionPreviousFile "
                 u"actionNextFile"_s);
    }

    void noActionOrButtonCompilesADatabase()
    {
        QStringList titles;
        bool isLast = false;
        // Whatever an action opens is noted and dismissed.
        const DialogScript::Answer dismiss = [&](QWidget& dialog) {
            titles.append(dialog.windowTitle());
            dialog.close();
            if (!isLast)
                dialogs->expect(dismiss);
        };
        dialogs->expect(dismiss);

        const auto actions = window->findChildren<QAction*>();
        for (QAction* action : actions) {
            if (action->objectName() != u"actionExit")
                action->trigger();
        }
        const auto buttons = window->findChildren<QAbstractButton*>();
        QVERIFY(buttons.contains(child<QPushButton>(*window, "buttonDownload")));
        child<QPushButton>(*window, "buttonDownload")->click();
        QVERIFY(titles.contains(u"Open Species JSON File"_s));
        QCOMPARE(window->findChild<CreateDatabase*>(), nullptr);

        isLast = true;
        QVERIFY(QMetaObject::invokeMethod(window.get(), "createSpeciesDatabase"));
        QVERIFY(window->findChild<CreateDatabase*>() != nullptr);
    }

    void shortcutOpensItsDialog_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("Ctrl+O") << u"Open Species JSON File"_s;
        QTest::newRow("Ctrl+S") << u"Save Species JSON File"_s;
        QTest::newRow("Ctrl+Shift+O") << u"Open Spectrum JSON File"_s;
    }

    void shortcutOpensItsDialog()
    {
        QFETCH(QString, title);
        dialogs->expectFileDialog(title, {});
        if (title.startsWith(u"Open Spectrum"))
            dialogs->expectBox(QMessageBox::Warning, u"Error"_s,
                               u"Could not open file for reading"_s);
        QTest::keySequence(window.get(), QKeySequence(QLatin1StringView(QTest::currentDataTag())));
    }

    void exitClosesTheWindow()
    {
        TestSupport::trigger(*window, "actionExit");
        QVERIFY(!window->isVisible());
    }
};

QTEST_MAIN(TestActions)
#include "tst_actions.moc"
