// The evaluator for back ends without an SQL of their own, held against SQLite: the same rows and statements must
// give the same answers.

#include "platform/engine/home.h"
#include "platform/engine/memory_back_end.h"

#include <gtest/gtest.h>

#include <random>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

TableDef MixedTable()
{
    TableDef table = SmallComps();
    table.fields.append(TypedField(u"ROOMS"_s, FieldType::Integer));
    table.fields.append(TypedField(u"RATE"_s, FieldType::Double));
    table.fields.append(TypedField(u"SOLD"_s, FieldType::Date));
    table.fields.append(TypedField(u"GOOD"_s, FieldType::Boolean));
    return table;
}

void Fill(Database& database)
{
    database.CreateTable(MixedTable());
    const auto rows = database.OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    std::mt19937 random(7);
    const auto one = [&](const QStringList& values) -> QVariant {
        const auto at = static_cast<qsizetype>(random() % static_cast<quint32>(values.size() + 1));
        return at == values.size() ? QVariant() : QVariant(values[at]);
    };
    Transaction together(database);
    for (int i = 0; i < 60; ++i) {
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, u"%1 Elm St"_s.arg(i));
        rows->SetValue(u"CITY"_s, one({u"Salem"_s, u"SALEM "_s, u"dover"_s, u""_s, u"Ünna"_s}));
        rows->SetValue(u"SELLINGPR"_s, one({u"100000"_s, u"95000"_s, u"1,200"_s, u""_s, u"-5.5"_s, u"abc"_s}));
        rows->SetValue(u"SALEDATE"_s, one({u"1/2/2004"_s, u"12/31/1999"_s, u"13/1/2001"_s, u"soon"_s, u""_s}));
        rows->SetValue(u"GLA"_s, one({u"900"_s, u"1500"_s, u"2200.5"_s}));
        rows->SetValue(u"PHOTOS"_s, one({u"FRONT VIEW|ABC\r\n"_s, u""_s}));
        if (random() % 4 != 0) {
            rows->SetValue(u"ROOMS"_s, static_cast<int>(random() % 9));
            rows->SetValue(u"RATE"_s, static_cast<double>(random() % 1000) / 8);
            rows->SetValue(u"SOLD"_s, QDate(2001, 1, 1).startOfDay(Qt::UTC).addDays(random() % 900));
            rows->SetValue(u"GOOD"_s, random() % 2 == 0);
        }
        rows->Update();
    }
    together.Commit();
}

QString Shown(Recordset& rows)
{
    QString text;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        for (int i = 0; i < rows.Fields().size(); ++i) {
            const QVariant value = rows.Value(i);
            text += value.typeId() == QMetaType::Double ? QString::number(value.toDouble(), 'g', 12)
                    : value.isValid()                   ? value.toString()
                                                        : u"NULL"_s;
            text += u'|';
        }
        text += u'\n';
    }
    return text;
}

struct EvaluatorTest : testing::Test
{
    EvaluatorTest()
    {
        home.engine.AddBackEnd(std::make_unique<MemoryBackEnd>(u".SRV"_s));
        native = home.engine.CreateDatabase(u"C:\\A.MDB"_s);
        memory = home.engine.CreateDatabase(u"C:\\A.SRV"_s);
        Fill(*native);
        Fill(*memory);
    }

    QString Answer(Database& database, const QString& sql)
    {
        QString shown;
        QString text;
        const int number = ErrorOf(
            [&] { shown = Shown(*database.OpenRecordset(sql, RecordsetType::Dynaset)); }, &text);
        return number == 0 ? shown : u"error %1"_s.arg(number);
    }

    void ExpectSame(const QString& sql)
    {
        EXPECT_EQ(Answer(*memory, sql).toStdString(), Answer(*native, sql).toStdString()) << sql.toStdString();
    }

    Home home;
    std::shared_ptr<Database> native;
    std::shared_ptr<Database> memory;
};

