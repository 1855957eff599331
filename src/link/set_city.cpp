#include "link/set_city.h"

#include "common/addresses.h"
#include "common/error_block.h"
#include "link/addresses.h"
#include "link/messages.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;
using common::CityStateZip;

namespace {

const QString kCity = fields::CITY;
const QString kState = fields::ST;
const QString kZip = fields::ZIP;

CityStateZip SubjectParts(const frm_Addr& addr)
{
    return {text::Trim(addr.txtKelCity.Text()), text::Trim(addr.txtKelState.Text()),
            text::Trim(addr.txtKelZip.Text())};
}

bool Tells(const CityStateZip& parts)
{
    return !parts.city.isEmpty() || !parts.state.isEmpty() || !parts.zip.isEmpty();
}

/// Of the slot that bears the key, as the last refresh read it.
CityStateZip PartsOfSlot(ReportMirror& desk, const QString& key)
{
    const std::optional<ReportPlace> place = PlaceInReport(desk, key);
    if (!place)
        return {};
    if (place->group == Group::Subject)
        return SubjectParts(desk.addr);
    const GroupRow& row = RowOf(place->group);
    return {(desk.addr.*row.cities)(place->comp).Text(), (desk.addr.*row.states)(place->comp).Text(),
            (desk.addr.*row.zips)(place->comp).Text()};
}

/// @param secondLine  of the record's address, as its NEIGHBORHD holds it
CityStateZip PartsOf(LinkDesk& desk, const QString& key, const QString& secondLine, qint16 comp)
{
    // On a comp's form the second address line stands under NEIGHBORHD.
    if (comp != kNoComp && comp != kSubjectComp) {
        const CityStateZip read = common::ParseCityStateZip(secondLine);
        if (Tells(read))
            return read;
    }
    return PartsOfSlot(desk, key);
}

/// What the record shall hold, from what it holds and what is known.
CityStateZip Completed(LinkDesk& desk, const CityStateZip& held, const CityStateZip& known, CityRule rule)
{
    const auto choose = [rule](const QString& old, const QString& fresh) {
        return fresh.isEmpty() || (rule == CityRule::Fill && !old.isEmpty()) ? old : fresh;
    };
    CityStateZip wanted{choose(held.city, known.city), choose(held.state, known.state),
                        choose(held.zip, known.zip)};
    if (!wanted.city.isEmpty() || !wanted.state.isEmpty())
        return wanted;
    const QString inherits = text::Folded(desk.globals.useSubjCsz);
    const CityStateZip subject = SubjectParts(desk.addr);
    if (inherits == "CS"_L1 || inherits == "CSZ"_L1) {
        wanted.city = subject.city;
        wanted.state = subject.state;
    }
    if (inherits == "CSZ"_L1 && wanted.zip.isEmpty())
        wanted.zip = subject.zip;
    return wanted;
}

/// What a record is to hold, unless it holds that already.
/// @param field  gives its text
template <class Fields>
std::optional<CityStateZip> Wanted(LinkDesk& desk, Fields&& field, CityRule rule, qint16 comp)
{
    const CityStateZip held{field(kCity), field(kState), field(kZip)};
    const CityStateZip known =
        PartsOf(desk, text::Folded(field(fields::CENTRALKEY)), field(fields::NEIGHBORHD), comp);
    const CityStateZip wanted = Completed(desk, held, known, rule);
    return wanted == held ? std::nullopt : std::optional(wanted);
}

void Store(store::Change& change, const CityStateZip& wanted)
{
    for (const auto& [name, value] :
         {std::pair{kCity, wanted.city}, {kState, wanted.state}, {kZip, wanted.zip}})
        change.Set(name, store::Trim2Size(change.Source(), value, name));
    change.Store();
}

} // namespace

void ErrDatabookSetCity(LinkDesk& desk, store::DataSource& record, CityRule rule, qint16 comp)
{
    const common::RoutineScope scope{"ErrDatabookSetCity"};
    const auto field = [&record](const QString& name) { return store::GetFieldData(record, name); };
    if (const auto wanted = Wanted(desk, field, rule, comp)) {
        store::Change change(record, store::Change::TakePart{}, messages::kCityWords);
        Store(change, *wanted);
    }
}

void SetCityOf(LinkDesk& desk, const QString& key, CityRule rule, qint16 comp)
{
    const common::RoutineScope scope{"ErrDatabookSetCity"};
    store::DataSource& databook = desk.sources.datDatabook;
    const std::optional<store::Record> record = store::ReadRecord(desk.ports, databook, key);
    if (!record)
        return;
    const auto field = [&record](const QString& name) { return record->Text(name); };
    if (const auto wanted = Wanted(desk, field, rule, comp)) {
        store::Change change(databook, store::Change::OfKey{key}, messages::kCityWords);
        Store(change, *wanted);
    }
}

} // namespace vasclip::link
