#include "link/report_desk.h"

#include "link/tabs.h"
#include "photos/slot_counts.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The normal captions of `pages` pages of a kind.
QStringList Captions(const QString& kind, int pages)
{
    QStringList captions;
    for (int j = 1; j <= pages; ++j)
        captions << PageCaption(kind, j);
    return captions;
}

void CaptionLabels(const forms::ControlArray<forms::Label>& labels, const QString& word)
{
    for (int i = labels.First(); i <= labels.Last(); ++i)
        labels(i).SetCaption(word + CaptionRange(i));
}

} // namespace

frm_Addr::frm_Addr()
    : txtKelReport(controls, u"txtKelReport"_s)
    , txtKelFileNo(controls, u"txtKelFileNo"_s)
    , txtKelListForms(controls, u"txtKelListForms"_s)
    , txtFormType(controls, u"txtFormType"_s)
    , txtKelimages(controls, u"txtKelimages"_s)
    , txtKelLender(controls, u"txtKelLender"_s)
    , txtKelOwner(controls, u"txtKelOwner"_s)
    , txtKelBorrower(controls, u"txtKelBorrower"_s)
    , txtKelCity(controls, u"txtKelCity"_s)
    , txtKelState(controls, u"txtKelState"_s)
    , txtKelZip(controls, u"txtKelZip"_s)
    , txtKelCounty(controls, u"txtKelCounty"_s)
    , txtKelNeighBorHd(controls, u"txtKelNeighBorHd"_s)
    , txtCompAddr(controls, u"txtCompAddr"_s, 0, photos::kComps)
    , txtCompCity(controls, u"txtCompCity"_s, 1, photos::kComps)
    , txtCompState(controls, u"txtCompState"_s, 1, photos::kComps)
    , txtCompZip(controls, u"txtCompZip"_s, 1, photos::kComps)
    , txtProximity(controls, u"txtProximity"_s, 1, photos::kComps)
    , txtAltCompAddr(controls, u"txtAltCompAddr"_s, 1, photos::kAltComps)
    , txtAltCompCity(controls, u"txtAltCompCity"_s, 1, photos::kAltComps)
    , txtAltCompState(controls, u"txtAltCompState"_s, 1, photos::kAltComps)
    , txtAltCompZip(controls, u"txtAltCompZip"_s, 1, photos::kAltComps)
    , txtAltProximity(controls, u"txtAltProximity"_s, 1, photos::kAltComps)
    , txtListingAddr(controls, u"txtListingAddr"_s, 1, photos::kListings)
    , txtListCity(controls, u"txtListCity"_s, 1, photos::kListings)
    , txtListState(controls, u"txtListState"_s, 1, photos::kListings)
    , txtListZip(controls, u"txtListZip"_s, 1, photos::kListings)
    , txtListProximity(controls, u"txtListProximity"_s, 1, photos::kListings)
    , txtRentalAddr(controls, u"txtRentalAddr"_s, 1, photos::kRentals)
    , txtRentCity(controls, u"txtRentCity"_s, 1, photos::kRentals)
    , txtRentState(controls, u"txtRentState"_s, 1, photos::kRentals)
    , txtRentZip(controls, u"txtRentZip"_s, 1, photos::kRentals)
    , txtRentProximity(controls, u"txtRentProximity"_s, 1, photos::kRentals)
    , lblFileNo(controls, u"lblFileNo"_s)
    , lstAddr(controls, u"lstAddr"_s)
{}

ReportControls::ReportControls(forms::ControlSet& set)
    : TabData(set, u"TabData"_s, {u"Subject"_s, u"Comparables"_s, u"General"_s, u"Listings"_s, u"Rentals"_s})
    , TabSubject(set, u"TabSubject"_s, Captions(u"SUBJECT"_s, 1))
    , TabComp(set, u"TabComp"_s, Captions(u"COMP"_s, 3) + Captions(u"ALTCOMP"_s, 2))
    , TabGeneral(set, u"TabGeneral"_s, Captions(u"GENERAL"_s, 12))
    , TabListing(set, u"TabListing"_s, Captions(u"LISTING"_s, 2))
    , TabRental(set, u"TabRental"_s, Captions(u"RENTAL"_s, 3))
    , txtSubject(set, u"txtSubject"_s)
    , txtComp(set, u"txtComp"_s, 1, photos::kComps)
    , txtAltComp(set, u"txtAltComp"_s, 1, photos::kAltComps)
    , txtListing(set, u"txtListing"_s, 1, photos::kListings)
    , txtRental(set, u"txtRental"_s, 1, photos::kRentals)
    , txtgeneraladdr(set, u"txtgeneraladdr"_s, 1, photos::kGeneralPhotos)
    , cboGeneral(set, u"cboGeneral"_s, 1, photos::kGeneralPhotos)
    , lblComp(set, u"lblComp"_s, 0, 2)
    , lblAltComp(set, u"lblAltComp"_s, 0, 1)
    , lblListing(set, u"lblListing"_s, 0, 1)
    , lblRental(set, u"lblRental"_s, 0, 2)
    , cmdSubjectAnd(set, u"cmdSubjectAnd"_s)
    , imaKel(set, u"imaKel"_s)
    , lblReport(set, u"lblReport"_s)
    , lblLink(set, u"lblLink"_s)
    , cmdLink(set, u"cmdLink"_s)
{
    CaptionLabels(lblComp, u"Comparables "_s);
    CaptionLabels(lblAltComp, u"Alt Comparables "_s);
    CaptionLabels(lblListing, u"Listings "_s);
    CaptionLabels(lblRental, u"Rentals "_s);
    cmdSubjectAnd.SetCaption(u"Subject/Comp"_s);
    cmdLink.SetVisible(false);
    imaKel.SetToolTipText(u"Refresh the appraisal information"_s);
}

} // namespace vasclip::link
