#pragma once

#include "forms/controls.h"

namespace vasclip::link {

/// frm_Addr: the hidden store of what was read from the report.
struct frm_Addr
{
    frm_Addr();
    forms::ControlSet controls;
    forms::TextBox txtKelReport, txtKelFileNo, txtKelListForms, txtFormType, txtKelimages;
    forms::TextBox txtKelLender, txtKelOwner, txtKelBorrower;
    forms::TextBox txtKelCity, txtKelState, txtKelZip, txtKelCounty, txtKelNeighBorHd;
    forms::ControlArray<forms::TextBox> txtCompAddr; ///< 0 is the subject's street address
    forms::ControlArray<forms::TextBox> txtCompCity, txtCompState, txtCompZip, txtProximity;
    forms::ControlArray<forms::TextBox> txtAltCompAddr, txtAltCompCity, txtAltCompState, txtAltCompZip,
        txtAltProximity;
    forms::ControlArray<forms::TextBox> txtListingAddr, txtListCity, txtListState, txtListZip,
        txtListProximity;
    forms::ControlArray<forms::TextBox> txtRentalAddr, txtRentCity, txtRentState, txtRentZip,
        txtRentProximity;
    forms::Label lblFileNo;
    forms::ListBox lstAddr;
};

/// The report as the main window mirrors it: tabs, labels and text slots.
struct ReportControls
{
    explicit ReportControls(forms::ControlSet& set);

    forms::TabControl TabData; ///< Subject, Comparables, General, Listings, Rentals
    forms::TabControl TabSubject, TabComp, TabGeneral, TabListing, TabRental;
    forms::TextBox txtSubject;
    forms::ControlArray<forms::TextBox> txtComp, txtAltComp, txtListing, txtRental;
    forms::ControlArray<forms::TextBox> txtgeneraladdr;
    forms::ControlArray<forms::ComboBox> cboGeneral;
    forms::ControlArray<forms::Label> lblComp, lblAltComp, lblListing, lblRental; ///< 0-based, one a page
    forms::Button cmdSubjectAnd;
    forms::PictureBox imaKel; ///< the house icon: refresh
    forms::Label lblReport;   ///< the report that the tabs show: name, file number, subject
    forms::Label lblLink;     ///< how it stands with the forms program
    forms::Button cmdLink;    ///< the one thing that helps now; hidden where nothing does
};

/// The process-wide values of the link.
struct LinkState
{
    bool linkActive = false;     ///< what KelIsActive found last
    bool populateGate = false;   ///< its second copy: may the tabs be populated
    bool generalReentry = false; ///< raised while cboGeneral is emptied, so that its events poke nothing
    qint16 retryLimit = 0;       ///< of LoopWhileNull
    QString notSent; ///< why the last conversation sent nothing, where its report was not the active one
    QString keptAgainst; ///< the active report from which the user did not want the tabs while typing
    bool proximityOnDrop = true; ///< compute the proximity of a dropped comp
    bool transferring = false; ///< a transfer is at work; a second one, and a refresh, do nothing
    bool refreshing = false; ///< RefreshAppraisal is at work; a second one does nothing
};

} // namespace vasclip::link
