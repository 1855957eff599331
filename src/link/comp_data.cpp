#include "link/comp_data.h"

#include "common/error_block.h"
#include "common/proper_case.h"
#include "databook/comp_fields.h"
#include "link/comp2kel.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/price_date_age.h"
#include "link/slot_table.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"

#include <algorithm>
#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kCellsBetweenTurns = 16;

QString MappingGroup(const QString& compType)
{
    const GroupRow* row = GroupOfWord(compType);
    return row && text::Folded(compType) == row->mapping ? row->mapping : RowOf(Group::Sales).mapping;
}

QString ReadCell(Conversation& desk, const QString& report, const QString& item, const QString& field)
{
    try {
        return text::Trim(KelGetFieldInfo(desk.txtDDE, report, item));
    } catch (const RuntimeError& failure) {
        throw RuntimeError(failure.Number(),
                           messages::kReadStopped.arg(failure.Description(), field, item, report));
    }
}

void StoreText(store::DataSource& databook, const QString& field, const QString& text)
{
    store::SetFieldData(databook, store::Trim2Size(databook, text, field), field);
}

/// "3 / 2" is bedrooms and baths; without a "/" it is bedrooms alone.
void StoreBedBath(store::DataSource& databook, const QString& text)
{
    const qsizetype slash = text.indexOf(u'/');
    StoreText(databook, fields::BEDROOM, slash < 0 ? text : text.left(slash));
    StoreText(databook, fields::BATH, slash < 0 ? QString() : text.mid(slash + 1));
}

/// By the column's type; memo, dates and the like are left alone.
void StoreByType(store::DataSource& databook, const QString& address, const CompCell& cell)
{
    using engine::FieldType;
    const engine::Field* field = store::FindField(databook, cell.field);
    if (field == nullptr)
        throw RuntimeError(error::kFieldUnknown, messages::kNoSuchColumn.arg(cell.field));
    switch (field->type) {
    case FieldType::Integer:
    case FieldType::Single:
    case FieldType::Double:
        store::Change::Set(databook, cell.field, store::TrimNum2Size(databook, cell.text, cell.field));
        break;
    case FieldType::Text:
        // The report's own spelling of the address is not kept.
        if (cell.field == fields::ADDRESS)
            StoreText(databook, cell.field, address);
        else
            StoreText(databook, cell.field, cell.text);
        break;
    default:
        break;
    }
}

} // namespace

std::optional<QList<CompCell>> ReadCompData(LinkDesk& desk, const QString& formType, const QString& report,
                                            qint16 comp, const QString& compType, MappingPages& pages,
                                            const std::function<bool()>& goOn)
{
    const common::RoutineScope scope{"GetCompData"};
    QList<CompCell> cells;
    const QList<MappingRow> rows = pages.Rows(desk.sources.datComp2Kel_CURRENT, formType,
                                              text::Dec(KelPageBase(comp)), MappingGroup(compType));
    if (rows.isEmpty()) {
        desk.ports.prompter.Box(messages::kNoMappingTitle, messages::kNoMapping);
        return cells;
    }
    const QString formName = rows.first().formName; // stands for all rows
    cells.reserve(rows.size());
    int read = 0;
    for (const MappingRow& row : rows) {
        const QString field = row.fieldName.toUpper();
        // Both are made up for the report; the record has no column for them.
        if (field == "PROXIMITY"_L1 || field == kCityStateZipWord)
            continue;
        if (goOn && ++read % kCellsBetweenTurns == 0) {
            desk.ports.pump.DoEvents();
            if (!goOn())
                return std::nullopt;
        }
        const QString address = KelShiftCell(row.RowCell(), row.offset, comp);
        cells.append({field, ReadCell(desk, report, formName + u'|' + address, field)});
    }
    return cells;
}

void StoreCompData(const LinkDesk& desk, store::DataSource& databook, const QString& key, const QList<CompCell>& cells)
{
    const common::RoutineScope scope{"GetCompData"};
    const QString address = common::AddressInCase(key, desk.globals.addressCase);
    const QDate today = desk.ports.clock.Today();
    for (const CompCell& cell : cells) {
        if (cell.field == fields::CENTRALKEY) // the cell's own text is dropped
            StoreText(databook, cell.field, text::Folded(key));
        else if (StorePriceDateAge(databook, today, cell.field, cell.text))
            continue;
        else if (cell.field == "BEDBATH"_L1)
            StoreBedBath(databook, cell.text);
        else
            StoreByType(databook, address, cell);
    }
}

bool GetCompData(LinkDesk& desk, const QString& formType, const QString& report, qint16 comp,
                 const QString& compType)
{
    const common::RoutineScope scope{"GetCompData"};
    store::DataSource& databook = desk.sources.datDatabook;
    const QString key = store::GetFieldData(databook, fields::CENTRALKEY);
    MappingPages pages;
    const std::optional<QList<CompCell>> cells = ReadCompData(desk, formType, report, comp, compType, pages);
    if (!cells || cells->isEmpty())
        return false;
    if (!store::ReadRecord(databook, key))
        throw RuntimeError(error::kNoCurrentRecord, messages::kRecordGone.arg(key));
    store::Change change(databook, store::Change::OfKey{key}, messages::kReadWords);
    StoreCompData(desk, change.Source(), key, *cells);
    databook::SetLoadDate2Today(desk.ports, change.Source());
    change.Store();
    return true;
}

} // namespace vasclip::link
