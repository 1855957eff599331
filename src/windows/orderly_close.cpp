#include "windows/orderly_close.h"

#include <QApplication>
#include <QTimer>

namespace vasclip::windows {

OrderlyClose::OrderlyClose(QWidget& mainWindow)
    : m_window(&mainWindow)
{}

void OrderlyClose::Start()
{
    if (m_closing)
        return;
    m_closing = true;
    Next();
}

void OrderlyClose::Next()
{
    QPointer<QWidget> front = QApplication::activePopupWidget();
    if (!front)
        front = QApplication::activeModalWidget();
    if (!front) {
        m_closing = false;
        if (m_window)
            m_window->close();
        return;
    }
    front->close();
    if (front && front->isVisible()) {
        if (IsAtWork())
            WaitForWork();
        else
            m_closing = false; // somebody wants it to stay
        return;
    }
    // Its loop ends when this turn of the queue is over; what comes next belongs to the loop below it.
    QTimer::singleShot(0, this, &OrderlyClose::Next);
}

/// The first wish stops work that takes long, which ends behind its step at hand; the window goes with the next one.
void OrderlyClose::WaitForWork()
{
    constexpr int kLookAgainMs = 50;
    QTimer::singleShot(kLookAgainMs, this, [this] {
        if (IsAtWork())
            WaitForWork();
        else
            Next();
    });
}

bool OrderlyClose::IsAtWork()
{
    return QApplication::overrideCursor() != nullptr;
}

} // namespace vasclip::windows
