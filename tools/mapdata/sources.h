#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vasclip::mapdata {

/// One file that GDAL can open.
struct Source
{
    QString shown; ///< its name for people: "tl_2021_30059_addrfeat.zip"
    QString path; ///< as GDAL opens it
    QString fips; ///< of its county (5 digits) or state (2), "us", or "" where its name doesn't say
    QString year; ///< of a TIGER/Line file, else ""
    bool openStreetMap = false;
    qint64 bytes = 1;
};

/// The sources behind what a user names: files, zipped files with everything in them, directories with everything
/// below them. What is no source is left out and told in `problems`, a sentence each.
[[nodiscard]] std::vector<Source> FindSources(const QStringList& names, QStringList& problems);

} // namespace vasclip::mapdata
