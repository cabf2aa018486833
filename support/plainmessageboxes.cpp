// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/plainmessageboxes.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>

PlainMessageBoxes::PlainMessageBoxes(QObject* parent)
    : QObject(parent)
{
    QApplication::instance()->installEventFilter(this);
}

bool PlainMessageBoxes::eventFilter(QObject* watched, QEvent* event)
{
    // Before it is laid out: the layout already loads what markup names.
    if (event->type() == QEvent::Polish) {
        if (auto* box = qobject_cast<QMessageBox*>(watched))
            box->setTextFormat(Qt::PlainText);
    }
    return false;
}
