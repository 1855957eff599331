#include "platform/street/table_file.h"

#include <QFileInfo>
#include <QVarLengthArray>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr qsizetype kHead = 100; ///< bytes before the first page's own
constexpr quint8 kInner = 5;
constexpr quint8 kLeaf = 13;
constexpr int kDeepest = 20; ///< no table of ours has more than four levels of pages

/// A number of seven bits a byte, the highest first, at most nine bytes. @return its bytes, 0 where they are not there
qsizetype Varint(QByteArrayView bytes, qsizetype at, quint64& value)
{
    value = 0;
    for (qsizetype count = 1; at < bytes.size() && at >= 0; ++at, ++count) {
        const auto byte = static_cast<quint8>(bytes[at]);
        if (count == 9) {
            value = value << 8 | byte;
            return count;
        }
        value = value << 7 | (byte & 0x7f);
        if (byte < 0x80)
            return count;
    }
    return 0;
}

} // namespace

/// One page of a table.
class TableFile::Page
{
public:
    /// @return false where the file has no such page, or it is none of a table
    bool Take(const TableFile& file, quint32 number)
    {
        if (number == 0 || qint64(number) > file.m_size / file.m_page)
            return false;
        m_bytes.resize(file.m_page);
        if (!file.ReadAt((qint64(number) - 1) * file.m_page, m_bytes.data(), file.m_page))
            return false;
        m_start = number == 1 ? kHead : 0;
        const auto kind = static_cast<quint8>(m_bytes[m_start]);
        m_leaf = kind == kLeaf;
        m_cells = qFromBigEndian<quint16>(m_bytes.constData() + m_start + 3);
        m_pointers = m_start + (m_leaf ? 8 : 12);
        return (m_leaf || kind == kInner) && m_pointers + 2 * qsizetype(m_cells) <= m_bytes.size();
    }

