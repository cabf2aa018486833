// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "widgets/entrystatus.h"

#include "support/savereport.h"
#include "widgets/elidedlabel.h"

#include <QDateTime>
#include <QStatusBar>

EntryStatus::EntryStatus(QStatusBar* bar)
    : StatusLine(bar)
    , spectrum(addLabel(Side::Left, Rank::Second, "statusSpectrum", tr("Spectrum in front")))
    , typed(addLabel(Side::Left, Rank::First, "statusTyped", tr("What does not count yet")))
    , fetched(addLabel(Side::Right, Rank::Second, "statusFetching", tr("What is under way")))
    , closed(addLabel(Side::Right, Rank::Second, "statusClosed", tr("What can be brought back")))
    , last(addLabel(Side::Right, Rank::Second, "statusLast", tr("What was done last")))
{
    bar->addPermanentWidget(this, 1);
}

void EntryStatus::setSpectrum(const QString& text)
{
    spectrum->setWholeText(text);
}

void EntryStatus::setPointsTyped(bool areTyped)
{
    pointsTyped = areTyped;
    showTyped();
}

void EntryStatus::setFieldTyped(bool isTyped)
{
    fieldTyped = isTyped;
    showTyped();
}

void EntryStatus::showTyped()
{
    if (pointsTyped && fieldTyped)
        typed->setWholeText(tr("Points and field not yet taken over"));
    else if (pointsTyped)
        typed->setWholeText(tr("Points not yet taken over"));
    else
        typed->setWholeText(fieldTyped ? tr("Field not yet taken over") : QString());
}

void EntryStatus::setFetching(bool fetching)
{
    fetched->setWholeText(fetching ? tr("Fetching the structure image") : QString());
}

void EntryStatus::setSaved(const QString& what, const QString& path, SaveResult result)
{
    const SaveReport report = saveReport(what, path, result, QDateTime::currentDateTime());
    last->setWholeText(report.text, report.inFull);
}

void EntryStatus::setClosed(const QString& hint)
{
    closed->setWholeText(hint);
}
