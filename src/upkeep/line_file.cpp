#include "upkeep/line_file.h"

#include "platform/text/runtime_error.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kBlock = 64;
constexpr qsizetype kPiece = 65536; ///< that goes into the file at once

} // namespace

void LineFile::Append(const QByteArray& line)
{
    if (m_count % kBlock == 0)
        m_places.push_back(m_end);
    m_pending += line;
    m_pending += '\n';
    m_end += line.size() + 1;
    if (m_block.first >= 0 && m_count < m_block.first + kBlock)
        m_block = {};
    ++m_count;
    if (m_pending.size() >= kPiece)
        Flush();
}

void LineFile::Flush() const
{
    if (m_pending.isEmpty())
        return;
    if (!m_file.isOpen() && !m_file.open())
        throw RuntimeError(error::kDeviceIo, u"The account could not be kept in a file: %1"_s.arg(m_file.errorString()));
    if (!m_file.seek(m_written) || m_file.write(m_pending) != m_pending.size() || !m_file.flush())
        throw RuntimeError(error::kDiskFull, u"The account could not be kept in %1: %2"_s.arg(m_file.fileName(),
                                                                                           m_file.errorString()));
    m_written += m_pending.size();
    m_pending.clear();
}

void LineFile::Read(qint64 first) const
{
    Flush();
    m_block = {first};
    m_file.seek(m_places[static_cast<std::size_t>(first / kBlock)]);
    while (m_block.lines.size() < std::min(kBlock, m_count - first)) {
        QByteArray line = m_file.readLine();
        line.chop(1);
        m_block.lines.append(line);
    }
}

QString LineFile::Line(qint64 index) const
{
    if (index < 0 || index >= m_count)
        return {};
    if (const qint64 first = index / kBlock * kBlock; m_block.first != first)
        Read(first);
    return QString::fromUtf8(m_block.lines.at(index % kBlock));
}

void LineFile::Clear()
{
    m_file.resize(0);
    m_pending.clear();
    m_written = 0;
    m_places.clear();
    m_count = 0;
    m_end = 0;
    m_block = {};
}

} // namespace vasclip::upkeep
