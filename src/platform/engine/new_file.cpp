#include "platform/engine/new_file.h"

#include "platform/engine/errors.h"
#include "platform/engine/file_owner.h"
#include "platform/engine/process.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kMark = u".new"_s;
const QString kJournal = u"-journal"_s;
constexpr qsizetype kLongestName = 255 - 80; ///< bytes: what is made beside a draft has a mark and an end of its own

/// What the names of a target's drafts begin with. A long one is cut, so that what stands behind it has room too.
QString BeginOf(const QString& target)
{
    QString name = QFileInfo(target).fileName();
    while (name.toUtf8().size() > kLongestName)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    return name + kMark;
}

/// What processes that were killed have left beside a target: "NAME.MDB.new" with the owner's mark, and what was made
/// beside that in turn.
/// @param own  just made: its time is now by the clock of that disk
void SweepLeftovers(const QString& target, const QString& own, NewFile::Kind kind)
{
    const QFileInfo whole(target);
    const QString begin = BeginOf(target);
    const QDateTime now = QFileInfo(own).lastModified();
    QStringList left;
    for (QDirIterator files(whole.absolutePath(), QDir::Files | QDir::Hidden); files.hasNext();) {
        const QString path = files.next();
        const QString name = files.fileName();
        if (!name.startsWith(begin) || name == QFileInfo(own).fileName())
            continue;
        const FileOwner owner = FileOwner::In(QStringView(name).sliced(begin.size()));
        const bool tail = begin.size() + owner.length < name.size() && kind == NewFile::Kind::Other;
        if (!tail && owner.HasLeft(path, now))
            left.append(path);
    }
    for (const QString& path : left)
        QFile::remove(path); // one that stays is met again by the next
}

} // namespace

NewFile::NewFile(const QString& target, const QString& shown, Kind kind)
    : m_target(target)
    , m_shown(shown)
    , m_path(QFileInfo(target).path() + u'/' + BeginOf(target) + FileOwner::Own().Mark())
    , m_kind(kind)
{
    // Made empty at once, so that missing rights have their own error.
    if (!QFileInfo(QFileInfo(m_path).absolutePath()).isDir())
        throw RuntimeError(error::kPathNotFound, u"The directory of %1 is not there"_s.arg(shown));
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        throw RuntimeError(
            error::kPathFileAccess,
            u"The file %1 could not be made. Make sure that you have rights to its directory"_s.arg(shown));
    file.close();
    SweepLeftovers(target, m_path, kind);
}

NewFile::~NewFile()
{
    Remove();
}

void NewFile::Finish()
{
    // A journal that another file of the name has left would be played back into this one. Of a file that is there it
    // goes last: until then it may be needed.
    const QString journal = m_target + kJournal;
    const bool gone = m_kind == Kind::Other || QFile::exists(m_target) || !QFile::exists(journal) || QFile::remove(journal);
    if (!gone || !FlushFile(m_path) || !RenameOver(m_path, m_target))
        throw RuntimeError(
            error::kPathFileAccess,
            u"The file %1 could not be written. Make sure that you have rights to its directory"_s.arg(
                m_shown));
    if (m_kind == Kind::Database)
        QFile::remove(journal);
}

void NewFile::Remove()
{
    QFile::remove(m_path);
    if (m_kind == Kind::Database)
        QFile::remove(m_path + kJournal);
}

} // namespace vasclip::engine
