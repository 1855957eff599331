#include "photos/dir_lists.h"

#include "common/paths.h"
#include "photos/content.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

DirLists::DirLists(const files::Disk& disk, forms::ControlSet& set, const QString& driveName,
                   const QString& directoryName)
    : drives(set, driveName)
    , directories(set, directoryName)
    , m_disk(disk)
{
    for (const auto& [letter, native] : m_disk.Drives())
        drives.AddItem(QString(letter).toUpper() + u':');
    connect(&drives, &forms::ListBox::ListIndexChanged, this, [this] {
        if (m_showing || drives.ListIndex() < 0)
            return;
        const QString wanted = drives.List(drives.ListIndex()) + u'\\';
        if (GoTo(wanted))
            return;
        ShowDrives();
        Q_EMIT Refused(wanted);
    });
    connect(&directories, &forms::Control::DoubleClicked, this, [this] {
        const QString wanted = m_lines.value(directories.ListIndex());
        if (!wanted.isEmpty() && !GoTo(wanted))
            Q_EMIT Refused(wanted);
    });
}

bool DirLists::GoTo(const QString& directory)
{
    const QString wanted = common::CkRSlash(directory);
    QStringList below;
    try {
        if (wanted.size() < 3 || !m_disk.DirExists(wanted))
            return false;
        below = DirectoryNames(m_disk, wanted);
    } catch (const RuntimeError&) {
        return false;
    }
    m_path = wanted;
    m_lines.clear();
    {
        const QScopedValueRollback<bool> showing(m_showing, true);
        QStringList shown;
        QString path;
        int depth = 0;
        for (const QString& part : wanted.split(u'\\', Qt::SkipEmptyParts)) {
            path += part + u'\\';
            m_lines.append(path);
            shown.append(QString(depth * 2, u' ') + (depth == 0 ? path : part));
            ++depth;
        }
        const int here = depth - 1;
        for (const QString& name : std::as_const(below)) {
            m_lines.append(path + name + u'\\');
            shown.append(QString(depth * 2, u' ') + name);
        }
        directories.SetItems(shown);
        directories.SetListIndex(here);
    }
    ShowDrives();
    Q_EMIT PathChanged();
    return true;
}

bool DirLists::GoToFirst(const QStringList& wanted)
{
    for (const QString& directory : wanted) {
        if (GoTo(directory))
            return true;
    }
    return false;
}

void DirLists::ShowDrives()
{
    const QScopedValueRollback<bool> showing(m_showing, true);
    drives.SetListIndex(drives.IndexOf(m_path.left(2)));
}

} // namespace vasclip::photos
