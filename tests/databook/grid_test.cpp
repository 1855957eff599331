#include "databook/grid.h"

#include "platform/text/runtime_error.h"
#include "support/databook_home.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const QDate kToday(2024, 5, 17);

TEST(GridText, TheSelectOfAllRecords)
{
    EXPECT_EQ(
        databook::SelectAllText(),
        u"SELECT COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.ST, COMPS.ZIP, "
        u"COMPS.COUNTY, COMPS.NEIGHBORHD, COMPS.CENSUSTRCT, COMPS.TAXMAPNUM, COMPS.GLA, COMPS.SELLINGPR, "
        u"COMPS.PRICEGLA, COMPS.BEDROOM, COMPS.BATH, COMPS.AGE, COMPS.APPRSLTYPE, COMPS.STRCODE, "
        u"COMPS.CTSCODE, "
        u"COMPS.LOADDATE, COMPS.SALEDATE, COMPS.PORCHPATI2, COMPS.BASEMENT, COMPS.LONGITUDE, COMPS.LATITUDE, "
        u"COMPS.ANCHORED, COMPS.DESIGNAPPL, COMPS.NOTES FROM COMPS"_s);
}

TEST(GridText, ATableWithoutSomeOfTheColumns)
{
    engine::TableDef table{.name = u"COMPS"_s, .fields = {{.name = u"front"_s}, {.name = u"CITY"_s}}, .indexes = {}};
    EXPECT_EQ(databook::WithColumnsOf(table, u"SELECT COMPS.FRONT,COMPS.LATITUDE, Comps.CITY FROM COMPS WHERE 1 = 1"_s),
              u"SELECT COMPS.FRONT, Comps.CITY FROM COMPS WHERE 1 = 1"_s);
    EXPECT_EQ(databook::WithColumnsOf(table, u"SELECT COMPS.LATITUDE, COMPS.CITY FROM COMPS"_s), u"SELECT COMPS.CITY FROM COMPS"_s);
}

TEST(GridText, TheOrderBySetting)
{
    struct Row
    {
        int sortGrid;
        QString text;
    };
    for (const Row& row :
         {Row{0, QString()}, Row{1, u" ORDER BY COMPS.ADDRESS"_s}, Row{2, u" ORDER BY COMPS.SALEDATE DESC"_s},
          Row{3, u" ORDER BY COMPS.SELLINGPR DESC"_s}, Row{4, u" ORDER BY COMPS.GLA DESC"_s},
          Row{5, u" ORDER BY COMPS.PRICEGLA DESC"_s}, Row{6, u" ORDER BY COMPS.LOADDATE DESC"_s},
          Row{7, QString()}, Row{-1, QString()}})
        EXPECT_EQ(databook::OrderByText(row.sortGrid), row.text) << row.sortGrid;
}

TEST(GridText, AFieldOfTheSixOrdersSorts)
{
    databook::GridState state;
    int sortGrid = 1;
    for (int order = 1; order <= 6; ++order) {
        const QString field = databook::OrderByText(order).section(u'.', 1).section(u' ', 0, 0);
        EXPECT_EQ(databook::SortGridOf(field.toLower()), order);
        EXPECT_TRUE(databook::SortBy(state, sortGrid, field));
        EXPECT_EQ(sortGrid, order);
    }
    EXPECT_FALSE(databook::SortBy(state, sortGrid, u"NOTES"_s));
    EXPECT_FALSE(databook::SortBy(state, sortGrid, QString()));
    EXPECT_EQ(sortGrid, 6);
}

