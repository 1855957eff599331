#include "forms/scroll_bar.h"

#include <algorithm>

namespace vasclip::forms {

ScrollBar::ScrollBar(ControlSet& set, const QString& name, int min, int max)
    : Control(set, name)
    , m_min(min)
    , m_max(max)
    , m_value(std::clamp(0, min, max))
{}

void ScrollBar::SetValue(int value)
{
    const int kept = std::clamp(value, m_min, m_max);
    if (m_value == kept)
        return;
    m_value = kept;
    Q_EMIT Changed();
    Q_EMIT ValueChanged();
}

} // namespace vasclip::forms
