#include "upkeep/code_pages.h"

#include "platform/files/letters.h"

#include <QHash>
#include <QStringConverter>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kUtf8 = u"UTF-8"_s;
const QString kUtf16 = u"UTF-16"_s;
const QString k1252 = u"Windows-1252"_s;
const QString kLatin1 = u"ISO-8859-1"_s;

/// Bytes of Windows 1252 by their letters.
const QHash<QChar, char>& Bytes1252()
{
    static const QHash<QChar, char> bytes = [] {
        QHash<QChar, char> made;
        for (int code = 0; code < 256; ++code)
            made.insert(files::FromWindows1252(QByteArray(1, static_cast<char>(code))).front(), static_cast<char>(code));
        return made;
    }();
    return bytes;
}

std::optional<QString> Converted(const QByteArray& bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text;
}

/// Each second byte of a text of our letters is 0 there.
bool IsUtf16WithoutMark(const QByteArray& bytes)
{
    const qsizetype first = bytes.indexOf('\0');
    return first == 1 && bytes.size() > 3 && bytes.at(2) != '\0' && bytes.at(3) == '\0' && bytes.size() % 2 == 0 &&
           Converted(bytes, QStringConverter::Utf16LE).value_or(QString(1, QChar::Null)).indexOf(QChar::Null) < 0;
}

QString CodePageIn(const QByteArray& bytes)
{
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") || IsUtf16WithoutMark(bytes))
        return kUtf16;
    return Converted(bytes, QStringConverter::Utf8) ? kUtf8 : k1252;
}

} // namespace

const QStringList& CodePages()
{
    static const QStringList names{kUtf8, kUtf16, k1252, kLatin1};
    return names;
}

QString CodePageOf(const QString& written)
{
    static const QHash<QString, QString> others{
        {u"UTF8"_s, kUtf8},     {u"UTF16"_s, kUtf16},   {u"1252"_s, k1252},       {u"WINDOWS1252"_s, k1252},
        {u"CP1252"_s, k1252},   {u"ANSI"_s, k1252},     {u"ISO88591"_s, kLatin1}, {u"LATIN1"_s, kLatin1},
        {u"UNICODE"_s, kUtf16}, {u"65001"_s, kUtf8}};
    return others.value(written.toUpper().remove(u'-').remove(u'_').remove(u' '));
}

std::optional<QString> Decoded(const QByteArray& bytes, const QString& codePage, QString* found)
{
    const QString name = codePage.isEmpty() ? CodePageIn(bytes) : codePage;
    if (found)
        *found = name;
    if (name == kUtf8)
        return Converted(bytes, QStringConverter::Utf8);
    if (name == kUtf16)
        return Converted(bytes, QStringConverter::Utf16);
    return name == kLatin1 ? QString::fromLatin1(bytes) : files::FromWindows1252(bytes);
}

QByteArray Encoded(const QString& text, const QString& codePage, qint64& lost)
{
    if (codePage == kUtf8)
        return text.toUtf8();
    if (codePage == kUtf16)
        return QStringEncoder(QStringConverter::Utf16LE)(text);
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar letter : text) {
        const auto known = codePage == k1252 ? Bytes1252().constFind(letter) : Bytes1252().cend();
        const bool plain = codePage == kLatin1 && letter.unicode() < 256;
        const bool has = plain || known != Bytes1252().cend();
        lost += !has;
        bytes.append(plain ? static_cast<char>(letter.unicode()) : has ? *known : '?');
    }
    return bytes;
}

QByteArray MarkOf(const QString& codePage)
{
    return codePage == kUtf16 ? QByteArray("\xFF\xFE", 2) : QByteArray();
}

} // namespace vasclip::upkeep
