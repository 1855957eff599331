#pragma once

#include "platform/street/county_info.h"
#include "platform/street/county_writer.h"
#include "platform/street/made_town.h"
#include "platform/street/map_change.h"

#include <gtest/gtest.h>

namespace vasclip {

/// Leaves the maps of the made-up town in a native directory. @param source  whose data they are, in words
inline void MakeMaps(const QString& directory, const QString& source = {})
{
    using namespace Qt::StringLiterals;
    const tests::MadeTown town;
    street::MapChange change(directory);
    QString problem;
    ASSERT_TRUE(change.Begin(problem)) << problem.toStdString();
    const QString path = change.NewFile(u"01001"_s);
    street::CountyInfo info;
    info.county = u"01001"_s;
    info.state = u"AL"_s;
    info.source = source;
    street::CountyWriter writer(path, info);
    for (const street::RoadEdge& edge : town.edges)
        writer.Add(edge);
    for (const street::AddressPoint& house : town.houses)
        writer.Add(house);
    for (const street::MapArea& area : town.areas)
        writer.Add(area);
    for (const street::PlaceName& place : town.places)
        writer.Add(place);
    for (const street::ZipArea& zip : town.zips)
        writer.Add(zip);
    ASSERT_TRUE(writer.Finish(problem)) << problem.toStdString();
    ASSERT_TRUE(change.Put(path, problem)) << problem.toStdString();
    ASSERT_TRUE(change.Commit(problem)) << problem.toStdString();
}

} // namespace vasclip
