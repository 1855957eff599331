#include "map/locator.h"

#include "common/progress.h"
#include "link/reporter.h"
#include "map/at_zero.h"
#include "map/flags.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/place_arrows.h"
#include "map/radius.h"
#include "map/selection.h"
#include "map/view.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kManyRecords = 250;
constexpr double kWholeViewFeet = 26400;
constexpr int kRowsOfATurn = 25;
constexpr int kNamed = 5; ///< of those that were not found
constexpr qint32 kSubjectPoint = 1;
const QString kSubject = u"SUBJECT"_s;

/// One row of a search.
struct Row
{
    QString key, city, state, zip, anchored, latitude, longitude, front;
};

Row Read(const store::Record& record)
{
    return {.key = record.Text(fields::CENTRALKEY),
            .city = record.Text(fields::CITY),
            .state = record.Text(fields::ST),
            .zip = record.Text(fields::ZIP),
            .anchored = record.Text(fields::ANCHORED),
            .latitude = record.Text(fields::LATITUDE),
            .longitude = record.Text(fields::LONGITUDE),
            .front = record.Text(fields::FRONT)};
}

/// @return was it placed?
bool Place(MapDesk& desk, const Row& row, QList<RecordLocation>& found)
{
    const qint32 id = NextPoint(desk);
    bool ok = true;
    if (row.anchored == "1"_L1 && !row.latitude.isEmpty() && !row.longitude.isEmpty()) {
        ok = PlaceAnchoredPoint(desk, id, row.latitude, row.longitude,
                                {.text = row.key, .picture = u"reddooranchor.bmp"_s, .flag = flag::kAnchored});
    } else {
        QString address = row.key + u", "_s + row.city + u", "_s + row.state;
        if (!desk.globals.ignoreZipCodes)
            address += u' ' + row.zip;
        const QString picture = row.front == "1"_L1 ? u"reddoor.bmp"_s : u"comp.bmp"_s;
        ok = MapPlaceAddrPoint(desk, id, address, {.text = row.key, .picture = picture, .flag = flag::kFree}, found);
    }
    if (ok)
        ++desk.state.g_MapPointCount;
    return ok;
}

QString Words(const LocatorTally& tally)
{
    QString words = messages::kLocated(tally.placed);
    if (!tally.notFound.isEmpty()) {
        QString names = tally.notFound.mid(0, kNamed).join(u"; "_s);
        if (tally.notFound.size() > kNamed)
            names += u", ..."_s;
        words += u"; "_s + messages::kLocatedNotFound(tally.notFound.size()) + names;
    }
    if (tally.skipped > 0)
        words += u"; "_s + messages::kLocatedSkipped(tally.skipped);
    if (tally.gone > 0)
        words += u"; "_s + messages::kLocatedGone(tally.gone);
    if (tally.seen < tally.of)
        words += messages::kLocatedStopped.arg(tally.seen).arg(tally.of);
    return words;
}

/// The words of a locator map, the subject's first.
void Tell(MapDesk& desk, const LocatorTally& tally, const QString& lostSubject)
{
    QStringList words;
    if (!lostSubject.isEmpty())
        words.append(messages::kNotFound.arg(lostSubject));
    if (tally.of > 0)
        words.append(Words(tally));
    const QString atZero = AtZeroWords(desk);
    if (!atZero.isEmpty())
        words.append(atZero);
    const bool whole = lostSubject.isEmpty() && tally.notFound.isEmpty() && atZero.isEmpty();
    if (!words.isEmpty())
        desk.status.lblmsg.Show(words.join(u". "_s), whole ? forms::Colour::Blue : forms::Colour::Red);
}

/// Is it still the Databook that the work began with? A turn of the queue can have closed it, or opened another one.
bool StillOpen(const MapDesk& desk, const QString& databook)
{
    return desk.sources.datDatabook.Bound() && desk.sources.datDatabook.DatabaseName() == databook;
}

} // namespace

LocatorTally PlaceCompDatabase(MapDesk& desk, QList<RecordLocation>& found)
{
    LocatorTally tally;
    link::Reported(desk.ports.prompter, "PlaceCompDatabase", [&] {
        // Beside its cursor: the row that the user has selected stays so.
        const store::DataSource& search = desk.sources.datsql;
        const QString databook = desk.sources.datDatabook.DatabaseName();
        const store::Rows rows = store::ReadRows(search, search.RecordSource());
        tally.of = static_cast<int>(rows.Count());
        common::Progress progress(desk.status, desk.ports.pump, tally.of / kRowsOfATurn + 1);
        while (tally.seen < tally.of) {
            // Each turn paints the map with all that is on it by then.
            if (tally.seen % kRowsOfATurn == 0 &&
                (!progress.Step(messages::kLocating.arg(tally.seen + 1).arg(tally.of)) || !StillOpen(desk, databook)))
                return;
            const std::optional<store::Record> record = rows.At(tally.seen++);
            if (!record) {
                ++tally.gone;
                continue;
            }
            const Row row = Read(*record);
            if (row.key.isEmpty() || row.city.isEmpty() || row.state.isEmpty())
                ++tally.skipped;
            else if (Place(desk, row, found))
                ++tally.placed;
            else
                tally.notFound.append(row.key);
        }
    });
    desk.state.arrows = false;
    zoomtopoints(desk, 1, desk.state.g_MapPointCount - 1, true);
    return tally;
}

void cmdGeoComp_Click(MapDesk& desk)
{
    if (desk.state.working)
        return;
    const store::DataSource& search = desk.sources.datsql;
    const qint64 count = search.Bound() ? search.Count() : 0;
    if (count > kManyRecords) {
        const forms::Answer answer =
            desk.ports.prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Question, messages::kManyTitle,
                                       messages::kMany.arg(count));
        if (answer == forms::Answer::Yes && desk.openSearch)
            desk.openSearch();
        if (answer != forms::Answer::No)
            return;
    }
    const Working working{desk.state};
    const QString databook = desk.sources.datDatabook.DatabaseName();
    ClearMap(desk);
    ClearDetails(desk);
    desk.map.SetScale(kWholeViewFeet);
    desk.state.g_MapRanges.clear();
    desk.state.arrows = false;
    QList<RecordLocation> found;
    const QString subject = AddressAt(desk, {});
    const bool placed = !subject.isEmpty() && PlaceSubjectPoint(desk, u"comp.bmp"_s, kSubject, found);
    const QString lost = placed || subject.isEmpty() ? QString() : kSubject + u' ' + subject;
    LocatorTally tally;
    if (count > 0) {
        tally = PlaceCompDatabase(desk, found);
        ApplyMapDetail(desk);
    } else {
        CentreOnPoint(desk, kSubjectPoint);
        desk.ports.prompter.Info(messages::kNoCompsTitle, messages::kNoComps);
    }
    if (StillOpen(desk, databook)) // else what was found is another one's, and the program may be closing
        SaveLocations(desk, found);
    FollowCircle(desk);
    Tell(desk, tally, lost);
    desk.map.Refresh();
}

} // namespace vasclip::map
