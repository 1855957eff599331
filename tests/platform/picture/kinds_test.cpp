// Pictures of every kind that cameras and phones write, and files that mean harm.

#include "platform/picture/adjust.h"
#include "platform/picture/exif.h"
#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColorSpace>
#include <QElapsedTimer>

#include <cstdio>
#include <functional>
#include <random>

#include <jpeglib.h>
#include <libheif/heif.h>

using namespace Qt::Literals::StringLiterals;

#ifdef __SANITIZE_ADDRESS__
/// The encoder of the test files forgets some memory of its own.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libx265\n";
}
#endif

namespace vasclip::picture {
namespace {

/// Red above left, green above right, blue below left, white below right.
QImage Quarters(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y,
                           y < height / 2 ? (x < width / 2 ? 0xFFFF0000 : 0xFF00FF00)
                                          : (x < width / 2 ? 0xFF0000FF : 0xFFFFFFFF));
    return image;
}

/// Which of red, green, blue and white a colour is.
char Colour(QColor colour)
{
    const bool red = colour.red() > 128;
    const bool green = colour.green() > 128;
    const bool blue = colour.blue() > 128;
    return red && green && blue ? 'w' : red ? 'r' : green ? 'g' : blue ? 'b' : '?';
}

/// The colours of the quarters in reading order: "rgbw" for an upright picture.
std::string Corners(const QImage& image)
{
    const int x = image.width() / 4;
    const int y = image.height() / 4;
    return {Colour(image.pixelColor(x, y)), Colour(image.pixelColor(3 * x, y)),
            Colour(image.pixelColor(x, 3 * y)), Colour(image.pixelColor(3 * x, 3 * y))};
}

using Setup = std::function<void(jpeg_compress_struct&)>;

/// A JPEG from rows of `components` bytes a pixel, as `setup` has it.
QByteArray RawJpeg(const QByteArray& pixels, QSize size, int components, J_COLOR_SPACE space, const Setup& setup)
{
    jpeg_compress_struct info{};
    jpeg_error_mgr errors{};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &bytes, &length);
    info.image_width = static_cast<JDIMENSION>(size.width());
    info.image_height = static_cast<JDIMENSION>(size.height());
    info.input_components = components;
    info.in_color_space = space;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 95, TRUE);
    setup(info);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        auto* row = reinterpret_cast<JSAMPLE*>(
            const_cast<char*>(pixels.constData() + qsizetype(info.next_scanline) * size.width() * components));
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    const QByteArray result(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(length));
    jpeg_destroy_compress(&info);
    std::free(bytes);
    return result;
}

QByteArray RgbJpeg(const QImage& image, const Setup& setup)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    QByteArray pixels;
    for (int y = 0; y < rgb.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(rgb.constScanLine(y)), rgb.width() * 3);
    return RawJpeg(pixels, rgb.size(), 3, JCS_RGB, setup);
}

QByteArray CmykJpeg(const QImage& image, J_COLOR_SPACE stored, bool adobe)
{
    QByteArray pixels;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            for (const int ink : {255 - colour.red(), 255 - colour.green(), 255 - colour.blue(), 0})
                pixels.append(static_cast<char>(adobe ? 255 - ink : ink));
        }
    return RawJpeg(pixels, image.size(), 4, JCS_CMYK, [&](jpeg_compress_struct& info) {
        jpeg_set_colorspace(&info, stored);
        info.write_Adobe_marker = adobe;
    });
}

QByteArray Heic(const QImage& image)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
    heif_context* context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    QByteArray bytes;
    if (heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder).code == heif_error_Ok) {
        heif_encoder_set_lossy_quality(encoder, 90);
        heif_image* picture = nullptr;
        heif_image_create(rgb.width(), rgb.height(), heif_colorspace_RGB, heif_chroma_interleaved_RGB, &picture);
        heif_image_add_plane(picture, heif_channel_interleaved, rgb.width(), rgb.height(), 8);
        int step = 0;
        uint8_t* rows = heif_image_get_plane(picture, heif_channel_interleaved, &step);
        for (int y = 0; y < rgb.height(); ++y)
            std::copy_n(rgb.constScanLine(y), rgb.width() * 3, rows + qsizetype(step) * y);
        heif_image_handle* handle = nullptr;
        heif_context_encode_image(context, picture, encoder, nullptr, &handle);
        heif_writer writer{1, [](heif_context*, const void* data, size_t size, void* into) {
                               *static_cast<QByteArray*>(into) =
                                   QByteArray(static_cast<const char*>(data), static_cast<qsizetype>(size));
                               return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                           }};
        heif_context_write(context, &writer, &bytes);
        heif_image_handle_release(handle);
        heif_image_release(picture);
        heif_encoder_release(encoder);
    }
    heif_context_free(context);
    return bytes;
}

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return bytes;
}

