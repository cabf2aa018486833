// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/testdocument.h"

#include "spectrum/spectrumwindow.h"

#include <QVBoxLayout>

TestDocument::TestDocument()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    resize(923, 735);
}

void TestDocument::setModified()
{
    ++modifications;
}

SpectrumWindow* TestDocument::add()
{
    return show(new SpectrumWindow(this));
}

SpectrumWindow* TestDocument::add(const QJsonObject& dataset)
{
    return show(new SpectrumWindow(dataset, this));
}

SpectrumWindow* TestDocument::show(SpectrumWindow* window)
{
    layout()->addWidget(window);
    return window;
}
