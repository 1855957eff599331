#include "platform/paper/pdf.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/file_limit.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::paper {
namespace {

/// A picture of noise, which no packing makes small.
struct Noise final : PictureSource
{
    int asked = 0;
    QSize within;
    QImage Picture(const QString&, QSize wanted) override
    {
        ++asked;
        within = wanted;
        QImage image(400, 300, QImage::Format_RGB32);
        quint32 value = 1;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, 0xff000000 | (value = value * 1664525 + 1013904223));
        return image;
    }
};

Page PageOf(int number)
{
    Page page;
    page.texts.append(
        {.at = {1440, 1440}, .width = 0, .text = u"Page %1"_s.arg(number), .face = {200}, .ink = 0xff000000});
    page.pictures.append({.box = QRect(1440, 2880, 2880, 2160), .name = u"a"_s});
    return page;
}

class Pdf : public testing::Test
{
protected:
    QTemporaryDir dir;
    const QString file = dir.filePath(u"report.pdf"_s);
    Noise pictures;
    const PdfFacts facts{.title = u"Brief"_s, .made = QDateTime({2024, 2, 29}, {11, 12, 13})};

    Made Write(
        int pages, const std::function<bool()>& goOn = [] { return true; })
    {
        int number = 0;
        QFile into(file);
        EXPECT_TRUE(into.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        return WritePdf(
            into, file, {}, facts,
            [&]() -> std::optional<Page> {
                return ++number > pages ? std::nullopt : std::optional(PageOf(number));
            },
            pictures, goOn);
    }
    [[nodiscard]] QByteArray Content() const
    {
        QFile written(file);
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    }
};

TEST_F(Pdf, IsTheSameEachTime)
{
    ASSERT_EQ(Write(3), Made::Whole);
    const QByteArray first = Content();
    EXPECT_TRUE(first.startsWith("%PDF-"));
    EXPECT_TRUE(first.contains("/CreationDate (D:20240229111213"));
    EXPECT_EQ(first.count("/Type /Page\n"), 3);
    ASSERT_EQ(Write(3), Made::Whole);
    EXPECT_EQ(Content(), first);
}

TEST_F(Pdf, AsksForAPictureOnceAPageAndAtThePrintersSize)
{
    ASSERT_EQ(Write(2), Made::Whole);
    EXPECT_EQ(pictures.asked, 2);
    EXPECT_EQ(pictures.within, QSize(400, 300)) << "2 by 1.5 inches of 200 dots";
}

TEST_F(Pdf, StopsBetweenTwoPages)
{
    int asked = 0;
    EXPECT_EQ(Write(50, [&] { return ++asked < 10; }), Made::Stopped);
    EXPECT_EQ(asked, 10);
}

TEST_F(Pdf, OnAFullDiskSaysSo)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    const tests::FileLimit full(64 * 1024);
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(Write(20)); }), error::kDiskFull);
}

} // namespace
} // namespace vasclip::paper
