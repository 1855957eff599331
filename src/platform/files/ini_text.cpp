#include "platform/files/ini_text.h"

#include "platform/files/wildcard.h"
#include "platform/text/text.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

/// 0x80 to 0x9F of Windows 1252; the five codes that it leaves open stand for themselves.
constexpr std::array<char16_t, 32> kHighCodes = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QByteArray> ToWindows1252(const QString& text)
{
    QByteArray raw;
    raw.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (code < 0x80 || (code > 0x9F && code <= 0xFF)) {
            raw.append(char(code));
            continue;
        }
        const auto* const high = std::find(kHighCodes.begin(), kHighCodes.end(), code);
        if (high == kHighCodes.end())
            return std::nullopt;
        raw.append(char(0x80 + (high - kHighCodes.begin())));
    }
    return raw;
}

bool IsUtf8(const QByteArray& content)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString ignored = decoder(content);
    return !decoder.hasError();
}

QByteArray ToUtf16(const QString& text)
{
    QByteArray raw;
    raw.reserve(text.size() * 2);
    for (const QChar c : text) {
        raw.append(char(c.cell()));
        raw.append(char(c.row()));
    }
    return raw;
}

QString FromUtf16(const QByteArray& raw)
{
    QString text;
    text.reserve(raw.size() / 2);
    for (qsizetype at = 0; at + 1 < raw.size(); at += 2)
        text.append(QChar(uchar(raw[at]), uchar(raw[at + 1])));
    return text;
}

bool IsOuterBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\v';
}

QStringView WithoutBlanks(QStringView text)
{
    while (!text.isEmpty() && IsOuterBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && IsOuterBlank(text.back()))
        text.chop(1);
    return text;
}

QStringView WithoutQuotes(QStringView text)
{
    if (text.size() >= 2 && text.front() == text.back() && (text.front() == u'"' || text.front() == u'\''))
        return text.mid(1, text.size() - 2);
    return text;
}

bool BreaksLine(const QString& text)
{
    return text.contains(u'\r') || text.contains(u'\n') || text.contains(QChar(u'\0'));
}

QString FoldedArgument(const QString& name)
{
    return FoldedName(text::Trim(name));
}

} // namespace

QString FromWindows1252(const QByteArray& raw)
{
    QString text = QString::fromLatin1(raw);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() <= 0x9F)
            c = QChar(kHighCodes[std::size_t(c.unicode() - 0x80)]);
    }
    return text;
}

IniText::IniText(const QByteArray& content)
{
    if (content.startsWith("\xFF\xFE")) {
        m_code = Code::Utf16;
        m_mark = content.left(2);
    } else {
        m_code = IsUtf8(content) ? Code::Utf8 : Code::Windows1252;
    }
    Split(content);
    for (Block& block : m_blocks)
        Index(block);
    IndexSections();
}

void IniText::Split(const QByteArray& content)
{
    m_blocks.append(Block());
    const auto take = [this](const QByteArray& raw) {
        Line line{raw, Kind::Other, {}, {}, -1};
        Classify(line);
        if (line.kind == Kind::Header)
            m_blocks.append(Block());
        m_blocks.last().lines.append(line);
    };
    const qsizetype unit = m_code == Code::Utf16 ? 2 : 1;
    const auto isAt = [&](qsizetype at, char c) {
        return at + unit <= content.size() && content[at] == c && (unit == 1 || content[at + 1] == 0);
    };
    qsizetype from = m_mark.size();
    for (qsizetype at = from; at < content.size();) {
        const bool carriageReturn = isAt(at, '\r');
        const bool lineFeed = isAt(at, '\n');
        at += unit;
        if (!carriageReturn && !lineFeed)
            continue;
        if (carriageReturn && isAt(at, '\n'))
            at += unit;
        take(content.mid(from, at - from));
        from = at;
    }
    if (from < content.size())
        take(content.mid(from));
}

QString IniText::Decoded(const QByteArray& raw) const
{
    switch (m_code) {
    case Code::Utf8:
        // The decoder would drop the mark; here it belongs to the first line and spoils it.
        return raw.startsWith("\xEF\xBB\xBF") ? QChar(u'\uFEFF') + QString::fromUtf8(raw)
                                              : QString::fromUtf8(raw);
    case Code::Windows1252:
        return FromWindows1252(raw);
    case Code::Utf16:
        return FromUtf16(raw);
    }
    return QString();
}

QString IniText::WithoutEnd(const QByteArray& raw) const
{
    QString text = Decoded(raw);
    if (text.endsWith(u'\n'))
        text.chop(1);
    if (text.endsWith(u'\r'))
        text.chop(1);
    return text;
}

void IniText::Classify(Line& line) const
{
    const QString text = WithoutEnd(line.raw);
    line.kind = Kind::Other;
    line.name.clear();
    line.folded.clear();
    line.valueAt = -1;
    const QStringView seen = WithoutBlanks(text);
    if (seen.isEmpty() || seen.front() == u';')
        return;
    if (seen.front() == u'[') {
        const qsizetype end = seen.indexOf(u']');
        line.kind = Kind::Header;
        line.name = WithoutBlanks(seen.mid(1, end < 0 ? -1 : end - 1)).toString();
    } else {
        const qsizetype equals = text.indexOf(u'=');
        line.kind = Kind::Key;
        line.name = WithoutBlanks(QStringView(text).left(equals < 0 ? text.size() : equals)).toString();
        line.valueAt = equals < 0 ? -1 : equals + 1;
    }
    line.folded = FoldedName(line.name);
}

