#include "app/vasctl/session.h"

#include "common/paths.h"
#include "platform/text/text.h"
#include "upkeep/import_table.h"

#include <QJsonArray>
#include <QJsonObject>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kUsageText = "Usage: vasctl import FILE [--table NAME] [--pictures]"_L1;

/// A bare name stands in the import directory.
QString SourceOf(Session& session, const QString& given)
{
    const bool bare = !given.contains(u'\\') && !given.contains(u'/');
    return bare ? common::CkRSlash(session.Home().globals.G_ImportDir) + given : DrivePathOf(session.Disk(), given);
}

} // namespace

int RunImport(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    if (arguments.size() != 1 || arguments[0].isEmpty()) {
        out.Error(kUsageText);
        return kUsage;
    }
    const QString source = SourceOf(session, arguments[0]);
    if (source.isEmpty() || !session.Disk().Found(source, files::ReadOnly | files::Hidden)) {
        out.Error(u"File %1 does not exist."_s.arg(source.isEmpty() ? arguments[0] : source));
        return kNotFound;
    }
    shell::Program& program = session.WithDatabook();
    const upkeep::TransferDesk desk{
        .databook = program.sources.datDatabook, .globals = program.globals, .ports = session.Ports()};
    const QString name = source.mid(source.lastIndexOf(u'\\') + 1);
    if (text::Folded(source) == text::Folded(desk.Databook())) {
        out.Error(u"Cannot Import %1 unto itself!"_s.arg(name));
        return kUsage;
    }
    if (name.contains(u'-')) {
        out.Error(u"The file '%1' contains dashes (-) and must be renamed before it can be imported."_s.arg(name));
        return kUsage;
    }
    ProgressLine line(out);
    const QString table = options.isSet(u"table"_s) ? options.value(u"table"_s) : program.globals.G_ImportTable;
    const upkeep::ImportResult result = upkeep::ImportTable(
        desk, {.source = source, .table = text::Trim(table), .pictures = options.isSet(u"pictures"_s)},
        [&line](qint64 done, qint64 of, const QString& words) {
            line.Show(words, done, of);
            return true;
        });
    line.Clear();
    const QStringList account = upkeep::AccountOf(result);
    const QString words = upkeep::WordsOf(result);
    if (!out.Json())
        for (const QString& one : account)
            out.Line(one);
    QJsonArray refused;
    for (const upkeep::RefusedRow& row : result.refused)
        refused.append(QJsonObject{{u"key"_s, row.key}, {u"why"_s, row.why}});
    out.Value({{u"file"_s, source},
               {u"table"_s, result.table},
               {u"rows"_s, result.rows},
               {u"added"_s, result.appended},
               {u"refused"_s, refused},
               {u"fieldsLeftBehind"_s, QJsonArray::fromStringList(result.leftBehind)},
               {u"pictures"_s, QJsonObject{{u"written"_s, result.pictures.written},
                                           {u"writtenOver"_s, result.pictures.over},
                                           {u"there"_s, result.pictures.same},
                                           {u"kept"_s, result.pictures.kept},
                                           {u"refused"_s, QJsonArray::fromStringList(result.pictures.notSaved)}}},
               {u"message"_s, words}},
              words);
    return result.done ? kDone : result.pictures.declined ? kDeclined : kFailed;
}

} // namespace vasclip::vasctl
