#include "platform/paper/painter.h"

#include "platform/paper/typesetter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vasclip::paper {

using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kFrame = 0xffb4bac2;
constexpr QRgb kEmpty = 0xfff4f5f7;
constexpr QRgb kWords = 0xff6b7280;
constexpr int kHair = 8;

void PaintPicture(QPainter& painter, const PictureItem& item, PictureSource& pictures)
{
    const QSize within(std::max(1, item.box.width() * kPictureDots / kInch),
                       std::max(1, item.box.height() * kPictureDots / kInch));
    const QImage picture = pictures.Picture(item.name, within);
    if (picture.isNull()) {
        painter.fillRect(item.box, QColor::fromRgba(kEmpty));
        painter.setPen(QPen(QColor::fromRgba(kFrame), kHair));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(item.box);
        painter.setPen(QColor::fromRgba(kWords));
        painter.setFont(FontOf({150}));
        painter.drawText(item.box, Qt::AlignCenter | Qt::TextWordWrap, u"Photo not found"_s);
        return;
    }
    QRect place(QPoint(0, 0), picture.size().scaled(item.box.size(), Qt::KeepAspectRatio));
    place.moveCenter(item.box.center());
    painter.drawImage(place, picture);
}

} // namespace

void Paint(QPainter& painter, const Page& page, double scale, PictureSource& pictures)
{
    painter.save();
    painter.scale(scale, scale);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    for (const BoxItem& item : page.boxes) {
        painter.setPen(qAlpha(item.border) == 0 ? QPen(Qt::NoPen)
                                                : QPen(QColor::fromRgba(item.border), kHair));
        painter.setBrush(qAlpha(item.fill) == 0 ? QBrush(Qt::NoBrush) : QBrush(QColor::fromRgba(item.fill)));
        painter.drawRect(item.box);
    }
    for (const PictureItem& item : page.pictures)
        PaintPicture(painter, item, pictures);
    for (const TextItem& item : page.texts) {
        painter.setPen(QColor::fromRgba(item.ink));
        painter.setFont(FontOf(item.face));
        painter.drawText(item.at, item.text);
    }
    painter.restore();
}

QImage Picture(const Sheet& sheet, const Page& page, double dots, PictureSource& pictures)
{
    const double scale = dots / kInch;
    QImage image((QSizeF(sheet.Size()) * scale).toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Paint(painter, page, scale, pictures);
    return image;
}

} // namespace vasclip::paper
