#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace vasclip::windows {

/// Closes the program from outside of any window as its user would: what stands in front of the main window goes
/// first, the last one first, and then the window itself.
///
/// A box is answered as its cross answers it. A screen with typed text asks what its cross asks; whoever keeps it
/// open there keeps the program open. Work that takes long is stopped, and what shows it goes when it has ended.
class OrderlyClose : public QObject
{
    Q_OBJECT
public:
    explicit OrderlyClose(QWidget& mainWindow);
    void Start(); ///< a second wish while the first one is being asked about does nothing

private:
    void Next();
    void WaitForWork();
    [[nodiscard]] static bool IsAtWork(); ///< under the hourglass
    QPointer<QWidget> m_window;
    bool m_closing = false;
};

} // namespace vasclip::windows
