#pragma once

#include "forms/controls.h"
#include "platform/files/disk.h"

#include <QStringList>

namespace vasclip::photos {

/// A list of drives and a list of directories that go together: the directories above the one on show, the
/// one itself, and those below it. A double click goes there.
class DirLists : public QObject
{
    Q_OBJECT
public:
    /// The disk outlives the lists. The controls bear the names given.
    DirLists(const files::Disk& disk, forms::ControlSet& set, const QString& driveName,
             const QString& directoryName);

    forms::ComboBox drives;
    forms::ListBox directories;

    /// The directory on show, with its closing backslash.
    [[nodiscard]] const QString& Path() const { return m_path; }
    /// @return false, with the lists as they were, for a directory that is not there or can't be read
    bool GoTo(const QString& directory);
    /// To the first of these that can be shown. @return false if none can
    bool GoToFirst(const QStringList& directories);

Q_SIGNALS:
    void PathChanged();
    /// The user's choice can't be shown; the lists stand where they stood.
    void Refused(const QString& directory);

private:
    void ShowDrives();
    const files::Disk& m_disk;
    QString m_path;
    QStringList m_lines; ///< the directory of each line
    bool m_showing = false;
};

} // namespace vasclip::photos
