// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "species/speciesmodel.h"
#include "tests/support/child.h"

#include <QJsonObject>
#include <QStringList>
#include <QUrl>

class QMdiSubWindow;
class QWidget;
class SpectrumWindow;

/// What tests do with a shown main window, and what they look up in it.
namespace TestSupport {

/// Chooses the action as from its menu.
void trigger(const QWidget& window, const char* actionName);

/// The sub-windows in creation order, those already closed left out.
[[nodiscard]] QList<QMdiSubWindow*> subWindows(const QWidget& window);
[[nodiscard]] QList<SpectrumWindow*> spectra(const QWidget& window);

/// The dataset titles in creation order.
[[nodiscard]] QStringList spectrumTitles(const QWidget& window);

/// The text of one cell of the species record.
[[nodiscard]] QString cell(const QWidget& window, SpeciesModel::Column column);

/// Clicks into the field, selects all that is there and types @p text (Latin-1) over it.
void typeInto(QWidget& field, const QString& text);

/// Drags the URLs from outside to the centre of @p onto, a widget inside the shown @p window, and
/// drops them there if they are accepted. Returns whether they were.
bool dropUrls(QWidget& window, const QWidget& onto, const QList<QUrl>& urls);
bool dropFile(QWidget& window, const QWidget& onto, const QString& path);

/// The stored start folder of file dialogs; empty while none is stored.
[[nodiscard]] QString rememberedFolder();
void rememberFolder(const QString& folder);

/// A spectrum record with this title and two points.
[[nodiscard]] QJsonObject datasetTitled(const QString& title);

/// The text of a species file with this name and one dataset a title.
[[nodiscard]] QByteArray speciesFile(const QString& name, const QStringList& titles = {});

/// The text of a spectrum file.
[[nodiscard]] QByteArray spectrumFile(const QString& title);

} // namespace TestSupport
