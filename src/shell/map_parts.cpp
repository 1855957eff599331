#include "shell/map_parts.h"

#include "common/paths.h"
#include "link/link_desk.h"
#include "map/map_start.h"
#include "platform/street/draw/mark.h"
#include "platform/street/geocode.h"
#include "platform/street/map_data.h"
#include "platform/text/runtime_error.h"
#include "shell/program.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace vasclip::shell {

namespace {

/// "" for a path outside the drives.
QString NativePath(const files::Disk& disk, const QString& path)
{
    try {
        return disk.ToNative(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

/// Whose data the maps are, each source once.
QString CreditOf(const street::MapData& maps)
{
    QStringList sources;
    for (const street::CountyRecord& county : maps.Counties()) {
        for (QString source : county.info.source.split(u", "_s, Qt::SkipEmptyParts)) {
            if (source.contains("OpenStreetMap"_L1, Qt::CaseInsensitive)) // its licence wants these words
                source = u"\u00a9 OpenStreetMap contributors"_s;
            if (!sources.contains(source))
                sources.append(source);
        }
    }
    return sources.join(u", "_s);
}

} // namespace

struct MapParts::Maps
{
    explicit Maps(const QString& directory)
        : data(directory)
        , geocoder(data)
    {}
    street::MapData data;
    street::MapGeocoder geocoder;
};

MapParts::MapParts(Program& program)
    : tab(program.controls)
    , m_program(program)
    , m_street({.cells = nullptr, .geocoder = nullptr, .toNative = [&disk = program.Disk()](const QString& path) {
                    return NativePath(disk, path);
                }})
    , m_desk(std::make_unique<map::MapDesk>(map::MapDesk{
          .map = m_street,
          .tab = tab,
          .report = program.report,
          .addr = program.addr,
          .sources = program.sources,
          .globals = program.globals,
          .ports = program.Ports(),
          .status = program.status,
          .disk = program.Disk(),
          .loader = program.Loader(),
          .link = &program.Link(),
          .openSearch = [&program] { Q_EMIT program.records.cmdSearch.Clicked(); },
          .problems = [this] { return Problems(); },
      }))
    , m_proximity(std::make_unique<map::MapProximity>(*m_desk))
{
    map::AttachMap(*m_desk);
}

MapParts::~MapParts() = default;

bool MapParts::Open()
{
    if (m_maps && !m_maps->data.IsOutdated())
        return m_desk->state.inUse;
    const QString directory = NativePath(m_program.Disk(), common::CkRSlash(m_program.globals.cellData));
    auto maps = std::make_shared<const Maps>(directory);
    if (maps->data.IsOpen()) {
        m_street.SetMaps(std::shared_ptr<const street::CellSource>(maps, &maps->data),
                         std::shared_ptr<const street::Geocoder>(maps, &maps->geocoder));
        m_street.SetCredit(CreditOf(maps->data));
        m_desk->geocoder = &maps->geocoder;
        m_bitmapProblems = street::draw::DeliverMarks(QCoreApplication::applicationDirPath() + u"/arrows"_s,
                                   NativePath(m_program.Disk(), m_program.globals.arrowsDir));
    } else {
        m_street.SetMaps(nullptr, nullptr);
        m_desk->geocoder = nullptr;
    }
    m_desk->state.inUse = maps->data.IsOpen();
    m_noMaps = maps->data.IsOpen() ? QStringList() : maps->data.Problems();
    m_maps = maps->data.IsOpen() ? std::move(maps) : nullptr;
    return m_desk->state.inUse;
}

street::Extent MapParts::Covered() const
{
    return m_maps ? m_maps->data.Covered() : street::Extent();
}

void MapParts::CentreOnMaps()
{
    const street::Extent covered = Covered();
    if (covered.IsEmpty())
        return;
    const auto middle = [](qint32 low, qint32 high) { return low + (high - low) / 2; };
    m_street.SetLatitude(middle(covered.low.latitude, covered.high.latitude));
    m_street.SetLongitude(middle(covered.low.longitude, covered.high.longitude));
    m_street.DoAction(street::action::kSetCentre);
}

QStringList MapParts::Problems() const
{
    return m_maps ? m_maps->data.Problems() + m_bitmapProblems : m_noMaps;
}

QString MapParts::ShownAddress() const
{
    return m_proximity->ShownAddress();
}

QString MapParts::ShownProximity() const
{
    return m_proximity->ShownProximity();
}

QString MapParts::CalcTheDistance(const QString& key)
{
    return Open() ? m_proximity->CalcTheDistance(key) : QString();
}

QString MapParts::GetDirection(const QString& address)
{
    return Open() ? m_proximity->GetDirection(address) : QString();
}

} // namespace vasclip::shell
