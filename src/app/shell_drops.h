#pragma once

#include "shell/frm_main.h"
#include "windows/drop_port.h"

namespace vasclip::app {

/// Forwards what the window asks about drags to the main screen.
class ShellDrops : public windows::DropPort
{
public:
    explicit ShellDrops(shell::frm_Main& main)
        : m_main(main)
    {}

    [[nodiscard]] bool IsSource(const forms::Control& source) const override
    {
        return &source == &m_main.records.grddatabook && m_main.records.grddatabook.Row() >= 0;
    }
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const override
    {
        return m_main.Accepts(source, target);
    }
    void DragOver(const QString& source, const QString& target) override { m_main.DragOver(source, target); }
    void Drop(forms::Control& source, forms::Control& target) override
    {
        if (IsSource(source))
            m_main.Drop(m_main.grddatabook_dragCell(), target);
    }

private:
    shell::frm_Main& m_main;
};

} // namespace vasclip::app
