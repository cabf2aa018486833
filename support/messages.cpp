// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/messages.h"

#include "support/waitcursor.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>

namespace {

void show(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text)
{
    const SuspendedWaitCursor suspended;
    // On the heap and watched: the parent may be destroyed while the box is open.
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, QMessageBox::Ok, parent);
    box->setTextFormat(Qt::PlainText);
    box->exec();
    delete box;
}

class PlainTextEnforcer : public QObject
{
public:
    explicit PlainTextEnforcer(QObject* owner)
        : QObject(owner)
    {
        QApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Before it is laid out: the layout already loads what markup names.
        if (event->type() == QEvent::Polish) {
            if (auto* box = qobject_cast<QMessageBox*>(watched))
                box->setTextFormat(Qt::PlainText);
        }
        return false;
    }
};

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

QMessageBox::StandardButton question(const QString& title, const QString& text,
                                     const QString& informativeText,
                                     QMessageBox::StandardButtons buttons,
                                     QMessageBox::StandardButton defaultButton)
{
    const SuspendedWaitCursor suspended;
    QMessageBox box;
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setInformativeText(informativeText);
    box.setStandardButtons(buttons);
    box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

void keepAllPlain(QObject* owner)
{
    new PlainTextEnforcer(owner);
}

} // namespace Messages
