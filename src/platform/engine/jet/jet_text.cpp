#include "platform/engine/jet/jet_text.h"

#include "platform/files/letters.h"

#include <QStringDecoder>

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QChar kMark(u'\uFEFF');

QString EncodingName(quint16 codePage)
{
    switch (codePage) {
    case 932:
        return u"Shift_JIS"_s;
    case 936:
        return u"GBK"_s;
    case 949:
        return u"EUC-KR"_s;
    case 950:
        return u"Big5"_s;
    default:
        return u"windows-%1"_s.arg(codePage);
    }
}

} // namespace

QString PlainText(const Bytes& bytes)
{
    QString text(bytes.Size() / 2, Qt::Uninitialized);
    qFromLittleEndian<quint16>(bytes.Data(), text.size(), text.data());
    return text;
}

QString UnicodeText(const Bytes& bytes)
{
    const bool compressed = bytes.Size() >= 2 && bytes.U8(0) == 0xFF && bytes.U8(1) == 0xFE;
    if (!compressed)
        return PlainText(bytes);
    QString text;
    bool single = true;
    for (qsizetype at = 2; at < bytes.Size(); single = !single) {
        // A run of one kind goes up to the next 0 that stands where a character begins.
        const char* const begin = bytes.Data() + at;
        const qsizetype step = single ? 1 : 2;
        qsizetype size = 0;
        while (at + size + step <= bytes.Size() && begin[size] != '\0')
            size += step;
        const Bytes run = bytes.Part(at, size);
        text += single ? QString::fromLatin1(run.Data(), run.Size()) : PlainText(run);
        at += size + 1;
    }
    return text;
}

QString CodePageText(const Bytes& bytes, quint16 codePage)
{
    const bool ascii = std::all_of(bytes.Data(), bytes.Data() + bytes.Size(),
                                   [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    if (ascii)
        return QString::fromLatin1(bytes.Data(), bytes.Size());
    if (codePage == 1252 || codePage == 0)
        return files::FromWindows1252(bytes.Copy());
    QStringDecoder decoder(EncodingName(codePage).toLatin1().constData());
    if (!decoder.isValid())
        throw Damaged(u"a text is in the code page %1, which this system does not know"_s.arg(codePage));
    return decoder.decode(QByteArrayView(bytes.Data(), bytes.Size()));
}

QByteArray StoredText(const QString& text, bool compress)
{
    // A mark at the front would be read as that of a compressed text.
    const QStringView plain = text.startsWith(kMark) ? QStringView(text).mid(1) : QStringView(text);
    const bool narrow = compress && plain.size() >= 3 && 2 * plain.size() <= kLongestCompressed &&
                        std::all_of(plain.begin(), plain.end(), [](QChar character) {
                            return character.unicode() >= 1 && character.unicode() <= 0xFF;
                        });
    QByteArray stored;
    if (narrow) {
        stored.reserve(plain.size() + 2);
        stored.append("\xFF\xFE");
        for (const QChar character : plain)
            stored.append(static_cast<char>(character.unicode()));
        return stored;
    }
    stored.resize(2 * plain.size());
    for (qsizetype i = 0; i < plain.size(); ++i)
        qToLittleEndian(plain[i].unicode(), stored.data() + 2 * i);
    return stored;
}

} // namespace vasclip::engine::jet
