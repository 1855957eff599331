#include "platform/picture/heif_reader.h"

#include "platform/picture/exif.h"
#include "platform/picture/refusal.h"

#include <QLibrary>
#include <libheif/heif.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

/// The library and the decoders that it brings are loaded with the first picture of their kind: they are
/// large, and most starts of the program meet none.
class Library
{
public:
    Library()
    {
        if (!m_missing.isEmpty())
            qWarning("libheif cannot be used: %s", qPrintable(m_missing));
    }

    /// Why pictures of this kind can not be read; empty if they can.
    [[nodiscard]] const QString& Missing() const { return m_missing; }

private:
    QLibrary m_file{u"heif"_s, 1};
    QString m_missing;

    template <class Function>
    Function* Find(const char* name)
    {
        const QFunctionPointer found = m_file.resolve(name);
        if (!found && m_missing.isEmpty())
            m_missing = m_file.errorString();
        return reinterpret_cast<Function*>(found);
    }

public:
    decltype(heif_check_filetype)* checkFiletype = Find<decltype(heif_check_filetype)>("heif_check_filetype");
    decltype(heif_context_alloc)* contextAlloc = Find<decltype(heif_context_alloc)>("heif_context_alloc");
    decltype(heif_context_free)* contextFree = Find<decltype(heif_context_free)>("heif_context_free");
    decltype(heif_context_get_primary_image_handle)* contextGetPrimaryImageHandle =
        Find<decltype(heif_context_get_primary_image_handle)>("heif_context_get_primary_image_handle");
    decltype(heif_context_read_from_memory_without_copy)* contextReadFromMemoryWithoutCopy =
        Find<decltype(heif_context_read_from_memory_without_copy)>(
            "heif_context_read_from_memory_without_copy");
    decltype(heif_context_set_maximum_image_size_limit)* contextSetMaximumImageSizeLimit =
        Find<decltype(heif_context_set_maximum_image_size_limit)>(
            "heif_context_set_maximum_image_size_limit");
    decltype(heif_decode_image)* decodeImage = Find<decltype(heif_decode_image)>("heif_decode_image");
    decltype(heif_image_get_height)* imageGetHeight =
        Find<decltype(heif_image_get_height)>("heif_image_get_height");
    decltype(heif_image_get_plane_readonly)* imageGetPlaneReadonly =
        Find<decltype(heif_image_get_plane_readonly)>("heif_image_get_plane_readonly");
    decltype(heif_image_get_width)* imageGetWidth =
        Find<decltype(heif_image_get_width)>("heif_image_get_width");
    decltype(heif_image_handle_get_height)* imageHandleGetHeight =
        Find<decltype(heif_image_handle_get_height)>("heif_image_handle_get_height");
    decltype(heif_image_handle_get_list_of_metadata_block_IDs)* imageHandleGetListOfMetadataBlockIDs =
        Find<decltype(heif_image_handle_get_list_of_metadata_block_IDs)>(
            "heif_image_handle_get_list_of_metadata_block_IDs");
    decltype(heif_image_handle_get_list_of_thumbnail_IDs)* imageHandleGetListOfThumbnailIDs =
        Find<decltype(heif_image_handle_get_list_of_thumbnail_IDs)>(
            "heif_image_handle_get_list_of_thumbnail_IDs");
    decltype(heif_image_handle_get_luma_bits_per_pixel)* imageHandleGetLumaBitsPerPixel =
        Find<decltype(heif_image_handle_get_luma_bits_per_pixel)>(
            "heif_image_handle_get_luma_bits_per_pixel");
    decltype(heif_image_handle_get_metadata)* imageHandleGetMetadata =
        Find<decltype(heif_image_handle_get_metadata)>("heif_image_handle_get_metadata");
    decltype(heif_image_handle_get_metadata_size)* imageHandleGetMetadataSize =
        Find<decltype(heif_image_handle_get_metadata_size)>("heif_image_handle_get_metadata_size");
    decltype(heif_image_handle_get_thumbnail)* imageHandleGetThumbnail =
        Find<decltype(heif_image_handle_get_thumbnail)>("heif_image_handle_get_thumbnail");
    decltype(heif_image_handle_get_width)* imageHandleGetWidth =
        Find<decltype(heif_image_handle_get_width)>("heif_image_handle_get_width");
    decltype(heif_image_handle_has_alpha_channel)* imageHandleHasAlphaChannel =
        Find<decltype(heif_image_handle_has_alpha_channel)>("heif_image_handle_has_alpha_channel");
    decltype(heif_image_handle_release)* imageHandleRelease =
        Find<decltype(heif_image_handle_release)>("heif_image_handle_release");
    decltype(heif_image_release)* imageRelease = Find<decltype(heif_image_release)>("heif_image_release");
};

