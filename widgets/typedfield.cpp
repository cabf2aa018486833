// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/typedfield.h"

#include "widgets/cleantextedit.h"
#include "widgets/windowparts.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDataWidgetMapper>

#include <utility>

namespace {

const QDataWidgetMapper* mapperOf(QWidget* field)
{
    for (const QWidget* outer = field; outer != nullptr; outer = outer->parentWidget()) {
        const auto* mapper = outer->findChild<QDataWidgetMapper*>({}, Qt::FindDirectChildrenOnly);
        if (mapper != nullptr && mapper->mappedSection(field) >= 0)
            return mapper;
    }
    return nullptr;
}

} // namespace

std::optional<TypedText> typedTextOf(QWidget* field)
{
    const auto* edit = qobject_cast<CleanTextEdit*>(field);
    // A text that nobody has edited may still be spelt differently in the model.
    if (edit == nullptr || !edit->document()->isModified())
        return {};
    const QDataWidgetMapper* mapper = mapperOf(field);
    if (mapper == nullptr)
        return {};
    const QAbstractItemModel* model = mapper->model();
    const int column = mapper->mappedSection(field);
    const QVariant held = model->index(mapper->currentIndex(), column).data(Qt::EditRole);
    // As the model will compare them: nothing is new in "18.0" for the number 18.
    const QString text = edit->cleanedHtml();
    const bool bothAreEmpty = text.isEmpty() && held.toString().isEmpty();
    if (bothAreEmpty || held == QVariant(text))
        return {};
    return TypedText{model, column, text};
}

TypedField::TypedField(QWidget* watchedWindow)
    : QObject(watchedWindow)
    , window(watchedWindow)
{
    // By then the field that is left has handed its text on.
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*left*/, QWidget* focus) { follow(focus); });
}

void TypedField::follow(QWidget* focus)
{
    if (!field.isNull())
        field->disconnect(this);
    field = isInsideWindow(focus, *window) ? qobject_cast<CleanTextEdit*>(focus) : nullptr;
    if (!field.isNull())
        connect(field, &CleanTextEdit::cleanedHtmlChanged, this, &TypedField::update);
    update();
}

void TypedField::update()
{
    const bool isTyped = typedTextOf(field).has_value();
    if (std::exchange(wasTyped, isTyped) != isTyped)
        Q_EMIT changed(isTyped);
}
