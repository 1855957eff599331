#include "map/frm_manual.h"

#include "common/error_block.h"
#include "map/flags.h"
#include "map/locations.h"
#include "map/map_icons.h"
#include "map/messages.h"
#include "map/picture_names.h"
#include "map/pinmap.h"
#include "map/radius.h"
#include "map/selection.h"
#include "map/slot_labels.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

constexpr qint32 kFirstByHand = 40; ///< above the numbers of arrows that are placed by address
enum Graphic { kHouse, kArrow, kDot };
constexpr std::array kColours = {"BLACK"_L1, "RED"_L1, "BLUE"_L1};
constexpr int kPlacedDirection = 1;
const QString kSubject = u"SUBJECT"_s;

int ChosenOf(const forms::ControlArray<forms::CheckBox>& options)
{
    for (int i = options.First(); i <= options.Last(); ++i)
        if (options(i).Value())
            return i;
    return options.First();
}

void Choose(const forms::ControlArray<forms::CheckBox>& options, int index)
{
    for (int i = options.First(); i <= options.Last(); ++i)
        options(i).SetValue(i == index);
}

} // namespace

frm_Manual::frm_Manual(MapDesk& desk)
    : Screen(u"frm_Manual"_s)
    , lblMapLabel(controls, u"lblMapLabel"_s)
    , lblGraphic(controls, u"lblGraphic"_s)
    , lstLabel(controls, u"lstLabel"_s)
    , lstAssoc(controls, u"lstAssoc"_s)
    , txtlabel(controls, u"txtlabel"_s)
    , optwhichdot(controls, u"optwhichdot"_s, 0, 2)
    , imaicon(controls, u"imaicon"_s, 0, 2)
    , optcolor(controls, u"optcolor"_s, 0, 2)
    , linManual(controls, u"linManual"_s)
    , cmdOk(controls, u"cmdOk"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_desk(desk)
{
    SetCaption(u"Manual"_s);
    lblMapLabel.SetCaption(u"Pushpin Label"_s);
    lblGraphic.SetCaption(u"Graphic Type"_s);
    lstAssoc.SetVisible(false);
    txtlabel.SetLocked(true); // it names a row of the list
    cmdOk.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    optwhichdot(kHouse).SetCaption(u"House"_s);
    optwhichdot(kArrow).SetCaption(u"Arrow"_s);
    optwhichdot(kDot).SetCaption(u"Dot"_s);
    const QString captions[] = {u"Blac&k"_s, u"&Red"_s, u"&Blue"_s};
    for (int i = optcolor.First(); i <= optcolor.Last(); ++i) {
        optcolor(i).SetCaption(captions[i]);
        connect(&optcolor(i), &forms::Control::Clicked, this, [this, i] { optcolor_Click(i); });
    }
    for (int i = optwhichdot.First(); i <= optwhichdot.Last(); ++i) {
        connect(&optwhichdot(i), &forms::Control::Clicked, this, [this, i] { optwhichdot_Click(i); });
        connect(&imaicon(i), &forms::Control::Clicked, this, [this, i] { optwhichdot_Click(i); });
    }
    connect(&lstLabel, &forms::ListBox::ListIndexChanged, this, &frm_Manual::lstLabel_Click);
    connect(&lstLabel, &forms::Control::Clicked, this, &frm_Manual::lstLabel_Click);
    connect(&lstLabel, &forms::Control::DoubleClicked, this, [this] {
        lstLabel_Click();
        if (lstLabel.ListIndex() >= 0 && lstLabel.List(lstLabel.ListIndex()) != kSeparatorRow)
            cmdOk_Click();
    });
    connect(&cmdOk, &forms::Control::Clicked, this, &frm_Manual::cmdOk_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_Manual::Unload);
}

void frm_Manual::Form_Load()
{
    const common::RoutineScope scope{"frm_Manual"};
    FillLabels();
    const auto colour = std::find(kColours.begin(), kColours.end(), ColourWord(m_desk.globals.arrowColor));
    Choose(optcolor, static_cast<int>(colour - kColours.begin()));
    Choose(optwhichdot, kArrow);
    ShowIcons();
}

void frm_Manual::FillLabels()
{
    lstLabel.Clear();
    lstAssoc.Clear();
    Add(kSubject, AddressAt(m_desk, {}));
    const Group active = ActiveGroup(m_desk.report);
    AddGroup(active);
    for (const Group group : kMapGroups)
        if (group != active)
            AddGroup(group);
}

/// Does the report still have that comp in its place? It may have been closed meanwhile.
bool frm_Manual::RowStands() const
{
    const std::optional<link::SlotRef> slot = SlotOfLabel(txtlabel.Text());
    return AddressAt(m_desk, slot.value_or(link::SlotRef{})) == m_address;
}

void frm_Manual::Add(const QString& row, const QString& address)
{
    lstLabel.AddItem(row);
    lstAssoc.AddItem(address);
}

void frm_Manual::AddGroup(Group group)
{
    bool first = true;
    for (int n = 1; n <= link::RowOf(group).slots; ++n) {
        const QString address = AddressAt(m_desk, {group, n});
        if (address.isEmpty())
            continue;
        if (std::exchange(first, false))
            Add(kSeparatorRow, QString());
        Add(LabelOf({group, n}), address);
    }
}

void frm_Manual::lstLabel_Click()
{
    const int row = lstLabel.ListIndex();
    if (row < 0 || lstLabel.List(row) == kSeparatorRow)
        return;
    txtlabel.SetText(lstLabel.List(row));
    m_address = lstAssoc.List(row);
}

void frm_Manual::optwhichdot_Click(int index)
{
    Choose(optwhichdot, index);
    for (int i = optcolor.First(); i <= optcolor.Last(); ++i)
        optcolor(i).SetEnabled(index == kArrow);
}

void frm_Manual::optcolor_Click(int index)
{
    Choose(optcolor, index);
    ShowIcons();
}

QString frm_Manual::Colour() const
{
    return kColours[static_cast<std::size_t>(ChosenOf(optcolor))];
}

void frm_Manual::ShowIcons()
{
    ShowBitmap(m_desk, imaicon(kHouse), u"comp.bmp"_s);
    ShowBitmap(m_desk, imaicon(kArrow), ArrowName({true, Colour(), QString(), -1, kPlacedDirection}));
    ShowBitmap(m_desk, imaicon(kDot), u"reddot.bmp"_s);
}

/// The arrow of the row, by its own type and number.
QString frm_Manual::Arrow(int direction) const
{
    PictureName name{.arrow = true, .colour = Colour(), .type = {}, .number = -1, .direction = direction};
    if (txtlabel.Text() == kSubject) {
        name.type = kSubject;
        name.number = 0;
    } else if (const std::optional<link::SlotRef> slot = SlotOfLabel(txtlabel.Text())) {
        name.type = TypeWord(slot->group);
        name.number = slot->index;
    }
    return ArrowName(name);
}

void frm_Manual::cmdOk_Click()
{
    const common::RoutineScope scope{"frm_Manual"};
    if (!IsOpen())
        return;
    if (txtlabel.Text().isEmpty()) {
        m_desk.ports.prompter.Info(messages::kNoRowTitle, messages::kNoRow);
        return;
    }
    if (!RowStands()) {
        m_desk.ports.prompter.Info(Caption(), messages::kRowChanged.arg(txtlabel.Text()));
        txtlabel.SetText(QString());
        FillLabels();
        return;
    }
    m_desk.map.DoAction(street::action::kReadCentre);
    const street::Place centre{m_desk.map.Latitude(), m_desk.map.Longitude()};
    qint32& count = m_desk.state.g_MapPointCount;
    count = std::max(count, kFirstByHand);
    const int graphic = ChosenOf(optwhichdot);
    const QString pictures[] = {u"COMP.BMP"_s, Arrow(kPlacedDirection), u"REDDOT.BMP"_s};
    const bool keeps = graphic != kHouse && FindComp(m_desk, m_address).has_value() &&
                       SaveLocations(m_desk, {AnchoredAt(m_address, centre)});
    m_placed = count;
    MapPlaceLatLongPoint(m_desk, m_placed, centre,
                         {.text = txtlabel.Text(),
                          .picture = pictures[graphic],
                          .flag = keeps ? flag::kAnchored : flag::kFree});
    mapview_PointClick(m_desk, m_placed);
    FollowCircle(m_desk);
    if (keeps)
        m_desk.status.lblmsg.Show(messages::kAnchored.arg(m_address), forms::Colour::Blue);
    else
        m_desk.status.lblmsg.Show(messages::kPlaced.arg(txtlabel.Text()), forms::Colour::Blue);
    m_desk.map.Refresh();
    Unload();
}

} // namespace vasclip::map