const Library& Lib()
{
    static const Library& library = *new Library; // never goes: a decoding that was left may outlive the program
    return library;
}

/// @throws as Refuse() does when the library is not installed
void NeedLibrary(const QString& name)
{
    if (!Lib().Missing().isEmpty())
        Refuse(name, u"HEIC pictures need the package libheif1, which is not installed"_s);
}

struct Release
{
    void operator()(heif_context* context) const { Lib().contextFree(context); }
    void operator()(heif_image_handle* handle) const { Lib().imageHandleRelease(handle); }
    void operator()(heif_image* picture) const { Lib().imageRelease(picture); }
};

using Context = std::unique_ptr<heif_context, Release>;
using Handle = std::unique_ptr<heif_image_handle, Release>;
using Picture = std::unique_ptr<heif_image, Release>;

void Check(const heif_error& failure, const QString& name)
{
    if (failure.code != heif_error_Ok)
        Refuse(name, QString::fromUtf8(failure.message));
}

/// The file's main picture. `context` keeps the file open as long as the handle is used.
Handle Primary(const Context& context, QByteArrayView bytes, const QString& name)
{
    constexpr int kLongestSide = 65'535;
    Lib().contextSetMaximumImageSizeLimit(context.get(), kLongestSide);
    Check(Lib().contextReadFromMemoryWithoutCopy(context.get(), bytes.data(),
                                                 static_cast<size_t>(bytes.size()), nullptr),
          name);
    heif_image_handle* handle = nullptr;
    Check(Lib().contextGetPrimaryImageHandle(context.get(), &handle), name);
    return Handle(handle);
}

QSize SizeOf(const Handle& handle)
{
    return {Lib().imageHandleGetWidth(handle.get()), Lib().imageHandleGetHeight(handle.get())};
}

