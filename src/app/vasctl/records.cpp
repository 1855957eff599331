#include "app/vasctl/session.h"
#include "app/vasctl/set_fields.h"
#include "app/vasctl/where_option.h"

#include "common/error_block.h"
#include "databook/records.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"
#include "store/transaction.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList kListed{fields::CENTRALKEY, fields::CITY,     fields::APPRSLTYPE, fields::GLA,
                          fields::SELLINGPR,  fields::SALEDATE, fields::FRONT};

QString Missing(const QString& key)
{
    return u"There is no record '%1' in the Databook. 'vasctl records list' shows what is there."_s.arg(
        databook::KeyOf(key));
}

int ExitOf(databook::RecordOutcome outcome)
{
    switch (outcome) {
    case databook::RecordOutcome::Done:
        return kDone;
    case databook::RecordOutcome::NotFound:
        return kNotFound;
    case databook::RecordOutcome::Blank:
    case databook::RecordOutcome::Invalid:
    case databook::RecordOutcome::TooLong:
    case databook::RecordOutcome::UnknownType:
        return kUsage;
    case databook::RecordOutcome::Abandoned:
        return kDeclined;
    case databook::RecordOutcome::Duplicate:
    case databook::RecordOutcome::Itself:
        return kFailed;
    }
    return kFailed;
}

int Report(const Output& out, const databook::RecordResult& result, const QString& done)
{
    if (result)
        out.Line(done);
    else
        out.Error(result.message);
    return ExitOf(result.outcome);
}

int List(Session& session, const Output& out, const QCommandLineParser& options)
{
    const std::optional<qint64> limit = LimitOf(out, options);
    const std::optional<QString> where = WhereOf(session, out, options);
    if (!limit || !where)
        return kUsage;
    auto& program = session.WithDatabook();
    QString sql = u"SELECT "_s + kListed.join(u", "_s) + u" FROM ["_s + program.globals.G_Table + u"]"_s;
    if (!where->isEmpty())
        sql += u" WHERE "_s + *where;
    sql += u" ORDER BY "_s + (options.isSet(u"sort"_s) ? options.value(u"sort"_s) : fields::CENTRALKEY);
    const std::optional<store::Rows> rows = OpenTyped(program.sources.datDatabook.Database(), sql, out);
    if (!rows)
        return kUsage;

    std::vector<qint64> places(static_cast<std::size_t>(std::min(*limit, rows->Count())));
    std::iota(places.begin(), places.end(), qint64{0});
    PrintComps(out, *rows, places);
    return kDone;
}

int Show(Session& session, const Output& out, const QString& key, bool everything)
{
    store::DataSource& databook = session.WithDatabook().sources.datDatabook;
    std::optional<store::Record> record;
    if (store::FindRecord(session.Ports(), databook, databook::KeyOf(key), u"Centralkey"_s)) // which tells what to repair
        common::Guarded(session.Ports().prompter,
                        [&] { record = store::ReadRecord(databook, databook::KeyOf(key)); });
    if (!record) {
        out.Error(Missing(key));
        return kNotFound;
    }
    QList<std::pair<QString, QString>> facts;
    for (const engine::Field& field : databook.Fields()) {
        if (field.type == engine::FieldType::LongBinary)
            continue;
        const QString value = record->Text(field.name);
        const bool wanted = everything ? !value.isEmpty() : kListed.contains(field.name);
        if (wanted)
            facts.append({field.name, value});
    }
    out.Facts(facts, KindOf);
    return kDone;
}

} // namespace

std::optional<qint64> LimitOf(const Output& out, const QCommandLineParser& options)
{
    if (!options.isSet(u"limit"_s))
        return std::numeric_limits<qint64>::max();
    bool number = false;
    const qint64 limit = options.value(u"limit"_s).toLongLong(&number);
    if (number && limit >= 0)
        return limit;
    out.Error(u"--limit takes a whole number of 0 or more, not '%1'."_s.arg(options.value(u"limit"_s)));
    return std::nullopt;
}

void PrintComps(const Output& out, const store::Rows& rows, const std::vector<qint64>& places)
{
    QList<QStringList> table;
    for (const qint64 place : places) {
        QStringList line;
        if (const auto record = rows.At(place))
            for (const QString& field : kListed)
                line.append(record->Text(field));
        table.append(line);
    }
    QList<Kind> kinds;
    for (const QString& field : kListed)
        kinds.append(KindOf(field));
    out.Table(kListed, table, kinds);
}

