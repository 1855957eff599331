#include "windows/icons.h"

#include "windows/theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>

using namespace Qt::StringLiterals;

static void InitIconResources()
{
    Q_INIT_RESOURCE(icons);
}

namespace vasclip::windows {

namespace {

QString File(const QString& name)
{
    InitIcons();
    return u":/icons/%1.svg"_s.arg(name);
}

/// A drawing at a size, through the reader of drawings alone: asking for an image would load every reader.
QImage Drawing(const QString& name, const QSize& pixels)
{
    return QIcon(File(name)).pixmap(pixels, 1.0).toImage();
}

/// The drawing as a mask, filled with one colour.
QPixmap Tinted(const QString& name, const QSize& pixels, const QColor& colour)
{
    const QString key =
        u"vasclip/%1/%2x%3/%4"_s.arg(name).arg(pixels.width()).arg(pixels.height()).arg(colour.rgba());
    QPixmap result;
    if (QPixmapCache::find(key, &result))
        return result;
    QImage image = Drawing(name, pixels).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    painter.end();
    result = QPixmap::fromImage(image);
    QPixmapCache::insert(key, result);
    return result;
}

class TintedEngine : public QIconEngine
{
public:
    explicit TintedEngine(QString name, QColor own = {})
        : m_name(std::move(name))
        , m_own(own)
    {}
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect, scaledPixmap(rect.size() * ratio, mode, state, ratio));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1.0);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        const ThemeColours& colours = Theme::Colours();
        QColor colour = colours.icon;
        if (m_own.isValid())
            colour = m_own;
        else if (mode == QIcon::Disabled)
            colour = colours.faint;
        else if (state == QIcon::On)
            colour = colours.accent;
        QPixmap result = Tinted(m_name, size, colour);
        result.setDevicePixelRatio(scale);
        return result;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new TintedEngine(m_name, m_own); }

private:
    QString m_name;
    QColor m_own;
};

/// The program's own picture, drawn when somebody asks for it.
class ApplicationEngine : public QIconEngine
{
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawImage(rect, Drawing(u"vasclip"_s, rect.size() * ratio));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        return QPixmap::fromImage(Drawing(u"vasclip"_s, size));
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}}; // what desktops ask for
    }
    [[nodiscard]] QIconEngine* clone() const override { return new ApplicationEngine; }
};

} // namespace

void InitIcons()
{
    [[maybe_unused]] static const bool ready = (InitIconResources(), true);
}

QIcon ThemedIcon(const QString& name)
{
    return QIcon(new TintedEngine(name));
}

QIcon ColouredIcon(const QString& name, const QColor& colour)
{
    return QIcon(new TintedEngine(name, colour));
}

void PaintIcon(QPainter& painter, const QString& name, const QRectF& target, const QColor& colour)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap pixmap = Tinted(name, (target.size() * ratio).toSize(), colour);
    if (!pixmap.isNull())
        painter.drawPixmap(target, pixmap, QRectF(pixmap.rect()));
}

QIcon ApplicationIcon()
{
    return QIcon(new ApplicationEngine);
}

} // namespace vasclip::windows
