#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vasclip::upkeep {

/// One line of a CSV file with its end, as RFC 4180 has it: what holds a delimiter, a quote or a line end is quoted.
[[nodiscard]] QString CsvLine(const QStringList& values, QChar delimiter);

/// Reads the records of a CSV text. Line ends are CR LF, LF or CR; within quotes they belong to the value.
class CsvReader
{
public:
    /// @param text  outlives the reader
    CsvReader(const QString& text, QChar delimiter)
        : m_text(text)
        , m_delimiter(delimiter)
    {}

    /// The next record that holds anything, nothing at the end or at a fault.
    [[nodiscard]] std::optional<QStringList> Next();
    [[nodiscard]] qsizetype Line() const { return m_recordLine; } ///< that the last record began on, from 1
    /// What keeps the text from being read, with its line; "" if nothing does.
    [[nodiscard]] const QString& Fault() const { return m_fault; }
    [[nodiscard]] qsizetype At() const { return m_at; } ///< place in the text, for a gauge

private:
    [[nodiscard]] QString Value(bool& ends);
    [[nodiscard]] QString Quoted();
    bool TakeLineEnd();

    const QString& m_text;
    QChar m_delimiter;
    qsizetype m_at = 0;
    qsizetype m_line = 1;
    qsizetype m_recordLine = 0;
    QString m_fault;
};

/// The delimiter that a CSV text most likely has: of , ; tab and | the one that stands in its first line most often,
/// outside of quotes.
[[nodiscard]] QChar DelimiterOf(const QString& text);

} // namespace vasclip::upkeep
