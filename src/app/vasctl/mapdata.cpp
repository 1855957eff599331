#include "app/vasctl/map.h"
#include "app/vasctl/map_desk.h"
#include "map/map_data_words.h"
#include "map/moved_records.h"
#include "platform/street/geocode.h"
#include "platform/street/map_change.h"
#include "platform/street/map_data.h"
#include "platform/street/map_import.h"

#include <QProcess>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kTurnMs = 200;

/// A file of one of the program's drives, or as the system writes it.
QString Native(const Session& session, const QString& given)
{
    const bool drive = given.size() >= 2 && given[1] == u':' && given[0].isLetter();
    return drive ? session.Disk().ToNative(given) : given;
}

int Import(Session& session, const Output& out, const QStringList& words, const QCommandLineParser& options)
{
    using Ending = street::ImportResult::Ending;
    street::ImportOrder order;
    for (const QString& source : words)
        order.sources.append(Native(session, source));
    order.directory = MapDirectory(session);
    order.county = options.value(u"county"_s);
    order.state = options.value(u"state"_s);
    order.source = options.value(u"source"_s);
    order.date = options.value(u"date"_s);
    if (options.isSet(u"account"_s))
        order.account = Native(session, options.value(u"account"_s));
    order.placing = options.isSet(u"beside"_s) ? street::Placing::Beside : street::Placing::InUse;
    street::ImportResult result;
    {
        ProgressLine line(out);
        street::MapImport import(order, [&line](int done, int of, const QString& doing) { line.Show(doing, done, of); });
        while (import.GoesOn(kTurnMs)) {
        }
        result = import.Result();
    }
    out.Value({{u"taken"_s, QJsonArray::fromStringList(result.taken)},
               {u"leftOut"_s, QJsonArray::fromStringList(result.leftOut)},
               {u"remarks"_s, QJsonArray::fromStringList(result.remarks)},
               {u"notes"_s, QJsonArray::fromStringList(result.notes)}},
              map::ImportLines(result).join(u'\n'));
    if (result.ending == Ending::Done)
        return kDone;
    out.Error(result.problem);
    return kFailed;
}

int Verify(Session& session, const Output& out)
{
    QStringList problems;
    {
        ProgressLine line(out);
        problems = street::VerifyMaps(MapDirectory(session), [&](qint64 read, qint64 all, const QString& county) {
            line.Show(map::mapdata_words::kReading.arg(county), read, all);
            return true;
        });
    }
    for (const QString& problem : std::as_const(problems))
        out.Error(problem);
    if (problems.isEmpty())
        out.Line(map::mapdata_words::kAllWhole);
    return problems.isEmpty() ? kDone : kFailed;
}

int Diff(Session& session, const Output& out)
{
    shell::MapParts* const map = OpenMap(session, out);
    if (!map)
        return kFailed;
    const QString directory = MapDirectory(session);
    const street::MapData inUse(directory);
    const street::MapGeocoder before(inUse);
    map::MoveTally tally;
    {
        ProgressLine line(out);
        const auto goesOn = [&line](qint64 seen, qint64 of) {
            line.Show(map::mapdata_words::kComparing.arg(seen).arg(of), seen, of);
            return true;
        };
        if (street::HasMapsBeside(directory)) {
            const street::MapData next(directory, {}, street::kBesideName);
            const street::MapGeocoder after(next);
            tally = map::CompareMaps(map->Desk(), &before, after, goesOn);
        } else {
            tally = map::CompareMaps(map->Desk(), nullptr, before, goesOn);
        }
    }
    QList<QStringList> rows;
    for (const map::MovedRecord& record : std::as_const(tally.moved))
        rows.append({record.key, record.gone ? QString() : QString::number(record.feet, 'f', 0),
                     Degrees(record.from.latitude), Degrees(record.from.longitude),
                     record.gone ? QString() : Degrees(record.to.latitude),
                     record.gone ? QString() : Degrees(record.to.longitude)});
    if (!rows.isEmpty() || out.Json())
        out.Table({u"key"_s, u"feet"_s, u"latitude"_s, u"longitude"_s, u"newLatitude"_s, u"newLongitude"_s}, rows,
                  {Kind::Text, Kind::Number, Kind::Number, Kind::Number, Kind::Number, Kind::Number});
    if (!out.Json())
        out.Line(map::WordsOf(tally));
    return kDone;
}

/// The importer does what is done in a moment, and says it itself.
int Hand(const Output& out, const QStringList& call)
{
    const QString program = street::MapImport::Program();
    QProcess importer;
    importer.setProcessChannelMode(QProcess::ForwardedChannels);
    importer.setInputChannelMode(QProcess::ForwardedInputChannel);
    importer.start(program, call);
    if (!importer.waitForStarted() || !importer.waitForFinished(-1)) {
        out.Error(u"%1: %2"_s.arg(program, importer.errorString()));
        return kFailed;
    }
    if (importer.exitStatus() == QProcess::NormalExit)
        return importer.exitCode();
    out.Error(u"The importer ended unexpectedly. The maps are as they were."_s);
    return kFailed;
}

} // namespace

int RunMapdata(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    const QStringList words = arguments.mid(1);
    const bool fits = verb == u"import"_s   ? !words.isEmpty()
                      : verb == u"remove"_s ? words.size() == 1
                                            : words.isEmpty();
    if (!fits) {
        out.Error(u"Usage: vasctl mapdata import SOURCE... [--county NAME] [--state ST] [--source WORDS] [--date DATE] "
                  u"[--account FILE] [--beside] | list | verify | diff | use | discard | remove COUNTY"_s);
        return kUsage;
    }
    if (verb == u"import"_s)
        return Import(session, out, words, options);
    if (verb == u"verify"_s)
        return Verify(session, out);
    if (verb == u"diff"_s)
        return Diff(session, out);
    QStringList call = QStringList{verb, MapDirectory(session)} + words;
    if (verb == u"list"_s && out.Json())
        call.append(u"--json"_s);
    return Hand(out, call);
}

} // namespace vasclip::vasctl
