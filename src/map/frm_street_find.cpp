#include "map/frm_street_find.h"

#include "common/error_block.h"
#include "link/reporter.h"
#include "map/candidates.h"
#include "map/flags.h"
#include "map/map_icons.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/placed_for.h"
#include "map/radius.h"
#include "map/slot_labels.h"
#include "map/view.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/record.h"

#include <QSet>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;
namespace action = street::action;

namespace {

enum Way { kByAddress, kByLabel };
enum Graphic { kHouse, kDot };
const QString kSubject = u"SUBJECT"_s;

void Choose(const forms::ControlArray<forms::CheckBox>& options, int index)
{
    for (int i = options.First(); i <= options.Last(); ++i)
        options(i).SetValue(i == index);
}

/// Addresses and cities of the Databook, in order.
void FillFromDatabook(const store::DataSource& databook, forms::ListBox& addresses, forms::ListBox& cities)
{
    store::Rows rows = store::ReadRows(
        databook, u"SELECT CENTRALKEY, CITY FROM ["_s + databook.RecordSource() + u"] ORDER BY CENTRALKEY"_s);
    QStringList keys;
    QSet<QString> found;
    while (const auto record = rows.Next()) {
        keys.append(record->Text(fields::CENTRALKEY));
        found.insert(text::Folded(record->Value(fields::CITY).toString()));
    }
    found.remove(QString());
    QStringList sorted(found.begin(), found.end());
    sorted.sort();
    keys.removeAll(QString());
    addresses.SetItems(keys);
    cities.SetItems(sorted);
}

} // namespace