QImage Decoded(const Handle& handle, const QString& name)
{
    const bool alpha = Lib().imageHandleHasAlphaChannel(handle.get()) != 0;
    heif_image* decoded = nullptr;
    Check(Lib().decodeImage(handle.get(), &decoded, heif_colorspace_RGB,
                            alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, nullptr),
          name);
    const Picture picture(decoded);
    int step = 0;
    const uint8_t* rows = Lib().imageGetPlaneReadonly(decoded, heif_channel_interleaved, &step);
    const QSize size(Lib().imageGetWidth(decoded, heif_channel_interleaved),
                     Lib().imageGetHeight(decoded, heif_channel_interleaved));
    if (!rows || size.isEmpty())
        Refuse(name, u"it holds no picture"_s);
    const QImage borrowed(rows, size.width(), size.height(), step,
                          alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    return borrowed.convertToFormat(alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

/// A decoding in a thread of its own; the last of both sides to let go of it frees it.
struct Aside
{
    QByteArray bytes;
    Context context;
    Handle handle;
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    QImage image;
    std::exception_ptr failure;
};

std::atomic<int> asideRunning = 0;

QImage DecodedAside(const std::shared_ptr<Aside>& aside, const QString& name, const Watch& watch)
{
    constexpr int kMostAtOnce = 8; // those that were left count too
    constexpr std::chrono::milliseconds kBetweenLooks(5);
    if (++asideRunning > kMostAtOnce) {
        --asideRunning;
        Refuse(name, u"too many other pictures are still being decoded"_s);
    }
    std::thread([aside, name] {
        QImage image;
        std::exception_ptr failure;
        try {
            image = Decoded(aside->handle, name);
        } catch (...) {
            failure = std::current_exception();
        }
        --asideRunning;
        const std::lock_guard lock(aside->mutex);
        aside->image = std::move(image);
        aside->failure = failure;
        aside->done = true;
        aside->ended.notify_one();
    }).detach();
    std::unique_lock lock(aside->mutex);
    do {
        if (const char* stop = watch.Stop())
            Refuse(name, QString::fromLatin1(stop));
    } while (!aside->ended.wait_for(lock, kBetweenLooks, [&aside] { return aside->done; }));
    if (aside->failure)
        std::rethrow_exception(aside->failure);
    return std::move(aside->image);
}

Exif ExifOf(const Handle& handle, QByteArray& storage)
{
    heif_item_id id = 0;
    if (Lib().imageHandleGetListOfMetadataBlockIDs(handle.get(), "Exif", &id, 1) != 1)
        return {};
    constexpr size_t kLongest = 4 * 1024 * 1024;
    const size_t length = Lib().imageHandleGetMetadataSize(handle.get(), id);
    constexpr qsizetype kOffsetLength = 4;
    if (length <= size_t(kOffsetLength) || length > kLongest)
        return {};
    storage.resize(static_cast<qsizetype>(length));
    if (Lib().imageHandleGetMetadata(handle.get(), id, storage.data()).code != heif_error_Ok)
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
    if (!Lib().Missing().isEmpty()) // reading it says what is missing
        return QByteArrayList{"heic", "heix", "heim", "heis", "mif1", "avif"}.contains(bytes.sliced(8, 4));
    const int longest = static_cast<int>(std::min<qsizetype>(bytes.size(), 1024));
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
    return Lib().checkFiletype(data, longest) != heif_filetype_no;
}

QImage ReadHeif(const QByteArray& bytes, const QString& name, const TargetSize& target, const Limits& limits)
{
    NeedLibrary(name);
    const Watch watch(limits);
    const auto aside = std::make_shared<Aside>();
    aside->bytes = bytes;
    aside->context.reset(Lib().contextAlloc());
    aside->handle = Primary(aside->context, aside->bytes, name);
    CheckPixels(SizeOf(aside->handle), name, limits);
    if (const char* stop = watch.Stop())
        Refuse(name, QString::fromLatin1(stop));
    QImage image = DecodedAside(aside, name, watch);
    if (const QSize wanted = target(image.size()); wanted != image.size())
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}

Facts DescribeHeif(QByteArrayView bytes, const QString& name)
{
    NeedLibrary(name);
    const Context context(Lib().contextAlloc());
    const Handle handle = Primary(context, bytes, name);
    QByteArray storage;
    Facts facts;
    facts.size = SizeOf(handle);
    facts.format = u"HEIC"_s;
    facts.compression = u"HEVC"_s;
    const int components = Lib().imageHandleHasAlphaChannel(handle.get()) != 0 ? 4 : 3;
    facts.bitsPerPixel = components * std::max(Lib().imageHandleGetLumaBitsPerPixel(handle.get()), 0);
    const Exif exif = ExifOf(handle, storage);
    facts.notes = exif.notes;
    facts.notes.exif = exif.tiff.toByteArray();
    return facts;
}

QImage HeifThumbnail(QByteArrayView bytes)
{
    const QString none;
    NeedLibrary(none);
    const Context context(Lib().contextAlloc());
    const Handle handle = Primary(context, bytes, none);
    heif_item_id id = 0;
    if (Lib().imageHandleGetListOfThumbnailIDs(handle.get(), &id, 1) != 1)
        return {};
    heif_image_handle* small = nullptr;
    if (Lib().imageHandleGetThumbnail(handle.get(), id, &small).code != heif_error_Ok)
        return {};
    return Decoded(Handle(small), none);
}

} // namespace vasclip::picture
