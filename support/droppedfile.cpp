// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/droppedfile.h"

#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;

QString droppedJsonFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    const QString file = urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
    return file.endsWith(".json"_L1, Qt::CaseInsensitive) ? file : QString();
}
