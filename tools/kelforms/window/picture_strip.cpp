#include "kelforms/window/picture_strip.h"

#include "kelforms/window/page_boxes.h"
#include "kelforms/window/page_view.h"

#include <QPaintEvent>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

constexpr int kMargin = 14;
constexpr int kCaption = 38;

} // namespace

PictureStrip::PictureStrip(PictureCache& pictures)
    : m_pictures(pictures)
    , m_flashes([this] { update(); })
{
    setAccessibleName(u"Pictures of the page"_s);
}

void PictureStrip::SetTheme(const Theme& theme)
{
    m_theme = theme;
    update();
}

bool PictureStrip::Show(const Report* report, const QString& pageCode)
{
    m_report = report;
    m_objects = report == nullptr ? QStringList() : ObjectsBeside(*report, pageCode);
    Settle();
    return !m_objects.isEmpty();
}

void PictureStrip::Flash(const QString& object)
{
    m_flashes.Start(object);
    update();
}

QRect PictureStrip::PlaceOf(const QString& object) const
{
    const qsizetype index = m_objects.indexOf(object);
    return index < 0 ? QRect() : Place(index);
}

int PictureStrip::PictureHeight() const
{
    return (width() - 2 * kMargin) * 3 / 5;
}

QRect PictureStrip::Place(qsizetype index) const
{
    const int step = PictureHeight() + kCaption;
    return {kMargin, kMargin + static_cast<int>(index) * step, width() - 2 * kMargin, PictureHeight()};
}

void PictureStrip::Settle()
{
    setMinimumHeight(kMargin + static_cast<int>(m_objects.size()) * (PictureHeight() + kCaption));
    update();
}

void PictureStrip::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Settle();
}

void PictureStrip::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), m_theme.window);
    for (qsizetype i = 0; i < m_objects.size(); ++i) {
        const QRect place = Place(i);
        if (!place.adjusted(0, 0, 0, kCaption).intersects(event->rect()))
            continue;
        const QString& object = m_objects[i];
        const QString path = m_report->Image(object);
        const QSize room = (QSizeF(place.size()) * devicePixelRatioF()).toSize();
        QPixmap picture = path.isEmpty() ? QPixmap() : m_pictures.Fetch(path, room);
        picture.setDevicePixelRatio(devicePixelRatioF());
        PaintPicture(painter, place, picture, path, m_theme, m_flashes.Strength(object));

        QFont bold = font();
        bold.setBold(true);
        const QString name =
            object.startsWith("SUB_"_L1) ? u"Subject"_s : vasclip::formsbook::ObjectCaption(object);
        const QRect caption(place.left(), place.bottom() + 4, place.width(), kCaption - 8);
        painter.setFont(bold);
        painter.setPen(m_theme.text);
        painter.drawText(caption, Qt::AlignLeft | Qt::AlignTop, name);
        const int used = painter.fontMetrics().horizontalAdvance(name) + 10;
        painter.setFont(font());
        painter.setPen(m_theme.muted);
        painter.drawText(caption.adjusted(used, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                         painter.fontMetrics().elidedText(PictureCaption(*m_report, object), Qt::ElideRight,
                                                          caption.width() - used));
    }
}

} // namespace kelforms
