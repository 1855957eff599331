#include "kelforms/core/macro.h"

#include "platform/text/runtime_error.h"

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace error = vasclip::error;
using vasclip::RuntimeError;

namespace {

class Reader
{
public:
    explicit Reader(const QString& text)
        : m_text(text)
    {}

    [[nodiscard]] bool AtEnd() const { return m_at >= m_text.size(); }
    [[nodiscard]] QChar Peek() const { return AtEnd() ? QChar() : m_text[m_at]; }
    [[nodiscard]] qsizetype Position() const { return m_at; }
    void MoveTo(qsizetype position) { m_at = position; }

    [[noreturn]] void Fail(const QString& expected) const
    {
        QString found = u"the end of the command"_s;
        if (!AtEnd()) {
            QString rest = m_text.mid(m_at, 20);
            for (QChar& c : rest) {
                if (!c.isPrint())
                    c = u'?';
            }
            found = u"\"%1\""_s.arg(rest);
        }
        throw RuntimeError(error::kLinkBusy,
                           u"Macro not understood at character %1: %2 expected, %3 found"_s.arg(m_at + 1).arg(
                               expected, found));
    }

    void SkipBlanks()
    {
        while (Peek() == u' ' || Peek() == u'\t')
            ++m_at;
    }

    void SkipSpace()
    {
        while (Peek() == u' ' || Peek() == u'\t' || IsLineEnd())
            ++m_at;
    }

    [[nodiscard]] bool IsLineEnd() const { return Peek() == u'\r' || Peek() == u'\n'; }

    [[nodiscard]] bool Take(QChar wanted)
    {
        if (AtEnd() || Peek() != wanted)
            return false;
        ++m_at;
        return true;
    }

    void Expect(QChar wanted)
    {
        if (!Take(wanted))
            Fail(u"\"%1\""_s.arg(wanted));
    }

    [[nodiscard]] QString Word()
    {
        const qsizetype start = m_at;
        while (!AtEnd() && (Peek().isLetterOrNumber() || Peek() == u'_'))
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

    [[nodiscard]] QString Quoted()
    {
        Expect(u'"');
        QString text;
        while (!Take(u'"')) {
            if (AtEnd() || IsLineEnd())
                Fail(u"the closing quote"_s);
            if (Take(u'\\')) {
                if (Peek() != u'\\' && Peek() != u'"')
                    Fail(u"a second backslash"_s);
            }
            text += Peek();
            ++m_at;
        }
        return text;
    }

    [[nodiscard]] QString Until(QChar end)
    {
        const qsizetype start = m_at;
        while (!AtEnd() && Peek() != end && !IsLineEnd())
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

private:
    const QString& m_text;
    qsizetype m_at = 0;
};

MacroValue ReadValue(Reader& reader)
{
    MacroValue value;
    value.at = reader.Position() + 1;
    if (reader.Peek() == u'"') {
        value.text = reader.Quoted();
        return value;
    }
    const QString word = reader.Word();
    if (!word.isEmpty() && reader.Take(u'$')) {
        value.kind = MacroValue::Kind::Call;
        value.text = word.toUpper() + u'$';
        reader.SkipBlanks();
        reader.Expect(u'(');
        value.argument = reader.Until(u')').trimmed();
        reader.Expect(u')');
        return value;
    }
    bool digits = !word.isEmpty();
    for (const QChar c : word)
        digits = digits && c >= u'0' && c <= u'9';
    if (!digits) {
        reader.MoveTo(value.at - 1);
        reader.Fail(u"a text in quotes, a number or a function"_s);
    }
    value.kind = MacroValue::Kind::Number;
    value.text = word;
    return value;
}

MacroStatement ReadStatement(Reader& reader)
{
    MacroStatement statement;
    statement.at = reader.Position() + 1;
    statement.keyword = reader.Word().toUpper();
    if (statement.keyword.isEmpty())
        reader.Fail(u"a statement"_s);
    reader.SkipBlanks();
    if (reader.AtEnd() || reader.IsLineEnd() || reader.Peek() == u')')
        return statement;
    for (;;) {
        statement.values.append(ReadValue(reader));
        reader.SkipBlanks();
        if (!reader.Take(u','))
            return statement;
        reader.SkipBlanks();
    }
}

/// A body that is a file name: one line, a point, nothing that a statement has.
bool IsFileName(const QString& body)
{
    if (!body.contains(u'.'))
        return false;
    for (const QChar c : body) {
        if (u"\"()[],\r\n"_s.contains(c))
            return false;
    }
    return true;
}

} // namespace

Macro ParseCommand(const QString& command)
{
    Reader reader(command);
    reader.SkipSpace();
    reader.Expect(u'[');
    reader.SkipSpace();
    const qsizetype word = reader.Position();
    if (reader.Word().compare("RunMacro"_L1, Qt::CaseInsensitive) != 0) {
        reader.MoveTo(word);
        reader.Fail(u"\"RunMacro\""_s);
    }
    reader.SkipSpace();
    reader.Expect(u'(');

    Macro macro;
    const qsizetype body = reader.Position();
    const QString name = reader.Until(u')').trimmed();
    if (reader.Peek() == u')' && IsFileName(name)) {
        macro.script = name;
    } else {
        reader.MoveTo(body);
        reader.SkipSpace();
        do {
            macro.statements.append(ReadStatement(reader));
            if (!reader.AtEnd() && !reader.IsLineEnd() && reader.Peek() != u')')
                reader.Fail(u"\",\", a line end or \")\""_s);
            reader.SkipSpace();
        } while (!reader.AtEnd() && reader.Peek() != u')');
    }
    reader.Expect(u')');
    reader.SkipSpace();
    reader.Expect(u']');
    reader.SkipSpace();
    if (!reader.AtEnd())
        reader.Fail(u"the end"_s);
    return macro;
}

QList<MacroStatement> ParseScript(const QString& text)
{
    QList<MacroStatement> statements;
    const QStringList lines = text.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = lines[i].trimmed();
        if (line.isEmpty() || line.startsWith(u'\''))
            continue;
        try {
            Reader reader(line);
            statements.append(ReadStatement(reader));
            if (!reader.AtEnd())
                reader.Fail(u"the end of the line"_s);
        } catch (const RuntimeError& wrong) {
            throw RuntimeError(wrong.Number(), u"Line %1: %2"_s.arg(i + 1).arg(wrong.Description()));
        }
    }
    return statements;
}

} // namespace kelforms
