#include "mapdata/import.h"

#include "mapdata/county_build.h"
#include "mapdata/house_reader.h"
#include "mapdata/osm_order.h"
#include "mapdata/osm_reader.h"
#include "mapdata/progress.h"
#include "mapdata/sources.h"
#include "mapdata/states.h"
#include "mapdata/tiger_reader.h"
#include "mapdata/vector_file.h"
#include "platform/street/map_change.h"

#include <QDate>
#include <QDateTime>
#include <QFileInfo>

#include <algorithm>
#include <map>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;

/// Writing a county's file takes about as long as reading its sources.
constexpr qint64 kWriteShare = 1;

/// One layer of a source, found and not yet read.
struct Job
{
    const Source* source;
    LayerKind kind = LayerKind::Unknown; ///< of a layer; an OpenStreetMap file is read whole
    std::size_t layer = 0;
    std::shared_ptr<VectorFile> file; ///< open since it was looked at; null where it is opened anew
};

class Importer
{
public:
    Importer(const ImportOptions& options, Account& account)
        : m_options(options)
        , m_account(account)
    {}

    Outcome Run(QString& problem);

private:
    [[nodiscard]] bool Sort(QString& problem);
    [[nodiscard]] qint64 Units() const;
    Outcome MakeCounty(const QString& name, const std::vector<const Source*>& sources, street::MapChange& change,
                       Progress& progress, QString& problem);
    [[nodiscard]] std::vector<Job> Look(const Source& source);
    [[nodiscard]] bool Read(const Job& job, CountyBuild& county, const QString& name, Progress& progress);
    Outcome Write(CountyBuild& county, const street::CountyInfo& info, street::MapChange& change, Progress& progress,
                  QString& problem);
    [[nodiscard]] street::CountyInfo InfoOf(const QString& name, const std::vector<const Source*>& sources) const;
    void TellGdal(const QString& source);

    const ImportOptions& m_options;
    Account& m_account;
    GdalWords m_gdal;
    std::vector<Source> m_sources;
    std::map<QString, std::vector<const Source*>> m_counties;
};

bool Importer::Sort(QString& problem)
{
    QStringList problems;
    m_sources = FindSources(m_options.sources, problems);
    for (const QString& words : problems)
        m_account.Note(words);
    if (m_sources.empty()) {
        problem = problems.isEmpty() ? u"there is no map source"_s : problems.join(u"; "_s);
        return false;
    }
    std::vector<const Source*> shared;
    for (const Source& source : m_sources) {
        if (source.fips.size() == 5)
            m_counties[source.fips].push_back(&source);
    }
    const QString nameless = !m_options.county.isEmpty() ? m_options.county
                             : m_counties.size() == 1    ? m_counties.begin()->first
                                                         : QString();
    for (const Source& source : m_sources) {
        if (source.fips.size() == 5)
            continue;
        if (!source.fips.isEmpty() && m_options.county.isEmpty()) {
            shared.push_back(&source);
        } else if (nameless.isEmpty()) {
            problem = u"%1 doesn't tell its county; give it a name by --county"_s.arg(source.shown);
            return false;
        } else {
            m_counties[nameless].push_back(&source);
        }
    }
    // Files of a state or of the whole country serve each county that lies in it.
    for (const Source* source : shared) {
        bool serves = false;
        for (auto& [name, sources] : m_counties) {
            if (source->fips == u"us" || name.startsWith(source->fips)) {
                sources.push_back(source);
                serves = true;
            }
        }
        if (!serves)
            m_account.Note(u"%1: there is no county of its state among the sources; name one by --county"_s.arg(
                source->shown));
    }
    if (m_counties.empty()) {
        problem = u"no source tells a county; give a name by --county"_s;
        return false;
    }
    for (const auto& [name, sources] : m_counties) {
        if (const QString fault = street::NameFault(name); !fault.isEmpty()) {
            problem = fault;
            return false;
        }
    }
    return true;
}

