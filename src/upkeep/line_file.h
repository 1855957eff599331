#pragma once

#include <QString>
#include <QTemporaryFile>

#include <vector>

namespace vasclip::upkeep {

/// Lines in a temporary file, as many as there are: memory holds a place for every sixty-fourth alone.
class LineFile
{
public:
    /// @throws RuntimeError 57, 61 when the disk does not take it
    void Append(const QByteArray& line);
    [[nodiscard]] qint64 Count() const { return m_count; }
    [[nodiscard]] QString Line(qint64 index) const; ///< "" out of range
    void Clear();
    /// All of it is in the file then, so that no line is lost to a disk that fills up later. @throws RuntimeError 57, 61
    void Flush() const;

private:
    struct Block
    {
        qint64 first = -1; ///< its first line
        QList<QByteArray> lines = {};
    };
    void Read(qint64 first) const;

    mutable QTemporaryFile m_file;
    mutable QByteArray m_pending; ///< what is not in the file yet
    mutable qint64 m_written = 0;
    std::vector<qint64> m_places; ///< where the blocks begin
    qint64 m_count = 0;
    qint64 m_end = 0;
    mutable Block m_block; ///< the one that was read last
};

} // namespace vasclip::upkeep
