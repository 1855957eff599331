#include "platform/engine/jet/page_writer.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMostRows = 255;

} // namespace

PageWriter::PageWriter(const QString& native, const QString& shown)
    : m_file(native)
    , m_shown(shown)
{
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        throw RuntimeError(error::kPathFileAccess, u"The file %1 could not be written. Make sure that you have "
                                                   "rights to its directory"_s.arg(shown));
}

void PageWriter::Full() const
{
    throw RuntimeError(error::kDiskFull, u"The disk that %1 should be written to is full"_s.arg(m_shown));
}

void PageWriter::Write(quint32 number, const QByteArray& page)
{
    constexpr quint32 kMostPages = 524'288; // 2 GB
    if (number >= kMostPages)
        throw RuntimeError(error::kDiskFull,
                           u"%1 would become larger than 2 GB, which an Access database can not be"_s.arg(m_shown));
    if (!m_file.seek(static_cast<qint64>(number) * kJet4.pageSize) || m_file.write(page) != page.size())
        Full();
}

void PageWriter::Close()
{
    const bool whole = m_file.size() == static_cast<qint64>(m_pages) * kJet4.pageSize ||
                       m_file.resize(static_cast<qint64>(m_pages) * kJet4.pageSize);
    if (!whole || !m_file.flush())
        Full();
    m_file.close();
}

void PageSet::Add(quint32 page)
{
    m_first = Empty() ? page : std::min(m_first, page);
    m_last = Empty() ? page : std::max(m_last, page);
    const qsizetype at = page / 8;
    if (at >= m_bits.size())
        m_bits.append(at + 1 - m_bits.size(), '\0');
    m_bits[at] = static_cast<char>(m_bits[at] | 1 << page % 8);
}

QByteArray PageSet::Bits(quint32 first, int bytes) const
{
    return m_bits.mid(first / 8, bytes).leftJustified(bytes, '\0');
}

void PageSet::ForEach(const std::function<void(quint32)>& sink) const
{
    for (quint32 page = m_first; !Empty() && page <= m_last; ++page) {
        if ((m_bits[static_cast<qsizetype>(page / 8)] >> page % 8 & 1) != 0)
            sink(page);
    }
}

PageBuilder::PageBuilder(quint32 owner)
    : m_page(kJet4.pageSize, '\0')
{
    m_page[0] = static_cast<char>(kDataPage);
    m_page[1] = 1;
    qToLittleEndian(owner, m_page.data() + 4);
}

int PageBuilder::Add(const QByteArray& row)
{
    const int table = kJet4.rowOffsets + 2 * (m_rows + 1);
    if (m_rows == kMostRows || m_start - row.size() < table)
        return -1;
    m_start -= static_cast<int>(row.size());
    std::memcpy(m_page.data() + m_start, row.constData(), static_cast<std::size_t>(row.size()));
    qToLittleEndian(static_cast<quint16>(m_start), m_page.data() + table - 2);
    return m_rows++;
}

const QByteArray& PageBuilder::Bytes()
{
    qToLittleEndian(static_cast<quint16>(m_start - kJet4.rowOffsets - 2 * m_rows), m_page.data() + 2);
    qToLittleEndian(static_cast<quint16>(m_rows), m_page.data() + kJet4.rowCount);
    return m_page;
}

} // namespace vasclip::engine::jet
