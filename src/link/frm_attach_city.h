#pragma once

#include "databook/city_list.h"
#include "forms/screen.h"
#include "link/addresses.h"

namespace vasclip::link {

/// Completes one comp's city, state and ZIP, with help from the list of locations that the user keeps, and
/// chooses what a comp inherits from the report's subject.
class frm_AttachCity : public forms::Screen
{
    Q_OBJECT
public:
    /// @param mode  COMP, SALE or MANUAL; COMP shows as SALE. A comp of the report is read from it unless the
    ///              mode is MANUAL
    /// @param key   of the record to complete; one that is not there leaves the list alone to be kept
    frm_AttachCity(LinkDesk& desk, const QString& mode, const QString& key);

    forms::Label lblCentralKey, lblPending;
    forms::TextBox txtAddress, txtCity, txtState, txtZip, txtCounty, txtNeighborhd, txtSaleFld, txtSaleDate;
    forms::MultiListBox lstcity;
    forms::ControlArray<forms::CheckBox> optUseSubjCSZ; ///< CS, CSZ, NONE; one of them is ticked
    forms::Button cmdAdd, cmdDelete, cmdOk, cmdCancel;
    forms::Label lblmsg;

    [[nodiscard]] bool HasChanged() const { return m_changed; } ///< was the record stored?

    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdOk_Click();

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    /// A field of the record and its box; `stored` is what the record held when the screen opened.
    struct Box
    {
        forms::TextBox& box;
        QString field;
        QString stored = {};
    };

    void ShowRecord();
    void ReadReport();
    void ShowCity();
    void ShowPending();
    void optUseSubjCSZ_Click(int chosen);
    [[nodiscard]] databook::CityEntry Entry() const;
    [[nodiscard]] bool MaySkip();
    [[nodiscard]] bool MayLoseDate() const;
    [[nodiscard]] bool Store();
    void SaveChoice();

    LinkDesk& m_desk;
    QString m_mode; ///< SALE or MANUAL
    QString m_key;
    QList<Box> m_boxes; ///< the sale date is the last
    bool m_found = false;
    bool m_changed = false;
    bool m_listChanged = false;
    int m_choice = 0;
};

} // namespace vasclip::link
