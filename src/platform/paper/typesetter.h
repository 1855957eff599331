#pragma once

#include "platform/paper/page.h"

#include <QFont>
#include <QHash>
#include <QStringList>

#include <memory>

namespace vasclip::paper {

/// The font of a face, in twentieths of a point: without hinting and kerning, so that a line is as long on a
/// screen as on paper.
[[nodiscard]] QFont FontOf(Face face);

/// Measures and breaks texts. What it tells depends on the typeface alone, on no screen and no printer.
class Typesetter
{
public:
    Typesetter();
    ~Typesetter();
    Typesetter(const Typesetter&) = delete;
    Typesetter& operator=(const Typesetter&) = delete;

    [[nodiscard]] int Width(const QString& text, Face face);
    [[nodiscard]] int LineHeight(Face face);
    [[nodiscard]] int Ascent(Face face);
    /// The lines of a text within a width, a word that is longer than it broken; at the text's own line
    /// breaks too.
    /// @param most  lines; the last one then ends in "…". 0 for all
    [[nodiscard]] QStringList Lines(const QString& text, Face face, int width, int most = 0);
    /// The text, with "…" for what does not fit.
    [[nodiscard]] QString Cut(const QString& text, Face face, int width);

private:
    struct Metrics;
    Metrics& Of(Face face);

    QHash<qint64, std::shared_ptr<Metrics>> m_known;
};

} // namespace vasclip::paper
