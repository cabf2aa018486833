// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tools/examples/structuredrawing.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>
#include <numbers>

namespace {

// Two pixels for one unit of all lengths below, so that a picture is never shown enlarged.
constexpr int pixelsPerUnit = 2;
constexpr QSize flatSize(300, 120);
constexpr QSize tallSize(300, 200);
constexpr double letterHeight = 50.0;
constexpr double letterStroke = 6.5;
constexpr double bondStroke = 5.0;
constexpr double bondSpacing = 13.0;
constexpr double letterClearance = 36.0; // from the middle of a letter to the end of its bonds
constexpr double dotRadius = 4.0;
constexpr double dotSpacing = 14.0;   // within a lone pair
constexpr double dotClearance = 38.0; // from the middle of a letter to its dots
constexpr double chargeLength = 16.0;

/// The vector of that length in a direction, degrees counter-clockwise from the right.
QPointF polar(double length, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180.0;
    return {length * std::cos(angle), -length * std::sin(angle)};
}

/// Lays structural formulas out on an image.
class Drawing
{
public:
    explicit Drawing(const QSize& size)
        : picture(pixelsPerUnit * size, QImage::Format_RGB32)
    {
        picture.fill(Qt::white);
        // Otherwise the screen's resolution would end up in the file.
        constexpr int dotsPerMetre = 3780; // 96 dpi
        picture.setDotsPerMeterX(dotsPerMetre);
        picture.setDotsPerMeterY(dotsPerMetre);
    }

    [[nodiscard]] QImage image() const { return picture; }

    void carbon(const QPointF& middle)
    {
        constexpr double opening = 52.0; // degrees
        const QRectF box = roundLetterBox(middle, 0.88);
        QPainterPath arc;
        arc.arcMoveTo(box, opening);
        arc.arcTo(box, opening, 360.0 - 2.0 * opening);
        stroke(arc, letterStroke);
    }

    void oxygen(const QPointF& middle)
    {
        QPainterPath ring;
        ring.addEllipse(roundLetterBox(middle, 0.92));
        stroke(ring, letterStroke);
    }

    void nitrogen(const QPointF& middle)
    {
        const QRectF box = angularLetterBox(middle);
        stems(box);
        constexpr double slantWidth = 1.35 * letterStroke; // measured along the horizontal
        fill(QPolygonF({box.topLeft(), box.topLeft() + QPointF(slantWidth, 0.0), box.bottomRight(),
                        box.bottomRight() - QPointF(slantWidth, 0.0)}));
    }

    void hydrogen(const QPointF& middle)
    {
        const QRectF box = angularLetterBox(middle);
        stems(box);
        fill(QPolygonF(
            QRectF(box.left(), middle.y() - letterStroke / 2.0, box.width(), letterStroke)));
    }

    /// A bond between two letters.
    void bond(const QPointF& from, const QPointF& to, int order)
    {
        const QLineF axis(from, to);
        const QPointF along = (to - from) / axis.length();
        const QPointF across(-along.y(), along.x());
        for (int i = 0; i < order; ++i) {
            const QPointF shift = across * (bondSpacing * (i - (order - 1) / 2.0));
            line(from + along * letterClearance + shift, to - along * letterClearance + shift);
        }
    }

    /// A single line of the skeleton, without letters at its ends.
    void line(const QPointF& from, const QPointF& to)
    {
        QPainterPath path(from);
        path.lineTo(to);
        stroke(path, bondStroke);
    }

    void skeletonRing(const QPolygonF& corners)
    {
        QPainterPath path;
        path.addPolygon(corners);
        path.closeSubpath();
        stroke(path, bondStroke);
    }

    void unpairedElectron(const QPointF& atom, double direction)
    {
        dot(atom + polar(dotClearance, direction));
    }

    void lonePair(const QPointF& atom, double direction)
    {
        const QPointF middle = atom + polar(dotClearance, direction);
        const QPointF half = polar(dotSpacing / 2.0, direction + 90.0);
        dot(middle + half);
        dot(middle - half);
    }

    void minus(const QPointF& middle) { fill(bar(middle, chargeLength, bondStroke - 1.0)); }

    void plus(const QPointF& middle)
    {
        minus(middle);
        fill(bar(middle, bondStroke - 1.0, chargeLength));
    }

private:
    static QRectF around(const QPointF& middle, double width, double height)
    {
        return {middle.x() - width / 2.0, middle.y() - height / 2.0, width, height};
    }

    static QPolygonF bar(const QPointF& middle, double width, double height)
    {
        return {around(middle, width, height)};
    }

    static QRectF angularLetterBox(const QPointF& middle)
    {
        return around(middle, 0.78 * letterHeight, letterHeight);
    }

