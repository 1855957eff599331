#include "platform/engine/sql_parser.h"

#include "platform/engine/sql_expression_parser.h"

#include <utility>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

class Parser : private ExpressionParser
{
public:
    Parser(const QString& text, const text::TimeSource& time)
        : ExpressionParser(text, time)
    {}

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

    bool m_path = false;
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