/// A JPEG whose orientation tag says so.
QByteArray Oriented(int orientation)
{
    QByteArray jpeg = ToJpeg(Quarters(64, 32), 95);
    const qsizetype tag = jpeg.indexOf(QByteArray("\x01\x12\x00\x03\x00\x00\x00\x01\x00\x01", 10));
    EXPECT_GT(tag, 0);
    jpeg[tag + 9] = static_cast<char>(orientation);
    return jpeg;
}

QString Refusal(const QByteArray& bytes, const Limits& limits = {})
{
    try {
        (void)FromBytes(bytes, u"FILE"_s, 0, limits);
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kCorruptPicture);
        EXPECT_TRUE(failure.Description().startsWith(u"'FILE' is not a picture that can be read: "_s));
        return failure.Description();
    }
    return {};
}

TEST(PictureKinds, JpegOfEveryKind)
{
    const QImage quarters = Quarters(160, 96);
    const auto keep = [](jpeg_compress_struct&) {};
    EXPECT_EQ(Corners(FromBytes(RgbJpeg(quarters, keep), u"a"_s)), "rgbw");
    EXPECT_EQ(Corners(FromBytes(RgbJpeg(quarters, [](auto& info) { jpeg_simple_progression(&info); }), u"a"_s)),
              "rgbw");
    EXPECT_EQ(Corners(FromBytes(RgbJpeg(quarters, [](auto& info) { jpeg_set_colorspace(&info, JCS_RGB); }), u"a"_s)),
              "rgbw");
    EXPECT_EQ(Corners(FromBytes(RgbJpeg(quarters, [](auto& info) { info.restart_interval = 2; }), u"a"_s)), "rgbw");
    EXPECT_EQ(Corners(FromBytes(RgbJpeg(quarters, [](auto& info) { info.arith_code = TRUE; }), u"a"_s)), "rgbw");
    for (const J_COLOR_SPACE stored : {JCS_CMYK, JCS_YCCK}) {
        EXPECT_EQ(Corners(FromBytes(CmykJpeg(quarters, stored, true), u"a"_s)), "rgbw") << stored;
        EXPECT_EQ(Corners(FromBytes(CmykJpeg(quarters, stored, true), u"a"_s, 40)), "rgbw") << stored;
    }
    EXPECT_EQ(Corners(FromBytes(CmykJpeg(quarters, JCS_CMYK, false), u"a"_s)), "rgbw");
    const QImage grey = FromBytes(Encoded(quarters.convertToFormat(QImage::Format_Grayscale8), "JPG"), u"a"_s);
    EXPECT_EQ(grey.size(), QSize(160, 96));
    EXPECT_GT(grey.pixelColor(120, 70).lightness(), 240);
    EXPECT_FALSE(ToJpeg(grey, 90).isEmpty());
}

TEST(PictureKinds, OtherFormats)
{
    const QImage quarters = Quarters(160, 96);
    for (const char* format : {"PNG", "BMP", "TIFF", "WEBP", "PPM"})
        EXPECT_EQ(Corners(FromBytes(Encoded(quarters, format), u"a"_s)), "rgbw") << format;
}

TEST(PictureKinds, HeicFromPhones)
{
    const QByteArray heic = Heic(Quarters(160, 96));
    if (heic.isEmpty())
        GTEST_SKIP() << "this libheif has no encoder to make a file with";
    const QImage image = FromBytes(heic, u"a"_s);
    EXPECT_EQ(image.size(), QSize(160, 96));
    EXPECT_EQ(Corners(image), "rgbw");
    EXPECT_EQ(FromBytes(heic, u"a"_s, 80).size(), QSize(80, 48));
    EXPECT_NE(Refusal(heic.left(heic.size() / 2)), QString());
    EXPECT_NE(Refusal(heic, {1000, 1'000'000}), QString());
    int asked = 0;
    Limits impatient;
    impatient.cancelled = [&asked] { return ++asked > 1; }; // in the middle of the decoding
    EXPECT_TRUE(Refusal(heic, impatient).contains(u"cancelled"_s));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(Corners(FromBytes(heic, u"a"_s)), "rgbw") << "beside the one that was left";
    tests::TempHome home;
    home.Put(u"C:\\A.HEIC"_s, heic);
    EXPECT_EQ(PictureSize(home.disk, u"C:\\A.HEIC"_s), QSize(160, 96));
    EXPECT_EQ(Describe(home.disk, u"C:\\A.HEIC"_s).format, u"HEIC"_s);
}

