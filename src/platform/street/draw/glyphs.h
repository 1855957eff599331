#pragma once

#include "platform/street/draw/canvas.h"

#include <QPainterPath>
#include <QString>

#include <memory>
#include <vector>

namespace vasclip::street::draw {

enum class Face : quint8 { Regular, Bold, Italic };

/// A letter's outlines, one em high, its base line at 0. Shared by all threads.
struct Glyph
{
    QPainterPath shape;
    QPainterPath halo; ///< the shape with what lies around it
    Outline filledShape; ///< the same for a canvas
    Outline filledHalo;
};

/// A text as its letters, in ems.
struct TextRun
{
    struct Letter
    {
        std::shared_ptr<const Glyph> glyph;
        double x = 0;
        double advance = 0;
    };
    std::vector<Letter> letters;
    double width = 0;
};

/// How far letters rise above the middle of a line of text, in ems: half of a capital's height.
inline constexpr double kHalfCapital = 0.365;
/// A halo's width in ems.
inline constexpr double kHalo = 0.16;

/// The letters of a text. The outlines are the font's own with no hints, so that they are the same at each angle and
/// each device ratio. Any thread may ask; wants a QGuiApplication, which may be one without a display.
[[nodiscard]] TextRun Letters(const QString& text, Face face);

} // namespace vasclip::street::draw
