// SPDX-FileCopyrightText: 2026 KORVELA Entry Edit contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/standinpicture.h"

#include <QRandomGenerator>

#include <cstddef>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

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

/// A text with anything in it, half characters included, as part of an address.
QByteArray packed(QStringView text)
{
    const QByteArrayView bytes(reinterpret_cast<const char*>(text.utf16()),
                               text.size() * qsizetype{sizeof(char16_t)});
    return bytes.toByteArray().toBase64(QByteArray::Base64UrlEncoding);
}

QString unpacked(QStringView text)
{
    const QByteArray bytes = QByteArray::fromBase64(text.toLatin1(), QByteArray::Base64UrlEncoding);
    QString result(bytes.size() / qsizetype{sizeof(char16_t)}, Qt::Uninitialized);
    std::memcpy(result.data(), bytes.data(),
                static_cast<std::size_t>(bytes.size()) & ~std::size_t{1});
    return result;
}

} // namespace

namespace StandInPicture {

QString ofMarks(const QString& marks)
{
    return pictureNamed(marksPrefix() + marks);
}

QString ofRest(QStringView text)
{
    return pictureNamed(nameOfRest(text));
}

QString nameOfRest(QStringView text)
{
    return restPrefix() + QString::fromLatin1(packed(text));
}

QString textOf(const QString& name)
{
    if (isOfRest(name))
        return unpacked(QStringView(name).sliced(restPrefix().size()));
    return name.startsWith(marksPrefix()) ? name.sliced(marksPrefix().size()) : QString();
}

bool isOfRest(const QString& name)
{
    return name.startsWith(restPrefix());
}

} // namespace StandInPicture
