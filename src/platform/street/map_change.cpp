#include "platform/street/map_change.h"

#include "platform/street/county_file.h"
#include "platform/street/map_index.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr qsizetype kLongestName = 40;

QString End()
{
    return QString::fromUtf16(kCountyEnd);
}

QString IndexPath(const QString& directory)
{
    return directory + u'/' + QString::fromUtf16(kIndexName);
}

QString BesidePath(const QString& directory)
{
    return directory + u'/' + QString::fromUtf16(kBesideName);
}

QStringList CountyFiles(const QString& directory)
{
    return QDir(directory).entryList({u'*' + End()}, QDir::Files, QDir::Time);
}

auto Named(const QString& county)
{
    return [county](const CountyRecord& record) { return record.info.county == county; };
}

QString Said(const QString& name, const QString& problem)
{
    return name + u": "_s + problem;
}

} // namespace

QString NameFault(const QString& county)
{
    if (county.isEmpty() || county.trimmed() != county)
        return u"a county needs a name, with no blank at its ends"_s;
    if (county.size() > kLongestName)
        return u"the name of a county has at most %1 letters"_s.arg(kLongestName);
    const bool plain = std::all_of(county.begin(), county.end(), [](QChar letter) {
        return letter.isLetterOrNumber() || letter == u' ' || letter == u'_' || letter == u'-';
    });
    return plain ? QString() : u"the name of a county has letters, digits, blanks, - and _ alone"_s;
}

bool MapChange::Begin(QString& problem)
{
    if (!QDir().mkpath(m_directory)) {
        problem = u"the directory can't be made: %1"_s.arg(m_directory);
        return false;
    }
    if (!m_lock.Take(m_directory + u"/F1.lock"_s, 0, files::FileLock::After::Goes)) {
        problem = m_lock.HeldByOther() ? u"another program is changing the maps of this directory"_s
                                       : u"the directory may not be written: %1"_s.arg(m_directory);
        return false;
    }
    QString wrong;
    if (const std::unique_ptr<MapIndex> index = MapIndex::Open(m_directory, wrong)) {
        m_before = m_counties = index->Counties();
        return true;
    }
    if (QFile::exists(IndexPath(m_directory)) || !CountyFiles(m_directory).isEmpty()) {
        m_notes.append(Said(QString::fromUtf16(kIndexName), wrong));
        Recover();
        m_before = m_counties;
    }
    return true;
}

void MapChange::Recover()
{
    // The newest first: of two files of a county, the older one was not yet swept.
    for (const QString& name : CountyFiles(m_directory)) {
        CountyRecord record;
        QString problem;
        if (!MakeRecord(m_directory, name, record, problem)) {
            m_notes.append(Said(name, problem));
            continue;
        }
        if (std::none_of(m_counties.begin(), m_counties.end(), Named(record.info.county)))
            m_counties.push_back(std::move(record));
    }
}

QString MapChange::NewFile(const QString& county) const
{
    // By chance: two imports must not meet, not even from two machines.
    const QString stamp = QString::number(QRandomGenerator::system()->generate64(), 36);
    return m_directory + u'/' + county + u'-' + stamp + End();
}

bool MapChange::Put(const QString& path, QString& problem)
{
    CountyRecord record;
    if (!MakeRecord(m_directory, QFileInfo(path).fileName(), record, problem))
        return false;
    (void)Remove(record.info.county);
    m_counties.push_back(std::move(record));
    return true;
}

bool MapChange::Remove(const QString& county)
{
    return std::erase_if(m_counties, Named(county)) > 0;
}

bool MapChange::Commit(QString& problem)
{
    if (!WriteIndex(m_directory, m_counties, problem))
        return false;
    // What waited beside was made for the maps as they were.
    QFile::remove(BesidePath(m_directory));
    Sweep();
    return true;
}

