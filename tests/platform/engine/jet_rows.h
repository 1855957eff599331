#pragma once

#include "platform/engine/genuine_file.h"
#include "platform/engine/jet_samples.h"

namespace vasclip::engine {

/// A field of every type.
inline TableDef EveryType()
{
    TableDef table;
    table.name = u"KINDS"_s;
    table.fields = {TextField(u"NAME"_s, 35),
                    TypedField(u"YES"_s, FieldType::Boolean),
                    TypedField(u"SMALL"_s, FieldType::Byte),
                    TypedField(u"MIDDLE"_s, FieldType::Integer),
                    TypedField(u"WHOLE"_s, FieldType::Long),
                    TypedField(u"MONEY"_s, FieldType::Currency),
                    TypedField(u"ROUGH"_s, FieldType::Single),
                    TypedField(u"FINE"_s, FieldType::Double),
                    TypedField(u"DAY"_s, FieldType::Date),
                    TextField(u"LONGEST"_s, 255),
                    TypedField(u"NOTES"_s, FieldType::Memo),
                    TypedField(u"PICTURE"_s, FieldType::LongBinary)};
    table.indexes = {{u"PrimaryKey"_s, {u"NAME"_s}, true, true},
                     {u"ByDay"_s, {u"DAY"_s, u"WHOLE"_s}, false, false}};
    return table;
}

inline QByteArray Picture(int bytes, int seed)
{
    QByteArray picture(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        picture[i] = static_cast<char>((i * 31 + seed * 7 + i / 251) & 0xFF);
    return picture;
}

inline QDateTime Day(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

/// Rows with the edges of every type; the first one holds nothing but its key.
inline QList<QVariantList> Edges()
{
    QList<QVariantList> rows;
    rows.append({u"nothing"_s, false, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
    rows.append({u"zeros"_s, false, 0LL, 0LL, 0LL, 0.0, 0.0, 0.0, Day(1899, 12, 30), u""_s, u""_s, QByteArray("")});
    rows.append({u"least"_s, true, 0LL, -32768LL, -2147483648LL, -92233720368.4775, -1.5, -1e300,
                 Day(1753, 1, 1, 6), QString(255, u'z'), QString(32, u'm'), Picture(64, 1)});
    rows.append({u"most"_s, true, 255LL, 32767LL, 2147483647LL, 92233720368.4775, 3.25, 1e300,
                 Day(2199, 12, 31, 23, 59, 59), QString(255, u'\u0416'), QString(33, u'\u0416'), Picture(65, 2)});
    rows.append({u"O'Brien-Smith 12 Caf\u00E9"_s, true, 1LL, 1LL, 1LL, 0.0001, 0.5, 0.1, Day(2004, 2, 29, 2, 30),
                 u"tab\there"_s, QString(600, u'n'), Picture(4076, 3)});
    rows.append({u"with wide text"_s, false, 2LL, 2LL, 2LL, 2.0, 2.0, 2.0, Day(1899, 12, 29, 6),
                 u"\u4E2D\u6587 \U0001F3E0"_s, QString(5000, u'\u4E2D'), Picture(4077, 4)});
    rows.append({u"too long for one row"_s, false, {}, {}, {}, {}, {}, {}, {}, {}, QString(2045, u'\u4E2D'), Picture(4090, 7)});
    rows.append({u"large"_s, false, 3LL, 3LL, 3LL, 3.0, 3.0, 3.0, Day(2000, 1, 1), u"three"_s,
                 QString(300'000, u'L'), Picture(5 << 20, 5)});
    rows.append({u"chained to the byte"_s, false, 4LL, 4LL, 4LL, 4.0, 4.0, 4.0, Day(2000, 1, 2), u"\u0001\u00FFa"_s,
                 QString(2036, u'\u4E2D'), Picture(2 * 4072, 6)});
    return rows;
}

inline void Fill(Database& database, const TableDef& table, const QList<QVariantList>& rows)
{
    database.CreateTable(table);
    const auto set = database.OpenRecordset(table.name, RecordsetType::Table);
    for (const QVariantList& row : rows) {
        set->AddNew();
        for (int i = 0; i < row.size(); ++i) {
            if (row[i].isValid())
                set->SetValue(i, row[i]);
        }
        set->Update();
    }
}

inline void ExpectRows(Database& database, const TableDef& table, const QList<QVariantList>& rows)
{
    const TableDef read = database.Table(table.name);
    ASSERT_EQ(read.fields.size(), table.fields.size());
    for (qsizetype i = 0; i < read.fields.size(); ++i) {
        EXPECT_EQ(read.fields[i].name, table.fields[i].name);
        EXPECT_EQ(read.fields[i].type, table.fields[i].type);
        if (read.fields[i].type == FieldType::Text) {
            EXPECT_EQ(read.fields[i].size, table.fields[i].size);
        }
    }
    const auto set = database.OpenRecordset(table.name, RecordsetType::Table);
    ASSERT_EQ(set->RecordCount(), rows.size());
    for (const QVariantList& row : rows) {
        for (int i = 0; i < row.size(); ++i) {
            const QVariant value = set->Value(i);
            ASSERT_EQ(value.isValid(), row[i].isValid())
                << row[0].toString().toStdString() << ": " << table.fields[i].name.toStdString();
            ASSERT_EQ(value, row[i]) << row[0].toString().toStdString() << ": " << table.fields[i].name.toStdString();
        }
        set->MoveNext();
    }
}

} // namespace vasclip::engine
