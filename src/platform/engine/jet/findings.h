#pragma once

#include "platform/engine/jet/bytes.h"

#include <QSet>
#include <QStringList>

namespace vasclip::engine::jet {

/// What was found damaged in a file while it was read; each place is told once.
class Findings
{
public:
    /// @param row  where the trouble lies; page 0 for the table itself, or for the file where `table` is ""
    void Add(const QString& table, RowPointer row, const QString& field, const QString& what);

    [[nodiscard]] const QStringList& Lines() const { return m_lines; }
    [[nodiscard]] bool Empty() const { return m_lines.isEmpty(); }

private:
    QSet<QString> m_places;
    QStringList m_lines;
};

} // namespace vasclip::engine::jet
