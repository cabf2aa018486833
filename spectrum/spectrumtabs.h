// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

class QFontMetrics;
class QMdiArea;
class QMdiSubWindow;
class QString;
class QTabBar;

/// The tabs of the spectra in a multiple-document area. Each shows the beginning of its spectrum's
/// title, as it is ("&" included), and tells the rest in a tool tip; so many long titles have room
/// beside each other. A middle click does nothing: closing a spectrum discards it. Ctrl+Tab goes
/// from one to the next, wherever in the window the focus is.
class SpectrumTabs : public QObject
{
    Q_OBJECT

public:
    /// The area shows tabs already; it owns this object.
    explicit SpectrumTabs(QMdiArea* area);

    /// While one exists, tabs come and go unseen. The toolkit lays all of them out each time that
    /// one of those that are seen changes. A bar with the focus lends it to the area.
    class Many
    {
    public:
        explicit Many(const SpectrumTabs& tabs);
        ~Many();
        Q_DISABLE_COPY_MOVE(Many)

        /// To be called again for each new tab: even unseen, the toolkit measures all tabs when
        /// one comes, goes or is chosen, but for those that are hidden.
        void hideAllButCurrent();

        /// All tabs are there; now they are all to be seen.
        void showTabs();

    private:
        QMdiArea& area;
        QTabBar& bar;
        bool hadFocus;
    };

    /// Shows the title of the spectrum in the area's child, now and whenever it changes.
    void follow(QMdiSubWindow* subWindow);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// The text of a tab: one line of the title that is no wider than @p width, with every "&"
    /// doubled as tabs want it. Takes no longer for long titles.
    [[nodiscard]] static QString tabText(const QString& title, const QFontMetrics& metrics,
                                         int width);

    /// The title as the text of a tool tip, which breaks lines and takes nothing for markup. Of a
    /// title that would fill the screen the beginning.
    [[nodiscard]] static QString toolTip(const QString& title);

private:
    void addKeys();
    void focusSpectrum();
    void showTitle(const QMdiSubWindow& subWindow);

    QMdiArea* area;
    QTabBar* bar;
};
