#include "common/paths.h"

#include "platform/text/text.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {

QString CkRSlash(const QString& path)
{
    const QString trimmed = text::Trim(path);
    return trimmed.isEmpty() || trimmed.endsWith(u'\\') ? trimmed : trimmed + u'\\';
}

QString StripRChar(QString& path)
{
    path = text::Trim(path);
    return path.endsWith(u'\\') ? path.chopped(1) : path;
}

FileNameParts ParseFileName(const QString& path)
{
    QString rest = text::Folded(path);
    FileNameParts parts;
    if (rest.isEmpty())
        return parts;
    if (rest.size() > 1 && rest[1] == u':') {
        parts.drive = rest.left(2);
        rest.remove(0, 2);
    }
    if (const qsizetype bracket = rest.indexOf(u']'); bracket >= 0)
        rest.remove(0, bracket + 1);
    if (const qsizetype dot = rest.indexOf(u'.'); dot >= 0) {
        parts.extension = rest.mid(dot + 1);
        rest.truncate(dot);
    }
    const qsizetype afterSlash = rest.lastIndexOf(u'\\') + 1;
    parts.directory = rest.left(afterSlash);
    parts.name = rest.mid(afterSlash);
    return parts;
}

FileNameParts SplitFilePath(const QString& path)
{
    FileNameParts parts;
    parts.directory = text::Folded(path);
    parts.name = parts.directory.mid(parts.directory.lastIndexOf(u'\\') + 1);
    parts.directory.chop(parts.name.size());
    if (parts.directory.size() > 1 && parts.directory[1] == u':') {
        parts.drive = parts.directory.left(2);
        parts.directory.remove(0, 2);
    }
    if (const qsizetype dot = parts.name.lastIndexOf(u'.'); dot >= 0) {
        parts.extension = parts.name.mid(dot + 1);
        parts.name.truncate(dot);
    }
    return parts;
}

QString WholeFileName(const QString& path)
{
    const QString folded = text::Folded(path);
    return folded.mid(folded.lastIndexOf(u'\\') + 1);
}

QString FileNameOnly(const QString& path)
{
    return ParseFileName(path).name;
}

QString FileExtension(const QString& path)
{
    return ParseFileName(path).extension;
}

bool IsTrashDirectory(const QString& path)
{
    const FileNameParts parts = ParseFileName(path);
    return (parts.drive + parts.directory).endsWith("TRASHCAN\\"_L1);
}

void MakeDirectory(const files::Disk& disk, forms::Prompter& prompter, const QString& path)
{
    QString wanted = path;
    wanted = StripRChar(wanted);
    if (wanted.isEmpty())
        return;
    if (wanted.size() == 2)
        wanted += u'\\';
    if (disk.DirExists(wanted) || disk.Found(wanted, files::Directory))
        return;
    prompter.Box(u"Creating Directory"_s, u"Creating directory %1."_s.arg(wanted));
    for (qsizetype slash = wanted.indexOf(u'\\', 3); slash > 0; slash = wanted.indexOf(u'\\', slash + 1)) {
        const QString above = wanted.left(slash);
        if (!disk.DirExists(above))
            disk.MkDir(above);
    }
    disk.MkDir(wanted);
}

} // namespace vasclip::common
