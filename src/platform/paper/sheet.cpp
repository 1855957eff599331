#include "platform/paper/sheet.h"

#include <QPageSize>

#include <algorithm>
#include <array>
#include <cmath>

namespace vasclip::paper {

using namespace Qt::StringLiterals;

namespace {

struct Paper
{
    QLatin1StringView name;
    QLatin1StringView words;
    QPageSize::PageSizeId id;
    QSize size; ///< upright
};

constexpr std::array kPapers{
    Paper{"letter"_L1, "Letter, 8.5 x 11 in"_L1, QPageSize::Letter, {12240, 15840}},
    Paper{"legal"_L1, "Legal, 8.5 x 14 in"_L1, QPageSize::Legal, {12240, 20160}},
    Paper{"tabloid"_L1, "Tabloid, 11 x 17 in"_L1, QPageSize::Tabloid, {15840, 24480}},
    Paper{"executive"_L1, "Executive, 7.25 x 10.5 in"_L1, QPageSize::Executive, {10440, 15120}},
    Paper{"a3"_L1, "A3, 297 x 420 mm"_L1, QPageSize::A3, {16840, 23820}},
    Paper{"a4"_L1, "A4, 210 x 297 mm"_L1, QPageSize::A4, {11900, 16840}},
    Paper{"a5"_L1, "A5, 148 x 210 mm"_L1, QPageSize::A5, {8400, 11900}},
};

const Paper& PaperOf(const QString& name)
{
    const auto found =
        std::find_if(kPapers.begin(), kPapers.end(), [&](const Paper& paper) { return name == paper.name; });
    return found == kPapers.end() ? kPapers.front() : *found;
}

} // namespace

QSize Sheet::Size() const
{
    const QSize upright = PaperOf(name).size;
    return landscape ? upright.transposed() : upright;
}

QRect Sheet::Inside() const
{
    return QRect(QPoint(0, 0), Size()).adjusted(margin, margin, -margin, -margin);
}

QPageLayout Sheet::Layout() const
{
    QPageLayout layout(QPageSize(PaperOf(name).id),
                       landscape ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(),
                       QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

QStringList PaperNames()
{
    QStringList names;
    for (const Paper& paper : kPapers)
        names.append(paper.name);
    return names;
}

QString PaperWords(const QString& name)
{
    return PaperOf(name).words;
}

QString PaperOfSize(QSizeF points)
{
    constexpr double kRounded = 2; ///< points that a printer's own figures may differ
    for (const Paper& paper : kPapers)
        if (const QSizeF off = QSizeF(paper.size) / kPoint - points;
            std::abs(off.width()) <= kRounded && std::abs(off.height()) <= kRounded)
            return paper.name;
    return {};
}

} // namespace vasclip::paper
