// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/tour.h"

#include "species/fileorder.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"
#include "tests/support/child.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>

using TestSupport::child;
using namespace Qt::StringLiterals;

Tour::Tour(const QDir& examples, const QDir& output)
    : examplesFolder(examples)
    , outputFolder(output)
{
    outputFolder.mkpath(u"."_s);
}

QStringList Tour::account() const
{
    return told;
}

bool Tour::run()
{
    const QStringList entries =
        inSteppingOrder(examplesFolder.entryList({u"*.json"_s}, QDir::Files));
    if (entries.size() < 2 || !visitor.open(examplesFolder.filePath(entries.at(0)))) {
        told += u"No example entries in %1"_s.arg(examplesFolder.path());
        return false;
    }
    takePicture(visitor.window(), u"1-entry"_s);

    editFields();
    editPoints();
    const QString entry = outputFolder.filePath(u"edited entry.json"_s);
    visitor.saveAs(entry);
    takePicture(visitor.window(), u"2-edited-and-saved"_s);
    told += u"Opened, edited and saved %1"_s.arg(entries.at(0));

    const QString other = outputFolder.filePath(u"entry with copied spectrum.json"_s);
    copySpectrumTo(examplesFolder.filePath(entries.at(1)), other);
    told += u"Copied a spectrum to %1"_s.arg(entries.at(1));

    const bool asSaved = isFoundAsSaved(entry) && isFoundAsSaved(other);
    told += asSaved ? u"Opened both again: everything is as saved"_s
                    : u"Opened both again: NOT everything is as saved"_s;
    showBoxes();
    told += u"Pictures and saved entries are in %1"_s.arg(outputFolder.absolutePath());
    return asSaved;
}

void Tour::editFields()
{
    const QString text = u"as for CO2"_s;
    auto* comment = child<QWidget>(visitor.window(), "lineEditVIEComment");
    Visitor::typeInto(*comment, text);
    Visitor::selectCharacter(*comment, static_cast<int>(text.size()) - 1);
    visitor.trigger("actionSubscript");
    Visitor::typeInto(*child<QWidget>(visitor.window(), "lineEditVIE"), u"9.5"_s);
    visitor.leaveFields();
}

void Tour::editPoints()
{
    visitor.activateSpectrum(static_cast<int>(visitor.spectra().size()) - 1);
    for (const char* button : {"buttonNormalize", "buttonSparse"})
        child<QAbstractButton>(visitor.activeSpectrum(), button)->click();
    visitor.trigger("actionCopy");
}

void Tour::copySpectrumTo(const QString& otherEntry, const QString& copy)
{
    if (!visitor.open(otherEntry))
        return;
    visitor.trigger("actionPaste");
    visitor.saveAs(copy);
    takePicture(visitor.window(), u"3-spectrum-copied-to-another-entry"_s);
}

bool Tour::isFoundAsSaved(const QString& path)
{
    const JsonFile::ReadResult saved = JsonFile::read(path);
    if (saved.object.isEmpty() || !visitor.open(path))
        return false;
    const QString again = path + ".again"_L1;
    visitor.saveAs(again);
    return JsonFile::read(again).object == saved.object && QFile::remove(again);
}

void Tour::showBoxes()
{
    visitor.window().setModified();
    visitor.whenOneOpens([this](QWidget& box) {
        takePicture(box, u"4-save-question"_s);
        box.close();
    });
    visitor.window().close();

    visitor.whenOneOpens([this](QWidget& box) {
        takePicture(box, u"5-error-box"_s);
        box.close();
    });
    QGuiApplication::clipboard()->setText(u"[1, 2, 3]"_s);
    visitor.trigger("actionPaste");
}

void Tour::takePicture(QWidget& widget, const QString& name)
{
    Visitor::letEventsPass(std::chrono::milliseconds(300));
    widget.grab().save(outputFolder.filePath(name + ".png"_L1));
}
