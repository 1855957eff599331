#include "platform/picture/jpeg_reader.h"

#include "platform/picture/exif.h"
#include "platform/picture/refusal.h"

#include <QColorSpace>

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>

#include <jerror.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

/// A progressive picture of a camera has about ten; each one costs a walk over all of the picture.
constexpr int kMostScans = 250;

constexpr J_COLOR_SPACE kPixels = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRA : JCS_EXT_ARGB;

/// The library's decoder on bytes in memory. Its errors come back as false with a message.
///
/// The library leaves by longjmp, so the members that hand control to it keep no object with a destructor.
class Decoder
{
public:
    Decoder(QByteArrayView bytes, const Limits& limits);
    ~Decoder() { jpeg_destroy_decompress(&m_info); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    bool ReadHeader();
    /// Chooses the reduction: the smallest size that is not below `atLeast`.
    void Reduce(QSize atLeast);
    bool Start();
    /// Fills the image, which has OutputSize and OutputFormat.
    bool Decode(QImage& image);

    [[nodiscard]] QSize StoredSize() const
    {
        return {static_cast<int>(m_info.image_width), static_cast<int>(m_info.image_height)};
    }
    [[nodiscard]] QSize OutputSize() const
    {
        return {static_cast<int>(m_info.output_width), static_cast<int>(m_info.output_height)};
    }
    [[nodiscard]] QImage::Format OutputFormat() const
    {
        return m_info.out_color_space == JCS_GRAYSCALE ? QImage::Format_Grayscale8 : QImage::Format_RGB32;
    }
    [[nodiscard]] bool CutShort() const { return m_cutShort; }
    [[nodiscard]] QString Message() const { return QString::fromLocal8Bit(m_message); }
    [[nodiscard]] QByteArray ColourProfile();

private:
    static Decoder& Of(j_common_ptr info) { return *static_cast<Decoder*>(info->client_data); }
    static Decoder& Of(j_decompress_ptr info) { return *static_cast<Decoder*>(info->client_data); }
    [[noreturn]] static void Fail(j_common_ptr info);
    static void Note(j_common_ptr info, int level);
    static void Progress(j_common_ptr info);
    static void Nothing(j_decompress_ptr) {}
    static boolean RanOut(j_decompress_ptr info);
    static void Skip(j_decompress_ptr info, long count);
    void CmykRow(const uchar* from, QRgb* to) const;

    jpeg_decompress_struct m_info{};
    jpeg_error_mgr m_errors{};
    jpeg_progress_mgr m_progress{};
    jpeg_source_mgr m_source{};
    std::jmp_buf m_jump{};
    char m_message[JMSG_LENGTH_MAX] = {};
    QByteArrayView m_bytes;
    Watch m_watch;
    bool m_ranOut = false;
    bool m_cutShort = false;
};

Decoder::Decoder(QByteArrayView bytes, const Limits& limits)
    : m_bytes(bytes)
    , m_watch(limits)
{
    m_info.err = jpeg_std_error(&m_errors);
    m_errors.error_exit = &Decoder::Fail;
    m_errors.emit_message = &Decoder::Note;
    m_info.client_data = this;
}

void Decoder::Fail(j_common_ptr info)
{
    Decoder& self = Of(info);
    if (self.m_message[0] == '\0')
        info->err->format_message(info, self.m_message);
    std::longjmp(self.m_jump, 1);
}

/// Warnings are damage that a picture comes out of; only the missing end is none.
void Decoder::Note(j_common_ptr info, int level)
{
    Decoder& self = Of(info);
    if (level < 0 && info->err->msg_code == JWRN_HIT_MARKER && self.m_ranOut)
        self.m_cutShort = true;
}

void Decoder::Progress(j_common_ptr info)
{
    Decoder& self = Of(info);
    const char* stop = self.m_watch.Stop();
    if (self.m_info.input_scan_number > kMostScans)
        stop = "it has too many scans";
    if (!stop)
        return;
    std::snprintf(self.m_message, sizeof self.m_message, "%s", stop);
    std::longjmp(self.m_jump, 1);
}

/// The bytes are used up: the decoder gets the end of the image, as often as it asks.
boolean Decoder::RanOut(j_decompress_ptr info)
{
    static const JOCTET end[] = {0xFF, JPEG_EOI};
    Of(info).m_ranOut = true;
    info->src->next_input_byte = end;
    info->src->bytes_in_buffer = sizeof end;
    return TRUE;
}

void Decoder::Skip(j_decompress_ptr info, long count)
{
    if (count <= 0)
        return;
    if (static_cast<size_t>(count) > info->src->bytes_in_buffer) {
        RanOut(info);
        return;
    }
    info->src->next_input_byte += count;
    info->src->bytes_in_buffer -= static_cast<size_t>(count);
}

bool Decoder::ReadHeader()
{
    if (setjmp(m_jump) != 0)
        return false;
    jpeg_create_decompress(&m_info);
    m_info.client_data = this;
    m_progress.progress_monitor = &Decoder::Progress;
    m_info.progress = &m_progress;
    m_source.init_source = &Decoder::Nothing;
    m_source.term_source = &Decoder::Nothing;
    m_source.fill_input_buffer = &Decoder::RanOut;
    m_source.skip_input_data = &Decoder::Skip;
    m_source.resync_to_restart = jpeg_resync_to_restart;
    m_source.next_input_byte = reinterpret_cast<const JOCTET*>(m_bytes.data());
    m_source.bytes_in_buffer = static_cast<size_t>(m_bytes.size());
    m_info.src = &m_source;
    jpeg_save_markers(&m_info, JPEG_APP0 + 2, 0xFFFF); // the colour profile
    return jpeg_read_header(&m_info, TRUE) == JPEG_HEADER_OK;
}

void Decoder::Reduce(QSize atLeast)
{
    m_info.scale_denom = 8;
    for (unsigned eighths = 1; eighths <= 8; eighths *= 2) {
        m_info.scale_num = eighths;
        const auto reduced = [eighths](JDIMENSION side) {
            return static_cast<int>((side * eighths + 7) / 8);
        };
        if (reduced(m_info.image_width) >= atLeast.width() &&
            reduced(m_info.image_height) >= atLeast.height())
            break;
    }
    m_info.do_fancy_upsampling = m_info.scale_num == 8;
    switch (m_info.jpeg_color_space) {
    case JCS_GRAYSCALE:
        m_info.out_color_space = JCS_GRAYSCALE;
        break;
    case JCS_CMYK:
    case JCS_YCCK:
        m_info.out_color_space = JCS_CMYK;
        break;
    default:
        m_info.out_color_space = kPixels;
    }
}

bool Decoder::Start()
{
    if (setjmp(m_jump) != 0)
        return false;
    return jpeg_start_decompress(&m_info);
}

bool Decoder::Decode(QImage& image)
{
    if (setjmp(m_jump) != 0)
        return false;
    uchar* const first = image.bits();
    const auto step = image.bytesPerLine();
    JSAMPARRAY cmyk = nullptr;
    if (m_info.out_color_space == JCS_CMYK)
        cmyk = m_info.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&m_info), JPOOL_IMAGE,
                                        m_info.output_width * 4, 1);
    while (m_info.output_scanline < m_info.output_height) {
        uchar* row = first + step * m_info.output_scanline;
        if (!cmyk) {
            jpeg_read_scanlines(&m_info, &row, 1);
            continue;
        }
        jpeg_read_scanlines(&m_info, cmyk, 1);
        CmykRow(cmyk[0], reinterpret_cast<QRgb*>(row));
    }
    // Without its last scans a progressive picture looks whole, only softer.
    if (m_ranOut && m_info.coef_bits) {
        for (int component = 0; component < m_info.num_components; ++component) {
            const int* bits = m_info.coef_bits[component];
            for (int coefficient = 0; coefficient < DCTSIZE2; ++coefficient)
                if (bits[coefficient] > 0 || (coefficient == 0 && bits[0] < 0))
                    m_cutShort = true;
        }
    }
    return true;
}

