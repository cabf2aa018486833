// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QWidget>

class ElidedLabel;

/// Short texts beside each other in one line, some from its left end on and some up to its right
/// end. Where there is too little room, long ones give way to short ones, and all to those of the
/// first rank. A window may become as small as it could without the line.
class StatusLine : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// How much each of those who want so much gets of @p room: nobody more than wanted, and those
    /// who get less than wanted as much as each other, or one more.
    [[nodiscard]] static QList<int> fairShares(const QList<int>& wanted, int room);

protected:
    enum class Side { Left, Right };
    enum class Rank { First, Second }; ///< Whose text is not to give way to the others'.
    /// A label behind those that the side has already. Screen readers describe it with @p meaning.
    ElidedLabel* addLabel(Side side, Rank rank, const char* name, const QString& meaning);

    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Place
    {
        ElidedLabel* label;
        Side side;
        Rank rank;
    };

    [[nodiscard]] static QList<int> shares(const QList<Place>& shown, int room);
    void arrange();

    QList<Place> places; ///< From left to right.
};
