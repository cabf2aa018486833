// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/messages.h"

#include <QMessageBox>
#include <QPointer>

namespace {

void show(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text)
{
    // On the heap and watched: the parent may be destroyed while the box is open.
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

} // namespace

namespace Messages {

void information(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Information, parent, title, text);
}

void warning(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Warning, parent, title, text);
}

void critical(QWidget* parent, const QString& title, const QString& text)
{
    show(QMessageBox::Critical, parent, title, text);
}

} // namespace Messages
