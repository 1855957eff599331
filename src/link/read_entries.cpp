#include "link/read_entries.h"

#include "common/addresses.h"
#include "link/addresses.h"
#include "link/comp2kel.h"
#include "link/general_text.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A report field of the subject and where it is kept.
forms::TextBox* SubjectTarget(frm_Addr& addr, const QString& field)
{
    struct Row
    {
        QLatin1StringView field;
        forms::TextBox frm_Addr::*target;
    };
    static constexpr Row kRows[] = {{fields::CITY, &frm_Addr::txtKelCity},
                                    {fields::ST, &frm_Addr::txtKelState},
                                    {fields::ZIP, &frm_Addr::txtKelZip},
                                    {fields::COUNTY, &frm_Addr::txtKelCounty},
                                    {fields::NEIGHBORHD, &frm_Addr::txtKelNeighBorHd},
                                    {fields::APPRSRFILE, &frm_Addr::txtKelFileNo}};
    if (field == fields::ADDRESS)
        return &addr.txtCompAddr(0);
    for (const Row& row : kRows)
        if (field == row.field)
            return &(addr.*row.target);
    return nullptr;
}

void ReadSubjectRow(LinkDesk& desk, const QString& report, const QString& field, const QString& item)
{
    if (forms::TextBox* target = SubjectTarget(desk.addr, field))
        target->SetText(KelGetFieldInfo(desk.txtDDE, report, item));
}

void ReadCompRow(LinkDesk& desk, const QString& report, const MappingRow& row, const QString& field, int base)
{
    const bool address = field == fields::ADDRESS;
    if (!address && field != fields::NEIGHBORHD)
        return;
    for (const GroupRow* group : GatheredGroups()) {
        if (row.compType.toUpper() != group->mapping)
            continue;
        // A group without that page has no slot to fill.
        for (int n = base; n < base + kSlotsOnAPage && n <= group->slots; ++n) {
            const QString cell = KelShiftCell(row.RowCell(), row.offset, static_cast<qint16>(n));
            const QString value =
                KelGetFieldInfo(desk.txtDDE, report, row.formName.toUpper() + u'|' + cell.toUpper());
            if (address) {
                (desk.addr.*group->addresses)(n).SetText(value);
            } else {
                // On a comp's form the second address line stands under NEIGHBORHD.
                const common::CityStateZip parts = common::ParseCityStateZip(value);
                (desk.addr.*group->cities)(n).SetText(parts.city);
                (desk.addr.*group->states)(n).SetText(parts.state);
                (desk.addr.*group->zips)(n).SetText(parts.zip);
            }
        }
    }
}

void ReadRow(LinkDesk& desk, const QString& report, const MappingRow& row)
{
    const QString field = row.fieldName.toUpper();
    const double base = text::Val(row.comp);
    if (base == kSubjectComp)
        ReadSubjectRow(desk, report, field, row.formName.toUpper() + u'|' + row.RowCell().toUpper());
    else if (base == 1 || base == 4 || base == 7)
        ReadCompRow(desk, report, row, field, static_cast<int>(base));
}

/// Fields that the forms program refuses one by one: the others are read all the same, and one failure tells
/// of all.
class Refusals
{
public:
    template <class Step>
    void Try(Step&& step)
    {
        try {
            step();
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kLinkBusy)
                throw;
            if (++m_count == 1)
                m_first = failure.Description();
        }
    }
    void Throw() const
    {
        if (m_count > 0)
            throw RuntimeError(error::kLinkBusy,
                               m_count == 1 ? m_first : messages::kMoreRefused.arg(m_first, text::Dec(m_count - 1)));
    }

private:
    int m_count = 0;
    QString m_first;
};

void NoMapping(Conversation& desk)
{
    desk.ports.prompter.Box(messages::kNoMappingTitle, messages::kNoMapping);
}

