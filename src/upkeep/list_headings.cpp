#include "upkeep/list_headings.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/schema.h"

#include <QSet>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

struct Alias
{
    QLatin1StringView words;
    store::FieldName field;
};
constexpr Alias kAliases[] = {
    {"SQFT"_L1, fields::GLA},           {"SQUAREFEET"_L1, fields::GLA},      {"LIVINGAREA"_L1, fields::GLA},
    {"PRICE"_L1, fields::SELLINGPR},    {"SALEPRICE"_L1, fields::SELLINGPR}, {"SALESPRICE"_L1, fields::SELLINGPR},
    {"SOLDPRICE"_L1, fields::SELLINGPR}, {"STATE"_L1, fields::ST},           {"ZIPCODE"_L1, fields::ZIP},
    {"POSTALCODE"_L1, fields::ZIP},     {"STREETADDRESS"_L1, fields::ADDRESS}, {"KEY"_L1, fields::CENTRALKEY},
    {"SOLDDATE"_L1, fields::SALEDATE},  {"DATEOFSALE"_L1, fields::SALEDATE}, {"CLOSEDATE"_L1, fields::SALEDATE},
    {"BEDROOMS"_L1, fields::BEDROOM},   {"BEDS"_L1, fields::BEDROOM},        {"BATHS"_L1, fields::BATH},
    {"BATHROOMS"_L1, fields::BATH},     {"YEAR"_L1, fields::YEARBUILT},      {"BUILT"_L1, fields::YEARBUILT},
    {"SUBDIVISION"_L1, fields::NEIGHBORHD}, {"LAT"_L1, fields::LATITUDE},    {"LON"_L1, fields::LONGITUDE},
    {"LNG"_L1, fields::LONGITUDE},
};

} // namespace

QString BareHeading(const QString& heading)
{
    QString bare = heading.toUpper();
    bare.removeIf([](QChar letter) { return !letter.isLetterOrNumber(); });
    return bare;
}

QString FieldOfHeading(const QString& heading)
{
    const QString bare = BareHeading(heading);
    if (bare.isEmpty())
        return {};
    const auto columns = store::CompsColumns();
    const auto find = [&](auto&& means) {
        const auto found = std::ranges::find_if(
            columns, [&](const store::CompsColumn& column) { return column.name != fields::FRONTPHOTO && means(column); });
        return found == columns.end() ? QString() : QString(found->name);
    };
    if (const QString own = find([&](const auto& column) { return BareHeading(column.name) == bare; }); !own.isEmpty())
        return own;
    if (const QString shown = find([&](const auto& column) { return BareHeading(column.heading) == bare; }); !shown.isEmpty())
        return shown;
    const auto* const alias = std::ranges::find_if(kAliases, [&](const Alias& one) { return bare == one.words; });
    return alias == std::end(kAliases) ? QString() : QString(alias->field);
}

QString NameOfColumn(qsizetype column)
{
    return u"(column %1)"_s.arg(column + 1);
}

void DropDoubles(QList<ListColumn>& columns)
{
    QSet<QString> taken;
    for (ListColumn& column : columns) {
        if (taken.contains(column.field))
            column.field.clear();
        else if (!column.field.isEmpty())
            taken.insert(column.field);
    }
}

QList<ListColumn> ColumnsOf(const QStringList& headings)
{
    QList<ListColumn> columns;
    for (const QString& written : headings) {
        const QString heading = text::Trim(written);
        columns.append(heading.isEmpty() ? ListColumn{NameOfColumn(columns.size()), {}}
                                         : ListColumn{heading, FieldOfHeading(heading)});
    }
    DropDoubles(columns);
    return columns;
}

} // namespace vasclip::upkeep