void IniText::Index(Block& block)
{
    block.index.clear();
    block.lastKey = 0;
    for (qsizetype at = 0; at < block.lines.size(); ++at) {
        const Line& line = block.lines[at];
        if (line.kind != Kind::Key)
            continue;
        block.lastKey = at;
        if (!block.index.contains(line.folded)) // the first of two keys wins
            block.index.insert(line.folded, at);
    }
}

void IniText::IndexSections()
{
    m_sections.clear();
    for (qsizetype at = 1; at < m_blocks.size(); ++at) {
        const QString& folded = m_blocks[at].lines.first().folded;
        if (!m_sections.contains(folded)) // only the first section of a name is searched
            m_sections.insert(folded, at);
    }
}

const IniText::Block* IniText::Find(const QString& section) const
{
    const auto found = m_sections.constFind(FoldedArgument(section));
    return found == m_sections.constEnd() ? nullptr : &m_blocks[*found];
}

std::optional<QString> IniText::Value(const QString& section, const QString& key) const
{
    const Block* const block = Find(section);
    const qsizetype at = block ? block->index.value(FoldedArgument(key), -1) : -1;
    if (at < 0 || block->lines[at].valueAt < 0)
        return std::nullopt;
    const QString text = WithoutEnd(block->lines[at].raw);
    return WithoutQuotes(WithoutBlanks(QStringView(text).mid(block->lines[at].valueAt))).toString();
}

QStringList IniText::Keys(const QString& section) const
{
    QStringList keys;
    if (const Block* const block = Find(section)) {
        for (const Line& line : block->lines) {
            if (line.kind == Kind::Key)
                keys.append(line.name);
        }
    }
    return keys;
}

QByteArray IniText::Encoded(const QString& text)
{
    if (m_code == Code::Windows1252) {
        if (const auto raw = ToWindows1252(text))
            return *raw;
        TurnToUtf8();
    }
    return m_code == Code::Utf16 ? ToUtf16(text) : text.toUtf8();
}

void IniText::TurnToUtf8()
{
    for (Block& block : m_blocks) {
        for (Line& line : block.lines)
            line.raw = FromWindows1252(line.raw).toUtf8();
    }
    m_code = Code::Utf8;
}

IniText::Line IniText::NewLine(const QString& text)
{
    Line line{Encoded(text), Kind::Other, {}, {}, -1};
    Classify(line);
    return line;
}

/// Supplies the line end that the file's last line may lack.
void IniText::CloseLastLine(Block& block)
{
    if (block.lines.isEmpty())
        return;
    const QByteArray& last = block.lines.last().raw;
    if (WithoutEnd(last).size() == Decoded(last).size()) {
        const QByteArray end = Encoded(u"\r\n"_s);
        block.lines.last().raw += end;
    }
}

void IniText::WriteKey(Block& block, const QString& key, const QString& value)
{
    const QString end = u"\r\n"_s;
    const qsizetype at = block.index.value(FoldedName(key), -1);
    if (at < 0) {
        CloseLastLine(block);
        const Line line = NewLine(key + u'=' + value + end);
        block.lines.insert(++block.lastKey, line);
        block.index.insert(line.folded, block.lastKey);
        m_changed = true;
        return;
    }
    const Line old = block.lines[at];
    const QString oldText = WithoutEnd(old.raw);
    if (old.valueAt >= 0 && QStringView(oldText).mid(old.valueAt) == value)
        return;
    const QString oldEnd = Decoded(old.raw).mid(oldText.size());
    const QString head = old.valueAt >= 0 ? oldText.left(old.valueAt) : old.name + u'=';
    block.lines[at] = NewLine(head + value + (oldEnd.isEmpty() ? end : oldEnd));
    m_changed = true;
}

bool IniText::Write(const QString& givenSection, const QString& givenKey, const QString& givenValue)
{
    const QString section = text::Trim(givenSection);
    const qsizetype blockAt = m_sections.value(FoldedName(section), -1);

    if (givenKey.isNull()) {
        if (blockAt >= 0) {
            m_blocks.remove(blockAt);
            m_changed = true;
            IndexSections();
        }
        return true;
    }

    const QString key = text::Trim(givenKey);
    if (givenValue.isNull()) {
        const qsizetype keyAt = blockAt >= 0 ? m_blocks[blockAt].index.value(FoldedName(key), -1) : -1;
        if (keyAt >= 0) {
            m_blocks[blockAt].lines.remove(keyAt);
            m_changed = true;
            Index(m_blocks[blockAt]);
        }
        return true;
    }

    const QString value = text::Trim(givenValue);
    if (BreaksLine(section) || BreaksLine(key) || BreaksLine(value) || section.contains(u']') ||
        key.isEmpty() || key.contains(u'=') || key.startsWith(u'[') || key.startsWith(u';'))
        return false;
    if (blockAt >= 0) {
        WriteKey(m_blocks[blockAt], key, value);
        return true;
    }
    CloseLastLine(m_blocks.last());
    Block block;
    block.lines.append(NewLine(u'[' + section + u"]\r\n"_s));
    m_sections.insert(block.lines.first().folded, m_blocks.size());
    m_blocks.append(block);
    WriteKey(m_blocks.last(), key, value);
    m_changed = true;
    return true;
}

QByteArray IniText::Bytes() const
{
    QByteArray content = m_mark;
    for (const Block& block : m_blocks) {
        for (const Line& line : block.lines)
            content += line.raw;
    }
    return content;
}

} // namespace vasclip::files
