#include "iconengine/drawing.h"

#include "iconengine/path_text.h"

#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace vasclip::drawing {

namespace {

using Attributes = QXmlStreamAttributes;

/// What an element hands down to those inside it.
struct Look
{
    QString fill = u"#000"_s, stroke = u"none"_s, cap, join;
    double width = 1, fillOpacity = 1, strokeOpacity = 1, opacity = 1;
};

double Number(const Attributes& attributes, const QString& name, double otherwise = 0)
{
    return attributes.hasAttribute(name) ? attributes.value(name).toDouble() : otherwise;
}

Look Inherit(Look look, const Attributes& attributes)
{
    const auto word = [&](const QString& name, QString& into) {
        if (attributes.hasAttribute(name))
            into = attributes.value(name).toString();
    };
    word(u"fill"_s, look.fill);
    word(u"stroke"_s, look.stroke);
    word(u"stroke-linecap"_s, look.cap);
    word(u"stroke-linejoin"_s, look.join);
    look.width = Number(attributes, u"stroke-width"_s, look.width);
    look.fillOpacity = Number(attributes, u"fill-opacity"_s, look.fillOpacity);
    look.strokeOpacity = Number(attributes, u"stroke-opacity"_s, look.strokeOpacity);
    look.opacity = Number(attributes, u"opacity"_s, look.opacity);
    return look;
}

QColor Colour(const QString& name, double opacity)
{
    QColor colour(name);
    colour.setAlphaF(float(colour.alphaF() * opacity));
    return colour;
}

QPainterPath ShapeOf(QStringView element, const Attributes& attributes)
{
    const auto number = [&](const QString& name) { return Number(attributes, name); };
    QPainterPath path;
    if (element == u"path")
        path = ReadPath(attributes.value(u"d"_s).toString());
    else if (element == u"circle")
        path.addEllipse(QPointF(number(u"cx"_s), number(u"cy"_s)), number(u"r"_s), number(u"r"_s));
    else if (element == u"ellipse")
        path.addEllipse(QPointF(number(u"cx"_s), number(u"cy"_s)), number(u"rx"_s), number(u"ry"_s));
    else if (element == u"rect") {
        const double rx = Number(attributes, u"rx"_s, number(u"ry"_s));
        path.addRoundedRect(QRectF(number(u"x"_s), number(u"y"_s), number(u"width"_s), number(u"height"_s)), rx,
                            Number(attributes, u"ry"_s, rx));
    } else if (element == u"line") {
        path.moveTo(number(u"x1"_s), number(u"y1"_s));
        path.lineTo(number(u"x2"_s), number(u"y2"_s));
    }
    return path;
}

void Draw(QPainter& painter, const QPainterPath& shape, const Look& look)
{
    painter.setOpacity(look.opacity);
    painter.setBrush(look.fill == u"none"_s ? QBrush(Qt::NoBrush) : QBrush(Colour(look.fill, look.fillOpacity)));
    QPen pen(Qt::NoPen);
    if (look.stroke != u"none"_s) {
        pen = QPen(Colour(look.stroke, look.strokeOpacity), look.width);
        pen.setCapStyle(look.cap == u"round"_s ? Qt::RoundCap : look.cap == u"square"_s ? Qt::SquareCap : Qt::FlatCap);
        pen.setJoinStyle(look.join == u"round"_s   ? Qt::RoundJoin
                         : look.join == u"bevel"_s ? Qt::BevelJoin
                                                   : Qt::SvgMiterJoin);
    }
    painter.setPen(pen);
    painter.drawPath(shape);
}

/// Lays the drawing's own rectangle over `into`.
bool Place(QPainter& painter, const Attributes& root, const QRectF& into)
{
    const QStringList box = root.value(u"viewBox"_s).toString().simplified().split(u' ', Qt::SkipEmptyParts);
    const QRectF own = box.size() == 4
                           ? QRectF(box[0].toDouble(), box[1].toDouble(), box[2].toDouble(), box[3].toDouble())
                           : QRectF(0, 0, Number(root, u"width"_s), Number(root, u"height"_s));
    if (own.isEmpty())
        return false;
    painter.translate(into.topLeft());
    painter.scale(into.width() / own.width(), into.height() / own.height());
    painter.translate(-own.topLeft());
    return true;
}

} // namespace

bool Paint(QPainter& painter, const QByteArray& svg, const QRectF& into)
{
    QXmlStreamReader xml(svg);
    if (!xml.readNextStartElement() || xml.name() != u"svg")
        return false;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool placed = Place(painter, xml.attributes(), into);
    QList<Look> looks{Inherit({}, xml.attributes())};
    while (placed && !xml.atEnd() && !looks.isEmpty()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            looks.append(Inherit(looks.last(), xml.attributes()));
            if (const QPainterPath shape = ShapeOf(xml.name(), xml.attributes()); !shape.isEmpty())
                Draw(painter, shape, looks.last());
            break;
        case QXmlStreamReader::EndElement:
            looks.removeLast();
            break;
        default:
            break;
        }
    }
    painter.restore();
    return placed && !xml.hasError();
}

} // namespace vasclip::drawing