    /// The middle line of the stroke of a round letter, which is a little higher than the others to
    /// look as high.
    static QRectF roundLetterBox(const QPointF& middle, double relativeWidth)
    {
        constexpr double overshoot = 2.0;
        return around(middle, relativeWidth * letterHeight - letterStroke,
                      letterHeight + overshoot - letterStroke);
    }

    void stems(const QRectF& box)
    {
        fill(QPolygonF(QRectF(box.left(), box.top(), letterStroke, box.height())));
        fill(QPolygonF(QRectF(box.right() - letterStroke, box.top(), letterStroke, box.height())));
    }

    void dot(const QPointF& middle)
    {
        QPainterPath disc;
        disc.addEllipse(middle, dotRadius, dotRadius);
        fill(disc);
    }

    void fill(const QPolygonF& polygon)
    {
        QPainterPath path;
        path.addPolygon(polygon);
        fill(path);
    }

    void fill(const QPainterPath& path)
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(pixelsPerUnit, pixelsPerUnit);
        painter.fillPath(path, Qt::black);
    }

    void stroke(const QPainterPath& path, double width)
    {
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(pixelsPerUnit, pixelsPerUnit);
        painter.strokePath(path, QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    }

    QImage picture;
};

constexpr double right = 0.0;
constexpr double left = 180.0;
constexpr QPointF leftAtom(82.0, 60.0);
constexpr QPointF rightAtom(218.0, 60.0);

} // namespace

namespace StructureDrawing {

QImage nitricOxide()
{
    Drawing drawing(flatSize);
    drawing.nitrogen(leftAtom);
    drawing.oxygen(rightAtom);
    drawing.bond(leftAtom, rightAtom, 2);
    drawing.unpairedElectron(leftAtom, 90.0);
    drawing.lonePair(leftAtom, left);
    drawing.lonePair(rightAtom, 60.0);
    drawing.lonePair(rightAtom, -60.0);
    return drawing.image();
}

QImage nitrogen()
{
    Drawing drawing(flatSize);
    drawing.nitrogen(leftAtom);
    drawing.nitrogen(rightAtom);
    drawing.bond(leftAtom, rightAtom, 3);
    drawing.lonePair(leftAtom, left);
    drawing.lonePair(rightAtom, right);
    return drawing.image();
}

QImage oxygen()
{
    Drawing drawing(flatSize);
    drawing.oxygen(leftAtom);
    drawing.oxygen(rightAtom);
    drawing.bond(leftAtom, rightAtom, 2);
    drawing.lonePair(leftAtom, 120.0);
    drawing.lonePair(leftAtom, -120.0);
    drawing.lonePair(rightAtom, 60.0);
    drawing.lonePair(rightAtom, -60.0);
    return drawing.image();
}

QImage carbonMonoxide()
{
    Drawing drawing(flatSize);
    drawing.carbon(leftAtom);
    drawing.oxygen(rightAtom);
    drawing.bond(leftAtom, rightAtom, 3);
    drawing.lonePair(leftAtom, left);
    drawing.lonePair(rightAtom, right);
    const QPointF charge(30.0, -38.0);
    drawing.minus(leftAtom + QPointF(-charge.x(), charge.y()));
    drawing.plus(rightAtom + charge);
    return drawing.image();
}

QImage water()
{
    constexpr double bondAngle = 104.5;
    constexpr double bondLength = 114.0;
    const QPointF oxygenAtom(150.0, 66.0);
    Drawing drawing(tallSize);
    drawing.oxygen(oxygenAtom);
    for (const double side : {-1.0, 1.0}) {
        const QPointF hydrogenAtom = oxygenAtom + polar(bondLength, -90.0 + side * bondAngle / 2.0);
        drawing.hydrogen(hydrogenAtom);
        drawing.bond(oxygenAtom, hydrogenAtom, 1);
        drawing.lonePair(oxygenAtom, 90.0 + side * 50.0);
    }
    return drawing.image();
}

QImage benzene()
{
    constexpr double radius = 86.0;
    const QPointF middle(150.0, 100.0);
    QPolygonF corners;
    QPolygonF innerCorners;
    // The inner lines of the double bonds end on the lines from the middle to the corners.
    constexpr double bondDistance = 15.0;
    const double innerRadius = radius - bondDistance / std::cos(std::numbers::pi / 6.0);
    for (int i = 0; i < 6; ++i) {
        const double direction = 90.0 + 60.0 * i;
        corners.append(middle + polar(radius, direction));
        innerCorners.append(middle + polar(innerRadius, direction));
    }

    Drawing drawing(tallSize);
    drawing.skeletonRing(corners);
    for (const int i : {0, 2, 4})
        drawing.line(innerCorners.at(i), innerCorners.at(i + 1));
    return drawing.image();
}

} // namespace StructureDrawing
