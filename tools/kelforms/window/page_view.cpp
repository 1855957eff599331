#include "kelforms/window/page_view.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

constexpr int kPad = 7;

QString Elided(const QPainter& painter, const QString& text, int width)
{
    return painter.fontMetrics().elidedText(QString(text).replace(u'\n', u' '), Qt::ElideRight, width);
}

/// Is a box ticked? Blank and the usual words for no are not.
bool Ticked(const QString& text)
{
    const QString word = text.trimmed().toUpper();
    for (const QLatin1StringView no : {""_L1, "0"_L1, "N"_L1, "NO"_L1, "NONE"_L1, "F"_L1, "FALSE"_L1}) {
        if (word == no)
            return false;
    }
    return true;
}

QFont Sized(QFont font, int change, bool bold = false)
{
    font.setPointSizeF(font.pointSizeF() + change);
    font.setBold(bold);
    return font;
}

} // namespace

QColor Glow(const QColor& ground, const Theme& theme, qreal strength)
{
    const auto mix = [strength](int a, int b) { return static_cast<int>(a + (b - a) * strength); };
    return {mix(ground.red(), theme.flash.red()), mix(ground.green(), theme.flash.green()),
            mix(ground.blue(), theme.flash.blue())};
}

void PaintPicture(QPainter& painter, const QRect& rect, const QPixmap& picture, const QString& path,
                  const Theme& theme, qreal glow)
{
    painter.save();
    if (picture.isNull()) {
        painter.setBrush(Glow(theme.shade, theme, glow));
        painter.setPen(QPen(theme.line, 1, Qt::DashLine));
        painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter.setPen(theme.muted);
        painter.drawText(rect.adjusted(kPad, 0, -kPad, 0), Qt::AlignCenter | Qt::TextWordWrap,
                         path.isEmpty() ? u"No picture"_s : u"The picture is missing:\n%1"_s.arg(path));
    } else {
        QRectF target(QPointF(), picture.deviceIndependentSize());
        target.moveCenter(QRectF(rect).center());
        painter.fillRect(rect, theme.shade);
        painter.drawPixmap(target.toRect(), picture);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(glow > 0 ? Glow(theme.line, theme, glow) : theme.line, glow > 0 ? 4 : 1));
        painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.restore();
}

PageView::PageView(PictureCache& pictures)
    : m_pictures(pictures)
    , m_flashes([this] { update(); })
{
    setMinimumWidth(620);
    setAccessibleName(u"Page"_s);
}

void PageView::SetTheme(const Theme& theme)
{
    m_theme = theme;
    update();
}

void PageView::Show(const Report* report, const QString& pageCode)
{
    m_report = report;
    m_page = pageCode;
    LayOutAgain();
}

void PageView::FlashCell(const QString& key)
{
    m_flashes.Start(key);
    update();
}

void PageView::FlashImage(const QString& object)
{
    FlashCell(object);
}

QRect PageView::PlaceOf(const QString& key) const
{
    for (const Box& box : m_boxes.boxes) {
        if (box.key == key)
            return box.rect;
    }
    return {};
}

void PageView::LayOutAgain()
{
    m_boxes = m_report == nullptr ? PageBoxes{} : LayOut(*m_report, m_page, width());
    setMinimumHeight(m_boxes.height);
    update();
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    LayOutAgain();
}

bool PageView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    for (const Box& box : m_boxes.boxes) {
        if (m_report == nullptr || box.key.isEmpty() || !box.rect.contains(help->pos()))
            continue;
        const bool picture = box.kind == Box::Kind::Picture;
        const QString content = picture ? m_report->Image(box.key) : m_report->Cell(box.key);
        QToolTip::showText(help->globalPos(), content.isEmpty() ? box.key : box.key + u"\n"_s + content, this,
                           box.rect);
        return true;
    }
    QToolTip::hideText();
    return true;
}

void PageView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), m_theme.paper);
    if (m_report == nullptr) {
        painter.setPen(m_theme.muted);
        painter.setFont(Sized(font(), 2));
        painter.drawText(rect(), Qt::AlignCenter, u"No report is open.\nOpen one to see its pages here."_s);
        return;
    }
    for (const Box& box : m_boxes.boxes) {
        if (box.rect.intersects(event->rect()))
            Paint(painter, box);
    }
}

