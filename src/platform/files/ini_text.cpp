#include "platform/files/ini_text.h"

#include "platform/files/wildcard.h"
#include "platform/text/text.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

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

IniText::IniText(const QByteArray& content, const Letters& letters)
    : m_letters(letters)
{
    if (content.startsWith("\xFF\xFE")) {
        m_code = Code::Utf16;
        m_mark = content.left(2);
    } else {
        const bool plain = std::all_of(content.begin(), content.end(), [](char c) { return uchar(c) < 0x80; });
        m_code = (plain && m_letters.usual) || !IsUtf8(content) ? Code::Letters : Code::Utf8;
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
    case Code::Letters:
        return m_letters.read(raw);
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
    if (m_code == Code::Letters) {
        if (const auto raw = m_letters.write(text))
            return *raw;
        TurnToUtf8();
    }
    return m_code == Code::Utf16 ? ToUtf16(text) : text.toUtf8();
}

void IniText::TurnToUtf8()
{
    for (Block& block : m_blocks) {
        for (Line& line : block.lines)
            line.raw = m_letters.read(line.raw).toUtf8();
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
