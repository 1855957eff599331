#include "windows/style.h"

#include "link/slot_table.h"
#include "windows/icons.h"
#include "windows/theme.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionTab>
#include <QToolTip>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

using link::kNotAvailable;

bool IsPill(const QWidget* widget)
{
    return widget != nullptr && widget->property("pills").toBool();
}

void DrawTabShape(const QStyleOptionTab& tab, QPainter& painter, bool pill)
{
    const ThemeColours& colours = Theme::Colours();
    const bool selected = tab.state & QStyle::State_Selected;
    const bool hover = (tab.state & QStyle::State_MouseOver) && (tab.state & QStyle::State_Enabled);
    const bool focus = selected && (tab.state & QStyle::State_HasFocus);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (pill) {
        const QRectF box = QRectF(tab.rect).adjusted(2, 4, -2, -4);
        painter.setPen(QPen(selected ? colours.accent
                            : hover  ? colours.muted
                                     : colours.field,
                            focus ? 2 : 1));
        painter.setBrush(selected ? QBrush(colours.accentSoft) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(box, box.height() / 2, box.height() / 2);
    } else {
        if (focus) {
            painter.setPen(QPen(colours.accent, 2));
            painter.drawRoundedRect(QRectF(tab.rect).adjusted(3, 3, -3, -5), 5, 5);
        }
        if (selected || hover)
            painter.fillRect(QRectF(tab.rect.left() + 8, tab.rect.bottom() - 1.5, tab.rect.width() - 16, 2.5),
                             selected ? colours.accent : colours.border);
    }
    painter.restore();
}

void DrawTabLabel(const QStyleOptionTab& tab, QPainter& painter, const QStyle& style)
{
    const ThemeColours& colours = Theme::Colours();
    const bool selected = tab.state & QStyle::State_Selected;
    QColor colour = selected ? colours.accent : colours.muted;
    if (tab.text == kNotAvailable || !(tab.state & QStyle::State_Enabled))
        colour = colours.absent;
    else if (!selected && (tab.state & QStyle::State_MouseOver))
        colour = colours.text;
    painter.save();
    painter.setPen(colour);
    QRect room = tab.rect.adjusted(8, 0, -8, 0);
    if (!tab.icon.isNull()) {
        const QRect icon(room.left() + 4, room.center().y() - 7, 16, 16);
        tab.icon.paint(&painter, icon, Qt::AlignCenter, QIcon::Normal, selected ? QIcon::On : QIcon::Off);
        room.setLeft(icon.right() + 2);
    }
    int flags = Qt::AlignCenter | Qt::TextSingleLine;
    flags |=
        style.styleHint(QStyle::SH_UnderlineShortcut, &tab) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    painter.drawText(room, flags, tab.text);
    painter.restore();
}

/// A box or a ring with an outline that shows on a dark ground too, which Fusion's does not.
void DrawIndicator(const QStyleOption& option, QPainter& painter, bool round)
{
    const ThemeColours& colours = Theme::Colours();
    const bool on = option.state & QStyle::State_On;
    const bool enabled = option.state & QStyle::State_Enabled;
    const QColor ground = on && enabled ? colours.accent : enabled ? colours.well : colours.window;
    const QColor mark = enabled ? colours.accentText : colours.faint;
    const QColor edge = !enabled                                 ? colours.border
                        : on                                     ? colours.accent
                        : option.state & QStyle::State_MouseOver ? colours.accent
                                                                 : colours.muted;
    QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    const qreal side = std::min(box.width(), box.height());
    box = QRectF(box.center() - QPointF(side, side) / 2, QSizeF(side, side));

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(ground);
    if (round)
        painter.drawEllipse(box);
    else
        painter.drawRoundedRect(box, 3, 3);
    if (on && round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawEllipse(box.center(), side / 5, side / 5);
    } else if (on) {
        painter.setPen(QPen(mark, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto at = [&](qreal x, qreal y) { return box.topLeft() + QPointF(x, y) * side; };
        painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.28)}));
    } else if (option.state & QStyle::State_NoChange) {
        painter.setPen(QPen(mark, 1.6));
        painter.drawLine(box.center() - QPointF(side / 4, 0), box.center() + QPointF(side / 4, 0));
    }
    painter.restore();
}

