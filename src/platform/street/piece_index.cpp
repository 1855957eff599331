#include "platform/street/piece_index.h"

#include "platform/street/name_number.h"

#include <algorithm>
#include <array>

namespace vasclip::street::pieces {

namespace {

constexpr int kRestBits = 8; // of a key, the rest of its bucket: 1024 buckets
constexpr quint32 kKeys = 1u << 18;
constexpr qsizetype kEntryBytes = 4;
constexpr qsizetype kLongest = 48;

qsizetype PiecesOf(qsizetype length)
{
    return ErrorsFor(length) + 1;
}

qsizetype StartOf(qsizetype piece, qsizetype length)
{
    return piece * length / PiecesOf(length);
}

quint32 KeyOf(qsizetype piece, qsizetype length, QStringView text)
{
    return (NameNumber(text) * 31 + static_cast<quint32>(length * 4 + piece) * 2654435761u) % kKeys;
}

} // namespace

int ErrorsFor(qsizetype length)
{
    return length < 4 ? 0 : length < 6 ? 1 : 2;
}

void Collector::Add(const QString& name, quint32 number)
{
    const qsizetype length = name.size();
    if (ErrorsFor(length) == 0 || length > kLongest)
        return;
    for (qsizetype piece = 0; piece < PiecesOf(length); ++piece) {
        const qsizetype start = StartOf(piece, length);
        const QStringView text = QStringView(name).sliced(start, StartOf(piece + 1, length) - start);
        m_entries.push_back({KeyOf(piece, length, text), number});
    }
}

std::map<quint32, QByteArray> Collector::Rows()
{
    std::sort(m_entries.begin(), m_entries.end());
    m_entries.erase(std::unique(m_entries.begin(), m_entries.end()), m_entries.end());
    std::map<quint32, QByteArray> rows;
    for (const Entry& entry : m_entries) {
        QByteArray& row = rows[entry.key >> kRestBits];
        row.append(static_cast<char>(entry.key & ((1u << kRestBits) - 1)));
        for (int shift = 16; shift >= 0; shift -= 8)
            row.append(static_cast<char>(entry.number >> shift & 0xff));
    }
    return rows;
}

std::vector<quint32> NumbersLike(const QString& name, const std::function<QByteArray(quint32)>& row)
{
    std::vector<quint32> numbers;
    const auto collect = [&](quint32 key) {
        const QByteArray entries = row(key >> kRestBits);
        const auto rest = static_cast<char>(key & ((1u << kRestBits) - 1));
        for (qsizetype at = 0; at + kEntryBytes <= entries.size(); at += kEntryBytes) {
            if (entries.at(at) != rest)
                continue;
            quint32 number = 0;
            for (qsizetype byte = 1; byte < kEntryBytes; ++byte)
                number = number << 8 | static_cast<quint8>(entries.at(at + byte));
            numbers.push_back(number);
        }
    };
    const qsizetype size = name.size();
    const qsizetype errors = ErrorsFor(size);
    if (errors == 0 || size > kLongest)
        return numbers;
    for (qsizetype length = std::max<qsizetype>(4, size - errors); length <= size + errors; ++length) {
        const qsizetype last = PiecesOf(length) - 1;
        for (qsizetype piece = 0; piece <= last; ++piece) {
            const qsizetype start = StartOf(piece, length);
            const qsizetype letters = StartOf(piece + 1, length) - start;
            // What stands before an unharmed piece may have lost or won letters; before the first is nothing,
            // behind the last neither.
            const qsizetype low = piece == 0 ? 0 : piece == last ? size - length : -errors;
            const qsizetype high = piece == 0 ? 0 : piece == last ? size - length : errors;
            for (qsizetype shift = low; shift <= high; ++shift) {
                if (start + shift >= 0 && start + shift + letters <= size)
                    collect(KeyOf(piece, length, QStringView(name).sliced(start + shift, letters)));
            }
        }
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

int ErrorsBetween(QStringView one, QStringView other, int most)
{
    if (std::abs(one.size() - other.size()) > most || one.size() > kLongest || other.size() > kLongest)
        return most + 1;
    std::array<std::array<int, kLongest + 1>, 3> rows{};
    const auto width = static_cast<std::size_t>(other.size());
    for (std::size_t column = 0; column <= width; ++column)
        rows[0][column] = static_cast<int>(column);
    for (qsizetype at = 1; at <= one.size(); ++at) {
        auto& row = rows[static_cast<std::size_t>(at % 3)];
        const auto& above = rows[static_cast<std::size_t>((at + 2) % 3)];
        const auto& twoAbove = rows[static_cast<std::size_t>((at + 1) % 3)];
        row[0] = static_cast<int>(at);
        int least = row[0];
        for (std::size_t column = 1; column <= width; ++column) {
            const auto there = static_cast<qsizetype>(column);
            const int change = above[column - 1] + (one[at - 1] == other[there - 1] ? 0 : 1);
            row[column] = std::min({above[column] + 1, row[column - 1] + 1, change});
            if (at > 1 && there > 1 && one[at - 1] == other[there - 2] && one[at - 2] == other[there - 1])
                row[column] = std::min(row[column], twoAbove[column - 2] + 1);
            least = std::min(least, row[column]);
        }
        if (least > most)
            return most + 1;
    }
    return std::min(most + 1, rows[static_cast<std::size_t>(one.size() % 3)][width]);
}

} // namespace vasclip::street::pieces
