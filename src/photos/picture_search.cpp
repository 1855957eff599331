#include "photos/picture_search.h"

#include "common/paths.h"
#include "common/text_filters.h"
#include "photos/content.h"
#include "platform/text/text.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFilesBetweenTurns = 500;

class Walk
{
public:
    Walk(const forms::Ports& ports, const files::Disk& disk, const SearchWish& wish,
         const std::function<bool(const QString&)>& look,
         const std::function<bool(const FoundDirectory&)>& found)
        : m_ports(ports)
        , m_disk(disk)
        , m_wish(wish)
        , m_look(look)
        , m_found(found)
    {}
    bool Directory(const QString& path);

private:
    [[nodiscard]] FoundDirectory Pictures(const QString& path);
    [[nodiscard]] bool IsNew(const QString& path);

    const forms::Ports& m_ports;
    const files::Disk& m_disk;
    const SearchWish& m_wish;
    const std::function<bool(const QString&)>& m_look;
    const std::function<bool(const FoundDirectory&)>& m_found;
    QSet<QString> m_seen; ///< real places: a link may lead back up
};

bool Walk::IsNew(const QString& path)
{
    try {
        const QString real = QFileInfo(m_disk.ToNative(path)).canonicalFilePath();
        if (real.isEmpty() || m_seen.contains(real))
            return false;
        m_seen.insert(real);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

FoundDirectory Walk::Pictures(const QString& path)
{
    FoundDirectory found{.path = path};
    int looked = 0;
    for (const QString& name : PictureNames(m_disk, path, m_wish.patterns)) {
        if (++looked % kFilesBetweenTurns == 0)
            m_ports.pump.DoEvents();
        try {
            const QDateTime saved = m_disk.FileDateTime(path + name);
            if (m_wish.after.isValid() && saved <= m_wish.after)
                continue;
            ++found.count;
            if (!found.newest.isValid() || saved > found.newest)
                found.newest = saved;
        } catch (const RuntimeError&) {
            // It went while the directory was read.
        }
    }
    return found;
}

bool Walk::Directory(const QString& path)
{
    m_ports.pump.DoEvents();
    if (!m_look(path))
        return false;
    if (!IsNew(path))
        return true;
    QStringList below;
    try {
        const FoundDirectory found = Pictures(path);
        if (found.count > 0 && !m_found(found))
            return false;
        below = DirectoryNames(m_disk, path);
    } catch (const RuntimeError&) {
        return true; // what may not be read holds nothing for us
    }
    return std::all_of(below.cbegin(), below.cend(),
                       [&](const QString& name) { return Directory(path + name + u'\\'); });
}

} // namespace

QString FoundRow(const FoundDirectory& found, const QDateTime& now)
{
    const qint64 age = std::max<qint64>(0, found.newest.secsTo(now));
    return found.path + u"  (%1 Images)|"_s.arg(found.count) +
           common::PadLeft(text::Dec(age), kAgeDigits, u'0');
}

QString FoundText(const QString& row)
{
    return row.section(u'|', 0, 0);
}

QString FoundPath(const QString& shown)
{
    // From the right: a directory's own name may hold a parenthesis.
    const qsizetype behind = shown.lastIndexOf(u" ("_s);
    return text::Trim(behind < 0 ? shown : shown.left(behind));
}

bool SearchPictures(const forms::Ports& ports, const files::Disk& disk, const SearchWish& wish,
                    const std::function<bool(const QString& directory)>& look,
                    const std::function<bool(const FoundDirectory&)>& found)
{
    return Walk(ports, disk, wish, look, found).Directory(common::CkRSlash(wish.root));
}

} // namespace vasclip::photos