/// The tip of a label that ends in dots and has no tip of its own.
bool TellWhole(QObject* watched, const QHelpEvent& event)
{
    auto* label = qobject_cast<QLabel*>(watched);
    if (label == nullptr || !label->toolTip().isEmpty() || label->wordWrap() ||
        label->sizeHint().width() <= label->width())
        return false;
    QToolTip::showText(event.globalPos(), label->text(), label);
    return true;
}

} // namespace

TabStyle::TabStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool TabStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        return TellWhole(watched, *static_cast<QHelpEvent*>(event));
    const auto show = [this](bool shown) {
        if (std::exchange(m_keysShown, shown) == shown)
            return;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            for (QWidget* widget : window->findChildren<QWidget*>())
                widget->update();
        }
    };
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt)
            show(event->type() == QEvent::KeyPress);
        break;
    case QEvent::ApplicationDeactivate:
        show(false);
        break;
    default:
        break;
    }
    return false;
}

void TabStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    if (const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option)) {
        if (element == CE_TabBarTabShape)
            return DrawTabShape(*tab, *painter, IsPill(widget));
        if (element == CE_TabBarTabLabel)
            return DrawTabLabel(*tab, *painter, *this);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void TabStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    if (element == PE_FrameTabBarBase || element == PE_FrameTabWidget)
        return;
    if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
        return DrawIndicator(*option, *painter, element == PE_IndicatorRadioButton);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QSize TabStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const
{
    if (type == CT_TabBarTab) {
        const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
        const int words =
            tab == nullptr ? size.width() : tab->fontMetrics.size(Qt::TextShowMnemonic, tab->text).width();
        const int icon = tab != nullptr && !tab->icon.isNull() ? 22 : 0;
        const bool pill = IsPill(widget);
        return {words + icon + (pill ? 28 : 32), option->fontMetrics.height() + (pill ? 16 : 18)};
    }
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

/// Every label asks at every painting, and measuring a text costs half as much as painting it.
int TabStyle::WidthOf(const QPainter& painter, const QString& text, int shown) const
{
    const Measured measured{painter.font(), text, shown, painter.device()->logicalDpiX()};
    if (const int* width = m_widths.object(measured))
        return *width;
    const int width = painter.fontMetrics().size(shown, text).width();
    m_widths.insert(measured, new int(width));
    return width;
}

/// One line that has no room for its words ends in dots; a tip has the whole (see eventFilter).
void TabStyle::drawItemText(QPainter* painter, const QRect& room, int flags, const QPalette& palette, bool enabled,
                            const QString& text, QPalette::ColorRole role) const
{
    if ((flags & Qt::TextWordWrap) == 0 && !text.contains(u'\n')) {
        const int shown = flags & (Qt::TextShowMnemonic | Qt::TextHideMnemonic);
        if (WidthOf(*painter, text, shown) > room.width())
            return QProxyStyle::drawItemText(
                painter, room, flags, palette, enabled,
                painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width(), shown), role);
    }
    QProxyStyle::drawItemText(painter, room, flags, palette, enabled, text, role);
}

int TabStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_TabBarTabOverlap:
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_TabBarBaseOverlap:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int TabStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_UnderlineShortcut:
        return m_keysShown || qobject_cast<const QMenu*>(widget) != nullptr;
    case SH_TabBar_ElideMode:
        return Qt::ElideNone;
    case SH_ToolTip_WakeUpDelay:
        return 600;
    case SH_ItemView_ActivateItemOnSingleClick:
    case SH_DialogButtonBox_ButtonsHaveIcons: // a desktop's signs do not go with the colours
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

/// The signs of message boxes, of what empties a line, and of a menu bar that is too long.
QIcon TabStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const
{
    const ThemeColours& colours = Theme::Colours();
    switch (which) {
    case SP_MessageBoxQuestion:
        return ColouredIcon(u"question"_s, colours.accent);
    case SP_MessageBoxInformation:
        return ColouredIcon(u"info"_s, colours.blue);
    case SP_MessageBoxWarning:
        return ColouredIcon(u"warning"_s, colours.red);
    case SP_LineEditClearButton:
        return ThemedIcon(u"clear"_s);
    case SP_ToolBarHorizontalExtensionButton:
        return ThemedIcon(u"more"_s);
    case SP_MessageBoxCritical:
        return ColouredIcon(u"critical"_s, colours.red);
    default:
        return QProxyStyle::standardIcon(which, option, widget);
    }
}

} // namespace vasclip::windows
