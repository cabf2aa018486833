// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Compiles all entries of a folder into a database, as a person does in the editor's dialog, and
// prints the wall and the CPU time from opening the filled-in dialog to the message of success, in
// nanoseconds.
//
// Usage: korvela-bench-database <folder> <database file>

#include "benchmarks/measurement.h"
#include "benchmarks/windows.h"
#include "tests/support/child.h"
#include "tests/support/dialogscript.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QPushButton>

#include <iostream>

using namespace Qt::StringLiterals;

namespace {

/// Qt's file dialog takes a time that grows with the square of the names typed at once.
constexpr qsizetype namesAtOnce = 100;

void click(const QWidget& dialog, const char* button)
{
    TestSupport::child<QPushButton>(dialog, button)->click();
}

void end(const QWidget& dialog, QDialogButtonBox::StandardButton button)
{
    TestSupport::child<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

/// Fills the dialog in and leaves it; its entries stay.
void fillIn(MainWindow& window, DialogScript& dialogs, QStringList paths, const QString& target)
{
    const qsizetype batches = (paths.size() + namesAtOnce - 1) / namesAtOnce;
    dialogs.expect([batches](QWidget& dialog) {
        for (qsizetype i = 0; i < batches; ++i)
            click(dialog, "pushButton_2");
        click(dialog, "pushButton");
        end(dialog, QDialogButtonBox::Cancel);
    });
    for (; !paths.isEmpty(); paths = paths.mid(namesAtOnce)) {
        const QString names = paths.mid(0, namesAtOnce).join(u"\" \""_s);
        const QString quoted = u'"' + names + u'"';
        dialogs.expectFileDialog(u"Select JSON Files to be added to the database"_s, quoted);
    }
    dialogs.expectFileDialog(u"Database will be saved to..."_s, target);
    window.createSpeciesDatabase();
}

QStringList entriesOf(const QDir& folder)
{
    QStringList paths;
    const QStringList names = folder.entryList({u"*.json"_s}, QDir::Files);
    for (const QString& name : names)
        paths.append(folder.absoluteFilePath(name));
    return paths;
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (argc != 3)
        qFatal("usage: %s folder database", argv[0]);
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const QString target = QFileInfo(QString::fromLocal8Bit(argv[2])).absoluteFilePath();
    QFile::remove(target);

    Windows::Editor editor;
    DialogScript dialogs;
    fillIn(editor.window, dialogs, entriesOf(folder), target);

    dialogs.expect([](QWidget& dialog) { end(dialog, QDialogButtonBox::Ok); });
    dialogs.expectBox(QMessageBox::Information, u"Success"_s,
                      u"Species database created successfully."_s);
    const Cost cost = costOf([&editor] { editor.window.createSpeciesDatabase(); });
    if (!dialogs.passed())
        qFatal("%s", dialogs.report().constData());
    std::cout << cost.wall << ' ' << cost.cpu << std::endl;
}
