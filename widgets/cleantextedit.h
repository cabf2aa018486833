// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QTextEdit>

namespace HtmlReaderText {
struct Prepared;
} // namespace HtmlReaderText

/// Multi-line rich-text field that knows only superscript, subscript and line breaks, and exchanges
/// its content as cleaned HTML. Nothing that its text names (pictures, style sheets) is ever
/// loaded.
class CleanTextEdit : public QTextEdit
{
    Q_OBJECT
    Q_PROPERTY(QString cleanedHtml READ cleanedHtml WRITE setCleanedHtml NOTIFY cleanedHtmlChanged)

public:
    explicit CleanTextEdit(QWidget* parent = nullptr);

    /// The content as cleaned HTML, computed at every call.
    [[nodiscard]] QString cleanedHtml() const;

    /// Replaces the content by @p html, read as HTML; a "<" that begins no tag is text.
    void setCleanedHtml(const QString& html);

    QVariant loadResource(int type, const QUrl& name) override;

    /// Three lines of some words, so that a layout with little room takes it from elsewhere.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// As high as the smallest size: what is left over goes to the fields that grow.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void focusInEvent(QFocusEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    /// Inserts a text without markup as one step. What is more than a field lays out is kept, and
    /// seen as dots.
    void insertPlainly(const QString& text);

    /// Lays a long text out that came, or got its size, while nobody saw it.
    void layOutNow();

Q_SIGNALS:
    /// The text has changed.
    void cleanedHtmlChanged();

private Q_SLOTS:
    void onTextChanged();

private:
    /// Of a text with foreign markup, before it is laid out: whether it can be, and how.
    void judgeFormats(const QString& html, int pieces);
    void setPrepared(const HtmlReaderText::Prepared& text);
    void prepareWrappingFor(const QString& text);

    bool waitsToBeSeen = false; ///< Whether a long text is not laid out yet.
};
