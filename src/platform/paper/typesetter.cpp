#include "platform/paper/typesetter.h"

#include <QFontMetricsF>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace vasclip::paper {

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t kFirstPlain = 0x20; // letters that stand for themselves, one behind the other
constexpr char16_t kEndPlain = 0x17f;

bool IsPlain(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar letter) {
        return letter.unicode() >= kFirstPlain && letter.unicode() < kEndPlain && letter.unicode() != 0xad;
    });
}

} // namespace

QFont FontOf(Face face)
{
    QFont font(u"DejaVu Sans"_s);
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    font.setPixelSize(face.size);
    font.setBold(face.bold);
    return font;
}

struct Typesetter::Metrics
{
    explicit Metrics(Face face)
        : font(FontOf(face))
        , metrics(font)
    {
        for (char16_t letter = kFirstPlain; letter < kEndPlain; ++letter)
            advances[letter - kFirstPlain] = metrics.horizontalAdvance(QChar(letter));
    }

    QFont font;
    QFontMetricsF metrics;
    std::array<double, kEndPlain - kFirstPlain> advances{};
};

Typesetter::Typesetter() = default;
Typesetter::~Typesetter() = default;

Typesetter::Metrics& Typesetter::Of(Face face)
{
    std::shared_ptr<Metrics>& metrics = m_known[qint64(face.size) * 2 + (face.bold ? 1 : 0)];
    if (!metrics)
        metrics = std::make_shared<Metrics>(face);
    return *metrics;
}

int Typesetter::Width(const QString& text, Face face)
{
    const Metrics& metrics = Of(face);
    double width = 0;
    if (IsPlain(text)) {
        for (const QChar letter : text)
            width += metrics.advances[letter.unicode() - kFirstPlain];
    } else {
        width = metrics.metrics.horizontalAdvance(text);
    }
    return static_cast<int>(std::ceil(width));
}

int Typesetter::LineHeight(Face face)
{
    return static_cast<int>(std::lround(Of(face).metrics.height() * 1.04));
}

int Typesetter::Ascent(Face face)
{
    return static_cast<int>(std::lround(Of(face).metrics.ascent()));
}

QStringList Typesetter::Lines(const QString& text, Face face, int width, int most)
{
    QStringList lines;
    QString clean = text;
    clean.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(u'\t', u' ');
    const auto full = [&] { return most > 0 && lines.size() > most; };
    for (const QString& paragraph : clean.split(u'\n')) {
        if (Width(paragraph, face) <= width) {
            lines.append(paragraph.trimmed());
        } else {
            QTextLayout layout(paragraph, Of(face).font);
            QTextOption option;
            option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
            layout.setTextOption(option);
            layout.beginLayout();
            for (QTextLine line = layout.createLine(); line.isValid() && !full();
                 line = layout.createLine()) {
                line.setLineWidth(std::max(width, face.size));
                lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
            }
            layout.endLayout();
        }
        if (full())
            break;
    }
    if (full()) {
        lines = lines.mid(0, most);
        lines.last() = Cut(lines.last() + u" …"_s, face, width);
    }
    return lines;
}

QString Typesetter::Cut(const QString& text, Face face, int width)
{
    if (Width(text, face) <= width)
        return text;
    return Of(face).metrics.elidedText(text, Qt::ElideRight, width);
}

} // namespace vasclip::paper
