#include "shell/slot_icon_pictures.h"

#include <QPainter>
#include <QPainterPath>

namespace vasclip::shell {

namespace {

constexpr int kSide = 64; // drawn large: a slot shows it at about 20, at 200 % at 40

constexpr QRgb kGrey = qRgb(0x8a, 0x94, 0xa3);
constexpr QRgb kBlue = qRgb(0x3f, 0x86, 0xd6); // tells itself from a white ground and from a dark one
constexpr QRgb kGreen = qRgb(0x2e, 0x9d, 0x62);

QImage Blank()
{
    QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void Card(QPainter& painter, QRgb colour, Qt::PenStyle style)
{
    painter.setPen(QPen(QColor(colour), 5, style, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(7, 11, 50, 42), 7, 7);
}

void Hills(QPainter& painter, QRgb colour)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawPolygon(QPolygonF({{14, 47}, {27, 28}, {36, 39}, {42, 33}, {51, 47}}));
    painter.drawEllipse(QPointF(42, 23), 4.5, 4.5);
}

void Tick(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kGreen));
    painter.drawEllipse(QPointF(48, 48), 14, 14);
    painter.setPen(QPen(Qt::white, 4.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{41, 48}, {46, 53}, {55, 43}}));
}

QImage TypeIcon(int kind)
{
    QImage image = Blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    Card(painter, kind == 0 ? kGrey : kBlue, kind == 0 ? Qt::DotLine : Qt::SolidLine);
    if (kind >= 2)
        Hills(painter, kBlue);
    if (kind == 3)
        Tick(painter);
    return image;
}

QImage AnchorIcon()
{
    QImage image = Blank();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(kBlue), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawEllipse(QPointF(32, 14), 6, 6);
    painter.drawLine(32, 21, 32, 54);
    painter.drawLine(22, 29, 42, 29);
    QPainterPath arms(QPointF(12, 38));
    arms.cubicTo(14, 60, 50, 60, 52, 38);
    painter.drawPath(arms);
    return image;
}

} // namespace

link::SlotIconPictures SlotIconPictures()
{
    link::SlotIconPictures pictures;
    for (int kind = 0; kind < 4; ++kind)
        pictures.imaTypeIcon[static_cast<std::size_t>(kind)] = TypeIcon(kind);
    pictures.imaSubjectAnchor = AnchorIcon();
    return pictures;
}

} // namespace vasclip::shell
