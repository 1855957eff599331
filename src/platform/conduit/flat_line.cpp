#include "platform/conduit/flat_line.h"

#include <utility>

namespace vasclip::conduit {

namespace {

bool NeedsEscape(char c)
{
    return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
}

void AppendEscaped(QByteArray& line, const QByteArray& utf8)
{
    static constexpr char kHex[] = "0123456789abcdef";
    const char* run = utf8.constData();
    const char* const end = run + utf8.size();
    for (const char* at = run; at != end; ++at) {
        if (!NeedsEscape(*at))
            continue;
        line.append(run, at - run);
        run = at + 1;
        line += '\\';
        if (static_cast<unsigned char>(*at) >= 0x20) {
            line += *at;
        } else {
            line += "u00";
            line += kHex[static_cast<unsigned char>(*at) >> 4];
            line += kHex[static_cast<unsigned char>(*at) & 15];
        }
    }
    line.append(run, end - run);
}

/// Walks over a line; each step is true if what it looked for stood there.
class Walker
{
public:
    explicit Walker(QByteArrayView line)
        : m_at(line.begin())
        , m_end(line.end())
    {}

    bool Take(char wanted)
    {
        if (m_at == m_end || *m_at != wanted)
            return false;
        ++m_at;
        return true;
    }
    bool TakeTrue()
    {
        if (!QByteArrayView(m_at, m_end).startsWith("true"))
            return false;
        m_at += 4;
        return true;
    }
    bool TakeText(QByteArrayView& text)
    {
        if (!Take('"'))
            return false;
        const char* const begin = m_at;
        for (; m_at != m_end && *m_at != '"'; ++m_at) {
            if (*m_at == '\\' || static_cast<unsigned char>(*m_at) < 0x20)
                return false;
        }
        text = QByteArrayView(begin, m_at);
        return Take('"');
    }
    bool TakeNumber(qint64& number)
    {
        constexpr int kMostDigits = 15;
        const char* const begin = m_at;
        number = 0;
        for (; m_at != m_end && *m_at >= '0' && *m_at <= '9' && m_at - begin < kMostDigits; ++m_at)
            number = number * 10 + (*m_at - '0');
        return m_at != begin && (*begin != '0' || m_at - begin == 1);
    }
    [[nodiscard]] bool AtEnd() const { return m_at == m_end; }

private:
    const char* m_at;
    const char* m_end;
};

} // namespace

void FlatWriter::Name(const char* name)
{
    if (m_line.size() > 1)
        m_line += ',';
    m_line += '"';
    m_line += name;
    m_line += "\":";
}

FlatWriter& FlatWriter::Text(const char* name, const QString& text)
{
    Name(name);
    m_line += '"';
    AppendEscaped(m_line, text.toUtf8());
    m_line += '"';
    return *this;
}

FlatWriter& FlatWriter::Number(const char* name, qint64 number)
{
    Name(name);
    m_line += QByteArray::number(number);
    return *this;
}

FlatWriter& FlatWriter::True(const char* name)
{
    Name(name);
    m_line += "true";
    return *this;
}

QByteArray FlatWriter::Line()
{
    m_line += "}\n";
    return std::move(m_line);
}

std::optional<FlatReader> FlatReader::Read(const QByteArray& line)
{
    if (!QByteArrayView(line).isValidUtf8())
        return std::nullopt;
    FlatReader reader;
    Walker walker{QByteArrayView(line)};
    if (!walker.Take('{'))
        return std::nullopt;
    do {
        if (reader.m_count == kMost)
            return std::nullopt;
        Member& member = reader.m_members[static_cast<std::size_t>(reader.m_count)];
        if (!walker.TakeText(member.name) || !walker.Take(':'))
            return std::nullopt;
        for (int i = 0; i < reader.m_count; ++i)
            if (reader.m_members[static_cast<std::size_t>(i)].name == member.name)
                return std::nullopt;
        if (walker.TakeText(member.text))
            member.kind = Member::Kind::Text;
        else if (walker.TakeNumber(member.number))
            member.kind = Member::Kind::Number;
        else if (walker.TakeTrue())
            member.kind = Member::Kind::True;
        else
            return std::nullopt;
        ++reader.m_count;
    } while (walker.Take(','));
    if (!walker.Take('}') || !walker.AtEnd())
        return std::nullopt;
    return reader;
}

const FlatReader::Member* FlatReader::Find(QByteArrayView name, Member::Kind kind) const
{
    for (int i = 0; i < m_count; ++i) {
        const Member& member = m_members[static_cast<std::size_t>(i)];
        if (member.name == name)
            return member.kind == kind ? &member : nullptr;
    }
    return nullptr;
}

} // namespace vasclip::conduit
