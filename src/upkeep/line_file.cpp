#include "upkeep/line_file.h"

#include "platform/text/runtime_error.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kBlock = 64;

} // namespace

void LineFile::Append(const QString& line)
{
    if (!m_file.isOpen() && !m_file.open())
        throw RuntimeError(error::kDeviceIo, u"The account could not be kept in a file: %1"_s.arg(m_file.errorString()));
    if (m_count % kBlock == 0)
        m_places.push_back(m_end);
    const QByteArray bytes = line.toUtf8() + '\n';
    if (!m_file.seek(m_end) || m_file.write(bytes) != bytes.size())
        throw RuntimeError(error::kDiskFull, u"The account could not be kept in %1: %2"_s.arg(m_file.fileName(),
                                                                                           m_file.errorString()));
    m_end += bytes.size();
    if (m_block.first >= 0 && m_count < m_block.first + kBlock)
        m_block = {};
    ++m_count;
}

void LineFile::Read(qint64 first) const
{
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
    m_places.clear();
    m_count = 0;
    m_end = 0;
    m_block = {};
}

} // namespace vasclip::upkeep