qint64 Importer::Units() const
{
    qint64 units = 0;
    for (const auto& [name, sources] : m_counties) {
        for (const Source* source : sources)
            units += source->bytes * (1 + kWriteShare);
    }
    return units;
}

void Importer::TellGdal(const QString& source)
{
    for (const QString& words : m_gdal.Take())
        m_account.Note(source + u": "_s + words);
}

std::vector<Job> Importer::Look(const Source& source)
{
    QString problem;
    if (source.openStreetMap && !source.path.startsWith(u"/vsi")) {
        if (problem = OsmOrderFault(source.path); !problem.isEmpty()) {
            m_account.Note(source.shown + u": "_s + problem);
            return {};
        }
    }
    std::shared_ptr<VectorFile> file = VectorFile::Open(source.path, problem);
    if (!file) {
        (void)m_gdal.Take();
        m_account.Note(source.shown + u": "_s + problem);
        return {};
    }
    if (source.openStreetMap)
        return {Job{&source, LayerKind::Unknown, 0, nullptr}};
    std::vector<Job> jobs;
    const std::vector<VectorLayer> layers = file->Layers();
    for (std::size_t at = 0; at < layers.size(); ++at) {
        const LayerKind kind = KindOf(layers[at]);
        if (!layers[at].Problem().isEmpty())
            m_account.Note(u"%1: %2"_s.arg(source.shown, layers[at].Problem()));
        else if (kind == LayerKind::Unknown)
            m_account.Note(u"%1: it has no columns of streets, house numbers, places or water that are known"_s.arg(
                source.shown));
        else
            jobs.push_back({&source, kind, at, file});
        if (kind == LayerKind::Lines)
            m_account.Note(u"%1: its .dbf is missing or has no names, so its streets are drawn without names and "
                           u"nothing is found on them"_s.arg(source.shown));
        if (layers[at].IsWithoutReference() && source.path.endsWith(u".shp"_s, Qt::CaseInsensitive))
            m_account.Note(u"%1: its .prj is missing; its coordinates are taken as degrees (WGS84)"_s.arg(source.shown));
    }
    TellGdal(source.shown);
    return jobs;
}

bool Importer::Read(const Job& job, CountyBuild& county, const QString& name, Progress& progress)
{
    QString problem;
    const std::shared_ptr<VectorFile> file = job.file ? job.file : VectorFile::Open(job.source->path, problem);
    if (!file) {
        m_account.Note(job.source->shown + u": "_s + problem);
        return true;
    }
    county.From(job.source->shown);
    const LayerJob layerJob{county, m_account, job.source->shown,
                            job.source->fips.size() == 2 ? name.left(2) : QString(),
                            [&progress](double share) { return progress.At(share); }};
    bool done = true;
    if (job.source->openStreetMap) {
        done = ReadOsm(*file, layerJob);
    } else {
        std::vector<VectorLayer> layers = file->Layers();
        VectorLayer& layer = layers[job.layer];
        done = job.kind == LayerKind::Houses ? ReadHouses(layer, layerJob) : ReadTiger(layer, job.kind, layerJob);
    }
    TellGdal(job.source->shown);
    return done;
}

street::CountyInfo Importer::InfoOf(const QString& name, const std::vector<const Source*>& sources) const
{
    street::CountyInfo info;
    info.county = name;
    const bool isFips = name.size() == 5 && std::all_of(name.begin(), name.end(), [](QChar c) { return c.isDigit(); });
    info.state = isFips ? StateOf(name) : m_options.state.toUpper();
    QStringList kinds;
    QString date;
    for (const Source* source : sources) {
        const QString kind = !source->year.isEmpty()  ? u"TIGER/Line "_s + source->year
                             : source->openStreetMap ? u"OpenStreetMap"_s
                                                     : source->shown;
        if (!kinds.contains(kind))
            kinds.append(kind);
        const QString native = source->path.startsWith(u"/vsi") ? QString() : source->path;
        const QString own = !source->year.isEmpty() ? source->year
                            : native.isEmpty()      ? QString()
                                               : QFileInfo(native).lastModified().date().toString(Qt::ISODate);
        date = std::max(date, own);
    }
    info.source = m_options.source.isEmpty() ? kinds.join(u", "_s) : m_options.source;
    const QString licensed = u"OpenStreetMap"_s; // which has to be named on each map, whatever the user calls it
    if (kinds.contains(licensed) && !info.source.contains(licensed))
        info.source += u", "_s + licensed;
    info.date = m_options.date.isEmpty() ? date : m_options.date;
    return info;
}

