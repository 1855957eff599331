#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <vector>

namespace vasclip::street {

/// Finds names that were written with one or two typing errors, by few look-ups and with little on disk: a name
/// is kept under each of its thirds (its halves where it is short), and errors leave one of them as it was.
namespace pieces {

/// How many errors a name of that length may have and still be known: none below four letters.
[[nodiscard]] int ErrorsFor(qsizetype length);

/// Collects names for a file.
class Collector
{
public:
    void Add(const QString& name, quint32 number);
    /// A row for each bucket, by its number.
    [[nodiscard]] std::map<quint32, QByteArray> Rows();

private:
    struct Entry
    {
        quint32 key = 0;
        quint32 number = 0;
        auto operator<=>(const Entry&) const = default;
    };
    std::vector<Entry> m_entries;
};

/// Numbers of the names that can be like `name`, ascending; some of them are not.
/// @param row  reads a row that `Collector` gave, empty where there is none
[[nodiscard]] std::vector<quint32> NumbersLike(const QString& name,
                                               const std::function<QByteArray(quint32 bucket)>& row);

/// How many letters were left out, added, changed or swapped with the next between two names.
/// @return `most` + 1 where they are more
[[nodiscard]] int ErrorsBetween(QStringView one, QStringView other, int most);

} // namespace pieces

} // namespace vasclip::street
