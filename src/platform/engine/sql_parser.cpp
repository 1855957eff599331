#include "platform/engine/sql_parser.h"

#include "platform/engine/sql_lexer.h"

#include <QStringList>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

/// An expression nested deeper than this is refused, so that no text exhausts the stack.
constexpr int kDeepest = 200;

const QStringList kReserved = {
    u"SELECT"_s, u"DISTINCT"_s, u"FROM"_s,    u"WHERE"_s, u"ORDER"_s, u"BY"_s,    u"INTO"_s, u"INSERT"_s,
    u"VALUES"_s, u"UPDATE"_s,   u"DELETE"_s,  u"DROP"_s,  u"TABLE"_s, u"SET"_s,   u"AND"_s,  u"OR"_s,
    u"NOT"_s,    u"LIKE"_s,     u"BETWEEN"_s, u"IN"_s,    u"IS"_s,    u"NULL"_s,  u"ASC"_s,  u"DESC"_s,
    u"AS"_s,     u"GROUP"_s,    u"HAVING"_s,  u"UNION"_s, u"JOIN"_s,  u"INNER"_s, u"TRUE"_s, u"FALSE"_s};

class Parser
{
public:
    Parser(const QString& text, const text::TimeSource& time)
        : m_lexer(text, time)
    {
        Advance();
    }

    Statement Read()
    {
        Statement statement = ReadStatement();
        if (IsSymbol(u";"))
            Advance();
        NeedEnd(u"the statement should end here"_s);
        return statement;
    }

