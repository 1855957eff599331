#include "databook/city_fields.h"

#include "databook/messages.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/store.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kBadArgument = 5;

using FieldValues = QList<std::pair<QString, QString>>;

FieldValues Sized(const store::DataSource& databook, const CityEntry& entry)
{
    FieldValues values;
    for (const auto& [field, value] : {std::pair{u"CITY"_s, entry.city},
                                       {u"ST"_s, entry.state},
                                       {u"ZIP"_s, entry.zip},
                                       {u"COUNTY"_s, entry.county}})
        values.append({field, store::Trim2Size(databook, value, field)});
    return values;
}

QString Quoted(QString text)
{
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

} // namespace

QString AssignCityText(const store::DataSource& databook, const QString& neighborhood, const CityEntry& entry)
{
    QStringList settings;
    for (const auto& [field, value] : Sized(databook, entry))
        settings.append(field + u" = "_s + Quoted(value));
    return u"UPDATE ["_s + databook.RecordSource() + u"] SET "_s + settings.join(u", "_s) +
           u" WHERE TRIM(NEIGHBORHD) = "_s + Quoted(text::Trim(neighborhood));
}

qint64 AssignCity(store::DataSource& databook, const QString& neighborhood, const CityEntry& entry)
{
    if (text::Trim(neighborhood).isEmpty())
        throw RuntimeError(kBadArgument, kNeedNeighborhood);
    return databook.Database().Execute(AssignCityText(databook, neighborhood, entry));
}

void SetCity(store::DataSource& databook, const CityEntry& entry)
{
    databook.Recordset().Edit();
    try {
        for (const auto& [field, value] : Sized(databook, entry))
            store::SetFieldData(databook, value, field);
        databook.Recordset().Update();
    } catch (...) {
        databook.Recordset().CancelUpdate();
        throw;
    }
}

} // namespace vasclip::databook