void PageView::Paint(QPainter& painter, const Box& box)
{
    const QRect inner = box.rect.adjusted(kPad, 0, -kPad, 0);
    const QRectF edge = QRectF(box.rect).adjusted(0.5, 0.5, 0.5, 0.5);
    switch (box.kind) {
    case Box::Kind::Title: {
        painter.setFont(Sized(font(), 3, true));
        painter.setPen(m_theme.text);
        const QString title = Elided(painter, box.text, box.rect.width() - 110);
        painter.drawText(box.rect, Qt::AlignLeft | Qt::AlignVCenter, title);
        painter.setFont(font());
        painter.setPen(m_theme.muted);
        painter.drawText(box.rect, Qt::AlignRight | Qt::AlignVCenter, m_page);
        break;
    }
    case Box::Kind::Heading:
        painter.setFont(Sized(font(), 0, true));
        painter.setPen(m_theme.accent);
        painter.drawText(box.rect, Qt::AlignLeft | Qt::AlignVCenter,
                         Elided(painter, box.text, box.rect.width()));
        break;
    case Box::Kind::ColumnHead:
        painter.fillRect(box.rect, m_theme.shade);
        painter.setPen(m_theme.line);
        painter.drawRect(edge);
        painter.setFont(Sized(font(), 0, true));
        painter.setPen(m_theme.text);
        painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, Elided(painter, box.text, inner.width()));
        break;
    case Box::Kind::Label:
        painter.fillRect(box.rect, m_theme.shade);
        painter.setPen(m_theme.line);
        painter.drawRect(edge);
        painter.setFont(font());
        painter.setPen(m_theme.muted);
        painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, Elided(painter, box.text, inner.width()));
        break;
    case Box::Kind::Picture: {
        const QSize room = (QSizeF(box.rect.size()) * devicePixelRatioF()).toSize();
        const QString path = m_report->Image(box.key);
        QPixmap picture = path.isEmpty() ? QPixmap() : m_pictures.Fetch(path, room);
        picture.setDevicePixelRatio(devicePixelRatioF());
        painter.setFont(font());
        PaintPicture(painter, box.rect, picture, path, m_theme, m_flashes.Strength(box.key));
        break;
    }
    case Box::Kind::Value:
    case Box::Kind::Adjust:
    case Box::Kind::Check:
    case Box::Kind::Total:
    case Box::Kind::Field:
        PaintValue(painter, box);
        break;
    }
}

void PageView::PaintValue(QPainter& painter, const Box& box)
{
    const QString text = m_report->Cell(box.key);
    const bool total = box.kind == Box::Kind::Total;
    painter.fillRect(box.rect,
                     Glow(total ? m_theme.shade : m_theme.paper, m_theme, m_flashes.Strength(box.key)));
    painter.setPen(m_theme.line);
    painter.drawRect(QRectF(box.rect).adjusted(0.5, 0.5, 0.5, 0.5));
    QRect inner = box.rect.adjusted(kPad, 0, -kPad, 0);
    if (box.kind == Box::Kind::Check) {
        const QRectF square(inner.left(), inner.center().y() - 5.5, 12, 12);
        painter.setPen(QPen(m_theme.muted, 1.2));
        painter.drawRoundedRect(square, 2, 2);
        if (Ticked(text)) {
            painter.setPen(QPen(m_theme.accent, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const QPointF tick[] = {square.topLeft() + QPointF(2.5, 6.5), square.topLeft() + QPointF(5, 9),
                                    square.topLeft() + QPointF(9.5, 3)};
            painter.drawPolyline(tick, 3);
        }
        inner.setLeft(inner.left() + 19);
    }
    if (box.kind == Box::Kind::Field) {
        painter.setFont(Sized(font(), -1));
        painter.setPen(m_theme.muted);
        painter.drawText(inner.adjusted(0, 4, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                         Elided(painter, box.text, inner.width()));
        inner.adjust(0, 16, 0, 0);
    }
    painter.setFont(Sized(font(), 0, total));
    painter.setPen(m_theme.text);
    if (box.kind == Box::Kind::Adjust)
        painter.setPen(text.startsWith(u'-') || text.startsWith(u'(') ? m_theme.warn : m_theme.good);
    const Qt::Alignment side = box.kind == Box::Kind::Adjust || total ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(inner, side | Qt::AlignVCenter, Elided(painter, text, inner.width()));
}

} // namespace kelforms
