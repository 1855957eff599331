#pragma once

#include "drops/drag.h"
#include "drops/drop_table.h"
#include "shell/frm_main.h"
#include "windows/drop_port.h"

#include <QFileInfo>

namespace vasclip::app {

/// Forwards what the window asks about drags to the main screen.
class ShellDrops : public windows::DropPort
{
public:
    explicit ShellDrops(shell::frm_Main& main)
        : m_main(main)
    {}

    [[nodiscard]] bool IsSource(const forms::Control& source) const override { return m_main.CanStart(source); }
    void Begin(const forms::Control& source, int shift) override { m_drag = m_main.BeginDrag(source, shift); }
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const override
    {
        return m_main.Accepts(source, target);
    }
    [[nodiscard]] bool AimsAtRow(const QString& source, const forms::Control& target) const override
    {
        const drops::DropRule* rule = drops::RuleFor(source, target.Name());
        return rule != nullptr && rule->action == drops::DropAction::FileInRecord;
    }
    bool TakeRow(int row, const QString& key) override { return m_main.TakeRow(row, key); }
    void DragOver(const QString& source, const QString& target) override { m_main.DragOver(source, target); }
    void Drop(forms::Control& source, forms::Control& target) override
    {
        const drops::Drag drag = std::exchange(m_drag, {});
        if (drag.source == source.Name() && drag.index == source.Index())
            m_main.Drop(drag, target);
    }
    [[nodiscard]] QString FileOf(const forms::Control& source) const override
    {
        return m_main.NativeFileOf(source);
    }
    [[nodiscard]] QImage ImageOf(const forms::Control& source) const override { return m_main.ImageOf(source); }
    [[nodiscard]] QImage DragIcon() const override { return m_main.DragPicture(); }
    [[nodiscard]] bool AcceptsFiles(const forms::Control& target) const override
    {
        return m_main.Accepts(drops::kFiles, target);
    }
    void DropFiles(const QStringList& files, forms::Control& target) override
    {
        QStringList paths;
        for (const QString& file : files)
            if (const auto path = m_main.Base().disk.ToDrivePath(file); path && QFileInfo(file).isFile())
                paths.append(*path);
        m_main.DropFiles(paths, target);
    }
    forms::Menu* MenuOver(const forms::Control& control) override { return m_main.MenuOver(control); }
    void DeleteKeyOn(const forms::Control& thumb) override { m_main.DeleteKeyOn(thumb); }

private:
    shell::frm_Main& m_main;
    drops::Drag m_drag;
};

} // namespace vasclip::app
