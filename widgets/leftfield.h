// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointer>
#include <QTextEdit>

/// Takes the focus from the text field of a window that has it, so that what was typed there counts
/// before the document is left: a tool button, a drop and the close button take no focus
/// themselves. Where nothing else has got the focus in the end, the field gets it back, with its
/// cursor if its text is still the same. Anything else that has the focus keeps it.
class LeftField
{
public:
    explicit LeftField(const QWidget& window);
    ~LeftField();
    Q_DISABLE_COPY_MOVE(LeftField)

private:
    QPointer<QTextEdit> field;
    QString text;
    int anchor = 0;
    int position = 0;
};
