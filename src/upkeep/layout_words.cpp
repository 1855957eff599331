#include "upkeep/layout_words.h"

#include "platform/paper/sheet.h"

#include <QRegularExpression>

#include <cmath>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

QList<LayoutWord> WordsOf(const QString& line, int number)
{
    QList<LayoutWord> words;
    for (qsizetype at = 0; at < line.size();) {
        const QChar letter = line[at];
        const int column = static_cast<int>(at) + 1;
        if (letter.isSpace()) {
            ++at;
        } else if (letter == u'#') {
            break;
        } else if (letter == u',') {
            words.append({LayoutWord::Kind::Comma, u","_s, column});
            ++at;
        } else if (letter == u'"') {
            QString text;
            bool closed = false;
            for (++at; at < line.size() && !closed; ++at) {
                if (line[at] != u'"') {
                    text += line[at];
                } else if (line.mid(at + 1, 1) == u'"') {
                    text += line[at++];
                } else {
                    closed = true;
                }
            }
            if (!closed)
                throw LayoutError(number, column,
                                  u"the text that begins here has no closing quote. Write one at its end"_s);
            words.append({LayoutWord::Kind::Text, text, column});
        } else {
            const qsizetype from = at;
            while (at < line.size() && !line[at].isSpace() && line[at] != u',' && line[at] != u'"' &&
                   line[at] != u'#')
                ++at;
            words.append({LayoutWord::Kind::Word, line.mid(from, at - from), column});
        }
    }
    return words;
}

LineReader::LineReader(QList<LayoutWord> words, int number, int end)
    : m_words(std::move(words))
    , m_number(number)
    , m_end(end)
{}

int LineReader::Column() const
{
    return AtEnd() ? m_end : m_words[m_next].column;
}

bool LineReader::Take(const QString& word)
{
    if (AtEnd() || m_words[m_next].kind != LayoutWord::Kind::Word ||
        m_words[m_next].text.compare(word, Qt::CaseInsensitive) != 0)
        return false;
    ++m_next;
    return true;
}

bool LineReader::TakeComma()
{
    if (AtEnd() || m_words[m_next].kind != LayoutWord::Kind::Comma)
        return false;
    ++m_next;
    return true;
}

bool LineReader::NextIsText() const
{
    return !AtEnd() && m_words[m_next].kind == LayoutWord::Kind::Text;
}

QString LineReader::Word(const QString& what)
{
    if (AtEnd() || m_words[m_next].kind != LayoutWord::Kind::Word)
        throw LayoutError(m_number, Column(), u"%1 is wanted here"_s.arg(what));
    return m_words[m_next++].text;
}

QString LineReader::Text(const QString& what)
{
    if (!NextIsText())
        throw LayoutError(m_number, Column(), u"%1 is wanted here, in double quotes"_s.arg(what));
    return m_words[m_next++].text;
}

int LineReader::WholeNumber(const QString& what, int least, int most)
{
    const QString word = Word(what);
    bool ok = false;
    const int number = word.toInt(&ok);
    if (!ok || number < least || number > most)
        Refuse(
            u"'%1' is no number from %2 to %3. Write %4 as one"_s.arg(word).arg(least).arg(most).arg(what));
    return number;
}

int LineReader::Length(const QString& what, double least, double most)
{
    static const QRegularExpression shape(u"^(\\d{1,4}(?:\\.\\d{1,4})?)(in|mm|pt)$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    const QString word = Word(what);
    const QRegularExpressionMatch match = shape.match(word);
    if (!match.hasMatch())
        Refuse(u"'%1' is no length. Write %2 as 0.5in, 12mm or 36pt"_s.arg(word, what));
    const QString unit = match.captured(2).toLower();
    const double inches = match.captured(1).toDouble() / (unit == u"in" ? 1 : unit == u"mm" ? 25.4 : 72);
    if (inches < least - 1e-9 || inches > most + 1e-9)
        Refuse(
            u"'%1' is out of bounds. Write %2 from %3 to %4 inches"_s.arg(word, what).arg(least).arg(most));
    return static_cast<int>(std::lround(inches * paper::kInch));
}

void LineReader::End()
{
    if (!AtEnd())
        throw LayoutError(m_number, Column(),
                          u"'%1' is not understood here. Take it out, or see the guide for what may "
                          "stand in this line"_s.arg(m_words[m_next].text));
}

void LineReader::Refuse(const QString& what) const
{
    throw LayoutError(m_number, m_next > 0 ? m_words[m_next - 1].column : 1, what);
}

} // namespace vasclip::upkeep
