#include "link/tabs.h"

#include "link/form_table.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "link/talk.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

QString CaptionRange(int n)
{
    return text::Dec((n + 1) * 3 - 2) + u" - "_s + text::Dec((n + 1) * 3);
}

QString PageKind(const QString& word)
{
    struct Row
    {
        QLatin1StringView letters, kind;
    };
    static constexpr Row kKinds[] = {{"COMP"_L1, "COMP"_L1},
                                     {"GENE"_L1, "GENERAL"_L1},
                                     {"LIST"_L1, "LISTING"_L1},
                                     {"RENT"_L1, "RENTAL"_L1},
                                     {"ALT "_L1, "ALTCOMP"_L1}};
    const QString letters = word.left(4).toUpper();
    for (const Row& row : kKinds)
        if (letters == row.letters)
            return row.kind;
    return {};
}

QString PageCaption(const QString& kind, int j)
{
    static const QStringList kPlain = {u"SUBJECT"_s, u"COMP"_s, u"COMPARABLE"_s, u"LIST"_s,
                                       u"LISTING"_s, u"RENT"_s, u"RENTAL"_s};
    static const QStringList kAlternate = {u"ALT"_s, u"ALTCOMP"_s, u"ALTERNATE"_s};
    static const QStringList kGeneral = {u"GENERAL"_s, u"GEN"_s};
    if (kPlain.contains(kind))
        return CaptionRange(j - 1);
    if (kAlternate.contains(kind))
        return u"A "_s + CaptionRange(j - 1);
    if (kGeneral.contains(kind))
        return text::Dec(j) + u'P';
    return {};
}

void HandleTabCaption(forms::TabControl& tab, int page, const QString& caption, bool enabled)
{
    if (enabled)
        tab.SetEnabled(true);
    tab.SetTabCaption(page, enabled ? caption : kNotAvailable);
}

void HandleNALabel(ReportControls& report, const forms::TabControl& tab, int page, bool enabled)
{
    const auto enable = [enabled](const auto& boxes, int firstPage, int pages) {
        if (firstPage < 0 || firstPage >= pages)
            return;
        for (int i = firstPage * 3 + 1; i <= firstPage * 3 + 3; ++i)
            boxes(i).SetEnabled(enabled);
    };
    const QString name = text::Folded(tab.Name());
    if (name == "TABCOMP"_L1) {
        if (page < 3)
            enable(report.txtComp, page, 3);
        else
            enable(report.txtAltComp, page - 3, 2);
    } else if (name == "TABRENTAL"_L1) {
        enable(report.txtRental, page, 3);
    } else if (name == "TABLISTING"_L1) {
        enable(report.txtListing, page, 2);
    } else if (name == "TABGENERAL"_L1) {
        enable(report.cboGeneral, page, 12);
    }
}