Outcome Importer::Write(CountyBuild& county, const street::CountyInfo& info, street::MapChange& change,
                        Progress& progress, QString& problem)
{
    const QString path = change.NewFile(info.county);
    {
        street::CountyWriter writer(path, info);
        const auto first = [&progress](double share) { return progress.At(share / 2); };
        const auto second = [&progress](qint64 done, qint64 all) {
            return progress.At(0.5 + 0.5 * double(done) / double(std::max<qint64>(1, all)));
        };
        if (!county.Write(writer, first))
            return Outcome::Stopped;
        if (!writer.Finish(problem, second)) {
            if (!progress.At(1))
                return Outcome::Stopped;
            problem = u"the map of %1 can't be written: %2"_s.arg(info.county, problem);
            return Outcome::Failed;
        }
    }
    if (change.Put(path, problem))
        return Outcome::Done;
    problem = u"the map of %1 can't be read back: %2"_s.arg(info.county, problem);
    return Outcome::Failed;
}

Outcome Importer::MakeCounty(const QString& name, const std::vector<const Source*>& sources,
                             street::MapChange& change, Progress& progress, QString& problem)
{
    CountyBuild county(m_account);
    std::vector<Job> jobs;
    qint64 units = 0;
    for (const Source* source : sources) {
        const std::vector<Job> found = Look(*source);
        jobs.insert(jobs.end(), found.begin(), found.end());
        units += source->bytes;
    }
    std::stable_sort(jobs.begin(), jobs.end(),
                     [](const Job& one, const Job& other) { return OrderOf(one.kind) < OrderOf(other.kind); });
    for (const Job& job : jobs) {
        progress.Begin(units / qint64(jobs.size()), u"reading "_s + job.source->shown);
        if (!Read(job, county, name, progress))
            return Outcome::Stopped;
        progress.End();
    }
    if (county.IsEmpty()) {
        m_account.Note(u"%1: no street and no house was found, so there is no map of it"_s.arg(name));
        return Outcome::Done;
    }
    progress.Begin(units * kWriteShare, u"writing "_s + name);
    const Outcome written = Write(county, InfoOf(name, sources), change, progress, problem);
    progress.End();
    if (written == Outcome::Done)
        m_account.Took(u"counties"_s);
    return written;
}

Outcome Importer::Run(QString& problem)
{
    if (!Sort(problem))
        return Outcome::Failed;
    street::MapChange change(m_options.directory);
    if (!change.Begin(problem))
        return Outcome::Failed;
    for (const QString& note : change.Notes())
        m_account.Note(note);
    Progress progress(Units());
    for (const auto& [name, sources] : m_counties) {
        if (const Outcome made = MakeCounty(name, sources, change, progress, problem); made != Outcome::Done)
            return made;
    }
    if (!m_account.Taken().contains(u"counties"_s)) {
        problem = u"nothing was found that a map could be made of"_s;
        return Outcome::Failed;
    }
    if (!progress.At(1))
        return Outcome::Stopped;
    const bool stored = m_options.beside ? change.CommitBeside(problem) : change.Commit(problem);
    return stored ? Outcome::Done : Outcome::Failed;
}

} // namespace

Outcome Import(const ImportOptions& options, Account& account, QString& problem)
{
    PrepareOsm();
    GDALAllRegister();
    return Importer(options, account).Run(problem);
}

} // namespace vasclip::mapdata
