#include "databook/same_house.h"

#include "platform/street/address_parser.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"
#include "store/schema.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr store::FieldName kShown[] = {fields::ADDRESS,   fields::CITY,     fields::ST,  fields::ZIP,
                                       fields::SELLINGPR, fields::SALEDATE, fields::GLA, fields::YEARBUILT};

} // namespace

QString HouseOf(const street::Address& address)
{
    if (address.number.IsEmpty() || address.street.IsEmpty())
        return {};
    street::Address house = address;
    house.city.clear();
    house.state.clear();
    house.zip.clear();
    return house.Text() + (address.unit.isEmpty() ? QString() : u' ' + address.unit);
}

QString HouseOf(const QString& address)
{
    return HouseOf(street::ParseAddress(address));
}

bool SameTown(const QString& one, const QString& other)
{
    return one.isEmpty() || other.isEmpty() || street::CityKey(one) == street::CityKey(other);
}

QString TwinOf(const store::DataSource& databook, const QString& table, const QString& key, const QString& address,
               const QString& city)
{
    const QString house = HouseOf(address);
    if (house.isEmpty())
        return {};
    // '!' is the letter behind the blank: the range has each key that begins with the number and a blank.
    const QString number = text::Folded(address).section(u' ', 0, 0).replace(u'\'', u"''"_s);
    const store::Rows rows = store::ReadRows(
        databook, u"SELECT %1, %2, %3 FROM [%4] WHERE %1 >= '%5 ' AND %1 < '%5!'"_s.arg(
                      QString(fields::CENTRALKEY), QString(fields::ADDRESS), QString(fields::CITY), table, number));
    for (qint64 at = 0; at < rows.Count(); ++at) {
        const auto record = rows.At(at);
        if (!record)
            continue;
        const QString other = text::Trim(record->Values().at(0).toString());
        const QString written = text::Trim(record->Values().at(1).toString());
        if (text::Folded(other) != text::Folded(key) && HouseOf(written.isEmpty() ? other : written) == house &&
            SameTown(text::Trim(city), text::Trim(record->Values().at(2).toString())))
            return other;
    }
    return {};
}

QString InShort(const store::DataSource& databook, const QString& key)
{
    QStringList lines{key};
    if (const auto record = store::ReadRecord(databook, key))
        for (const store::FieldName& field : kShown)
            if (const QString value = record->Has(field) ? text::Trim(record->Text(field)) : QString(); !value.isEmpty())
                lines.append(u"%1: %2"_s.arg(store::FindCompsColumn(field)->heading, value));
    return lines.join(u'\n');
}

} // namespace vasclip::databook
