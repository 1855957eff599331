#pragma once

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>

namespace vasclip::mapdata {

/// What an import took and what it left out, and why: counted here, each record on a line of its own in a file.
class Account
{
public:
    /// @param file  native; "" keeps no lines. @return false with the reason in `problem`
    [[nodiscard]] bool Open(const QString& file, QString& problem);

    void Took(const QString& what, qint64 count = 1) { m_taken[what] += count; }
    /// A record that does not come onto the map.
    void Left(const QString& source, const QString& record, const QString& why);
    /// A record that comes onto the map, but not all that it says.
    void Remark(const QString& source, const QString& record, const QString& what);
    /// Something about a whole source or directory; told to the user too.
    void Note(const QString& words);
    /// Many records of a source at once, in one line.
    void Several(const QString& source, qint64 count, const QString& what);

    [[nodiscard]] const QMap<QString, qint64>& Taken() const { return m_taken; }
    [[nodiscard]] const QMap<QString, qint64>& LeftOut() const { return m_left; }
    [[nodiscard]] const QMap<QString, qint64>& Remarks() const { return m_remarks; }
    [[nodiscard]] const QStringList& Notes() const { return m_notes; }
    /// Writes the sums under the lines. @return false where the file could not be written to its end
    [[nodiscard]] bool Close();

private:
    void Line(const QString& line);

    QFile m_file;
    bool m_failed = false;
    QMap<QString, qint64> m_taken;
    QMap<QString, qint64> m_left;
    QMap<QString, qint64> m_remarks;
    QStringList m_notes;
};

} // namespace vasclip::mapdata
