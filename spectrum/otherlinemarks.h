// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QRgb>
#include <QTextDocument>

class QPlainTextEdit;

/// Colours those lines of a point list that are no points. Blank lines have nothing to colour.
///
/// Only what is about to be painted is looked at, so that a long list costs no more than a short
/// one. The list's extra selections belong to this object.
class OtherLineMarks : public QObject
{
    Q_OBJECT

public:
    /// Owned by @p pointList and active as long as it lives.
    explicit OtherLineMarks(QPlainTextEdit* pointList);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the marks depend on besides the text.
    struct Seen
    {
        int first = -1; ///< Block numbers.
        int last = -1;
        QRgb background = 0;
        bool operator==(const Seen&) const = default;
    };

    void watchDocument();
    void markWhatIsSeen();

    QPlainTextEdit* list;
    QPointer<const QTextDocument> watchedDocument;
    Seen marked;
    bool textIsNew = true;
};
