#include "platform/engine/sql_lexer.h"

#include "platform/engine/errors.h"
#include "platform/engine/text_values.h"

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsSpace(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool StartsName(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool ContinuesName(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$' || c.isSurrogate();
}

} // namespace

void ThrowSyntax(const QString& statement, qsizetype at, const QString& what)
{
    const QString near = statement.mid(at, 30).simplified();
    throw RuntimeError(error::kSyntax,
                       near.isEmpty() ? u"Syntax error at the end of the statement (position %1): %2"_s.arg(
                                            QString::number(at + 1), what)
                                      : u"Syntax error at position %1, near \"%2\": %3"_s.arg(
                                            QString::number(at + 1), near, what));
}

Token Lexer::Next()
{
    while (m_at < m_text.size() && IsSpace(m_text[m_at]))
        ++m_at;
    Token token;
    token.at = m_at;
    token.end = m_at;
    if (m_at >= m_text.size())
        return token;

    const QChar c = m_text[m_at];
    if (c == u'\'' || c == u'"')
        return Quoted(c);
    if (c == u'#')
        return Date();
    if (IsDigit(c) || (c == u'.' && m_at + 1 < m_text.size() && IsDigit(m_text[m_at + 1])))
        return Number();
    if (c == u'[') {
        qsizetype close = m_text.indexOf(u']', m_at);
        while (close >= 0 && m_text.mid(close + 1, 1) == u"]"_s) // doubled it belongs to the name
            close = m_text.indexOf(u']', close + 2);
        if (close < 0)
            ThrowSyntax(m_text, m_at, u"the name that begins with a bracket does not end"_s);
        token.kind = Token::Kind::Bracketed;
        token.text = m_text.mid(m_at + 1, close - m_at - 1).replace(u"]]"_s, u"]"_s);
        if (token.text.trimmed().isEmpty())
            ThrowSyntax(m_text, m_at, u"a name between brackets must not be empty"_s);
        token.end = m_at = close + 1;
        return token;
    }
    if (StartsName(c)) {
        qsizetype end = m_at + 1;
        while (end < m_text.size() && ContinuesName(m_text[end]))
            ++end;
        token.kind = Token::Kind::Name;
        token.text = m_text.mid(m_at, end - m_at);
        token.end = m_at = end;
        return token;
    }
    static const QString kPairs[] = {u"<="_s, u">="_s, u"<>"_s};
    token.kind = Token::Kind::Symbol;
    for (const QString& pair : kPairs) {
        if (QStringView(m_text).mid(m_at).startsWith(pair)) {
            token.text = pair;
            token.end = m_at += 2;
            return token;
        }
    }
    // The backslash only ever begins a path, which the parser reads by itself.
    if (!u"()*,.;=<>+-/&\\"_s.contains(c))
        ThrowSyntax(m_text, m_at, u"this character has no meaning here"_s);
    token.text = c;
    token.end = ++m_at;
    return token;
}

Token Lexer::Quoted(QChar quote)
{
    Token token;
    token.kind = Token::Kind::Text;
    token.at = m_at;
    for (qsizetype i = m_at + 1; i < m_text.size(); ++i) {
        if (m_text[i] != quote) {
            token.text += m_text[i];
        } else if (i + 1 < m_text.size() && m_text[i + 1] == quote) {
            token.text += quote;
            ++i;
        } else {
            token.end = m_at = i + 1;
            return token;
        }
    }
    ThrowSyntax(m_text, m_at, u"the text that begins with this quote does not end"_s);
}

Token Lexer::Date()
{
    const qsizetype close = m_text.indexOf(u'#', m_at + 1);
    if (close < 0)
        ThrowSyntax(m_text, m_at, u"the date that begins with # does not end"_s);
    Token token;
    token.kind = Token::Kind::Date;
    token.at = m_at;
    token.end = close + 1;
    token.text = m_text.mid(m_at + 1, close - m_at - 1);
    if (!SerialOf(token.text.toStdString(), m_time, token.number))
        ThrowSyntax(m_text, m_at, u"'%1' is not a date"_s.arg(token.text.left(30)));
    m_at = token.end;
    return token;
}

Token Lexer::Number()
{
    qsizetype end = m_at;
    const auto digits = [&] {
        while (end < m_text.size() && IsDigit(m_text[end]))
            ++end;
    };
    digits();
    if (end < m_text.size() && m_text[end] == u'.') {
        ++end;
        digits();
    }
    if (end < m_text.size() && m_text[end].toUpper() == u'E') {
        const qsizetype mantissa = end++;
        if (end < m_text.size() && (m_text[end] == u'+' || m_text[end] == u'-'))
            ++end;
        const qsizetype exponent = end;
        digits();
        if (end == exponent)
            end = mantissa;
    }
    if (end < m_text.size() && ContinuesName(m_text[end]))
        ThrowSyntax(m_text, m_at, u"this is neither a number nor a name"_s);
    Token token;
    token.kind = Token::Kind::Number;
    token.at = m_at;
    token.end = end;
    token.text = m_text.mid(m_at, end - m_at);
    token.number = token.text.toDouble();
    m_at = end;
    return token;
}

} // namespace vasclip::engine::sql
