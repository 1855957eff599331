#include "databook/grid.h"

#include "common/error_block.h"
#include "platform/text/dates.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/schema.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using common::RoutineScope;
using Text = QLatin1StringView;

namespace {

struct PlanRow
{
    Text field;
    int width;
};

// In the order of the SELECT. A field that sorts as a number stands to the right.
constexpr std::array kPlan = {
    PlanRow{fields::FRONT, 56},       PlanRow{fields::CENTRALKEY, 210}, PlanRow{fields::ADDRESS, 200},
    PlanRow{fields::PHOTOS, 150},     PlanRow{fields::CITY, 120},       PlanRow{fields::ST, 60},
    PlanRow{fields::ZIP, 64},         PlanRow{fields::COUNTY, 110},     PlanRow{fields::NEIGHBORHD, 140},
    PlanRow{fields::CENSUSTRCT, 112}, PlanRow{fields::TAXMAPNUM, 110},  PlanRow{fields::GLA, 64},
    PlanRow{fields::SELLINGPR, 80},   PlanRow{fields::PRICEGLA, 92},    PlanRow{fields::BEDROOM, 92},
    PlanRow{fields::BATH, 64},        PlanRow{fields::AGE, 48},         PlanRow{fields::APPRSLTYPE, 56},
    PlanRow{fields::STRCODE, 72},     PlanRow{fields::CTSCODE, 88},     PlanRow{fields::LOADDATE, 90},
    PlanRow{fields::SALEDATE, 90},    PlanRow{fields::PORCHPATI2, 120}, PlanRow{fields::BASEMENT, 120},
    PlanRow{fields::LONGITUDE, 96},   PlanRow{fields::LATITUDE, 96},    PlanRow{fields::ANCHORED, 90},
    PlanRow{fields::DESIGNAPPL, 120}, PlanRow{fields::NOTES, 240},
};

struct Order
{
    Text field;
    bool descending;
};

// SORTGRID 1 to 6.
constexpr std::array kOrders = {Order{fields::ADDRESS, false},  Order{fields::SALEDATE, true},
                                Order{fields::SELLINGPR, true}, Order{fields::GLA, true},
                                Order{fields::PRICEGLA, true},  Order{fields::LOADDATE, true}};

const QString kShortDate = u"Short Date"_s;
const QString kFormatText = u"FormatText Event"_s;
const QString kPending = u"01/01/1900"_s;
constexpr QChar kFrontMark(0x25CF); // a black circle

QString FormatOf(const QString& field)
{
    if (field == fields::SALEDATE || field == fields::LOADDATE)
        return kShortDate;
    return field == fields::FRONT ? kFormatText : QString();
}

/// Views of a PHOTOS text, "FRONT VIEW, REAR VIEW".
QString PhotoViews(const QString& stored)
{
    QStringList views;
    for (const QString& line : stored.split(u"\r\n"_s)) {
        const QString view = text::Trim(line.section(QLatin1Char('|'), 0, 0));
        if (!view.isEmpty())
            views.append(view);
    }
    return views.join(u", "_s);
}

QString OneLine(const QString& stored)
{
    QString line = stored;
    line.replace(u"\r\n"_s, u" "_s);
    line.replace(QLatin1Char('\r'), QLatin1Char(' '));
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text::RTrim(line);
}

} // namespace

const QString& SelectAllText()
{
    static const QString select =
        u"SELECT COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.ST, COMPS.ZIP, "
        "COMPS.COUNTY, COMPS.NEIGHBORHD, COMPS.CENSUSTRCT, COMPS.TAXMAPNUM, COMPS.GLA, COMPS.SELLINGPR, "
        "COMPS.PRICEGLA, COMPS.BEDROOM, COMPS.BATH, COMPS.AGE, COMPS.APPRSLTYPE, COMPS.STRCODE, "
        "COMPS.CTSCODE, "
        "COMPS.LOADDATE, COMPS.SALEDATE, COMPS.PORCHPATI2, COMPS.BASEMENT, COMPS.LONGITUDE, COMPS.LATITUDE, "
        "COMPS.ANCHORED, COMPS.DESIGNAPPL, COMPS.NOTES FROM COMPS"_s;
    return select;
}

