#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QUrl>

#include <span>

class QWidget;

namespace vasclip::windows {

/// A line of the guide's table of contents: a group's heading, or a page.
struct GuideLine
{
    QString title;
    QString page; ///< "grid.md"; "" for the heading of a group
};

/// The window or control that a page is about, by object name.
struct GuideTopic
{
    QLatin1StringView widget; ///< "frm_Rename", or a part of a window such as "txtQuickFind"
    QLatin1StringView page;
};

inline constexpr QLatin1StringView kGuideIndex("index.md");

/// Every topic that has a page, a row each.
[[nodiscard]] std::span<const GuideTopic> GuideTopics();

/// The page of the innermost topic around a widget: of the widget itself, else of what it stands in, up to
/// its window and the windows that opened it. @return the index for a widget without a topic, and for nullptr
[[nodiscard]] QString GuidePageOf(const QWidget* widget);

/// The contents as the index page lists them.
[[nodiscard]] QList<GuideLine> GuideContents();

/// @return the page's Markdown; "" if there is no such page
[[nodiscard]] QString GuideText(const QString& page);

/// Pages that hold every word of a text, in the order of the contents; a page whose title holds them comes
/// first. A blank text finds every page.
[[nodiscard]] QList<GuideLine> FindInGuide(const QString& words);

/// Where a page or a picture of the guide is read from.
[[nodiscard]] QUrl GuideUrl(const QString& file);

} // namespace vasclip::windows