/// Cameras and image editors store the four inks inverted and say so by their marker.
void Decoder::CmykRow(const uchar* from, QRgb* to) const
{
    const uchar flip = m_info.saw_Adobe_marker ? 0 : 0xFF;
    for (JDIMENSION x = 0; x < m_info.output_width; ++x, from += 4) {
        const int key = from[3] ^ flip;
        const auto mixed = [&](int ink) { return (from[ink] ^ flip) * key / 255; };
        *to++ = qRgb(mixed(0), mixed(1), mixed(2));
    }
}

QByteArray Decoder::ColourProfile()
{
    JOCTET* profile = nullptr;
    unsigned length = 0;
    if (setjmp(m_jump) != 0 || !jpeg_read_icc_profile(&m_info, &profile, &length))
        return {};
    const QByteArray bytes(reinterpret_cast<const char*>(profile), static_cast<qsizetype>(length));
    std::free(profile);
    return bytes;
}

/// The pixels stay as they are; the profile goes with them into what is written of the picture.
void KeepProfile(QImage& image, const QByteArray& profile)
{
    if (!profile.isEmpty() && image.format() == QImage::Format_RGB32)
        image.setColorSpace(QColorSpace::fromIccProfile(profile));
}

/// Each unit of 8 by 8 pixels costs a bit at least, and three colours may share one unit in four.
void CheckLength(QByteArrayView bytes, QSize stored, const QString& name)
{
    constexpr qint64 kMostPixelsOfAByte = 1024;
    if (qint64(stored.width()) * stored.height() > kMostPixelsOfAByte * bytes.size() + 65536)
        Refuse(name, u"its %1 bytes can't hold %2 by %3 pixels"_s.arg(bytes.size())
                         .arg(stored.width())
                         .arg(stored.height()));
}

} // namespace

bool IsJpeg(QByteArrayView bytes)
{
    return bytes.size() >= 3 && bytes.startsWith("\xFF\xD8\xFF");
}

QImage ReadJpeg(QByteArrayView bytes, const QString& name, const TargetSize& target, const Limits& limits)
{
    constexpr auto kCut = "the file is cut short"_L1;
    Decoder decoder(bytes, limits);
    if (!decoder.ReadHeader())
        Refuse(name, decoder.Message());
    const QSize stored = decoder.StoredSize();
    CheckPixels(stored, name, limits);
    CheckLength(bytes, stored, name);
    const int orientation = ReadJpegHead(bytes).exif.orientation;
    const auto turned = [orientation](QSize size) {
        return SwapsSides(orientation) ? size.transposed() : size;
    };
    const QSize wanted = turned(target(turned(stored)));
    decoder.Reduce(wanted);
    const QByteArray profile = decoder.ColourProfile();
    if (!decoder.Start())
        Refuse(name, decoder.CutShort() ? QString(kCut) : decoder.Message());
    QImage image(decoder.OutputSize(), decoder.OutputFormat());
    if (image.isNull())
        Refuse(name, u"there is not enough memory for it"_s);
    if (!decoder.Decode(image))
        Refuse(name, decoder.Message());
    if (decoder.CutShort())
        Refuse(name, QString(kCut));
    if (image.size() != wanted)
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    KeepProfile(image, profile);
    return Upright(image, orientation);
}

} // namespace vasclip::picture