QString WithColumnsOf(const engine::TableDef& table, const QString& select)
{
    static constexpr auto kSelect = "SELECT "_L1;
    const qsizetype from = select.indexOf(u" FROM "_s);
    if (!select.startsWith(kSelect) || from < 0)
        return select;
    QStringList columns = select.mid(kSelect.size(), from - kSelect.size()).split(u',');
    columns.removeIf([&](const QString& column) {
        const QString name = column.section(u'.', -1).trimmed();
        return std::ranges::none_of(table.fields, [&](const engine::Field& field) {
            return field.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    });
    return kSelect + columns.join(u',').trimmed() + select.mid(from);
}

QString OrderByText(int sortGrid)
{
    if (sortGrid < 1 || sortGrid > static_cast<int>(kOrders.size()))
        return {};
    const Order& order = kOrders[static_cast<std::size_t>(sortGrid - 1)];
    return u" ORDER BY COMPS."_s + order.field + (order.descending ? u" DESC"_s : QString());
}

int SortGridOf(const QString& field)
{
    for (std::size_t i = 0; i < kOrders.size(); ++i)
        if (field.compare(kOrders[i].field, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i) + 1;
    return 0;
}

bool SortBy(GridState& state, int& sortGrid, const QString& field)
{
    const int wanted = SortGridOf(field);
    if (wanted == 0)
        return false;
    sortGrid = wanted;
    if (state.searchOnDisplay && state.sqlText.endsWith(state.orderByText)) {
        state.sqlText.chop(state.orderByText.size());
        state.orderByText = OrderByText(wanted);
        state.sqlText += state.orderByText;
    }
    return true;
}

GridRows::GridRows(const store::DataSource& source)
    : m_source(source)
    , m_kept(kKeptRows)
{
    QObject::connect(&source, &store::DataSource::Refreshed, &m_context, [this] { Forget(); });
}

void GridRows::Follow(const forms::Grid& grid)
{
    QObject::disconnect(m_repaint);
    m_repaint = QObject::connect(&grid, &forms::Grid::Repaint, &m_context, [this] { Forget(); });
}

void GridRows::Forget()
{
    m_fields.clear();
    for (Kept& kept : m_kept)
        kept.row = -1;
}

qint64 GridRows::RowCount() const
{
    return m_source.Bound() ? m_source.Count() : 0;
}

QStringList GridRows::FieldNames() const
{
    QStringList names;
    if (!m_source.Bound())
        return names;
    for (const engine::Field& field : m_source.Fields())
        names.append(field.name);
    return names;
}

const QList<int>& GridRows::Fields() const
{
    if (m_fields.isEmpty())
        for (int i = 0; i < m_source.Fields().size(); ++i)
            m_fields.append(i);
    return m_fields;
}

QStringList GridRows::Read(qint64 row) const
{
    const QVariantList values = m_source.ValuesAt(row, Fields());
    QStringList texts;
    texts.reserve(values.size());
    for (const QVariant& value : values)
        texts.append(value.toString());
    return texts;
}

QStringList GridRows::Row(qint64 row) const
{
    if (row < 0 || row >= RowCount())
        return {};
    Kept& kept = m_kept[static_cast<std::size_t>(row) % kKeptRows];
    if (kept.row != row) {
        kept.texts = Read(row);
        kept.row = row;
    }
    return kept.texts;
}

const QList<forms::GridColumn>& DefaultColumns()
{
    static const QList<forms::GridColumn> columns = [] {
        QList<forms::GridColumn> plan;
        for (const PlanRow& row : kPlan) {
            const QString field(row.field);
            const store::CompsColumn* stored = store::FindCompsColumn(field);
            plan.append({.field = field,
                         .caption = stored ? QString(stored->heading) : field,
                         .width = row.width,
                         .visible = true,
                         .numberFormat = FormatOf(field),
                         .rightAligned = stored && stored->sorts == engine::SortsAs::Number,
                         .sortable = SortGridOf(field) != 0,
                         .fixed = row.field == fields::CENTRALKEY});
        }
        return plan;
    }();
    return columns;
}

void SetGridSettings(forms::Grid& grid, const QString& mode)
{
    const RoutineScope scope{"SetGridSettings"};
    if (text::Folded(mode) == Text("DEFAULT"))
        grid.SetColumns(DefaultColumns());
    SetFormatText(grid);
}

void SetFormatText(forms::Grid& grid)
{
    QList<forms::GridColumn> columns = grid.Columns();
    for (forms::GridColumn& column : columns) {
        const QString format = FormatOf(column.field.toUpper());
        if (!format.isEmpty())
            column.numberFormat = format;
    }
    if (columns != grid.Columns())
        grid.SetColumns(columns);
}

QString FormatCell(const forms::GridColumn& column, const QString& stored, QDate today)
{
    if (column.numberFormat == kFormatText)
        return text::Trim(stored) == Text("1") ? QString(kFrontMark) : QString();
    if (column.numberFormat == kShortDate) {
        const QString date = text::Trim(stored);
        if (date.isEmpty() || date == kPending)
            return date;
        const std::optional<QDateTime> value = text::ReadDate(date, today);
        return value ? text::Format(*value, kShortDate) : date;
    }
    if (column.field.compare(fields::PHOTOS, Qt::CaseInsensitive) == 0)
        return PhotoViews(stored);
    return OneLine(stored);
}

namespace {

/// @param sql  loses the columns that the table of an older layout lacks
void SelectWhatIsThere(store::DataSource& datsql, QString& sql)
{
    try {
        return datsql.Select(sql);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kParameterUnknown)
            throw;
        const auto database = datsql.Engine().OpenDatabase(datsql.DatabaseName(), engine::OpenMode::ReadOnly);
        const QString less = WithColumnsOf(database->Table(u"COMPS"_s), sql);
        database->Close();
        if (less == sql)
            throw;
        sql = less;
    }
    datsql.Select(sql);
}

} // namespace

void DisplayAllRecords(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
                       int sortGrid)
{
    const RoutineScope scope{"DisplayAllRecords"};
    QString sql = desk.state.sqlText;
    QString orderBy = desk.state.orderByText;
    if (!desk.state.searchOnDisplay || sql.isEmpty()) {
        sql = SelectAllText() + OrderByText(sortGrid);
        orderBy.clear();
    }
    if (!common::Guarded(ports.prompter, [&] { SelectWhatIsThere(datsql, sql); }))
        return;
    desk.state.sqlText = sql;
    desk.state.orderByText = orderBy;
    if (!desk.state.searchOnDisplay)
        desk.state.search.reset();
    rows.Forget();
    rows.Follow(desk.grddatabook);
    desk.grddatabook.Rebind(&rows);
    desk.grddatabook.Refresh();
    desk.txtcentralkey.SetText(text::Trim(desk.grddatabook.CurrentText(fields::CENTRALKEY)));
}

} // namespace vasclip::databook
