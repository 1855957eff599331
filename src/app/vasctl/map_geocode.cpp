#include "app/vasctl/map.h"

#include "platform/street/geocode.h"
#include "platform/street/map_data.h"
#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kNearFeet = 1000;

/// What was found, best first. What is wrong with a map that could not be asked goes to the error output.
int Told(const Output& out, const street::MapData& maps, const std::vector<street::Candidate>& found,
         const QString& none)
{
    QList<QStringList> rows;
    for (const street::Candidate& one : found)
        rows.append({Degrees(one.place.latitude), Degrees(one.place.longitude), KindWord(one.foundBy),
                     QString::number(one.uncertaintyFeet, 'f', 0), one.sure ? u"yes"_s : u"no"_s, one.address});
    if (!rows.isEmpty() || out.Json())
        out.Table({u"latitude"_s, u"longitude"_s, u"kind"_s, u"uncertainty"_s, u"sure"_s, u"address"_s}, rows,
                  {Kind::Number, Kind::Number, Kind::Text, Kind::Number});
    for (const QString& problem : maps.Problems())
        out.Error(problem);
    if (!rows.isEmpty())
        return kDone;
    out.Error(none);
    return kNotFound;
}

} // namespace

int MapGeocode(Session& session, const Output& out, const QStringList& words)
{
    const QString address = text::Trim(words.join(u' '));
    if (address.isEmpty()) {
        out.Error(u"Usage: vasctl map geocode ADDRESS, such as \"12 Oak St, Marlow Falls, OR 97991\""_s);
        return kUsage;
    }
    const QString directory = MapDirectory(session);
    const street::MapData maps(directory);
    if (!maps.IsOpen()) {
        out.Error(NoMaps(directory));
        return kFailed;
    }
    constexpr qsizetype kShown = 100;
    return Told(out, maps, street::MapGeocoder(maps).Find(address),
                u"'%1' was not found on the map. Leave the city or the ZIP out, or look for the street alone."_s.arg(
                    address.size() > kShown ? address.left(kShown) + u'\u2026' : address));
}

int MapReverse(Session& session, const Output& out, const QStringList& words)
{
    if (words.size() != 2) {
        out.Error(u"Usage: vasctl map reverse LATITUDE LONGITUDE, such as 44.8215 -120.9542"_s);
        return kUsage;
    }
    const auto place = PlaceOf(out, words[0], words[1]);
    if (!place)
        return kUsage;
    const QString directory = MapDirectory(session);
    const street::MapData maps(directory);
    if (!maps.IsOpen()) {
        out.Error(NoMaps(directory));
        return kFailed;
    }
    return Told(out, maps, street::MapGeocoder(maps).Near(*place, kNearFeet),
                u"There is no street within %1 feet of %2 %3."_s.arg(
                    QString::number(kNearFeet, 'f', 0), Degrees(place->latitude), Degrees(place->longitude)));
}

} // namespace vasclip::vasctl
