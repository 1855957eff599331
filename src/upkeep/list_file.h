#pragma once

#include "platform/files/disk.h"
#include "upkeep/list_look.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>

#include <memory>
#include <optional>

namespace vasclip::sheet {
class Workbook;
}

namespace vasclip::upkeep {

struct ListCell
{
    QString text;
    /// A number with a point, or a date from the year on: nobody's way of writing, whatever the list's is.
    bool exact = false;
    QString fault = {}; ///< why it holds no value, "#N/A"
};

/// One line of a list that holds anything.
struct ListLine
{
    qint64 number = 0; ///< by which people find it: the line that it begins on, or the row of the sheet
    QList<ListCell> cells;
};

/// Reads a list from its first line on.
class ListReader
{
public:
    virtual ~ListReader() = default;
    /// Nothing behind the last. @throws RuntimeError 3343 with the line for what can't be read
    [[nodiscard]] virtual std::optional<ListLine> Next() = 0;
    [[nodiscard]] virtual qint64 At() const = 0; ///< of Size, for a gauge
    [[nodiscard]] virtual qint64 Size() const = 0;
};

/// Is a file of that name taken for a list, and not for a database?
[[nodiscard]] bool IsListName(const QString& file);
/// For a list of files: "*.csv" and the others.
[[nodiscard]] QStringList ListPatterns();

/// The sheets of a spreadsheet file, none of a text file. @throws RuntimeError as ListFile
[[nodiscard]] QStringList SheetsOf(const files::Disk& disk, const QString& file);

/// A text file or a spreadsheet file, as it was when it was opened.
class ListFile
{
public:
    /// @param file  drive path. @throws RuntimeError 53, 75 of the disk, 3343 for what is no spreadsheet
    ListFile(const files::Disk& disk, const QString& file);
    ~ListFile();

    [[nodiscard]] const QString& File() const { return m_file; }
    [[nodiscard]] bool IsWorkbook() const { return m_book != nullptr; }
    [[nodiscard]] QStringList Sheets() const; ///< none of a text file
    /// What a text file is when nobody says so, of the code page given if one is: code page and delimiter.
    /// @throws RuntimeError 3343 for a text of another code page
    void Guess(ListLook& look) const;
    /// Reads with the delimiter and code page, or the sheet, of a look. The file outlives the reader.
    /// @throws RuntimeError 3343 for a text of another code page or a sheet that is not there
    [[nodiscard]] std::unique_ptr<ListReader> Open(const ListLook& look) const;
    /// Has the file on the disk changed since?
    [[nodiscard]] bool HasChanged() const;

private:
    const QString& TextIn(const QString& codePage) const;

    const files::Disk& m_disk;
    QString m_file;
    qint64 m_size = 0;
    QDateTime m_time;
    QByteArray m_bytes;
    mutable QHash<QString, QString> m_texts; ///< by code page
    std::unique_ptr<sheet::Workbook> m_book;
};

} // namespace vasclip::upkeep
