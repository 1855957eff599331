#include "windows/drag_desk.h"

#include "windows/theme.h"

#include <QPainter>
#include <QPainterPath>

// The card under the pointer while a drag lasts.

namespace vasclip::windows {

/// A picture shows itself, a text slot its text, the grid its record.
QPixmap DragDesk::CardPixmap(qreal ratio, const forms::Control& source) const
{
    if (const auto* box = qobject_cast<const forms::PictureBox*>(&source); box && !box->Picture().isNull())
        return PictureCard(ratio, box->Picture());
    if (const auto* text = qobject_cast<const forms::TextBox*>(&source))
        return RecordCard(ratio, text->Text().trimmed(), {});
    if (const auto* list = qobject_cast<const forms::ListBox*>(&source))
        return RecordCard(ratio, list->List(list->ListIndex()), {});
    return RecordCard(ratio, m_cardTitle, m_cardLine);
}

QPixmap DragDesk::PictureCard(qreal ratio, const QImage& picture)
{
    constexpr int kSide = 128;
    const QImage small =
        picture.scaled(QSize(kSide, kSide) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPixmap pixmap = QPixmap::fromImage(small);
    pixmap.setDevicePixelRatio(ratio);
    QPainter painter(&pixmap);
    painter.setPen(QPen(Theme::Colours().accent, 3));
    painter.drawRect(QRectF(QPointF(), QSizeF(small.size()) / ratio).adjusted(1, 1, -1, -1));
    return pixmap;
}

QPixmap DragDesk::RecordCard(qreal ratio, const QString& title, const QString& line) const
{
    const QSize size(220, line.isEmpty() ? 36 : 52);
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    const ThemeColours& colours = Theme::Colours();
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(1, 1), QSizeF(size) - QSizeF(2, 2)), 8, 8);
    painter.fillPath(shape, colours.surface);
    painter.strokePath(shape, QPen(colours.accent, 2));
    const QRect text(14, 8, size.width() - 28, size.height() - 16);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(colours.text);
    const QString shown = painter.fontMetrics().elidedText(title, Qt::ElideRight, text.width());
    painter.drawText(text, (line.isEmpty() ? Qt::AlignVCenter : Qt::AlignTop) | Qt::AlignLeft, shown);
    bold.setBold(false);
    painter.setFont(bold);
    painter.setPen(colours.muted);
    painter.drawText(text, Qt::AlignBottom | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(line, Qt::ElideRight, text.width()));
    return pixmap;
}

} // namespace vasclip::windows