frm_StreetFind::frm_StreetFind(MapDesk& desk)
    : Screen(u"frm_StreetFind"_s)
    , optfind(controls, u"optfind"_s, 0, 1)
    , optwhichdot(controls, u"optwhichdot"_s, 0, 1)
    , imaicon(controls, u"imaicon"_s, 0, 1)
    , lbladdress(controls, u"lbladdress"_s)
    , lblCity(controls, u"lblCity"_s)
    , lblstate(controls, u"lblstate"_s)
    , lblzip(controls, u"lblzip"_s)
    , lblcounty(controls, u"lblcounty"_s)
    , lblMapLabel(controls, u"lblMapLabel"_s)
    , txtStreet(controls, u"txtStreet"_s)
    , txtCity(controls, u"txtCity"_s)
    , txtState(controls, u"txtState"_s)
    , txtZip(controls, u"txtZip"_s)
    , txtCounty(controls, u"txtCounty"_s)
    , lstaddress(controls, u"lstaddress"_s)
    , lstCity(controls, u"lstCity"_s)
    , txtlabel(controls, u"txtlabel"_s)
    , lstLabel(controls, u"lstLabel"_s)
    , lstcandidates(controls, u"lstcandidates"_s)
    , linStreets(controls, u"linStreets"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdFind(controls, u"cmdFind"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_desk(desk)
{
    SetCaption(u"Find"_s);
    optfind(kByAddress).SetCaption(u"&Find Address"_s);
    optfind(kByLabel).SetCaption(u"&Locate Pushpin Label"_s);
    optwhichdot(kHouse).SetCaption(u"House"_s);
    optwhichdot(kDot).SetCaption(u"Dot"_s);
    lbladdress.SetCaption(u"Address"_s);
    lblCity.SetCaption(u"City"_s);
    lblstate.SetCaption(u"State"_s);
    lblzip.SetCaption(u"ZIP"_s);
    lblcounty.SetCaption(u"County"_s);
    lblMapLabel.SetCaption(u"Pushpin Label"_s);
    txtStreet.SetToolTipText(u"Enter a street address or intersection."_s);
    txtCity.SetToolTipText(u"City"_s);
    txtState.SetToolTipText(u"State"_s);
    txtZip.SetToolTipText(u"5 digit ZIP Code"_s);
    cmdFind.SetCaption(u"&Find"_s);
    cmdFind.SetToolTipText(u"Draw a map centered on the specified address"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    for (int i : {0, 1}) {
        connect(&optfind(i), &forms::Control::Clicked, this, [this, i] { optfind_Click(i); });
        connect(&optwhichdot(i), &forms::Control::Clicked, this, [this, i] { optwhichdot_Click(i); });
        connect(&imaicon(i), &forms::Control::Clicked, this, [this, i] { optwhichdot_Click(i); });
    }
    // A click on a field's label empties the field.
    const std::pair<forms::Label*, forms::TextBox*> fields[] = {
        {&lbladdress, &txtStreet}, {&lblCity, &txtCity},     {&lblstate, &txtState},
        {&lblzip, &txtZip},        {&lblcounty, &txtCounty}, {&lblMapLabel, &txtlabel}};
    for (const auto& [label, box] : fields)
        connect(label, &forms::Control::Clicked, this, [box = box] { box->SetText(QString()); });
    // A click on the row that is chosen already fills the boxes again.
    const std::pair<forms::ListBox*, void (frm_StreetFind::*)()> lists[] = {
        {&lstaddress, &frm_StreetFind::lstaddress_Click},
        {&lstCity, &frm_StreetFind::lstCity_Click},
        {&lstLabel, &frm_StreetFind::lstLabel_Click}};
    for (const auto& [list, clicked] : lists) {
        connect(list, &forms::ListBox::ListIndexChanged, this, clicked);
        connect(list, &forms::Control::Clicked, this, clicked);
    }
    connect(&lstcandidates, &forms::Control::Clicked, this, &frm_StreetFind::lstcandidates_Click);
    connect(&cmdFind, &forms::Control::Clicked, this, &frm_StreetFind::cmdFind_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_StreetFind::Unload);
}

void frm_StreetFind::Form_Load()
{
    const common::RoutineScope scope{"frm_StreetFind"};
    lstLabel.AddItem(kSubject);
    for (const Group group : kMapGroups)
        for (int n = 1; n <= link::RowOf(group).slots; ++n)
            if (!AddressAt(m_desk, {group, n}).isEmpty())
                lstLabel.AddItem(LabelOf({group, n}));
    link::Reported(m_desk.ports.prompter, "frm_StreetFind",
                   [&] { FillFromDatabook(m_desk.sources.datDatabook, lstaddress, lstCity); });
    ShowBitmap(m_desk, imaicon(kHouse), u"comp.bmp"_s);
    ShowBitmap(m_desk, imaicon(kDot), u"reddot.bmp"_s);
    lstcandidates.SetVisible(false);
    optwhichdot_Click(kHouse);
    optfind_Click(kByAddress);
    txtStreet.SetFocus();
}

void frm_StreetFind::optfind_Click(int index)
{
    Choose(optfind, index);
    const bool address = index == kByAddress;
    const std::initializer_list<forms::Control*> right = {&lbladdress, &lblCity,  &lblstate,   &lblzip,     &lblcounty,
                                                          &txtStreet,  &txtCity,  &txtState,   &txtZip,     &txtCounty,
                                                          &lstaddress, &lstCity,  &optwhichdot(kHouse),
                                                          &optwhichdot(kDot), &imaicon(kHouse), &imaicon(kDot)};
    for (forms::Control* control : right)
        control->SetVisible(address);
    lstLabel.SetVisible(!address);
    lstcandidates.SetVisible(false);
    lblmsg.SetCaption(QString());
}

void frm_StreetFind::optwhichdot_Click(int index)
{
    Choose(optwhichdot, index);
}

void frm_StreetFind::lstaddress_Click()
{
    if (lstaddress.ListIndex() < 0)
        return;
    const QString key = lstaddress.List(lstaddress.ListIndex());
    const std::optional<store::Record> record = FindComp(m_desk, key);
    const auto field = [&record](const QString& name) { return record ? record->Text(name) : QString(); };
    txtStreet.SetText(key);
    txtCity.SetText(field(fields::CITY));
    txtState.SetText(field(fields::ST));
    txtZip.SetText(field(fields::ZIP));
    txtCounty.SetText(field(fields::COUNTY));
    lblmsg.Show(record ? QString() : messages::kRecordGone.arg(key), forms::Colour::Red);
}

void frm_StreetFind::lstCity_Click()
{
    if (lstCity.ListIndex() >= 0)
        txtCity.SetText(lstCity.List(lstCity.ListIndex()));
}

void frm_StreetFind::lstLabel_Click()
{
    if (lstLabel.ListIndex() >= 0 && lstLabel.List(lstLabel.ListIndex()) != kSeparatorRow)
        txtlabel.SetText(lstLabel.List(lstLabel.ListIndex()));
}

void frm_StreetFind::lstcandidates_Click()
{
    if (lstcandidates.ListIndex() < 0)
        return;
    const QString row = lstcandidates.List(lstcandidates.ListIndex());
    MapCenterOnLatLong(m_desk, row.section(u' ', 0, 0), row.section(u' ', 1, 1));
    m_desk.map.Refresh();
}

void frm_StreetFind::cmdFind_Click()
{
    link::Reported(m_desk.ports.prompter, "frm_StreetFind", [&] {
        lblmsg.SetCaption(QString());
        ForgetCandidates();
        if (optfind(kByAddress).Value())
            FindAddress();
        else
            FindLabel();
        m_desk.map.Refresh();
    });
}

QString frm_StreetFind::Location() const
{
    return text::Trim(txtStreet.Text()) + u',' + text::Trim(txtCity.Text()) + u',' + text::Trim(txtState.Text()) + u' ' +
           text::Trim(txtZip.Text());
}

void frm_StreetFind::FindAddress()
{
    const QString street = text::Trim(txtStreet.Text());
    const QString label = text::Trim(txtlabel.Text());
    if (street.isEmpty()) {
        lblmsg.Show(messages::kNoStreet, forms::Colour::Red);
        return;
    }
    if (const qint32 id = FindMapPoint(m_desk, FindBy::Caption, street); id >= 1) {
        const std::optional<MapPoint> point = LoadPoint(m_desk, id);
        if (point && !label.isEmpty()) {
            m_desk.map.SetText(label);
            m_desk.map.DoAction(action::kWritePoint);
            KeepPlacedFor(m_desk, id);
        }
        MapCenterOnAddress(m_desk, Location());
        if (m_desk.map.Status() < 0) // no such address, but there is its point
            CentreOnPoint(m_desk, id);
        return;
    }
    QList<RecordLocation> found;
    const qint32 id = NextPoint(m_desk);
    const PointLook look{.text = label.isEmpty() ? street.toUpper() : label,
                         .picture = optwhichdot(kDot).Value() ? u"reddot.bmp"_s : u"comp.bmp"_s,
                         .flag = flag::kFree};
    if (MapPlaceAddrPoint(m_desk, id, Location(), look, found)) {
        ++m_desk.state.g_MapPointCount;
        SaveLocations(m_desk, found);
        FollowCircle(m_desk);
        CentreOnPoint(m_desk, id);
        lblmsg.Show(messages::kPlaced.arg(look.text), forms::Colour::Blue);
    } else if (const std::optional<street::Place> place = MapFindAddress(m_desk, Location())) {
        MapCenterOnLatLong(m_desk, DegreesText(place->latitude), DegreesText(place->longitude));
    } else if (!OfferCandidates()) {
        lblmsg.Show(NotFoundWords(m_desk, Location()), forms::Colour::Red);
    }
}

bool frm_StreetFind::OfferCandidates()
{
    if (!m_desk.geocoder)
        return false;
    QStringList rows;
    for (const street::Candidate& candidate : m_desk.geocoder->Find(Location()))
        rows << DegreesText(candidate.place.latitude) + u' ' + DegreesText(candidate.place.longitude) + u' ' +
                    candidate.address;
    lstcandidates.SetItems(rows);
    m_candidates = ShowCandidates(m_desk, lstcandidates, true);
    if (rows.isEmpty())
        return false;
    lstcandidates_Click();
    lblmsg.Show(rows.size() == 1 ? messages::kOnePlace : messages::kSeveralPlaces.arg(rows.size()),
                forms::Colour::Blue);
    return true;
}

/// The pins of the question before go, so that those of the next one can be told.
void frm_StreetFind::ForgetCandidates()
{
    lstcandidates.SetVisible(false);
    for (const qint32 id : std::exchange(m_candidates, {})) {
        m_desk.map.SetID(id);
        m_desk.map.DoAction(action::kDeletePoint);
    }
}

void frm_StreetFind::FindLabel()
{
    const QString label = text::Trim(txtlabel.Text());
    const qint32 id = label.isEmpty() ? -1 : PointOfLabel(m_desk, label);
    if (id >= 1)
        CentreOnPoint(m_desk, id);
    else
        lblmsg.Show(label.isEmpty() ? messages::kNoLabel : messages::kLabelNotFound.arg(label), forms::Colour::Red);
}

} // namespace vasclip::map
