#pragma once

#include "platform/files/letters.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace vasclip::files {

/// The text of an ini file, line by line, with every line that is not written kept to the byte.
///
/// Code page: a file that begins with the UTF-16 mark is that; any other is UTF-8 if its bytes are, else in the system's letters.
/// One of plain letters alone may be either: it is what the system's other programs take it for. It is written back in the same
/// one; only a value that the letters lack turns the whole file to UTF-8 (without a mark: by the rules of these files a UTF-8 mark
/// spoils the first line). New lines end with CR LF.
class IniText
{
public:
    explicit IniText(const QByteArray& content, const Letters& letters = SystemLetters());

    /// The value, without outer blanks and one pair of outer quotes; nullopt without section, key or "=".
    [[nodiscard]] std::optional<QString> Value(const QString& section, const QString& key) const;
    [[nodiscard]] QStringList Keys(const QString& section) const;

    /// Null value: deletes the key; null key: deletes the section with its header.
    /// @return false if the names or the value could not be read back from a line
    bool Write(const QString& section, const QString& key, const QString& value);

    [[nodiscard]] bool IsChanged() const { return m_changed; }
    [[nodiscard]] QByteArray Bytes() const;

private:
    enum class Code { Utf8, Letters, Utf16 };
    enum class Kind { Other, Header, Key };

    struct Line
    {
        QByteArray raw; ///< with its line end
        Kind kind = Kind::Other;
        QString name; ///< of the section or key, without outer blanks, as spelled
        QString folded;
        qsizetype valueAt = -1; ///< in the decoded line, behind "="; -1 without one
    };

    /// The lines from one header to the next; the block ahead of the first header has no name.
    struct Block
    {
        QList<Line> lines;
        QHash<QString, qsizetype> index; ///< folded key: its first line
        qsizetype lastKey = 0;           ///< where the last key stands, else the header
    };

    void Split(const QByteArray& content);
    [[nodiscard]] QString Decoded(const QByteArray& raw) const;
    [[nodiscard]] QString WithoutEnd(const QByteArray& raw) const;
    void Classify(Line& line) const;
    static void Index(Block& block);
    void IndexSections();
    [[nodiscard]] const Block* Find(const QString& section) const;
    [[nodiscard]] QByteArray Encoded(const QString& text);
    void TurnToUtf8();
    [[nodiscard]] Line NewLine(const QString& text);
    void CloseLastLine(Block& block);
    void WriteKey(Block& block, const QString& key, const QString& value);

    Letters m_letters;
    Code m_code = Code::Utf8;
    QByteArray m_mark;                    ///< of UTF-16, kept apart from the first line
    QList<Block> m_blocks;                ///< never empty
    QHash<QString, qsizetype> m_sections; ///< folded name: its first block
    bool m_changed = false;
};

} // namespace vasclip::files