TEST(GridText, ASearchOnDisplayKeepsItsRowsAndChangesItsOrder)
{
    databook::GridState state{u"SELECT * FROM COMPS WHERE CITY = 'A' ORDER BY COMPS.GLA DESC"_s,
                              u" ORDER BY COMPS.GLA DESC"_s, true};
    int sortGrid = 4;
    EXPECT_TRUE(databook::SortBy(state, sortGrid, u"ADDRESS"_s));
    EXPECT_EQ(state.sqlText, u"SELECT * FROM COMPS WHERE CITY = 'A' ORDER BY COMPS.ADDRESS"_s);
    EXPECT_EQ(state.orderByText, u" ORDER BY COMPS.ADDRESS"_s);
    state = {u"SELECT * FROM COMPS WHERE CITY = 'A'"_s, QString(), true};
    EXPECT_TRUE(databook::SortBy(state, sortGrid, u"SALEDATE"_s));
    EXPECT_EQ(state.sqlText, u"SELECT * FROM COMPS WHERE CITY = 'A' ORDER BY COMPS.SALEDATE DESC"_s);
}

TEST(GridColumns, SortableAreTheSixAndTheKeyStays)
{
    int sortable = 0;
    for (const forms::GridColumn& column : databook::DefaultColumns()) {
        sortable += column.sortable;
        EXPECT_EQ(column.fixed, column.field == u"CENTRALKEY"_s);
    }
    EXPECT_EQ(sortable, 6);
}

TEST(GridColumns, TheDefaultPlanFollowsTheSelect)
{
    QStringList fields;
    for (const forms::GridColumn& column : databook::DefaultColumns()) {
        fields.append(column.field);
        EXPECT_TRUE(column.visible) << column.field.toStdString();
        EXPECT_FALSE(column.caption.isEmpty()) << column.field.toStdString();
        if (column.field.size() > 4) {
            EXPECT_NE(column.caption, column.field) << "a caption for people";
        }
        EXPECT_GT(column.width, 30) << column.field.toStdString();
    }
    QString select = databook::SelectAllText();
    select.remove(u"SELECT "_s).remove(u" FROM COMPS"_s).remove(u"COMPS."_s).remove(u' ');
    EXPECT_EQ(fields, select.split(u','));
}

TEST(GridColumns, NumbersStandToTheRightAndFormatsAreSet)
{
    for (const forms::GridColumn& column : databook::DefaultColumns()) {
        const bool number = QStringList{u"GLA"_s,  u"SELLINGPR"_s, u"PRICEGLA"_s,  u"BEDROOM"_s,
                                        u"BATH"_s, u"AGE"_s,       u"LONGITUDE"_s, u"LATITUDE"_s}
                                .contains(column.field);
        EXPECT_EQ(column.rightAligned, number) << column.field.toStdString();
        const QString format = column.field == u"FRONT"_s ? u"FormatText Event"_s
                               : column.field == u"SALEDATE"_s || column.field == u"LOADDATE"_s
                                   ? u"Short Date"_s
                                   : QString();
        EXPECT_EQ(column.numberFormat, format) << column.field.toStdString();
    }
}

TEST(GridColumns, SettingsResetTheColumnsInDefaultModeOnly)
{
    forms::ControlSet set;
    forms::Grid grid(set, u"grddatabook"_s);
    grid.SetColumns(
        {{.field = u"SaleDate"_s, .caption = u"Sold"_s}, {.field = u"CITY"_s, .caption = u"Town"_s}});
    databook::SetGridSettings(grid, u"USER"_s);
    ASSERT_EQ(grid.Columns().size(), 2);
    EXPECT_EQ(grid.Columns().at(0).numberFormat, u"Short Date"_s);
    EXPECT_EQ(grid.Columns().at(1).caption, u"Town"_s);
    databook::SetGridSettings(grid, u" Default"_s);
    EXPECT_EQ(grid.Columns(), databook::DefaultColumns());
}

