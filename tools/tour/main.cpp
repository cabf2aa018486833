// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/applicationicon.h"
#include "tools/tour/manualpictures.h"
#include "tools/tour/tour.h"

#include <QApplication>
#include <QFont>
#include <QStyle>
#include <QTextStream>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

int conclude(bool succeeded, const QStringList& account)
{
    QTextStream(stdout) << account.join(u'\n') << Qt::endl;
    return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// The looks of the pictures are the same on every desktop.
void fixLooks()
{
    constexpr int fontSize = 9;
    QApplication::setStyle(u"Fusion"_s);
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont(u"DejaVu Sans"_s, fontSize));
    QApplication::setCursorFlashTime(0);
}

} // namespace

/// korvela-tour [folder]: takes the tour; pictures and saved entries go to the folder.
/// korvela-tour --manual folder: takes the pictures of the manual.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    setApplicationIcon();
    // A dialog that nobody expected would stay open for ever.
    QTimer::singleShot(5min, &application, [] { qFatal("The tour has come to a halt"); });
    const QDir examples(QStringLiteral(KORVELA_EXAMPLES_FOLDER));
    const QStringList arguments = QApplication::arguments().mid(1);

    if (arguments.size() == 2 && arguments.constFirst() == "--manual"_L1) {
        fixLooks();
        ManualPictures pictures(examples, QDir(arguments.constLast()));
        const bool succeeded = pictures.take();
        return conclude(succeeded, pictures.account());
    }

    const QString output =
        arguments.isEmpty() ? QDir::temp().filePath(u"korvela-tour"_s) : arguments.constFirst();
    Tour tour(examples, QDir(output));
    const bool succeeded = tour.run();
    return conclude(succeeded, tour.account());
}
