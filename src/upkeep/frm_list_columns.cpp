#include "upkeep/frm_list_columns.h"

#include "platform/text/counted.h"
#include "platform/text/runtime_error.h"
#include "store/fields.h"
#include "store/schema.h"
#include "upkeep/code_pages.h"
#include "upkeep/list_values.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <span>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

struct Delimiter
{
    char16_t letter;
    const char16_t* words;
};
constexpr Delimiter kDelimiters[] = {{u',', u"Comma  ,"}, {u';', u"Semicolon  ;"}, {u'\t', u"Tab"}, {u'|', u"Bar  |"}, {u':', u"Colon  :"}};
constexpr const char16_t* kDates[] = {u"Month first  3/31/2004", u"Day first  31/3/2004", u"Year first  2004-03-31"};
constexpr const char16_t* kDecimals[] = {u"Point  1,250.50", u"Comma  1.250,50"};
const QString kAllGood = u"The first %1 can be read."_s;
const text::Counted kLines{u"line"_s, u"lines"_s};
const QString kWholeGood = u"All can be read (lines: %1)."_s;
const QString kNoLines = u"There are no lines below the headings."_s;
const QString kSomeBad = u"Can't be read: %2 of %1. What is refused can be mended afterwards."_s;
const QString kFirstBad = u"Can't be read: %2 of the first %1. What is refused can be mended afterwards."_s;
const QString kOpenDates = u" No date tells whether the month or the day stands first: look at them."_s;

QStringList Words(std::span<const char16_t* const> texts)
{
    QStringList words;
    for (const char16_t* text : texts)
        words.append(QString::fromUtf16(text));
    return words;
}

} // namespace

