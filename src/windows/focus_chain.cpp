#include "windows/focus_chain.h"

#include <QWidget>

namespace vasclip::windows {

void ChainFocus(QWidget* behind, const QWidget& page)
{
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr ||
            widget->window() != behind->window()) // the list of a combo box
            continue;
        QWidget::setTabOrder(behind, widget);
        behind = widget;
    }
}

} // namespace vasclip::windows
