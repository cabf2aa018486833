// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "benchmarks/firstpaint.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class FirstPaint : public QObject
{
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !seen) {
            seen = true;
            QTimer::singleShot(0, this, &FirstPaint::end);
        }
        return false;
    }

private:
    static void end()
    {
        if (QCoreApplication::arguments().contains(u"stay"_s)) {
            std::puts("ready");
            std::fflush(stdout);
            std::getchar();
        }
        _exit(EXIT_SUCCESS);
    }

    bool seen = false;
};

} // namespace

int showUntilPainted(QWidget& window)
{
    FirstPaint firstPaint;
    window.installEventFilter(&firstPaint);
    window.show();
    return QApplication::exec();
}
