#pragma once

#include "forms/controls.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QContextMenuEvent;
class QWidget;

namespace vasclip::forms {
class MenuPort;
}

namespace vasclip::windows {

class Binder;

/// Opens the pop-up menus of the rules over the controls of a window, by the right button and the menu key.
class MenuDesk : public QObject
{
    Q_OBJECT
public:
    /// Binder and port outlive the desk. Each menu has a QMenu of its name in the window.
    MenuDesk(Binder& binder, forms::MenuPort& port, QObject* parent = nullptr);

    /// Opens the menu over a control. @return false if it has none
    bool Open(forms::Control& control, const QPoint& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Adopt(forms::Control& control, QWidget& widget);
    Binder& m_binder;
    forms::MenuPort& m_port;
    QHash<const QObject*, QPointer<forms::Control>> m_watched;
};

} // namespace vasclip::windows
