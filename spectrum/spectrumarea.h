// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QList>

#include <memory>
#include <optional>
#include <vector>

class ClosedSpectra;
class LongWork;
class QMdiArea;
class QWidget;
class SpectrumTabs;
class SpectrumWatch;
class SpectrumWindow;

/// The spectra of a document: one sub-window each in a multiple-document area, which it borrows and
/// which has to outlive it.
class SpectrumArea
{
public:
    /// An area that shows its sub-windows as tabs.
    explicit SpectrumArea(QMdiArea& multipleDocumentArea);

    /// Takes the window into a sub-window of its own, which is deleted when it closes, and shows
    /// it.
    void add(SpectrumWindow* window);

    using Windows = std::vector<std::unique_ptr<SpectrumWindow>>;

    /// A window for each dataset, constructed with @p document as its parent, which does not learn
    /// of that; they are in no area yet. Nothing when the work was stopped.
    [[nodiscard]] static std::optional<Windows> prepare(const QList<QJsonObject>& datasets,
                                                        QWidget* document, LongWork& work);

    /// Adds the windows, which nobody has seen yet, and activates the first of all spectra. However
    /// many there are, what is seen is painted once.
    void show(Windows&& windows);

    /// The spectrum in front; null when there is none.
    [[nodiscard]] SpectrumWindow* active() const;

    /// The spectrum records in the order in which the windows were added.
    [[nodiscard]] QList<QJsonObject> records() const;

    /// Closes the spectrum in front, without a question. Returns whether there was one.
    bool closeActive();

    /// Closes all spectra, and forgets those that could have been brought back.
    void closeAll();

    /// Those that a person has closed and can bring back.
    [[nodiscard]] ClosedSpectra& closed() const { return *closedSpectra; }
    [[nodiscard]] const SpectrumWatch& watch() const { return *spectrumWatch; }

private:
    [[nodiscard]] QList<SpectrumWindow*> all() const;
    /// Adds the window, takes its title away and returns it: a sub-window measures its title again
    /// and again until it is shown. The area does not learn of the activation of one that is added
    /// quietly.
    [[nodiscard]] QString addWithoutTitle(SpectrumWindow* window, bool quietly);
    void showFirst();

    QMdiArea& area;
    SpectrumTabs* tabs; ///< Belongs to the area, as do the others.
    SpectrumWatch* spectrumWatch;
    ClosedSpectra* closedSpectra;
};