TEST(GridText, WhatACellShows)
{
    struct Row
    {
        const char* name;
        QString field, stored, shown;
    };
    for (const Row& row : {
             Row{"a sale", u"SALEDATE"_s, u"03/07/2004"_s, u"3/7/2004"_s},
             Row{"a pending sale as stored", u"SALEDATE"_s, u"01/01/1900"_s, u"01/01/1900"_s},
             Row{"padded", u"LOADDATE"_s, u"5/17/2024   "_s, u"5/17/2024"_s},
             Row{"no date", u"LOADDATE"_s, u"sometime"_s, u"sometime"_s},
             Row{"no date at all", u"LOADDATE"_s, QString(), QString()},
             Row{"a front photo", u"FRONT"_s, u"1"_s, u"\u25CF"_s},
             Row{"no front photo", u"FRONT"_s, u" "_s, QString()},
             Row{"no front photo, empty", u"FRONT"_s, QString(), QString()},
             Row{"one view", u"PHOTOS"_s, u"FRONT VIEW|ABCDEFGH\r\n"_s, u"FRONT VIEW"_s},
             Row{"views", u"PHOTOS"_s, u"FRONT VIEW|ABCDEFGH\r\nREAR VIEW|IJKLMNOP\r\n"_s,
                 u"FRONT VIEW, REAR VIEW"_s},
             Row{"no views", u"PHOTOS"_s, u" "_s, QString()},
             Row{"text without its padding", u"CITY"_s, u" Elm Grove   "_s, u" Elm Grove"_s},
             Row{"notes on one line", u"NOTES"_s, u"first\r\nsecond\nthird"_s, u"first second third"_s},
             Row{"numbers as stored", u"PRICEGLA"_s, u"100."_s, u"100."_s},
         }) {
        for (const forms::GridColumn& column : databook::DefaultColumns()) {
            if (column.field == row.field) {
                EXPECT_EQ(databook::FormatCell(column, row.stored, kToday), row.shown) << row.name;
            }
        }
    }
}

class GridOfRecords : public tests::DatabookHome
{
protected:
    forms::ControlSet set;
    databook::RecordDesk desk{set};
    store::Sources sources{engine};
    databook::GridRows rows{sources.datsql};

    void AddPriced(const QString& name, const QString& price, const QString& saleDate = u"01/01/1900"_s)
    {
        AddRow({{key, name.leftJustified(35)},
                {u"ADDRESS"_s, name.leftJustified(35)},
                {u"SELLINGPR"_s, price},
                {u"SALEDATE"_s, saleDate}});
    }
    void SetUp() override
    {
        DatabookHome::SetUp();
        AddPriced(u"B STREET"_s, u"99000"_s, u"2/1/2004"_s);
        AddPriced(u"A STREET"_s, u"250000"_s);
        AddPriced(u"C STREET"_s, u"100000"_s, u"11/1/2003"_s);
        store::Connect2Databook(ports, sources, path, table);
    }
    void Display(int sortGrid) { databook::DisplayAllRecords(ports, desk, sources.datsql, rows, sortGrid); }
    [[nodiscard]] QString Keys()
    {
        QString keys;
        const int column = static_cast<int>(rows.FieldNames().indexOf(key));
        for (qint64 row = 0; row < rows.RowCount(); ++row)
            keys += rows.Row(row).value(column).left(1);
        return keys;
    }
};

TEST_F(GridOfRecords, ShowsAllInTheOrderOfTheSetting)
{
    struct Row
    {
        int sortGrid;
        QString keys;
    };
    for (const Row& row : {Row{1, u"ABC"_s}, Row{3, u"ACB"_s}, Row{2, u"BCA"_s}, Row{0, u"BAC"_s}}) {
        Display(row.sortGrid);
        EXPECT_EQ(Keys(), row.keys) << row.sortGrid;
        EXPECT_EQ(sources.datsql.RecordSource(),
                  databook::SelectAllText() + databook::OrderByText(row.sortGrid));
        EXPECT_EQ(desk.state.sqlText, sources.datsql.RecordSource());
        EXPECT_EQ(desk.txtcentralkey.Text(), row.keys.left(1) + u" STREET"_s) << "the key of the current row";
        EXPECT_EQ(desk.grddatabook.Row(), 0);
    }
}

