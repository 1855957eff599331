#include "platform/picture/exif.h"

#include <QTransform>
#include <QtEndian>

#include <cstring>
#include <optional>

namespace vasclip::picture {

using namespace Qt::Literals::StringLiterals;

namespace {

enum Tag : quint16 {
    Make = 0x010F,
    Model = 0x0110,
    Orientation = 0x0112,
    DateTime = 0x0132,
    ThumbnailOffset = 0x0201,
    ThumbnailLength = 0x0202,
    ExifDirectory = 0x8769,
    DateTimeOriginal = 0x9003,
};

enum Type : quint16 { Ascii = 2, Short = 3, Long = 4 };

constexpr quint32 kEntryLength = 12;
constexpr quint32 kHeaderLength = 8;
constexpr quint16 kTiffMagic = 42;
constexpr quint32 kLongestText = 200;
constexpr auto kDateFormat = "yyyy:MM:dd HH:mm:ss"_L1;

struct Entry
{
    quint16 tag = 0;
    quint16 type = 0;
    quint32 count = 0;
    quint32 at = 0; ///< of the value field
};

/// A TIFF structure in memory; whatever lies outside it is absent.
class Tiff
{
public:
    explicit Tiff(QByteArrayView bytes)
        : m_bytes(bytes)
    {
        if (bytes.size() < qsizetype(kHeaderLength))
            return;
        m_big = bytes.startsWith("MM");
        m_valid = (m_big || bytes.startsWith("II")) && Number16(2) == kTiffMagic;
    }

    [[nodiscard]] bool Valid() const { return m_valid; }

    [[nodiscard]] std::optional<quint16> Number16(quint32 at) const
    {
        if (!Holds(at, 2))
            return std::nullopt;
        const char* from = m_bytes.data() + at;
        return m_big ? qFromBigEndian<quint16>(from) : qFromLittleEndian<quint16>(from);
    }
    [[nodiscard]] std::optional<quint32> Number32(quint32 at) const
    {
        if (!Holds(at, 4))
            return std::nullopt;
        const char* from = m_bytes.data() + at;
        return m_big ? qFromBigEndian<quint32>(from) : qFromLittleEndian<quint32>(from);
    }
    [[nodiscard]] bool Holds(quint32 at, quint64 length) const
    {
        return at + length <= quint64(m_bytes.size());
    }

    /// Calls `use` for each entry of the directory. @return where the next directory is, 0 for none
    template <class Use>
    quint32 ForEach(quint32 directory, Use&& use) const
    {
        const auto count = Number16(directory);
        if (!count)
            return 0;
        quint32 at = directory + 2;
        for (int i = 0; i < *count; ++i, at += kEntryLength) {
            if (!Holds(at, kEntryLength))
                return 0;
            use(Entry{*Number16(at), *Number16(at + 2), *Number32(at + 4), at + 8});
        }
        return Number32(at).value_or(0);
    }

