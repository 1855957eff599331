#include "photos/content.h"

#include "common/paths.h"
#include "platform/files/wildcard.h"
#include "platform/text/text.h"

#include <QCryptographicHash>
#include <QSet>

#include <algorithm>

namespace vasclip::photos {

QByteArray ContentSum(const files::Disk& disk, const QString& path, const std::function<bool()>& step)
{
    QCryptographicHash sum(QCryptographicHash::Blake2b_256);
    const bool whole = disk.ReadPieces(path, [&](QByteArrayView piece) {
        sum.addData(piece);
        return !step || step();
    });
    return whole ? sum.result() : QByteArray();
}

bool SameContent(const files::Disk& disk, const QString& left, const QString& right)
{
    return disk.FileLen(left) == disk.FileLen(right) && ContentSum(disk, left) == ContentSum(disk, right);
}

QStringList PictureNames(const files::Disk& disk, const QString& directory, const QString& patterns)
{
    QStringList wanted;
    for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts))
        wanted.append(files::FoldedName(text::Trim(pattern)));
    QStringList names;
    for (const QString& name : disk.Dir(common::CkRSlash(directory) + u'*')) {
        const QString folded = files::FoldedName(name);
        if (std::any_of(wanted.cbegin(), wanted.cend(),
                        [&](const QString& pattern) { return files::MatchesPattern(folded, pattern); }))
            names.append(name);
    }
    return names;
}

QStringList DirectoryNames(const files::Disk& disk, const QString& directory)
{
    const QString all = common::CkRSlash(directory) + u'*';
    const QStringList others = disk.Dir(all);
    const QSet<QString> plain(others.cbegin(), others.cend()); // a look at every file takes too long
    QStringList names = disk.Dir(all, files::Directory);
    names.removeIf([&plain](const QString& name) { return plain.contains(name); });
    return names;
}

} // namespace vasclip::photos