    Statement ReadCondition()
    {
        Statement statement;
        statement.where = ReadExpression();
        ReadOrder(statement);
        NeedEnd(u"the condition should end here"_s);
        return statement;
    }

private:
    void NeedEnd(const QString& what)
    {
        if (m_token.kind != Token::Kind::End)
            Fail(m_token.kind == Token::Kind::Symbol
                     ? what
                     : u"an operator is missing, or a quote inside a value is not doubled"_s);
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
    bool TakeSymbol(QStringView symbol)
    {
        const bool taken = IsSymbol(symbol);
        if (taken)
            Advance();
        return taken;
    }
    bool TakeWord(QStringView word)
    {
        const bool taken = IsWord(word);
        if (taken)
            Advance();
        return taken;
    }
    void NeedSymbol(QStringView symbol)
    {
        if (!TakeSymbol(symbol))
            Fail(u"'%1' is missing"_s.arg(symbol));
    }
    void NeedWord(QStringView word)
    {
        if (!TakeWord(word))
            Fail(u"the word %1 is missing"_s.arg(word));
    }
    [[nodiscard]] bool IsName() const
    {
        return m_token.kind == Token::Kind::Bracketed ||
               (m_token.kind == Token::Kind::Name && !kReserved.contains(m_token.text.toUpper()));
    }
    QString NeedName(const QString& what)
    {
        if (!IsName())
            Fail(what);
        QString name = m_token.text.trimmed();
        Advance();
        return name;
    }

    Statement ReadStatement()
    {
        if (TakeWord(u"SELECT"))
            return ReadSelect();
        if (TakeWord(u"INSERT"))
            return ReadInsert();
        if (TakeWord(u"UPDATE"))
            return ReadUpdate();
        if (TakeWord(u"DELETE"))
            return ReadDelete();
        if (TakeWord(u"DROP")) {
            Statement statement;
            statement.kind = Statement::Kind::Drop;
            NeedWord(u"TABLE");
            statement.from = ReadTable();
            return statement;
        }
        Fail(u"a statement begins with SELECT, INSERT, UPDATE, DELETE or DROP"_s);
    }

    Statement ReadSelect()
    {
        Statement statement;
        if (TakeWord(u"DISTINCT"))
            statement.distinct = true;
        else
            TakeWord(u"ALL");
        do {
            statement.items.push_back(ReadItem());
        } while (TakeSymbol(u","));
        if (TakeWordBeforeTable(u"INTO")) {
            statement.kind = Statement::Kind::SelectInto;
            statement.into = ReadTable();
        }
        if (!TakeWordBeforeTable(u"FROM"))
            Fail(u"the word FROM is missing"_s);
        statement.from = ReadTable();
        if (TakeWord(u"AS"))
            statement.alias = NeedName(u"the other name of the table is missing"_s);
        else if (IsName())
            statement.alias = NeedName({});
        if (IsSymbol(u","))
            Fail(u"only one table can be read at a time"_s);
        ReadWhere(statement);
        ReadOrder(statement);
        return statement;
    }

    SelectItem ReadItem()
    {
        SelectItem item;
        if (TakeSymbol(u"*")) {
            item.star = true;
            return item;
        }
        const Token start = m_token;
        item.expression = ReadExpression(true);
        if (!item.expression) { // a table's name and ".*"
            item.star = true;
            item.alias = start.text;
            return item;
        }
        if (TakeWord(u"AS"))
            item.alias = NeedName(u"the name behind AS is missing"_s);
        return item;
    }

    Statement ReadInsert()
    {
        Statement statement;
        if (!TakeWordBeforeTable(u"INTO"))
            Fail(u"the word INTO is missing"_s);
        statement.into = ReadTable();
        std::vector<Assignment> columns;
        if (TakeSymbol(u"(")) {
            do {
                Assignment column;
                column.at = m_token.at;
                column.column = ReadColumnName();
                columns.push_back(std::move(column));
            } while (TakeSymbol(u","));
            NeedSymbol(u")");
        }
        if (TakeWord(u"VALUES")) {
            statement.kind = Statement::Kind::InsertValues;
            NeedSymbol(u"(");
            do {
                statement.values.push_back(ReadExpression());
            } while (TakeSymbol(u","));
            NeedSymbol(u")");
        } else if (TakeWord(u"SELECT")) {
            const TableName target = statement.into;
            statement = ReadSelect();
            if (statement.kind != Statement::Kind::Select)
                Fail(u"INTO can stand only once in a statement"_s);
            statement.kind = Statement::Kind::InsertSelect;
            statement.into = target;
        } else {
            Fail(u"VALUES or SELECT is missing"_s);
        }
        statement.columns = std::move(columns);
        return statement;
    }

    Statement ReadUpdate()
    {
        Statement statement;
        statement.kind = Statement::Kind::Update;
        statement.from = ReadTable();
        NeedWord(u"SET");
        do {
            Assignment assignment;
            assignment.at = m_token.at;
            assignment.column = ReadColumnName();
            NeedSymbol(u"=");
            assignment.value = ReadExpression();
            statement.columns.push_back(std::move(assignment));
        } while (TakeSymbol(u","));
        ReadWhere(statement);
        return statement;
    }

    Statement ReadDelete()
    {
        Statement statement;
        statement.kind = Statement::Kind::Delete;
        TakeSymbol(u"*");
        if (!TakeWordBeforeTable(u"FROM"))
            Fail(u"the word FROM is missing"_s);
        statement.from = ReadTable();
        ReadWhere(statement);
        return statement;
    }

    void ReadWhere(Statement& statement)
    {
        if (TakeWord(u"WHERE"))
            statement.where = ReadExpression();
    }

    void ReadOrder(Statement& statement)
    {
        if (!TakeWord(u"ORDER"))
            return;
        NeedWord(u"BY");
        do {
            OrderItem item;
            item.expression = ReadExpression();
            if (TakeWord(u"DESC"))
                item.descending = true;
            else
                TakeWord(u"ASC");
            statement.order.push_back(std::move(item));
        } while (TakeSymbol(u","));
    }

    QString ReadColumnName()
    {
        QString name = NeedName(u"the name of a field is missing"_s);
        if (TakeSymbol(u"."))
            name = NeedName(u"the name of a field is missing behind the point"_s);
        return name;
    }

    /// Like TakeWord, but leaves what follows unread: a path is no sequence of tokens.
    bool TakeWordBeforeTable(QStringView word)
    {
        if (!IsWord(word))
            return false;
        const QString& text = m_lexer.Text();
        qsizetype at = m_token.end;
        while (at < text.size() && text[at].isSpace())
            ++at;
        const bool drive =
            at + 2 < text.size() && text[at].isLetter() && text[at + 1] == u':' && text[at + 2] == u'\\';
        const bool share = at + 1 < text.size() && text[at] == u'\\' && text[at + 1] == u'\\';
        if (drive || share) {
            m_token = {};
            m_token.kind = Token::Kind::Symbol;
            m_token.text = u"path"_s;
            m_token.at = m_token.end = at;
            m_path = true;
        } else {
            Advance();
        }
        return true;
    }

    TableName ReadTable()
    {
        TableName name;
        name.at = m_token.at;
        if (std::exchange(m_path, false))
            return ReadPathAndTable();
        QString first = m_token.kind == Token::Kind::Bracketed ? m_token.text : QString();
        const bool bracketed = !first.isNull();
        if (!IsName())
            Fail(u"the name of a table is missing"_s);
        if (!bracketed)
            first = m_token.text;
        Advance();
        if (TakeSymbol(u".")) {
            if (!bracketed)
                ThrowSyntax(m_lexer.Text(), name.at, u"the path of a database begins with its drive"_s);
            name.database = first.trimmed();
            name.table = NeedName(u"the name of a table is missing behind the point"_s);
        } else {
            name.table = first.trimmed();
        }
        return name;
    }

    /// `C:\DATA BOOK\EXPORT.[COMPS]`: the path goes to the last point in front of the bracket. Without a
    /// bracket it holds no blank, and its last point stands before the table.
    TableName ReadPathAndTable()
    {
        const QString& text = m_lexer.Text();
        TableName name;
        name.at = m_token.at;
        qsizetype end = name.at;
        while (end < text.size() && !text[end].isSpace() && text[end] != u';' && text[end] != u'[')
            ++end;
        qsizetype bracket = text.indexOf(u".["_s, name.at);
        if (bracket >= 0) {
            // A bracket further on belongs to a field if one of the clause words stands in between.
            const QString between = text.mid(name.at, bracket - name.at).toUpper();
            for (const QString& word : {u" WHERE "_s, u" ORDER "_s, u" SELECT "_s, u" FROM "_s, u";"_s}) {
                if (between.contains(word))
                    bracket = -1;
            }
        }
        if (bracket >= 0) {
            name.database = text.mid(name.at, bracket - name.at).trimmed();
            m_lexer.MoveTo(bracket + 1);
            Advance();
            name.table = NeedName(u"the name of a table is missing behind the point"_s);
            return name;
        }
        const QString whole = text.mid(name.at, end - name.at);
        const qsizetype point = whole.lastIndexOf(u'.');
        if (point < 0 || point + 1 == whole.size() || whole.lastIndexOf(u'\\') > point)
            Fail(u"the name of a table is missing behind the path"_s);
        name.database = whole.left(point);
        name.table = whole.mid(point + 1);
        m_lexer.MoveTo(end);
        Advance();
        return name;
    }

    static ExpressionPtr Make(Expression::Kind kind, qsizetype at, const QString& text = {})
    {
        auto node = std::make_unique<Expression>();
        node->kind = kind;
        node->at = at;
        node->text = text;
        return node;
    }

    static ExpressionPtr MakeBinary(const Token& symbol, const QString& text, ExpressionPtr left,
                                    ExpressionPtr right)
    {
        ExpressionPtr node = Make(Expression::Kind::Binary, symbol.at, text);
        node->arguments.push_back(std::move(left));
        node->arguments.push_back(std::move(right));
        return node;
    }

    struct Depth
    {
        explicit Depth(Parser& parser)
            : owner(parser)
        {
            if (++owner.m_depth > kDeepest)
                owner.Fail(u"the expression is nested too deeply"_s);
        }
        ~Depth() { --owner.m_depth; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
        Parser& owner;
    };

    /// @param mayBeStar  a column list: `TABLE.*` gives no node
    ExpressionPtr ReadExpression(bool mayBeStar = false)
    {
        const Depth depth(*this);
        ExpressionPtr left = ReadAnd(mayBeStar);
        while (left && IsWord(u"OR")) {
            const Token symbol = m_token;
            Advance();
            left = MakeBinary(symbol, u"OR"_s, std::move(left), ReadAnd());
            CountTerm();
        }
        return left;
    }

    ExpressionPtr ReadAnd(bool mayBeStar = false)
    {
        ExpressionPtr left = ReadNot(mayBeStar);
        while (left && IsWord(u"AND")) {
            const Token symbol = m_token;
            Advance();
            left = MakeBinary(symbol, u"AND"_s, std::move(left), ReadNot());
            CountTerm();
        }
        return left;
    }

    ExpressionPtr ReadNot(bool mayBeStar = false)
    {
        if (!IsWord(u"NOT"))
            return ReadComparison(mayBeStar);
        const Depth depth(*this);
        ExpressionPtr node = Make(Expression::Kind::Not, m_token.at);
        Advance();
        node->arguments.push_back(ReadNot());
        return node;
    }

    ExpressionPtr ReadComparison(bool mayBeStar)
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

    ExpressionPtr ReadSum(bool mayBeStar = false)
    {
        ExpressionPtr left = ReadProduct(mayBeStar);
        while (left && (IsSymbol(u"+") || IsSymbol(u"-") || IsSymbol(u"&"))) {
            const Token symbol = m_token;
            Advance();
            left = MakeBinary(symbol, symbol.text, std::move(left), ReadProduct());
            CountTerm();
        }
        return left;
    }

    ExpressionPtr ReadProduct(bool mayBeStar = false)
    {
        ExpressionPtr left = ReadSign(mayBeStar);
        while (left && (IsSymbol(u"*") || IsSymbol(u"/"))) {
            const Token symbol = m_token;
            Advance();
            left = MakeBinary(symbol, symbol.text, std::move(left), ReadSign());
            CountTerm();
        }
        return left;
    }

    ExpressionPtr ReadSign(bool mayBeStar = false)
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

    ExpressionPtr ReadPrimary(bool mayBeStar)
    {
        const Token token = m_token;
        switch (token.kind) {
        case Token::Kind::Text:
            Advance();
            return Make(Expression::Kind::Text, token.at, token.text);
        case Token::Kind::Number:
        case Token::Kind::Date: {
            Advance();
            ExpressionPtr node =
                Make(token.kind == Token::Kind::Number ? Expression::Kind::Number : Expression::Kind::Date,
                     token.at);
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

    /// A name that may be a function's. LEFT and RIGHT are functions only with a parenthesis behind them.
    ExpressionPtr ReadNamed(bool mayBeStar)
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

    ExpressionPtr ReadColumn(bool mayBeStar)
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

    /// Long chains without parentheses nest to the left and are walked by recursion later.
    void CountTerm()
    {
        constexpr int kMostTerms = 1000;
        if (++m_terms > kMostTerms)
            Fail(u"the statement has too many conditions"_s);
    }

    Lexer m_lexer;
    Token m_token;
    bool m_path = false;
    int m_depth = 0;
    int m_terms = 0;
};

} // namespace

Statement Parse(const QString& text, const text::TimeSource& time)
{
    return Parser(text, time).Read();
}

Statement ParseCondition(const QString& text, const text::TimeSource& time)
{
    return Parser(text, time).ReadCondition();
}

} // namespace vasclip::engine::sql
