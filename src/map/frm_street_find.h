#pragma once

#include "forms/screen.h"
#include "map/map_desk.h"

namespace vasclip::map {

/// Finds an address on the map and sets a point there, or goes to a point by its label.
class frm_StreetFind : public forms::Screen
{
    Q_OBJECT
public:
    explicit frm_StreetFind(MapDesk& desk);

    forms::ControlArray<forms::CheckBox> optfind;     ///< by address, by label; one is on
    forms::ControlArray<forms::CheckBox> optwhichdot; ///< house, dot; one is on
    forms::ControlArray<forms::PictureBox> imaicon;
    forms::Label lbladdress, lblCity, lblstate, lblzip, lblcounty, lblMapLabel;
    forms::TextBox txtStreet, txtCity, txtState, txtZip, txtCounty;
    forms::ListBox lstaddress, lstCity; ///< of the Databook
    forms::TextBox txtlabel;
    forms::ListBox lstLabel;      ///< the subject and the report's comps
    forms::ListBox lstcandidates; ///< places that an address may mean: latitude, longitude, address
    forms::Control linStreets;
    forms::Label lblmsg;
    forms::Button cmdFind, cmdCancel;

    void optfind_Click(int index);
    void optwhichdot_Click(int index);
    void lstaddress_Click();
    void lstCity_Click();
    void lstLabel_Click();
    void lstcandidates_Click();
    void cmdFind_Click();

protected:
    void Form_Load() override;

private:
    [[nodiscard]] QString Location() const;
    void FindAddress();
    void FindLabel();
    [[nodiscard]] bool OfferCandidates();
    void ForgetCandidates();

    MapDesk& m_desk;
    QList<qint32> m_candidates; ///< pins of the last question
};

} // namespace vasclip::map
