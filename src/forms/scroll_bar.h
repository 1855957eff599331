#pragma once

#include "forms/controls.h"

namespace vasclip::forms {

/// A value that the user moves within bounds.
class ScrollBar : public Control
{
    Q_OBJECT
public:
    ScrollBar(ControlSet& set, const QString& name, int min, int max);
    [[nodiscard]] int Min() const { return m_min; }
    [[nodiscard]] int Max() const { return m_max; }
    [[nodiscard]] int Value() const { return m_value; }
    void SetValue(int value); ///< kept within the bounds; raises ValueChanged at once if it differs

Q_SIGNALS:
    void ValueChanged();

private:
    int m_min;
    int m_max;
    int m_value;
};

} // namespace vasclip::forms
