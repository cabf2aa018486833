// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/cleantextedit.h"

#include "widgets/cleanedhtml.h"

#include <QImage>
#include <QUrl>

CleanTextEdit::CleanTextEdit(QWidget* parent)
    : QTextEdit(parent)
{
    setTabChangesFocus(true);
    setAcceptRichText(false);
    connect(this, &QTextEdit::textChanged, this, [this] { onTextChanged(); });
}

QString CleanTextEdit::cleanedHtml() const
{
    return CleanedHtml::fromDocument(*document());
}

void CleanTextEdit::setCleanedHtml(const QString& html)
{
    setHtml(CleanedHtml::forHtmlReader(html));
}

QVariant CleanTextEdit::loadResource(int type, const QUrl& /*name*/)
{
    // An answer that is not empty: without one the document would try to open the file itself.
    if (type == QTextDocument::ImageResource) {
        QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    return QByteArray("");
}

void CleanTextEdit::onTextChanged()
{
    Q_EMIT cleanedHtmlChanged();
}
