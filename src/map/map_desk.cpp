#include "map/map_desk.h"

#include "map/flags.h"
#include "map/map_groups.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

constexpr double kMillion = 1'000'000;

std::size_t Checked(qint32 id)
{
    if (!MapResults::Has(id))
        throw RuntimeError(error::kSubscript, u"g_MapResult(%1): subscript out of range"_s.arg(id));
    return static_cast<std::size_t>(id);
}

} // namespace

qint16& MapResults::operator()(qint32 id)
{
    return m_results[Checked(id)];
}

qint16 MapResults::operator()(qint32 id) const
{
    return m_results[Checked(id)];
}

QString TypeWord(Group group)
{
    return QString(link::RowOf(group).controls).toUpper();
}

const link::GroupRow* GroupOfType(const QString& type)
{
    for (const Group group : kMapGroups)
        if (TypeWord(group) == type)
            return &link::RowOf(group);
    return nullptr;
}

Group ActiveGroup(const link::ReportControls& report)
{
    for (const link::GroupRow* row : link::GatheredGroups()) {
        const int page = (report.*row->tabControl).Tab() - row->firstPage;
        if (report.TabData.Tab() == row->dataPage && page >= 0 && page < row->pages)
            return row->group;
    }
    return Group::Sales;
}

void FollowTabs(link::ReportControls& report)
{
    const MapGroupRow& row = MapRowOf(ActiveGroup(report));
    if (report.cmdSubjectAnd.Caption() != row.button)
        report.cmdSubjectAnd.SetCaption(row.button);
    report.cmdSubjectAnd.SetToolTipText(u"Place the Subject and %1 on the map."_s.arg(row.comps));
}

QString AddressAt(const MapDesk& desk, link::SlotRef slot)
{
    const link::GroupRow& row = link::RowOf(slot.group);
    if (!row.texts)
        return text::Trim(desk.report.txtSubject.Text());
    return slot.index < 1 || slot.index > row.slots ? QString()
                                                    : text::Trim((desk.report.*row.texts)(slot.index).Text());
}

std::optional<store::Record> FindComp(const MapDesk& desk, const QString& key)
{
    return store::ReadRecord(desk.ports, desk.sources.datDatabook, text::Folded(key));
}

bool HasLocation(const store::Record& record)
{
    return !record.Text(fields::LONGITUDE).isEmpty() && !record.Text(fields::LATITUDE).isEmpty();
}

bool IsAnchored(const store::Record& record)
{
    return record.Text(fields::ANCHORED) == "1"_L1 && HasLocation(record);
}

QString DegreesText(qint32 millionths)
{
    constexpr int kDecimals = 6;
    QString degrees = QString::number(millionths / kMillion, 'f', kDecimals);
    while (degrees.endsWith(u'0'))
        degrees.chop(1);
    if (degrees.endsWith(u'.'))
        degrees.chop(1);
    return degrees;
}

qint32 Millionths(const QString& degrees)
{
    return text::ToInt32(text::Val(degrees) * kMillion);
}

std::optional<MapPoint> LoadPoint(MapDesk& desk, qint32 id)
{
    street::StreetControl& map = desk.map;
    map.SetID(id);
    map.DoAction(street::action::kLoadPoint);
    if (map.Status() < 0)
        return std::nullopt;
    return MapPoint{.id = id,
                    .place = {map.Latitude(), map.Longitude()},
                    .flags = map.Flags(),
                    .picture = map.Picture(),
                    .text = map.Text()};
}

qint32 TransparencyBits(const MapDesk& desk)
{
    return text::Trim(desk.globals.transparent) == "1"_L1 ? flag::kTransparent : 0;
}

} // namespace vasclip::map
