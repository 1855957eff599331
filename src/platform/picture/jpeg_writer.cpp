#include "platform/picture/exif.h"
#include "platform/picture/picture.h"
#include "platform/text/call_errors.h"
#include "platform/text/runtime_error.h"

#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

constexpr J_COLOR_SPACE kPixels = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;

/// The library's encoder into memory. It leaves by longjmp, so Encode keeps no object with a destructor.
class Encoder
{
public:
    Encoder()
    {
        m_info.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = &Encoder::Fail;
        m_info.client_data = this;
    }
    ~Encoder()
    {
        jpeg_destroy_compress(&m_info);
        std::free(m_bytes);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    bool Encode(const QImage& image, int quality, const QByteArray& exif, const QByteArray& profile);
    [[nodiscard]] QByteArray Bytes() const
    {
        return {reinterpret_cast<const char*>(m_bytes), static_cast<qsizetype>(m_length)};
    }
    [[nodiscard]] QString Message() const { return QString::fromLocal8Bit(m_message); }

private:
    [[noreturn]] static void Fail(j_common_ptr info)
    {
        Encoder& self = *static_cast<Encoder*>(info->client_data);
        info->err->format_message(info, self.m_message);
        std::longjmp(self.m_jump, 1);
    }

    jpeg_compress_struct m_info{};
    jpeg_error_mgr m_errors{};
    std::jmp_buf m_jump{};
    char m_message[JMSG_LENGTH_MAX] = {};
    unsigned char* m_bytes = nullptr;
    unsigned long m_length = 0;
};

bool Encoder::Encode(const QImage& image, int quality, const QByteArray& exif, const QByteArray& profile)
{
    if (setjmp(m_jump) != 0)
        return false;
    jpeg_create_compress(&m_info);
    m_info.client_data = this;
    jpeg_mem_dest(&m_info, &m_bytes, &m_length);
    const bool grey = image.format() == QImage::Format_Grayscale8;
    m_info.image_width = static_cast<JDIMENSION>(image.width());
    m_info.image_height = static_cast<JDIMENSION>(image.height());
    m_info.input_components = grey ? 1 : 4;
    m_info.in_color_space = grey ? JCS_GRAYSCALE : kPixels;
    jpeg_set_defaults(&m_info);
    jpeg_set_quality(&m_info, quality, TRUE);
    jpeg_start_compress(&m_info, TRUE);
    jpeg_write_marker(&m_info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(exif.constData()),
                      static_cast<unsigned>(exif.size()));
    if (!profile.isEmpty())
        jpeg_write_icc_profile(&m_info, reinterpret_cast<const JOCTET*>(profile.constData()),
                               static_cast<unsigned>(profile.size()));
    const uchar* const first = image.constBits();
    while (m_info.next_scanline < m_info.image_height) {
        auto* row = const_cast<JSAMPLE*>(first + image.bytesPerLine() * m_info.next_scanline);
        jpeg_write_scanlines(&m_info, &row, 1);
    }
    jpeg_finish_compress(&m_info);
    return true;
}

/// Rows that the encoder takes as they are.
QImage Plain(const QImage& image)
{
    if (image.hasAlphaChannel()) {
        QImage ground(image.size(), QImage::Format_RGB32);
        ground.fill(Qt::white);
        QPainter(&ground).drawImage(0, 0, image);
        return ground;
    }
    const bool plain = image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_Grayscale8;
    return plain ? image : image.convertToFormat(QImage::Format_RGB32);
}

/// A colour profile that a reader would not assume by itself.
QByteArray ProfileOf(const QImage& image)
{
    const QColorSpace space = image.colorSpace();
    return space.isValid() && space != QColorSpace(QColorSpace::SRgb) ? space.iccProfile() : QByteArray();
}

} // namespace

QByteArray ToJpeg(const QImage& image, int quality, const Notes& notes)
{
    if (image.isNull())
        throw RuntimeError(error::kInvalidCall, u"There is no picture to save"_s);
    const QImage plain = Plain(image);
    const QByteArray exif = ExifSegment(notes, plain.size());
    const QByteArray profile = ProfileOf(image);
    Encoder encoder;
    if (!encoder.Encode(plain, std::clamp(quality, 1, 100), exif, profile))
        throw RuntimeError(error::kCorruptPicture,
                           u"The picture can't be written as JPEG: "_s + encoder.Message());
    return encoder.Bytes();
}

} // namespace vasclip::picture
