#include "platform/picture/qt_reader.h"

#include "platform/picture/bmp_head.h"
#include "platform/picture/pixel_facts.h"
#include "platform/picture/refusal.h"
#include "platform/picture/whole.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

using namespace Qt::Literals::StringLiterals;

#include <limits>

namespace vasclip::picture {

namespace {

/// Formats that are pictures of a camera, a scanner or a screen. Others that Qt may have a reader for
/// (drawings, cursors) are left alone: what they may do while being read is nobody's business here.
constexpr std::array kFormats = {"png", "bmp", "gif", "tiff", "tif", "webp", "pbm", "pgm", "ppm"};

/// Readers refuse beyond 128 MB by themselves, which a large scan needs.
void RaiseAllocationLimit(const Limits& limits)
{
    const auto megabytes = static_cast<int>(std::min<qint64>(limits.pixels * 8 / (1024 * 1024) + 1, 1 << 20));
    if (QImageReader::allocationLimit() < megabytes)
        QImageReader::setAllocationLimit(megabytes);
}

/// Bytes in memory that come to their end when the time is up.
class WatchedBuffer : public QBuffer
{
public:
    WatchedBuffer(const QByteArray& bytes, const Limits& limits)
        : m_watch(limits)
    {
        setData(bytes);
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    [[nodiscard]] const char* Stop() const { return m_stop; }

protected:
    qint64 readData(char* data, qint64 length) override
    {
        if (!m_stop)
            m_stop = m_watch.Stop();
        return m_stop ? -1 : QBuffer::readData(data, length);
    }

private:
    Watch m_watch;
    const char* m_stop = nullptr;
};

/// The kind that a file's first bytes tell, "" for any other. Asking for a kind by its name spares loading
/// every reader that might know it.
QByteArray KindOf(const QByteArray& head)
{
    static constexpr std::pair<QByteArrayView, const char*> kHeads[] = {
        {"\x89PNG\r\n\x1a\n", "png"}, {"BM", "bmp"}, {"GIF8", "gif"}};
    for (const auto& [mark, kind] : kHeads)
        if (head.startsWith(mark))
            return kind;
    return {};
}

/// @return the size as stored, empty if the format does not tell before decoding
QSize ReadHeader(QImageReader& reader, const QString& name)
{
    constexpr int kHeadBytes = 16;
    if (const QByteArray kind = KindOf(reader.device()->peek(kHeadBytes)); kind.isEmpty()) {
        reader.setDecideFormatFromContent(true);
    } else {
        reader.setAutoDetectImageFormat(false);
        reader.setFormat(kind);
    }
    reader.setAutoTransform(true);
    if (!reader.canRead())
        Refuse(name, u"its content is of no known kind"_s);
    const QByteArray format = reader.format();
    if (std::none_of(kFormats.begin(), kFormats.end(), [&](const char* known) { return format == known; }))
        Refuse(name, u"pictures of the kind '%1' are not used here"_s.arg(QString::fromLatin1(format)));
    const QSize size = reader.size(); // a bitmap with its top row first tells a negative height
    return {size.width(), size.height() == -1 ? -1 : std::abs(size.height())};
}

bool LiesOnItsSide(const QImageReader& reader)
{
    return (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
}

} // namespace

QImage ReadWithQt(const QByteArray& bytes, const QString& name, const TargetSize& target,
                  const Limits& limits)
{
    RaiseAllocationLimit(limits);
    const QByteArray known = AsWindowsBmp(bytes);
    WatchedBuffer buffer(known, limits);
    QImageReader reader(&buffer);
    const QSize stored = ReadHeader(reader, name);
    CheckPixels(stored, name, limits);
    if (IsBmp(known) && !IsWholeBmp(known))
        Refuse(name, u"the file is cut short"_s);
    QImage image;
    const bool complete = reader.read(&image);
    if (buffer.Stop())
        Refuse(name, QString::fromLatin1(buffer.Stop()));
    if (!complete || image.isNull())
        Refuse(name, reader.errorString());
    CheckPixels(image.size(), name, limits);
    if (const QSize wanted = target(image.size()); wanted != image.size())
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}

Facts DescribeWithQt(QIODevice& device, const QString& name)
{
    constexpr qint64 kBmpHead = 64;
    Facts facts;
    if (const auto head = ReadBmpHead(device.peek(kBmpHead)); head && head->length > 12 && head->length < 40) {
        // A head of OS/2 that was cut short, which the reader takes for an older one.
        if (head->width <= 0 || head->height == 0 || head->height <= std::numeric_limits<qint32>::min())
            Refuse(name, u"its header names no size"_s);
        facts.size = {static_cast<int>(head->width), std::abs(static_cast<int>(head->height))};
        facts.format = u"BMP"_s;
        TakePixelFacts(facts, device);
        return facts;
    }
    QImageReader reader(&device);
    facts.size = ReadHeader(reader, name);
    if (facts.size.isEmpty())
        Refuse(name, u"its header names no size"_s);
    if (LiesOnItsSide(reader))
        facts.size.transpose();
    facts.format = QString::fromLatin1(reader.format()).toUpper();
    if (facts.format == "TIF"_L1)
        facts.format = u"TIFF"_s;
    if (const QImage::Format pixels = reader.imageFormat(); pixels != QImage::Format_Invalid)
        facts.bitsPerPixel = QImage::toPixelFormat(pixels).bitsPerPixel();
    TakePixelFacts(facts, device);
    return facts;
}

} // namespace vasclip::picture
