// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/tour/tour.h"

#include "species/fileorder.h"
#include "spectrum/spectrumwindow.h"
#include "support/jsonfile.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>

Tour::Tour(const QDir& examples, const QDir& output)
    : examplesFolder(examples)
    , outputFolder(output)
{
    outputFolder.mkpath(QStringLiteral("."));
}

QStringList Tour::account() const
{
    return told;
}

bool Tour::run()
{
    const QStringList entries =
        inSteppingOrder(examplesFolder.entryList({QStringLiteral("*.json")}, QDir::Files));
    if (entries.size() < 2 || !visitor.open(examplesFolder.filePath(entries.at(0)))) {
        told += QStringLiteral("No example entries in %1").arg(examplesFolder.path());
        return false;
    }
    takePicture(visitor.window(), QStringLiteral("1-entry"));

    editFields();
    editPoints();
    const QString entry = outputFolder.filePath(QStringLiteral("edited entry.json"));
    visitor.saveAs(entry);
    takePicture(visitor.window(), QStringLiteral("2-edited-and-saved"));
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

void Tour::editFields()
{
    const QString text = QStringLiteral("as for CO2");
    auto& comment = Visitor::child<QWidget>(visitor.window(), "lineEditVIEComment");
    Visitor::typeInto(comment, text);
    Visitor::selectCharacter(comment, static_cast<int>(text.size()) - 1);
    visitor.trigger("actionSubscript");
    Visitor::typeInto(Visitor::child<QWidget>(visitor.window(), "lineEditVIE"),
                      QStringLiteral("9.5"));
    visitor.leaveFields();
}

void Tour::editPoints()
{
    visitor.activateSpectrum(static_cast<int>(visitor.spectra().size()) - 1);
    for (const char* button : {"buttonNormalize", "buttonSparse"})
        Visitor::child<QAbstractButton>(visitor.activeSpectrum(), button).click();
    visitor.trigger("actionCopy");
}

void Tour::copySpectrumTo(const QString& otherEntry, const QString& copy)
{
    if (!visitor.open(otherEntry))
        return;
    visitor.trigger("actionPaste");
    visitor.saveAs(copy);
    takePicture(visitor.window(), QStringLiteral("3-spectrum-copied-to-another-entry"));
}

bool Tour::isFoundAsSaved(const QString& path)
{
    const JsonFile::ReadResult saved = JsonFile::read(path);
    if (!saved.parsed || !visitor.open(path))
        return false;
    const QString again = path + QLatin1String(".again");
    visitor.saveAs(again);
    return JsonFile::read(again).object == saved.object && QFile::remove(again);
}

void Tour::showBoxes()
{
    visitor.window().setModified();
    visitor.whenOneOpens([this](QWidget& box) {
        takePicture(box, QStringLiteral("4-save-question"));
        box.close();
    });
    visitor.window().close();

    visitor.whenOneOpens([this](QWidget& box) {
        takePicture(box, QStringLiteral("5-error-box"));
        box.close();
    });
    QGuiApplication::clipboard()->setText(QStringLiteral("[1, 2, 3]"));
    visitor.trigger("actionPaste");
}

void Tour::takePicture(QWidget& widget, const QString& name)
{
    Visitor::letEventsPass(std::chrono::milliseconds(300));
    widget.grab().save(outputFolder.filePath(name + QLatin1String(".png")));
}
