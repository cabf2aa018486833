// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/entriesprogram.h"

#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// What Qt has to say about pictures and the session is no output of this program.
void tellFatalOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtFatalMsg)
        std::fputs(qPrintable(u"korvela-entries: %1\n"_s.arg(text)), stderr);
}

} // namespace

int main(int argc, char* argv[])
{
    // Pictures and texts need Qt's GUI library, but no display: servers have none.
    qInstallMessageHandler(tellFatalOnly);
    qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationVersion(QStringLiteral(KORVELA_VERSION));
    return runEntriesProgram(QGuiApplication::arguments());
}
