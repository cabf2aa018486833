// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

#include <functional>

class SingleLineTextEdit;

/// Shows a hint on a field whose text looks mistyped, and takes it away as soon as it does not. A
/// new hint waits until the field is left: nobody is told off in the middle of a number.
class FieldHint : public QObject
{
    Q_OBJECT

public:
    /// What is to be said about a plain text; empty when there is nothing.
    using Check = std::function<QString(const QString& text)>;

    /// Owned by @p watchedField and active as long as it lives.
    FieldHint(SingleLineTextEdit* watchedField, Check fieldCheck);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    SingleLineTextEdit* field;
    Check check;
};
