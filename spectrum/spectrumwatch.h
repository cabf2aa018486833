// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QObject>
#include <QString>

class QMdiArea;
class SpectrumModel;
class SpectrumWindow;

/// Watches the spectra in a multiple-document area: what was understood of the one in front, and
/// whether any of them holds points that are not yet taken over.
///
/// The points of a spectrum are counted when it is in front, once after each change, however many
/// changes there are before the next painting.
class SpectrumWatch : public QObject
{
    Q_OBJECT

public:
    /// Owned by the area.
    explicit SpectrumWatch(QMdiArea* area);

    /// Watches a spectrum in the area.
    void follow(SpectrumWindow* spectrum);

Q_SIGNALS:
    /// The spectrum in front, or what was understood of it, has changed; empty when there is none.
    void summaryChanged(const QString& text);
    void typedPointsChanged(bool areTyped);

private:
    void forget(const QObject* model);
    void updateSoon();
    void update();
    [[nodiscard]] QString summary();
    [[nodiscard]] bool hasTypedPoints() const;

    QMdiArea* area;
    QHash<const QObject*, QString> summaries; ///< By model, of those that were in front.
    bool isUpdating = false;
};
