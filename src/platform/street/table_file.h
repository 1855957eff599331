#pragma once

#include "platform/street/sql.h"

#include <QByteArray>
#include <QFile>

#include <memory>
#include <mutex>
#include <vector>

namespace vasclip::street {

/// A finished file of maps, whose rows are read by their numbers straight from its pages.
///
/// SQLite writes these files, checks them and could read them, but takes longer to open one (0.2 ms: the schema, the
/// statements, the caches) than an address takes to find, and of a country's counties next to none are open already.
/// A finished file never changes, so nothing of locks and journals is wanted here; its pages are as
/// https://sqlite.org/fileformat2.html has them. Whatever the bytes are, no more is read or taken than the file has.
/// Any thread may ask.
class TableFile
{
public:
    enum class Read { Done, None, Damaged };

    /// @param path  native
    /// @return null with the reason in `problem`: missing, damaged, foreign, or made for another version
    [[nodiscard]] static std::unique_ptr<TableFile> Open(const QString& path, FileKind kind, QString& problem);

    /// By which a table's rows are asked for; 0, which has no row, for a table that isn't there.
    [[nodiscard]] quint32 Table(QByteArrayView name) const;
    /// The columns of a row: numbers, texts and blobs as they lie there. An own number is none of them.
    [[nodiscard]] Read Row(quint32 table, qint64 number, QByteArray& record) const;
    /// The only blob of a row.
    [[nodiscard]] Read Blob(quint32 table, qint64 number, QByteArray& blob) const;
    /// The numbers of a table's rows from `first` to `last`, ascending. @return false where the file is damaged
    [[nodiscard]] bool Numbers(quint32 table, qint64 first, qint64 last, std::vector<quint32>& numbers) const;

private:
    class Page;
    struct Named
    {
        QByteArray name;
        quint32 root = 0;
    };

    explicit TableFile(const QString& path)
        : m_file(path)
    {}
    [[nodiscard]] bool ReadAt(qint64 at, char* into, qint64 size) const;
    [[nodiscard]] bool ReadSchema();
    [[nodiscard]] Read Payload(const Page& page, qsizetype at, QByteArray& payload) const;
    /// @param pages  how many may still be read: a damaged file may lead in circles
    [[nodiscard]] bool Collect(quint32 page, int depth, qint64& pages, qint64 first, qint64 last,
                               std::vector<quint32>& numbers) const;

    mutable QFile m_file;
    mutable std::mutex m_guard; ///< over the place in the file
    qint64 m_size = 0;
    qsizetype m_page = 0; ///< bytes of one
    qsizetype m_usable = 0; ///< of them
    std::vector<Named> m_tables;
};

/// The columns of a row, one after another.
class RecordColumns
{
public:
    explicit RecordColumns(QByteArrayView record);
    /// 0 and "" for what is no number or text, and beyond the last.
    [[nodiscard]] qint64 Number();
    [[nodiscard]] QByteArrayView Bytes();
    void Skip() { (void)Bytes(); }
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    struct Value
    {
        quint64 type = 0;
        QByteArrayView bytes;
    };
    [[nodiscard]] Value Next();

    QByteArrayView m_types;
    QByteArrayView m_values;
    bool m_failed = false;
};

} // namespace vasclip::street
