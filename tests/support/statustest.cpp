// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/statustest.h"

#include "tests/support/documentwindow.h"
#include "widgets/elidedlabel.h"

#include <QTest>

QString StatusTest::said(const char* label) const
{
    const auto* shown = TestSupport::child<ElidedLabel>(*window, label);
    return shown->isVisible() ? shown->wholeText() : QString();
}

void StatusTest::settle() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

void StatusTest::openEntry(const QString& fileName, const QStringList& titles)
{
    const QString path = sandbox->write(fileName, TestSupport::speciesFile(fileName, titles));
    QVERIFY(window->openEntry(path));
}
