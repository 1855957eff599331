#include "mapdata/progress.h"

#include "mapdata/stop.h"

#include <algorithm>
#include <cstdio>

namespace vasclip::mapdata {

namespace {

constexpr qint64 kParts = 1000;
constexpr qint64 kPauseMs = 100;

} // namespace

void Progress::Say(double share)
{
    const double units = double(m_before) + double(m_units) * std::clamp(share, 0.0, 1.0);
    const auto part = m_all > 0 ? static_cast<qint64>(units / double(m_all) * kParts) : 0;
    if (part == m_said)
        return;
    m_said = part;
    m_since.start();
    std::printf("progress %lld %lld %s\n", static_cast<long long>(part), static_cast<long long>(kParts),
                m_words.toUtf8().constData());
    std::fflush(stdout);
}

void Progress::Begin(qint64 units, const QString& words)
{
    m_units = units;
    m_words = words;
    m_said = -1;
    Say(0);
}

bool Progress::At(double share)
{
    if (m_since.elapsed() >= kPauseMs)
        Say(share);
    return !Stopped();
}

void Progress::End()
{
    m_before += m_units;
    m_units = 0;
}

} // namespace vasclip::mapdata
