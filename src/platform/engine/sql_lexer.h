#pragma once

#include "platform/text/time_source.h"

#include <QString>

namespace vasclip::engine::sql {

struct Token
{
    enum class Kind { Name, Bracketed, Text, Number, Date, Symbol, End };

    Kind kind = Kind::End;
    QString text;      ///< the name, the text between the quotes, the symbol
    double number = 0; ///< of a number; the serial of a date
    qsizetype at = 0;  ///< 0-based place of its first character in the statement
    qsizetype end = 0; ///< place behind its last character
};

/// Throws error 3075: what is wrong, its place counted from 1, and the text that stands there.
[[noreturn]] void ThrowSyntax(const QString& statement, qsizetype at, const QString& what);

/// Cuts a statement into tokens, one at a time: a path in front of a table is no token, and only the parser
/// knows where one may stand.
class Lexer
{
public:
    Lexer(const QString& statement, const text::TimeSource& time)
        : m_text(statement)
        , m_time(time)
    {}

    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] Token Next(); ///< @throws 3075 for a text, name or date that does not end, an odd character
    void MoveTo(qsizetype at) { m_at = at; }

private:
    [[nodiscard]] Token Quoted(QChar quote);
    [[nodiscard]] Token Date();
    [[nodiscard]] Token Number();

    QString m_text;
    const text::TimeSource& m_time;
    qsizetype m_at = 0;
};

} // namespace vasclip::engine::sql
