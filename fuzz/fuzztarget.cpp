// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "fuzz/fuzztarget.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace Fuzz {

void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

void startApplication()
{
    static int argumentCount = 1;
    static char programName[] = "fuzz";
    static char* arguments[] = {programName, nullptr};
    static const QTemporaryDir settingsFolder;
    static const bool prepared = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsFolder.path());
        return true;
    }();
    Q_UNUSED(prepared)
    // Never destroyed: libFuzzer ends by exit(), when half of the toolkit is gone already.
    static const auto* application = new QApplication(argumentCount, arguments);
    Q_UNUSED(application)
}

QByteArray bytes(const std::uint8_t* data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data),
                                   static_cast<qsizetype>(size));
}

} // namespace Fuzz
