#pragma once

#include "platform/paper/painter.h"

#include <QDateTime>

#include <functional>
#include <optional>

namespace vasclip::paper {

/// What a PDF says about itself.
struct PdfFacts
{
    QString title;
    QDateTime made; ///< its time of creation
};

enum class Made { Whole, Stopped };

/// Writes pages into a PDF: beside the file, flushed, then renamed, so that there is never half of one under
/// its name.
/// @param file  native path
/// @param next  the pages one by one, nothing behind the last
/// @param goOn  asked before each page; false stops, and what stood there before stays
/// @throws RuntimeError 61 for a full disk, 75 where the file can't be written
[[nodiscard]] Made WritePdf(const QString& file, const Sheet& sheet, const PdfFacts& facts,
                            const std::function<std::optional<Page>()>& next, PictureSource& pictures,
                            const std::function<bool()>& goOn);

} // namespace vasclip::paper
