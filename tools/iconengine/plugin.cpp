#include "iconengine/drawing.h"

#include <QFile>
#include <QIconEngine>
#include <QIconEnginePlugin>

using namespace Qt::StringLiterals;

namespace vasclip::drawing {

namespace {

class Engine : public QIconEngine
{
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        Paint(*painter, m_svg, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        if (!Paint(painter, m_svg, QRectF(QPointF(), size)))
            return {};
        painter.end();
        return QPixmap::fromImage(image);
    }

    void addFile(const QString& name, const QSize&, QIcon::Mode, QIcon::State) override
    {
        QFile file(name);
        if (file.open(QIODevice::ReadOnly))
            m_svg = file.readAll();
    }

    bool isNull() override { return m_svg.isEmpty(); }
    QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
    [[nodiscard]] QIconEngine* clone() const override { return new Engine(*this); }

private:
    QByteArray m_svg;
};

} // namespace

class IconEnginePlugin : public QIconEnginePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QIconEngineFactoryInterface_iid FILE "plugin.json")

public:
    QIconEngine* create(const QString& file) override
    {
        auto* engine = new Engine;
        if (!file.isEmpty())
            engine->addFile(file, {}, QIcon::Normal, QIcon::Off);
        return engine;
    }
};

} // namespace vasclip::drawing

#include "plugin.moc"
