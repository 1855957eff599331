#include "app/vasclip/tour/strangers.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>

#include <utility>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLookMilliseconds = 250;
/// A step comes to a dialog that it expects within a blink.
constexpr int kPatienceMilliseconds = 5'000;
constexpr int kMost = 5;

} // namespace

Strangers::Strangers(std::function<void(QWidget& dialog)> tell, std::function<void()> end)
    : m_tell(std::move(tell))
    , m_end(std::move(end))
{
    m_watch.setInterval(kLookMilliseconds);
    QObject::connect(&m_watch, &QTimer::timeout, this, [this] { Look(); });
    m_watch.start();
}

void Strangers::Look()
{
    QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog || m_visited.contains(dialog)) {
        m_seen.clear();
        return;
    }
    if (m_seen != dialog) {
        m_seen = dialog;
        m_since.start();
    }
    if (!m_since.hasExpired(kPatienceMilliseconds))
        return;
    m_since.start();
    // Not from within the timer, which does not run while its own call does: closing may bring up the next one.
    QMetaObject::invokeMethod(
        dialog, [this, dialog] { Close(*dialog); }, Qt::QueuedConnection);
}

void Strangers::Close(QWidget& dialog)
{
    const QPointer<QWidget> still = &dialog;
    m_tell(dialog);
    if (++m_closed >= kMost)
        m_end();
    if (still)
        still->close();
}

QString WordsOf(const QWidget& dialog)
{
    QStringList words;
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) {
        words = {box->windowTitle(), box->text()};
    } else {
        words = {dialog.windowTitle(), dialog.objectName()};
    }
    words.removeAll(QString());
    return words.join(u": "_s);
}

} // namespace vasclip::app
