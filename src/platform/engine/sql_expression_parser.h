#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/engine/sql_token_reader.h"

#include <initializer_list>

namespace vasclip::engine::sql {

/// Reads conditions and values, wherever a statement holds them.
/// @throws 3075 with the place, also for what is nested too deeply or has too many terms
class ExpressionParser : protected TokenReader
{
protected:
    using TokenReader::TokenReader;

    /// @param mayBeStar  a column list: `TABLE.*` gives no node
    ExpressionPtr ReadExpression(bool mayBeStar = false);

private:
    class Depth;
    using Step = ExpressionPtr (ExpressionParser::*)(bool mayBeStar);

    /// What operators of one rank join, from left to right. Words are in capitals.
    ExpressionPtr ReadChain(Step next, bool mayBeStar, std::initializer_list<QStringView> operators);

    ExpressionPtr ReadAnd(bool mayBeStar = false);
    ExpressionPtr ReadNot(bool mayBeStar = false);
    ExpressionPtr ReadComparison(bool mayBeStar);
    ExpressionPtr ReadSum(bool mayBeStar = false);
    ExpressionPtr ReadProduct(bool mayBeStar = false);
    ExpressionPtr ReadSign(bool mayBeStar = false);
    ExpressionPtr ReadPrimary(bool mayBeStar);
    /// A name that may be a function's. LEFT and RIGHT are functions only with a parenthesis behind them.
    ExpressionPtr ReadNamed(bool mayBeStar);
    ExpressionPtr ReadColumn(bool mayBeStar);
    /// Long chains without parentheses nest to the left and are walked by recursion later.
    void CountTerm();

    int m_depth = 0;
    int m_terms = 0;
};

} // namespace vasclip::engine::sql
