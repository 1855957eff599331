#pragma once

#include <QImage>

namespace vasclip::picture {

/// Changes of all pixels alike.
struct Adjustments
{
    int brightness = 0; ///< -100 (black) to 100 (white); 0 changes nothing
    int contrast = 0;   ///< -100 (all grey) to 100 (black and white alone); 0 changes nothing
    double gamma = 1.0; ///< above 1 lightens the darker parts, below 1 darkens them; 0.1 to 10
    bool operator==(const Adjustments&) const = default;
};

/// The picture with contrast, brightness and gamma applied in this order; values beyond their range count as
/// its ends. Transparency stays.
[[nodiscard]] QImage Adjusted(const QImage& image, const Adjustments& adjustments);

} // namespace vasclip::picture
