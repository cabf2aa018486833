// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

class QKeySequence;
class QWidget;
class SpectrumWindow;

/// Keeps spectra that are closed, so that each can be brought back, the last one first: with all
/// its texts, those of the kind of type that is not chosen included, and with the lines of its
/// points as they were typed. How far the list could be undone and what was zoomed is not kept.
class ClosedSpectra : public QObject
{
    Q_OBJECT

public:
    /// More are not kept: those closed first are forgotten.
    static constexpr qsizetype mostSpectra = 10;
    /// Nor are those whose texts are longer together, but for the one closed last. 32 MB.
    static constexpr qsizetype mostCharacters = 16'000'000;

    explicit ClosedSpectra(QObject* parent = nullptr);

    /// From now on keeps the spectrum when it is closed, or no longer does.
    void follow(SpectrumWindow* spectrum);
    void unfollow(SpectrumWindow* spectrum);

    /// Forgets what is kept.
    void forget();

    /// The spectrum closed last that has not come back, in a new window that is constructed with
    /// @p document as its parent; null when there is none.
    [[nodiscard]] SpectrumWindow* takeBack(QWidget* document);

    /// The keys with which a person asks for it.
    [[nodiscard]] static QKeySequence keys();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// What a person can bring back, and how, in words; empty when there is nothing.
    void hintChanged(const QString& hint);

private:
    struct Kept
    {
        QString title;
        QList<QVariant> cells; ///< In the order of the model's columns.
        QString pointText;
    };

    [[nodiscard]] static qsizetype charactersOf(const Kept& kept);
    void keep(const SpectrumWindow& spectrum);
    void dropTheFirst();
    void tell();

    QList<Kept> closed; ///< In the order of their closing.
};
