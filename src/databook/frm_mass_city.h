#pragma once

#include "common/globals.h"
#include "databook/city_list.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "platform/files/disk.h"
#include "store/record.h"

#include <optional>

namespace vasclip::databook {

/// City, state, ZIP and county of the comps: record by record, or for a whole neighbourhood at once.
class frm_MassCity : public forms::Screen
{
    Q_OBJECT
public:
    /// @param databook  table-type source of COMPS; outlives the screen, as the globals and the disk do
    frm_MassCity(const forms::Ports& ports, store::DataSource& databook, const common::Globals& globals,
                 const files::Disk& disk);

    forms::Label lblCentralKey;
    forms::TextBox txtneighborhood, txtCity, txtState, txtZip, txtCounty;
    forms::MultiListBox lstcity;
    forms::CheckBox ckbBlank;
    forms::Button cmdprev, cmdnext, cmdOk, cmdCancel;
    forms::Button cmdCopyCity;       ///< to all records of the neighbourhood
    forms::Button cmdAdd, cmdDelete; ///< of the city list
    forms::Label lblRecord, lblmsg;

    /// The SELECT that the screen walks.
    [[nodiscard]] static QString SelectText(bool blankOnly);
    /// Has any record been changed since the screen was opened?
    [[nodiscard]] bool HasChanged() const { return m_changed; }

    void cmdprev_Click() { Step(-1); }
    void cmdnext_Click() { Step(1); }
    void cmdOk_Click();
    void cmdCopyCity_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void OpenRecords();
    void Step(int by);
    void ShowRecord();
    void ShowCity();
    [[nodiscard]] CityEntry Entry() const;

    forms::Ports m_ports;
    store::DataSource& m_databook;
    const common::Globals& m_globals;
    const files::Disk& m_disk;
    std::optional<store::Rows> m_records;
    qint64 m_place = 0; ///< among them
    bool m_changed = false;
    bool m_listChanged = false;
};

} // namespace vasclip::databook