    [[nodiscard]] quint32 Value(const Entry& entry) const
    {
        return entry.type == Short ? Number16(entry.at).value_or(0) : Number32(entry.at).value_or(0);
    }
    [[nodiscard]] QString Text(const Entry& entry) const
    {
        if (entry.type != Ascii || entry.count > kLongestText)
            return {};
        const quint32 at = entry.count <= 4 ? entry.at : Number32(entry.at).value_or(0);
        if (!Holds(at, entry.count))
            return {};
        const QByteArrayView text = m_bytes.sliced(at, entry.count);
        const qsizetype end = text.indexOf('\0');
        return QString::fromLatin1(end < 0 ? text : text.first(end)).trimmed();
    }
    [[nodiscard]] QByteArrayView Slice(quint32 at, quint32 length) const
    {
        return length > 0 && Holds(at, length) ? m_bytes.sliced(at, length) : QByteArrayView();
    }

private:
    QByteArrayView m_bytes;
    bool m_big = false;
    bool m_valid = false;
};

QDateTime DateOf(const QString& text)
{
    return QDateTime::fromString(text.left(kDateFormat.size()), kDateFormat);
}

/// One entry of a directory that is written, with its value behind the directories if it is long.
struct Written
{
    quint16 tag;
    quint16 type;
    quint32 count;
    QByteArray value;
};

QByteArray Big(quint16 value)
{
    QByteArray bytes(2, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray Big(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

Written TextEntry(Tag tag, const QString& text)
{
    const QByteArray value = text.left(kLongestText - 1).toLatin1() + '\0';
    return {tag, Ascii, static_cast<quint32>(value.size()), value};
}

/// A directory that begins at `start`, its long values right behind it.
QByteArray Directory(const QList<Written>& entries, quint32 start)
{
    QByteArray directory = Big(static_cast<quint16>(entries.size()));
    QByteArray values;
    const auto valuesAt = start + 2 + kEntryLength * static_cast<quint32>(entries.size()) + 4;
    for (const Written& entry : entries) {
        directory += Big(entry.tag) + Big(entry.type) + Big(entry.count);
        if (entry.value.size() <= 4) {
            directory += entry.value.leftJustified(4, '\0');
            continue;
        }
        directory += Big(valuesAt + static_cast<quint32>(values.size()));
        values += entry.value;
        if (values.size() % 2 != 0)
            values += '\0';
    }
    return directory + Big(quint32(0)) + values;
}

} // namespace

Exif ReadExif(QByteArrayView bytes)
{
    Exif exif;
    const Tiff tiff(bytes);
    if (!tiff.Valid())
        return exif;
    quint32 detail = 0;
    QDateTime changed;
    const quint32 first = tiff.Number32(4).value_or(0);
    const quint32 second = tiff.ForEach(first, [&](const Entry& entry) {
        switch (entry.tag) {
        case Make:
            exif.notes.make = tiff.Text(entry);
            break;
        case Model:
            exif.notes.model = tiff.Text(entry);
            break;
        case Orientation:
            if (const quint32 value = tiff.Value(entry); value >= 1 && value <= 8)
                exif.orientation = static_cast<int>(value);
            break;
        case DateTime:
            changed = DateOf(tiff.Text(entry));
            break;
        case ExifDirectory:
            detail = tiff.Value(entry);
            break;
        default:
            break;
        }
    });
    if (detail != 0) {
        (void)tiff.ForEach(detail, [&](const Entry& entry) {
            if (entry.tag == DateTimeOriginal)
                exif.notes.taken = DateOf(tiff.Text(entry));
        });
    }
    if (!exif.notes.taken.isValid())
        exif.notes.taken = changed;
    if (second != 0 && second != first) {
        quint32 at = 0;
        quint32 length = 0;
        (void)tiff.ForEach(second, [&](const Entry& entry) {
            if (entry.tag == ThumbnailOffset)
                at = tiff.Value(entry);
            else if (entry.tag == ThumbnailLength)
                length = tiff.Value(entry);
        });
        exif.thumbnail = tiff.Slice(at, length);
    }
    return exif;
}

JpegHead ReadJpegHead(QByteArrayView bytes)
{
    constexpr uchar kMark = 0xFF;
    constexpr auto kExif = QByteArrayView("Exif\0\0", 6);
    JpegHead head;
    bool hasExif = false;
    const auto byte = [bytes](qsizetype at) { return static_cast<uchar>(bytes[at]); };
    qsizetype at = 2; // behind the start of the image
    while (at + 4 <= bytes.size()) {
        if (byte(at) != kMark || byte(at + 1) == kMark || byte(at + 1) == 0x00) {
            ++at; // garbage and filling between segments
            continue;
        }
        const uchar marker = byte(at + 1);
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
            at += 2;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9)
            break;
        const qsizetype length = qsizetype(byte(at + 2)) << 8 | byte(at + 3);
        if (length < 2)
            break;
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame && length >= 8 && at + 10 <= bytes.size()) {
            head.bits = byte(at + 4);
            head.size = QSize(byte(at + 7) << 8 | byte(at + 8), byte(at + 5) << 8 | byte(at + 6));
            head.components = byte(at + 9);
            head.progressive = marker == 0xC2 || marker == 0xC6 || marker == 0xCA || marker == 0xCE;
        }
        const QByteArrayView content =
            bytes.sliced(at + 4, std::min(length - 2, bytes.size() - at - 4));
        if (marker == 0xE1 && !hasExif && content.startsWith(kExif)) {
            head.exif = ReadExif(content.sliced(kExif.size()));
            hasExif = true;
        }
        at += 2 + length;
    }
    return head;
}

QByteArray ExifSegment(const Notes& notes)
{
    constexpr quint32 kDetailEntries = 1;
    QList<Written> main;
    if (!notes.make.isEmpty())
        main.append(TextEntry(Make, notes.make));
    if (!notes.model.isEmpty())
        main.append(TextEntry(Model, notes.model));
    main.append({Orientation, Short, 1, Big(quint16(1))});
    const QString taken = notes.taken.isValid() ? notes.taken.toString(kDateFormat) : QString();
    QByteArray tiff = QByteArray("MM\0\x2A", 4) + Big(kHeaderLength);
    if (taken.isEmpty())
        return QByteArray("Exif\0\0", 6) + tiff + Directory(main, kHeaderLength);
    main.append(TextEntry(DateTime, taken));
    main.append({ExifDirectory, Long, kDetailEntries, Big(quint32(0))});
    const auto detailAt = kHeaderLength + static_cast<quint32>(Directory(main, kHeaderLength).size());
    main.last().value = Big(detailAt);
    return QByteArray("Exif\0\0", 6) + tiff + Directory(main, kHeaderLength) +
           Directory({TextEntry(DateTimeOriginal, taken)}, detailAt);
}

QImage Upright(const QImage& image, int orientation)
{
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.mirrored(true, true);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.transformed(QTransform(0, 1, 1, 0, 0, 0));
    case 6:
        return image.transformed(QTransform().rotate(90));
    case 7:
        return image.transformed(QTransform(0, -1, -1, 0, 0, 0));
    case 8:
        return image.transformed(QTransform().rotate(-90));
    default:
        return image;
    }
}

} // namespace vasclip::picture
