#include "databook/entry_screen.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "databook/city_list.h"
#include "databook/comp_fields.h"
#include "databook/comp_types.h"
#include "databook/frm_calendar.h"
#include "databook/messages.h"
#include "databook/number_text.h"
#include "forms/keys.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/schema.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kInvalidSaleDate = "1/1/1900"_L1;

} // namespace

EntryBox::EntryBox(forms::ControlSet& set, const EntryField& entry)
    : row(entry)
    , field(entry.field)
    , box(set, QString(entry.control))
{
    if (!entry.calendar.isEmpty())
        calendar.emplace(set, QString(entry.calendar));
    if (HasNote(entry))
        note.emplace(set, QString(entry.control));
}

EntryScreen::EntryScreen(const EntryDesk& desk, const EntryForm& form, EntryRecord& record)
    : Screen(QString(form.screen))
    , lblCentralKey(controls, u"lblCentralKey"_s)
    , lblPriceGla(controls, u"lblPriceGla"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdSave(controls, u"cmdSave"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_form(form)
    , m_record(record)
{
    SetCaption(QString(form.caption));
    cmdSave.SetCaption(u"&Save"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    cmdSave.SetToolTipText(u"Store what was changed and stay"_s);
    cmdCancel.SetToolTipText(u"Leave without storing"_s);
    cmdExit.SetToolTipText(u"Store the record and leave"_s);
    if (form.secondPage) {
        cmdPage1.emplace(controls, u"cmdPage1"_s).SetCaption(u"Page &1"_s);
        connect(&*cmdPage1, &forms::Control::Clicked, this, &EntryScreen::Unload);
    } else {
        cmdPage2.emplace(controls, u"cmdPage2"_s).SetCaption(u"Page &2"_s);
        connect(&*cmdPage2, &forms::Control::Clicked, this, &EntryScreen::cmdPage2_Click);
    }
    for (const EntryGroup& group : form.groups)
        for (const EntryField& row : group.fields)
            m_boxes.push_back(std::make_unique<EntryBox>(controls, row));
    if (Box(fields::CITY) != nullptr) {
        cboCity.emplace(controls, u"cboCity"_s);
        connect(&*cboCity, &forms::ListBox::ListIndexChanged, this, &EntryScreen::cboCity_Click);
    }
    for (const auto& box : m_boxes) {
        Wire(*box);
        if (box->row.field == fields::ADDRESS)
            m_twin = std::make_unique<EntryTwin>(m_desk, m_record, *box->note);
    }
    connect(&cmdSave, &forms::Control::Clicked, this, &EntryScreen::cmdSave_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &EntryScreen::cmdCancel_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &EntryScreen::cmdExit_Click);
    for (forms::Control* other : controls.All())
        if (qobject_cast<forms::TextBox*>(other) == nullptr)
            connect(other, &forms::Control::GotFocus, this, &EntryScreen::DisableFKeys);
}

forms::TextBox* EntryScreen::Box(QLatin1StringView field) const
{
    for (const auto& box : m_boxes)
        if (box->row.field == field)
            return &box->box;
    return nullptr;
}

void EntryScreen::Wire(EntryBox& box)
{
    forms::TextBox& text = box.box;
    connect(&text, &forms::TextBox::TextChanged, this,
            [this, &box] { TextChanged(box); });
    if (box.note && box.row.field != fields::ADDRESS)
        connect(&box.note->back, &forms::Control::Clicked, this, [this, &box] { BringBack(box); });
    connect(&text, &forms::Control::GotFocus, this, [this, &box] { Entered(box); });
    connect(&text, &forms::Control::LostFocus, this, [this, &box] { Left(box); });
    connect(&text, &forms::Control::KeyPressed, this,
            [this, &box](int keyCode, int shift, bool& handled) { handled = KeyDown(box, keyCode, shift); });
    if (!box.calendar)
        return;
    connect(&text, &forms::Control::DoubleClicked, this, [this, &box] { Calendar(box); });
    connect(&*box.calendar, &forms::Control::Clicked, this, [this, &box] { Calendar(box); });
}

void EntryScreen::Form_Load()
{
    const common::RoutineScope scope{"Form_Load"};
    if (!m_record.Open()) {
        m_desk.ports.prompter.Box(store::kPlainTitle, kNoSuchAddress.arg(m_record.Key()));
        m_ended = true;
        Unload();
        return;
    }
    if (cboCity) {
        for (const QString& city : m_desk.cities)
            cboCity->AddItem(city);
        cboCity->SetEnabled(!m_desk.cities.isEmpty());
    }
    ShowTexts();
    Validate();
    if (!m_record.Updatable()) {
        lblmsg.Show(kReadOnlyHere, forms::Colour::Red);
        cmdSave.SetEnabled(false);
        if (cboCity)
            cboCity->SetEnabled(false);
    }
    if (m_desk.comments != nullptr)
        m_desk.comments->EntryOpened(*this, *this);
}

/// The boxes take what the record holds. None is ever cut to the limit that it is drawn with.
void EntryScreen::ShowTexts()
{
    const QScopedValueRollback showing(m_showing, true);
    lblCentralKey.SetCaption(m_record.Key());
    SetCaption(u"%1 - %2"_s.arg(m_form.caption, m_record.Key()));
    for (const auto& box : m_boxes) {
        const QString text = m_record.Text(box->field);
        const int limit = box->row.limit > 0 ? box->row.limit : m_record.Size(box->field);
        box->box.SetMaxLength(std::max(limit, static_cast<int>(text.size())));
        box->box.SetText(text);
        const bool there = m_record.Has(box->field);
        box->box.SetLocked(!there || !m_record.Updatable() || box->row.kind == EntryKind::ShownOnly);
        box->box.SetEnabled(there);
        if (box->calendar)
            box->calendar->SetEnabled(!box->box.Locked());
    }
    m_ageFrom = {m_record.Text(fields::YEARBUILT), m_record.Text(QString(m_form.dateField))};
    if (m_twin)
        m_twin->Forget();
    ShowNotes();
    ShowPriceGla();
}

void EntryScreen::ShowPriceGla()
{
    const forms::TextBox* price = Box(fields::SELLINGPR);
    const forms::TextBox* gla = Box(fields::GLA);
    const auto number = [](const forms::TextBox& box, const QString& field) {
        return PlainNumber(box.Text(), field).value_or(QString());
    };
    if (price != nullptr && gla != nullptr)
        lblPriceGla.SetCaption(PriceGla(number(*price, fields::SELLINGPR), number(*gla, fields::GLA)));
    else
        lblPriceGla.SetVisible(false);
}

/// No value is checked: where the form wants it, every box takes the size of its field, in the order of the
/// form.
void EntryScreen::Validate()
{
    if (m_form.validation == nullptr)
        return;
    const common::RoutineScope scope{m_form.validation};
    if (!m_form.limitsAtLoad)
        return;
    for (const auto& box : m_boxes)
        box->box.SetMaxLength(m_record.Size(box->field));
}

void EntryScreen::Entered(EntryBox& box)
{
    if (!IsOpen())
        return;
    box.box.SetMaxLength(m_record.Size(box.field));
    box.box.SetText(text::Trim(box.box.Text()));
    box.box.SelectAll();
    if (box.box.Locked())
        DisableFKeys();
    else if (m_desk.comments != nullptr)
        m_desk.comments->FieldEntered(*this, box.box, box.field);
}

/// There is no box that a phrase could go into.
void EntryScreen::DisableFKeys()
{
    if (m_desk.comments != nullptr)
        m_desk.comments->FieldLeft();
}

void EntryScreen::Left(EntryBox& box)
{
    if (!IsOpen() || box.box.Locked())
        return;
    const common::RoutineScope scope{"LostFocus"};
    Settle(box);
    Recalculate();
    ShowPriceGla();
}

void EntryScreen::TextChanged(EntryBox& box)
{
    m_record.SetText(box.field, box.box.Text());
    if (m_twin && !m_showing && (box.row.field == fields::ADDRESS || box.row.field == fields::CITY))
        m_twin->Typed();
    if (m_showing || !box.note)
        return;
    m_record.dateNotes.remove(box.field);
    box.note->Hide();
}

/// A date, a price or an area that was changed is taken as it will be stored, and what is made of it is said beside it.
/// What was told already is not told of again.
void EntryScreen::Settle(EntryBox& box)
{
    if (!box.note || box.row.field == fields::ADDRESS || box.box.Locked() || !m_record.IsChanged(box.field) ||
        m_record.dateNotes.contains(box.field))
        return;
    if (box.row.kind != EntryKind::Date)
        SettleNumber(box);
    else if (box.row.field == m_form.dateField)
        ErrtxtSaleDate_LostFocus(box);
    else
        SettleLoadDate(box);
    ShowNotes();
}

/// The keys of the buttons leave no box.
void EntryScreen::SettleAll()
{
    for (const auto& box : m_boxes)
        Settle(*box);
}

void EntryScreen::PutQuietly(EntryBox& box, const QString& text)
{
    const QScopedValueRollback showing(m_showing, true);
    box.box.SetText(text);
}

void EntryScreen::SettleNumber(EntryBox& box)
{
    if (const auto plain = PlainNumber(box.box.Text(), box.field))
        PutQuietly(box, *plain);
}

/// A load date is kept as it is typed; only the way out makes today of one that is none.
void EntryScreen::SettleLoadDate(EntryBox& box)
{
    const QDate today = m_desk.ports.clock.Today();
    const QString typed = text::Trim(box.box.Text());
    if (typed.isEmpty())
        return;
    if (!common::IsDate(typed, today))
        m_record.dateNotes.insert(
            box.field,
            {typed, kNoLoadDate.arg(typed, common::FixDate(text::Format(today.startOfDay(), u"mm/dd/yyyy"_s), today)),
             true});
    else if (common::SenseOf(typed, today) == common::DateSense::Loose)
        m_record.dateNotes.insert(box.field, *NoteOn(typed, common::DateSense::Loose, common::FixDate(typed, today), {}));
}

void EntryScreen::ErrtxtSaleDate_LostFocus(EntryBox& box)
{
    const common::RoutineScope scope{"ErrtxtSaleDate_LostFocus"};
    const QDate today = m_desk.ports.clock.Today();
    const QString typed = text::Trim(box.box.Text());
    const QString means = box.row.field == fields::SALEDATE ? kAPendingSale : kNoLeaseDate;
    if (common::IsDate(typed, today)) {
        if (const auto note = NoteOn(typed, common::SenseOf(typed, today), common::FixDate(typed, today), means))
            m_record.dateNotes.insert(box.field, *note);
        return;
    }
    PutQuietly(box, QString(kInvalidSaleDate));
    if (!typed.isEmpty() && !typed.startsWith("pend"_L1, Qt::CaseInsensitive)) // which says what it becomes
        m_record.dateNotes.insert(
            box.field, *NoteOn(typed, common::DateSense::Unreadable, QString(kInvalidSaleDate), means));
}

/// The words of the page's own boxes, from the record that both pages share.
void EntryScreen::ShowNotes()
{
    for (const auto& box : m_boxes) {
        if (!box->note || box->row.field == fields::ADDRESS)
            continue;
        const auto note = m_record.dateNotes.constFind(box->field);
        if (note != m_record.dateNotes.cend())
            box->note->Tell(*note, text::Trim(box->box.Text()));
        else if (WantsNumber(box->field) && m_record.IsChanged(box->field) &&
                 !PlainNumber(box->box.Text(), box->field))
            box->note->Refuse(NoNumberText(text::Trim(box->box.Text()), box->field));
        else
            box->note->Hide();
    }
}

void EntryScreen::BringBack(EntryBox& box)
{
    const auto note = m_record.dateNotes.constFind(box.field);
    if (note == m_record.dateNotes.cend() || box.box.Locked())
        return;
    const QString typed = note->typed;
    box.box.SetText(typed); // the words go with the text that they were about
    box.box.SetFocus();
}

/// The age follows its year built and its sale date; one that was typed stays as long as these do.
void EntryScreen::Recalculate()
{
    forms::TextBox* age = Box(fields::AGE);
    const forms::TextBox* year = Box(fields::YEARBUILT);
    const forms::TextBox* date = Box(m_form.dateField);
    if (age == nullptr || year == nullptr || date == nullptr)
        return;
    std::pair<QString, QString> from{year->Text(), date->Text()};
    if (from == m_ageFrom)
        return;
    const bool noYear = text::Trim(m_ageFrom.first).isEmpty() && text::Trim(from.first).isEmpty();
    m_ageFrom = std::move(from);
    if (noYear) // there is nothing that a new sale date could make of it
        return;
    age->SetText(AgeText(year->Text(), date->Text(), m_desk.ports.clock.Today()));
}

void EntryScreen::Calendar(EntryBox& box)
{
    if (box.box.Locked())
        return;
    GetCalandarDate(m_desk.ports, box.box, QString(box.row.calendarTitle));
    box.box.SetFocus();
}

bool EntryScreen::KeyDown(EntryBox& box, int keyCode, int shift)
{
    if (box.calendar && keyCode == forms::kKeyDown && shift == forms::kAltMask) {
        Calendar(box);
        return true;
    }
    if (m_twin && box.row.field == fields::ADDRESS && keyCode == forms::kKeyDown && shift == forms::kAltMask)
        return m_twin->Look();
    if (m_desk.comments != nullptr && !box.box.Locked()) {
        const comments::KeyAnswer answer = m_desk.comments->KeyDown(keyCode, shift, box.box, box.field);
        if (answer.handled) {
            if (answer.advance != comments::Advance::Stay)
                box.box.SendTab(answer.advance == comments::Advance::Previous);
            return true;
        }
    }
    if (keyCode == forms::kKeyZ && shift == forms::kCtrlMask) {
        const bool another = box.note && box.row.field != fields::ADDRESS && box.note->back.Visible();
        if (another)
            BringBack(box);
        return another;
    }
    if (keyCode != forms::kKeyReturn)
        return false;
    box.box.SendTab((shift & forms::kShiftMask) != 0);
    return true;
}

forms::Screen* EntryScreen::Companion()
{
    return m_desk.comments == nullptr ? nullptr : &m_desk.comments->Frame();
}

void EntryScreen::SendKey(forms::TextBox& field, int keyCode, int shift)
{
    bool handled = false;
    Q_EMIT field.KeyPressed(keyCode, shift, handled);
}

void EntryScreen::cboCity_Click()
{
    if (cboCity->ListIndex() < 0)
        return;
    const CityEntry entry = SplitCity(cboCity->List(cboCity->ListIndex()));
    const std::pair<QLatin1StringView, QString> parts[] = {{fields::CITY, entry.city},
                                                           {fields::ST, entry.state},
                                                           {fields::ZIP, entry.zip},
                                                           {fields::COUNTY, entry.county}};
    for (const auto& [field, text] : parts)
        if (forms::TextBox* box = Box(field); box != nullptr && !box->Locked())
            box->SetText(text);
}

void EntryScreen::TellOutcome(Stored stored)
{
    switch (stored) {
    case Stored::Done:
        for (DateNote& note : m_record.dateNotes)
            note.stored = true;
        ShowTexts();
        lblmsg.Show(kSaved, forms::Colour::Green);
        break;
    case Stored::TookTheirs:
        ShowTexts();
        lblmsg.Show(kTheirsShown, forms::Colour::Blue);
        break;
    case Stored::Kept:
        lblmsg.Show(kNotStored, forms::Colour::Red);
        break;
    }
}

/// A price that is no number is refused where it stands; on the other page its words have to do.
bool EntryScreen::MayStore()
{
    const std::optional<EntryRecord::Refusal> refused = m_record.Refused();
    if (!refused)
        return true;
    lblmsg.Show(kNothingStored.arg(refused->text), forms::Colour::Red);
    for (const auto& box : m_boxes)
        if (box->field == refused->field)
            box->box.SetFocus();
    return false;
}

/// The window goes with the words about its dates, so that they are asked about here.
bool EntryScreen::MayLoseDates()
{
    QStringList lost;
    EntryBox* first = nullptr;
    for (auto note = m_record.dateNotes.cbegin(); note != m_record.dateNotes.cend(); ++note) {
        if (!note->lost || note->stored)
            continue;
        lost.append(u"%1: %2"_s.arg(store::FindCompsColumn(note.key())->heading, note->words));
        for (const auto& box : m_boxes)
            if (box->field == note.key())
                first = box.get();
    }
    lost.sort();
    if (lost.isEmpty() || m_desk.ports.prompter.YesNo(store::kPlainTitle, kDatesLost.arg(lost.join(u'\n'))))
        return true;
    if (first != nullptr)
        BringBack(*first);
    return false;
}

void EntryScreen::cmdSave_Click()
{
    SettleAll();
    if (m_record.Updatable() && MayStore())
        TellOutcome(m_record.Save());
}

void EntryScreen::cmdExit_Click()
{
    SettleAll();
    if (m_record.Updatable()) {
        if (!MayStore() || !MayLoseDates())
            return;
        const Stored stored = m_record.SaveForExit();
        if (stored != Stored::Done) {
            TellOutcome(stored);
            return;
        }
    }
    m_record.Cancel();
    m_ended = true;
    Unload();
}

void EntryScreen::cmdCancel_Click()
{
    if (m_record.Changed() && !m_desk.ports.prompter.YesNo(store::kPlainTitle, kChangesLost))
        return;
    m_record.Cancel();
    m_ended = true;
    Unload();
}

/// The window's cross is Cancel on the first page and leads back from the second, which shares its record.
bool EntryScreen::QueryUnload()
{
    if (m_form.secondPage)
        SettleAll();
    if (m_ended || m_form.secondPage)
        return true;
    if (m_record.Changed() && !m_desk.ports.prompter.YesNo(store::kPlainTitle, kChangesLost))
        return false;
    m_record.Cancel();
    m_ended = true;
    return true;
}

void EntryScreen::cmdPage2_Click()
{
    SettleAll();
    EntryScreen second(m_desk, SecondPage(), m_record);
    m_desk.ports.screens.ShowModal(second);
    if (second.Ended()) {
        m_ended = true;
        Unload();
        return;
    }
    ShowTexts();
}

bool LoadCompForm(const EntryDesk& desk, const QString& centralKey, const QString& apprslType)
{
    const common::RoutineScope scope{"LoadCompForm"};
    desk.ports.pump.DoEvents();
    const EntryForm* form = FindEntryForm(EntryFormOf(apprslType));
    EntryRecord record(desk, form != nullptr ? *form : EntryForms().front(), centralKey);
    EntryScreen screen(desk, record.Form(), record);
    desk.ports.screens.ShowModal(screen);
    return record.WasStored();
}

} // namespace vasclip::databook
