// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/child.h"
#include "tests/support/dialogscript.h"
#include "tests/support/sandbox.h"

#include <QObject>

#include <memory>

namespace TestSupport {

/// How long to wait for what surely comes, in ms: no machine is so busy that it takes longer.
constexpr int patience = 60'000;

} // namespace TestSupport

/// Base of tests in which each function starts with a fresh sandbox and an empty clipboard, and
/// ends with every expected dialog answered, no other one seen, and the cursor given back.
///
/// A test with more to prepare has an init() of its own, and a cleanup() perhaps, that call those
/// of their base.
class SandboxTest : public QObject
{
    Q_OBJECT

protected Q_SLOTS:
    virtual void init();
    virtual void cleanup();

protected:
    std::unique_ptr<Sandbox> sandbox;
    std::unique_ptr<DialogScript> dialogs;
};
