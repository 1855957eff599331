#include "platform/street/draw/style.h"

#include <algorithm>
#include <cmath>

namespace vasclip::street::draw {

namespace {

struct RoadSize
{
    double metres; ///< as built
    double least; ///< pixels
    double most;
    double until; ///< metres a pixel, beyond which it is left out
};

// By RoadClass. A road is at least as wide as it takes to be seen, and at most as wide as it looks well.
constexpr std::array<RoadSize, kRoadClasses> kSizes{{{17, 2.6, 20, 1e9},
                                                     {15, 1.9, 18, 1e9},
                                                     {13, 1.5, 16, 130},
                                                     {11, 1.2, 15, 50},
                                                     {9, 0.8, 14, 17},
                                                     {8, 1.2, 12, 40},
                                                     {5, 0.7, 8, 4},
                                                     {4, 0.9, 5, 8},
                                                     {2, 0.9, 3, 3},
                                                     {5, 1.2, 4, 130}}};

Palette Light()
{
    Palette light;
    light.land = QColor(0xf6, 0xf4, 0xef);
    light.areas = {QColor(0xa9, 0xd0, 0xe8), QColor(0xcb, 0xe6, 0xb8), QColor(0xd6, 0xe8, 0xc8),
                   QColor(0xd3, 0xe3, 0xcf), QColor(0xf1, 0xe9, 0xd6), QColor(0xe5, 0xe4, 0xec),
                   QColor(0xef, 0xeb, 0xe3)};
    light.waterEdge = QColor(0x8f, 0xbd, 0xd9);
    const QColor street(0xff, 0xff, 0xff);
    const QColor edge(0xcb, 0xc5, 0xba);
    const QColor ink(0x3d, 0x3d, 0x42);
    light.roads = {{{QColor(0xf2, 0xa4, 0x5c), QColor(0xc8, 0x74, 0x2b), QColor(0x6b, 0x38, 0x0c)},
                    {QColor(0xfb, 0xd0, 0x84), QColor(0xd3, 0x9b, 0x42), QColor(0x5a, 0x40, 0x12)},
                    {QColor(0xfe, 0xee, 0xb0), QColor(0xd6, 0xbd, 0x76), QColor(0x4a, 0x40, 0x20)},
                    {QColor(0xff, 0xf9, 0xdd), QColor(0xcf, 0xc4, 0x9e), ink},
                    {street, edge, ink},
                    {QColor(0xf7, 0xc4, 0x8e), QColor(0xcd, 0x8d, 0x50), QColor(0x6b, 0x38, 0x0c)},
                    {street, QColor(0xd8, 0xd3, 0xca), QColor(0x6a, 0x67, 0x64)},
                    {QColor(0xb3, 0x95, 0x6b), QColor(), QColor(0x6e, 0x58, 0x38)},
                    {QColor(0xb8, 0x9f, 0x8f), QColor(), QColor(0x75, 0x5f, 0x50)},
                    {QColor(0x84, 0x84, 0x88), QColor(0xff, 0xff, 0xff), QColor(0x55, 0x55, 0x5a)}}};
    light.waterText = QColor(0x2c, 0x6a, 0x94);
    light.areaText = QColor(0x3a, 0x6e, 0x32);
    light.placeText = QColor(0x22, 0x22, 0x28);
    light.quietText = QColor(0x5c, 0x59, 0x56);
    light.houses = QColor(0xb5, 0xad, 0xa2);
    light.halo = QColor(255, 255, 255, 225);
    light.furniture = QColor(0x2a, 0x2a, 0x2e);
    light.furnitureBack = QColor(255, 255, 255, 215);
    return light;
}

Palette Dark()
{
    Palette dark;
    dark.land = QColor(0x22, 0x25, 0x2a);
    dark.areas = {QColor(0x19, 0x41, 0x5c), QColor(0x28, 0x43, 0x32), QColor(0x26, 0x3d, 0x30),
                  QColor(0x2d, 0x40, 0x38), QColor(0x33, 0x30, 0x2a), QColor(0x2e, 0x2e, 0x38),
                  QColor(0x28, 0x2b, 0x30)};
    dark.waterEdge = QColor(0x2f, 0x66, 0x89);
    const QColor street(0x57, 0x5c, 0x66);
    const QColor edge(0x17, 0x19, 0x1d);
    const QColor ink(0xd6, 0xd8, 0xdc);
    dark.roads = {{{QColor(0xa8, 0x66, 0x2c), QColor(0x1a, 0x13, 0x0d), QColor(0xff, 0xd9, 0xb0)},
                   {QColor(0x8b, 0x6a, 0x34), QColor(0x19, 0x15, 0x0e), QColor(0xf4, 0xdc, 0xae)},
                   {QColor(0x7d, 0x6f, 0x45), QColor(0x18, 0x17, 0x12), QColor(0xea, 0xdf, 0xbe)},
                   {QColor(0x6a, 0x65, 0x54), edge, ink},
                   {street, edge, ink},
                   {QColor(0x84, 0x58, 0x30), QColor(0x1a, 0x13, 0x0d), QColor(0xff, 0xd9, 0xb0)},
                   {QColor(0x4a, 0x4e, 0x57), edge, QColor(0xb4, 0xb8, 0xbf)},
                   {QColor(0x74, 0x66, 0x4e), QColor(), QColor(0xb8, 0xa8, 0x8c)},
                   {QColor(0x6b, 0x61, 0x58), QColor(), QColor(0xb0, 0xa4, 0x98)},
                   {QColor(0x80, 0x84, 0x8c), QColor(0x22, 0x25, 0x2a), QColor(0xb6, 0xba, 0xc2)}}};
    dark.waterText = QColor(0x86, 0xbb, 0xdd);
    dark.areaText = QColor(0x93, 0xbf, 0x93);
    dark.placeText = QColor(0xf2, 0xf3, 0xf5);
    dark.quietText = QColor(0xa9, 0xac, 0xb2);
    dark.houses = QColor(0x7c, 0x81, 0x8a);
    dark.halo = QColor(0x16, 0x18, 0x1c, 225);
    dark.furniture = QColor(0xe4, 0xe6, 0xea);
    dark.furnitureBack = QColor(0x16, 0x18, 0x1c, 205);
    return dark;
}

} // namespace

const RoadLook& Look::Of(RoadClass roadClass) const
{
    switch (roadClass) {
    case RoadClass::Motorway:
    case RoadClass::Ramp:
        return motorways;
    case RoadClass::Highway:
        return highways;
    case RoadClass::Arterial:
    case RoadClass::Collector:
        return arterials;
    default:
        return streets;
    }
}

bool operator==(const Look& a, const Look& b)
{
    const auto same = [](const RoadLook& one, const RoadLook& other) {
        return one.text == other.text && one.width == other.width && one.shown == other.shown &&
               one.named == other.named;
    };
    return a.dark == b.dark && a.furniture == b.furniture && a.credit == b.credit && same(a.motorways, b.motorways) &&
           same(a.highways, b.highways) && same(a.arterials, b.arterials) && same(a.streets, b.streets);
}

const Palette& PaletteOf(bool dark)
{
    static const Palette kLight = Light();
    static const Palette kDark = Dark();
    return dark ? kDark : kLight;
}

double RoadWidth(RoadClass roadClass, double metres, const Look& look)
{
    const RoadSize& size = kSizes.at(static_cast<std::size_t>(roadClass));
    const RoadLook& chosen = look.Of(roadClass);
    // Rails are no street: they stay when the streets are left out.
    if (metres > size.until || (!chosen.shown && roadClass != RoadClass::Rail))
        return 0;
    const double width = std::clamp(size.metres / metres, size.least, size.most);
    return roadClass == RoadClass::Rail ? width : width * (1 + (chosen.width - 1) / 4);
}

bool ShowsStreets(double metres)
{
    return metres <= 17;
}

bool ShowsTown(double metres)
{
    return metres <= 60;
}

} // namespace vasclip::street::draw
