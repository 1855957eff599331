#pragma once

#include "platform/files/disk.h"
#include "platform/paper/painter.h"

#include <QSet>

namespace vasclip::upkeep {

/// The stored photos, by their stems: one is decoded at a time, as large as it is printed, and none is kept.
class ReportPictures final : public paper::PictureSource
{
public:
    /// @param photoDir  drive path
    ReportPictures(const files::Disk& disk, const QString& photoDir);

    [[nodiscard]] QImage Picture(const QString& name, QSize within) override;
    /// Photos that were wanted and could not be shown: missing or damaged.
    [[nodiscard]] qsizetype Missing() const { return m_missing.size(); }

private:
    const files::Disk& m_disk;
    QString m_photoDir;
    QSet<QString> m_missing;
};

} // namespace vasclip::upkeep
