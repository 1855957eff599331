#include "databook/frm_mass_city.h"

#include "common/error_block.h"
#include "databook/city_fields.h"
#include "databook/messages.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/store.h"

#include <algorithm>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

frm_MassCity::frm_MassCity(const forms::Ports& ports, store::DataSource& databook,
                           const common::Globals& globals, const files::Disk& disk)
    : Screen(u"frm_MassCity"_s)
    , lblCentralKey(controls, u"lblCentralKey"_s)
    , txtneighborhood(controls, u"txtneighborhood"_s)
    , txtCity(controls, u"txtCity"_s)
    , txtState(controls, u"txtState"_s)
    , txtZip(controls, u"txtZip"_s)
    , txtCounty(controls, u"txtCounty"_s)
    , lstcity(controls, u"lstcity"_s)
    , ckbBlank(controls, u"ckbBlank"_s)
    , cmdprev(controls, u"cmdprev"_s)
    , cmdnext(controls, u"cmdnext"_s)
    , cmdOk(controls, u"cmdOk"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdCopyCity(controls, u"cmdCopyCity"_s)
    , cmdAdd(controls, u"cmdAdd"_s)
    , cmdDelete(controls, u"cmdDelete"_s)
    , lblRecord(controls, u"lblRecord"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_ports(ports)
    , m_databook(databook)
    , m_globals(globals)
    , m_disk(disk)
{
    SetCaption(u"City Editing"_s);
    ckbBlank.SetCaption(u"Display Blank Records Only"_s);
    cmdprev.SetCaption(u"&Previous"_s);
    cmdnext.SetCaption(u"&Next"_s);
    cmdOk.SetCaption(u"&Edit"_s);
    cmdOk.SetToolTipText(u"Stores city, state, ZIP and county in the record on show"_s);
    cmdCancel.SetCaption(u"Close"_s);
    cmdCopyCity.SetCaption(u"Copy City Info "_s);
    cmdCopyCity.SetToolTipText(u"Gives city, state, ZIP and county to every record of the neighborhood"_s);
    cmdAdd.SetCaption(u"&Add Location to List"_s);
    cmdDelete.SetCaption(u"Delete Location From List"_s);
    connect(&cmdprev, &forms::Control::Clicked, this, &frm_MassCity::cmdprev_Click);
    connect(&cmdnext, &forms::Control::Clicked, this, &frm_MassCity::cmdnext_Click);
    connect(&cmdOk, &forms::Control::Clicked, this, &frm_MassCity::cmdOk_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
    connect(&cmdCopyCity, &forms::Control::Clicked, this, &frm_MassCity::cmdCopyCity_Click);
    connect(&cmdAdd, &forms::Control::Clicked, this, &frm_MassCity::cmdAdd_Click);
    connect(&cmdDelete, &forms::Control::Clicked, this, &frm_MassCity::cmdDelete_Click);
    connect(&ckbBlank, &forms::CheckBox::Toggled, this, [this] {
        lblmsg.Show({}, forms::Colour::Normal);
        OpenRecords();
    });
    connect(&lstcity, &forms::Control::Clicked, this, &frm_MassCity::ShowCity);
    connect(&lstcity, &forms::ListBox::ListIndexChanged, this, &frm_MassCity::ShowCity);
}

QString frm_MassCity::SelectText(bool blankOnly)
{
    const QString select = u"SELECT CENTRALKEY, NEIGHBORHD, CITY, ST, ZIP, COUNTY FROM COMPS"_s;
    return blankOnly ? select + u" WHERE isnull(trim(CITY))<>False"_s : select;
}

void frm_MassCity::Form_Load()
{
    const RoutineScope scope{"frm_MassCity"};
    LoadCities(lstcity, m_disk, m_globals);
    const auto limit = [this](forms::TextBox& box, const QString& field) {
        box.SetMaxLength(store::SizeOf(m_databook, field));
    };
    limit(txtneighborhood, fields::NEIGHBORHD);
    limit(txtCity, fields::CITY);
    limit(txtState, fields::ST);
    limit(txtZip, fields::ZIP);
    limit(txtCounty, fields::COUNTY);
    OpenRecords();
}

void frm_MassCity::Form_Unload()
{
    const RoutineScope scope{"frm_MassCity"};
    m_records.reset();
    if (m_listChanged && !SaveCities(lstcity, m_disk, m_globals))
        m_ports.prompter.Box(store::kPlainTitle, kCitiesNotSaved.arg(m_globals.applicationIni));
}

/// Reads the keys of the records anew and stays at the same place, as far as there still is one.
void frm_MassCity::OpenRecords()
{
    const forms::Hourglass hourglass(m_ports.window);
    common::Guarded(m_ports.prompter, [&] {
        m_records = store::ReadRows(m_databook, SelectText(ckbBlank.Value()));
        m_place = std::clamp<qint64>(m_place, 0, std::max<qint64>(m_records->Count() - 1, 0));
    });
    ShowRecord();
}

void frm_MassCity::Step(int by)
{
    const RoutineScope scope{"frm_MassCity"};
    if (!m_records || m_records->Count() == 0)
        return;
    lblmsg.Show({}, forms::Colour::Normal);
    const qint64 wanted = m_place + by;
    if (wanted < 0 || wanted >= m_records->Count())
        return;
    m_place = wanted;
    ShowRecord();
}

void frm_MassCity::ShowRecord()
{
    const qint64 count = m_records ? m_records->Count() : 0;
    const qint64 place = count > 0 ? m_place : -1;
    const std::optional<store::Record> record = place >= 0 ? m_records->At(place) : std::nullopt;
    const bool gone = place >= 0 && !record;
    const auto stored = [&](const QString& field) { return record ? record->Text(field) : QString(); };
    lblCentralKey.SetCaption(stored(fields::CENTRALKEY));
    txtneighborhood.SetText(stored(fields::NEIGHBORHD));
    txtCity.SetText(stored(fields::CITY));
    txtState.SetText(stored(fields::ST));
    txtZip.SetText(stored(fields::ZIP));
    txtCounty.SetText(stored(fields::COUNTY));
    lblRecord.SetCaption(count == 0 ? kNoRecordsToShow : kRecordOf.arg(place + 1).arg(count));
    cmdprev.SetEnabled(place > 0);
    cmdnext.SetEnabled(place >= 0 && place + 1 < count);
    cmdOk.SetEnabled(place >= 0 && !gone);
    if (gone)
        lblmsg.Show(kGoneMeanwhile, forms::Colour::Red);
}

void frm_MassCity::ShowCity()
{
    if (lstcity.ListIndex() < 0)
        return;
    const CityEntry entry = SplitCity(lstcity.List(lstcity.ListIndex()));
    txtCity.SetText(entry.city);
    txtState.SetText(entry.state);
    txtZip.SetText(entry.zip);
    txtCounty.SetText(entry.county);
}

CityEntry frm_MassCity::Entry() const
{
    return {text::Trim(txtCity.Text()), text::Trim(txtState.Text()), text::Trim(txtZip.Text()),
            text::Trim(txtCounty.Text())};
}

void frm_MassCity::cmdOk_Click()
{
    const RoutineScope scope{"frm_MassCity"};
    const QString key = lblCentralKey.Caption();
    if (key.isEmpty())
        return;
    if (!store::FindRecord(m_ports, m_databook, key, fields::CENTRALKEY)) {
        lblmsg.Show(kNoSuchAddress.arg(key), forms::Colour::Red);
        return;
    }
    if (!common::Guarded(m_ports.prompter, [&] { SetCity(m_databook, Entry()); }))
        return;
    m_changed = true;
    OpenRecords();
    lblmsg.Show(kWasChanged.arg(key), forms::Colour::Blue);
}

void frm_MassCity::cmdCopyCity_Click()
{
    const RoutineScope scope{"frm_MassCity"};
    const CityEntry entry = Entry();
    const QString neighborhood = text::Trim(txtneighborhood.Text());
    if (entry.city.isEmpty() && entry.state.isEmpty() && entry.zip.isEmpty() &&
        !m_ports.prompter.YesNo(store::kPlainTitle, kNoCityEntered.arg(neighborhood)))
        return;
    if (neighborhood.isEmpty()) {
        m_ports.prompter.Box(store::kPlainTitle, kNeedNeighborhood);
        txtneighborhood.SetFocus();
        return;
    }
    qint64 changed = 0;
    const forms::Hourglass hourglass(m_ports.window);
    if (!common::Guarded(m_ports.prompter, [&] { changed = AssignCity(m_databook, neighborhood, entry); }))
        return;
    m_changed = m_changed || changed > 0;
    OpenRecords();
    lblmsg.Show((changed == 1 ? kRecordChanged : kRecordsChanged.arg(changed)).arg(neighborhood),
                changed == 0 ? forms::Colour::Red : forms::Colour::Blue);
}

void frm_MassCity::cmdAdd_Click()
{
    const RoutineScope scope{"frm_MassCity"};
    switch (AddCity(lstcity, Entry())) {
    case CityAdded::Yes:
        m_listChanged = true;
        lblmsg.Show(kCityAdded.arg(CityText(Entry())), forms::Colour::Blue);
        break;
    case CityAdded::IsThere:
        lblmsg.Show(kCityIsThere.arg(CityText(Entry())), forms::Colour::Blue);
        break;
    case CityAdded::NoCity:
        lblmsg.Show(kNeedCity, forms::Colour::Red);
        txtCity.SetFocus();
        break;
    }
}

void frm_MassCity::cmdDelete_Click()
{
    const RoutineScope scope{"frm_MassCity"};
    if (lstcity.SelCount() == 0 || !m_ports.prompter.YesNo(store::kPlainTitle, kDeleteCities))
        return;
    RemoveSelectedCities(lstcity);
    m_listChanged = true;
}

} // namespace vasclip::databook
