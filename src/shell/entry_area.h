#pragma once

#include "databook/record_actions.h"
#include "databook/twin_watch.h"

#include <memory>

namespace vasclip::comments {
class frm_FKey;
}

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// The "Add a comp" area of the main screen: what its buttons and keys lead to.
class EntryArea : public QObject
{
    Q_OBJECT
public:
    /// @param frame  of the area
    EntryArea(Program& program, RecordOnShow& shown, forms::Control& frame);
    ~EntryArea() override;

    void CompAddRecord();
    void CompEditRecord();
    void CompDeleteRecord();
    void CompCopyRecord();
    void CompRenameRecord();
    /// Opens the entry screen of the comp with this key. @return true if something was stored there
    bool LoadCompForm(const QString& key);

private:
    [[nodiscard]] databook::RecordWork Records();
    [[nodiscard]] QStringList ReportAddresses() const;
    void AfterAction();
    void txtcentralkey_Change();
    void txtcentralkey_LostFocus();
    void ShowTwin();

    Program& m_program;
    databook::RecordDesk& m_records;
    RecordOnShow& m_shown;
    forms::Control& m_frame;
    databook::TwinWatch m_twin; ///< of the address that is typed
    std::unique_ptr<comments::frm_FKey> m_functionKeys; ///< made when the first entry screen opens
    QString m_entryKey;                                 ///< of the comp whose entry screen is open
};

} // namespace vasclip::shell
