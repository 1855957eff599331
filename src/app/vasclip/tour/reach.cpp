#include "app/vasclip/tour/reach.h"

#include "windows/layout_parts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QCalendarWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QToolButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A button of a calendar, the list of a box: the toolkit's own, which goes with its whole.
bool IsPartOfAnother(const QWidget& widget)
{
    for (const QWidget* above = widget.parentWidget(); above != nullptr && !widget.isWindow();
         above = above->parentWidget()) {
        if (qobject_cast<const QAbstractItemView*>(above) || qobject_cast<const QComboBox*>(above) ||
            qobject_cast<const QCalendarWidget*>(above) || qobject_cast<const QLineEdit*>(above) ||
            qobject_cast<const QAbstractSpinBox*>(above) || qobject_cast<const QTabBar*>(above) ||
            qobject_cast<const QMenuBar*>(above))
            return true;
        if (above->isWindow())
            break;
    }
    return widget.objectName().startsWith("qt_"_L1);
}

QString NameOf(const QWidget& widget)
{
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const QString name = !widget.objectName().isEmpty() ? widget.objectName() : label ? label->text() : QString();
    return u"%1 %2"_s.arg(QLatin1StringView(widget.metaObject()->className()), name);
}

/// The part of a scroll area that moves can be brought in by its bars, if it has them.
bool ScrollsTo(const QAbstractScrollArea& area, const QRect& place)
{
    const QRect shown = area.viewport()->rect();
    const bool across = area.horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff ||
                        (place.left() >= shown.left() && place.right() <= shown.right());
    const bool down = area.verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff ||
                      (place.top() >= shown.top() && place.bottom() <= shown.bottom());
    return across && down;
}

QString Beyond(const QWidget& widget, const QWidget& window)
{
    QRect place = widget.rect();
    for (const QWidget* at = &widget; at != &window; at = at->parentWidget()) {
        place.moveTopLeft(at->mapToParent(place.topLeft()));
        const QWidget* around = at->parentWidget();
        const auto* area = qobject_cast<const QScrollArea*>(around->parentWidget());
        if (area != nullptr && area->viewport() == around) {
            if (!ScrollsTo(*area, place))
                return u"%1 can't be scrolled to"_s.arg(NameOf(widget));
            place = around->rect();
        } else if (!around->rect().contains(place)) {
            return u"%1 goes beyond %2"_s.arg(NameOf(widget), NameOf(*around));
        }
    }
    return {};
}

/// Words without the mark of the access key.
QString Said(QString words)
{
    words.replace("&&"_L1, "\1"_L1).remove(u'&').replace(u'\1', u'&');
    return words.simplified();
}

int RoomForWords(const QAbstractButton& button)
{
    if (qobject_cast<const QToolButton*>(&button))
        return button.width() - 8;
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto part = qobject_cast<const QPushButton*>(&button) ? QStyle::SE_PushButtonContents
                      : button.inherits("QRadioButton")         ? QStyle::SE_RadioButtonContents
                                                                : QStyle::SE_CheckBoxContents;
    return button.style()->subElementRect(part, &option, &button).width();
}

bool ShowsWords(const QAbstractButton& button)
{
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    return !button.text().isEmpty() &&
           (tool == nullptr || tool->toolButtonStyle() != Qt::ToolButtonIconOnly || tool->icon().isNull());
}

/// Words that may be narrower than they need: they end in dots then, and a tip has the whole.
bool GivesWay(const QWidget& widget)
{
    return widget.sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
}

QString CutOff(const QWidget& widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (!ShowsWords(*button) || (GivesWay(*button) && !button->toolTip().isEmpty()))
            return {};
        const QSize words = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        const int icon = button->icon().isNull() ? 0 : button->iconSize().width() + 4;
        if (words.width() + icon > RoomForWords(*button) + 1 || words.height() > button->height())
            return u"%1 \"%2\" is cut off: %3 of %4 pixels"_s.arg(NameOf(widget), Said(button->text()))
                .arg(RoomForWords(*button))
                .arg(words.width() + icon);
        return {};
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label == nullptr || label->text().isEmpty())
        return {};
    const bool givesWay = !label->wordWrap() && GivesWay(*label);
    const QSize need = label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
    if (need.height() > label->height() + 1 || (!givesWay && need.width() > label->width() + 1))
        return u"%1 \"%2\" is cut off: %3 by %4 of %5 by %6 pixels"_s.arg(NameOf(widget), label->text().left(40))
            .arg(label->width())
            .arg(label->height())
            .arg(need.width())
            .arg(need.height());
    return {};
}

QString Unnamed(QWidget& widget)
{
    if ((widget.focusPolicy() & Qt::TabFocus) == 0 || qobject_cast<const QScrollArea*>(&widget))
        return {};
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&widget);
    const QString name = heard == nullptr ? QString() : Said(heard->text(QAccessible::Name));
    if (name.isEmpty())
        return u"%1 has no name for a screen reader"_s.arg(NameOf(widget));
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button != nullptr && ShowsWords(*button) && !name.contains(Said(button->text()), Qt::CaseInsensitive))
        return u"%1 says \"%2\" and is called \"%3\""_s.arg(NameOf(widget), Said(button->text()), name);
    return {};
}

/// Words that have just changed get their room with the next turn of the queue.
void LayOut()
{
    constexpr int kDeepest = 8; // a layout within a layout asks anew
    for (int i = 0; i < kDeepest; ++i)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

} // namespace

QStringList OutOfReach(const QWidget& window)
{
    LayOut();
    QStringList found;
    const auto add = [&found](const QString& finding) {
        if (!finding.isEmpty() && !found.contains(finding))
            found.append(finding);
    };
    const QSize room = windows::RoomFor(window);
    if (window.width() > room.width() || window.height() > room.height())
        add(u"the window takes %1 by %2 of %3 by %4 pixels"_s.arg(window.width()).arg(window.height()).arg(
            room.width()).arg(room.height()));
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible() || IsPartOfAnother(*widget))
            continue;
        const bool used = (widget->focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<QAbstractButton*>(widget) ||
                          qobject_cast<QLabel*>(widget);
        if (used && !widget->size().isEmpty())
            add(Beyond(*widget, window));
        add(CutOff(*widget));
        add(Unnamed(*widget));
    }
    return found;
}

} // namespace vasclip::app
