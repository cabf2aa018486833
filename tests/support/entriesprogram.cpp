// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/entriesprogram.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace TestSupport {

ProgramRun runProgram(const QString& program, const QStringList& arguments, const QString& folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    environment.remove(u"QT_QPA_PLATFORM"_s);
    environment.remove(u"XDG_RUNTIME_DIR"_s);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    constexpr int timeLimit = 120'000;
    ProgramRun run;
    if (process.waitForFinished(timeLimit) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

} // namespace TestSupport
