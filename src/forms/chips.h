#pragma once

#include "forms/controls.h"

namespace vasclip::forms {

struct Chip
{
    QString id; ///< tells its owner which it is
    QString words;
    bool operator==(const Chip&) const = default;
};

/// A row of short texts, each of which the user may close.
class ChipList : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] const QList<Chip>& Chips() const { return m_chips; }
    void SetChips(const QList<Chip>& chips);
    /// The user closes one. Nothing happens for one that is gone; the owner takes it out, not this.
    void Close(const QString& id);

Q_SIGNALS:
    void CloseWanted(const QString& id);

private:
    QList<Chip> m_chips;
};

} // namespace vasclip::forms
