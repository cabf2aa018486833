// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLineF>
#include <QList>
#include <QRectF>

/// The segments, which lie in @p area, without those that change no pixel because others go through
/// all of theirs. @p scale is the number of pixels per unit of length.
///
/// To look whether a segment is covered takes a small part of what it takes to paint it. A spectrum
/// whose energies go back and forth has one across the whole chart for each point.
[[nodiscard]] QList<QLineF> withoutCovered(const QList<QLineF>& segments, const QRectF& area,
                                           double scale);
