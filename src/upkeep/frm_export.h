#pragma once

#include "upkeep/export_table.h"
#include "upkeep/file_screen.h"

namespace vasclip::upkeep {

/// Copies the records of the current search into a table of another database.
class frm_Export : public FileScreen
{
public:
    /// @param search  the SELECT of the records on show
    frm_Export(const TransferDesk& desk, std::function<QString()> search);

    forms::Label lblSourceDB, lblSearch;
    forms::CheckBox ckbDateStamp, ckbAccess;
    forms::Button cmdExport;

    void cmdExport_Click();

protected:
    void Form_Load() override;
    void EnableButtons(bool free) override;
    bool RefusesMissing(const QString& file) override;

private:
    void StampName();
    void Export(const QString& target, const QString& table, const WorkStep& step);

    std::function<QString()> m_search;
    QString m_base;    ///< the file's name without a stamp
    QString m_stamped; ///< what the stamp made of it
};

} // namespace vasclip::upkeep
