#include "map/map_ranges.h"

#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

QString Marker(const QString& type)
{
    const QString upper = text::Folded(type);
    return upper == "SUBJECT"_L1 ? upper + u'|' : u'|' + upper + u'|';
}

} // namespace

std::optional<MapRange> RangeOf(const QString& ranges, const QString& type)
{
    const QString all = ranges.toUpper();
    const QString marker = Marker(type);
    const qsizetype at = all.indexOf(marker);
    if (at < 0)
        return std::nullopt;
    const qsizetype begin = at + marker.size();
    const qsizetype end = all.indexOf(u'_', begin);
    const QString group = end < 0 ? all.mid(begin) : all.mid(begin, end - begin);
    const qsizetype split = group.indexOf(u'W');
    return MapRange{.first = static_cast<qint32>(text::Val(group.left(split < 0 ? group.size() : split))),
                    .count = split < 0 ? 0 : static_cast<qint32>(text::Val(group.mid(split + 1)))};
}

QString RangeText(const QString& type, MapRange range)
{
    return Marker(type) + text::Dec(range.first) + u'W' + text::Dec(range.count) + u'_';
}

} // namespace vasclip::map
