#include "link/comp2kel.h"

#include "common/globals.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString& TableName()
{
    static const QString name = QString::fromLatin1(common::Globals::kMappingTable);
    return name;
}

struct Column
{
    QLatin1StringView name;
    QString MappingRow::*member;
    bool fixed = false; ///< by the filter of a send
};
constexpr std::array<Column, 10> kColumns{{{"FORMTYPE"_L1, &MappingRow::formType, true},
                                           {"FORMNAME"_L1, &MappingRow::formName},
                                           {"FIELDNAME"_L1, &MappingRow::fieldName},
                                           {"ROW"_L1, &MappingRow::row},
                                           {"CELL"_L1, &MappingRow::cell},
                                           {"COMPTYPE"_L1, &MappingRow::compType, true},
                                           {"COMP"_L1, &MappingRow::comp, true},
                                           {"OFFSET"_L1, &MappingRow::offset},
                                           {"PREEVAL"_L1, &MappingRow::preEval},
                                           {"TRUEFALSE"_L1, &MappingRow::trueFalse}}};

/// The ten columns, and the form as the first condition.
QString SelectForForm(const QString& formType)
{
    const QString& t = TableName();
    QString query = u"Select "_s;
    for (std::size_t i = 0; i < kColumns.size(); ++i)
        query += (i == 0 ? QString() : u", "_s) + t + u'.' + kColumns[i].name;
    return query + u" from "_s + t + u" WHERE "_s + t + u".FORMTYPE = '"_s + formType + u'\'';
}

} // namespace

QString FilterComp2KelQuery(const QString& formType, const QString& comp, const QString& compType)
{
    const QString& t = TableName();
    return SelectForForm(formType) + u" AND "_s + t + u".COMP='"_s + comp + u"' AND "_s + t +
           u".COMPTYPE='"_s + compType + u"';"_s;
}

QString FilterAltComp2KelQuery(const QString& formType, const QString& comp, const QString& formName)
{
    const QString& t = TableName();
    return SelectForForm(formType) + u" AND "_s + t + u".COMP='"_s + comp + u"' AND "_s + t +
           u".FORMNAME='"_s + formName + u"';"_s;
}

QString FilterComp2KelProximityQuery(const QString& formType, const QString& comp, const QString& compType)
{
    const QString& t = TableName();
    return SelectForForm(formType) + u" AND "_s + t + u".COMP='"_s + comp + u"' AND "_s + t +
           u".COMPTYPE='"_s + compType + u"' AND "_s + t + u".FIELDNAME='PROXIMITY' AND "_s + t +
           u".COMP='"_s + comp + u"';"_s;
}

QString AddressRowsQuery(const QString& formType)
{
    static constexpr QLatin1StringView kFields[] = {fields::ADDRESS, fields::NEIGHBORHD, fields::APPRSRFILE,
                                                    fields::COUNTY,  fields::CITY,       fields::ST,
                                                    fields::ZIP};
    const QString& t = TableName();
    QString conditions;
    for (const QLatin1StringView field : kFields)
        conditions +=
            (conditions.isEmpty() ? QString() : u" OR "_s) + t + u".FIELDNAME = '"_s + field + u'\'';
    return u"Select * from "_s + t + u" WHERE "_s + t + u".FORMTYPE = '"_s + formType + u"' AND ("_s +
           conditions + u") ORDER BY "_s + t + u".COMP, COMPTYPE, FIELDNAME"_s;
}

void FilterComp2Kel(store::DataSource& source, const QString& formType, const QString& comp,
                    const QString& compType)
{
    source.Select(FilterComp2KelQuery(formType, comp, compType));
    source.MoveLast();
}

void FilterAltComp2Kel(store::DataSource& source, const QString& formType, const QString& comp,
                       const QString& formName)
{
    source.Select(FilterAltComp2KelQuery(formType, comp, formName));
    if (source.Count() == 0)
        throw RuntimeError(error::kNoCurrentRecord, u"No current record"_s);
    source.MoveLast();
}

void FilterComp2KelProximity(store::DataSource& source, const QString& formType, const QString& comp,
                             const QString& compType)
{
    source.Select(FilterComp2KelProximityQuery(formType, comp, compType));
    source.MoveLast();
}

QString GetComp2KelData(const store::DataSource& source, const QString& fieldName)
{
    return source.Value(fieldName).toString();
}

QList<MappingRow> ReadMappingRows(const store::DataSource& source, MappingColumns columns)
{
    QList<MappingRow> rows;
    QList<int> fields;
    QList<QString MappingRow::*> members;
    for (const Column& column : kColumns) {
        if (columns == MappingColumns::Fields && column.fixed)
            continue;
        fields << source.FieldIndex(column.name);
        members << column.member;
        if (fields.last() < 0)
            throw RuntimeError(error::kFieldUnknown, u"Column %1 is missing in %2 of %3"_s.arg(
                                                         column.name, TableName(), source.DatabaseName()));
    }
    const qint64 count = source.Count();
    rows.reserve(count);
    for (qint64 position = 0; position < count; ++position) {
        const QVariantList values = source.ValuesAt(position, fields);
        if (values.isEmpty())
            continue; // somebody took the row away meanwhile
        MappingRow& row = rows.emplace_back();
        for (qsizetype i = 0; i < members.size(); ++i)
            row.*members[i] = text::Trim(values[i].toString());
    }
    return rows;
}

const QList<MappingRow>& MappingPages::Rows(store::DataSource& source, const QString& formType,
                                            const QString& comp, const QString& compType)
{
    const Page page{formType, comp, compType};
    auto found = m_rows.find(page);
    if (found == m_rows.end()) {
        source.Select(FilterComp2KelQuery(formType, comp, compType));
        found = m_rows.emplace(page, ReadMappingRows(source, MappingColumns::Fields)).first;
    }
    return found->second;
}

} // namespace vasclip::link
