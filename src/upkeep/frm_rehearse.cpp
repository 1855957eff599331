#include "upkeep/frm_rehearse.h"

#include "common/paths.h"
#include "link/reporter.h"
#include "platform/text/counted.h"
#include "upkeep/file_screen.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr const char16_t* kChoices[] = {u"&Add it", u"&Keep mine", u"&Take theirs", u"&Fill my blanks"};
const text::Counted kRefusedKept{u"refused row stands in %1; mend it there and import that file."_s,
                                 u"refused rows stand in %1; mend them there and import that file."_s};

const QString kNoDifference = u"Both hold the same"_s;
const QString kNoFields = u"There is nothing to compare"_s;

} // namespace

frm_Rehearse::frm_Rehearse(const TransferDesk& desk, std::unique_ptr<Rehearsal> rehearsal)
    : Screen(u"frm_Rehearse"_s)
    , lblSource(controls, u"lblSource"_s)
    , lblSummary(controls, u"lblSummary"_s)
    , grdrows(controls, u"grdrows"_s)
    , grdfields(controls, u"grdfields"_s)
    , optChoice(controls, u"optChoice"_s, 0, 3)
    , ckbKind(controls, u"ckbKind"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdRefused(controls, u"cmdRefused"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdImport(controls, u"cmdImport"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_rehearsal(std::move(rehearsal))
    , m_rows(*m_rehearsal)
{
    SetCaption(u"Rehearse the Import"_s);
    lblSource.SetCaption(m_rehearsal->Source());
    for (int i = optChoice.First(); i <= optChoice.Last(); ++i) {
        optChoice(i).SetCaption(QString::fromUtf16(kChoices[i]));
        connect(&optChoice(i), &forms::Control::Clicked, this, [this, i] { Choose(i); });
    }
    ckbKind.SetCaption(u"For a&ll of this kind"_s);
    cmdRefused.SetCaption(u"&Save Refused Rows"_s);
    cmdRefused.SetToolTipText(u"Writes them with the reason into a CSV file, which can be mended and imported"_s);
    cmdStop.SetCaption(u"Cancel"_s);
    cmdImport.SetCaption(u"&Import"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    connect(&grdrows, &forms::Grid::RowColChange, this, &frm_Rehearse::ShowRow);
    connect(&cmdRefused, &forms::Control::Clicked, this, &frm_Rehearse::cmdRefused_Click);
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    connect(&cmdImport, &forms::Control::Clicked, this, &frm_Rehearse::cmdImport_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_Rehearse::Unload);
}

void frm_Rehearse::Form_Load()
{
    lblSummary.SetCaption(SummaryOf(*m_rehearsal));
    m_leftOut = m_rehearsal->Damage();
    lblmsg.Show(DamageWords(m_leftOut).trimmed(), forms::Colour::Red);
    grdrows.SetColumns(RehearsedRows::Columns());
    grdfields.SetColumns(FieldRows::Columns());
    grdrows.SetEmptyWords(u"The file has no rows"_s);
    grdrows.Rebind(&m_rows, m_rows.RowCount() > 0 ? 0 : -1);
    SetBusy(false);
    ShowRow();
}

void frm_Rehearse::Form_Unload()
{
    grdrows.Rebind(nullptr);
    grdfields.Rebind(nullptr);
}

/// An import under way ends first, and takes itself back.
bool frm_Rehearse::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

const RehearsedRow* frm_Rehearse::Current() const
{
    const qsizetype place = m_rows.PlaceOf(grdrows.Row());
    return place < 0 ? nullptr : &m_rehearsal->Rows().at(place);
}

void frm_Rehearse::ShowChoices()
{
    const RehearsedRow* row = Current();
    for (int i = optChoice.First(); i <= optChoice.Last(); ++i) {
        optChoice(i).SetValue(false); // the one that is on comes last: buttons of one group put each other out
        optChoice(i).SetEnabled(row && !m_busy && !m_over && Rehearsal::Fits(row->kind, static_cast<RowChoice>(i)));
    }
    if (row)
        optChoice(static_cast<int>(row->choice)).SetValue(true);
}

void frm_Rehearse::ShowRow()
{
    ShowChoices();
    const RehearsedRow* row = Current();
    grdfields.SetEmptyWords(row && row->kind == RowKind::Same ? kNoDifference : kNoFields);
    m_fields.Take(row ? m_rehearsal->FieldsOf(*row) : QList<FieldPair>());
    grdfields.Rebind(&m_fields, m_fields.RowCount() > 0 ? 0 : -1);
}

void frm_Rehearse::Choose(int choice)
{
    const RehearsedRow* row = Current();
    if (!row || m_busy || m_over)
        return;
    if (ckbKind.Value())
        m_rehearsal->ChooseAll(row->kind, static_cast<RowChoice>(choice));
    else
        m_rehearsal->Choose(m_rows.PlaceOf(grdrows.Row()), static_cast<RowChoice>(choice));
    grdrows.Refresh();
    ShowRow();
}

void frm_Rehearse::SetBusy(bool busy)
{
    m_busy = busy;
    m_stop = false;
    gauWork.SetCaption({});
    gauWork.SetRange(1);
    gauWork.SetVisible(busy);
    cmdStop.SetVisible(busy);
    cmdImport.SetEnabled(!busy && !m_over);
    cmdRefused.SetEnabled(!busy && m_rehearsal->Count(RowKind::Refused) > 0);
    ckbKind.SetEnabled(!busy && !m_over);
    ShowChoices(); // and reads nothing: the Databook may be what failed
}

/// After the source, and never one that is there: somebody may be mending it. Without dashes, which no import takes.
QString frm_Rehearse::NewRefusedFile() const
{
    static const QRegularExpression kEarlier(u"_REFUSED[0-9]*$"_s);
    const QString name = m_rehearsal->Source().section(u'\\', -1).toUpper();
    QString stem = name.left(name.lastIndexOf(u'.')).remove(kEarlier).remove(u'-');
    stem = common::CkRSlash(m_desk.globals.G_UserDir) + (stem.isEmpty() ? u"LIST"_s : stem) + u"_REFUSED"_s;
    QString file = stem + u".CSV"_s;
    for (int more = 2; m_desk.Disk().Found(file, files::ReadOnly | files::Hidden); ++more)
        file = stem + QString::number(more) + u".CSV"_s;
    return file;
}

void frm_Rehearse::cmdRefused_Click()
{
    if (m_busy)
        return;
    const QString file = NewRefusedFile();
    link::Reported(m_desk.ports.prompter, "cmdRefused", [&] {
        const qsizetype rows = m_rehearsal->WriteRefused(file);
        lblmsg.Show(kRefusedKept(rows).arg(file), forms::Colour::Blue);
    });
}

RehearsalResult frm_Rehearse::Carry()
{
    RehearsalResult result;
    SetBusy(true);
    cmdStop.SetFocus();
    const auto free = qScopeGuard([this] { SetBusy(false); });
    ReportedUnlessLocked(m_desk.ports.prompter, "cmdImport", [&] {
        const forms::Hourglass hourglass(m_desk.ports.window);
        result = m_rehearsal->Carry([this](qint64 done, qint64 of, const QString& words) {
            const int parts = static_cast<int>(std::clamp<qint64>(of, 1, 1000));
            if (gauWork.Max() != parts)
                gauWork.SetRange(parts);
            gauWork.SetValue(static_cast<int>(done * parts / std::max<qint64>(of, 1)));
            gauWork.SetCaption(words);
            m_desk.ports.pump.DoEvents();
            return !m_stop;
        });
    });
    m_over = result.done;
    return result;
}

void frm_Rehearse::cmdImport_Click()
{
    if (m_busy || m_over)
        return;
    const RehearsalResult result = Carry();
    m_done += result.added + result.changed;
    grdrows.Refresh(); // a row that could not be carried out says why
    if (result.done)
        m_leftOut = LeftOutOf(result);
    lblmsg.Show(WordsOf(result), result.done && m_leftOut.isEmpty() ? forms::Colour::Blue : forms::Colour::Red);
    if (m_over)
        ShowRow();
}

} // namespace vasclip::upkeep
