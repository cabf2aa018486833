// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/documentwindow.h"

#include "spectrum/spectrummodel.h"
#include "spectrum/spectrumwindow.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMimeData>
#include <QSettings>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

QSettings settings()
{
    return QSettings(u"Ostravel"_s, u"KORVELA"_s);
}

} // namespace

namespace TestSupport {

void trigger(const QWidget& window, const char* actionName)
{
    child<QAction>(window, actionName)->trigger();
}

QList<QMdiSubWindow*> subWindows(const QWidget& window)
{
    return child<QMdiArea>(window, "mdiArea")->subWindowList(QMdiArea::CreationOrder);
}

QList<SpectrumWindow*> spectra(const QWidget& window)
{
    QList<SpectrumWindow*> found;
    const QList<QMdiSubWindow*> all = subWindows(window);
    for (const QMdiSubWindow* subWindow : all)
        found.append(qobject_cast<SpectrumWindow*>(subWindow->widget()));
    return found;
}

QStringList spectrumTitles(const QWidget& window)
{
    QStringList titles;
    const QList<SpectrumWindow*> all = spectra(window);
    for (const SpectrumWindow* spectrum : all) {
        titles.append(spectrum->model()->value(SpectrumModel::Title).toString());
    }
    return titles;
}

QString cell(const QWidget& window, SpeciesModel::Column column)
{
    return window.findChild<SpeciesModel*>()->value(column).toString();
}

void typeInto(QWidget& field, const QString& text)
{
    const auto* area = qobject_cast<QAbstractScrollArea*>(&field);
    QTest::mouseClick(area == nullptr ? &field : area->viewport(), Qt::LeftButton);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
}

bool dropUrls(QWidget& window, const QWidget& onto, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint position = onto.mapTo(&window, onto.rect().center());
    QWindow* handle = window.windowHandle();

    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &enter);
    if (!enter.isAccepted()) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(handle, &leave);
        return false;
    }
    QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &drop);
    return true;
}

bool dropFile(QWidget& window, const QWidget& onto, const QString& path)
{
    return dropUrls(window, onto, {QUrl::fromLocalFile(path)});
}

QString rememberedFolder()
{
    return settings().value(u"lastOpenFolder"_s).toString();
}

void rememberFolder(const QString& folder)
{
    QSettings stored = settings();
    stored.setValue(u"lastOpenFolder"_s, folder);
}

QJsonObject datasetTitled(const QString& title)
{
    return {{u"Title"_s, title},
            {u"SpectType"_s, 2},
            {u"CreatedDate"_s, u"2024-05-06"_s},
            {u"E"_s, QJsonArray{10, 10.5}},
            {u"I"_s, QJsonArray{1, 2}}};
}

QByteArray speciesFile(const QString& name, const QStringList& titles)
{
    QJsonObject file{{u"Type"_s, u"Species v1"_s}, {u"Species"_s, QJsonObject{{u"Name"_s, name}}}};
    int number = 1;
    for (const QString& title : titles)
        file.insert(u"Dataset%1"_s.arg(number++), datasetTitled(title));
    return QJsonDocument(file).toJson();
}

QByteArray spectrumFile(const QString& title)
{
    QJsonObject file = datasetTitled(title);
    file.insert(u"Type"_s, u"Spectrum v1"_s);
    return QJsonDocument(file).toJson();
}

} // namespace TestSupport
