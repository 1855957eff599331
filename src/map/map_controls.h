#pragma once

#include "forms/controls.h"

namespace vasclip::map {

/// The controls of the map tab, part of the main window's. `cmdSubjectAnd` stands with the report's controls,
/// whose tabs give it its words.
struct frm_MapTab
{
    explicit frm_MapTab(forms::ControlSet& set);

    forms::Control mapview;  ///< the drawn map
    forms::Label lblMapNote; ///< what of it can't be read
    forms::Button cmdSubjectOnly, cmdGeoComp;
    forms::Button cmdin, cmdout, cmdDetail, cmdRefreshMap;
    forms::CheckBox ckbFreeze, ckbLabelStreets;
    forms::CheckBox ckbRadius;
    forms::Control spnradius; ///< two small buttons, up and down; as the other two
    forms::TextBox txtradius; ///< miles
    forms::ListBox lstaddresses;
    forms::ListBox lstids; ///< hidden: the point of each line
    forms::Label lblJustOutside;
    forms::Control spnFontSize, spnWidth;
    forms::TextBox txtfontsize, txtwidth;

    forms::Button cmdClear, cmdClearPoint, cmdAnchor, cmdAnchorOne, cmdRotate;
    forms::Button cmdArrange;
    forms::CheckBox ckbArrange; ///< arrange after placing
    forms::Button cmdCopyMap, cmdPreviewMap;
    forms::ControlArray<forms::CheckBox> optMapAddendum; ///< one of them is on
    forms::PictureBox mapPic, geatemp;                   ///< hidden

    forms::TextBox txtMapAddress, txtMapProximity; ///< of the selected point
    forms::PictureBox imaanchor;
    forms::Label lblMapID; ///< hidden: the selected point and its result
    forms::Label lblProximity;
    forms::Label lblSureness; ///< how sure the two places of the proximity are
    forms::TextBox txtGLA, txtSellingPr, txtSaleDate;
    forms::PictureBox geaMapPhoto;

    forms::Button cmdProx, cmdLabelPosition, cmdmanual;
};

} // namespace vasclip::map
