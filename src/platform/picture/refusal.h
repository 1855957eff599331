#pragma once

#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"

#include <QElapsedTimer>

namespace vasclip::picture {

using namespace Qt::StringLiterals;

/// @throws RuntimeError 481 that names the picture and says why it can't be read
[[noreturn]] inline void Refuse(const QString& name, const QString& why)
{
    throw RuntimeError(error::kCorruptPicture,
                       u"'%1' is not a picture that can be read: %2"_s.arg(name, why));
}

/// @throws RuntimeError 481 for more pixels than the limit
inline void CheckPixels(QSize size, const QString& name, const Limits& limits)
{
    if (qint64(size.width()) * size.height() > limits.pixels)
        Refuse(name, u"its size of %1 by %2 is beyond the limit"_s.arg(size.width()).arg(size.height()));
}

/// Watches the time of one decoding and whether it is still wanted.
class Watch
{
public:
    explicit Watch(const Limits& limits)
        : m_limits(limits)
    {
        m_timer.start();
    }
    /// Why the decoding has to stop; nullptr while it may go on.
    [[nodiscard]] const char* Stop() const
    {
        if (m_limits.cancelled && m_limits.cancelled())
            return "the reading was cancelled";
        if (double(m_timer.elapsed()) / 1000 > m_limits.seconds)
            return "it takes too long to decode";
        return nullptr;
    }

private:
    const Limits& m_limits;
    QElapsedTimer m_timer;
};

} // namespace vasclip::picture