    [[nodiscard]] QByteArrayView Bytes() const { return {m_bytes.constData(), m_bytes.size()}; }
    [[nodiscard]] bool IsLeaf() const { return m_leaf; }
    [[nodiscard]] int Cells() const { return m_cells; }
    [[nodiscard]] qsizetype At(int cell) const
    {
        return qFromBigEndian<quint16>(m_bytes.constData() + m_pointers + 2 * qsizetype(cell));
    }
    /// The page below a cell of an inner one; the last has no cell of its own.
    [[nodiscard]] quint32 Below(int cell) const
    {
        const qsizetype at = cell < m_cells ? At(cell) : m_start + 8;
        return at + 4 <= m_bytes.size() ? qFromBigEndian<quint32>(m_bytes.constData() + at) : 0;
    }
    /// The row's number that a cell has: of the row itself, or the highest below.
    [[nodiscard]] qint64 Number(int cell) const
    {
        const qsizetype at = At(cell);
        quint64 size = 0;
        quint64 number = 0;
        const qsizetype before = m_leaf ? Varint(Bytes(), at, size) : 4;
        (void)Varint(Bytes(), at + before, number);
        return static_cast<qint64>(number);
    }
    /// The first cell whose number is `number` or more.
    [[nodiscard]] int First(qint64 number) const
    {
        int low = 0;
        int high = m_cells;
        while (low < high) {
            const int middle = (low + high) / 2;
            if (Number(middle) < number)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

private:
    QVarLengthArray<char, 4096> m_bytes;
    qsizetype m_start = 0;
    qsizetype m_pointers = 0;
    int m_cells = 0;
    bool m_leaf = false;
};

bool TableFile::ReadAt(qint64 at, char* into, qint64 size) const
{
    const std::lock_guard lock(m_guard);
    return m_file.seek(at) && m_file.read(into, size) == size;
}

std::unique_ptr<TableFile> TableFile::Open(const QString& path, FileKind kind, QString& problem)
{
    std::unique_ptr<TableFile> file(new TableFile(path));
    if (!file->m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        problem = QFileInfo::exists(path) ? u"the file can't be read"_s : u"the file is missing"_s;
        return {};
    }
    file->m_size = file->m_file.size();
    const QByteArray head = file->m_file.read(kHead);
    problem = HeadProblem(head, file->m_size, kind);
    if (!problem.isEmpty())
        return {};
    const auto page = qFromBigEndian<quint16>(head.constData() + 16);
    file->m_page = page == 1 ? 65536 : page;
    file->m_usable = file->m_page - static_cast<quint8>(head[20]);
    constexpr qsizetype kLeast = 480; // what the format wants; it also keeps all that is computed of it above 0
    if (file->m_page < 512 || (file->m_page & (file->m_page - 1)) != 0 || file->m_usable < kLeast || !file->ReadSchema()) {
        problem = u"the file is damaged"_s;
        return {};
    }
    return file;
}

bool TableFile::ReadSchema()
{
    std::vector<quint32> numbers;
    if (!Numbers(1, 0, 1000, numbers))
        return false;
    for (const quint32 number : numbers) {
        QByteArray record;
        if (Row(1, number, record) != Read::Done)
            return false;
        RecordColumns columns(record);
        const bool table = columns.Bytes() == "table";
        QByteArray name = columns.Bytes().toByteArray();
        columns.Skip();
        const qint64 root = columns.Number();
        if (columns.Failed() || root < 0 || root > m_size / m_page)
            return false;
        if (table)
            m_tables.push_back({std::move(name), static_cast<quint32>(root)});
    }
    return true;
}

quint32 TableFile::Table(QByteArrayView name) const
{
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [name](const Named& one) { return one.name == name; });
    return found == m_tables.end() ? 0 : found->root;
}

TableFile::Read TableFile::Row(quint32 table, qint64 number, QByteArray& record) const
{
    Page page;
    quint32 at = table;
    if (table == 0)
        return Read::None;
    for (int depth = 0; depth < kDeepest; ++depth) {
        if (!page.Take(*this, at))
            return Read::Damaged;
        const int cell = page.First(number);
        if (!page.IsLeaf()) {
            at = page.Below(cell);
            continue;
        }
        if (cell == page.Cells() || page.Number(cell) != number)
            return Read::None;
        return Payload(page, page.At(cell), record);
    }
    return Read::Damaged;
}

/// What a leaf's cell has: its first bytes beside it, the rest in a chain of pages.
TableFile::Read TableFile::Payload(const Page& page, qsizetype at, QByteArray& payload) const
{
    quint64 size = 0;
    quint64 number = 0;
    const qsizetype first = Varint(page.Bytes(), at, size);
    const qsizetype second = first > 0 ? Varint(page.Bytes(), at + first, number) : 0;
    if (second == 0 || size > static_cast<quint64>(m_size))
        return Read::Damaged;
    const auto whole = static_cast<qsizetype>(size);
    qsizetype here = whole;
    if (whole > m_usable - 35) {
        const qsizetype least = (m_usable - 12) * 32 / 255 - 23;
        const qsizetype most = least + (whole - least) % (m_usable - 4);
        here = most <= m_usable - 35 ? most : least;
    }
    const qsizetype start = at + first + second;
    const bool chained = here < whole;
    if (start + here + (chained ? 4 : 0) > page.Bytes().size())
        return Read::Damaged;
    payload.resize(whole);
    std::copy_n(page.Bytes().data() + start, here, payload.data());
    quint32 next = chained ? qFromBigEndian<quint32>(page.Bytes().data() + start + here) : 0;
    for (QVarLengthArray<char, 4096> more(chained ? m_usable : 0); here < whole;) {
        const qsizetype part = std::min(whole - here, m_usable - 4);
        if (next == 0 || !ReadAt((qint64(next) - 1) * m_page, more.data(), part + 4))
            return Read::Damaged;
        next = qFromBigEndian<quint32>(more.constData());
        std::copy_n(more.constData() + 4, part, payload.data() + here);
        here += part;
    }
    return Read::Done;
}

TableFile::Read TableFile::Blob(quint32 table, qint64 number, QByteArray& blob) const
{
    QByteArray record;
    const Read read = Row(table, number, record);
    if (read != Read::Done)
        return read;
    RecordColumns columns(record);
    columns.Skip(); // its number
    blob = columns.Bytes().toByteArray();
    return columns.Failed() ? Read::Damaged : Read::Done;
}

bool TableFile::Numbers(quint32 table, qint64 first, qint64 last, std::vector<quint32>& numbers) const
{
    qint64 pages = m_size / m_page;
    return table == 0 || Collect(table, 0, pages, first, last, numbers);
}

bool TableFile::Collect(quint32 number, int depth, qint64& pages, qint64 first, qint64 last,
                        std::vector<quint32>& numbers) const
{
    Page page;
    if (depth == kDeepest || --pages < 0 || !page.Take(*this, number))
        return false;
    for (int cell = page.First(first); cell <= page.Cells(); ++cell) {
        const bool beyond = cell == page.Cells();
        if (page.IsLeaf()) {
            if (beyond || page.Number(cell) > last)
                break;
            numbers.push_back(static_cast<quint32>(page.Number(cell)));
            continue;
        }
        if (!Collect(page.Below(cell), depth + 1, pages, first, last, numbers))
            return false;
        if (beyond || page.Number(cell) >= last)
            break;
    }
    return true;
}

RecordColumns::RecordColumns(QByteArrayView record)
{
    quint64 size = 0;
    const qsizetype first = Varint(record, 0, size);
    m_failed = first == 0 || size < static_cast<quint64>(first) || size > static_cast<quint64>(record.size());
    if (m_failed)
        return;
    m_types = record.sliced(first, static_cast<qsizetype>(size) - first);
    m_values = record.sliced(static_cast<qsizetype>(size));
}

RecordColumns::Value RecordColumns::Next()
{
    Value value;
    const qsizetype first = Varint(m_types, 0, value.type);
    if (first == 0) {
        m_failed = true;
        return {};
    }
    m_types = m_types.sliced(first);
    constexpr quint8 kSizes[] = {0, 1, 2, 3, 4, 6, 8, 8, 0, 0};
    const quint64 size = value.type >= 12 ? (value.type - 12) / 2 : value.type < 10 ? kSizes[value.type] : 0;
    if (size > static_cast<quint64>(m_values.size())) {
        m_failed = true;
        return {};
    }
    value.bytes = m_values.first(static_cast<qsizetype>(size));
    m_values = m_values.sliced(static_cast<qsizetype>(size));
    return value;
}

qint64 RecordColumns::Number()
{
    const Value value = Next();
    if (value.type == 9)
        return 1;
    if (value.type == 0 || value.type > 6)
        return 0;
    quint64 number = static_cast<quint8>(value.bytes[0]) & 0x80 ? ~quint64(0) : 0;
    for (const char byte : value.bytes)
        number = number << 8 | static_cast<quint8>(byte);
    return static_cast<qint64>(number);
}

QByteArrayView RecordColumns::Bytes()
{
    const Value value = Next();
    return value.type >= 12 ? value.bytes : QByteArrayView();
}

} // namespace vasclip::street