/// @return false if the mapping has no rows for the form
bool ReadAddresses(LinkDesk& desk)
{
    const QString formType = KelFirstToken(desk.addr.txtKelListForms.Text());
    store::DataSource& mapping = desk.sources.datComp2Kel_CURRENT;
    mapping.Select(AddressRowsQuery(formType));
    if (mapping.Count() < 1) {
        NoMapping(desk);
        return false;
    }
    const QList<MappingRow> rows = ReadMappingRows(mapping);
    ClearReportFields(desk.addr);
    const QString report = text::Trim(desk.addr.txtKelReport.Text());
    Refusals refusals;
    for (const MappingRow& row : rows) {
        if (text::Folded(row.formType) != text::Folded(formType)) {
            NoMapping(desk);
            break;
        }
        refusals.Try([&] { ReadRow(desk, report, row); });
        desk.ports.pump.DoEvents();
    }
    refusals.Throw();
    return true;
}

struct DdeStep
{
    QLatin1StringView gaugeText, logText;
    void (*run)(LinkDesk&);
};
constexpr DdeStep kDdeSteps[] = {
    {"Reading Subject photos"_L1, "SetPhotos('SUB')"_L1, [](LinkDesk& d) { SetPhotos(d, u"SUB"_s); }},
    {"Setting Subject Label"_L1, "setSubjectLabels"_L1, [](LinkDesk& d) { setSubjectLabels(d); }},
    {"Reading Comp photos"_L1, "SetPhotos('CMP')"_L1, [](LinkDesk& d) { SetPhotos(d, u"CMP"_s); }},
    {"Setting Comp Labels"_L1, "SetSalesLabels"_L1, [](LinkDesk& d) { SetSalesLabels(d); }},
    {"Reading Alt. Comp photos"_L1, "SetPhotos('ALT')"_L1, [](LinkDesk& d) { SetPhotos(d, u"ALT"_s); }},
    {"Setting Alt. Comp Labels"_L1, "SetAltSalesLabels"_L1, [](LinkDesk& d) { SetAltSalesLabels(d); }},
    {"Reading General photos"_L1, "SetPhotos('GN')"_L1, [](LinkDesk& d) { SetPhotos(d, u"GN"_s); }},
    {"Populating General Labels"_L1, "TabPopulateGeneralText"_L1, TabPopulateGeneralText},
    {"Reading Listings photos"_L1, "SetPhotos('LCMP')"_L1, [](LinkDesk& d) { SetPhotos(d, u"LCMP"_s); }},
    {"Setting Listings Labels"_L1, "SetListingLabels"_L1, [](LinkDesk& d) { SetListingLabels(d); }},
    {"Reading Rental photos"_L1, "SetPhotos('RCMP')"_L1, [](LinkDesk& d) { SetPhotos(d, u"RCMP"_s); }},
    {"Setting Rental Labels"_L1, "SetRentalLabels"_L1, [](LinkDesk& d) { SetRentalLabels(d); }},
};

} // namespace

void AddKelEntries2VASP(LinkDesk& desk)
{
    if (!KelIsActive(desk)) {
        ClearKelAddresses(desk.addr);
        SetKelAddresses(desk);
        return;
    }
    desk.status.gauProgress.SetCaption(messages::kImporting);
    bool mapped = true; // a read that failed in the middle goes on with the pictures
    Reported(desk.ports.prompter, "AddKelEntries2VASP", [&] { mapped = ReadAddresses(desk); });
    if (!mapped)
        return;
    SetAllDde(desk);
    SetGeneralAddresses(desk);
    desk.status.gauProgress.SetCaption(messages::kVerifying);
    FillAddressList(desk);
}

void SetAllDde(LinkDesk& desk)
{
    for (const DdeStep& step : kDdeSteps) {
        desk.status.gauProgress.SetCaption(step.gaugeText);
        if (desk.log)
            desk.log(step.logText);
        step.run(desk);
    }
}

} // namespace vasclip::link