TEST(PictureKinds, AllEightOrientations)
{
    const struct
    {
        int orientation;
        const char* corners;
        QSize size;
    } rows[] = {{1, "rgbw", {64, 32}}, {2, "grwb", {64, 32}}, {3, "wbgr", {64, 32}}, {4, "bwrg", {64, 32}},
                {5, "rbgw", {32, 64}}, {6, "brwg", {32, 64}}, {7, "wgbr", {32, 64}}, {8, "gwrb", {32, 64}},
                {0, "rgbw", {64, 32}}, {9, "rgbw", {64, 32}}};
    for (const auto& row : rows) {
        const QImage image = FromBytes(Oriented(row.orientation), u"a"_s);
        EXPECT_EQ(image.size(), row.size) << row.orientation;
        EXPECT_EQ(Corners(image), row.corners) << row.orientation;
        const QImage again = FromBytes(ToJpeg(image, 95), u"a"_s);
        EXPECT_EQ(Corners(again), row.corners) << "written anew it is upright";
    }
}

TEST(PictureKinds, EachSideWithinItsOwnLimit)
{
    const QByteArray jpeg = ToJpeg(Quarters(400, 300), 90);
    EXPECT_EQ(WithinFromBytes(jpeg, u"a"_s, {800, 600}).size(), QSize(400, 300));
    EXPECT_EQ(WithinFromBytes(jpeg, u"a"_s, {100, 600}).size(), QSize(100, 300));
    EXPECT_EQ(WithinFromBytes(jpeg, u"a"_s, {50, 50}).size(), QSize(50, 50));
    EXPECT_EQ(Corners(WithinFromBytes(jpeg, u"a"_s, {50, 40})), "rgbw");
    EXPECT_EQ(WithinFromBytes(Oriented(6), u"a"_s, {32, 40}).size(), QSize(32, 40)) << "of the upright picture";
}

TEST(PictureKinds, NotesAndProfileStayWithThePicture)
{
    const Notes notes{QDateTime(QDate(2023, 12, 31), QTime(23, 59, 58)), u"Maker"_s, u"A model with a long name"_s};
    QImage image = Quarters(64, 32);
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    const QByteArray jpeg = ToJpeg(image, 90, notes);
    EXPECT_EQ(ReadJpegHead(jpeg).exif.notes, notes);
    EXPECT_EQ(ReadJpegHead(jpeg).exif.orientation, 1);
    EXPECT_EQ(FromBytes(jpeg, u"a"_s).colorSpace().primaries(), QColorSpace::Primaries::AdobeRgb);
    EXPECT_EQ(ReadJpegHead(ToJpeg(image, 90)).exif.notes, Notes());
    EXPECT_EQ(ReadJpegHead(ToJpeg(image, 90, {{}, u"M"_s, {}})).exif.notes.make, u"M"_s);
}

/// A TIFF structure as a camera writes it: orientation 6, the size, a place, a maker's note and a small picture.
QByteArray CameraTiff(bool big, const QByteArray& small, const QByteArray& behind = {})
{
    const auto number = [big](quint32 value, int bytes) {
        QByteArray text;
        for (int at = 0; at < bytes; ++at)
            text.append(static_cast<char>(value >> (8 * (big ? bytes - 1 - at : at)) & 0xFF));
        return text;
    };
    const auto entry = [&](quint32 tag, quint32 type, quint32 count, quint32 value) {
        return number(tag, 2) + number(type, 2) + number(count, 4) +
               (type == 3 ? number(value, 2) + number(0, 2) : number(value, 4));
    };
    constexpr quint32 kFirst = 8, kDetail = kFirst + 2 + 3 * 12 + 4, kPlace = kDetail + 2 + 3 * 12 + 4,
                      kSecond = kPlace + 2 + 12 + 4, kDegrees = kSecond + 2 + 2 * 12 + 4, kNote = kDegrees + 24,
                      kSmall = kNote + 8;
    return QByteArray(big ? "MM" : "II") + number(42, 2) + number(kFirst, 4) + number(3, 2) +
           entry(0x0112, 3, 1, 6) + entry(0x8769, 4, 1, kDetail) + entry(0x8825, 4, 1, kPlace) +
           number(kSecond, 4) + number(3, 2) + entry(0x927C, 7, 8, kNote) + entry(0xA002, 3, 1, 4000) +
           entry(0xA003, 4, 1, 3000) + number(0, 4) + number(1, 2) + entry(0x0002, 5, 3, kDegrees) + number(0, 4) +
           number(2, 2) + entry(0x0201, 4, 1, kSmall) + entry(0x0202, 4, 1, static_cast<quint32>(small.size())) +
           number(0, 4) + number(48, 4) + number(1, 4) + number(51, 4) + number(1, 4) + number(30, 4) +
           number(1, 4) + QByteArray("MAKERS!", 8) + small + behind;
}

