// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/jsonfiledialog.h"

#include "support/lastopenfolder.h"

#include <QCoreApplication>
#include <QFileDialog>

namespace {

QString filter()
{
    return QCoreApplication::translate("MainWindow", "JSON Files (*.json);;All Files (*)");
}

} // namespace

namespace JsonFileDialog {

QString nameToOpen(QWidget* parent, const QString& title)
{
    return QFileDialog::getOpenFileName(parent, title, LastOpenFolder::path(), filter());
}

QString nameToSave(QWidget* parent, const QString& title, const QString& start)
{
    return QFileDialog::getSaveFileName(parent, title, start, filter());
}

} // namespace JsonFileDialog
