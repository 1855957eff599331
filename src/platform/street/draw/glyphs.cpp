#include "platform/street/draw/glyphs.h"

#include <QFont>
#include <QFontInfo>
#include <QGlyphRun>
#include <QHash>
#include <QMutex>
#include <QPainterPathStroker>
#include <QRawFont>
#include <QTextLayout>
#include <QThreadStorage>
#include <QTransform>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr double kEm = 64; // pixels at which outlines are taken: fine enough for any size on a map
constexpr double kUnseen = 0.001; // of an em: as little of a pixel as elsewhere

QFont FontOf(Face face)
{
    QFont font(u"DejaVu Sans"_s);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(static_cast<int>(kEm));
    font.setBold(face == Face::Bold);
    font.setItalic(face == Face::Italic);
    return font;
}

std::shared_ptr<const Glyph> MakeGlyph(const QRawFont& font, quint32 index)
{
    auto glyph = std::make_shared<Glyph>();
    // A map is narrow: letters a tenth narrower than the font has them leave room for one in ten streets more.
    glyph->shape = QTransform::fromScale(0.92 / kEm, 1 / kEm).map(font.pathForGlyph(index));
    glyph->shape.setFillRule(Qt::WindingFill);
    QPainterPathStroker around;
    around.setWidth(2 * kHalo * 20);
    around.setJoinStyle(Qt::RoundJoin);
    around.setCurveThreshold(1);
    const QPainterPath wide = around.createStroke(QTransform::fromScale(20, 20).map(glyph->shape));
    // One outline: what overlaps within it would be searched through at every letter that is written.
    const QPainterPath whole = (wide + QTransform::fromScale(20, 20).map(glyph->shape)).simplified();
    glyph->halo = QTransform::fromScale(1 / 20.0, 1 / 20.0).map(whole);
    glyph->halo.setFillRule(Qt::WindingFill);
    glyph->filledShape = Outline(glyph->shape, kUnseen);
    glyph->filledHalo = Outline(glyph->halo, kUnseen);
    return glyph;
}

/// The letters that were asked for so far. Kept as long as the program: a map knows a few hundred.
class Known
{
public:
    std::shared_ptr<const Glyph> Of(const QRawFont& font, const QString& name, quint32 index)
    {
        const QMutexLocker lock(&m_mutex);
        auto& glyph = m_glyphs[{name, index}];
        if (!glyph)
            glyph = MakeGlyph(font, index);
        return glyph;
    }

private:
    QMutex m_mutex;
    QHash<std::pair<QString, quint32>, std::shared_ptr<const Glyph>> m_glyphs;
};

Known& Shapes()
{
    static Known known;
    return known;
}

} // namespace

TextRun Letters(const QString& text, Face face)
{
    // A font engine belongs to its thread. What the language keeps for one is freed on Windows before it is taken down.
    static QThreadStorage<std::array<std::unique_ptr<QFont>, 3>> fonts;
    auto& font = fonts.localData().at(static_cast<std::size_t>(face));
    if (!font)
        font = std::make_unique<QFont>(FontOf(face));
    if (QFontInfo(*font).family().isEmpty()) // a machine without any letters
        return {};

    QTextLayout layout(text, *font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    TextRun run;
    const QList<QGlyphRun> glyphRuns = layout.glyphRuns();
    for (const QGlyphRun& part : glyphRuns) {
        const QRawFont raw = part.rawFont();
        const QString name = raw.familyName() + u'/' + raw.styleName() + QString::number(static_cast<int>(face));
        const QList<quint32> indexes = part.glyphIndexes();
        const QList<QPointF> positions = part.positions();
        const QList<QPointF> advances = raw.advancesForGlyphIndexes(indexes);
        for (qsizetype i = 0; i < indexes.size(); ++i)
            run.letters.push_back({Shapes().Of(raw, name, indexes[i]), positions[i].x() * 0.92 / kEm,
                                   advances[i].x() * 0.92 / kEm});
    }
    for (const TextRun::Letter& letter : run.letters)
        run.width = std::max(run.width, letter.x + letter.advance);
    return run;
}

} // namespace vasclip::street::draw
