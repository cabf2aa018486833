// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/fieldhint.h"

#include "widgets/singlelinetextedit.h"

#include <QEvent>

#include <utility>

FieldHint::FieldHint(SingleLineTextEdit* watchedField, Check fieldCheck)
    : QObject(watchedField)
    , field(watchedField)
    , check(std::move(fieldCheck))
{
    field->installEventFilter(this);
    connect(field, &QTextEdit::textChanged, this, &FieldHint::update);
}

bool FieldHint::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        field->setHint(check(field->toPlainText()));
    return false;
}

void FieldHint::update()
{
    const QString hint = check(field->toPlainText());
    if (hint.isEmpty() || !field->hasFocus())
        field->setHint(hint);
}
