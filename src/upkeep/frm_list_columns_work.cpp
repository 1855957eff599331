// What the user says of a list: where a column goes, where the headings stand, what is kept.

#include "upkeep/frm_list_columns.h"

#include "link/reporter.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kNoKey = u"No column goes into the address or the key, by which records are told apart. Choose one."_s;
const QString kNoName = u"Type a name for the preset first."_s;
const QString kReplace = u"There is a preset %1. Replace it?"_s;
const QString kForget = u"Delete the preset %1?"_s;
const QString kKept = u"Kept as %1."_s;
const QString kForgotten = u"The preset %1 was deleted."_s;
const QString kBadLine = u"\"%1\" is no number of a line. 0 means that the list has no headings."_s;

} // namespace

/// A field is filled by one column: it leaves the one that it had. Who goes on to another field, as the arrow keys do on their
/// way, gives it back.
void frm_ListColumns::TakeField()
{
    const qint64 row = grdcolumns.Row();
    const QString field = m_fields.value(cboField.ListIndex());
    if (row < 0 || row >= m_look.columns.size() || m_look.columns.at(row).field == field)
        return;
    m_look.columns = m_before;
    for (ListColumn& column : m_look.columns)
        if (column.field == field)
            column.field.clear();
    m_look.columns[row].field = field;
    GuessAgain();
    ShowPreview();
}

/// A column that is a date or a number now may tell how these are written.
void frm_ListColumns::GuessAgain()
{
    const auto dates = DatesOf(m_sample, m_look);
    if (!m_datesSaid) {
        m_look.dates = dates.value_or(m_look.dates);
        m_datesOpen = !dates;
    }
    if (!m_decimalSaid)
        m_look.decimal = DecimalOf(m_sample, m_look).value_or(m_look.decimal);
    ShowWriting();
}

/// @return false for a line that can't be taken, which is told
bool frm_ListColumns::TakeHeadings()
{
    if (m_showing)
        return true;
    bool number = false;
    const QString typed = text::Trim(txtHeadings.Text());
    ListChoice choice = Lines();
    choice.headingLine = typed.toLongLong(&number);
    if (number && *choice.headingLine == m_look.headingLine)
        return true;
    if (number && *choice.headingLine >= 0)
        return Repropose(choice);
    Tell(kBadLine.arg(typed), forms::Colour::Red);
    return false;
}

void frm_ListColumns::TakePreset()
{
    Repropose({.sheet = m_look.sheet, .preset = cboPreset.Text()});
}

void frm_ListColumns::ShowPresets(const QString& selected)
{
    const QScopedValueRollback showing(m_showing, true);
    cboPreset.SetItems(PresetNames(m_desk));
    cboPreset.SetText(selected);
}

void frm_ListColumns::cmdKeep_Click()
{
    const QString name = text::Trim(cboPreset.Text());
    if (name.isEmpty()) {
        Tell(kNoName, forms::Colour::Red);
        cboPreset.SetFocus();
        return;
    }
    if (PresetNames(m_desk).contains(name) && !m_desk.ports.prompter.YesNo({}, kReplace.arg(name)))
        return;
    if (link::Reported(m_desk.ports.prompter, "cmdKeep", [&] { KeepPreset(m_desk, name, m_look); }))
        Tell(kKept.arg(name), forms::Colour::Blue);
    ShowPresets(name);
}

void frm_ListColumns::cmdForget_Click()
{
    const QString name = text::Trim(cboPreset.Text());
    if (!PresetNames(m_desk).contains(name) || !m_desk.ports.prompter.YesNo({}, kForget.arg(name)))
        return;
    if (link::Reported(m_desk.ports.prompter, "cmdForget", [&] { ForgetPreset(m_desk, name); }))
        Tell(kForgotten.arg(name), forms::Colour::Blue);
    ShowPresets({});
}

void frm_ListColumns::cmdGo_Click()
{
    if (!TakeHeadings()) // its key leaves no box
        return;
    const bool known = std::ranges::any_of(m_look.columns, [](const ListColumn& column) {
        return column.field == fields::ADDRESS || column.field == fields::CENTRALKEY;
    });
    if (!known) {
        Tell(kNoKey, forms::Colour::Red);
        return;
    }
    if (!link::Reported(m_desk.ports.prompter, "cmdGo", [&] { KeepColumns(m_desk, m_look); }))
        return;
    m_accepted = true;
    Unload();
}

} // namespace vasclip::upkeep
