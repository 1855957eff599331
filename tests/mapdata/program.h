#pragma once

#include "platform/street/map_change.h"
#include "platform/street/map_data.h"
#include "support/processes.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

/// A directory with sources and, in "maps", the maps made of them.
class ImportHome : public testing::Test
{
protected:
    [[nodiscard]] QString Below(const QString& name) const { return m_directory.filePath(name); }
    [[nodiscard]] QString Maps() const { return Below(u"maps"_s); }

    QString Put(const QString& name, const QByteArray& content) const
    {
        QFile file(Below(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    static Ended Run(const QStringList& arguments)
    {
        return ProgramHome::RunProgram(u"vasclip-mapdata"_s, arguments,
                                       QProcessEnvironment::systemEnvironment());
    }

    Ended Import(const QStringList& sources, const QStringList& options = {}) const
    {
        return Run(QStringList{u"import"_s} + sources +
                   QStringList{u"--to"_s, Maps(), u"--account"_s,
                               Below(u"account.txt"_s)} +
                   options);
    }

    [[nodiscard]] QByteArray Account() const
    {
        QFile file(Below(u"account.txt"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Everything at full detail, each edge once.
    struct Content
    {
        QStringList streets; ///< "Main St 100-198 199-101" or with "(hidden)", sorted
        QStringList houses; ///< numbers, sorted
        QStringList areas;
        QStringList brooks;
        QStringList places;
        QStringList problems;
    };
    [[nodiscard]] Content Read() const
    {
        const street::MapData maps(Maps());
        Content content;
        for (const auto& cell : maps.Cells(maps.Covered(), street::Level::Streets)) {
            for (const street::CellEdge& edge : cell->edges)
                content.streets.append(maps.StreetName(*cell, edge.street) + Numbers(edge.left) +
                                       Numbers(edge.right) +
                                       (edge.hidden ? u" (hidden)"_s : QString()));
            for (const street::CellHouse& house : cell->houses)
                content.houses.append(house.number);
            for (const street::MapArea& area : cell->areas)
                content.areas.append(area.name);
            for (const street::WaterLine& line : cell->waterLines)
                content.brooks.append(line.name);
            for (const street::PlaceName& place : cell->places)
                content.places.append(place.name);
        }
        for (QStringList* list : {&content.streets, &content.houses, &content.areas, &content.brooks, &content.places})
            list->sort();
        content.problems = maps.Problems();
        return content;
    }

private:
    static QString Numbers(const street::NumberRange& side)
    {
        return side.from.isEmpty() && side.to.isEmpty() ? QString()
                                                        : u' ' + side.from + u'-' + side.to;
    }

    QTemporaryDir m_directory;
};

} // namespace vasclip::tests
