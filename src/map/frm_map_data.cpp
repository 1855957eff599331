#include "map/frm_map_data.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "map/map_data_words.h"
#include "map/moved_records.h"
#include "platform/street/geocode.h"
#include "platform/street/map_change.h"
#include "platform/street/map_data.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace words = mapdata_words;

namespace {

constexpr int kTurnMs = 20;
const QString kAccountFile = u"MapImport.txt"_s;

QStringList FirstLines(const QString& nativeFile, int most)
{
    QStringList lines;
    QFile file(nativeFile);
    if (!file.open(QIODevice::ReadOnly))
        return lines;
    QTextStream text(&file);
    while (!text.atEnd() && lines.size() < most)
        lines.append(text.readLine());
    if (!text.atEnd())
        lines.append(words::kMoreLines);
    return lines;
}

} // namespace

/// Long work: the buttons wait, the gauge and the button that stops are there.
class frm_MapData::Work
{
public:
    explicit Work(frm_MapData& screen)
        : m_screen(screen)
    {
        m_screen.m_busy = true;
        m_screen.m_stop = false;
        m_screen.gauWork.SetRange(1);
        m_screen.gauWork.SetVisible(true);
        m_screen.cmdStop.SetVisible(true);
        m_screen.EnableButtons();
        m_screen.cmdStop.SetFocus();
    }
    ~Work()
    {
        m_screen.m_busy = false;
        m_screen.gauWork.SetVisible(false);
        m_screen.cmdStop.SetVisible(false);
        m_screen.gauWork.SetCaption({});
        m_screen.EnableButtons();
        m_screen.grdmaps.SetFocus();
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    frm_MapData& m_screen;
};

frm_MapData::frm_MapData(const MapDataDesk& desk)
    : Screen(u"frm_MapData"_s)
    , lblDirectory(controls, u"lblDirectory"_s)
    , lblTotal(controls, u"lblTotal"_s)
    , grdmaps(controls, u"grdmaps"_s)
    , cmdVerify(controls, u"cmdVerify"_s)
    , cmdRemove(controls, u"cmdRemove"_s)
    , lstsources(controls, u"lstsources"_s)
    , cmdFile(controls, u"cmdFile"_s)
    , cmdFolder(controls, u"cmdFolder"_s)
    , cmdTakeOut(controls, u"cmdTakeOut"_s)
    , txtcounty(controls, u"txtcounty"_s)
    , txtstate(controls, u"txtstate"_s)
    , ckbBeside(controls, u"ckbBeside"_s)
    , cmdImport(controls, u"cmdImport"_s)
    , lblBeside(controls, u"lblBeside"_s)
    , cmdDiff(controls, u"cmdDiff"_s)
    , cmdUse(controls, u"cmdUse"_s)
    , cmdDiscard(controls, u"cmdDiscard"_s)
    , lblAccount(controls, u"lblAccount"_s)
    , lstaccount(controls, u"lstaccount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
{
    SetCaption(u"Map Data"_s);
    cmdVerify.SetCaption(u"&Verify"_s);
    cmdVerify.SetToolTipText(u"Reads every map whole, and says which is damaged"_s);
    cmdRemove.SetCaption(u"&Remove"_s);
    cmdFile.SetCaption(u"Add &File..."_s);
    cmdFolder.SetCaption(u"Add Fol&der..."_s);
    cmdTakeOut.SetCaption(u"&Take Out"_s);
    txtstate.SetMaxLength(2);
    ckbBeside.SetCaption(u"&Keep beside the maps in use at first"_s);
    ckbBeside.SetToolTipText(u"So that you can see which records would move before the new maps are used"_s);
    cmdImport.SetCaption(u"&Import"_s);
    cmdDiff.SetCaption(u"What &Moves"_s);
    cmdDiff.SetToolTipText(u"Lists the records that would stand more than 300 feet from where they stand"_s);
    cmdUse.SetCaption(u"&Use New Maps"_s);
    cmdDiscard.SetCaption(u"Discard New M&aps"_s);
    cmdStop.SetCaption(u"Cancel"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    connect(&grdmaps, &forms::Grid::RowColChange, this, &frm_MapData::EnableButtons);
    connect(&lstsources, &forms::ListBox::ListIndexChanged, this, &frm_MapData::EnableButtons);
    connect(&cmdFile, &forms::Control::Clicked, this, [this] {
        AddSource(m_desk.map.ports.prompter.OpenDialog(words::kFileKinds, words::kChooseFile,
                                                       m_desk.map.globals.G_UserDir));
    });
    connect(&cmdFolder, &forms::Control::Clicked, this, [this] {
        AddSource(m_desk.map.ports.prompter.ChooseDirectory(words::kChooseFolder, m_desk.map.globals.G_UserDir));
    });
    connect(&cmdTakeOut, &forms::Control::Clicked, this, [this] {
        if (lstsources.ListIndex() >= 0)
            lstsources.RemoveItem(lstsources.ListIndex());
        EnableButtons();
    });
    connect(&cmdImport, &forms::Control::Clicked, this, &frm_MapData::cmdImport_Click);
    connect(&cmdVerify, &forms::Control::Clicked, this, &frm_MapData::cmdVerify_Click);
    connect(&cmdRemove, &forms::Control::Clicked, this, &frm_MapData::cmdRemove_Click);
    connect(&cmdDiff, &forms::Control::Clicked, this, &frm_MapData::cmdDiff_Click);
    connect(&cmdUse, &forms::Control::Clicked, this, &frm_MapData::cmdUse_Click);
    connect(&cmdDiscard, &forms::Control::Clicked, this, &frm_MapData::cmdDiscard_Click);
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_MapData::Unload);
}

void frm_MapData::Form_Load()
{
    lblDirectory.SetCaption(words::kMapsIn.arg(m_desk.shown));
    grdmaps.SetColumns(MapColumns());
    grdmaps.SetEmptyWords(words::kNoMaps);
    ShowLines(words::kAccount, {words::kNoImport});
    Reload();
}

bool frm_MapData::QueryUnload()
{
    m_stop = true; // what is under way ends first, and leaves the maps as they were
    return !m_busy;
}

void frm_MapData::Form_Unload()
{
    grdmaps.Rebind(nullptr);
}

void frm_MapData::AddSource(const QString& drivePath)
{
    if (!drivePath.isEmpty() && lstsources.IndexOf(drivePath) < 0)
        lstsources.AddItem(drivePath);
    EnableButtons();
}

void frm_MapData::Reload()
{
    const street::MapData maps(m_desk.directory);
    const QString selected = Selected();
    m_rows.Take(maps.Counties(), m_desk.checked);
    qint64 row = 0;
    for (qint64 at = 0; at < m_rows.RowCount(); ++at)
        if (m_rows.Row(at).value(0) == selected)
            row = at;
    grdmaps.Rebind(&m_rows, m_rows.RowCount() > 0 ? row : -1);
    lblTotal.SetCaption(maps.IsOpen() ? TotalOf(maps.Counties()) : words::kNoMaps);
    const QStringList beside = street::MapsBeside(m_desk.directory);
    lblBeside.SetCaption(beside.isEmpty() ? words::kNoneBeside : words::kBeside.arg(beside.join(u", "_s)));
    EnableButtons();
}

QString frm_MapData::Selected() const
{
    return m_rows.Row(grdmaps.Row()).value(0);
}

void frm_MapData::EnableButtons()
{
    const bool maps = m_rows.RowCount() > 0 && !m_busy;
    const bool beside = street::HasMapsBeside(m_desk.directory) && !m_busy;
    cmdVerify.SetEnabled(maps);
    cmdRemove.SetEnabled(maps && grdmaps.Row() >= 0);
    cmdDiff.SetEnabled(maps || beside);
    cmdUse.SetEnabled(beside);
    cmdDiscard.SetEnabled(beside);
    cmdImport.SetEnabled(!m_busy && lstsources.ListCount() > 0);
    cmdTakeOut.SetEnabled(!m_busy && lstsources.ListIndex() >= 0);
    for (forms::Control* control : {static_cast<forms::Control*>(&cmdFile), static_cast<forms::Control*>(&cmdFolder),
                                    static_cast<forms::Control*>(&txtcounty), static_cast<forms::Control*>(&txtstate),
                                    static_cast<forms::Control*>(&ckbBeside)})
        control->SetEnabled(!m_busy);
}

void frm_MapData::Tell(const QString& words, forms::Colour colour)
{
    lblmsg.Show(words, colour);
}

void frm_MapData::ShowLines(const QString& heading, const QStringList& lines)
{
    lblAccount.SetCaption(heading);
    lstaccount.SetItems(lines);
}

bool frm_MapData::Step(qint64 done, qint64 of, const QString& words)
{
    const int parts = static_cast<int>(std::clamp<qint64>(of, 1, 1000));
    if (gauWork.Max() != parts)
        gauWork.SetRange(parts);
    gauWork.SetValue(of > 0 ? static_cast<int>(done * parts / of) : 0);
    gauWork.SetCaption(words);
    m_desk.map.ports.pump.DoEvents();
    return !m_stop;
}

void frm_MapData::cmdImport_Click()
{
    const common::RoutineScope scope{"MapData Import"};
    if (m_busy || lstsources.ListCount() == 0)
        return;
    const QString account = common::CkRSlash(m_desk.map.globals.G_UserDir) + kAccountFile;
    street::ImportOrder order;
    order.directory = m_desk.directory;
    order.county = text::Trim(txtcounty.Text());
    order.state = text::Folded(txtstate.Text());
    order.account = m_desk.map.disk.ToNative(account);
    order.placing = ckbBeside.Value() ? street::Placing::Beside : street::Placing::InUse;
    for (const QString& source : lstsources.Items())
        order.sources.append(m_desk.map.disk.ToNative(source));
    Tell({}, forms::Colour::Normal);
    ShowLines(words::kAccount, {});
    QFile::remove(order.account); // what is shown is this import's
    street::ImportResult result;
    {
        const Work work(*this);
        street::MapImport import(order, [this](int done, int of, const QString& what) { (void)Step(done, of, what); });
        while (import.GoesOn(kTurnMs)) {
            m_desk.map.ports.pump.DoEvents();
            if (m_stop)
                import.Stop();
        }
        result = import.Result();
    }
    ShowImport(result, account);
    if (result.ending != street::ImportResult::Ending::Done)
        return;
    lstsources.Clear();
    if (order.placing == street::Placing::InUse)
        m_desk.changed();
    Reload();
}

void frm_MapData::ShowImport(const street::ImportResult& result, const QString& account)
{
    using Ending = street::ImportResult::Ending;
    const QString file = m_desk.map.disk.ToNative(account);
    QStringList lines = ImportLines(result);
    const QStringList all = FirstLines(file, kShownLines);
    if (!all.isEmpty())
        lines += QStringList{{}, words::kLineByLine.arg(account)} + all;
    ShowLines(words::kAccount, lines);
    const QString kept = all.isEmpty() ? QString() : words::kKeptIn.arg(account);
    if (result.ending == Ending::Done)
        Tell((ckbBeside.Value() ? words::kImportedBeside : words::kImported).arg(result.taken.join(u", "_s)) + kept,
             forms::Colour::Blue);
    else if (result.ending == Ending::Stopped)
        Tell(words::kStopped, forms::Colour::Blue);
    else
        Tell(words::kFailed.arg(ForScreen(result.problem)), forms::Colour::Red);
}

void frm_MapData::cmdVerify_Click()
{
    const common::RoutineScope scope{"MapData Verify"};
    if (m_busy)
        return;
    QStringList problems;
    {
        const Work work(*this);
        const street::MapData maps(m_desk.directory);
        problems = street::VerifyMaps(m_desk.directory, [&](qint64 read, qint64 all, const QString& county) {
            return Step(read, all, words::kReading.arg(county));
        });
        if (!m_stop)
            for (const street::CountyRecord& record : maps.Counties())
                m_desk.checked.insert(record.checksum, FaultOf(problems, record.info.county));
    }
    Reload();
    ShowLines(words::kFaults, problems.isEmpty() && !m_stop ? QStringList{words::kNothing} : problems);
    if (m_stop)
        Tell(words::kVerifyStopped, forms::Colour::Blue);
    else if (problems.isEmpty())
        Tell(words::kAllWhole, forms::Colour::Blue);
    else
        Tell(words::kDamaged.arg(problems.size()), forms::Colour::Red);
}

void frm_MapData::cmdRemove_Click()
{
    const common::RoutineScope scope{"MapData Remove"};
    const QString county = Selected();
    if (m_busy || county.isEmpty() ||
        !m_desk.map.ports.prompter.YesNo(words::kRemoveTitle, words::kRemove.arg(county)))
        return;
    QString problem;
    street::MapChange change(m_desk.directory);
    if (!change.Begin(problem) || !change.Remove(county) || !change.Commit(problem)) {
        Tell(words::kNotRemoved.arg(county, problem.isEmpty() ? words::kGoneAlready : problem), forms::Colour::Red);
    } else {
        m_desk.changed();
        Tell(words::kRemoved.arg(county), forms::Colour::Blue);
    }
    Reload();
}

void frm_MapData::cmdDiff_Click()
{
    const common::RoutineScope scope{"MapData Diff"};
    if (m_busy)
        return;
    MoveTally tally;
    const bool beside = street::HasMapsBeside(m_desk.directory);
    {
        const Work work(*this);
        const street::MapData inUse(m_desk.directory);
        const street::MapGeocoder before(inUse);
        const auto step = [this](qint64 seen, qint64 of) { return Step(seen, of, words::kComparing.arg(seen).arg(of)); };
        if (beside) {
            const street::MapData next(m_desk.directory, {}, street::kBesideName);
            const street::MapGeocoder after(next);
            tally = CompareMaps(m_desk.map, &before, after, step);
        } else {
            tally = CompareMaps(m_desk.map, nullptr, before, step);
        }
    }
    QStringList lines;
    for (const MovedRecord& record : std::as_const(tally.moved))
        lines.append(WordsOf(record));
    ShowLines(beside ? words::kWouldMove : words::kHaveMoved, lines.isEmpty() ? QStringList{words::kNoRecord} : lines);
    Tell(WordsOf(tally), tally.moved.isEmpty() ? forms::Colour::Blue : forms::Colour::Red);
}

void frm_MapData::cmdUse_Click()
{
    const common::RoutineScope scope{"MapData Use"};
    if (m_busy)
        return;
    QString problem;
    if (street::UseMapsBeside(m_desk.directory, problem)) {
        m_desk.changed();
        Tell(words::kInUse, forms::Colour::Blue);
    } else {
        Tell(words::kFailed.arg(problem), forms::Colour::Red);
    }
    Reload();
}

void frm_MapData::cmdDiscard_Click()
{
    const common::RoutineScope scope{"MapData Discard"};
    if (m_busy || !m_desk.map.ports.prompter.YesNo(words::kDiscardTitle, words::kDiscard))
        return;
    QString problem;
    if (street::DropMapsBeside(m_desk.directory, problem))
        Tell(words::kDiscarded, forms::Colour::Blue);
    else
        Tell(words::kFailed.arg(problem), forms::Colour::Red);
    Reload();
}

} // namespace vasclip::map
