#include "demo/map_files.h"

#include "demo/map/sources.h"
#include "demo/market.h"
#include "platform/street/map_index.h"
#include "platform/text/runtime_error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

[[noreturn]] void Fail(const QString& why)
{
    throw RuntimeError(error::kPathFileAccess, u"The street map cannot be made: %1"_s.arg(why));
}

QString MapImporter()
{
    const QString suffix = QFileInfo(QCoreApplication::applicationFilePath()).suffix();
    return QCoreApplication::applicationDirPath() + u"/vasclip-mapdata"_s +
           (suffix.isEmpty() ? QString() : u'.' + suffix);
}

void Import(const QString& sources, const QString& maps)
{
    constexpr int kPatienceMs = 120000;
    QProcess importer;
    importer.start(MapImporter(),
                   {u"import"_s, sources, u"--to"_s, maps, u"--county"_s, QString::fromUtf16(kCountyName),
                    u"--state"_s, u"OR"_s, u"--source"_s, u"Vasclip demo"_s, u"--date"_s,
                    DemoToday().toString(Qt::ISODate)});
    if (!importer.waitForStarted() || !importer.waitForFinished(kPatienceMs))
        Fail(u"%1: %2"_s.arg(MapImporter(), importer.errorString()));
    if (importer.exitStatus() != QProcess::NormalExit || importer.exitCode() != 0)
        Fail(QString::fromUtf8(importer.readAllStandardError()).trimmed());
}

/// An import names its files by the time; a home is the same byte for byte whenever it is made.
void Settle(const QString& imported, const QString& maps)
{
    QString problem;
    const auto index = street::MapIndex::Open(imported, problem);
    if (!index)
        Fail(problem);
    std::vector<street::CountyRecord> counties = index->Counties();
    for (street::CountyRecord& county : counties) {
        const QString name = county.info.county + u"-demo"_s + QString::fromUtf16(street::kCountyEnd);
        if (!QFile::copy(imported + u'/' + county.file, maps + u'/' + name))
            Fail(u"%1 can't be written"_s.arg(maps + u'/' + name));
        if (!street::MakeRecord(maps, name, county, problem))
            Fail(problem);
    }
    if (!street::WriteIndex(maps, counties, problem))
        Fail(problem);
}

} // namespace

bool HasMapImporter()
{
    return QFileInfo(MapImporter()).isExecutable();
}

void MakeMap(const files::Disk& disk, const QString& directory)
{
    const QTemporaryDir work;
    if (!work.isValid())
        Fail(work.errorString());
    const QString sources = work.filePath(u"sources"_s);
    if (!QDir().mkpath(sources))
        Fail(u"%1 can't be made"_s.arg(sources));
    WriteMapSources(sources);
    const QString imported = work.filePath(u"maps"_s);
    Import(sources, imported);
    Settle(imported, disk.ToNative(directory));
}

QString ReadyMap()
{
    return QCoreApplication::applicationDirPath() + u"/demo-map"_s;
}

bool CopyMap(const files::Disk& disk, const QString& ready, const QString& directory)
{
    const QStringList names = QDir(ready).entryList(QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString target = disk.ToNative(directory) + u'/' + name;
        if (!QFile::copy(ready + u'/' + name, target))
            Fail(u"%1 can't be written"_s.arg(target));
    }
    return !names.isEmpty();
}

} // namespace vasclip::demo
