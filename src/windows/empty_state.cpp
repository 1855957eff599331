#include "windows/empty_state.h"

#include "windows/icons.h"
#include "windows/theme.h"

#include <QPainter>

namespace vasclip::windows {

EmptyState::EmptyState(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void EmptyState::SetWords(const QString& icon, const QString& title, const QString& sentence)
{
    m_icon = icon;
    m_title = title;
    m_sentence = sentence;
    setAccessibleName(title);
    setAccessibleDescription(sentence);
    update();
}

void EmptyState::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColours& colours = Theme::Colours();
    const QPointF middle = QRectF(rect()).center();
    QRectF disc(0, 0, 96, 96);
    disc.moveCenter(middle - QPointF(0, 64));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.accentSoft);
    painter.drawEllipse(disc);
    PaintIcon(painter, m_icon, QRectF(disc.center() - QPointF(22, 22), QSizeF(44, 44)), colours.accent);
    QFont big = font();
    big.setPointSizeF(big.pointSizeF() * 1.35);
    big.setBold(true);
    painter.setFont(big);
    painter.setPen(colours.text);
    const QRectF title(16, middle.y(), width() - 32.0, 32);
    painter.drawText(title, Qt::AlignCenter, m_title);
    painter.setFont(font());
    painter.setPen(colours.muted);
    painter.drawText(QRectF(middle.x() - 220, title.bottom() + 4, 440, 64),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_sentence);
}

} // namespace vasclip::windows
