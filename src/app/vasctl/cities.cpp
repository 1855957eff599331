#include "app/vasctl/session.h"

#include "common/ini_list.h"
#include "databook/city_fields.h"
#include "databook/messages.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/schema.h"

#include <functional>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

databook::CityEntry Wanted(const QCommandLineParser& options)
{
    return {text::Trim(options.value(u"city"_s)), text::Trim(options.value(u"state"_s)),
            text::Trim(options.value(u"zip"_s)), text::Trim(options.value(u"county"_s))};
}

int Save(Session& session, const Output& out, const forms::ListBox& cities, const QString& done)
{
    const common::Globals& globals = session.Home().globals;
    if (!databook::SaveCities(cities, session.Disk(), globals)) {
        out.Error(databook::kCitiesNotSaved.arg(globals.applicationIni));
        return kFailed;
    }
    out.Line(done);
    return kDone;
}

int List(const Output& out, const forms::ListBox& cities)
{
    QList<QStringList> rows;
    for (int i = 0; i < cities.ListCount(); ++i) {
        const databook::CityEntry entry = databook::SplitCity(cities.List(i));
        rows.append({text::Dec(i + 1), cities.List(i), entry.city, entry.state, entry.zip, entry.county});
    }
    out.Table({u"NUMBER"_s, u"LINE"_s, fields::CITY, fields::ST, fields::ZIP, fields::COUNTY}, rows,
              {Kind::Number});
    return kDone;
}

/// @return false, told, for a part that the field of that name does not hold
bool Fits(const Output& out, const databook::CityEntry& entry,
          const std::function<int(const QString& field)>& sizeOf)
{
    for (const auto& [field, value] : {std::pair{fields::CITY, entry.city},
                                       {fields::ST, entry.state},
                                       {fields::ZIP, entry.zip},
                                       {fields::COUNTY, entry.county}}) {
        const int size = sizeOf(field);
        if (value.size() > size) {
            out.Error(u"%1 takes at most %2 characters; the value has %3."_s.arg(field).arg(size).arg(
                value.size()));
            return false;
        }
    }
    return true;
}

int Add(Session& session, const Output& out, forms::ListBox& cities, const databook::CityEntry& entry)
{
    if (!Fits(out, entry, [](const QString& field) { return store::FindCompsColumn(field)->size; }))
        return kUsage;
    const QString line = databook::CityText(entry);
    switch (databook::AddCity(cities, entry)) {
    case databook::CityAdded::NoCity:
        out.Error(u"Name the city with --city."_s);
        return kUsage;
    case databook::CityAdded::IsThere:
        out.Error(databook::kCityIsThere.arg(line));
        return kFailed;
    case databook::CityAdded::Yes:
        break;
    }
    return Save(session, out, cities, databook::kCityAdded.arg(line));
}

int Delete(Session& session, const Output& out, forms::ListBox& cities, const QString& wanted)
{
    int index = common::FindInList(cities, wanted, common::Case::Ignored);
    bool number = false;
    const int counted = wanted.toInt(&number);
    if (index < 0 && number && counted >= 1 && counted <= cities.ListCount())
        index = counted - 1;
    if (index < 0) {
        out.Error(u"'%1' is not in the city list; 'vasctl cities list' shows what is."_s.arg(wanted));
        return kNotFound;
    }
    const QString line = cities.List(index);
    if (!session.Prompter().YesNo({}, databook::kDeleteCities + u" "_s + line))
        return kDeclined;
    cities.RemoveItem(index);
    return Save(session, out, cities, u"%1 was taken off the list."_s.arg(line));
}

int Assign(Session& session, const Output& out, const QString& neighborhood, const databook::CityEntry& entry)
{
    if (entry.city.isEmpty() && entry.state.isEmpty() && entry.zip.isEmpty() &&
        !session.Prompter().YesNo({}, databook::kNoCityEntered.arg(neighborhood)))
        return kDeclined;
    if (neighborhood.isEmpty()) {
        out.Error(databook::kNeedNeighborhood);
        return kUsage;
    }
    auto& source = session.WithDatabook().sources.datDatabook;
    if (!Fits(out, entry, [&source](const QString& field) { return store::SizeOf(source, field); }))
        return kUsage;
    const qint64 changed = databook::AssignCity(source, neighborhood, entry);
    if (changed == 0) {
        out.Error(u"There is no record of the neighborhood '%1'."_s.arg(neighborhood));
        return kNotFound;
    }
    out.Line(changed == 1 ? databook::kRecordChanged.arg(neighborhood)
                          : databook::kRecordsChanged.arg(changed).arg(neighborhood));
    return kDone;
}

} // namespace

int RunCities(Session& session, const Output& out, const QStringList& arguments,
              const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    const auto needs = [&](qsizetype count) { return arguments.size() == count + 1; };
    if (verb == u"assign"_s && needs(1))
        return Assign(session, out, text::Trim(arguments[1]), Wanted(options));
    forms::ControlSet set;
    forms::ListBox cities(set, u"lstcity"_s);
    databook::LoadCities(cities, session.Disk(), session.Home().globals);
    if (verb == u"list"_s && needs(0))
        return List(out, cities);
    if (verb == u"add"_s && needs(0))
        return Add(session, out, cities, Wanted(options));
    if (verb == u"delete"_s && needs(1))
        return Delete(session, out, cities, arguments[1]);
    out.Error(u"Usage: vasctl cities list | add --city CITY [--state ST] [--zip ZIP] [--county COUNTY] | "
              u"delete LINE | assign NEIGHBORHOOD --city CITY [--state ST] [--zip ZIP] [--county COUNTY]"_s);
    return kUsage;
}

} // namespace vasclip::vasctl
