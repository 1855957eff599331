#include "app/vasctl/map.h"

#include "app/places.h"
#include "common/paths.h"
#include "shell/start_steps.h"

#include <cmath>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

QString KindWord(street::FoundBy foundBy)
{
    switch (foundBy) {
    case street::FoundBy::Point:
        return u"house"_s;
    case street::FoundBy::Range:
        return u"range"_s;
    case street::FoundBy::Intersection:
        return u"intersection"_s;
    case street::FoundBy::Street:
        return u"street"_s;
    case street::FoundBy::ZipArea:
        return u"zip"_s;
    case street::FoundBy::City:
        break;
    }
    return u"city"_s;
}

QString Degrees(qint32 millionths)
{
    return QString::number(millionths / 1e6, 'f', 6);
}

std::optional<street::Place> PlaceOf(const Output& out, const QString& latitude, const QString& longitude)
{
    bool isNorth = false;
    bool isEast = false;
    const double north = latitude.toDouble(&isNorth);
    const double east = longitude.toDouble(&isEast);
    if (isNorth && isEast && std::fabs(north) <= 90 && std::fabs(east) <= 180)
        return street::Place{static_cast<qint32>(std::lround(north * 1e6)),
                             static_cast<qint32>(std::lround(east * 1e6))};
    out.Error(u"'%1 %2' is no place: degrees are wanted, from -90 to 90 and from -180 to 180, such as "
              u"44.8215 -120.9542."_s.arg(latitude, longitude));
    return std::nullopt;
}

QString MapDirectory(Session& session)
{
    shell::Program& program = session.Home();
    shell::ReadMapPlaces(program, app::Places(session.Disk()));
    return session.Disk().ToNative(common::CkRSlash(program.globals.cellData));
}

QString NoMaps(const QString& directory)
{
    return u"There are no street maps in %1. 'vasctl mapdata import' makes them of street files."_s.arg(directory);
}

int RunMap(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    const QStringList words = arguments.mid(1);
    if (verb == u"geocode"_s)
        return MapGeocode(session, out, words);
    if (verb == u"reverse"_s)
        return MapReverse(session, out, words);
    if (verb == u"place"_s)
        return MapPlace(session, out, words);
    if (verb == u"proximity"_s)
        return MapSendProximity(session, out, words);
    if (verb == u"anchor"_s)
        return MapAnchor(session, out, words);
    if (verb == u"find"_s)
        return MapFind(session, out, words);
    if (verb == u"picture"_s)
        return MapPicture(session, out, words, options.value(u"out"_s));
    return MapExport(session, out, words, options.value(u"to"_s));
}

} // namespace vasclip::vasctl
