#include "map/candidates.h"

#include "common/paths.h"
#include "map/flags.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/placed_for.h"
#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

std::optional<street::Place> MapFindAddress(MapDesk& desk, const QString& address)
{
    desk.map.SetLocation(address);
    if (text::Trim(address.section(u',', 0, 0)).isEmpty())
        return std::nullopt;
    desk.map.DoAction(action::kGeocode);
    if (desk.map.Status() < 0 || desk.map.Latitude() < 0)
        return std::nullopt;
    return street::Place{desk.map.Latitude(), desk.map.Longitude()};
}

QList<qint32> ShowCandidates(MapDesk& desk, forms::ListBox& list, bool firstKind)
{
    QList<qint32> ids;
    QString directory = desk.globals.arrowsDir;
    const QString picture =
        common::StripRChar(directory) + (firstKind ? u"\\pinred.bmp"_s : u"\\pingreen.bmp"_s);
    list.SetVisible(false);
    for (int i = 0; i < list.ListCount(); ++i) {
        list.SetListIndex(i);
        const QString row = list.List(i);
        ids.append(NextPoint(desk));
        desk.map.SetID(ids.last());
        desk.map.SetLatitude(Millionths(row.section(u' ', 0, 0)));
        desk.map.SetLongitude(Millionths(row.section(u' ', 1, 1)));
        desk.map.SetFlags(TransparencyBits(desk) | flag::kFoundPlace);
        desk.map.SetPicture(picture);
        desk.map.SetText(row);
        desk.map.DoAction(action::kAddPoint);
        KeepPlacedFor(desk, desk.map.ID());
        ++desk.state.g_MapPointCount;
    }
    if (list.ListCount() > 0) {
        list.SetListIndex(0);
        list.SetVisible(true);
    }
    return ids;
}

QString NotFoundWords(const MapDesk& desk, const QString& location)
{
    constexpr qsizetype kShown = 80; // a longer text is no address
    constexpr qsizetype kNamed = 3;
    const QString words = messages::kAddressNotFound.arg(
        location.size() > kShown ? location.left(kShown) + u'\u2026' : location);
    const QStringList problems = desk.problems ? desk.problems() : QStringList();
    if (problems.isEmpty())
        return words;
    const QString more = problems.size() > kNamed ? u"; ..."_s : QString();
    return words + messages::kNotLookedIn.arg(problems.mid(0, kNamed).join(u"; "_s) + more);
}

} // namespace vasclip::map
