#include "platform/picture/heif_reader.h"

#include "platform/picture/exif.h"
#include "platform/picture/refusal.h"

#include <libheif/heif.h>

#include <algorithm>
#include <cstring>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

using Context = std::unique_ptr<heif_context, decltype(&heif_context_free)>;
using Handle = std::unique_ptr<heif_image_handle, decltype(&heif_image_handle_release)>;
using Picture = std::unique_ptr<heif_image, decltype(&heif_image_release)>;

void Check(const heif_error& failure, const QString& name)
{
    if (failure.code != heif_error_Ok)
        Refuse(name, QString::fromUtf8(failure.message));
}

/// The file's main picture. `context` keeps the file open as long as the handle is used.
Handle Primary(const Context& context, QByteArrayView bytes, const QString& name)
{
    constexpr int kLongestSide = 65'535;
    heif_context_set_maximum_image_size_limit(context.get(), kLongestSide);
    Check(heif_context_read_from_memory_without_copy(context.get(), bytes.data(),
                                                     static_cast<size_t>(bytes.size()), nullptr),
          name);
    heif_image_handle* handle = nullptr;
    Check(heif_context_get_primary_image_handle(context.get(), &handle), name);
    return {handle, &heif_image_handle_release};
}

QSize SizeOf(const Handle& handle)
{
    return {heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get())};
}

QImage Decoded(const Handle& handle, const QString& name)
{
    const bool alpha = heif_image_handle_has_alpha_channel(handle.get()) != 0;
    heif_image* decoded = nullptr;
    Check(heif_decode_image(handle.get(), &decoded, heif_colorspace_RGB,
                            alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, nullptr),
          name);
    const Picture picture(decoded, &heif_image_release);
    int step = 0;
    const uint8_t* rows = heif_image_get_plane_readonly(decoded, heif_channel_interleaved, &step);
    const QSize size(heif_image_get_width(decoded, heif_channel_interleaved),
                     heif_image_get_height(decoded, heif_channel_interleaved));
    if (!rows || size.isEmpty())
        Refuse(name, u"it holds no picture"_s);
    const QImage borrowed(rows, size.width(), size.height(), step,
                          alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    return borrowed.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

Exif ExifOf(const Handle& handle, QByteArray& storage)
{
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_metadata_block_IDs(handle.get(), "Exif", &id, 1) != 1)
        return {};
    constexpr size_t kLongest = 4 * 1024 * 1024;
    const size_t length = heif_image_handle_get_metadata_size(handle.get(), id);
    constexpr qsizetype kOffsetLength = 4;
    if (length <= size_t(kOffsetLength) || length > kLongest)
        return {};
    storage.resize(static_cast<qsizetype>(length));
    if (heif_image_handle_get_metadata(handle.get(), id, storage.data()).code != heif_error_Ok)
        return {};
    // Four bytes tell how far behind them the TIFF structure begins.
    const qsizetype tiff = storage.indexOf(QByteArrayView("MM\0\x2A", 4), kOffsetLength);
    const qsizetype intel = storage.indexOf(QByteArrayView("II\x2A\0", 4), kOffsetLength);
    const qsizetype at = tiff < 0 || (intel >= 0 && intel < tiff) ? intel : tiff;
    return at < 0 ? Exif{} : ReadExif(QByteArrayView(storage).sliced(at));
}

} // namespace

bool IsHeif(QByteArrayView bytes)
{
    constexpr qsizetype kBrandLength = 12;
    if (bytes.size() < kBrandLength || bytes.sliced(4, 4) != QByteArrayView("ftyp"))
        return false;
    const int longest = static_cast<int>(std::min<qsizetype>(bytes.size(), 1024));
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
    return heif_check_filetype(data, longest) != heif_filetype_no;
}

QImage ReadHeif(QByteArrayView bytes, const QString& name, const TargetSize& target, const Limits& limits)
{
    const Watch watch(limits);
    const Context context(heif_context_alloc(), &heif_context_free);
    const Handle handle = Primary(context, bytes, name);
    CheckPixels(SizeOf(handle), name, limits);
    if (const char* stop = watch.Stop())
        Refuse(name, QString::fromLatin1(stop));
    QImage image = Decoded(handle, name);
    if (const QSize wanted = target(image.size()); wanted != image.size())
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}

Facts DescribeHeif(QByteArrayView bytes, const QString& name)
{
    const Context context(heif_context_alloc(), &heif_context_free);
    const Handle handle = Primary(context, bytes, name);
    QByteArray storage;
    Facts facts;
    facts.size = SizeOf(handle);
    facts.format = u"HEIC"_s;
    facts.compression = u"HEVC"_s;
    const int components = heif_image_handle_has_alpha_channel(handle.get()) != 0 ? 4 : 3;
    facts.bitsPerPixel = components * std::max(heif_image_handle_get_luma_bits_per_pixel(handle.get()), 0);
    facts.notes = ExifOf(handle, storage).notes;
    return facts;
}

QImage HeifThumbnail(QByteArrayView bytes)
{
    const QString none;
    const Context context(heif_context_alloc(), &heif_context_free);
    const Handle handle = Primary(context, bytes, none);
    heif_item_id id = 0;
    if (heif_image_handle_get_list_of_thumbnail_IDs(handle.get(), &id, 1) != 1)
        return {};
    heif_image_handle* small = nullptr;
    if (heif_image_handle_get_thumbnail(handle.get(), id, &small).code != heif_error_Ok)
        return {};
    return Decoded(Handle(small, &heif_image_handle_release), none);
}

} // namespace vasclip::picture