TEST_F(GridOfRecords, ASearchOnDisplayStays)
{
    desk.state = {.sqlText = u"SELECT COMPS.CENTRALKEY FROM COMPS WHERE UCASE(CENTRALKEY) LIKE '*C*'"_s,
                  .orderByText = u"kept"_s,
                  .searchOnDisplay = true};
    Display(3);
    EXPECT_EQ(Keys(), u"C"_s);
    EXPECT_EQ(desk.state.orderByText, u"kept"_s);
    desk.state.searchOnDisplay = false;
    Display(3);
    EXPECT_EQ(Keys(), u"ACB"_s);
    EXPECT_EQ(desk.state.orderByText, QString());
}

TEST_F(GridOfRecords, AStatementThatFailsLeavesTheGridAsItWas)
{
    Display(1);
    const QString before = desk.state.sqlText;
    desk.state.searchOnDisplay = true;
    desk.state.sqlText = u"SELECT COMPS.CENTRALKEY FROM COMPS WHERE CITY = 'O'Brien'"_s;
    EXPECT_THROW(Display(1), RuntimeError);
    EXPECT_EQ(sources.datsql.RecordSource(), before);
    EXPECT_EQ(Keys(), u"ABC"_s);
}

TEST_F(GridOfRecords, AnEmptyDatabookShowsAnEmptyGrid)
{
    sources.datsql.Database().Execute(u"DELETE FROM COMPS"_s);
    desk.txtcentralkey.SetText(u"left over"_s);
    Display(1);
    EXPECT_EQ(rows.RowCount(), 0);
    EXPECT_EQ(desk.grddatabook.Row(), -1);
    EXPECT_EQ(desk.txtcentralkey.Text(), QString());
    EXPECT_EQ(rows.FieldNames().size(), 29);
}

TEST_F(GridOfRecords, RowsOutsideAndRowsGoneAreEmpty)
{
    Display(1);
    EXPECT_TRUE(rows.Row(-1).isEmpty());
    EXPECT_TRUE(rows.Row(3).isEmpty());
    EXPECT_EQ(rows.Row(1).size(), 29);
    store::DeleteRecord(ports, sources.datDatabook, u"B STREET"_s);
    rows.Forget();
    EXPECT_TRUE(rows.Row(1).isEmpty()) << "deleted since";
    EXPECT_EQ(rows.RowCount(), 3) << "until it is shown anew";
    Display(1);
    EXPECT_EQ(Keys(), u"AC"_s);
}

TEST_F(GridOfRecords, ChangesShowAfterARepaint)
{
    Display(1);
    const int city = static_cast<int>(rows.FieldNames().indexOf(u"CITY"_s));
    EXPECT_EQ(rows.Row(0).value(city), QString());
    ASSERT_TRUE(store::FindRecord(ports, sources.datDatabook, u"A STREET"_s, key));
    sources.datDatabook.Recordset().Edit();
    store::SetFieldData(sources.datDatabook, u"Elm Grove"_s, u"CITY"_s);
    sources.datDatabook.Recordset().Update();
    desk.grddatabook.Refresh();
    EXPECT_EQ(rows.Row(0).value(city), u"Elm Grove"_s);
}

TEST_F(GridOfRecords, ASourceThatIsNotOpenHasNoRows)
{
    Display(1);
    sources.datsql.Close();
    rows.Forget();
    EXPECT_EQ(rows.RowCount(), 0);
    EXPECT_TRUE(rows.FieldNames().isEmpty());
    EXPECT_TRUE(rows.Row(0).isEmpty());
}

TEST_F(GridOfRecords, AScrollOfTheGridDoesNotMoveTheRecordsSource)
{
    Display(1);
    const engine::Bookmark here = sources.datsql.Recordset().GetBookmark();
    ASSERT_TRUE(store::FindRecord(ports, sources.datDatabook, u"C STREET"_s, key));
    (void)rows.Row(2);
    (void)rows.Row(1);
    EXPECT_EQ(sources.datsql.Recordset().GetBookmark(), here);
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, key), u"C STREET"_s);
}

} // namespace
