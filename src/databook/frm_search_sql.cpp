#include "databook/frm_search_sql.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "databook/city_list.h"
#include "databook/comp_types.h"
#include "databook/frm_calendar.h"
#include "databook/messages.h"
#include "forms/keys.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <QScopedValueRollback>

#include <array>
#include <limits>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

constexpr float kRangePercent = 15;
constexpr int kSorts = 7;
const QString kUnreadDate = u"01/01/1900"_s;

struct Captions
{
    QLatin1StringView control, label, rangeLabel;
};

constexpr std::array kCaptions = {
    Captions{"cboSearchKey"_L1, "Search &key"_L1, ""_L1},
    Captions{"cboAddr"_L1, "A&ddress"_L1, ""_L1},
    Captions{"txtCity"_L1, "Ci&ty"_L1, ""_L1},
    Captions{"txtState"_L1, "State"_L1, ""_L1},
    Captions{"txtZip"_L1, "ZIP"_L1, ""_L1},
    Captions{"txtCounty"_L1, "Co&unty"_L1, ""_L1},
    Captions{"txtNeighbor"_L1, "&Neighborhood"_L1, ""_L1},
    Captions{"txtBedRoom"_L1, "&Bedrooms"_L1, ""_L1},
    Captions{"txtBath"_L1, "Baths"_L1, ""_L1},
    Captions{"txtTaxMap"_L1, "Tax map"_L1, ""_L1},
    Captions{"txtCensus"_L1, "Census tract"_L1, ""_L1},
    Captions{"txtStories"_L1, "Stories"_L1, ""_L1},
    Captions{"txtCTS"_L1, "CTS code"_L1, ""_L1},
    Captions{"txtType"_L1, "Type letter"_L1, ""_L1},
    Captions{"txtPorchPati2"_L1, "Porch, patio"_L1, ""_L1},
    Captions{"txtNotes"_L1, "N&otes"_L1, ""_L1},
    Captions{"txtdesignappl"_L1, "Desi&gn, appeal"_L1, ""_L1},
    Captions{"txtSQFt"_L1, "S&quare feet"_L1, "plus or minus"_L1},
    Captions{"txtPrice"_L1, "&Price"_L1, "plus or minus"_L1},
    Captions{"txtage"_L1, "&Age"_L1, "plus or minus"_L1},
    Captions{"txtLandSize"_L1, "&Land size"_L1, "plus or minus"_L1},
    Captions{"txtSaleDate"_L1, "Sale date"_L1, ""_L1},
    Captions{"txtLoadDate"_L1, "Load date"_L1, ""_L1},
    Captions{"txtPriceGLA"_L1, "Price per sq. ft."_L1, "plus or minus"_L1},
};

constexpr std::array kSortCaptions = {
    "Not sorted"_L1,  "Address"_L1,           "Sale date"_L1, "Price"_L1,
    "Square feet"_L1, "Price per sq. ft."_L1, "Load date"_L1,
};
static_assert(kSortCaptions.size() == kSorts);

const Captions& CaptionsOf(QLatin1StringView control)
{
    for (const Captions& row : kCaptions)
        if (row.control == control)
            return row;
    throw RuntimeError(error::kNoObject, u"The search screen has no caption for %1"_s.arg(control));
}

/// "lblPrice" for "txtPrice".
QString LabelOf(QLatin1StringView control)
{
    return u"lbl"_s + QString(control).mid(3);
}

std::unique_ptr<forms::Control> MakeBox(forms::ControlSet& set, QLatin1StringView name)
{
    if (name.startsWith("cbo"_L1))
        return std::make_unique<forms::ComboBox>(set, QString(name));
    return std::make_unique<forms::TextBox>(set, QString(name));
}

QString TextIn(const forms::Control* box)
{
    if (const auto* text = qobject_cast<const forms::TextBox*>(box))
        return text->Text();
    if (const auto* combo = qobject_cast<const forms::ComboBox*>(box))
        return combo->Text();
    return {};
}

void PutText(forms::Control* box, const QString& text)
{
    if (auto* field = qobject_cast<forms::TextBox*>(box))
        field->SetText(text);
    else if (auto* combo = qobject_cast<forms::ComboBox*>(box))
        combo->SetText(text);
}

} // namespace

FieldLines::FieldLines(const store::DataSource& source, const QString& field)
    : m_source(source)
    , m_field(field)
{}

