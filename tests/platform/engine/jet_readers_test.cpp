// Independent readers see in a genuine file of ours what went in. Each test is skipped where its reader is not installed:
// mdbtools, and the JavaScript package mdb-reader, which NODE_PATH leads to.

#include "platform/engine/jet/column_value.h"
#include "platform/engine/jet_rows.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>

#include <cmath>

namespace vasclip::engine {
namespace {

const QString kFile = u"C:\\NEW.MDB"_s;

struct Ran
{
    int code = 0;
    QByteArray out;
};

/// Runs a program; nothing if it is not installed.
std::optional<Ran> Start(const QString& program, const QStringList& arguments)
{
    const QString found = QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        return std::nullopt;
    QProcess process;
    process.start(found, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000));
    return Ran{process.exitCode(), process.readAllStandardOutput()};
}

std::optional<QByteArray> Output(const QString& program, const QStringList& arguments)
{
    const auto ran = Start(program, arguments);
    if (!ran)
        return std::nullopt;
    EXPECT_EQ(ran->code, 0) << program.toStdString();
    return ran->out;
}

struct JetReadersTest : testing::Test
{
    JetReadersTest()
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), EveryType(), Edges());
        Fill(file.Content(), SmallComps(), Comps());
        EXPECT_EQ(file.Finish(), QStringList());
    }
    static QList<QVariantList> Comps()
    {
        return {{u"12 OAK ST"_s, u"Marlow"_s, u"250000"_s, u"3/7/2004"_s, u"1850"_s, u"a,b\nc \"d\""_s, {}},
                {u"14 OAK ST"_s, {}, u"9"_s, {}, {}, {}, QByteArray("\xFF\xD8picture")}};
    }

    Home home;
    const QString native = home.Native(u"NEW.MDB"_s);
};

TEST_F(JetReadersTest, MdbtoolsSeesTheSameValues)
{
    const auto tables = Output(u"mdb-tables"_s, {u"-1"_s, native});
    if (!tables)
        GTEST_SKIP() << "mdbtools is not installed";
    EXPECT_EQ(*tables, "KINDS\nCOMPS\n");
    EXPECT_EQ(Output(u"mdb-ver"_s, {native})->trimmed(), "JET4");
    EXPECT_EQ(Output(u"mdb-count"_s, {native, u"KINDS"_s})->trimmed(), "9");
    EXPECT_EQ(Output(u"mdb-export"_s, {u"-b"_s, u"hex"_s, native, u"COMPS"_s})->toStdString(),
              std::string("CENTRALKEY,CITY,SELLINGPR,SALEDATE,GLA,PHOTOS,FRONTPHOTO\n"
              "\"12 OAK ST\",\"Marlow\",\"250000\",\"3/7/2004\",\"1850\",\"a,b\nc \"\"d\"\"\",\n"
              "\"14 OAK ST\",,\"9\",,,,\"FFD870696374757265\"\n"));
    const QByteArray kinds = *Output(u"mdb-export"_s, {u"-b"_s, u"strip"_s, u"-T"_s, u"%Y-%m-%d %H:%M:%S"_s, native, u"KINDS"_s});
    for (const char* line : {"\"most\",1,255,32767,2147483647,92233720368.4775,3.25", "2199-12-31 23:59:59",
                             "\"least\",1,0,-32768,-2147483648,-92233720368.4775,-1.5", "\u4E2D\u6587"})
        EXPECT_TRUE(kinds.contains(line)) << line << " is not in " << kinds.left(3000).toStdString();
}

/// Tables in their order, each with its columns and rows; 3 as the exit code where the package is not there.
const QString kScript = uR"js(
const fs = require("fs"), url = require("url");
let path;
try { path = require.resolve("mdb-reader"); } catch { process.exit(3); }
const plain = (value) =>
    value === undefined || value === null ? null
    : value instanceof Date ? value.getTime()
    : Buffer.isBuffer(value) || value instanceof Uint8Array ? Buffer.from(value).toString("base64")
    : typeof value === "bigint" ? value.toString() : value;
import(url.pathToFileURL(path)).then(({ default: MDBReader }) => {
    const reader = new MDBReader(fs.readFileSync(process.argv[1]));
    process.stdout.write(JSON.stringify(reader.getTableNames().map((name) => {
        const table = reader.getTable(name), columns = table.getColumnNames();
        return { name, columns, rows: table.getData().map((row) => columns.map((column) => plain(row[column]))) };
    })));
});
)js"_s;

bool IsSame(const Field& field, const QJsonValue& seen, const QVariant& stored)
{
    if (!stored.isValid())
        return seen.isNull();
    switch (field.type) {
    case FieldType::Boolean:
        return seen.isBool() && seen.toBool() == stored.toBool();
    case FieldType::Currency: // which a text keeps exactly
        return seen.isString() && seen.toString().toDouble() == stored.toDouble();
    case FieldType::Date: {
        // It counts the hours of a day before the first one backwards: what is compared is the number that is stored.
        constexpr double kDay = 86'400'000;
        constexpr double kFirstDay = -25569;
        return seen.isDouble() && std::abs(seen.toDouble() / kDay - kFirstDay - jet::SerialOf(stored.toDateTime())) < 1e-8;
    }
    case FieldType::Text:
    case FieldType::Memo:
        return seen.isString() && seen.toString() == stored.toString();
    case FieldType::Binary:
    case FieldType::LongBinary:
        return seen.isString() && QByteArray::fromBase64(seen.toString().toLatin1()) == stored.toByteArray();
    default:
        return seen.isDouble() && seen.toDouble() == stored.toDouble();
    }
}

TEST_F(JetReadersTest, AJavaScriptReaderSeesTheSameValues)
{
    const auto ran = Start(u"node"_s, {u"-e"_s, kScript, native});
    if (!ran)
        GTEST_SKIP() << "node is not installed";
    if (ran->code == 3)
        GTEST_SKIP() << "NODE_PATH leads to no package mdb-reader";
    ASSERT_EQ(ran->code, 0);
    const QJsonArray tables = QJsonDocument::fromJson(ran->out).array();
    ASSERT_EQ(tables.size(), 2);
    const QList<std::pair<TableDef, QList<QVariantList>>> stored{{EveryType(), Edges()}, {SmallComps(), Comps()}};
    for (int at = 0; at < 2; ++at) {
        const auto& [table, rows] = stored[at];
        EXPECT_EQ(tables[at][u"name"_s], table.name);
        const QJsonArray columns = tables[at][u"columns"_s].toArray();
        ASSERT_EQ(columns.size(), table.fields.size());
        const QJsonArray seen = tables[at][u"rows"_s].toArray();
        ASSERT_EQ(seen.size(), rows.size());
        for (int field = 0; field < columns.size(); ++field) {
            EXPECT_EQ(columns[field], table.fields[field].name);
            for (int row = 0; row < rows.size(); ++row)
                EXPECT_TRUE(IsSame(table.fields[field], seen[row][field], rows[row][field]))
                    << rows[row][0].toString().toStdString() << ": " << table.fields[field].name.toStdString() << " is "
                    << QJsonDocument(QJsonArray{seen[row][field]}).toJson().left(200).toStdString();
        }
    }
}

} // namespace
} // namespace vasclip::engine
