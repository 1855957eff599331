#pragma once

#include <QPageLayout>
#include <QRect>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace vasclip::paper {

/// All lengths on paper are twentieths of a point, 1440 an inch: fine enough for every printer, and whole
/// numbers.
inline constexpr int kInch = 1440;
inline constexpr int kPoint = 20;

/// The paper that pages are laid out for.
struct Sheet
{
    QString name = QString::fromLatin1("letter"); ///< one of PaperNames()
    bool landscape = false;
    int margin = kInch * 3 / 4; ///< on all four sides

    [[nodiscard]] QSize Size() const; ///< as it is held, width first
    [[nodiscard]] QRect Inside() const;
    [[nodiscard]] QPageLayout Layout() const; ///< without margins: what is on the page knows its place
    bool operator==(const Sheet&) const = default;
};

/// "letter", "legal", "tabloid", "executive", "a3", "a4", "a5".
[[nodiscard]] QStringList PaperNames();
/// As a person reads it: "Letter, 8.5 x 11 in". @param name  one of PaperNames()
[[nodiscard]] QString PaperWords(const QString& name);
/// One of PaperNames(), "" for a paper that is none of them. @param points  upright
[[nodiscard]] QString PaperOfSize(QSizeF points);

} // namespace vasclip::paper