TEST_F(EvaluatorTest, AnswersAsTheNativeKindDoes)
{
    const char16_t* const statements[] = {
        u"SELECT * FROM COMPS",
        u"SELECT CENTRALKEY FROM COMPS ORDER BY SELLINGPR DESC, CENTRALKEY",
        u"SELECT CENTRALKEY, SALEDATE FROM COMPS ORDER BY SALEDATE, CITY DESC, CENTRALKEY",
        u"SELECT DISTINCT CITY FROM COMPS",
        u"SELECT DISTINCT CITY, GOOD FROM COMPS ORDER BY CITY, GOOD",
        u"SELECT COUNT(*), COUNT(CITY), SUM(SELLINGPR), AVG(ROOMS), MIN(CITY), MAX(RATE) FROM COMPS",
        u"SELECT COUNT(*) FROM COMPS WHERE 1 = 2",
        u"SELECT SUM(ROOMS), MAX(SOLD) FROM COMPS WHERE CITY = 'nowhere'",
        u"SELECT CITY & ', ' & SELLINGPR AS A, CITY + 'x', ROOMS + RATE, ROOMS / 0, -ROOMS, SOLD + 1 FROM COMPS",
        u"SELECT UCASE(CITY), LCASE(CITY), TRIM(CITY), LEN(CITY), LEFT(CITY, 2), RIGHT(CITY, 2), MID(CITY, 2, 2) "
        u"FROM COMPS",
        u"SELECT INSTR(CITY, 'L'), INSTR(3, CITY, 'E'), STR(ROOMS), ABS(0 - RATE), INT(RATE), VAL(SELLINGPR) FROM "
        u"COMPS",
        u"SELECT FORMAT(RATE, '0.00'), FORMAT(SOLD, 'mm/dd/yyyy'), FORMAT(SALEDATE, 'yyyy') FROM COMPS",
        u"SELECT NZ(CITY), NZ(ROOMS, 'none'), IIF(GOOD, 'yes', 'no'), IIF(ROOMS > 4, RATE, CITY) FROM COMPS",
        u"SELECT ISNULL(CITY), ISDATE(SALEDATE), CDATE(SALEDATE), GOOD & 'x' FROM COMPS",
    };
    for (const char16_t* sql : statements)
        ExpectSame(QString::fromUtf16(sql));
}

TEST_F(EvaluatorTest, RandomConditionsSelectTheSameRows)
{
    const QStringList values = {u"CITY"_s,  u"SELLINGPR"_s, u"SALEDATE"_s,   u"GLA"_s,    u"ROOMS"_s, u"RATE"_s,
                                u"SOLD"_s,  u"GOOD"_s,      u"'Salem'"_s,    u"100000"_s, u"'900'"_s, u"4"_s,
                                u"NULL"_s,  u"True"_s,      u"#1/2/2004#"_s, u"''"_s,     u"2.5"_s,   u"LEN(CITY)"_s,
                                u"UCASE(CITY)"_s, u"ROOMS + 1"_s, u"VAL(GLA)"_s};
    const QStringList patterns = {u"'*a?*'"_s, u"'[A-D]*'"_s, u"'#*'"_s, u"'*[!0-9]'"_s,
                                  u"'[s'"_s,   u"CITY"_s,       u"UCASE('[s')"_s, u"''"_s};
    const QStringList symbols = {u"="_s, u"<>"_s, u"<"_s, u"<="_s, u">"_s, u">="_s};
    std::mt19937 random(20'261'122);
    const auto below = [&](qsizetype limit) {
        return static_cast<qsizetype>(random() % static_cast<quint32>(limit));
    };
    const auto value = [&] { return values[below(values.size())]; };
    const std::function<QString(int)> condition = [&](int depth) -> QString {
        if (depth > 0 && below(3) == 0)
            return u"(%1 %2 %3)"_s.arg(condition(depth - 1), below(2) == 0 ? u"AND"_s : u"OR"_s,
                                       condition(depth - 1));
        switch (below(7)) {
        case 0:
            return u"NOT (%1 = %2)"_s.arg(value(), value());
        case 1:
            return u"%1 BETWEEN %2 AND %3"_s.arg(value(), value(), value());
        case 2:
            return u"%1 IN (%2, %3)"_s.arg(value(), value(), value());
        case 3:
            return u"%1 %2LIKE %3"_s.arg(value(), below(2) == 0 ? u"NOT "_s : QString(),
                                         patterns[below(patterns.size())]);
        case 4:
            return u"%1 IS NOT NULL"_s.arg(value());
        default:
            return u"%1 %2 %3"_s.arg(value(), symbols[below(symbols.size())], value());
        }
    };
    constexpr int kRounds = 500;
    int some = 0;
    for (int round = 0; round < kRounds; ++round) {
        const QString sql = u"SELECT CENTRALKEY FROM COMPS WHERE "_s + condition(2);
        ExpectSame(sql);
        const QString answer = Answer(*native, sql);
        some += answer.isEmpty() || answer.startsWith(u"error"_s) ? 0 : 1;
        if (HasFailure())
            break;
    }
    if (!HasFailure()) {
        EXPECT_GT(some, kRounds / 4);
    }
}

} // namespace
} // namespace vasclip::engine
