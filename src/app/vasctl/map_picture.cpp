#include "app/places.h"
#include "app/vasctl/map.h"
#include "app/vasctl/map_desk.h"

#include "link/kel_channel.h"
#include "link/link_desk.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "map/arrange_arrows.h"
#include "map/messages.h"
#include "store/fields.h"

#include <QFileInfo>
#include <QSaveFile>

#include <array>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWidth = 1500, kHeight = 1000;

/// What the demo's map shows where no report is open: its large report's subject, and comps of the same neighborhood.
constexpr auto kDemoSubject = "764 Laurel Hill Rd"_L1;
constexpr auto kDemoNeighborhood = "College Heights"_L1;
constexpr int kDemoComps = 9;

void FillFromDemo(shell::Program& program)
{
    program.report.txtSubject.SetText(kDemoSubject);
    store::Rows rows = store::ReadRows(
        program.sources.datDatabook,
        u"SELECT CENTRALKEY, CITY, ST, ZIP FROM [%1] WHERE NEIGHBORHD = '%2' ORDER BY CENTRALKEY"_s.arg(
            program.globals.G_Table, QString(kDemoNeighborhood)));
    for (int n = 1; n <= kDemoComps; ++n) {
        const std::optional<store::Record> comp = rows.Next();
        if (!comp)
            return;
        if (n == 1) {
            program.addr.txtKelCity.SetText(comp->Text(fields::CITY));
            program.addr.txtKelState.SetText(comp->Text(fields::ST));
            program.addr.txtKelZip.SetText(comp->Text(fields::ZIP));
        }
        program.report.txtComp(n).SetText(comp->Text(fields::CENTRALKEY));
    }
}

} // namespace

int MapPicture(Session& session, const Output& out, const QStringList& words, const QString& file)
{
    if (!words.isEmpty() || !file.endsWith(u".png"_s, Qt::CaseInsensitive)) {
        out.Error(u"Usage: vasctl map picture --out FILE.png"_s);
        return kUsage;
    }
    const bool open = link::ReportIsNamed(session.Home().Link());
    if (!open && !app::IsDemoHome(session.Disk().Home())) {
        out.Error(link::messages::kNotRunning);
        return kNoLink;
    }
    shell::MapParts* const map = OpenMap(session, out);
    if (!map)
        return kFailed;
    map::MapDesk& desk = map->Desk();
    if (open)
        static_cast<void>(session.WithReport());
    else
        FillFromDemo(session.Home());
    const std::array groups{link::Group::Sales};
    const Placement placement = PlaceReport(desk, groups);
    if (!placement.notFound.isEmpty())
        out.Error(map::messages::kNotFound.arg(placement.notFound.join(u"; "_s)));
    if (placement.points.isEmpty()) {
        out.Error(u"Nothing is on the map, so there is no picture of it."_s);
        return kNotFound;
    }
    static_cast<void>(map::ArrangeArrows(desk));
    const bool drive = file.size() >= 2 && file[1] == u':' && file[0].isLetter();
    QSaveFile target(drive ? session.Disk().ToNative(file) : file);
    if (!target.open(QIODevice::WriteOnly) ||
        !map->Street().ReportPicture(kWidth, kHeight).save(&target, "PNG") || !target.commit()) {
        out.Error(u"%1 can't be written: %2"_s.arg(file, target.errorString()));
        return kFailed;
    }
    QStringList labels;
    for (const Placed& point : placement.points)
        labels.append(point.label);
    const QString message = map::messages::kPlaced.arg(labels.join(u", "_s));
    out.Value({{u"file"_s, file}, {u"points"_s, QJsonArray::fromStringList(labels)}, {u"message"_s, message}}, message);
    return kDone;
}

} // namespace vasclip::vasctl
