// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <optional>

class CleanTextEdit;
class QAbstractItemModel;
class QWidget;

/// A text that was typed into a mapped field and counts only when the field is left.
struct TypedText
{
    const QAbstractItemModel* model;
    int column; ///< In which the model does not yet hold the text.
    QString text;
};

/// The typed text of the field; nothing when it holds none, is null, or is no field that a mapper
/// around it maps.
[[nodiscard]] std::optional<TypedText> typedTextOf(QWidget* field);

/// Tells whether the field with the focus, anywhere in a window, holds a typed text.
class TypedField : public QObject
{
    Q_OBJECT

public:
    /// Owned by the window and active as long as it lives.
    explicit TypedField(QWidget* window);

Q_SIGNALS:
    void changed(bool isTyped);

private:
    void follow(QWidget* focus);
    void update();

    QWidget* window;
    QPointer<CleanTextEdit> field; ///< With the focus.
    bool wasTyped = false;
};
