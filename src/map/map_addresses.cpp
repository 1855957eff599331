#include "map/map_addresses.h"

#include "common/addresses.h"
#include "common/text_filters.h"
#include "map/messages.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

QString StateOf(const QString& value)
{
    const QString state = text::Folded(common::ReplaceChar(value, u"."_s, QString()));
    return common::IsValidStateCode(state) ? state : QString();
}

CityParts Cleaned(const QString& city, const QString& state, const QString& zip)
{
    return {text::Folded(city), StateOf(state), common::NormalizeZip(text::Folded(zip))};
}

CityParts PartsOf(const store::Record& record)
{
    return Cleaned(record.Text(fields::CITY), record.Text(fields::ST), record.Text(fields::ZIP));
}

void Fill(CityParts& parts, const CityParts& from)
{
    for (QString CityParts::*part : {&CityParts::city, &CityParts::state, &CityParts::zip})
        if ((parts.*part).isEmpty())
            parts.*part = from.*part;
}

bool Complete(const CityParts& parts)
{
    return !parts.city.isEmpty() && !parts.state.isEmpty();
}

QString Line(const MapDesk& desk, const CityParts& parts, const QString& comma)
{
    const QString line = parts.city + comma + parts.state;
    return desk.globals.ignoreZipCodes ? line : line + u' ' + parts.zip;
}

} // namespace

QString SubjectCityStateZip(const MapDesk& desk)
{
    const link::frm_Addr& addr = desk.addr;
    return Line(desk, {addr.txtKelCity.Text(), addr.txtKelState.Text(), addr.txtKelZip.Text()}, u","_s);
}

QString SubjectMapAddress(const MapDesk& desk)
{
    return AddressAt(desk, {}) + u", "_s + SubjectCityStateZip(desk);
}

QString RecordCityStateZip(const MapDesk& desk, const store::Record& record)
{
    return Line(desk, {record.Text(fields::CITY), record.Text(fields::ST), record.Text(fields::ZIP)},
                u", "_s);
}

QString RecordMapAddress(const MapDesk& desk, const QString& key, const store::Record& record)
{
    return text::Trim(key) + u',' + RecordCityStateZip(desk, record);
}

CityParts BoxesOf(const MapDesk& desk, link::SlotRef slot)
{
    const link::frm_Addr& addr = desk.addr;
    const link::GroupRow& row = link::RowOf(slot.group);
    if (!row.cities)
        return Cleaned(addr.txtKelCity.Text(), addr.txtKelState.Text(), addr.txtKelZip.Text());
    if (slot.index < 1 || slot.index > row.slots)
        return {};
    return Cleaned((addr.*row.cities)(slot.index).Text(), (addr.*row.states)(slot.index).Text(),
                   (addr.*row.zips)(slot.index).Text());
}

QString ResolveCompCityState(MapDesk& desk, const QString& address, link::SlotRef slot)
{
    forms::Prompter& prompter = desk.ports.prompter;
    const CityParts own = BoxesOf(desk, slot);
    const CityParts subject = BoxesOf(desk, {});
    CityParts parts;
    if (const std::optional<store::Record> record = FindComp(desk, address)) {
        parts = PartsOf(*record);
        if (!Complete(parts) && !prompter.YesNo(messages::kInsufficientTitle, messages::kUseBestAvailable))
            return {};
        Fill(parts, own);
        Fill(parts, subject);
        if (!Complete(parts)) {
            prompter.Info(messages::kInsufficientTitle, messages::kRecordOmitted);
            return {};
        }
    } else {
        parts = own;
        Fill(parts, subject);
        if (!Complete(parts)) {
            prompter.Info(messages::kInsufficientTitle, messages::kCompOmitted);
            return {};
        }
    }
    return text::RTrim(Line(desk, parts, u", "_s));
}

} // namespace vasclip::map
