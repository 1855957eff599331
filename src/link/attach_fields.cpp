#include "link/attach_fields.h"

#include "common/addresses.h"
#include "common/error_block.h"
#include "link/comp2kel.h"
#include "link/form_table.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

struct FieldRow
{
    QLatin1StringView field;
    QString AttachFields::*member;
};
constexpr FieldRow kFields[] = {
    {fields::CITY, &AttachFields::city},
    {fields::ST, &AttachFields::state},
    {fields::ZIP, &AttachFields::zip},
    {fields::COUNTY, &AttachFields::county},
    {fields::SALEDATE, &AttachFields::saleDate},
    {fields::SALEFLD, &AttachFields::saleFld},
    {fields::NEIGHBORHD, &AttachFields::neighborhood},
};

void TakeIfBlank(QString& part, const QString& text)
{
    if (part.isEmpty())
        part = text;
}

} // namespace

AttachFields GetNeighborHdCompData(LinkDesk& desk, const ReportPlace& place)
{
    const common::RoutineScope scope{"GetNeighborHdCompData"};
    AttachFields fields;
    store::DataSource& mapping = desk.sources.datComp2Kel_CURRENT;
    FilterComp2Kel(mapping, desk.addr.txtFormType.Text(), text::Dec(KelPageBase(place.comp)),
                   RowOf(place.group).mapping);
    const QString report = text::Trim(desk.addr.txtKelReport.Text());
    for (const MappingRow& row : ReadMappingRows(mapping, MappingColumns::Fields)) {
        for (const FieldRow& wanted : kFields) {
            if (row.fieldName.compare(wanted.field, Qt::CaseInsensitive) != 0)
                continue;
            const QString cell = KelShiftCell(row.RowCell(), row.offset, place.comp);
            fields.*wanted.member =
                text::Trim(KelGetFieldInfo(desk.txtDDE, report, row.formName + u'|' + cell));
        }
    }
    const bool comp = place.group != Group::Subject;
    const common::CityStateZip line = common::ParseCityStateZip(fields.neighborhood);
    if (comp && !(line == common::CityStateZip{})) {
        TakeIfBlank(fields.city, line.city);
        TakeIfBlank(fields.state, line.state);
        TakeIfBlank(fields.zip, line.zip);
        if (common::IsCityLine(line))
            fields.neighborhood.clear();
    }
    return fields;
}

} // namespace vasclip::link
