// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/tour.h"

#include "species/fileorder.h"
#include "support/jsonfile.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QJsonValue>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSettings>
#include <QTextEdit>
#include <QTimer>

#include <chrono>

namespace {

using namespace std::chrono_literals;

void letEventsPass(std::chrono::milliseconds time = 100ms)
{
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

void pressKeys(QWidget& field, const QString& text)
{
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QApplication::sendEvent(&field, &press);
    }
}

} // namespace

Tour::Tour(const QDir& examples, const QDir& output)
    : examplesFolder(examples)
    , outputFolder(output)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder.path());
    outputFolder.mkpath(QStringLiteral("."));
    window.show();
    window.activateWindow();
    letEventsPass();
}

QStringList Tour::account() const
{
    return told;
}

bool Tour::run()
{
    const QStringList entries =
        inSteppingOrder(examplesFolder.entryList({QStringLiteral("*.json")}, QDir::Files));
    if (entries.size() < 2 || !open(examplesFolder.filePath(entries.at(0)))) {
        told += QStringLiteral("No example entries in %1").arg(examplesFolder.path());
        return false;
    }
    takePicture(window, QStringLiteral("1-entry"));

    editFields();
    editPoints();
    const QString entry = outputFolder.filePath(QStringLiteral("edited entry.json"));
    saveAs(entry);
    takePicture(window, QStringLiteral("2-edited-and-saved"));
    told += QStringLiteral("Opened, edited and saved %1").arg(entries.at(0));

    const QString other = outputFolder.filePath(QStringLiteral("entry with copied spectrum.json"));
    copySpectrumTo(examplesFolder.filePath(entries.at(1)), other);
    told += QStringLiteral("Copied a spectrum to %1").arg(entries.at(1));

    const bool asSaved = isFoundAsSaved(entry) && isFoundAsSaved(other);
    told += asSaved ? QStringLiteral("Opened both again: everything is as saved")
                    : QStringLiteral("Opened both again: NOT everything is as saved");
    showBoxes();
    told += QStringLiteral("Pictures and saved entries are in %1").arg(outputFolder.absolutePath());
    return asSaved;
}

bool Tour::open(const QString& path)
{
    whenDialogOpens([path](QWidget& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    trigger("actionLoadSpecies");
    return window.windowTitle().endsWith(QFileInfo(path).fileName());
}

void Tour::editFields()
{
    typeInto("lineEditVIEComment", QStringLiteral("as for CO2"));
    auto* comment = window.findChild<QTextEdit*>(QStringLiteral("lineEditVIEComment"));
    QTextCursor cursor = comment->textCursor();
    cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    comment->setTextCursor(cursor);
    trigger("actionSubscript");
    typeInto("lineEditVIE", QStringLiteral("9.5"));
    // The field hands its text on when it loses the focus.
    window.findChild<QWidget*>(QStringLiteral("buttonDownload"))->setFocus();
}

void Tour::editPoints()
{
    auto* area = window.findChild<QMdiArea*>();
    const QList<QMdiSubWindow*> spectra = area->subWindowList();
    area->setActiveSubWindow(spectra.constLast());
    letEventsPass();
    for (const char* button : {"buttonNormalize", "buttonSparse"}) {
        QWidget* spectrum = spectra.constLast()->widget();
        spectrum->findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    }
    trigger("actionCopy");
}

void Tour::copySpectrumTo(const QString& otherEntry, const QString& copy)
{
    if (!open(otherEntry))
        return;
    trigger("actionPaste");
    saveAs(copy);
    takePicture(window, QStringLiteral("3-spectrum-copied-to-another-entry"));
}

bool Tour::isFoundAsSaved(const QString& path)
{
    const JsonFile::ReadResult saved = JsonFile::read(path);
    if (!saved.parsed || !open(path))
        return false;
    const QString again = path + QLatin1String(".again");
    saveAs(again);
    return JsonFile::read(again).object == saved.object && QFile::remove(again);
}

void Tour::showBoxes()
{
    window.setModified();
    whenDialogOpens([this](QWidget& box) {
        takePicture(box, QStringLiteral("4-save-question"));
        box.close();
    });
    window.close();

    whenDialogOpens([this](QWidget& box) {
        takePicture(box, QStringLiteral("5-error-box"));
        box.close();
    });
    QApplication::clipboard()->setText(QStringLiteral("[1, 2, 3]"));
    trigger("actionPaste");
}

void Tour::trigger(const char* action)
{
    window.findChild<QAction*>(QString::fromLatin1(action))->trigger();
    letEventsPass();
}

void Tour::saveAs(const QString& path)
{
    whenDialogOpens([path](QWidget& dialog) {
        QFile::remove(path);
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    trigger("actionSaveSpeciesAs");
}

void Tour::typeInto(const char* field, const QString& text)
{
    auto* edit = window.findChild<QWidget*>(QString::fromLatin1(field));
    edit->setFocus();
    pressKeys(*edit, text);
}

void Tour::whenDialogOpens(const std::function<void(QWidget&)>& answer)
{
    QTimer::singleShot(50ms, &window, [this, answer] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            whenDialogOpens(answer);
        else
            answer(*dialog);
    });
}

void Tour::takePicture(QWidget& widget, const QString& name)
{
    letEventsPass(300ms);
    widget.grab().save(outputFolder.filePath(name + QLatin1String(".png")));
}
