#include "upkeep/draft_file.h"

#include "platform/files/native.h"
#include "platform/text/runtime_error.h"
#include "upkeep/target_file.h"

#include <QFileInfo>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kNoPlace = u"%1 can't be written: a directory or a file that is write-protected stands there. Nothing was stored. Choose "
                         u"another name"_s;
const QString kNoDirectory = u"The directory of %1 is not there. Choose another directory"_s;

/// Where the file itself is. @throws RuntimeError 75 where nothing may take its place, 76
QString PlaceOf(const QString& target, const QString& shown)
{
    const QFileInfo given(target);
    const QFileInfo place(given.isSymLink() ? given.symLinkTarget() : target);
    const bool open = place.isFile() && files::native::MayWrite(place.absoluteFilePath()) && place.permission(QFile::WriteOwner);
    if (place.exists() && !open)
        throw RuntimeError(error::kPathFileAccess, kNoPlace.arg(shown));
    if (!QFileInfo(place.absolutePath()).isDir())
        throw RuntimeError(error::kPathNotFound, kNoDirectory.arg(shown));
    return place.absoluteFilePath();
}

} // namespace

DraftFile::DraftFile(const QString& target, const QString& shown)
    : m_target(PlaceOf(target, shown))
    , m_shown(shown)
    , m_file(m_target, shown, engine::NewFile::Kind::Other)
    , m_out(m_file.Path())
{
    if (!m_out.open(QIODevice::WriteOnly))
        FailWriting(shown, m_out);
    if (QFile::exists(m_target)) // whoever could read the old one can read the new one
        static_cast<void>(m_out.setPermissions(QFile::permissions(m_target)));
}

void DraftFile::Finish()
{
    if (!m_out.flush() || m_out.error() != QFileDevice::NoError)
        FailWriting(m_shown, m_out);
    m_out.close();
    m_file.Finish();
}

} // namespace vasclip::upkeep
