#pragma once

#include "platform/paper/painter.h"

#include <QDateTime>
#include <QIODevice>

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

/// Writes pages as a PDF.
/// @param into   open for writing; half of one is in it after a stop or an error
/// @param shown  its name, as the user knows it
/// @param next   the pages one by one, nothing behind the last
/// @param goOn   asked before each page; false stops
/// @throws RuntimeError 61 where it takes no more
[[nodiscard]] Made WritePdf(QIODevice& into, const QString& shown, const Sheet& sheet, const PdfFacts& facts,
                            const std::function<std::optional<Page>()>& next, PictureSource& pictures,
                            const std::function<bool()>& goOn);

} // namespace vasclip::paper
