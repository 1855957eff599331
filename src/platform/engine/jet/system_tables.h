#pragma once

#include "platform/engine/jet/table_writer.h"

#include <QDateTime>

namespace vasclip::engine::jet {

/// Pages that every file begins with, up to the first that is free for tables.
inline constexpr quint32 kFreeMapsPage = 1;
inline constexpr quint32 kSystemMapsPage = 6;
inline constexpr quint32 kFirstFreePage = 16;

/// The four tables that the engine keeps about all others, of a new file.
class SystemTables
{
public:
    SystemTables(PageWriter& pages, MapWriter& maps);

    /// Lists a user's table.
    void List(const QString& name, quint32 definition) { m_listed.append({name, definition}); }
    /// Writes them. @param now  when the tables were made
    void Finish(const QDateTime& now);

private:
    struct Listed
    {
        QString name;
        quint32 page = 0;
    };
    void WriteObjects(const QDateTime& now);
    void WriteRights();

    QList<Listed> m_listed;
    TableWriter m_objects;
    TableWriter m_rights;
    TableWriter m_queries;
    TableWriter m_relations;
};

/// The first page of a new file.
[[nodiscard]] QByteArray HeaderPage();

} // namespace vasclip::engine::jet
