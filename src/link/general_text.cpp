#include "link/general_text.h"

#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Raises the flag for a scope; a nested one leaves it up.
class ReentryFlag
{
public:
    explicit ReentryFlag(bool& flag)
        : m_flag(flag)
        , m_before(flag)
    {
        flag = true;
    }
    ~ReentryFlag() { m_flag = m_before; }
    ReentryFlag(const ReentryFlag&) = delete;
    ReentryFlag& operator=(const ReentryFlag&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

/// The report's later general pages have no line for an address.
constexpr int kLastPokedAddress = 18;

/// The general pages' section, by the photo size that the forms list tells; only two of the sizes count here.
QString GeneralSection(const QString& forms)
{
    if (forms.contains("SUBPHOTO"_L1))
        return u"3X5_PHOTO_PAGES"_s;
    return forms.contains("SUBPHOT2"_L1) ? u"4X6_PHOTO_PAGES"_s : QString();
}

/// Is the text meant for the report that is active? A user who has kept the tabs is asked once and not again at
/// each letter that is typed; the status line goes on telling.
bool MayPoke(LinkDesk& desk)
{
    QString& kept = desk.state.keptAgainst;
    ReportCheck check{ReportIs::NotOpen, {}};
    const bool asked = Reported(desk.ports.prompter, "KelPokeGeneralData", [&] {
        KelQueryActiveReports(desk.txtDDE);
        const QString active = text::Folded(KelFirstToken(desk.txtDDE.Text()));
        check.is = CompareReport(desk);
        if (check.is == ReportIs::Another && active == kept) {
            check.words = desk.state.notSent;
            return;
        }
        check = CheckAnsweredReport(desk);
        kept = check.is == ReportIs::Another ? active : QString();
    });
    if (asked && !check.Stands())
        desk.status.lblmsg.Show(check.words, forms::Colour::Red);
    desk.state.notSent = check.words;
    return asked && check.Stands();
}

GeneralPoke PokeGeneral(LinkDesk& desk, const char* routine, const QString& keyStem, int lastIndex, int index,
                        const QString& text)
{
    bool place = true;
    const bool done = Reported(desk.ports.prompter, routine, [&] {
        const GroupRow& row = RowOf(Group::General);
        const QString section = GeneralSection(text::Folded(desk.addr.txtKelListForms.Text()));
        const QString key = index <= lastIndex ? keyStem + text::Dec((index - 1) % kSlotsOnAPage + 1) : QString();
        const QString cell = desk.kelIni(section, key);
        const QString page = desk.kelIni(section, row.pageKey + text::Dec(PageOf(row, index) + 1));
        place = !page.isEmpty() && !cell.isEmpty();
        try {
            KelPokeText(desk.txtDDE, u"Kel|"_s + text::Trim(desk.addr.txtKelReport.Text()), page + u'|' + cell,
                        text);
        } catch (const RuntimeError& refusal) {
            // Without a place there is nothing but a refusal to be had, at each letter that is typed.
            if (place || refusal.Number() != error::kLinkBusy)
                throw;
        }
    });
    return !done ? GeneralPoke::Failed : place ? GeneralPoke::Sent : GeneralPoke::NoPlace;
}

} // namespace

void TabPopulateGeneralText(LinkDesk& desk)
{
    const ReentryFlag flag{desk.state.generalReentry};
    const auto& boxes = desk.report.cboGeneral;
    for (int i = boxes.First(); i <= boxes.Last(); ++i)
        boxes(i).SetText(QString());
    Reported(desk.ports.prompter, "TabPopulateGeneralText", [&] {
        const QString forms = text::Folded(desk.addr.txtKelListForms.Text());
        const QString section = KelPageSection(desk.kelIni, u"SUBJECT_1"_s, forms);
        const QString report = text::Trim(desk.addr.txtKelReport.Text());
        const GroupRow& row = RowOf(Group::General);
        for (int n = 1; n <= row.pages; ++n) {
            const QString page = KelReturnPage(desk.kelIni, row.pageKey + text::Dec(n), forms);
            GetGeneralText(desk, section, report, page, (n - 1) * kSlotsOnAPage + 1);
        }
    });
}

void GetGeneralText(LinkDesk& desk, const QString& section, const QString& report, const QString& page,
                    int base)
{
    for (int place = 1; place <= kSlotsOnAPage; ++place) {
        const int slot = base + place - 1;
        if (desk.slots.imaGeneral(slot).Picture().isNull())
            continue;
        const auto read = [&](const QString& keyStem) {
            return KelGetFieldInfo(desk.txtDDE, report,
                                   page + u'|' + desk.kelIni(section, keyStem + text::Dec(place)));
        };
        const QString address = read(u"GENERAL_ADDR_"_s);
        if (!text::Trim(address).isEmpty())
            desk.report.txtgeneraladdr(slot).SetText(address);
        const QString view = read(u"GENERAL_DATA_"_s);
        if (!text::Trim(view).isEmpty())
            desk.report.cboGeneral(slot).SetText(view);
    }
}

GeneralPoke KelPokeGeneralData(LinkDesk& desk, int index, const QString& text)
{
    if (!MayPoke(desk))
        return GeneralPoke::Failed;
    return PokeGeneral(desk, "KelPokeGeneralData", u"GENERAL_DATA_"_s, photos::kGeneralPhotos, index, text);
}

GeneralPoke KelPokeGeneralAddr(LinkDesk& desk, int index, const QString& text)
{
    return PokeGeneral(desk, "KelPokeGeneralAddr", u"GENERAL_ADDR_"_s, kLastPokedAddress, index, text);
}

namespace {

GeneralPoke PokeShownData(LinkDesk& desk, int index)
{
    const GeneralPoke poked = KelPokeGeneralData(desk, index, desk.report.cboGeneral(index).Text());
    if (poked == GeneralPoke::NoPlace)
        desk.status.lblmsg.Show(messages::kNoPlaceForView, forms::Colour::Blue);
    return poked;
}

} // namespace

void cboGeneral_Change(LinkDesk& desk, int index)
{
    const Talking talking{desk, messages::kSendingSlots};
    if (!desk.state.generalReentry && desk.state.linkActive)
        PokeShownData(desk, index);
}

void cboGeneral_Click(LinkDesk& desk, int index)
{
    if (!desk.state.linkActive)
        return;
    const Talking talking{desk, messages::kSendingSlots};
    if (PokeShownData(desk, index) != GeneralPoke::Failed)
        KelPokeGeneralAddr(desk, index, desk.report.txtgeneraladdr(index).Text());
}

} // namespace vasclip::link