void TestOtherTabs(LinkDesk& desk, const QString& forms, bool forceAll)
{
    ReportControls& report = desk.report;
    const QString mainForm =
        text::Folded(forms.left(forms.indexOf(u',') < 0 ? forms.size() : forms.indexOf(u',')));
    const auto available = [&](const QString& key) {
        return forceAll || !KelReturnPage(desk.kelIni, key, forms).isEmpty();
    };
    const auto setPage = [&report](forms::TabControl& tab, int page, const QString& kind, int j, bool on) {
        HandleTabCaption(tab, page, PageCaption(kind, j), on);
        HandleNALabel(report, tab, page, on);
    };

    const QString comp = PageKind(u"COMPARABLES_1"_s);
    for (int j = 1; j <= 3; ++j) {
        setPage(report.TabComp, j - 1, comp, j, available(u"COMPARABLES_"_s + text::Dec(j)));
        report.lblComp(j - 1).SetCaption(u"Comparables "_s + CaptionRange(j - 1));
    }

    const QString alternate = PageKind(u"ALT COMPS"_s);
    for (int j = 1; j <= 4; ++j) {
        // The third and fourth keys only claim a page that the first two left unused.
        const bool second = j > 2;
        const int page = second ? j : j + 2;
        if (second && report.TabComp.TabCaption(page) != kNotAvailable)
            continue;
        const int place = second ? j - 3 : j - 1;
        setPage(report.TabComp, page, alternate, j, available(u"ALTPH"_s + text::Dec(j)));
        report.lblAltComp(place).SetCaption(u"Alt Comparables "_s + CaptionRange(place));
    }

    const QString general = PageKind(u"GENERAL_1"_s);
    for (int j = 1; j <= 12; ++j)
        setPage(report.TabGeneral, j - 1, general, j, available(u"GENERAL_"_s + text::Dec(j)));

    const QString listing = PageKind(u"LISTINGS_1"_s);
    for (int j = 1; j <= 2; ++j) {
        const bool on = available(u"LISTINGS_"_s + text::Dec(j)) || mainForm == "ERS"_L1;
        setPage(report.TabListing, j - 1, listing, j, on);
        report.lblListing(j - 1).SetCaption(u"Listings "_s + CaptionRange(j - 1));
    }

    const QString rental = PageKind(u"RENTALS_1"_s);
    for (int j = 1; j <= 3; ++j) {
        setPage(report.TabRental, j - 1, rental, j, available(u"RENTALS_"_s + text::Dec(j)));
        report.lblRental(j - 1).SetCaption(u"Rentals "_s + CaptionRange(j - 1));
    }

    const bool withoutFiveAndSix = mainForm == "DT3"_L1;
    for (int comp : {5, 6}) {
        if (withoutFiveAndSix)
            report.txtComp(comp).SetEnabled(false);
        // Shown again for the form after it.
        desk.slots.imaComp(comp).SetVisible(!withoutFiveAndSix);
        desk.slots.geaComp(comp).SetVisible(!withoutFiveAndSix);
    }
    if (mainForm == "704"_L1) {
        for (int j = 1; j <= 2; ++j)
            setPage(report.TabListing, j - 1, listing, j, false);
    }
}

void TabDisable(LinkDesk& desk, const QString& forms)
{
    if (!KelReturnPage(desk.kelIni, u"SUBJECT_1"_s, forms).isEmpty())
        desk.report.TabSubject.SetEnabled(true);
    TestOtherTabs(desk, forms, false);
}

void TabClicked(LinkDesk& desk, forms::TabControl& tab, int previous)
{
    if (tab.TabCaption(previous) == kNotAvailable)
        return;
    const Talking talking{desk, messages::kWaitingForForms};
    if (tab.TabCaption(tab.Tab()) == kNotAvailable && desk.state.linkActive) {
        tab.SetTab(previous);
    } else if (!desk.state.linkActive && KelIsActive(desk)) {
        PopulateKelTabs(desk);
    }
    if (&tab == &desk.report.TabComp)
        CaptionSubjectAnd(desk.report);
}

void CaptionSubjectAnd(ReportControls& report)
{
    const bool alternates = report.TabComp.TabCaption(report.TabComp.Tab()).contains("A "_L1);
    report.cmdSubjectAnd.SetCaption(alternates ? u"Subj/AltComp"_s : u"Subject/Comp"_s);
}

bool SlotPageNotAvailable(const ReportControls& report, const QString& controlName, int index)
{
    const QString name = text::Folded(controlName);
    const forms::TabControl* tab = nullptr;
    int firstPage = 0;
    if (name.contains("ALTCOMP"_L1)) {
        tab = &report.TabComp;
        firstPage = 3;
    } else if (name.contains("COMP"_L1)) {
        tab = &report.TabComp;
    } else if (name.contains("GENERAL"_L1)) {
        tab = &report.TabGeneral;
    } else if (name.contains("LISTING"_L1)) {
        tab = &report.TabListing;
    } else if (name.contains("RENTAL"_L1)) {
        tab = &report.TabRental;
    }
    const int page = firstPage + (index - 1) / 3;
    if (!tab || index < 1 || page >= tab->Tabs())
        return false;
    return tab->TabCaption(page) == kNotAvailable;
}

} // namespace vasclip::link
