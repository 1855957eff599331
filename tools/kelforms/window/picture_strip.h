#pragma once

#include "kelforms/core/report.h"
#include "kelforms/window/flashes.h"
#include "kelforms/window/picture_cache.h"
#include "kelforms/window/theme.h"

#include <QWidget>

namespace kelforms {

/// The pictures that belong to a page of cells, below each other.
class PictureStrip final : public QWidget
{
public:
    explicit PictureStrip(PictureCache& pictures);

    void SetTheme(const Theme& theme);
    /// @return false if there is nothing to show
    bool Show(const Report* report, const QString& pageCode);
    void Flash(const QString& object);
    void KeepFlashes() { m_flashes.Keep(); }
    [[nodiscard]] QRect PlaceOf(const QString& object) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int PictureHeight() const;
    [[nodiscard]] QRect Place(qsizetype index) const;
    void Settle();

    PictureCache& m_pictures;
    Flashes m_flashes;
    Theme m_theme = LightTheme();
    const Report* m_report = nullptr;
    QStringList m_objects;
};

} // namespace kelforms
