#include "platform/picture/adjust.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vasclip::picture {

namespace {

constexpr int kLevels = 256;
constexpr double kMiddle = 127.5;

/// What each of the 256 levels becomes.
std::array<uchar, kLevels> LevelTable(const Adjustments& adjustments)
{
    const int brightness = std::clamp(adjustments.brightness, -100, 100);
    const int contrast = std::clamp(adjustments.contrast, -100, 100);
    const double gamma = std::clamp(adjustments.gamma, 0.1, 10.0);
    const double slope = contrast < 0 ? (100 + contrast) / 100.0 : 100.0 / std::max(100 - contrast, 1);
    std::array<uchar, kLevels> table{};
    for (int level = 0; level < kLevels; ++level) {
        double value = kMiddle + (level - kMiddle) * slope + brightness * 2.55;
        value = std::clamp(value / 255.0, 0.0, 1.0);
        table[static_cast<std::size_t>(level)] =
            static_cast<uchar>(std::lround(std::pow(value, 1 / gamma) * 255));
    }
    return table;
}

} // namespace

QImage Adjusted(const QImage& image, const Adjustments& adjustments)
{
    if (image.isNull() || adjustments == Adjustments{})
        return image;
    const auto table = LevelTable(adjustments);
    const auto level = [&table](int value) { return table[static_cast<std::size_t>(value)]; };
    QImage result =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* pixel = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x, ++pixel)
            *pixel = qRgba(level(qRed(*pixel)), level(qGreen(*pixel)), level(qBlue(*pixel)), qAlpha(*pixel));
    }
    return result;
}

} // namespace vasclip::picture
