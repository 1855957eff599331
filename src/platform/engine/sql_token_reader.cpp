#include "platform/engine/sql_token_reader.h"

#include <QStringList>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList kReserved = {
    u"SELECT"_s, u"DISTINCT"_s, u"FROM"_s,    u"WHERE"_s, u"ORDER"_s, u"BY"_s,    u"INTO"_s, u"INSERT"_s,
    u"VALUES"_s, u"UPDATE"_s,   u"DELETE"_s,  u"DROP"_s,  u"TABLE"_s, u"SET"_s,   u"AND"_s,  u"OR"_s,
    u"NOT"_s,    u"LIKE"_s,     u"BETWEEN"_s, u"IN"_s,    u"IS"_s,    u"NULL"_s,  u"ASC"_s,  u"DESC"_s,
    u"AS"_s,     u"GROUP"_s,    u"HAVING"_s,  u"UNION"_s, u"JOIN"_s,  u"INNER"_s, u"TRUE"_s, u"FALSE"_s};

} // namespace

void TokenReader::NeedEnd(const QString& what)
{
    if (m_token.kind != Token::Kind::End)
        Fail(m_token.kind == Token::Kind::Symbol
                 ? what
                 : u"an operator is missing, or a quote inside a value is not doubled"_s);
}

bool TokenReader::TakeSymbol(QStringView symbol)
{
    const bool taken = IsSymbol(symbol);
    if (taken)
        Advance();
    return taken;
}

bool TokenReader::TakeWord(QStringView word)
{
    const bool taken = IsWord(word);
    if (taken)
        Advance();
    return taken;
}

void TokenReader::NeedSymbol(QStringView symbol)
{
    if (!TakeSymbol(symbol))
        Fail(u"'%1' is missing"_s.arg(symbol));
}

void TokenReader::NeedWord(QStringView word)
{
    if (!TakeWord(word))
        Fail(u"the word %1 is missing"_s.arg(word));
}

bool TokenReader::IsName() const
{
    return m_token.kind == Token::Kind::Bracketed ||
           (m_token.kind == Token::Kind::Name && !kReserved.contains(m_token.text.toUpper()));
}

QString TokenReader::NeedName(const QString& what)
{
    if (!IsName())
        Fail(what);
    QString name = m_token.text.trimmed();
    Advance();
    return name;
}

} // namespace vasclip::engine::sql
