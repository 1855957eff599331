#include "upkeep/report_pictures.h"

#include "common/paths.h"
#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

ReportPictures::ReportPictures(const files::Disk& disk, const QString& photoDir)
    : m_disk(disk)
    , m_photoDir(common::CkRSlash(photoDir))
{}

QImage ReportPictures::Picture(const QString& name, QSize within)
{
    // A stem is a name in the photo directory and nothing else.
    const bool plain = std::none_of(name.begin(), name.end(),
                                    [](QChar letter) { return QString(u"\\/:*?\"<>|"_s).contains(letter); });
    try {
        if (plain && !name.isEmpty()) {
            const QImage image = picture::Load(m_disk, m_photoDir + name + u".jpg"_s,
                                               std::max(within.width(), within.height()));
            return image.convertToFormat(QImage::Format_RGB32);
        }
    } catch (const RuntimeError&) {
        // Said on the page, in the photo's place, and counted.
    }
    m_missing.insert(name);
    return {};
}

} // namespace vasclip::upkeep
