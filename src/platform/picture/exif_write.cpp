// EXIF data for a picture that is written: the camera's own, or composed of the notes.

#include "platform/picture/exif.h"
#include "platform/picture/tiff.h"

#include <algorithm>

namespace vasclip::picture {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kSegmentName = QByteArrayView("Exif\0\0", 6);
constexpr qsizetype kLongestSegment = 65'533; ///< that a JPEG can hold

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

QByteArray Composed(const Notes& notes)
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
        return kSegmentName.toByteArray() + tiff + Directory(main, kHeaderLength);
    main.append(TextEntry(DateTime, taken));
    main.append({ExifDirectory, Long, kDetailEntries, Big(quint32(0))});
    const auto detailAt = kHeaderLength + static_cast<quint32>(Directory(main, kHeaderLength).size());
    main.last().value = Big(detailAt);
    return kSegmentName.toByteArray() + tiff + Directory(main, kHeaderLength) +
           Directory({TextEntry(DateTimeOriginal, taken)}, detailAt);
}

/// The camera's EXIF data for the picture as it is now: upright, of its present size, without its small one.
/// Everything else stays where it stands, since makers' own notes count from the beginning.
class Kept
{
public:
    explicit Kept(const QByteArray& tiff)
        : m_bytes(tiff.constData(), tiff.size()) // its own, since it is changed in place
        , m_tiff(m_bytes)
    {}
    /// @return "" if the data can't be used
    QByteArray For(QSize size)
    {
        if (!m_tiff.Valid())
            return {};
        const quint32 first = m_tiff.Number32(4).value_or(0);
        quint32 detail = 0;
        int entries = 0;
        const quint32 second = m_tiff.ForEach(first, [&](const Entry& entry) {
            ++entries;
            if (entry.tag == Orientation)
                Put(entry, 1);
            else if (entry.tag == ExifDirectory)
                detail = m_tiff.Value(entry);
        });
        if (entries == 0)
            return {};
        if (detail != 0) {
            (void)m_tiff.ForEach(detail, [&](const Entry& entry) {
                if (entry.tag == PixelWidth)
                    Put(entry, static_cast<quint32>(size.width()));
                else if (entry.tag == PixelHeight)
                    Put(entry, static_cast<quint32>(size.height()));
            });
        }
        if (second != 0)
            DropSmallPicture(first + 2 + kEntryLength * static_cast<quint32>(entries), second);
        return m_bytes;
    }

private:
    void Put(const Entry& entry, quint32 value)
    {
        char* const to = m_bytes.data() + entry.at;
        if (entry.type == Short)
            m_tiff.IsBigEndian() ? qToBigEndian(static_cast<quint16>(value), to)
                                 : qToLittleEndian(static_cast<quint16>(value), to);
        else if (entry.type == Long)
            PutLong(entry.at, value);
    }
    void PutLong(quint32 at, quint32 value)
    {
        char* const to = m_bytes.data() + at;
        m_tiff.IsBigEndian() ? qToBigEndian(value, to) : qToLittleEndian(value, to);
    }
    /// It shows the picture as it was. @param link  where the first directory tells of the second
    void DropSmallPicture(quint32 link, quint32 second)
    {
        quint32 at = 0;
        quint32 length = 0;
        (void)m_tiff.ForEach(second, [&](const Entry& entry) {
            if (entry.tag == ThumbnailOffset)
                at = m_tiff.Value(entry);
            else if (entry.tag == ThumbnailLength)
                length = m_tiff.Value(entry);
        });
        if (m_tiff.Holds(link, 4))
            PutLong(link, 0);
        if (length == 0 || at < kHeaderLength || !m_tiff.Holds(at, length))
            return;
        if (qsizetype(at) + length == m_bytes.size())
            m_bytes.truncate(at);
        else
            std::fill_n(m_bytes.begin() + at, length, '\0');
    }

    QByteArray m_bytes;
    Tiff m_tiff;
};

} // namespace

QByteArray ExifSegment(const Notes& notes, QSize size)
{
    const QByteArray kept = Kept(notes.exif).For(size);
    if (!kept.isEmpty() && kSegmentName.size() + kept.size() <= kLongestSegment)
        return kSegmentName.toByteArray() + kept;
    return Composed(notes);
}

} // namespace vasclip::picture