int FieldLines::Count() const
{
    if (!m_source.Bound() || m_source.FieldIndex(m_field) < 0)
        return 0;
    return static_cast<int>(std::min<qint64>(m_source.Count(), std::numeric_limits<int>::max()));
}

QString FieldLines::Line(int index) const
{
    if (index < 0 || index >= Count())
        return {};
    return text::Trim(m_source.ValuesAt(index, {m_source.FieldIndex(m_field)}).value(0).toString());
}

frm_SearchSQL::frm_SearchSQL(const Base& base)
    : Screen(u"frm_SearchSQL"_s)
    , cboCity(controls, u"cboCity"_s)
    , cboapprslType(controls, u"cboapprslType"_s)
    , imaSaleCal(controls, u"imaSaleCal"_s)
    , imaLoadCal(controls, u"imaLoadCal"_s)
    , optSort(controls, u"optSort"_s, 0, kSorts - 1)
    , ckbIgnorePending(controls, u"ckbIgnorePending"_s)
    , cmdSearch(controls, u"cmdSearch"_s)
    , cmdClear(controls, u"cmdClear"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , lblSQL(controls, u"lblSQL"_s)
    , m_base(base)
    , m_keys(base.datsql, fields::CENTRALKEY)
    , m_addresses(base.datsql, fields::ADDRESS)
{
    cmdSearch.SetCaption(u"&Search"_s);
    cmdClear.SetCaption(u"&Clear"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    ckbIgnorePending.SetCaption(u"&Ignore pending sales"_s);
    for (int i = 0; i < kSorts; ++i)
        optSort(i).SetCaption(QString(kSortCaptions[static_cast<std::size_t>(i)]));
    imaSaleCal.SetToolTipText(u"Pick the sale date from a calendar"_s);
    imaLoadCal.SetToolTipText(u"Pick the load date from a calendar"_s);
    MakeBoxes();
    Wire();
}

frm_SearchSQL::~frm_SearchSQL() = default;

void frm_SearchSQL::MakeBoxes()
{
    for (const SearchField& row : SearchFields()) {
        const Captions& captions = CaptionsOf(row.control);
        SearchBox box{row, std::make_unique<forms::Label>(controls, LabelOf(row.control)),
                      MakeBox(controls, row.control), nullptr, nullptr, nullptr};
        box.label->SetCaption(QString(captions.label));
        if (!row.rangeControl.isEmpty())
            box.range = MakeBox(controls, row.rangeControl);
        if (!captions.rangeLabel.isEmpty()) {
            box.rangeLabel = std::make_unique<forms::Label>(controls, LabelOf(row.rangeControl));
            box.rangeLabel->SetCaption(QString(captions.rangeLabel));
            box.range->SetToolTipText(u"A number, or a percentage such as 10%"_s);
        }
        if (row.kind == SearchKind::Date) {
            PutText(box.range.get(), u"On Or After"_s);
            box.note = std::make_unique<FieldNote>(controls, QString(row.control));
        }
        m_boxes.push_back(std::move(box));
    }
}

void frm_SearchSQL::Wire()
{
    for (const SearchBox& box : m_boxes) {
        connect(box.label.get(), &forms::Control::Clicked, this, [value = box.value.get()] {
            PutText(value, {});
            value->SetFocus();
        });
        if (box.row.kind == SearchKind::Date)
            WireDate(box);
        else if (box.range)
            WireRange(box);
    }
    connect(&imaSaleCal, &forms::Control::Clicked, this,
            [this] { PickDate(u"txtSaleDate"_s, u"Sale Date"_s); });
    connect(&imaLoadCal, &forms::Control::Clicked, this,
            [this] { PickDate(u"txtLoadDate"_s, u"Load Date"_s); });
    for (int i = 0; i < kSorts; ++i)
        connect(&optSort(i), &forms::CheckBox::Toggled, this, [this, i] { optSort_Click(i); });
    connect(&cboCity, &forms::ListBox::ListIndexChanged, this, &frm_SearchSQL::cboCity_Click);
    connect(&cboapprslType, &forms::ListBox::ListIndexChanged, this, &frm_SearchSQL::cboapprslType_Click);
    connect(&cmdSearch, &forms::Control::Clicked, this, &frm_SearchSQL::cmdSearch_Click);
    connect(&cmdClear, &forms::Control::Clicked, this, &frm_SearchSQL::cmdClear_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_SearchSQL::Unload);
    connect(&m_base.datsql, &store::DataSource::Refreshed, this, &frm_SearchSQL::FillKeyLists);
}

/// The range box stands beside its value only while there is one.
void frm_SearchSQL::WireRange(const SearchBox& box)
{
    auto* value = qobject_cast<forms::TextBox*>(box.value.get());
    auto* range = qobject_cast<forms::TextBox*>(box.range.get());
    const auto show = [value, range, label = box.rangeLabel.get()] {
        const bool there = !text::Trim(value->Text()).isEmpty();
        range->SetVisible(there);
        label->SetVisible(there);
    };
    show();
    connect(value, &forms::TextBox::TextChanged, this, show);
    connect(range, &forms::Control::GotFocus, this, [value, range] {
        if (const auto adjusted = AdjustPercent(value->Text(), range->Text(), kRangePercent)) {
            range->SetText(*adjusted);
            range->SelectAll();
        }
    });
    connect(range, &forms::Control::LostFocus, this,
            [value, range] { range->SetText(Look4Percent(value->Text(), range->Text())); });
    connect(box.rangeLabel.get(), &forms::Control::Clicked, this, [range] { range->SetText({}); });
}

void frm_SearchSQL::WireDate(const SearchBox& box)
{
    const QString control(box.row.control);
    const QString title = box.row.field == fields::SALEDATE ? u"Sale Date"_s : u"Load Date"_s;
    auto* value = qobject_cast<forms::TextBox*>(box.value.get());
    connect(value, &forms::Control::LostFocus, this, [this, &box] { FixDateBox(box); });
    connect(value, &forms::TextBox::TextChanged, this, [this, &box, control] {
        if (m_fixing)
            return;
        m_typed.remove(control);
        box.note->Hide();
    });
    connect(value, &forms::Control::KeyPressed, this,
            [this, &box, control](int keyCode, int shift, bool& handled) {
                handled = keyCode == forms::kKeyZ && shift == forms::kCtrlMask && m_typed.contains(control);
                if (handled)
                    BringBack(box);
            });
    connect(&box.note->back, &forms::Control::Clicked, this, [this, &box] { BringBack(box); });
    connect(box.value.get(), &forms::Control::DoubleClicked, this,
            [this, control, title] { PickDate(control, title); });
}

/// The date as the search takes it; where that is not what was typed it is said beside the box.
void frm_SearchSQL::FixDateBox(const SearchBox& box)
{
    const RoutineScope scope{"FixDate"};
    const QString control(box.row.control);
    if (m_typed.contains(control)) // told already
        return;
    const QDate today = m_base.ports.clock.Today();
    const QString typed = text::Trim(TextOf(control));
    const common::DateSense sense = common::SenseOf(typed, today);
    const QString fixed = sense == common::DateSense::Unreadable ? kUnreadDate : common::FixDate(typed, today);
    const QScopedValueRollback fixing(m_fixing, true);
    SetText(control, fixed);
    const QString means = box.row.field == fields::SALEDATE ? kAPendingSale : QString();
    if (const auto note = NoteOn(typed, sense, fixed, means)) {
        m_typed.insert(control, typed);
        box.note->Tell(*note, fixed);
    }
}

void frm_SearchSQL::BringBack(const SearchBox& box)
{
    const QString control(box.row.control);
    SetText(control, QString(m_typed.value(control))); // the words go with the text that they were about
    box.value->SetFocus();
}

void frm_SearchSQL::PickDate(const QString& control, const QString& title)
{
    GetCalandarDate(m_base.ports, *qobject_cast<forms::TextBox*>(Box(control)), title);
}

forms::Control* frm_SearchSQL::Box(const QString& control) const
{
    for (const SearchBox& box : m_boxes) {
        if (control.compare(box.row.control, Qt::CaseInsensitive) == 0)
            return box.value.get();
        if (box.range && control.compare(box.row.rangeControl, Qt::CaseInsensitive) == 0)
            return box.range.get();
    }
    return nullptr;
}

QString frm_SearchSQL::TextOf(const QString& control) const
{
    return TextIn(Box(control));
}

void frm_SearchSQL::SetText(const QString& control, const QString& text)
{
    PutText(Box(control), text);
}

SearchForm frm_SearchSQL::Form() const
{
    SearchForm form;
    for (const SearchBox& box : m_boxes) {
        form.texts.insert(box.row.control, TextIn(box.value.get()));
        if (box.range)
            form.texts.insert(box.row.rangeControl, TextIn(box.range.get()));
    }
    for (int i = 0; i < kSorts; ++i)
        if (optSort(i).Value())
            form.sort = i;
    form.ignorePending = ckbIgnorePending.Value();
    form.wildcards = m_base.records.state.wildcards;
    return form;
}

void frm_SearchSQL::Form_Load()
{
    SetCaption(m_base.globals.productName + u" - Database Search (by field)"_s);
    const int sort = m_base.globals.sortGrid;
    optSort(sort < 0 || sort >= kSorts ? 0 : sort).SetValue(true);
    ckbIgnorePending.SetValue(m_base.globals.ignorePending != 0);
    for (const SearchBox& box : m_boxes) {
        if (box.row.kind != SearchKind::Date)
            continue;
        auto* range = qobject_cast<forms::ComboBox*>(box.range.get());
        for (const QString& line : {kOnOrPrior, kEqualTo, kOnOrAfter})
            range->AddItem(line);
        range->SetText(kOnOrAfter);
    }
    LoadCities(cboCity, m_base.disk, m_base.globals);
    for (const CompType& type : CompTypes())
        cboapprslType.AddItem(QString(type.listText));
    FillKeyLists();
}

void frm_SearchSQL::FillKeyLists()
{
    qobject_cast<forms::ComboBox*>(Box(u"cboSearchKey"_s))->SetSource(&m_keys);
    qobject_cast<forms::ComboBox*>(Box(u"cboAddr"_s))->SetSource(&m_addresses);
}

void frm_SearchSQL::optSort_Click(int chosen)
{
    if (!optSort(chosen).Value())
        return;
    for (int i = 0; i < kSorts; ++i)
        if (i != chosen)
            optSort(i).SetValue(false);
}

void frm_SearchSQL::cboCity_Click()
{
    if (cboCity.ListIndex() < 0)
        return;
    const CityEntry entry = SplitCity(cboCity.List(cboCity.ListIndex()));
    SetText(u"txtCity"_s, entry.city);
    SetText(u"txtState"_s, entry.state);
    SetText(u"txtZip"_s, entry.zip);
    SetText(u"txtCounty"_s, entry.county);
}

void frm_SearchSQL::cboapprslType_Click()
{
    if (cboapprslType.ListIndex() >= 0)
        SetText(u"txtType"_s, cboapprslType.List(cboapprslType.ListIndex()).left(1));
}

void frm_SearchSQL::cmdSearch_Click()
{
    const RoutineScope scope{"cmdSearch_Click"};
    const forms::Hourglass hourglass(m_base.ports.window);
    // Enter in a box searches without leaving it.
    for (const SearchBox& box : m_boxes) {
        const QString value = TextIn(box.value.get());
        if (box.row.kind == SearchKind::Date) {
            FixDateBox(box);
            if (!text::Trim(value).isEmpty() && text::Trim(TextIn(box.range.get())).isEmpty())
                PutText(box.range.get(), kOnOrAfter);
        } else if (box.range) {
            PutText(box.range.get(), Look4Percent(value, TextIn(box.range.get())));
        }
    }
    const SearchStatement statement = BuildSearch(Form());
    lblmsg.Show({}, forms::Colour::Normal);
    lblSQL.SetCaption(statement.sql);
    if (!ShowSearch(m_base.ports, m_base.records, m_base.datsql, m_base.rows, statement))
        return; // given up after an error box; the grid shows what it did
    const qint64 count = m_base.datsql.Count();
    lblmsg.Show(FoundText(count), count == 0 ? forms::Colour::Red : forms::Colour::Blue);
}

void frm_SearchSQL::cmdClear_Click()
{
    for (const SearchBox& box : m_boxes) {
        PutText(box.value.get(), {});
        PutText(box.range.get(), {});
    }
    // Their texts are shown lines of lists.
    cboCity.SetListIndex(-1);
    cboCity.SetText({});
    cboapprslType.SetListIndex(-1);
    cboapprslType.SetText({});
    lblmsg.Show({}, forms::Colour::Normal);
    m_base.records.state.searchOnDisplay = false; // the grid shows all when this screen has closed
}

} // namespace vasclip::databook
