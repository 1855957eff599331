#pragma once

#include "platform/street/county_info.h"
#include "platform/street/lookup_reader.h"
#include "platform/street/sql.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vasclip::street {

/// The name of the index in a directory of maps. It alone says which files count.
inline constexpr char16_t kIndexName[] = u"F1";
/// An index of the same directory with maps that are not in use yet: all as they will be then.
inline constexpr char16_t kBesideName[] = u"F1-beside";
/// What the name of a county's file ends in.
inline constexpr char16_t kCountyEnd[] = u".cel";

/// The index of a directory of maps, open for reading.
class MapIndex
{
public:
    /// @param directory  native
    /// @return null with the reason in `problem`
    [[nodiscard]] static std::unique_ptr<MapIndex> Open(const QString& directory, QString& problem,
                                                        QStringView name = kIndexName);

    /// All maps, by their numbers.
    [[nodiscard]] const std::vector<CountyRecord>& Counties() const { return m_counties; }
    [[nodiscard]] sqlite3* Handle() const { return m_file.get(); }
    /// Which counties can have a street, a ZIP or a place.
    [[nodiscard]] const NameIndex& Names() const { return *m_names; }

private:
    MapIndex() = default;

    SqlFile m_file;
    std::unique_ptr<const NameIndex> m_names;
    std::vector<CountyRecord> m_counties;
};

/// Replaces the index of a directory whole: a reader finds the old one or the new one, even after a crash.
/// @param counties  whose files are there; numbered anew from 1 on, by their names
/// @return false with the reason in `problem`; the old index then stands
[[nodiscard]] bool WriteIndex(const QString& directory, std::vector<CountyRecord> counties, QString& problem,
                              QStringView name = kIndexName);

/// A map's record, with the checksum of its file as it lies. @return false with the reason in `problem`
[[nodiscard]] bool MakeRecord(const QString& directory, const QString& file, CountyRecord& record, QString& problem);

/// BLAKE2b-256 of a file; empty where it can't be read.
[[nodiscard]] QByteArray ChecksumOf(const QString& path);

} // namespace vasclip::street
