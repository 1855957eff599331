#include "databook/city_fields.h"

#include "databook/messages.h"
#include "platform/text/call_errors.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/store.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Each value brought to its field's size.
QMap<QString, QString> Sized(const store::DataSource& databook, const CityEntry& entry)
{
    QMap<QString, QString> values;
    for (const auto& [field, value] : {std::pair{fields::CITY, entry.city},
                                       {fields::ST, entry.state},
                                       {fields::ZIP, entry.zip},
                                       {fields::COUNTY, entry.county}})
        values.insert(field, store::Trim2Size(databook, value, field));
    return values;
}

} // namespace

qint64 AssignCity(store::DataSource& databook, const QString& neighborhood, const CityEntry& entry)
{
    if (text::Trim(neighborhood).isEmpty())
        throw RuntimeError(error::kInvalidCall, kNeedNeighborhood);
    QString wanted = text::Trim(neighborhood);
    wanted.replace(u'\'', u"''"_s);
    return store::Change::Rows(databook, Sized(databook, entry), u"TRIM(NEIGHBORHD) = '%1'"_s.arg(wanted),
                               kCitiesWords.arg(text::Trim(neighborhood)));
}

void SetCity(store::DataSource& databook, const CityEntry& entry)
{
    store::Change change(databook, kCityWords);
    const QMap<QString, QString> texts = Sized(databook, entry);
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        change.Set(text.key(), text.value());
    change.Store();
}

} // namespace vasclip::databook
