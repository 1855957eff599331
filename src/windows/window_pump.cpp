#include "windows/window_pump.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

const QString kStopButton = u"cmdStop"_s;

} // namespace

WindowPump::WindowPump() = default;
WindowPump::~WindowPump() = default;

void WindowPump::DoEvents()
{
    if (m_holds == 0 || m_turning) {
        QtEventPump::DoEvents();
        return;
    }
    const QScopedValueRollback<bool> turning(m_turning, true);
    m_modalBefore = QApplication::activeModalWidget();
    qApp->installEventFilter(this);
    const auto free = qScopeGuard([this] { qApp->removeEventFilter(this); });
    QtEventPump::DoEvents();
}

void WindowPump::Hold(bool on)
{
    m_holds += on ? 1 : -1;
    if (m_holds > 0)
        return;
    for (Typed& typed : m_typed) {
        if (typed.window)
            QCoreApplication::postEvent(typed.window, typed.key.release());
    }
    m_typed.clear();
    if (!m_closeWanted)
        return;
    QTimer::singleShot(0, m_closeWanted.data(), [window = m_closeWanted.data()] { window->close(); });
    m_closeWanted.clear();
}

bool WindowPump::ForCancel(QObject* watched) const
{
    for (const QObject* object = watched; object != nullptr; object = object->parent())
        if (object->objectName() == kStopButton)
            return true;
    return false;
}

/// Letters that are typed on into a field while an answer is late are not lost.
void WindowPump::KeepTyped(QWindow* window, const QKeyEvent& key)
{
    const QWidget* field = QApplication::focusWidget();
    const bool writes =
        qobject_cast<const QLineEdit*>(field) != nullptr || qobject_cast<const QComboBox*>(field) != nullptr;
    if (writes && !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        m_typed.push_back({window, std::unique_ptr<QKeyEvent>(key.clone())});
}

bool WindowPump::eventFilter(QObject* watched, QEvent* event)
{
    const QWidget* box = QApplication::activeModalWidget();
    if (box != nullptr && box != m_modalBefore)
        return false;
    auto* window = qobject_cast<QWindow*>(watched);
    switch (event->type()) {
    case QEvent::Close:
        if (window == nullptr)
            return false; // the program closes a window of its own
        m_closeWanted = window;
        event->ignore();
        return true;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && m_stop) {
            m_stop();
            return true;
        }
        if (window != nullptr && !ForCancel(watched))
            KeepTyped(window, *static_cast<QKeyEvent*>(event));
        [[fallthrough]];
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
        if (event->type() == QEvent::Shortcut && ForCancel(watched))
            return false;
        return !ForCancel(watched) || window != nullptr;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        // A window hands them on to the widget under the pointer, which comes by here too.
        return window == nullptr && !ForCancel(watched);
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (window == nullptr || event->type() != QEvent::Wheel)
            event->ignore();
        return true;
    default:
        return false;
    }
}

} // namespace vasclip::windows
