#include "forms/multi_list.h"

#include "platform/text/call_errors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::forms {

QList<int> MultiListBox::SelectedLines() const
{
    QList<int> lines(m_selected.cbegin(), m_selected.cend());
    std::sort(lines.begin(), lines.end());
    return lines;
}

void MultiListBox::SetSelected(int index, bool selected)
{
    QSet<int> lines = m_selected;
    if (selected)
        lines.insert(index);
    else
        lines.remove(index);
    Select(lines);
}

void MultiListBox::Select(const QSet<int>& lines)
{
    for (const int line : lines) {
        if (line < 0 || line >= ListCount())
            throw RuntimeError(error::kInvalidCall, u"%1: the list has no line %2"_s.arg(ObjectName()).arg(line));
    }
    if (m_selected == lines)
        return;
    m_selected = lines;
    Q_EMIT SelectionChanged();
}

void MultiListBox::SelectAllLines()
{
    QSet<int> all;
    all.reserve(ListCount());
    for (int line = 0; line < ListCount(); ++line)
        all.insert(line);
    Select(all);
}

} // namespace vasclip::forms