frm_ListColumns::frm_ListColumns(const TransferDesk& desk, std::shared_ptr<const ListFile> file, const QString& sheet)
    : Screen(u"frm_ListColumns"_s)
    , lblSource(controls, u"lblSource"_s)
    , cboSheet(controls, u"cboSheet"_s)
    , cboDelimiter(controls, u"cboDelimiter"_s)
    , cboCodePage(controls, u"cboCodePage"_s)
    , cboDates(controls, u"cboDates"_s)
    , cboDecimal(controls, u"cboDecimal"_s)
    , txtHeadings(controls, u"txtHeadings"_s)
    , cboPreset(controls, u"cboPreset"_s)
    , cmdKeep(controls, u"cmdKeep"_s)
    , cmdForget(controls, u"cmdForget"_s)
    , grdcolumns(controls, u"grdcolumns"_s)
    , cboField(controls, u"cboField"_s)
    , grdlines(controls, u"grdlines"_s)
    , lblFaults(controls, u"lblFaults"_s)
    , lstfaults(controls, u"lstfaults"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdGo(controls, u"cmdGo"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_file(std::move(file))
    , m_columns(m_look, m_preview)
    , m_lines(m_preview)
    , m_sheet(sheet)
{
    SetCaption(u"Columns of the List"_s);
    lblSource.SetCaption(m_file->File());
    lblFaults.SetCaption(u"What can't be read"_s);
    cmdKeep.SetCaption(u"&Keep"_s);
    cmdKeep.SetToolTipText(u"Keeps columns, dates and numbers under this name, for other lists of the kind"_s);
    cmdForget.SetCaption(u"Delet&e"_s);
    cmdGo.SetCaption(u"&Rehearse..."_s);
    cmdGo.SetToolTipText(u"Shows what each line would do before anything is done"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    cboSheet.SetVisible(m_file->IsWorkbook());
    cboDelimiter.SetVisible(!m_file->IsWorkbook());
    cboCodePage.SetVisible(!m_file->IsWorkbook());
    FillChoices();
    Listen();
}

void frm_ListColumns::Listen()
{
    const auto follow = [this](forms::ComboBox& box, const std::function<void(int)>& take) {
        connect(&box, &forms::ListBox::ListIndexChanged, this, [this, &box, take] {
            if (!m_showing && box.ListIndex() >= 0)
                take(box.ListIndex());
        });
    };
    // Here a choice counts also where it is what stood there: dates are confirmed, and the name of a preset may have been typed.
    const auto hear = [this](forms::ComboBox& box, const std::function<void(int)>& take) {
        connect(&box, &forms::Control::Clicked, this, [&box, take] {
            if (box.ListIndex() >= 0)
                take(box.ListIndex());
        });
    };
    follow(cboSheet, [this](int) { Repropose({.sheet = cboSheet.Text()}); });
    follow(cboDelimiter, [this](int at) {
        ListChoice choice = Lines();
        choice.delimiter = at < std::ssize(kDelimiters) ? QChar(kDelimiters[at].letter) : m_look.delimiter;
        choice.headingLine.reset();
        Repropose(choice);
    });
    follow(cboCodePage, [this](int) {
        ListChoice choice = Lines();
        choice.codePage = cboCodePage.Text();
        Repropose(choice);
    });
    hear(cboDates, [this](int at) {
        m_look.dates = static_cast<DateOrder>(at);
        m_datesOpen = false;
        m_datesSaid = true;
        ShowPreview();
    });
    hear(cboDecimal, [this](int at) {
        m_look.decimal = at == 1 ? u',' : u'.';
        m_decimalSaid = true;
        ShowPreview();
    });
    follow(cboField, [this](int) { TakeField(); });
    hear(cboPreset, [this](int) { TakePreset(); });
    connect(&txtHeadings, &forms::Control::LostFocus, this, &frm_ListColumns::TakeHeadings);
    connect(&grdcolumns, &forms::Grid::RowColChange, this, &frm_ListColumns::StandOnColumn);
    connect(&cmdKeep, &forms::Control::Clicked, this, &frm_ListColumns::cmdKeep_Click);
    connect(&cmdForget, &forms::Control::Clicked, this, &frm_ListColumns::cmdForget_Click);
    connect(&cmdGo, &forms::Control::Clicked, this, &frm_ListColumns::cmdGo_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_ListColumns::Unload);
}

void frm_ListColumns::FillChoices()
{
    const QScopedValueRollback showing(m_showing, true);
    QStringList delimiters;
    for (const Delimiter& one : kDelimiters)
        delimiters.append(QString::fromUtf16(one.words));
    cboDelimiter.SetItems(delimiters);
    cboSheet.SetItems(m_file->Sheets());
    cboCodePage.SetItems(CodePages());
    cboDates.SetItems(Words(kDates));
    cboDecimal.SetItems(Words(kDecimals));
    for (const store::CompsColumn& column : store::CompsColumns())
        if (column.name != fields::FRONTPHOTO && column.name != fields::PHOTOS)
            m_fields.append(column.name);
    std::ranges::sort(m_fields, {}, [](const QString& field) { return NameOfField(field).toUpper(); });
    m_fields.prepend({});
    QStringList names;
    for (const QString& field : std::as_const(m_fields))
        names.append(NameOfField(field));
    cboField.SetItems(names);
}

void frm_ListColumns::Form_Load()
{
    grdcolumns.SetColumns(ColumnRows::Columns());
    ShowPresets({});
    (void)Propose({.sheet = m_sheet});
    grdcolumns.SetFocus();
}

void frm_ListColumns::Form_Unload()
{
    grdcolumns.Rebind(nullptr);
    grdlines.Rebind(nullptr);
}

void frm_ListColumns::Tell(const QString& words, forms::Colour colour)
{
    lblmsg.Show(words, colour);
}

/// What was said about the lines so far; what hangs on the values is found out again.
ListChoice frm_ListColumns::Lines() const
{
    if (m_file->IsWorkbook())
        return {.sheet = m_look.sheet, .headingLine = m_look.headingLine};
    return {.delimiter = m_look.delimiter, .codePage = m_look.codePage, .headingLine = m_look.headingLine};
}

bool frm_ListColumns::Propose(const ListChoice& choice)
{
    try {
        const ListProposal proposal = LookAtList(m_desk, *m_file, choice);
        m_sample = SampleOf(*m_file, proposal.look, kSampleLines);
        m_look = proposal.look;
        m_before = m_look.columns;
        m_datesOpen = proposal.datesOpen;
        m_datesSaid = m_decimalSaid = false;
        grdcolumns.Rebind(&m_columns, 0);
        ShowLook();
        return true;
    } catch (const RuntimeError& failure) {
        Tell(failure.Description() + u'.', forms::Colour::Red);
        return false;
    }
}

bool frm_ListColumns::Repropose(ListChoice choice)
{
    if (Propose(choice))
        return true;
    const QString why = lblmsg.Caption();
    ShowLook(); // the boxes go back to how the list is read
    Tell(why, forms::Colour::Red);
    return false;
}

void frm_ListColumns::ShowLook()
{
    {
        const QScopedValueRollback showing(m_showing, true);
        const auto* const known = std::ranges::find(kDelimiters, m_look.delimiter.unicode(), &Delimiter::letter);
        const auto place = static_cast<int>(known - std::begin(kDelimiters));
        while (cboDelimiter.ListCount() > static_cast<int>(std::size(kDelimiters)))
            cboDelimiter.RemoveItem(cboDelimiter.ListCount() - 1);
        if (known == std::end(kDelimiters))
            cboDelimiter.AddItem(m_look.delimiter); // of a preset that was kept by hand
        cboDelimiter.SetListIndex(place);
        cboSheet.SetListIndex(cboSheet.IndexOf(m_look.sheet));
        cboCodePage.SetListIndex(cboCodePage.IndexOf(m_look.codePage));
        txtHeadings.SetText(QString::number(m_look.headingLine));
    }
    ShowWriting();
    ShowPreview();
}

void frm_ListColumns::ShowWriting()
{
    const QScopedValueRollback showing(m_showing, true);
    cboDates.SetListIndex(static_cast<int>(m_look.dates));
    cboDecimal.SetListIndex(m_look.decimal == u',' ? 1 : 0);
}

void frm_ListColumns::ShowPreview()
{
    m_preview = PreviewOf(m_sample, m_look, !m_file->IsWorkbook(), m_desk.ports.clock.Today());
    grdcolumns.Refresh();
    grdlines.Rebind(nullptr);
    grdlines.SetColumns(m_lines.Columns());
    grdlines.Rebind(&m_lines, m_lines.RowCount() > 0 ? 0 : -1);
    lstfaults.SetItems(m_preview.faults);
    lblFaults.SetVisible(m_preview.refused > 0);
    lstfaults.SetVisible(m_preview.refused > 0);
    if (m_preview.seen == 0) {
        Tell(kNoLines, forms::Colour::Red);
        ShowField();
        return;
    }
    const QString& words = m_preview.refused > 0 ? (m_sample.whole ? kSomeBad : kFirstBad) : m_sample.whole ? kWholeGood : kAllGood;
    const QString counted = words.arg(&words == &kWholeGood ? text::Dec(m_preview.seen) : kLines(m_preview.seen));
    const bool dates = m_datesOpen && std::ranges::any_of(m_preview.fields, [](const QString& field) { return IsDateField(field); });
    Tell((m_preview.refused > 0 ? counted.arg(m_preview.refused) : counted) + (dates ? kOpenDates : QString()),
         m_preview.refused > 0 || dates ? forms::Colour::Red : forms::Colour::Blue);
    ShowField();
}

void frm_ListColumns::StandOnColumn()
{
    m_before = m_look.columns;
    ShowField();
}

void frm_ListColumns::ShowField()
{
    const QScopedValueRollback showing(m_showing, true);
    const qint64 row = grdcolumns.Row();
    const bool there = row >= 0 && row < m_look.columns.size();
    cboField.SetEnabled(there);
    cboField.SetListIndex(there ? static_cast<int>(m_fields.indexOf(m_look.columns.at(row).field)) : -1);
}

} // namespace vasclip::upkeep
