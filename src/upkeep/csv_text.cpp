#include "upkeep/csv_text.h"

#include <QHash>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kQuote = u'"';

} // namespace

QString CsvLine(const QStringList& values, QChar delimiter)
{
    QString line;
    for (qsizetype i = 0; i < values.size(); ++i) {
        const QString& value = values.at(i);
        const bool quoted = std::any_of(value.cbegin(), value.cend(), [delimiter](QChar letter) {
            return letter == delimiter || letter == kQuote || letter == u'\r' || letter == u'\n';
        });
        if (i > 0)
            line += delimiter;
        line += quoted ? kQuote + QString(value).replace(kQuote, u"\"\""_s) + kQuote : value;
    }
    return line + u"\r\n"_s;
}

bool CsvReader::TakeLineEnd()
{
    if (m_at >= m_text.size() || (m_text[m_at] != u'\r' && m_text[m_at] != u'\n'))
        return false;
    if (m_text[m_at] == u'\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == u'\n')
        ++m_at;
    ++m_at;
    ++m_line;
    return true;
}

QString CsvReader::Quoted()
{
    QString value;
    const qsizetype began = m_line;
    for (++m_at; m_at < m_text.size(); ++m_at) {
        const QChar letter = m_text[m_at];
        if (letter == kQuote) {
            if (m_at + 1 >= m_text.size() || m_text[m_at + 1] != kQuote) {
                ++m_at;
                return value;
            }
            ++m_at;
        }
        m_line += letter == u'\n' || (letter == u'\r' && m_text.mid(m_at + 1, 1) != "\n"_L1);
        value += letter;
    }
    m_fault = u"Line %1: a quote is never closed"_s.arg(began);
    return value;
}

/// @param ends  was it the record's last?
QString CsvReader::Value(bool& ends)
{
    QString value;
    if (m_at < m_text.size() && m_text[m_at] == kQuote)
        value = Quoted();
    const qsizetype from = m_at;
    while (m_at < m_text.size() && m_text[m_at] != m_delimiter && m_text[m_at] != u'\r' && m_text[m_at] != u'\n')
        ++m_at;
    value += QStringView(m_text).mid(from, m_at - from);
    ends = m_at >= m_text.size() || m_text[m_at] != m_delimiter;
    if (!ends)
        ++m_at;
    return value;
}

std::optional<QStringList> CsvReader::Next()
{
    while (TakeLineEnd()) {
    }
    if (m_at >= m_text.size() || !m_fault.isEmpty())
        return std::nullopt;
    m_recordLine = m_line;
    QStringList values;
    for (bool ends = false; !ends;)
        values.append(Value(ends));
    TakeLineEnd();
    return m_fault.isEmpty() ? std::optional(values) : std::nullopt;
}

QChar DelimiterOf(const QString& text)
{
    constexpr QChar kKnown[] = {u',', u';', u'\t', u'|'};
    QHash<QChar, int> counts;
    bool quoted = false;
    for (const QChar letter : text) {
        quoted = quoted != (letter == kQuote);
        if (!quoted && (letter == u'\n' || letter == u'\r'))
            break;
        if (!quoted)
            ++counts[letter];
    }
    return *std::max_element(std::begin(kKnown), std::end(kKnown),
                             [&](QChar left, QChar right) { return counts.value(left) < counts.value(right); });
}

} // namespace vasclip::upkeep
