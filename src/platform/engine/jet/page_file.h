#pragma once

#include "platform/engine/jet/bytes.h"
#include "platform/engine/jet/format.h"

#include <QFile>

#include <vector>

namespace vasclip::engine::jet {

/// What the first page says of the whole file.
struct Header
{
    bool ace = false;        ///< of a later generation, with the same layout
    quint32 version = 0;     ///< 0 for Jet 3, 1 for Jet 4
    quint16 codePage = 1252; ///< of the texts of Jet 3
    quint32 pageKey = 0;     ///< that all further pages are masked with; 0 for none
};

/// Does a file begin as a genuine one does?
[[nodiscard]] bool IsGenuineHeader(const QByteArray& begin);

/// A genuine file, read page by page, and never written.
class PageFile
{
public:
    /// @param native  its path; `shown` is its drive path for messages
    /// @throws 3051 no right to read it, 3049 it breaks off in its first page, 3343 it is not genuine, 3031 it is
    /// encrypted with more than the key that it holds
    PageFile(const QString& native, const QString& shown);

    [[nodiscard]] const Format& Shape() const { return m_header.version == 0 ? kJet3 : kJet4; }
    [[nodiscard]] const Header& Head() const { return m_header; }
    [[nodiscard]] const QString& Shown() const { return m_shown; }
    [[nodiscard]] quint32 Pages() const { return m_pages; }
    [[nodiscard]] qint64 Size() const { return m_size; }
    /// @throws Damaged for one that is not there
    [[nodiscard]] QByteArray Page(quint32 number);

private:
    void ReadHeader();

    struct Kept
    {
        quint32 number = 0;
        QByteArray bytes;
    };

    QFile m_file;
    QString m_shown;
    qint64 m_size = 0;
    quint32 m_pages = 0;
    Header m_header;
    std::vector<Kept> m_kept; ///< pages read lately, each at its number's place
};

} // namespace vasclip::engine::jet
