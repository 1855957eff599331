#pragma once

#include "platform/engine/jet/bytes.h"
#include "platform/engine/jet/format.h"

#include <QFile>

#include <functional>
#include <vector>

namespace vasclip::engine::jet {

/// The pages of a new file. Each is written once, in whatever order.
class PageWriter
{
public:
    /// @param native  the file, which is there and empty; `shown` is the drive path of the target, for messages
    PageWriter(const QString& native, const QString& shown);

    [[nodiscard]] quint32 Take() { return m_pages++; } ///< the number of a further page
    void Reserve(quint32 pages) { m_pages = pages; }
    void Write(quint32 number, const QByteArray& page); ///< @throws 61
    /// A page that was taken and is not needed after all.
    void Release(quint32 number) { m_free.push_back(number); }
    void Close(); ///< @throws 61

    [[nodiscard]] quint32 Pages() const { return m_pages; }
    [[nodiscard]] const std::vector<quint32>& Free() const { return m_free; }
    [[nodiscard]] QString Native() const { return m_file.fileName(); }
    [[noreturn]] void Full() const;

private:
    QFile m_file;
    QString m_shown;
    quint32 m_pages = 0;
    std::vector<quint32> m_free;
};

/// A set of pages as the maps of a file list them.
class PageSet
{
public:
    void Add(quint32 page);
    [[nodiscard]] bool Empty() const { return m_bits.isEmpty(); }
    void ForEach(const std::function<void(quint32)>& sink) const;
    [[nodiscard]] quint32 First() const { return m_first; }
    [[nodiscard]] quint32 Last() const { return m_last; }
    /// Bits of `bytes` × 8 pages, from one that a whole byte begins with.
    [[nodiscard]] QByteArray Bits(quint32 first, int bytes) const;

private:
    QByteArray m_bits; ///< of all pages from 0 on
    quint32 m_first = 0;
    quint32 m_last = 0;
};

/// Rows that fill a page of the new file from its end.
class PageBuilder
{
public:
    explicit PageBuilder(quint32 owner);

    /// @return its number, or -1 if the page has no room for it
    int Add(const QByteArray& row);
    [[nodiscard]] bool Empty() const { return m_rows == 0; }
    [[nodiscard]] const QByteArray& Bytes();

private:
    QByteArray m_page;
    int m_rows = 0;
    int m_start = kJet4.pageSize; ///< of the row that was added last
};

} // namespace vasclip::engine::jet
