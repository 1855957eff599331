#pragma once

#include <QByteArrayView>
#include <QString>
#include <QtEndian>

#include <optional>

// The structure that EXIF data have: directories of entries.
namespace vasclip::picture {

enum Tag : quint16 {
    Make = 0x010F,
    Model = 0x0110,
    Orientation = 0x0112,
    DateTime = 0x0132,
    ThumbnailOffset = 0x0201,
    ThumbnailLength = 0x0202,
    ExifDirectory = 0x8769,
    DateTimeOriginal = 0x9003,
    PixelWidth = 0xA002,
    PixelHeight = 0xA003,
};

enum Type : quint16 { Ascii = 2, Short = 3, Long = 4 };

inline constexpr quint32 kEntryLength = 12;
inline constexpr quint32 kHeaderLength = 8;
inline constexpr quint16 kTiffMagic = 42;
inline constexpr quint32 kLongestText = 200;
inline constexpr QLatin1StringView kDateFormat("yyyy:MM:dd HH:mm:ss");

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
    [[nodiscard]] bool IsBigEndian() const { return m_big; }

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

} // namespace vasclip::picture
