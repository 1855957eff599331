#include "link/frm_attach_city.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "common/settings.h"
#include "databook/comp_fields.h"
#include "databook/field_note.h"
#include "databook/messages.h"
#include "link/attach_fields.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/talk.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/messages.h"

#include <algorithm>
#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

struct Choice
{
    QLatin1StringView setting, caption;
};
constexpr std::array kChoices{Choice{"CS"_L1, "Use Subject City, State"_L1},
                              Choice{"CSZ"_L1, "Use Subject City, State, Zip"_L1},
                              Choice{"NONE"_L1, "Leave Empty"_L1}};

bool IsPending(const QString& saleDate)
{
    return saleDate.isEmpty() || saleDate == "1/1/1900"_L1 || saleDate == "01/01/1900"_L1;
}

} // namespace

frm_AttachCity::frm_AttachCity(LinkDesk& desk, const QString& mode, const QString& key)
    : Screen(u"frm_AttachCity"_s)
    , lblCentralKey(controls, u"lblCentralKey"_s)
    , lblPending(controls, u"lblPending"_s)
    , txtAddress(controls, u"txtAddress"_s)
    , txtCity(controls, u"txtCity"_s)
    , txtState(controls, u"txtState"_s)
    , txtZip(controls, u"txtZip"_s)
    , txtCounty(controls, u"txtCounty"_s)
    , txtNeighborhd(controls, u"txtNeighborhd"_s)
    , txtSaleFld(controls, u"txtSaleFld"_s)
    , txtSaleDate(controls, u"txtSaleDate"_s)
    , lstcity(controls, u"lstcity"_s)
    , optUseSubjCSZ(controls, u"optUseSubjCSZ"_s, 0, static_cast<int>(kChoices.size()) - 1)
    , cmdAdd(controls, u"cmdAdd"_s)
    , cmdDelete(controls, u"cmdDelete"_s)
    , cmdOk(controls, u"cmdOk"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_desk(desk)
    , m_mode(text::Folded(mode) == "COMP"_L1 ? u"SALE"_s : text::Folded(mode))
    , m_key(text::Folded(key))
{
    m_boxes = {{txtAddress, fields::ADDRESS}, {txtCity, fields::CITY},
               {txtState, fields::ST},        {txtZip, fields::ZIP},
               {txtCounty, fields::COUNTY},   {txtNeighborhd, fields::NEIGHBORHD},
               {txtSaleFld, fields::SALEFLD}, {txtSaleDate, fields::SALEDATE}};
    SetCaption(m_mode + u" Transfer Option"_s);
    lblPending.SetCaption(messages::kPending);
    txtAddress.SetLocked(true);
    cmdAdd.SetCaption(u"&Add Location to List"_s);
    cmdDelete.SetCaption(u"Delete Location From List"_s);
    cmdOk.SetCaption(u"&Ok"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    for (int i = 0; i <= optUseSubjCSZ.Last(); ++i) {
        optUseSubjCSZ(i).SetCaption(QString(kChoices[static_cast<std::size_t>(i)].caption));
        connect(&optUseSubjCSZ(i), &forms::CheckBox::Toggled, this, [this, i] { optUseSubjCSZ_Click(i); });
    }
    connect(&cmdAdd, &forms::Control::Clicked, this, &frm_AttachCity::cmdAdd_Click);
    connect(&cmdDelete, &forms::Control::Clicked, this, &frm_AttachCity::cmdDelete_Click);
    connect(&cmdOk, &forms::Control::Clicked, this, &frm_AttachCity::cmdOk_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
    connect(&lstcity, &forms::Control::Clicked, this, &frm_AttachCity::ShowCity);
    connect(&lstcity, &forms::ListBox::ListIndexChanged, this, &frm_AttachCity::ShowCity);
    connect(&txtSaleDate, &forms::TextBox::TextChanged, this, &frm_AttachCity::ShowPending);
}

void frm_AttachCity::Form_Load()
{
    const RoutineScope scope{"frm_AttachCity"};
    databook::LoadCities(lstcity, m_desk.disk, m_desk.globals);
    for (Box& row : m_boxes)
        row.box.SetMaxLength(store::SizeOf(m_desk.sources.datDatabook, row.field));
    const QString setting = text::Folded(m_desk.globals.useSubjCsz);
    m_choice = optUseSubjCSZ.Last(); // any other text inherits nothing either
    for (int i = 0; i <= optUseSubjCSZ.Last(); ++i)
        if (setting == kChoices[static_cast<std::size_t>(i)].setting)
            m_choice = i;
    optUseSubjCSZ(m_choice).SetValue(true);
    lblCentralKey.SetCaption(m_key);
    Reported(m_desk.ports.prompter, "frm_AttachCity", [this] { ShowRecord(); });
    const Talking talking{m_desk, messages::kReadingReport};
    if (m_found && m_mode != "MANUAL"_L1)
        Reported(m_desk.ports.prompter, "frm_AttachCity", [this] { ReadReport(); });
    ShowPending();
}

void frm_AttachCity::Form_Unload()
{
    const RoutineScope scope{"frm_AttachCity"};
    if (m_listChanged && !databook::SaveCities(lstcity, m_desk.disk, m_desk.globals))
        m_desk.ports.prompter.Box(store::kPlainTitle,
                                  databook::kCitiesNotSaved.arg(m_desk.globals.applicationIni));
    SaveChoice();
}

void frm_AttachCity::SaveChoice()
{
    int chosen = m_choice;
    for (int i = 0; i <= optUseSubjCSZ.Last(); ++i)
        if (optUseSubjCSZ(i).Value())
            chosen = i;
    if (chosen == m_choice)
        return;
    try {
        common::WriteSetting(*common::FindSetting(&common::Globals::useSubjCsz),
                             QString(kChoices[static_cast<std::size_t>(chosen)].setting), m_desk.globals,
                             m_desk.disk);
    } catch (const RuntimeError& failure) {
        m_desk.ports.prompter.Box(store::kPlainTitle, messages::kSettingNotSaved.arg(failure.Description()));
    }
}

void frm_AttachCity::ShowRecord()
{
    const std::optional<store::Record> record = store::ReadRecord(m_desk.sources.datDatabook, m_key);
    m_found = record.has_value();
    for (Box& row : m_boxes) {
        row.stored = record ? record->Text(row.field) : QString();
        row.box.SetText(row.stored);
    }
    if (!m_found)
        lblmsg.Show(messages::kNoRecord, forms::Colour::Blue);
    for (forms::TextBox* box : {&txtNeighborhd, &txtSaleFld, &txtSaleDate})
        box->SetEnabled(m_found);
}

/// What the report tells takes the place of what the record holds; nothing is stored yet.
void frm_AttachCity::ReadReport()
{
    if (const ReportCheck check = CheckReport(m_desk); !check.Stands()) {
        lblmsg.Show(check.words, forms::Colour::Red);
        return;
    }
    const std::optional<ReportPlace> place = PlaceInReport(m_desk, m_key);
    if (!place)
        return;
    const AttachFields read = GetNeighborHdCompData(m_desk, *place);
    const auto show = [](forms::TextBox& box, const QString& text) {
        if (!text.isEmpty())
            box.SetText(text);
    };
    show(txtCity, read.city);
    show(txtState, read.state);
    show(txtZip, read.zip);
    show(txtCounty, read.county);
    show(txtNeighborhd, read.neighborhood);
    show(txtSaleFld, read.saleFld);
    show(txtSaleDate, read.saleDate);
}

void frm_AttachCity::ShowPending()
{
    lblPending.SetVisible(m_found && IsPending(text::Trim(txtSaleDate.Text())));
}

void frm_AttachCity::ShowCity()
{
    if (lstcity.ListIndex() < 0)
        return;
    const databook::CityEntry entry = databook::SplitCity(lstcity.List(lstcity.ListIndex()));
    txtCity.SetText(entry.city);
    txtState.SetText(entry.state);
    txtZip.SetText(entry.zip);
    txtCounty.SetText(entry.county);
}

void frm_AttachCity::optUseSubjCSZ_Click(int chosen)
{
    if (!optUseSubjCSZ(chosen).Value())
        return;
    for (int i = 0; i <= optUseSubjCSZ.Last(); ++i)
        if (i != chosen)
            optUseSubjCSZ(i).SetValue(false);
}

databook::CityEntry frm_AttachCity::Entry() const
{
    return {text::Trim(txtCity.Text()), text::Trim(txtState.Text()), text::Trim(txtZip.Text()),
            text::Trim(txtCounty.Text())};
}

void frm_AttachCity::cmdAdd_Click()
{
    const RoutineScope scope{"frm_AttachCity"};
    const QString line = databook::CityText(Entry());
    switch (databook::AddCity(lstcity, Entry())) {
    case databook::CityAdded::Yes:
        m_listChanged = true;
        lblmsg.Show(databook::kCityAdded.arg(line), forms::Colour::Blue);
        break;
    case databook::CityAdded::IsThere:
        lblmsg.Show(databook::kCityIsThere.arg(line), forms::Colour::Blue);
        break;
    case databook::CityAdded::NoCity:
        lblmsg.Show(databook::kNeedCity, forms::Colour::Red);
        txtCity.SetFocus();
        break;
    }
}

void frm_AttachCity::cmdDelete_Click()
{
    const RoutineScope scope{"frm_AttachCity"};
    if (lstcity.SelCount() == 0 || !m_desk.ports.prompter.YesNo(store::kPlainTitle, databook::kDeleteCities))
        return;
    databook::RemoveSelectedCities(lstcity);
    m_listChanged = true;
}

/// Asks for what is missing, if anything.
bool frm_AttachCity::MaySkip()
{
    const databook::CityEntry entry = Entry();
    const bool city = entry.city.isEmpty();
    const bool state = entry.state.isEmpty();
    if (!city && !state)
        return true;
    const QString& question = city && state && entry.zip.isEmpty() ? messages::kSkipAll
                              : city && state                      ? messages::kSkipCityAndState
                              : city                               ? messages::kSkipCity
                                                                   : messages::kSkipState;
    return m_desk.ports.prompter.MsgBox(forms::Buttons::YesNo, forms::Icon::Exclamation,
                                        messages::kCityNotComplete, question) == forms::Answer::Yes;
}

/// A sale date that is none is stored as the pending one; the window goes with it, so that it is said before.
bool frm_AttachCity::MayLoseDate() const
{
    const QDate today = m_desk.ports.clock.Today();
    const QString typed = text::Trim(txtSaleDate.Text());
    const bool pending = typed.isEmpty() || typed.startsWith("pend"_L1, Qt::CaseInsensitive);
    if (pending || typed == m_boxes.last().stored)
        return true;
    const common::DateSense sense =
        common::IsDate(typed, today) ? common::SenseOf(typed, today) : common::DateSense::Unreadable;
    const auto note = databook::NoteOn(typed, sense, databook::kPendingDate, databook::kAPendingSale);
    return !note || !note->lost ||
           m_desk.ports.prompter.YesNo(store::kPlainTitle, databook::kDatesLost.arg(note->words));
}

/// Boxes that were changed go to the record in one update. @return false if it is not there any more
bool frm_AttachCity::Store()
{
    store::DataSource& databook = m_desk.sources.datDatabook;
    if (!store::ReadRecord(databook, m_key))
        return false;
    const auto changed = [](const Box& row) { return text::Trim(row.box.Text()) != row.stored; };
    if (std::none_of(m_boxes.cbegin(), m_boxes.cend(), changed))
        return true;
    try {
        store::Change change(databook, store::Change::OfKey{m_key}, messages::kAttachWords);
        for (const Box& row : m_boxes) {
            if (!changed(row))
                continue;
            QString value = text::Trim(row.box.Text());
            if (row.field == fields::SALEDATE)
                databook::ErrSetSaleDate(m_desk.ports, change.Source(), value);
            else
                change.Set(row.field, store::Trim2Size(databook, value, row.field));
        }
        change.Store();
    } catch (const RuntimeError& failure) {
        if (failure.Number() == error::kRecordDeleted || failure.Number() == error::kNoCurrentRecord)
            return false;
        throw;
    }
    m_changed = true;
    return true;
}

void frm_AttachCity::cmdOk_Click()
{
    const RoutineScope scope{"frm_AttachCity"};
    if (!m_found) {
        Unload();
        return;
    }
    if (!MaySkip()) {
        (text::Trim(txtCity.Text()).isEmpty() ? txtCity : txtState).SetFocus();
        return;
    }
    if (!MayLoseDate()) {
        txtSaleDate.SetFocus();
        return;
    }
    bool there = true;
    if (!Reported(m_desk.ports.prompter, "frm_AttachCity", [&] { there = Store(); }))
        return;
    if (!there) {
        lblmsg.Show(messages::kRecordGone.arg(m_key) + u'.', forms::Colour::Red);
        return;
    }
    if (m_changed && m_mode != "MANUAL"_L1 && m_desk.state.linkActive)
        Reported(m_desk.ports.prompter, "frm_AttachCity",
                 [this] {
                     if (CheckReport(m_desk).Stands())
                         SendScriptIfThere(m_desk, u"CITYPLUS.BAS"_s);
                 });
    Unload();
}

} // namespace vasclip::link
