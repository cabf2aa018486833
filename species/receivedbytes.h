// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QSet>

/// What the network has brought to this process from now on, through connections that do not exist
/// yet. Asks the system, which counts everything: the toolkit tells how much of a body has come,
/// but not how much it keeps of headers without end, of what stands between chunks, or of packed
/// data.
///
/// The system is asked on Linux only; elsewhere nothing is ever counted.
class ReceivedBytes
{
public:
    ReceivedBytes();

    /// The bytes until now, encryption included. Of a connection that has ended, as many as had
    /// come at the last call.
    [[nodiscard]] qint64 count();

private:
    QSet<quint64> connectionsBefore;
    QHash<quint64, qint64> bytes; ///< Of each connection since.
};
