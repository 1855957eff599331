#include "windows/menu_desk.h"

#include "forms/menu_port.h"
#include "windows/binder.h"
#include "windows/guard.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>

#include <memory>

namespace vasclip::windows {

MenuDesk::MenuDesk(Binder& binder, forms::MenuPort& port, QObject* parent)
    : QObject(parent)
    , m_binder(binder)
    , m_port(port)
{
    connect(&binder, &Binder::Bound, this, &MenuDesk::Adopt);
}

void MenuDesk::Adopt(forms::Control& control, QWidget& widget)
{
    auto* list = qobject_cast<QListView*>(&widget);
    if (list == nullptr && qobject_cast<forms::PictureBox*>(&control) == nullptr &&
        qobject_cast<forms::TextBox*>(&control) == nullptr)
        return;
    QWidget* taker = list != nullptr ? list->viewport() : &widget;
    taker->installEventFilter(this);
    m_watched.insert(taker, &control);
}

bool MenuDesk::Open(forms::Control& control, const QPoint& place)
{
    forms::Menu* menu = nullptr;
    m_binder.Guard().Run([&] { menu = m_port.MenuOver(control); });
    auto* shown = menu == nullptr ? nullptr : qobject_cast<QMenu*>(m_binder.WidgetOf(*menu));
    if (shown == nullptr)
        return false;
    QMenu whole(m_binder.WidgetOf(control));
    whole.setToolTipsVisible(true);
    whole.addActions(shown->actions());
    // A field keeps what every field can do.
    std::unique_ptr<QMenu> common;
    if (auto* edit = qobject_cast<QLineEdit*>(m_binder.WidgetOf(control))) {
        common.reset(edit->createStandardContextMenu());
        whole.addSeparator();
        whole.addActions(common->actions());
    }
    whole.exec(place);
    return true;
}

bool MenuDesk::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ContextMenu) {
        forms::Control* control = m_watched.value(watched);
        auto* widget = qobject_cast<QWidget*>(watched);
        const auto& asked = *static_cast<QContextMenuEvent*>(event);
        const QPoint place = asked.reason() == QContextMenuEvent::Keyboard && widget != nullptr
                                 ? widget->mapToGlobal(widget->rect().center())
                                 : asked.globalPos();
        if (control != nullptr && Open(*control, place))
            return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vasclip::windows
