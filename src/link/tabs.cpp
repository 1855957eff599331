#include "link/tabs.h"

#include "link/form_table.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "link/talk.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kAlternateKeys = 4;

} // namespace

QString CaptionRange(int n)
{
    return text::Dec(n * kSlotsOnAPage + 1) + u" - "_s + text::Dec((n + 1) * kSlotsOnAPage);
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
    tab.SetTabCaption(page, enabled ? caption : QString(kNotAvailable));
}

void HandleNALabel(ReportControls& report, const forms::TabControl& tab, int page, bool enabled)
{
    const QString name = text::Folded(tab.Name());
    for (const GroupRow& row : GroupTable()) {
        const int place = page - row.firstPage;
        if (!row.texts || name.compare(row.tab, Qt::CaseInsensitive) != 0 || place < 0 || place >= row.pages)
            continue;
        for (int i = place * kSlotsOnAPage + 1; i <= (place + 1) * kSlotsOnAPage; ++i) {
            if (row.group == Group::General) // whose addresses are the subject's, and are always there
                report.cboGeneral(i).SetEnabled(enabled);
            else
                (report.*row.texts)(i).SetEnabled(enabled);
        }
    }
}

namespace {

void SetPage(ReportControls& report, const GroupRow& row, int page, int j, bool on)
{
    forms::TabControl& tab = report.*row.tabControl;
    HandleTabCaption(tab, page, PageCaption(QString(row.controls).toUpper(), j), on);
    HandleNALabel(report, tab, page, on);
}

void SetHeading(ReportControls& report, const GroupRow& row, int place)
{
    if (row.headings)
        (report.*row.headings)(place).SetCaption(row.heading + u' ' + CaptionRange(place));
}

} // namespace

void TestOtherTabs(LinkDesk& desk, const QString& forms, bool forceAll)
{
    ReportControls& report = desk.report;
    const QString mainForm =
        text::Folded(forms.left(forms.indexOf(u',') < 0 ? forms.size() : forms.indexOf(u',')));
    const auto available = [&](const QString& key) {
        return forceAll || !KelReturnPage(desk.kelIni, key, forms).isEmpty();
    };
    for (const GroupRow& row : GroupTable()) {
        if (!row.texts) // the subject's page is always there
            continue;
        // The keys of the alternates after their pages only claim a page that those before have left unused.
        const int keys = row.group == Group::Alternates ? kAlternateKeys : row.pages;
        for (int j = 1; j <= keys; ++j) {
            const bool again = j > row.pages;
            const int place = again ? j - row.pages - 1 : j - 1;
            const int page = row.firstPage + place;
            if (again && (report.*row.tabControl).TabCaption(page) != kNotAvailable)
                continue;
            const bool on = available(row.pageKey + text::Dec(j)) ||
                            (row.group == Group::Listings && mainForm == "ERS"_L1);
            SetPage(report, row, page, j, on);
            SetHeading(report, row, place);
        }
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
        const GroupRow& listings = RowOf(Group::Listings);
        for (int j = 1; j <= listings.pages; ++j)
            SetPage(report, listings, listings.firstPage + j - 1, j, false);
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
    const GroupRow* row = GroupWithin(controlName);
    return row && OnMissingPage(report, {row->group, index});
}

} // namespace vasclip::link
