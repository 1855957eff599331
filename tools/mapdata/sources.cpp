#include "mapdata/sources.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include <cpl_string.h>
#include <cpl_vsi.h>

#include <algorithm>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;

const QStringList& Endings()
{
    static const QStringList endings{u".shp"_s, u".pbf"_s,     u".osm"_s,        u".csv"_s,       u".geojson"_s,
                                     u".json"_s, u".geojsonl"_s, u".geojson.gz"_s, u".csv.gz"_s, u".gpkg"_s,
                                     u".fgb"_s};
    return endings;
}

bool IsSource(const QString& name)
{
    return std::any_of(Endings().begin(), Endings().end(),
                       [&name](const QString& end) { return name.endsWith(end, Qt::CaseInsensitive); });
}

Source Described(const QString& shown, const QString& path, qint64 bytes)
{
    Source source;
    source.shown = shown;
    source.path = path;
    source.bytes = std::max<qint64>(1, bytes);
    source.openStreetMap = path.endsWith(u".osm"_s, Qt::CaseInsensitive) ||
                           path.endsWith(u".pbf"_s, Qt::CaseInsensitive);
    static const QRegularExpression tiger(u"^tl_(?:rd)?(\\d{4}|\\d{2})_(\\d{5}|\\d{2}|us)_"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    if (const auto match = tiger.match(QFileInfo(path).fileName()); match.hasMatch()) {
        source.year = match.captured(1).size() == 2 ? u"20"_s + match.captured(1) : match.captured(1);
        source.fips = match.captured(2).toLower();
    }
    return source;
}

void TakeZip(const QFileInfo& file, std::vector<Source>& sources, QStringList& problems)
{
    const QString zip = u"/vsizip/"_s + file.absoluteFilePath();
    char** const inside = VSIReadDirRecursive(zip.toUtf8().constData());
    std::vector<QString> names;
    for (int at = 0; inside && inside[at]; ++at) {
        if (const QString name = QString::fromUtf8(inside[at]); IsSource(name))
            names.push_back(name);
    }
    CSLDestroy(inside);
    if (names.empty()) {
        problems.append(u"%1: it is no zip file that can be read, or has no map source in it"_s.arg(file.fileName()));
        return;
    }
    for (const QString& name : names)
        sources.push_back(Described(names.size() == 1 ? file.fileName() : file.fileName() + u'/' + name,
                                    zip + u'/' + name, file.size() / qint64(names.size())));
}

void TakeFile(const QFileInfo& file, std::vector<Source>& sources, QStringList& problems)
{
    const QString path = file.absoluteFilePath();
    if (path.endsWith(u".zip"_s, Qt::CaseInsensitive))
        TakeZip(file, sources, problems);
    else if (path.endsWith(u".gz"_s, Qt::CaseInsensitive))
        sources.push_back(Described(file.fileName(), u"/vsigzip/"_s + path, file.size()));
    else
        sources.push_back(Described(file.fileName(), path, file.size()));
}

} // namespace

std::vector<Source> FindSources(const QStringList& names, QStringList& problems)
{
    std::vector<Source> sources;
    for (const QString& name : names) {
        const QFileInfo info(name);
        if (info.isDir()) {
            QStringList files;
            for (QDirIterator at(name, QDir::Files, QDirIterator::Subdirectories); at.hasNext();) {
                const QString file = at.next();
                if (IsSource(file) || file.endsWith(u".zip"_s, Qt::CaseInsensitive))
                    files.append(file);
            }
            if (files.isEmpty())
                problems.append(u"%1: there is no map source in this directory"_s.arg(name));
            files.sort();
            for (const QString& file : files)
                TakeFile(QFileInfo(file), sources, problems);
        } else if (!info.exists()) {
            problems.append(u"%1: there is no such file"_s.arg(name));
        } else if (IsSource(name) || name.endsWith(u".zip"_s, Qt::CaseInsensitive)) {
            TakeFile(info, sources, problems);
        } else {
            problems.append(u"%1: its ending is none of a map source (%2, .zip)"_s.arg(name, Endings().join(u", "_s)));
        }
    }
    return sources;
}

} // namespace vasclip::mapdata
