#pragma once

#include <QCache>
#include <QFont>
#include <QProxyStyle>

namespace vasclip::windows {

/// Fusion with tabs of our own: quiet words with a line under the current one, or pills (property "pills" of
/// the bar). A page that reads "N/A" looks quieter and can still be clicked. Words without room end in dots.
class TabStyle : public QProxyStyle
{
    Q_OBJECT
public:
    TabStyle();

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawItemText(QPainter* painter, const QRect& room, int flags, const QPalette& palette, bool enabled,
                      const QString& text, QPalette::ColorRole role) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                                     const QWidget* widget) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A text as it is measured: its font, the screen's density, how "&" shows.
    struct Measured
    {
        QFont font;
        QString text;
        int shown, density;
        bool operator==(const Measured&) const = default;
        friend size_t qHash(const Measured& key, size_t seed = 0)
        {
            return qHashMulti(seed, key.font, key.text, key.shown, key.density);
        }
    };
    [[nodiscard]] int WidthOf(const QPainter& painter, const QString& text, int shown) const;

    mutable QCache<Measured, int> m_widths{4000};
    bool m_keysShown = false; ///< access keys are underlined while Alt is held
};

} // namespace vasclip::windows
