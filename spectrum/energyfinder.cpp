// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/energyfinder.h"

#include "spectrum/pointlines.h"
#include "spectrum/pointlistlines.h"
#include "spectrum/pointtext.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMoveEvent>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <QScrollArea>
#include <QShortcut>
#include <QToolButton>

using namespace Qt::StringLiterals;

EnergyFinder::EnergyFinder(QPlainTextEdit& pointList, QWidget* window)
    : QWidget(window)
    , list(pointList)
{
    hide();

    auto* opening = new QShortcut(Qt::CTRL | Qt::Key_F, window);
    opening->setContext(Qt::WidgetWithChildrenShortcut);
    connect(opening, &QShortcut::activated, this, &EnergyFinder::open);
}

void EnergyFinder::arrange()
{
    field = new QLineEdit(this);
    message = new QLabel(this);
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &EnergyFinder::giveUp);
    connect(field, &QLineEdit::textChanged, this, [this] { find(0); });
    connect(field, &QLineEdit::returnPressed, this, &EnergyFinder::findNext);
    connect(&list, &QPlainTextEdit::textChanged, this, [this] { say({}); }); // true no longer

    auto* caption = new QLabel(tr("Find energy / eV"), this);
    caption->setBuddy(field);
    field->setObjectName(u"lineEditFindEnergy"_s);
    field->setAccessibleName(caption->text());
    field->setAccessibleDescription(tr("Selects the line of the nearest point"));
    constexpr int mostCharacters = 40;
    field->setMaxLength(mostCharacters);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(u"-1234.567890 eV"_s));
    message->setObjectName(u"labelFindEnergy"_s);
    message->setTextFormat(Qt::PlainText);
    message->setWordWrap(true);
    auto* closing = new QToolButton(this);
    closing->setText(u"\u00d7"_s);
    closing->setAutoRaise(true);
    closing->setFocusPolicy(Qt::NoFocus); // Escape is at hand
    closing->setToolTip(
        tr("Close (%1)").arg(QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText)));
    closing->setAccessibleName(tr("Close"));
    connect(closing, &QToolButton::clicked, this, &EnergyFinder::giveUp);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(caption);
    row->addWidget(field);
    row->addWidget(message, 1);
    row->addWidget(closing);
}

void EnergyFinder::open()
{
    // Few of the spectra of an entry are ever searched.
    if (field == nullptr)
        arrange();
    show();
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

void EnergyFinder::giveUp()
{
    hide();
    say({});
    list.setFocus(Qt::ShortcutFocusReason);
}

void EnergyFinder::find(qsizetype fromLine)
{
    const QString typed = field->text();
    if (typed.trimmed().isEmpty()) {
        say({});
        return;
    }
    const std::optional<double> energy = PointLines::energyIn(typed);
    if (!energy) {
        say(tr("This is no energy. Please type a number with a decimal point, such as 12.62."));
        return;
    }
    const auto line = PointLines::nearest(list.toPlainText(), *energy, fromLine);
    if (!line) {
        say(tr("There are no points in the list."));
        return;
    }
    PointListLines::select(list, *line);
    constexpr int digits = 10;
    say(tr("%1 eV in line %2").arg(line->point->x(), 0, 'g', digits).arg(line->number + 1));
}

void EnergyFinder::findNext()
{
    const int end = list.textCursor().selectionEnd();
    find(QStringView(list.toPlainText()).first(end).count(u'\n') + 1);
}

void EnergyFinder::say(const QString& text)
{
    message->setText(text);
    field->setAccessibleDescription(text.isEmpty() ? tr("Selects the line of the nearest point")
                                                   : text);
}

// In small windows it gets its place, and a message of several lines the room for it, only after
// the focus has been shown.
void EnergyFinder::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    QMetaObject::invokeMethod(this, &EnergyFinder::scrollIntoView, Qt::QueuedConnection);
}

void EnergyFinder::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    QMetaObject::invokeMethod(this, &EnergyFinder::scrollIntoView, Qt::QueuedConnection);
}

void EnergyFinder::scrollIntoView()
{
    if (field == nullptr || !field->hasFocus())
        return;
    for (QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(around);
        if (area == nullptr)
            continue;
        const QRect whole(mapTo(area->widget(), QPoint(0, 0)), size());
        const QRect typed = field->geometry().translated(whole.topLeft());
        area->ensureVisible(typed.right() + 1, whole.bottom() + 1, 0, 0);
        area->ensureVisible(typed.left(), whole.top(), 0, 0);
    }
}
