#pragma once

#include "forms/controls.h"

#include <QSet>

namespace vasclip::forms {

/// A list of which any number of lines may be selected. ListIndex is the line that the user stands on.
class MultiListBox : public ListBox
{
    Q_OBJECT
public:
    using ListBox::ListBox;
    [[nodiscard]] bool Selected(int index) const { return m_selected.contains(index); }
    [[nodiscard]] int SelCount() const { return static_cast<int>(m_selected.size()); }
    [[nodiscard]] QList<int> SelectedLines() const; ///< in the order of the list
    /// Raises SelectionChanged at once if it differs. @throws RuntimeError 5 out of range
    void SetSelected(int index, bool selected);
    /// Selects these lines and no others; raises SelectionChanged once. @throws RuntimeError 5 out of range
    void Select(const QSet<int>& lines);
    void SelectAllLines();
    void SelectNone() { Select({}); }

Q_SIGNALS:
    void SelectionChanged();

protected:
    void FollowClear() override { m_selected.clear(); }
    void FollowLines() override { m_selected.clear(); }

private:
    QSet<int> m_selected;
};

} // namespace vasclip::forms