std::optional<store::Rows> OpenTyped(engine::Database& database, const QString& statement, const Output& out)
{
    try {
        return store::Rows(database, statement);
    } catch (const RuntimeError& failure) {
        for (const int wrong : {error::kSyntax, error::kParameterUnknown, error::kTableUnknown, error::kFieldUnknown}) {
            if (failure.Number() == wrong) {
                out.Error(u"%1 (error %2)"_s.arg(failure.Description()).arg(wrong));
                return std::nullopt;
            }
        }
        throw;
    }
}

int RunRecords(Session& session, const Output& out, const QStringList& arguments,
               const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    const auto needs = [&](qsizetype count) { return arguments.size() == count + 1; };
    if (verb == u"list"_s && needs(0))
        return List(session, out, options);
    if ((verb == u"find"_s || verb == u"show"_s) && needs(1))
        return Show(session, out, arguments[1], verb == u"show"_s);

    if (verb == u"add"_s && needs(1)) {
        auto& program = session.WithDatabook();
        const QString type = options.isSet(u"type"_s) ? options.value(u"type"_s) : u"F"_s;
        if (type.size() != 1) {
            out.Error(u"--type takes one letter: F, C, S, R, L or M."_s);
            return kUsage;
        }
        store::Transaction together(program.sources.datDatabook);
        const auto added = databook::AddRecord(session.Ports(), program.sources.datDatabook, arguments[1],
                                               type[0], program.globals.addressCase);
        if (!added)
            return Report(out, added, {});
        if (const int wrong = SetFields(session, out, arguments[1], options.values(u"set"_s)); wrong != kDone)
            return wrong;
        together.Commit();
        return Report(out, added, u"%1 was added."_s.arg(databook::KeyOf(arguments[1])));
    }
    if (verb == u"edit"_s && needs(1)) {
        auto& program = session.WithDatabook();
        if (!store::FindRecord(session.Ports(), program.sources.datDatabook, databook::KeyOf(arguments[1]),
                               u"Centralkey"_s)) {
            out.Error(Missing(arguments[1]));
            return kNotFound;
        }
        if (!options.isSet(u"set"_s)) {
            out.Error(u"Say what to change with --set FIELD=VALUE."_s);
            return kUsage;
        }
        const int wrong = SetFields(session, out, arguments[1], options.values(u"set"_s));
        if (wrong == kDone)
            out.Line(u"%1 was changed."_s.arg(databook::KeyOf(arguments[1])));
        return wrong;
    }
    if (verb == u"delete"_s && needs(1)) {
        auto& program = session.WithDatabook();
        const QString key = databook::KeyOf(arguments[1]);
        if (!store::FindRecord(session.Ports(), program.sources.datDatabook, key, u"Centralkey"_s)) {
            out.Error(Missing(key));
            return kNotFound;
        }
        if (!session.Prompter().YesNo({}, u"Delete '"_s + key + u"'?"_s))
            return kDeclined;
        const auto deleted = databook::DeleteRecord(session.Ports(), program.sources.datDatabook, key,
                                                    {session.Disk(), program.globals.G_PhotoDir});
        if (deleted && !deleted.message.isEmpty()) {
            out.Error(deleted.message);
            return kFailed;
        }
        return Report(out, deleted, key + u" was deleted."_s);
    }
    if (verb == u"copy"_s && needs(2)) {
        auto& program = session.WithDatabook();
        return Report(
            out, databook::CopyRecord(session.Ports(), program.sources.datDatabook, arguments[1], arguments[2]),
            u"%1 was copied to %2."_s.arg(databook::KeyOf(arguments[1]), databook::KeyOf(arguments[2])));
    }
    if (verb == u"rename"_s && needs(2)) {
        auto& program = session.WithDatabook();
        return Report(
            out,
            databook::RenameRecord(session.Ports(), program.sources.datDatabook, arguments[1], arguments[2]),
            u"%1 is %2 now."_s.arg(databook::KeyOf(arguments[1]), databook::KeyOf(arguments[2])));
    }
    out.Error(u"Usage: vasctl records list | find KEY | show KEY | add KEY | edit KEY | delete KEY | copy "
              u"KEY NEW | "
              u"rename KEY NEW"_s);
    return kUsage;
}

} // namespace vasclip::vasctl
