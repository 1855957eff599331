#include "upkeep/photo_places.h"

#include "common/paths.h"
#include "photos/photo_files.h"
#include "platform/files/drive_path.h"
#include "platform/files/wildcard.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestName = 255; ///< bytes, on every disk that is in use
constexpr unsigned kAll = files::ReadOnly | files::Hidden | files::Directory;
const QString kJpg = u".jpg"_s;

} // namespace

PhotoPlaces::PhotoPlaces(const TransferDesk& desk)
{
    const QString directory = common::CkRSlash(desk.globals.G_PhotoDir);
    m_directory = desk.Disk().ToNative(directory) + u'/';
    for (const QString& name : desk.Disk().Dir(directory + u'*', kAll)) {
        m_names.insert(name);
        if (const QString folded = files::FoldedName(name); !m_spelled.contains(folded))
            m_spelled.insert(folded, name);
    }
}

QString PhotoPlaces::Of(const QString& stem, const QString& suffix) const
{
    const QString name = stem + kJpg;
    if (!photos::IsPlainStem(stem) || !files::IsPossibleName(name) || (name + suffix).toUtf8().size() > kLongestName)
        return {};
    return m_directory + (m_names.contains(name) ? name : m_spelled.value(files::FoldedName(name), name));
}

} // namespace vasclip::upkeep
