#include "forms/chips.h"

#include <algorithm>

namespace vasclip::forms {

void ChipList::SetChips(const QList<Chip>& chips)
{
    if (m_chips == chips)
        return;
    m_chips = chips;
    Q_EMIT Changed();
}

void ChipList::Close(const QString& id)
{
    if (std::ranges::any_of(m_chips, [&id](const Chip& chip) { return chip.id == id; }))
        Q_EMIT CloseWanted(id);
}

} // namespace vasclip::forms
