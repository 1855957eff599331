#include "platform/engine/sql_expression_parser.h"

#include <QStringList>

#include <algorithm>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

/// An expression nested deeper than this is refused, so that no text exhausts the stack.
constexpr int kDeepest = 200;

ExpressionPtr Make(Expression::Kind kind, qsizetype at, const QString& text = {})
{
    auto node = std::make_unique<Expression>();
    node->kind = kind;
    node->at = at;
    node->text = text;
    return node;
}

ExpressionPtr MakeBinary(const Token& symbol, const QString& text, ExpressionPtr left, ExpressionPtr right)
{
    ExpressionPtr node = Make(Expression::Kind::Binary, symbol.at, text);
    node->arguments.push_back(std::move(left));
    node->arguments.push_back(std::move(right));
    return node;
}

} // namespace

class ExpressionParser::Depth
{
public:
    explicit Depth(ExpressionParser& parser)
        : m_parser(parser)
    {
        if (++m_parser.m_depth > kDeepest)
            m_parser.Fail(u"the expression is nested too deeply"_s);
    }
    ~Depth() { --m_parser.m_depth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

private:
    ExpressionParser& m_parser;
};

ExpressionPtr ExpressionParser::ReadChain(Step next, bool mayBeStar, std::initializer_list<QStringView> operators)
{
    ExpressionPtr left = (this->*next)(mayBeStar);
    while (left && std::ranges::any_of(operators, [this](QStringView one) { return IsSymbol(one) || IsWord(one); })) {
        const Token symbol = m_token;
        Advance();
        left = MakeBinary(symbol, symbol.text.toUpper(), std::move(left), (this->*next)(false));
        CountTerm();
    }
    return left;
}

ExpressionPtr ExpressionParser::ReadExpression(bool mayBeStar)
{
    const Depth depth(*this);
    return ReadChain(&ExpressionParser::ReadAnd, mayBeStar, {u"OR"});
}

ExpressionPtr ExpressionParser::ReadAnd(bool mayBeStar)
{
    return ReadChain(&ExpressionParser::ReadNot, mayBeStar, {u"AND"});
}

ExpressionPtr ExpressionParser::ReadNot(bool mayBeStar)
{
    if (!IsWord(u"NOT"))
        return ReadComparison(mayBeStar);
    const Depth depth(*this);
    ExpressionPtr node = Make(Expression::Kind::Not, m_token.at);
    Advance();
    node->arguments.push_back(ReadNot());
    return node;
}

ExpressionPtr ExpressionParser::ReadComparison(bool mayBeStar)
{
    ExpressionPtr left = ReadSum(mayBeStar);
    for (; left; CountTerm()) {
        const Token symbol = m_token;
        if (symbol.kind == Token::Kind::Symbol &&
            QStringList{u"="_s, u"<>"_s, u"<"_s, u"<="_s, u">"_s, u">="_s}.contains(symbol.text)) {
            Advance();
            left = MakeBinary(symbol, symbol.text, std::move(left), ReadSum());
            continue;
        }
        if (TakeWord(u"IS")) {
            ExpressionPtr node = Make(Expression::Kind::IsNull, symbol.at);
            node->negated = TakeWord(u"NOT");
            NeedWord(u"NULL");
            node->arguments.push_back(std::move(left));
            left = std::move(node);
            continue;
        }
        const bool negated = TakeWord(u"NOT");
        if (TakeWord(u"LIKE")) {
            ExpressionPtr node = Make(Expression::Kind::Like, symbol.at);
            node->negated = negated;
            node->arguments.push_back(std::move(left));
            node->arguments.push_back(ReadSum());
            left = std::move(node);
        } else if (TakeWord(u"BETWEEN")) {
            ExpressionPtr node = Make(Expression::Kind::Between, symbol.at);
            node->negated = negated;
            node->arguments.push_back(std::move(left));
            node->arguments.push_back(ReadSum());
            NeedWord(u"AND");
            node->arguments.push_back(ReadSum());
            left = std::move(node);
        } else if (TakeWord(u"IN")) {
            ExpressionPtr node = Make(Expression::Kind::In, symbol.at);
            node->negated = negated;
            node->arguments.push_back(std::move(left));
            NeedSymbol(u"(");
            do {
                node->arguments.push_back(ReadExpression());
            } while (TakeSymbol(u","));
            NeedSymbol(u")");
            left = std::move(node);
        } else if (negated) {
            Fail(u"LIKE, BETWEEN or IN is missing behind NOT"_s);
        } else {
            break;
        }
    }
    return left;
}

ExpressionPtr ExpressionParser::ReadSum(bool mayBeStar)
{
    return ReadChain(&ExpressionParser::ReadProduct, mayBeStar, {u"+", u"-", u"&"});
}

ExpressionPtr ExpressionParser::ReadProduct(bool mayBeStar)
{
    return ReadChain(&ExpressionParser::ReadSign, mayBeStar, {u"*", u"/"});
}

ExpressionPtr ExpressionParser::ReadSign(bool mayBeStar)
{
    if (TakeSymbol(u"+"))
        return ReadSign();
    if (!IsSymbol(u"-"))
        return ReadPrimary(mayBeStar);
    const Depth depth(*this);
    ExpressionPtr node = Make(Expression::Kind::Negate, m_token.at);
    Advance();
    node->arguments.push_back(ReadSign());
    return node;
}

ExpressionPtr ExpressionParser::ReadPrimary(bool mayBeStar)
{
    const Token token = m_token;
    switch (token.kind) {
    case Token::Kind::Text:
        Advance();
        return Make(Expression::Kind::Text, token.at, token.text);
    case Token::Kind::Number:
    case Token::Kind::Date: {
        Advance();
        ExpressionPtr node = Make(
            token.kind == Token::Kind::Number ? Expression::Kind::Number : Expression::Kind::Date, token.at);
        node->number = token.number;
        return node;
    }
    case Token::Kind::Bracketed:
        return ReadColumn(mayBeStar);
    case Token::Kind::Symbol:
        if (TakeSymbol(u"(")) {
            if (IsWord(u"SELECT"))
                Fail(u"a SELECT inside a statement is not understood"_s);
            ExpressionPtr inner = ReadExpression();
            NeedSymbol(u")");
            return inner;
        }
        break;
    case Token::Kind::Name:
        if (TakeWord(u"NULL"))
            return Make(Expression::Kind::Null, token.at);
        if (IsWord(u"TRUE") || IsWord(u"FALSE")) {
            ExpressionPtr node = Make(Expression::Kind::Truth, token.at);
            node->number = IsWord(u"TRUE") ? 1 : 0;
            Advance();
            return node;
        }
        if (IsName())
            return ReadNamed(mayBeStar);
        break;
    case Token::Kind::End:
        break;
    }
    Fail(u"a field, a value or a function is missing"_s);
}

ExpressionPtr ExpressionParser::ReadNamed(bool mayBeStar)
{
    const Token name = m_token;
    Advance();
    if (!IsSymbol(u"(")) {
        m_lexer.MoveTo(name.at);
        Advance();
        return ReadColumn(mayBeStar);
    }
    Advance();
    const QString function = name.text.toUpper();
    if (function == u"COUNT" && TakeSymbol(u"*")) {
        NeedSymbol(u")");
        return Make(Expression::Kind::CountAll, name.at);
    }
    ExpressionPtr node = Make(Expression::Kind::Call, name.at, function);
    if (!IsSymbol(u")")) {
        do {
            node->arguments.push_back(ReadExpression());
        } while (TakeSymbol(u","));
    }
    NeedSymbol(u")");
    return node;
}

ExpressionPtr ExpressionParser::ReadColumn(bool mayBeStar)
{
    ExpressionPtr node = Make(Expression::Kind::Column, m_token.at);
    node->text = NeedName(u"the name of a field is missing"_s);
    if (TakeSymbol(u".")) {
        if (mayBeStar && TakeSymbol(u"*"))
            return nullptr;
        node->table = node->text;
        node->text = NeedName(u"the name of a field is missing behind the point"_s);
    }
    return node;
}

void ExpressionParser::CountTerm()
{
    constexpr int kMostTerms = 1000;
    if (++m_terms > kMostTerms)
        Fail(u"the statement has too many conditions"_s);
}

} // namespace vasclip::engine::sql
