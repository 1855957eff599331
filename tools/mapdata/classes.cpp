#include "mapdata/classes.h"

#include "platform/street/shields.h"

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::AreaKind;
using street::RoadClass;

template <class Kind>
struct Row
{
    QLatin1StringView word;
    Kind kind;
};

template <class Kind, std::size_t Count>
std::optional<Kind> Found(const Row<Kind> (&rows)[Count], const QString& word)
{
    for (const Row<Kind>& row : rows) {
        if (word == row.word)
            return row.kind;
    }
    return std::nullopt;
}

constexpr Row<RoadClass> kMtfcc[] = {
    {QLatin1StringView(""), RoadClass::Local},        {QLatin1StringView("S1100"), RoadClass::Motorway},
    {QLatin1StringView("S1200"), RoadClass::Highway}, {QLatin1StringView("S1300"), RoadClass::Arterial},
    {QLatin1StringView("S1400"), RoadClass::Local},   {QLatin1StringView("S1500"), RoadClass::Track},
    {QLatin1StringView("S1630"), RoadClass::Ramp},    {QLatin1StringView("S1640"), RoadClass::Service},
    {QLatin1StringView("S1710"), RoadClass::Path},    {QLatin1StringView("S1720"), RoadClass::Path},
    {QLatin1StringView("S1730"), RoadClass::Service}, {QLatin1StringView("S1740"), RoadClass::Service},
    {QLatin1StringView("S1780"), RoadClass::Service}, {QLatin1StringView("S1820"), RoadClass::Path},
    {QLatin1StringView("S1830"), RoadClass::Path},    {QLatin1StringView("S2000"), RoadClass::Service}};

constexpr Row<RoadClass> kHighways[] = {
    {QLatin1StringView("motorway"), RoadClass::Motorway},
    {QLatin1StringView("trunk"), RoadClass::Highway},
    {QLatin1StringView("primary"), RoadClass::Highway},
    {QLatin1StringView("secondary"), RoadClass::Arterial},
    {QLatin1StringView("tertiary"), RoadClass::Collector},
    {QLatin1StringView("unclassified"), RoadClass::Local},
    {QLatin1StringView("residential"), RoadClass::Local},
    {QLatin1StringView("living_street"), RoadClass::Local},
    {QLatin1StringView("road"), RoadClass::Local},
    {QLatin1StringView("busway"), RoadClass::Service},
    {QLatin1StringView("service"), RoadClass::Service},
    {QLatin1StringView("track"), RoadClass::Track},
    {QLatin1StringView("footway"), RoadClass::Path},
    {QLatin1StringView("path"), RoadClass::Path},
    {QLatin1StringView("cycleway"), RoadClass::Path},
    {QLatin1StringView("pedestrian"), RoadClass::Path},
    {QLatin1StringView("steps"), RoadClass::Path},
    {QLatin1StringView("bridleway"), RoadClass::Path}};

constexpr Row<AreaKind> kAreas[] = {
    {QLatin1StringView("K2180"), AreaKind::Park},     {QLatin1StringView("K2181"), AreaKind::Park},
    {QLatin1StringView("K2182"), AreaKind::Park},     {QLatin1StringView("K2183"), AreaKind::Park},
    {QLatin1StringView("K2184"), AreaKind::Park},     {QLatin1StringView("K2185"), AreaKind::Park},
    {QLatin1StringView("K2186"), AreaKind::Forest},   {QLatin1StringView("K2187"), AreaKind::Park},
    {QLatin1StringView("K2188"), AreaKind::Park},     {QLatin1StringView("K2189"), AreaKind::Park},
    {QLatin1StringView("K2190"), AreaKind::Park},     {QLatin1StringView("K2582"), AreaKind::Cemetery},
    {QLatin1StringView("K2540"), AreaKind::School},   {QLatin1StringView("K2543"), AreaKind::School},
    {QLatin1StringView("K2451"), AreaKind::Airport},  {QLatin1StringView("K2457"), AreaKind::Airport},
    {QLatin1StringView("K2561"), AreaKind::Park}};

} // namespace

std::optional<RoadClass> ClassOfMtfcc(const QString& mtfcc)
{
    if (mtfcc.startsWith(u"R10"))
        return RoadClass::Rail;
    return Found(kMtfcc, mtfcc);
}

RoadClass ClassByName(RoadClass roadClass, const QString& name)
{
    if (roadClass != RoadClass::Local && roadClass != RoadClass::Arterial)
        return roadClass;
    const QString shield = street::ShieldOf({name}, u"SR"_s);
    if (shield.isEmpty())
        return roadClass;
    if (shield.startsWith(u"I "))
        return RoadClass::Motorway;
    return shield.startsWith(u"CR ") ? RoadClass::Arterial : RoadClass::Highway;
}

std::optional<RoadClass> ClassOfHighway(const QString& highway)
{
    if (highway.endsWith(u"_link"))
        return RoadClass::Ramp;
    return Found(kHighways, highway);
}

std::optional<RoadClass> ClassOfRailway(const QString& railway)
{
    if (railway == u"rail" || railway == u"light_rail" || railway == u"narrow_gauge")
        return RoadClass::Rail;
    return std::nullopt;
}

std::optional<AreaKind> AreaOfMtfcc(const QString& mtfcc)
{
    // Lakes, streams, reservoirs, canals, bays; swamps (H2025 is mostly dry) and glaciers are left to the land.
    if (mtfcc.startsWith(u"H2") || mtfcc.startsWith(u"H30"))
        return mtfcc == u"H2025" || mtfcc == u"H2081" ? std::nullopt : std::optional(AreaKind::Water);
    return Found(kAreas, mtfcc);
}

} // namespace vasclip::mapdata
