#pragma once

#include "windows/slot_groups.h"

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace vasclip::windows {

/// One page of three slot cards. It is empty until it is shown for the first time, or asked to be whole: a
/// start builds one page out of twenty-one.
class SlotPage : public QWidget
{
    Q_OBJECT
public:
    /// @param page   0-based within the group
    /// @param built  called once, with the page, when its widgets stand
    SlotPage(const SlotGroup& group, int page, std::function<void(QWidget&)> built,
             QWidget* parent = nullptr);

    void Build(); ///< does nothing the second time

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* Card(int index);
    QWidget* Footer(int index, const QString& name, QWidget* card);
    void AddHeading(QVBoxLayout& rows);

    const SlotGroup& m_group;
    int m_page;
    std::function<void(QWidget&)> m_built;
    bool m_standing = false;
};

} // namespace vasclip::windows
