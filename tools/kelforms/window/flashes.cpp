#include "kelforms/window/flashes.h"

#include <QDateTime>

#include <utility>

namespace kelforms {

namespace {

constexpr qint64 kFullMs = 1200; ///< stays so long at full strength
constexpr qint64 kFadeMs = 1300;
constexpr int kFrameMs = 50;

} // namespace

Flashes::Flashes(std::function<void()> repaint)
    : m_repaint(std::move(repaint))
{
    m_timer.setInterval(kFrameMs);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        m_began.removeIf([now](const auto& entry) { return now - entry.value() > kFullMs + kFadeMs; });
        if (m_began.isEmpty())
            m_timer.stop();
        m_repaint();
    });
}

void Flashes::Start(const QString& key)
{
    m_began.insert(key, QDateTime::currentMSecsSinceEpoch());
    if (!m_keep && !m_timer.isActive())
        m_timer.start();
}

qreal Flashes::Strength(const QString& key) const
{
    const auto found = m_began.constFind(key);
    if (found == m_began.constEnd())
        return 0;
    if (m_keep)
        return 1;
    const qint64 age = QDateTime::currentMSecsSinceEpoch() - *found;
    return age <= kFullMs ? 1 : qMax<qreal>(0, 1 - static_cast<qreal>(age - kFullMs) / kFadeMs);
}

} // namespace kelforms
