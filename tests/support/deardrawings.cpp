// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/compression.h"
#include "tests/support/dearfiles.h"

namespace {

/// A drawing of 800 by 800 pixels.
QByteArray svg(const QByteArray& content, const QByteArray& prolog = {})
{
    return prolog +
           "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "width=\"800\" height=\"800\">" +
           content + "</svg>";
}

QByteArray species(const QByteArray& drawing)
{
    return DearFiles::speciesFileWithPicture(TestSupport::gzipped(drawing));
}

/// One element after the other, "%" in it replaced by its number.
QByteArray numbered(const QByteArray& element, int count)
{
    QByteArray result;
    for (int i = 0; i < count; ++i)
        result += QByteArray(element).replace("%", QByteArray::number(i));
    return result;
}

QByteArray dataReference(const QByteArray& drawing)
{
    return "data:image/svg+xml;base64," + drawing.toBase64();
}

QByteArray longEntity(int uses)
{
    return species(svg("<text>" + QByteArray("&e;").repeated(uses) + "</text>",
                       "<!DOCTYPE svg [<!ENTITY e \"" + QByteArray(4000, 'a') + "\">]>"));
}

QByteArray drawingsInDrawing(int count)
{
    const QByteArray inner = dataReference(svg("<circle r=\"400\"/>"));
    return species(
        svg(QByteArray("<image width=\"800\" height=\"800\" xlink:href=\"" + inner + "\"/>")
                .repeated(count)));
}

QByteArray treeOfDrawings(int depth)
{
    QByteArray drawing = svg("<circle r=\"400\"/>");
    for (int i = 0; i < depth; ++i) {
        const QByteArray reference = dataReference(TestSupport::gzipped(drawing));
        drawing =
            svg(QByteArray("<image width=\"800\" height=\"800\" xlink:href=\"" + reference + "\"/>")
                    .repeated(4));
    }
    return species(drawing);
}

QByteArray treeOfUses(int depth)
{
    QByteArray content = "<g id=\"g0\"><circle r=\"400\"/></g>";
    for (int i = 1; i <= depth; ++i) {
        content +=
            "<g id=\"g" + QByteArray::number(i) + "\">" +
            QByteArray("<use xlink:href=\"#g" + QByteArray::number(i - 1) + "\"/>").repeated(8) +
            "</g>";
    }
    return species(svg(content));
}

QByteArray transparentCircles(int count)
{
    return species(
        svg(numbered("<circle cx=\"400\" cy=\"400\" r=\"39%\" opacity=\"0.5\"/>", count)));
}

QByteArray gradients(int count)
{
    return species(svg("<defs><radialGradient id=\"g\"><stop offset=\"0\" stop-color=\"red\"/>"
                       "<stop offset=\"1\" stop-color=\"blue\"/></radialGradient></defs>" +
                       QByteArray("<rect width=\"800\" height=\"800\" fill=\"url(#g)\" "
                                  "fill-opacity=\"0.5\"/>")
                           .repeated(count)));
}

QByteArray hugeCurves(int count)
{
    return species(svg("<path stroke=\"black\" fill=\"none\" stroke-width=\"3\" d=\"M0 0" +
                       numbered("C9% 9999999 -9999999 8% 7% 99999", count) + "\"/>"));
}

QByteArray curves(int count)
{
    return species(
        svg("<path stroke=\"black\" d=\"M0 0" + numbered("C% 900 9 8 700 %", count) + "\"/>"));
}

QByteArray dashes(int length)
{
    return species(svg("<path stroke=\"black\" stroke-dasharray=\"0.01\" d=\"M0 0H" +
                       QByteArray::number(length) + "\"/>"));
}

QByteArray hugeLetters(int count)
{
    return species(
        svg(numbered("<text y=\"700\" font-size=\"9%\" opacity=\"0.5\">&#937;</text>", count)));
}

QByteArray styleRules(int count)
{
    return species(svg("<style>" + numbered(".c% { fill: red } ", count) + "</style>" +
                       numbered("<circle class=\"c%\" r=\"4\"/>", count / 10)));
}

QByteArray claimedSize(int pixels)
{
    const QByteArray side = QByteArray::number(pixels);
    return species("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + side + "\" height=\"" +
                   side + "\">" + QByteArray("<circle r=\"9999\" opacity=\"0.5\"/>").repeated(200) +
                   "</svg>");
}

QByteArray nestedGroups(int depth)
{
    return species(svg(QByteArray("<g opacity=\"0.5\">").repeated(depth) + "<circle r=\"400\"/>" +
                       QByteArray("</g>").repeated(depth)));
}

QByteArray expandingText(int megabytes)
{
    return species(svg("<text>" + QByteArray(megabytes * 1024 * 1024, 'a') + "</text>"));
}

QByteArray transforms(int count)
{
    return species(svg("<g transform=\"" + QByteArray("rotate(1) ").repeated(count) +
                       "\"><circle r=\"400\"/></g>"));
}

QByteArray tinyViewBox(int count)
{
    return species("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"800\" height=\"800\" "
                   "viewBox=\"0 0 1e-9 1e-9\">" +
                   numbered("<circle cx=\"%\" r=\"9%\" stroke=\"red\" opacity=\"0.5\"/>", count) +
                   "</svg>");
}

QByteArray spans(int count)
{
    return species(svg("<text>" + numbered("<tspan dy=\"1\">%</tspan>", count) + "</text>"));
}

QByteArray animations(int count)
{
    return species(
        svg("<circle r=\"400\">" +
            numbered("<animate attributeName=\"r\" values=\"1;2;%\" dur=\"9s\"/>", count) +
            "</circle>"));
}

} // namespace

namespace DearFiles {

const QList<Family>& drawings()
{
    static const QList<Family> all{
        {"drawing/long entity", 300'000, longEntity},
        {"drawing/drawings inside", 1'000, drawingsInDrawing},
        {"drawing/tree of drawings", 6, treeOfDrawings},
        {"drawing/tree of uses", 8, treeOfUses},
        {"drawing/transparent circles", 20'000, transparentCircles},
        {"drawing/gradients", 5'000, gradients},
        {"drawing/huge curves", 3'000, hugeCurves},
        {"drawing/curves", 60'000, curves},
        {"drawing/dashes", 100'000'000, dashes},
        {"drawing/huge letters", 2'000, hugeLetters},
        {"drawing/style rules", 60'000, styleRules},
        {"drawing/claimed size", 5'000, claimedSize},
        {"drawing/nested groups", 20'000, nestedGroups},
        {"drawing/expanding text", 15, expandingText},
        {"drawing/transforms", 1'000'000, transforms},
        {"drawing/tiny view box", 20'000, tinyViewBox},
        {"drawing/spans", 100'000, spans},
        {"drawing/animations", 100'000, animations},
    };
    return all;
}

} // namespace DearFiles
