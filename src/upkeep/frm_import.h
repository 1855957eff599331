#pragma once

#include "upkeep/file_screen.h"
#include "upkeep/import_table.h"

namespace vasclip::upkeep {

/// Appends the rows of a table of another database to the Databook.
class frm_Import : public FileScreen
{
public:
    explicit frm_Import(const TransferDesk& desk);

    enum Location { ImportLocation, ExportLocation, ArchiveLocation };
    forms::ControlArray<forms::CheckBox> optLocation; ///< one of them is on
    forms::Label lblTargetDB;
    forms::Button cmdRehearse, cmdImport;

    void cmdImport_Click();
    void cmdRehearse_Click();
    /// Were records added since the screen was opened?
    [[nodiscard]] bool HasChanged() const { return m_changed; }

    static constexpr int kShownLines = 5000;

protected:
    void Form_Load() override;
    void EnableButtons(bool free) override;
    bool RefusesMissing(const QString& file) override;

private:
    void Choose(int location);
    /// @return true if it was told
    bool Refuses(const QString& source);
    void Import(const QString& source, const WorkStep& step);
    void ImportList(const QString& source);
    void Rehearse(const ImportOrder& order);
    void ShowLeftOut(QStringList lines);

    bool m_changed = false;
};

} // namespace vasclip::upkeep