TEST(PictureKinds, WrittenAnewAPictureKeepsItsExifDataButTurnAndSmallPicture)
{
    const QByteArray small = ToJpeg(Quarters(40, 20), 90);
    for (const bool big : {true, false}) {
        for (const QByteArray& behind : {QByteArray(), QByteArray("behind")}) {
            Notes notes;
            notes.exif = CameraTiff(big, small, behind);
            const QByteArray jpeg = ToJpeg(Quarters(80, 60), 90, notes);
            const Exif kept = ReadJpegHead(jpeg).exif;
            EXPECT_EQ(kept.orientation, 1);
            EXPECT_TRUE(kept.thumbnail.isEmpty());
            EXPECT_FALSE(jpeg.contains(small)) << "it shows the picture as it was";
            // What is expected, byte for byte: the same with three numbers and the link to the small picture changed.
            QByteArray wanted = notes.exif;
            const auto put = [&](qsizetype at, int bytes, quint32 value) {
                for (int i = 0; i < bytes; ++i)
                    wanted[at + (big ? bytes - 1 - i : i)] = static_cast<char>(value >> (8 * i) & 0xFF);
            };
            put(18, 2, 1);   // orientation
            put(46, 4, 0);   // second directory
            put(72, 2, 80);  // width
            put(84, 4, 60);  // height
            if (behind.isEmpty())
                wanted.chop(small.size());
            else
                wanted.replace(wanted.indexOf(small), small.size(), QByteArray(small.size(), '\0'));
            EXPECT_EQ(kept.tiff.toByteArray().toHex(), wanted.toHex()) << big << behind.toStdString();
        }
    }
}

