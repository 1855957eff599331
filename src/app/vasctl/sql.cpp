#include "app/vasctl/session.h"

#include "platform/engine/health.h"
#include "platform/text/counted.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/store.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kBytes{u"byte)"_s, u"bytes)"_s};

bool IsBinary(const engine::Field& field)
{
    return field.type == engine::FieldType::Binary || field.type == engine::FieldType::LongBinary;
}

QString Shown(const engine::Field& field, const QVariant& value)
{
    if (!value.isValid())
        return {};
    if (IsBinary(field))
        return u'(' + kBytes(value.toByteArray().size());
    if (field.type == engine::FieldType::Date) {
        const QDateTime date = value.toDateTime();
        const bool midnight = date.time() == QTime(0, 0);
        return date.toString(midnight ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s);
    }
    return text::RTrim(value.toString());
}

/// What a file holds, for who doesn't know it yet.
void ListTables(engine::Database& database, const Output& out)
{
    QList<QStringList> rows;
    for (const QString& name : database.TableNames()) {
        try {
            rows.append({name, text::Dec(store::CountRows(database, name)), text::Dec(database.Table(name).fields.size())});
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kCorruptDatabase)
                throw;
            rows.append({name, {}, {}}); // the others can be read all the same
        }
    }
    out.Table({u"table"_s, u"records"_s, u"fields"_s}, rows, {Kind::Text, Kind::Number, Kind::Number});
}

/// Tables, rows and values that could not be read are missing: nobody must take what is there for whole.
bool TellsDamage(const engine::Database& database, const QString& path, const Output& out)
{
    const QString damage = engine::DamageOf(database);
    if (!damage.isEmpty())
        out.Error(u"%1 is damaged, and not all of it could be read: %2."_s.arg(path, damage));
    return !damage.isEmpty();
}

/// @param other  a file whose texts are what they are: in the Databook some columns of text hold numbers and dates
void PrintRows(const store::Rows& rows, bool other, const Output& out)
{
    QStringList headings;
    for (const engine::Field& field : rows.Fields())
        headings.append(field.name);
    QList<QStringList> table;
    QJsonArray objects;
    for (qint64 row = 0; row < rows.Count(); ++row) {
        const std::optional<store::Record> record = rows.At(row);
        QStringList line;
        QJsonObject object;
        for (int i = 0; record && i < headings.size(); ++i) {
            const engine::Field& field = rows.Fields()[i];
            const QVariant value = field.type == engine::FieldType::LongBinary ? rows.LongAt(row, i) : record->Values()[i];
            line.append(Shown(field, value));
            if (out.Json())
                object[headings[i]] = AsJson(field, value, line.last(), other ? Kind::Text : KindOf(headings[i]));
        }
        if (out.Json())
            objects.append(object);
        else
            table.append(line);
    }
    if (out.Json())
        out.Array(objects);
    else
        out.Table(headings, table);
}

} // namespace

int RunSql(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const bool other = options.isSet(u"file"_s);
    if (arguments.size() > 1 || (arguments.isEmpty() && !other)) {
        out.Error(u"Usage: vasctl sql [--file FILE] \"SELECT ...\"; a file without a statement lists its tables."_s);
        return kUsage;
    }
    if (!arguments.isEmpty() && !text::Folded(arguments[0]).startsWith(u"SELECT"_s)) {
        out.Error(u"Only SELECT statements run here; records are changed with 'vasctl records'."_s);
        return kUsage;
    }
    QString path;
    if (other) {
        path = DrivePathOf(session.Disk(), options.value(u"file"_s));
        if (path.isEmpty()) {
            out.Error(u"%1 lies on none of the program's drives; drives.ini maps more."_s.arg(options.value(u"file"_s)));
            return kUsage;
        }
    } else {
        auto& program = session.Home();
        path = program.globals.G_DataDir + program.globals.G_DataFile;
    }
    // A connection of its own that cannot write, whatever the statement says (SELECT INTO among them).
    const auto database = session.Engine().OpenDatabase(path, engine::OpenMode::ReadOnly);
    if (arguments.isEmpty()) {
        ListTables(*database, out);
        return TellsDamage(*database, path, out) ? kFailed : kDone;
    }
    const std::optional<store::Rows> rows = OpenTyped(*database, arguments[0], out);
    if (!rows)
        return TellsDamage(*database, path, out) ? kFailed : kUsage;
    PrintRows(*rows, other, out);
    return TellsDamage(*database, path, out) ? kFailed : kDone;
}

} // namespace vasclip::vasctl
