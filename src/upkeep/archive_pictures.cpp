#include "upkeep/archive_pictures.h"

#include "common/paths.h"
#include "photos/content.h"
#include "photos/photo_list.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "upkeep/named_pictures.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFrontView = u"FRONT VIEW"_s;

} // namespace

QString ArchivePictures(const QString& file)
{
    const qsizetype dot = file.lastIndexOf(u'.');
    return (dot > file.lastIndexOf(u'\\') ? file.left(dot) : file) + u"_JPG\\"_s;
}

ArchivedPictures::ArchivedPictures(const files::Disk& disk, const QString& photoDir, const QString& file)
    : m_disk(disk)
    , m_photoDir(common::CkRSlash(photoDir))
    , m_directory(ArchivePictures(file))
{}

QStringList ArchivedPictures::StemsOf(const store::Record& record, QStringList& missing) const
{
    QStringList stems;
    if (!record.Has(fields::PHOTOS))
        return stems;
    for (const auto& [view, listed] : photos::ParsePhotos(record.Text(fields::PHOTOS))) {
        const QString stem = text::Trim(listed);
        if (stem.isEmpty() || stem.contains(u'\\'))
            continue;
        if (m_disk.FileExists(Here(stem)))
            stems.append(stem);
        else if (!m_disk.FileExists(There(stem))) // where it went with another record
            missing.append(stem);
    }
    return stems;
}

QList<ArchivedFile> ArchivedPictures::FilesOf(const QStringList& stems) const
{
    QList<ArchivedFile> found;
    for (const QString& stem : stems) {
        const QString here = m_disk.ToNative(Here(stem));
        found.append({.here = here,
                      .there = m_disk.ToNative(There(stem)),
                      .mark = FileMark::Of(here),
                      .fresh = !m_disk.Found(There(stem), files::ReadOnly | files::Hidden)});
    }
    return found;
}

/// A picture gives way with the record that shows it, unless another one of the archive shows it too.
bool ArchivedPictures::MayReplace(const QString& stem, const store::DataSource& archive,
                                  const std::optional<store::Record>& there)
{
    if (!there || !there->Has(fields::PHOTOS))
        return false;
    const QString held = there->Text(fields::PHOTOS);
    const auto shows = [&](const auto& listed) { return text::Folded(listed.second) == text::Folded(stem); };
    if (std::ranges::none_of(photos::ParsePhotos(held), shows))
        return false;
    NamedPictures others(archive);
    others.Leave(held);
    return !others.Has(stem);
}

QString ArchivedPictures::Copy(const QStringList& stems, const store::DataSource& archive,
                               const std::optional<store::Record>& there) const
{
    if (!stems.isEmpty() && !m_disk.DirExists(m_directory))
        m_disk.MkDir(m_directory.chopped(1));
    for (const QString& stem : stems) {
        const QString from = Here(stem);
        const QString into = There(stem);
        if (m_disk.Found(into, files::ReadOnly | files::Hidden)) {
            if (photos::SameContent(m_disk, into, from))
                continue;
            if (!MayReplace(stem, archive, there))
                return stem + u".jpg"_s;
        }
        static_cast<void>(m_disk.FileCopyChecked(from, into, [](qint64) { return true; }));
    }
    return {};
}

QByteArray ArchivedPictures::FrontOf(const store::Record& record) const
{
    const QString stem = photos::PhotoList(record).StemOf(kFrontView);
    return stem.isEmpty() || !m_disk.FileExists(Here(stem)) ? QByteArray() : m_disk.ReadWhole(Here(stem));
}

QString ArchivedPictures::Here(const QString& stem) const
{
    return m_photoDir + stem + u".jpg"_s;
}

QString ArchivedPictures::There(const QString& stem) const
{
    return m_directory + stem + u".jpg"_s;
}

} // namespace vasclip::upkeep
