#pragma once

#include "platform/engine/sql_lexer.h"

namespace vasclip::engine::sql {

/// Goes through the tokens of a text one by one: looks for what may stand next, takes it, or says what is
/// missing.
class TokenReader
{
protected:
    TokenReader(const QString& text, const text::TimeSource& time)
        : m_lexer(text, time)
    {
        Advance();
    }

    [[noreturn]] void Fail(const QString& what) const { ThrowSyntax(m_lexer.Text(), m_token.at, what); }
    void Advance() { m_token = m_lexer.Next(); }

    [[nodiscard]] bool IsSymbol(QStringView symbol) const
    {
        return m_token.kind == Token::Kind::Symbol && m_token.text == symbol;
    }
    [[nodiscard]] bool IsWord(QStringView word) const
    {
        return m_token.kind == Token::Kind::Name && m_token.text.compare(word, Qt::CaseInsensitive) == 0;
    }
    [[nodiscard]] bool IsName() const; ///< in brackets, or no word of the language
    bool TakeSymbol(QStringView symbol);
    bool TakeWord(QStringView word);
    void NeedSymbol(QStringView symbol);
    void NeedWord(QStringView word);
    QString NeedName(const QString& what);
    void NeedEnd(const QString& what); ///< @param what  is wrong if a symbol follows

    Lexer m_lexer;
    Token m_token;
};

} // namespace vasclip::engine::sql
