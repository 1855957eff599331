#include "platform/engine/jet/findings.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A file can be damaged in more places than anybody reads about.
constexpr int kMost = 1000;

} // namespace

void Findings::Add(const QString& table, RowPointer row, const QString& field, const QString& what)
{
    if (m_lines.size() > kMost)
        return;
    const QString place = u"%1/%2/%3"_s.arg(table, QString::number(row.page == 0 ? 0 : row.Stored()), field);
    if (m_places.contains(place))
        return;
    m_places.insert(place);
    if (m_lines.size() == kMost) {
        m_lines.append(u"there is more damage than is listed here"_s);
        return;
    }
    QString line;
    if (!table.isEmpty())
        line = u"table %1"_s.arg(table);
    if (row.page != 0 && !table.isEmpty())
        line += u", row %1 of page %2"_s.arg(QString::number(row.row), QString::number(row.page));
    if (!field.isEmpty())
        line += u", field %1"_s.arg(field);
    m_lines.append(line.isEmpty() ? what : u"%1: %2"_s.arg(line, what));
}

} // namespace vasclip::engine::jet
