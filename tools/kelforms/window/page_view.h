#pragma once

#include "kelforms/window/flashes.h"
#include "kelforms/window/page_boxes.h"
#include "kelforms/window/picture_cache.h"
#include "kelforms/window/theme.h"

#include <QWidget>

namespace kelforms {

/// A page of a report, drawn as a sheet of labelled cells or of pictures.
class PageView final : public QWidget
{
public:
    explicit PageView(PictureCache& pictures);

    void SetTheme(const Theme& theme);
    /// @param report  stays valid until the next call; nullptr shows an invitation to open one
    void Show(const Report* report, const QString& pageCode);
    void FlashCell(const QString& key);
    void FlashImage(const QString& object);
    void KeepFlashes() { m_flashes.Keep(); }
    /// Where a cell or picture stands, to scroll there; empty if it is not on the page.
    [[nodiscard]] QRect PlaceOf(const QString& key) const;
    void LayOutAgain();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Paint(QPainter& painter, const Box& box);
    void PaintValue(QPainter& painter, const Box& box);

    PictureCache& m_pictures;
    Flashes m_flashes;
    Theme m_theme = LightTheme();
    const Report* m_report = nullptr;
    QString m_page;
    PageBoxes m_boxes;
};

/// A picture in its frame, or an empty frame that says so; shared with the strip beside the page.
void PaintPicture(QPainter& painter, const QRect& rect, const QPixmap& picture, const QString& path,
                  const Theme& theme, qreal glow);

/// `ground` with so much of the flash in it.
[[nodiscard]] QColor Glow(const QColor& ground, const Theme& theme, qreal strength);

} // namespace kelforms
