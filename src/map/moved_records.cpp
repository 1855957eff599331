#include "map/moved_records.h"

#include "common/error_block.h"
#include "map/map_addresses.h"
#include "map/messages.h"
#include "platform/street/geodesy.h"
#include "store/fields.h"
#include "store/record.h"

#include <QLocale>

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Digits in groups of three.
QLocale English()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

std::optional<street::Place> Found(const street::Geocoder& maps, const QString& address)
{
    const std::vector<street::Candidate> found = maps.Find(address, 1);
    if (found.empty() || !found.front().sure)
        return std::nullopt;
    return found.front().place;
}

void Compare(const MapDesk& desk, const QString& key, const street::Geocoder* before, const street::Geocoder& after,
             MoveTally& tally)
{
    const std::optional<store::Record> record = FindComp(desk, key);
    if (!record)
        return;
    if (IsAnchored(*record)) {
        ++tally.anchored;
        return;
    }
    const bool whole = !record->Text(fields::CITY).isEmpty() && !record->Text(fields::ST).isEmpty();
    const QString address = RecordMapAddress(desk, key, *record);
    std::optional<street::Place> from;
    if (HasLocation(*record))
        from = street::Place{Millionths(record->Text(fields::LATITUDE)), Millionths(record->Text(fields::LONGITUDE))};
    else if (whole && before)
        from = Found(*before, address);
    if (!whole || !from) {
        ++tally.unplaced;
        return;
    }
    const std::optional<street::Place> to = Found(after, address);
    // A place that neither of the maps gave is not taken away by the new one.
    if (!to && before && !Found(*before, address)) {
        ++tally.stay;
        return;
    }
    const double feet = to ? street::DistanceFeet(*from, *to) : 0;
    if (to && feet <= kMoveFeet)
        ++tally.stay;
    else
        tally.moved.append({key, *from, to.value_or(*from), feet, !to});
}

} // namespace

MoveTally CompareMaps(MapDesk& desk, const street::Geocoder* before, const street::Geocoder& after,
                      const std::function<bool(qint64, qint64)>& goesOn)
{
    const common::RoutineScope scope{"CompareMaps"};
    MoveTally tally;
    const store::DataSource& databook = desk.sources.datDatabook;
    if (!databook.Bound())
        return tally;
    store::Rows rows = store::ReadRows(
        databook, u"SELECT CENTRALKEY FROM [%1] ORDER BY CENTRALKEY"_s.arg(databook.RecordSource()));
    tally.of = rows.Count();
    while (const std::optional<store::Record> row = rows.Next()) {
        if (goesOn && !goesOn(tally.seen, tally.of))
            break;
        ++tally.seen;
        const QString key = row->Text(fields::CENTRALKEY);
        if (!key.isEmpty())
            Compare(desk, key, before, after, tally);
    }
    std::stable_sort(tally.moved.begin(), tally.moved.end(), [](const MovedRecord& one, const MovedRecord& other) {
        return one.gone != other.gone ? other.gone : one.feet > other.feet;
    });
    return tally;
}

QString WordsOf(const MovedRecord& record)
{
    const auto place = [](street::Place at) { return DegreesText(at.latitude) + u' ' + DegreesText(at.longitude); };
    if (record.gone)
        return messages::kNotFoundAnyMore.arg(record.key, place(record.from));
    return messages::kMoves.arg(record.key, English().toString(qRound64(record.feet)), place(record.from),
                                place(record.to));
}

QString WordsOf(const MoveTally& tally)
{
    const auto gone = std::count_if(tally.moved.begin(), tally.moved.end(),
                                    [](const MovedRecord& record) { return record.gone; });
    QStringList words{messages::kMoveCount(tally.moved.size() - gone)};
    if (gone > 0)
        words.append(messages::kGoneCount(gone));
    words.append(messages::kStayCount(tally.stay) + u", "_s + messages::kAnchoredCount(tally.anchored));
    if (tally.unplaced > 0)
        words.append(messages::kUnplacedCount(tally.unplaced));
    if (tally.seen < tally.of)
        words.append(messages::kComparedPart.arg(tally.seen).arg(tally.of));
    return words.join(u"; "_s);
}

} // namespace vasclip::map
