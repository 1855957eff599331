#pragma once

#include <QList>
#include <QString>

namespace vasclip::upkeep {

/// What is wrong with a layout, where, and what to do.
class LayoutError
{
public:
    LayoutError(int line, int column, QString what)
        : m_line(line)
        , m_column(column)
        , m_what(std::move(what))
    {}
    [[nodiscard]] int Line() const { return m_line; }     ///< from 1
    [[nodiscard]] int Column() const { return m_column; } ///< from 1
    [[nodiscard]] const QString& What() const { return m_what; }

private:
    int m_line, m_column;
    QString m_what;
};

/// A word, a text in quotes or a comma of a layout's line.
struct LayoutWord
{
    enum class Kind { Word, Text, Comma } kind = Kind::Word;
    QString text; ///< of a text what is between the quotes, "" in it being one quote
    int column = 1;
};

/// The words of one line; "#" begins a comment. @throws LayoutError for a quote that nothing closes
[[nodiscard]] QList<LayoutWord> WordsOf(const QString& line, int number);

/// Reads along the words of a line.
class LineReader
{
public:
    LineReader(QList<LayoutWord> words, int number, int end);

    [[nodiscard]] bool AtEnd() const { return m_next >= m_words.size(); }
    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] int Column() const; ///< of the next word, or behind the last
    /// Takes a word if it is the next one, in any case.
    [[nodiscard]] bool Take(const QString& word);
    [[nodiscard]] bool TakeComma();
    [[nodiscard]] bool NextIsText() const;
    /// @param what  is wanted, for the error: "a field". @throws LayoutError
    QString Word(const QString& what);
    QString Text(const QString& what);
    int WholeNumber(const QString& what, int least, int most);
    /// A length such as 0.5in, 15mm, 9pt, in twentieths of a point.
    int Length(const QString& what, double least, double most);
    /// @throws LayoutError if anything is left
    void End();
    /// @throws LayoutError about the word that was read last
    [[noreturn]] void Refuse(const QString& what) const;

private:
    QList<LayoutWord> m_words;
    int m_number;
    int m_end;
    qsizetype m_next = 0;
};

} // namespace vasclip::upkeep
