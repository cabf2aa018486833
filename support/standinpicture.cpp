// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/standinpicture.h"

#include <QRandomGenerator>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

/// Where the format of a picture has the rest of a text.
constexpr int restProperty = QTextFormat::UserProperty;

/// Names are of this run of the program only: a text from elsewhere that guessed them would bring
/// in what nobody has looked through.
QString prefixed(QLatin1StringView kind)
{
    static const quint64 run = QRandomGenerator::system()->generate64();
    return kind + u':' + QString::number(run, 36) + u':';
}

const QString& marksPrefix()
{
    static const QString prefix = prefixed("marks"_L1);
    return prefix;
}

const QString& restPrefix()
{
    static const QString prefix = prefixed("rest"_L1);
    return prefix;
}

QString pictureNamed(const QString& name)
{
    return R"(<img src=")"_L1 + name + R"(">)"_L1;
}

} // namespace

namespace StandInPicture {

QString ofMarks(const QString& marks)
{
    return pictureNamed(marksPrefix() + marks);
}

QString ofRest()
{
    return pictureNamed(restPrefix());
}

QTextImageFormat formatOfRest(const QString& text)
{
    // Not in the name, which the toolkit reads as an address at each repaint.
    QTextImageFormat format;
    format.setName(restPrefix());
    format.setProperty(restProperty, text);
    return format;
}

void giveRest(QTextDocument& document, const QString& text)
{
    const QSignalBlocker blocker(document);
    const bool wasModified = document.isModified();
    const bool wasUndoable = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.movePosition(QTextCursor::End);
    while (!isOfRest(cursor.charFormat()) && cursor.movePosition(QTextCursor::PreviousCharacter)) {}
    if (isOfRest(cursor.charFormat())) {
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(formatOfRest(text));
    }
    document.setUndoRedoEnabled(wasUndoable);
    document.setModified(wasModified);
}

QString textOf(const QTextFormat& format)
{
    if (!format.isImageFormat())
        return {};
    const QString name = format.stringProperty(QTextFormat::ImageName);
    if (isOfRest(name))
        return format.stringProperty(restProperty);
    return name.startsWith(marksPrefix()) ? name.sliced(marksPrefix().size()) : QString();
}

bool isOfRest(const QTextFormat& format)
{
    // What is typed behind a picture has all of its format but that it is one.
    return format.isImageFormat() && isOfRest(format.stringProperty(QTextFormat::ImageName));
}

bool isOfRest(const QString& name)
{
    return name.startsWith(restPrefix());
}

} // namespace StandInPicture