TEST(PictureKinds, ExifDataThatCanNotBeKeptLeaveTheNotes)
{
    const QByteArray small = ToJpeg(Quarters(40, 20), 90);
    const QByteArray whole = CameraTiff(true, small);
    const QDateTime taken(QDate(2023, 12, 31), QTime(23, 59, 58));
    for (const QByteArray& exif : {QByteArray("MM"), QByteArray("no TIFF structure at all"), whole.left(8), whole.left(9),
                                   whole + QByteArray(70'000, 'x')}) {
        Notes notes{taken, u"Maker"_s, u"Model"_s};
        notes.exif = exif;
        EXPECT_EQ(ReadJpegHead(ToJpeg(Quarters(80, 60), 90, notes)).exif.notes, notes) << exif.size();
    }
    for (qsizetype length = 8; length < whole.size(); ++length) { // cut short at any place it does no harm
        Notes notes;
        notes.exif = whole.left(length);
        const QByteArray jpeg = ToJpeg(Quarters(16, 16), 90, notes);
        EXPECT_EQ(FromBytes(jpeg, u"a"_s).size(), QSize(16, 16)) << length;
        EXPECT_TRUE(length < 22 || ReadJpegHead(jpeg).exif.orientation == 1) << length;
    }
}

TEST(PictureKinds, DamagedExifDataStayWithinTheirBounds)
{
    const QByteArray whole = CameraTiff(false, QByteArray(60, 'p'), "behind");
    std::mt19937 random(6);
    for (int run = 0; run < 5000; ++run) {
        Notes notes;
        notes.exif = whole;
        for (int damage = 0; damage < 4; ++damage)
            notes.exif[static_cast<qsizetype>(random() % static_cast<unsigned>(whole.size()))] =
                static_cast<char>(random() % 3 == 0 ? 0xFF : random());
        const QByteArray before = notes.exif;
        const QByteArray segment = ExifSegment(notes, {80, 60});
        EXPECT_TRUE(segment.startsWith(QByteArray("Exif\0\0", 6)));
        EXPECT_LE(segment.size(), 6 + whole.size());
        EXPECT_EQ(notes.exif, before) << "what was read is not changed in place";
    }
}

TEST(PictureKinds, TheEmbeddedThumbnailIsReadUprightFromTheHead)
{
    const QByteArray small = ToJpeg(Quarters(40, 20), 90);
    // Two directories: orientation 6 in the first, the thumbnail in the second.
    const auto number = [](quint32 value, int bytes) {
        QByteArray text;
        for (int at = bytes - 1; at >= 0; --at)
            text.append(static_cast<char>(value >> (8 * at) & 0xFF));
        return text;
    };
    const auto entry = [&](quint32 tag, quint32 type, quint32 value) {
        return number(tag, 2) + number(type, 2) + number(1, 4) + (type == 3 ? number(value, 2) + number(0, 2) : number(value, 4));
    };
    const QByteArray tiff = QByteArray("MM\0\x2A", 4) + number(8, 4) + number(1, 2) + entry(0x0112, 3, 6) + number(26, 4) +
                            number(2, 2) + entry(0x0201, 4, 56) + entry(0x0202, 4, static_cast<quint32>(small.size())) +
                            number(0, 4) + small;
    const QByteArray segment = QByteArray("Exif\0\0", 6) + tiff;
    QByteArray jpeg = RgbJpeg(Quarters(400, 200), [](auto&) {});
    jpeg.insert(2, QByteArray("\xFF\xE1", 2) + number(static_cast<quint32>(segment.size() + 2), 2) + segment);
    tests::TempHome home;
    home.Put(u"C:\\A.JPG"_s, jpeg.left(segment.size() + 40)); // the head is enough
    EXPECT_TRUE(EmbeddedThumbnail(home.disk, u"C:\\A.JPG"_s).ofWhole.isEmpty()) << "its frame is not there";
    const QImage thumbnail = EmbeddedThumbnail(home.disk, u"C:\\A.JPG"_s).image;
    EXPECT_EQ(thumbnail.size(), QSize(20, 40));
    EXPECT_EQ(Corners(thumbnail), "brwg");
    home.Put(u"C:\\A.JPG"_s, jpeg);
    EXPECT_EQ(EmbeddedThumbnail(home.disk, u"C:\\A.JPG"_s).ofWhole, QSize(200, 400)) << "upright";
    home.Put(u"C:\\A.JPG"_s, ToJpeg(Quarters(40, 20), 90));
    EXPECT_TRUE(EmbeddedThumbnail(home.disk, u"C:\\A.JPG"_s).image.isNull()) << "there is none in it";
    EXPECT_TRUE(EmbeddedThumbnail(home.disk, u"C:\\NONE.JPG"_s).image.isNull());
    home.Put(u"C:\\A.JPG"_s, "text");
    EXPECT_TRUE(EmbeddedThumbnail(home.disk, u"C:\\A.JPG"_s).image.isNull());
}

TEST(PictureKinds, AMissingEndMarkerIsNoDamage)
{
    for (const bool progressive : {false, true}) {
        const QByteArray whole = RgbJpeg(Quarters(160, 96), [&](auto& info) {
            if (progressive)
                jpeg_simple_progression(&info);
        });
        EXPECT_EQ(Corners(FromBytes(whole.chopped(2), u"a"_s)), "rgbw") << progressive;
        EXPECT_TRUE(Refusal(whole.left(whole.size() * 8 / 10)).contains(u"cut short"_s)) << progressive;
    }
}

TEST(PictureKinds, HostileFilesCostAMessage)
{
    QByteArray bomb = RgbJpeg(Quarters(64, 64), [](auto&) {});
    const qsizetype frame = bomb.indexOf(QByteArray("\xFF\xC0", 2));
    bomb.replace(frame + 5, 4, QByteArray("\x32\x00\x32\x00", 4)); // 12800 by 12800
    EXPECT_TRUE(Refusal(bomb).contains(u"can't hold 12800 by 12800"_s)) << Refusal(bomb).toStdString();
    bomb.replace(frame + 5, 4, QByteArray("\xFF\xDC\xFF\xDC", 4));
    EXPECT_TRUE(Refusal(bomb).contains(u"beyond the limit"_s)) << Refusal(bomb).toStdString();

    // A scan that says nothing, a thousand times.
    const QByteArray progressive =
        RgbJpeg(Quarters(640, 480), [](auto& info) { jpeg_simple_progression(&info); });
    const qsizetype last = progressive.lastIndexOf(QByteArray("\xFF\xDA", 2));
    QByteArray scans = progressive.chopped(2);
    for (int i = 0; i < 1000; ++i)
        scans += progressive.mid(last, progressive.size() - last - 2);
    EXPECT_TRUE(Refusal(scans + "\xFF\xD9").contains(u"too many scans"_s)) << Refusal(scans).toStdString();
}

TEST(PictureKinds, DecodingStopsWhenItsTimeIsUpOrNobodyWantsIt)
{
    const QImage large = Quarters(2000, 1500);
    for (const QByteArray& bytes :
         {ToJpeg(large, 95), RgbJpeg(large, [](auto& info) { jpeg_simple_progression(&info); }),
          Encoded(large, "PNG"), Encoded(large, "BMP"), Encoded(large, "TIFF")}) {
        EXPECT_EQ(Refusal(bytes), QString());
        EXPECT_TRUE(Refusal(bytes, {.seconds = -1}).contains(u"too long"_s)) << bytes.left(4).toStdString();
        EXPECT_TRUE(Refusal(bytes, {.cancelled = [] { return true; }}).contains(u"cancelled"_s));
    }
}

TEST(PictureKinds, MutatedBytesCostAnErrorAtMost)
{
    const QImage quarters = Quarters(120, 80);
    std::mt19937 random(7);
    for (const QByteArray& whole :
         {ToJpeg(quarters, 90, {QDateTime(QDate(2024, 1, 1), QTime(1, 2, 3)), u"M"_s, u"N"_s}),
          RgbJpeg(quarters, [](auto& info) { jpeg_simple_progression(&info); }), CmykJpeg(quarters, JCS_YCCK, true),
          Encoded(quarters, "PNG"), Encoded(quarters, "BMP"), Encoded(quarters, "TIFF"), Heic(quarters)}) {
        if (whole.isEmpty())
            continue;
        for (int round = 0; round < 150; ++round) {
            QByteArray damaged = whole;
            for (int change = 0; change <= round % 8; ++change) {
                const qsizetype head = std::min<qsizetype>(whole.size(), round % 2 ? 400 : whole.size());
                damaged[static_cast<qsizetype>(random() % static_cast<quint32>(head))] =
                    static_cast<char>(random());
            }
            if (round % 5 == 0)
                damaged.truncate(static_cast<qsizetype>(random() % static_cast<quint32>(damaged.size())));
            try {
                EXPECT_FALSE(FromBytes(damaged, u"a"_s, 0, {4'000'000, 1'000'000, 5}).isNull());
            } catch (const RuntimeError& failure) {
                EXPECT_EQ(failure.Number(), error::kCorruptPicture);
            }
            (void)ReadJpegHead(damaged);
        }
    }
}

TEST(PictureKinds, AdjustmentsChangeAllPixelsAlike)
{
    QImage grey(2, 1, QImage::Format_ARGB32);
    grey.setPixel(0, 0, qRgba(100, 150, 200, 80));
    grey.setPixel(1, 0, qRgba(0, 128, 255, 255));
    EXPECT_EQ(Adjusted(grey, {}), grey);
    EXPECT_GT(Adjusted(grey, {.brightness = 20}).pixelColor(0, 0).red(), 140);
    EXPECT_EQ(Adjusted(grey, {.brightness = 20}).pixelColor(0, 0).alpha(), 80);
    EXPECT_EQ(Adjusted(grey, {.brightness = -100}).pixelColor(1, 0), QColor(Qt::black));
    EXPECT_EQ(Adjusted(grey, {.brightness = 1000}).pixelColor(1, 0), QColor(Qt::white));
    EXPECT_LT(Adjusted(grey, {.contrast = 50}).pixelColor(0, 0).red(), 90);
    EXPECT_GT(Adjusted(grey, {.contrast = 50}).pixelColor(0, 0).blue(), 220);
    const QColor flat = Adjusted(grey, {.contrast = -100}).pixelColor(1, 0);
    EXPECT_EQ(flat.red(), flat.blue());
    EXPECT_GT(Adjusted(grey, {.gamma = 2}).pixelColor(0, 0).red(), 150);
    EXPECT_LT(Adjusted(grey, {.gamma = 0.5}).pixelColor(0, 0).red(), 60);
    EXPECT_EQ(Adjusted(grey, {.gamma = 2}).pixelColor(1, 0).blue(), 255);
    EXPECT_TRUE(Adjusted(QImage(), {.brightness = 5}).isNull());
}

} // namespace
} // namespace vasclip::picture
