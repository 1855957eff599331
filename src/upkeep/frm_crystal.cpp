#include "upkeep/frm_crystal.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/call_errors.h"
#include "upkeep/export_statement.h"
#include "upkeep/file_screen.h"
#include "upkeep/frm_report_preview.h"
#include "upkeep/layout_files.h"
#include "upkeep/report_question.h"
#include "upkeep/report_table.h"
#include "upkeep/target_file.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kLengths = 3;
const QString kTheLengthAbove = u"The length above"_s;
const QString kNarrowed = u"Quick find hides some of these records in the grid. All of them are printed."_s;

} // namespace

frm_Crystal::frm_Crystal(const ReportDesk& desk, const store::DataSource& datsql, QString statement,
                         bool narrowed)
    : Screen(u"frm_Crystal"_s)
    , datReport(desk.engine, u"datReport"_s)
    , optSelected(controls, u"optSelected"_s, 0, kLengths - 1)
    , cboLayout(controls, u"cboLayout"_s)
    , lblRecordCount(controls, u"lblRecordCount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdPrint(controls, u"cmdPrint"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_datsql(datsql)
    , m_statement(std::move(statement))
    , m_narrowed(narrowed)
{
    SetCaption(u"Report Print Options"_s);
    optSelected(0).SetCaption(u"Brief"_s);
    optSelected(1).SetCaption(u"Regular"_s);
    optSelected(2).SetCaption(u"Extended"_s);
    cmdPrint.SetCaption(u"&Print"_s);
    cmdPrint.SetToolTipText(
        u"Shows the pages as they will be on paper, to print them or to save them as a PDF"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    for (int i = 0; i < kLengths; ++i)
        connect(&optSelected(i), &forms::CheckBox::Toggled, this, [this, i] { optSelected_Click(i); });
    connect(&cboLayout, &forms::ListBox::ListIndexChanged, this, &frm_Crystal::cboLayout_Click);
    connect(&cmdPrint, &forms::Control::Clicked, this, &frm_Crystal::cmdPrint_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, [this] { Unload(); });
}

void frm_Crystal::Form_Load()
{
    const RoutineScope scope{"frm_Crystal"};
    lblRecordCount.SetCaption(QString::number(m_datsql.Bound() ? m_datsql.Count() : 0));
    ListOwnLayouts();
    optSelected(0).SetValue(true);
    if (m_narrowed)
        lblmsg.Show(kNarrowed, forms::Colour::Normal);
}

/// One that takes the place of a length is printed by that choice.
void frm_Crystal::ListOwnLayouts()
{
    cboLayout.Clear();
    cboLayout.AddItem(kTheLengthAbove);
    m_own = {QString()};
    const QList<LayoutEntry> entries = ListLayouts(m_desk.disk, m_desk.globals);
    for (qsizetype i = kLengths; i < entries.size(); ++i) {
        m_own.append(entries[i].name);
        cboLayout.AddItem(ShownName(entries[i]));
    }
    cboLayout.SetListIndex(0);
    cboLayout.SetEnabled(m_own.size() > 1);
    if (m_own.size() == 1)
        cboLayout.SetToolTipText(u"There are none in %1 yet; the guide tells how to make one."_s.arg(
            LayoutDirectory(m_desk.globals)));
}

int frm_Crystal::Chosen() const
{
    for (int i = 0; i < kLengths; ++i)
        if (optSelected(i).Value())
            return i;
    return -1;
}

QString frm_Crystal::LayoutName() const
{
    const int own = cboLayout.ListIndex();
    return own > 0 ? m_own.value(own) : SelectReportFiles(Chosen()).report.section(u'.', 0, 0);
}

void frm_Crystal::optSelected_Click(int chosen)
{
    if (!optSelected(chosen).Value()) {
        if (Chosen() < 0 && cboLayout.ListIndex() <= 0) // a choice is not taken back by its own click
            optSelected(chosen).SetValue(true);
        return;
    }
    for (int i = 0; i < kLengths; ++i)
        if (i != chosen)
            optSelected(i).SetValue(false);
    cboLayout.SetListIndex(0);
}

void frm_Crystal::cboLayout_Click()
{
    if (cboLayout.ListIndex() > 0) {
        for (int i = 0; i < kLengths; ++i)
            optSelected(i).SetValue(false);
    } else if (Chosen() < 0 && cboLayout.ListIndex() == 0) {
        optSelected(0).SetValue(true);
    }
}

void frm_Crystal::Release()
{
    CloseDatabasemdb(datReport);
    datReport.SetDatabaseName({});
    datReport.SetRecordSource({});
}

void frm_Crystal::cmdPrint_Click()
{
    const RoutineScope scope{"cmdPrint_Click"};
    const QString file = common::CkRSlash(m_desk.globals.G_UserDir) + SelectReportFiles(Chosen()).database;
    Release();
    lblmsg.Show({}, forms::Colour::Normal);
    try {
        static_cast<void>(OpenLayout(m_desk.disk, m_desk.globals, LayoutName()));
    } catch (const RuntimeError& wrong) {
        if (wrong.Number() != error::kInvalidCall && wrong.Number() != error::kFileNotFound)
            throw;
        lblmsg.Show(wrong.Description(), forms::Colour::Red);
        return;
    }
    // The database is let go on every way out.
    struct Closed
    {
        frm_Crystal& screen;
        ~Closed() { screen.Release(); }
    } const closed{*this};
    bool filled = false;
    {
        const forms::Hourglass hourglass(m_desk.ports.window);
        filled = ReportedUnlessLocked(m_desk.ports.prompter, "cmdPrint_Click", [&] {
            FillReport(m_desk.engine, file, m_desk.databook, m_desk.globals.G_Table,
                       SearchTextOf(m_statement));
            datReport.Open(file, u"Comps"_s, store::SourceKind::Query);
        });
    }
    if (!filled || !datReport.Bound() || !MayPrint(m_desk.ports.prompter, datReport.Count()))
        return;
    frm_ReportPreview preview(m_desk, file, LayoutName(), m_statement);
    m_desk.ports.screens.ShowModal(preview);
}

} // namespace vasclip::upkeep
