// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "spectrum/chartpicture.h"

#include "spectrum/spectrumchart.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QSvgGenerator>

using namespace Qt::StringLiterals;

namespace {

void paint(SpectrumChart& chart, QPaintDevice& device)
{
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    chart.render(painter);
}

QImage pixels(SpectrumChart& chart)
{
    constexpr int pixelsPerUnit = 2;
    QImage image((chart.size() * pixelsPerUnit).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelsPerUnit);
    image.fill(Qt::white); // the chart has round corners
    paint(chart, image);
    image.setDevicePixelRatio(1); // others count pixels
    return image;
}

QByteArray png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray drawing(SpectrumChart& chart)
{
    constexpr int pointsPerInch = 96; // the unit of drawings and of charts
    QBuffer buffer;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(pointsPerInch);
    generator.setSize(chart.size().toSize());
    generator.setViewBox(QRectF(QPointF(), chart.size()));
    paint(chart, generator);
    return buffer.data();
}

} // namespace

namespace ChartPicture {

std::unique_ptr<QMimeData> of(SpectrumChart& chart)
{
    auto data = std::make_unique<QMimeData>();
    const QImage image = pixels(chart);
    data->setImageData(image);
    data->setData(u"image/png"_s, png(image));
    data->setData(u"image/svg+xml"_s, drawing(chart));
    return data;
}

void copy(SpectrumChart& chart)
{
    QGuiApplication::clipboard()->setMimeData(of(chart).release());
}

} // namespace ChartPicture
