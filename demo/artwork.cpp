#include "demo/artwork.h"

#include "demo/drawing/house_picture.h"
#include "platform/text/runtime_error.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    if (!writer.write(image))
        throw RuntimeError(error::kCorruptPicture, u"A %1 picture cannot be made here: %2"_s.arg(
                                                       QString::fromLatin1(format), writer.errorString()));
    return bytes;
}

enum class Mark { Empty, Full, Added };

/// A sheet of paper: blank, written on, or written on just now.
QImage Sheet(Mark mark)
{
    QImage image(48, 48, QImage::Format_RGB32);
    const QColor ground(246, 247, 249); // one colour up to the edge, which stands for no picture at all
    image.fill(ground);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath paper;
    paper.moveTo(12, 6);
    paper.lineTo(29, 6);
    paper.lineTo(37, 14);
    paper.lineTo(37, 42);
    paper.lineTo(12, 42);
    paper.closeSubpath();
    const bool written = mark != Mark::Empty;
    p.setPen(QPen(written ? QColor(70, 92, 128) : QColor(176, 182, 190), 2,
                  written ? Qt::SolidLine : Qt::DashLine));
    p.setBrush(written ? QColor(255, 255, 255) : ground);
    p.drawPath(paper);
    p.drawLine(QPointF(29, 6), QPointF(29, 14));
    p.drawLine(QPointF(29, 14), QPointF(37, 14));
    if (written) {
        p.setPen(QPen(QColor(120, 140, 170), 2));
        for (int y = 20; y <= 36; y += 5)
            p.drawLine(QPointF(17, y), QPointF(y == 35 ? 26 : 32, y));
    }
    if (mark == Mark::Added) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(40, 150, 84));
        p.drawEllipse(QPointF(35, 36), 10, 10);
        p.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPolyline(QPolygonF{QPointF(30, 36), QPointF(34, 40), QPointF(40, 31)});
    }
    return image;
}

/// A house in a coloured frame: sale, listing or rental.
QImage Lamp(const Look& look, const QColor& frame)
{
    QImage image = DrawFrontView(look).scaled(240, 180, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(frame, 14));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(5, 5, 230, 170));
    p.setPen(Qt::NoPen);
    p.setBrush(frame);
    p.drawEllipse(QPointF(202, 142), 28, 28);
    p.setPen(QPen(Qt::white, 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF{QPointF(189, 143), QPointF(199, 153), QPointF(216, 131)});
    return image;
}

/// A little picture, carried by a hand's pointer or over a place that takes it.
QImage DragIcon(bool drops)
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(60, 70, 86), 1.5));
    p.setBrush(QColor(250, 250, 250));
    p.drawRoundedRect(QRectF(2, 2, 22, 17), 2, 2);
    p.fillRect(QRectF(4.5, 4.5, 17, 12), QColor(140, 190, 232));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(96, 152, 84));
    p.drawPolygon(
        QPolygonF{QPointF(4.5, 16.5), QPointF(10, 9), QPointF(14, 13), QPointF(17, 10), QPointF(21.5, 16.5)});
    if (drops) {
        p.setPen(QPen(QColor(30, 140, 76), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawLine(QPointF(23, 14), QPointF(23, 28));
        p.drawPolyline(QPolygonF{QPointF(18, 23), QPointF(23, 28), QPointF(28, 23)});
    } else {
        p.setPen(QPen(QColor(40, 40, 46), 1.2));
        p.setBrush(QColor(255, 232, 206));
        QPainterPath hand;
        hand.addRoundedRect(QRectF(15, 19, 14, 11), 4, 4);
        for (int finger = 0; finger < 4; ++finger)
            hand.addRoundedRect(QRectF(15 + finger * 3.5, 13.5 + (finger == 0 ? 2 : 0), 3.2, 10), 1.6, 1.6);
        hand.setFillRule(Qt::WindingFill);
        p.drawPath(hand.simplified());
    }
    return image;
}

Look LampLook(quint32 seed, Design design)
{
    Look look;
    look.seed = seed;
    look.day = seed + 1;
    look.design = design;
    return look;
}

} // namespace

void MakeArtwork(const files::Disk& disk, const QString& directory)
{
    const auto write = [&](QLatin1StringView name, const QByteArray& bytes) {
        disk.WriteWhole(directory + QString(name), bytes);
    };
    write("Addendum_Empty.bmp"_L1, Encoded(Sheet(Mark::Empty), "bmp"));
    write("Addendum_Full.bmp"_L1, Encoded(Sheet(Mark::Full), "bmp"));
    write("Addendum_Added.bmp"_L1, Encoded(Sheet(Mark::Added), "bmp"));
    write("compfull.jpg"_L1, AsJpeg(Lamp(LampLook(11, Design::TwoStorey), QColor(44, 104, 176))));
    write("LISTfull.jpg"_L1, AsJpeg(Lamp(LampLook(12, Design::Ranch), QColor(196, 116, 32))));
    write("RENTfull.jpg"_L1, AsJpeg(Lamp(LampLook(13, Design::Duplex), QColor(36, 134, 92))));
    write("HandPict.Ico"_L1, Encoded(DragIcon(false), "ico"));
    write("DropPict.Ico"_L1, Encoded(DragIcon(true), "ico"));
}

} // namespace vasclip::demo
