// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/visitor.h"

#include "spectrum/spectrumwindow.h"
#include "tests/support/child.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTextEdit>
#include <QTimer>

namespace {

using TestSupport::child;
using namespace std::chrono_literals;

} // namespace

Visitor::Visitor()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder.path());
    mainWindow.show();
    mainWindow.activateWindow();
    letEventsPass();
}

MainWindow& Visitor::window()
{
    return mainWindow;
}

bool Visitor::open(const QString& path)
{
    whenOneOpens([path](QWidget& dialog) { chooseFiles(dialog, path); });
    trigger("actionLoadSpecies");
    return mainWindow.windowTitle().endsWith(QFileInfo(path).fileName());
}

void Visitor::saveAs(const QString& path)
{
    whenOneOpens([path](QWidget& dialog) {
        QFile::remove(path);
        chooseFiles(dialog, path);
    });
    trigger("actionSaveSpeciesAs");
}

void Visitor::trigger(const char* action)
{
    child<QAction>(mainWindow, action)->trigger();
    mainWindow.activateWindow(); // what the window system does when a dialog has closed
    letEventsPass();
}

void Visitor::typeInto(QWidget& field, const QString& text)
{
    field.setFocus();
    for (const QChar c : text) {
        const int key = c == u'\n' ? Qt::Key_Return : 0;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
        QApplication::sendEvent(&field, &press);
    }
}

void Visitor::selectCharacter(QWidget& field, int position)
{
    auto* edit = qobject_cast<QTextEdit*>(&field);
    QTextCursor cursor = edit->textCursor();
    cursor.setPosition(position);
    cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
    edit->setTextCursor(cursor);
}

void Visitor::leaveFields()
{
    child<QWidget>(mainWindow, "buttonDownload")->setFocus();
    letEventsPass();
}

QList<SpectrumWindow*> Visitor::spectra() const
{
    QList<SpectrumWindow*> found;
    const QList<QMdiSubWindow*> subWindows =
        child<QMdiArea>(mainWindow, "mdiArea")->subWindowList();
    for (const QMdiSubWindow* subWindow : subWindows)
        found.append(qobject_cast<SpectrumWindow*>(subWindow->widget()));
    return found;
}

SpectrumWindow& Visitor::activeSpectrum() const
{
    const QMdiSubWindow* active = child<QMdiArea>(mainWindow, "mdiArea")->activeSubWindow();
    return *qobject_cast<SpectrumWindow*>(active->widget());
}

void Visitor::activateSpectrum(int index)
{
    auto* area = child<QMdiArea>(mainWindow, "mdiArea");
    area->setActiveSubWindow(area->subWindowList().at(index));
    letEventsPass();
}

void Visitor::chooseFiles(QWidget& dialog, const QString& names)
{
    child<QLineEdit>(dialog, "fileNameEdit")->setText(names);
    QMetaObject::invokeMethod(&dialog, "accept");
}

void Visitor::whenOneOpens(const std::function<void(QWidget&)>& answer)
{
    QTimer::singleShot(50ms, &mainWindow, [this, answer] {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* opened = popup != nullptr ? popup : QApplication::activeModalWidget();
        if (opened == nullptr)
            whenOneOpens(answer);
        else
            answer(*opened);
    });
}

void Visitor::letEventsPass(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}
