#include "mapdata/commands.h"

#include "mapdata/progress.h"
#include "platform/street/map_change.h"
#include "platform/street/map_index.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::CountyRecord;

void Print(const QString& line)
{
    std::printf("%s\n", line.toUtf8().constData());
}

QString Degrees(qint32 millionths)
{
    return QString::number(millionths / 1e6, 'f', 6);
}

QJsonObject AsJson(const CountyRecord& record)
{
    const street::CountyInfo& info = record.info;
    return {{u"county"_s, info.county},
            {u"state"_s, info.state},
            {u"streets"_s, info.edges},
            {u"houses"_s, info.houses},
            {u"areas"_s, info.areas},
            {u"source"_s, info.source},
            {u"date"_s, info.date},
            {u"bytes"_s, record.bytes},
            {u"checksum"_s, QString::fromLatin1(record.checksum.toHex())},
            {u"south"_s, info.extent.low.latitude / 1e6},
            {u"west"_s, info.extent.low.longitude / 1e6},
            {u"north"_s, info.extent.high.latitude / 1e6},
            {u"east"_s, info.extent.high.longitude / 1e6}};
}

QString AsLine(const CountyRecord& record)
{
    const street::CountyInfo& info = record.info;
    return QStringList{info.county,
                       info.state,
                       QString::number(info.edges),
                       QString::number(info.houses),
                       info.source,
                       info.date,
                       QString::number(record.bytes),
                       Degrees(info.extent.low.latitude) + u',' + Degrees(info.extent.low.longitude) + u' ' +
                           Degrees(info.extent.high.latitude) + u',' + Degrees(info.extent.high.longitude)}
        .join(u'\t');
}

} // namespace

void TellProblem(const QString& problem)
{
    std::fprintf(stderr, "vasclip-mapdata: %s\n", problem.toUtf8().constData());
}

int List(const QString& directory, bool json)
{
    QString problem;
    const std::unique_ptr<street::MapIndex> index = street::MapIndex::Open(directory, problem);
    if (!index) {
        TellProblem(u"%1/F1: %2"_s.arg(directory, problem));
        return kNoMap;
    }
    QJsonArray all;
    for (const CountyRecord& record : index->Counties()) {
        if (json)
            all.append(AsJson(record));
        else
            Print(AsLine(record));
    }
    if (json)
        std::printf("%s", QJsonDocument(all).toJson().constData());
    return kDone;
}

int Verify(const QString& directory)
{
    Progress progress(0);
    bool stopped = false;
    const QStringList problems =
        street::VerifyMaps(directory, [&](qint64 read, qint64 all, const QString& county) {
            if (read == 0)
                progress = Progress(all);
            else
                progress.End();
            progress.Begin(1, u"reading "_s + county);
            stopped = !progress.At(0);
            return !stopped;
        });
    for (const QString& problem : problems)
        TellProblem(problem);
    if (stopped)
        return kStopped;
    return problems.isEmpty() ? kDone : kFailed;
}

int Remove(const QString& directory, const QString& county)
{
    QString problem;
    if (!street::MapIndex::Open(directory, problem)) {
        TellProblem(u"%1/F1: %2"_s.arg(directory, problem));
        return kNoMap;
    }
    street::MapChange change(directory);
    if (!change.Begin(problem)) {
        TellProblem(problem);
        return kFailed;
    }
    if (!change.Remove(county)) {
        TellProblem(u"there is no map of %1 in %2"_s.arg(county, directory));
        return kNoMap;
    }
    if (change.Commit(problem))
        return kDone;
    TellProblem(problem);
    return kFailed;
}

int Use(const QString& directory)
{
    const bool there = street::HasMapsBeside(directory);
    QString problem = u"no new maps wait beside those of %1"_s.arg(directory);
    if (there && street::UseMapsBeside(directory, problem))
        return kDone;
    TellProblem(problem);
    return there ? kFailed : kNoMap;
}

int Discard(const QString& directory)
{
    const bool there = street::HasMapsBeside(directory);
    QString problem = u"no new maps wait beside those of %1"_s.arg(directory);
    if (there && street::DropMapsBeside(directory, problem))
        return kDone;
    TellProblem(problem);
    return there ? kFailed : kNoMap;
}

} // namespace vasclip::mapdata
