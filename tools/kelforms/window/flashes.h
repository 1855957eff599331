#pragma once

#include <QHash>
#include <QString>
#include <QTimer>

#include <functional>

namespace kelforms {

/// What has just been written glows for a moment and fades.
class Flashes
{
public:
    explicit Flashes(std::function<void()> repaint);

    void Start(const QString& key);
    /// From now on nothing fades: a picture that is taken some time later shows all that was written.
    void Keep() { m_keep = true; }
    /// 1 right after the write, 0 when it is over.
    [[nodiscard]] qreal Strength(const QString& key) const;

private:
    std::function<void()> m_repaint;
    QHash<QString, qint64> m_began;
    QTimer m_timer;
    bool m_keep = false;
};

} // namespace kelforms