bool MapChange::CommitBeside(QString& problem)
{
    QString wrong;
    // Without an index every file would count as a map in use, the new ones too.
    if (!MapIndex::Open(m_directory, wrong) && !WriteIndex(m_directory, m_before, problem))
        return false;
    if (!WriteIndex(m_directory, m_counties, problem, kBesideName))
        return false;
    Sweep(m_before);
    return true;
}

void MapChange::Sweep(const std::vector<CountyRecord>& alsoUsed) const
{
    for (const QString& name : CountyFiles(m_directory)) {
        const auto isIt = [&name](const CountyRecord& record) { return record.file == name; };
        const bool used = std::any_of(m_counties.begin(), m_counties.end(), isIt) ||
                          std::any_of(alsoUsed.begin(), alsoUsed.end(), isIt);
        if (!used)
            QFile::remove(m_directory + u'/' + name);
    }
    // An index that a killed program was writing.
    const QStringList litter = QDir(m_directory).entryList({u".vasclip-*.tmp"_s}, QDir::Files | QDir::Hidden);
    for (const QString& name : litter)
        QFile::remove(m_directory + u'/' + name);
}

bool HasMapsBeside(const QString& directory)
{
    return QFile::exists(BesidePath(directory));
}

QStringList MapsBeside(const QString& directory)
{
    QString problem;
    const std::unique_ptr<MapIndex> beside = MapIndex::Open(directory, problem, kBesideName);
    const std::unique_ptr<MapIndex> inUse = MapIndex::Open(directory, problem);
    QStringList counties;
    if (!beside)
        return counties;
    for (const CountyRecord& record : beside->Counties()) {
        const bool same = inUse && std::any_of(inUse->Counties().begin(), inUse->Counties().end(),
                                               [&record](const CountyRecord& old) { return old.file == record.file; });
        if (!same)
            counties.append(record.info.county);
    }
    return counties;
}

bool UseMapsBeside(const QString& directory, QString& problem)
{
    MapChange change(directory);
    if (!change.Begin(problem))
        return false;
    std::unique_ptr<MapIndex> beside = MapIndex::Open(directory, problem, kBesideName);
    if (!beside) {
        problem = HasMapsBeside(directory) ? Said(QString::fromUtf16(kBesideName), problem)
                                           : u"no new maps wait beside those in use"_s;
        return false;
    }
    const std::vector<CountyRecord> counties = beside->Counties();
    beside.reset(); // Windows takes away no file that is open
    for (const CountyRecord& record : counties)
        if (!change.Put(directory + u'/' + record.file, problem))
            return false;
    return change.Commit(problem);
}

bool DropMapsBeside(const QString& directory, QString& problem)
{
    MapChange change(directory);
    if (!change.Begin(problem))
        return false;
    if (!QFile::remove(BesidePath(directory)) && HasMapsBeside(directory)) {
        problem = u"%1 can't be deleted"_s.arg(QString::fromUtf16(kBesideName));
        return false;
    }
    change.Forget();
    return true;
}

QStringList VerifyMaps(const QString& directory,
                       const std::function<bool(qint64, qint64, const QString&)>& progress)
{
    QString problem;
    const std::unique_ptr<MapIndex> index = MapIndex::Open(directory, problem);
    if (!index)
        return {Said(QString::fromUtf16(kIndexName), problem)};
    QStringList problems;
    qint64 read = 0;
    const auto all = static_cast<qint64>(index->Counties().size());
    for (const CountyRecord& record : index->Counties()) {
        if (progress && !progress(read++, all, record.info.county))
            break;
        const QString path = directory + u'/' + record.file;
        problem.clear();
        const std::unique_ptr<CountyFile> file = CountyFile::Open(path, problem);
        if (file && file->Info() != record.info)
            problem = u"the file is of another map than the index says"_s;
        else if (file && file->ReadsWhole(problem) && ChecksumOf(path) != record.checksum)
            problem = u"the file is not as it was written"_s;
        if (!problem.isEmpty())
            problems.append(Said(record.info.county, problem));
    }
    return problems;
}

} // namespace vasclip::street
