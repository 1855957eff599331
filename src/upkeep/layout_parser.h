#pragma once

#include "upkeep/layout_words.h"
#include "upkeep/report_layout.h"

#include <QByteArray>

namespace vasclip::upkeep {

/// More than a person writes; a file beyond it is another kind of file.
inline constexpr int kMostLayoutLines = 2000;
inline constexpr qsizetype kMostLayoutBytes = 256 * 1024;

/// Reads a layout file's text, as docs/guide/report-layouts.md describes it. @throws LayoutError
[[nodiscard]] ReportLayout ParseLayout(const QByteArray& content);

} // namespace vasclip::upkeep
