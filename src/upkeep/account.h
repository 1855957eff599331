#pragma once

#include "forms/controls.h"
#include "platform/files/disk.h"
#include "store/record.h"
#include "upkeep/line_file.h"

#include <QMap>

namespace vasclip::upkeep {

/// What a walk did to the records: a line for every field that it changed, with the text before and after, and for
/// every field of a record that it deleted. The lines are kept in a file, so that a walk over any number of records
/// takes no memory for them. As a list it shows them for people.
class Account : public forms::ListSource
{
public:
    /// Begins anew. @param heading  what was done, when and to which file
    void Begin(const QString& heading);
    void Changed(const QString& key, const QString& field, const QString& before, const QString& after);
    void Deleted(const QString& key, const store::Record& record, const QStringList& fields);
    /// A record was gone through, and something of it was changed.
    void RecordChanged() { ++m_changed; }
    void RecordSeen() { ++m_seen; }
    /// What else is to be known of a record, for the user's eyes.
    void Remark(const QString& key, const QString& words);
    void Flush() { m_lines.Flush(); } ///< @throws RuntimeError 57, 61
    void TakeBack(); ///< of a walk that was taken back nothing has become

    [[nodiscard]] const QString& Heading() const { return m_heading; }
    [[nodiscard]] qint64 Seen() const { return m_seen; }
    [[nodiscard]] qint64 Records() const { return m_changed; } ///< that were changed
    [[nodiscard]] qint64 Removed() const { return m_removed; } ///< records that were deleted
    /// "12 of 60 records were changed: AGE 12, ST 3 (3 emptied)."
    [[nodiscard]] QString Summary() const;

    [[nodiscard]] int Count() const override { return static_cast<int>(m_lines.Count()); }
    [[nodiscard]] QString Line(int index) const override;

    /// Writes heading, summary and every line, fields apart by tabs, whole or not at all.
    /// @param path  drive path. @throws RuntimeError of the disk
    void Save(const files::Disk& disk, const QString& path) const;

private:
    struct Tally
    {
        qint64 changed = 0;
        qint64 emptied = 0;
    };

    void Add(QStringView key, QLatin1StringView what, QStringView field, QStringView before, QStringView after);

    LineFile m_lines;
    QByteArray m_line; ///< the last one, whose room is used again
    QString m_heading;
    qint64 m_seen = 0, m_changed = 0, m_removed = 0;
    QMap<QString, Tally> m_fields;
};

} // namespace vasclip::upkeep
