// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QTextDocument>

/// The list of points: plain text of up to a hundred thousand lines and more. What is selected or
/// pasted goes there and back as text; by way of the toolkit's document fragments, selecting all of
/// such a list takes a third of a second where selections are shared between programs.
///
/// It has no meta-object of its own: to everybody else it is a QPlainTextEdit.
class PointListEdit : public QPlainTextEdit // clazy:exclude=missing-qobject-macro
{
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void dropEvent(QDropEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void insertLongText(const QString& text);

    bool mayBeStopped = true;              ///< Whether what is inserted may also not come at all.
    QPointer<const QTextDocument> wrapped; ///< Whose lines were wrapped last,
    int wrapWidth = 0;                     ///< and for this width of the view.
};
