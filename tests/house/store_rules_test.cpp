#include "house/store_rules.h"

#include <gtest/gtest.h>

namespace vasclip::house {

namespace {

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

struct Row
{
    const char* name;
    const char* path;
    QString text;
    QString wanted; ///< the violations, "|" between them
};

constexpr auto kRecordSet = "src/map/m.h names a record set of the engine: records are read through store";

TEST(StoreRules, CatchWhatBreaksThem)
{
    const Row rows[] = {
        {"by its name", "src/map/m.cpp", Text("record.Text(fields::CITY)"), QString()},
        {"as a wide text", "src/map/m.cpp", Text("record.Text(u\"CITY\"_s)"),
         Text("src/map/m.cpp spells the column CITY itself: it is fields::CITY")},
        {"as a narrow one", "src/link/l.h", Text("field == \"CITY\"_L1"),
         Text("src/link/l.h spells the column CITY itself: it is fields::CITY")},
        {"in a comment", "src/link/l.h", Text("/// the column \"CITY\"\n"), QString()},
        {"a column of another table", "src/link/l.h", Text("u\"FORMTYPE\"_s"), QString()},
        {"a key of a profile file", "src/databook/city_list.cpp", Text("u\"CITY\"_s"), QString()},
        {"a record set", "src/map/m.h", Text("void Read(const engine::Recordset& rows);"), Text(kRecordSet)},
        {"opened", "src/map/m.h", Text("database.OpenRecordset(sql, kind)"), Text(kRecordSet)},
        {"of a source", "src/map/m.h", Text("source.Recordset().MoveFirst()"), Text(kRecordSet)},
        {"its kind", "src/map/m.h", Text("engine::RecordsetType::Table"), Text(kRecordSet)},
        {"what lies below it", "src/map/m.h", Text("database.OpenRows(select)"), Text(kRecordSet)},
        {"in a comment about it", "src/map/m.h", Text("// as Recordset::Update"), QString()},
        {"as values", "src/map/m.h", Text("store::Rows rows = store::ReadRows(source, sql);"), QString()},
        {"in the store", "src/store/s.cpp", Text("database.OpenRecordset(sql, kind)"), QString()},
        {"in the engine", "src/platform/engine/e.h", Text("class Recordset"), QString()},
        {"below the store", "src/platform/street/s.cpp", Text("\"CITY\"_L1"), QString()},
    };
    const QString list = Text("VASCLIP_FIELD(CITY);\nVASCLIP_FIELD(ST);\n");
    for (const Row& row : rows)
        EXPECT_EQ(StoreViolations({{Text("src/store/fields.h"), list}, {Text(row.path), row.text}})
                      .join(u'|')
                      .toStdString(),
                  row.wanted.toStdString())
            << row.name;
}

TEST(House, SpellsAColumnOnceAndReadsThroughTheStore)
{
    const Sources sources = ReadSources(Text(VASCLIP_SOURCE_DIR));
    ASSERT_TRUE(sources.value(Text("src/store/fields.h")).contains(Text("VASCLIP_FIELD(CENTRALKEY);")));
    const QStringList violations = StoreViolations(sources);
    EXPECT_TRUE(violations.isEmpty()) << violations.join(u'\n').toStdString();
}

} // namespace
} // namespace vasclip::house
