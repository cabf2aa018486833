// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "entries/textrules.h"

#include "entries/jsonpointer.h"
#include "entries/memberforms.h"
#include "support/cleanedhtml.h"

#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A document that, like the editor's fields, loads nothing that its text names.
class IsolatedDocument : public QTextDocument
{
protected:
    QVariant loadResource(int /*type*/, const QUrl& /*name*/) override
    {
        return {QByteArray("")}; // no null value, which would make Qt look itself
    }
};

/// Whether the text has nothing that a field could take for anything but characters.
bool isPlain(const QString& text)
{
    QChar before = u' ';
    for (const QChar c : text) {
        if (c == u'<' || c == u'&' || c < u' ' || c.category() == QChar::Other_Control ||
            (c != QChar::Nbsp && c.isSpace() && (c != u' ' || before == u' ')))
            return false;
        before = c;
    }
    return text.isEmpty() || before != u' ';
}

QString shortened(const QString& text)
{
    constexpr qsizetype most = 60;
    return text.size() <= most ? text : text.first(most) + u'…';
}

/// CreatedDate is shown in a label, which changes nothing.
bool goesThroughAField(const MemberForms::Member& member)
{
    using MemberForms::Kind;
    return (member.kind == Kind::MarkedUpText || member.kind == Kind::Text) &&
           member.key != "Type"_L1 && member.key != "CreatedDate"_L1;
}

/// Loading turns the line ends of aliases into breaks.
QString asLoaded(const MemberForms::Member& member, QString text)
{
    if (member.key == "Aliases"_L1)
        text.replace("\r\n"_L1, "<br>"_L1).replace(u'\n', "<br>"_L1);
    return text;
}

} // namespace

namespace TextRules {

QString asEdited(const QString& text)
{
    if (isPlain(text))
        return text;
    IsolatedDocument document;
    document.setUndoRedoEnabled(false);
    CleanedHtml::intoDocument(document, text);
    return CleanedHtml::fromDocument(document);
}

void changedByEditor(const EntryFile& file, const Complain& complain)
{
    const QList<MemberForms::PlacedObject> objects = MemberForms::objectsOf(file);
    for (const MemberForms::PlacedObject& placed : objects) {
        if (placed.isNumberedKey != nullptr || placed.place == "/Header"_L1)
            continue;
        for (const MemberForms::Member& member : placed.members) {
            const QString text = placed.object.value(member.key).toString();
            // Foreign tags in marked-up text have a rule of their own.
            if (!goesThroughAField(member) || (member.kind == MemberForms::Kind::MarkedUpText &&
                                               CleanedHtml::withoutForeignTags(text) != text))
                continue;
            const QString edited = asEdited(asLoaded(member, text));
            if (edited != text) {
                complain(JsonPointer::member(placed.place, member.key),
                         u"The editor makes \"%1\" of this text when it is edited and saved."_s.arg(
                             shortened(edited)));
            }
        }
    }
}

} // namespace TextRules
