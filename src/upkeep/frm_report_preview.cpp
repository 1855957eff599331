#include "upkeep/frm_report_preview.h"

#include "common/error_block.h"
#include "upkeep/export_statement.h"
#include "upkeep/report_csv.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kSlice = 40; ///< milliseconds of counting at a time

struct ZoomRow
{
    QLatin1StringView words;
    int hundredths;
};
constexpr std::array kZooms{ZoomRow{"Whole page"_L1, 0}, ZoomRow{"Page width"_L1, -1},
                            ZoomRow{"50 %"_L1, 50},      ZoomRow{"75 %"_L1, 75},
                            ZoomRow{"100 %"_L1, 100},    ZoomRow{"150 %"_L1, 150},
                            ZoomRow{"200 %"_L1, 200},    ZoomRow{"300 %"_L1, 300}};
constexpr int kFirstNumber = 2; ///< of kZooms

} // namespace

frm_ReportPreview::frm_ReportPreview(const ReportDesk& desk, QString file, QString layoutName,
                                     QString statement)
    : Screen(u"frm_ReportPreview"_s)
    , cboLayout(controls, u"cboLayout"_s)
    , cboPaper(controls, u"cboPaper"_s)
    , optOrientation(controls, u"optOrientation"_s, 0, 1)
    , cmdFirst(controls, u"cmdFirst"_s)
    , cmdPrevious(controls, u"cmdPrevious"_s)
    , cmdNext(controls, u"cmdNext"_s)
    , cmdLast(controls, u"cmdLast"_s)
    , txtPage(controls, u"txtPage"_s)
    , lblPages(controls, u"lblPages"_s)
    , cboZoom(controls, u"cboZoom"_s)
    , txtFind(controls, u"txtFind"_s)
    , cmdFind(controls, u"cmdFind"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdPrint(controls, u"cmdPrint"_s)
    , cmdPDF(controls, u"cmdPDF"_s)
    , cmdCSV(controls, u"cmdCSV"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_file(std::move(file))
    , m_layoutName(std::move(layoutName))
    , m_statement(std::move(statement))
    , m_pictures(desk.disk, desk.globals.G_PhotoDir)
{
    SetCaption(u"Report Preview"_s);
    optOrientation(0).SetCaption(u"P&ortrait"_s);
    optOrientation(1).SetCaption(u"L&andscape"_s);
    cmdFirst.SetCaption(u"First"_s);
    cmdPrevious.SetCaption(u"P&revious"_s);
    cmdNext.SetCaption(u"&Next"_s);
    cmdLast.SetCaption(u"Last"_s);
    cmdFind.SetCaption(u"Find next"_s);
    cmdStop.SetCaption(u"&Stop"_s);
    cmdPrint.SetCaption(u"&Print"_s);
    cmdPDF.SetCaption(u"Save as P&DF"_s);
    cmdCSV.SetCaption(u"Save as &CSV"_s);
    cmdCSV.SetToolTipText(u"The same columns as a text file, for a spreadsheet"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    for (const ZoomRow& zoom : kZooms)
        cboZoom.AddItem(zoom.words);
    for (const QString& name : paper::PaperNames())
        cboPaper.AddItem(paper::PaperWords(name));
    cboZoom.SetListIndex(0);

    connect(&cmdFirst, &forms::Control::Clicked, this, [this] { ShowPage(1); });
    connect(&cmdPrevious, &forms::Control::Clicked, this, [this] { ShowPage(m_page - 1); });
    connect(&cmdNext, &forms::Control::Clicked, this, [this] { ShowPage(m_page + 1); });
    connect(&cmdLast, &forms::Control::Clicked, this, [this] {
        static_cast<void>(CountAll(cmdPrevious));
        ShowPage(Pages());
    });
    connect(&txtPage, &forms::Control::LostFocus, this, &frm_ReportPreview::ShowTypedPage);
    connect(&txtPage, &forms::Control::KeyPressed, this, [this](int key, int, bool& handled) {
        handled = key == 13;
        if (handled)
            ShowTypedPage();
    });
    connect(&cboZoom, &forms::ListBox::ListIndexChanged, this, &frm_ReportPreview::PageChanged);
    connect(&cboLayout, &forms::ListBox::ListIndexChanged, this, [this] {
        if (m_filling || cboLayout.ListIndex() < 0)
            return;
        m_opened = true;
        OpenNamed(m_names.value(cboLayout.ListIndex()));
    });
    // Chosen once more it is read anew: somebody edits it beside the preview.
    connect(&cboLayout, &forms::Control::Clicked, this, [this] {
        if (!std::exchange(m_opened, false))
            OpenNamed(m_names.value(cboLayout.ListIndex()));
    });
    connect(&cboPaper, &forms::ListBox::ListIndexChanged, this, &frm_ReportPreview::TakePaper);
    for (int i : {0, 1})
        connect(&optOrientation(i), &forms::CheckBox::Toggled, this, [this, i] {
            if (m_filling)
                return;
            if (!optOrientation(i).Value()) {
                if (!optOrientation(1 - i).Value()) // a choice is not taken back by its own click
                    optOrientation(i).SetValue(true);
                return;
            }
            optOrientation(1 - i).SetValue(false);
            TakePaper();
        });
    connect(&txtFind, &forms::Control::KeyPressed, this, [this](int key, int, bool& handled) {
        handled = key == 13;
        if (handled)
            FindNext(txtFind);
    });
    connect(&cmdFind, &forms::Control::Clicked, this, [this] { FindNext(cmdFind); });
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    const auto ifIdle = [this](auto emitter) {
        return [this, emitter] {
            if (m_busy)
                return;
            lblmsg.Show({}, forms::Colour::Normal); // of what was done before
            emitter();
        };
    };
    connect(&cmdPrint, &forms::Control::Clicked, this, ifIdle([this] { Q_EMIT PrinterWanted(); }));
    connect(&cmdPDF, &forms::Control::Clicked, this, ifIdle([this] { Q_EMIT FileWanted(u"pdf"_s); }));
    connect(&cmdCSV, &forms::Control::Clicked, this, ifIdle([this] { Q_EMIT FileWanted(u"csv"_s); }));
    connect(&cmdExit, &forms::Control::Clicked, this, [this] { Unload(); });
}

frm_ReportPreview::~frm_ReportPreview() = default;

void frm_ReportPreview::Form_Load()
{
    const RoutineScope scope{"frm_ReportPreview"};
    ListLayoutNames();
    OpenNamed(m_layoutName);
}

/// One may close while work goes on: it is stopped first, and what it made so far is taken back.
bool frm_ReportPreview::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_ReportPreview::ListLayoutNames()
{
    m_filling = true;
    for (const LayoutEntry& entry : ListLayouts(m_desk.disk, m_desk.globals)) {
        m_names.append(entry.name);
        cboLayout.AddItem(ShownName(entry));
    }
    cboLayout.SetListIndex(static_cast<int>(m_names.indexOf(m_layoutName)));
    m_filling = false;
}

/// A layout that is wrong, or was deleted meanwhile, leaves the one on show, and says so.
void frm_ReportPreview::OpenNamed(const QString& name)
{
    try {
        auto layout = std::make_unique<ReportLayout>(OpenLayout(m_desk.disk, m_desk.globals, name));
        auto table = std::make_unique<ReportTable>(m_desk.engine, m_file, *layout);
        m_view.reset();
        m_layout = std::move(layout);
        m_table = std::move(table);
        m_page = name == m_layoutName ? m_page : 1;
        m_layoutName = name;
        lblmsg.Show({}, forms::Colour::Normal);
    } catch (const RuntimeError& wrong) {
        if (!m_layout)
            throw;
        lblmsg.Show(wrong.Description(), forms::Colour::Red);
        m_filling = true;
        cboLayout.SetListIndex(static_cast<int>(m_names.indexOf(m_layoutName)));
        m_filling = false;
        return;
    }
    m_sheet = SheetOf(m_desk.disk, m_desk.globals, *m_layout);
    const QString search = SearchTextOf(m_statement);
    m_facts = {.now = m_desk.ports.clock.Now(),
               .count = m_table->Count(),
               .databook = m_desk.globals.G_DataFile,
               .search = Narrows(search) ? search : QString(),
               .company = m_desk.globals.companyName};
    m_filling = true;
    cboPaper.SetListIndex(static_cast<int>(paper::PaperNames().indexOf(m_sheet.name)));
    for (int i : {0, 1})
        optOrientation(i).SetValue(m_sheet.landscape == (i == 1));
    m_filling = false;
    Rebuild();
}

void frm_ReportPreview::TakePaper()
{
    if (m_filling || !m_layout || cboPaper.ListIndex() < 0)
        return;
    paper::Sheet sheet = m_sheet;
    sheet.name = paper::PaperNames().value(cboPaper.ListIndex());
    sheet.landscape = optOrientation(1).Value();
    if (sheet == m_sheet)
        return;
    m_sheet = sheet;
    lblmsg.Show(KeepSheet(m_desk.disk, m_desk.globals, *m_layout, m_sheet)
                    ? QString()
                    : u"This paper could not be remembered: %1 can't be written."_s.arg(
                          m_desk.globals.applicationIni),
                forms::Colour::Red);
    Rebuild();
}

void frm_ReportPreview::ChoosePaper(const QString& name, bool landscape)
{
    m_filling = true;
    cboPaper.SetListIndex(static_cast<int>(paper::PaperNames().indexOf(name)));
    for (int i : {0, 1})
        optOrientation(i).SetValue(landscape == (i == 1));
    m_filling = false;
    TakePaper();
}

/// The pages anew; the reader stays about where he was.
void frm_ReportPreview::Rebuild()
{
    m_view = std::make_unique<ReportView>(*m_layout, m_sheet, m_facts, m_table->Feed());
    m_view->CountSome(0);
    while (!m_view->Counted() && m_view->Pages() < m_page)
        m_view->CountSome(kSlice);
    ShowPage(m_page);
    Q_EMIT CountWanted();
}

bool frm_ReportPreview::CountSome()
{
    if (m_busy || !m_view)
        return !m_view;
    if (m_view->Counted())
        return true;
    const bool all = m_view->CountSome(kSlice);
    ShowCount();
    if (all)
        DrawPage(); // its foot can tell how many there are
    return all;
}

void frm_ReportPreview::ShowCount()
{
    lblPages.SetCaption((m_view->Counted() ? u"of %1"_s : u"of %1 and more"_s).arg(m_view->Pages()));
    cmdFirst.SetEnabled(m_page > 1);
    cmdPrevious.SetEnabled(m_page > 1);
    cmdNext.SetEnabled(m_page < m_view->Pages());
    cmdLast.SetEnabled(m_page < m_view->Pages() || !m_view->Counted());
}

void frm_ReportPreview::ShowPage(int number)
{
    if (!m_view)
        return;
    m_page = std::clamp(number, 1, std::max(1, m_view->Pages()));
    txtPage.SetText(QString::number(m_page));
    DrawPage();
}

/// The page on show, as it is by now; a number that is being typed stays.
void frm_ReportPreview::DrawPage()
{
    m_shown = m_view->PageAt(m_page).value_or(paper::Page());
    m_found = PlacesOf(m_shown, txtFind.Text().trimmed());
    ShowCount();
    Q_EMIT PageChanged();
}

/// What is no number leaves the page on show.
void frm_ReportPreview::ShowTypedPage()
{
    if (m_busy)
        return;
    bool number = false;
    const int typed = txtPage.Text().trimmed().toInt(&number);
    ShowPage(number ? typed : m_page);
}

int frm_ReportPreview::Zoom() const
{
    const int chosen = cboZoom.ListIndex();
    return chosen < 0 ? 0 : kZooms[static_cast<std::size_t>(chosen)].hundredths;
}

void frm_ReportPreview::ZoomBy(int steps)
{
    const int last = static_cast<int>(kZooms.size()) - 1;
    const int from = cboZoom.ListIndex() < kFirstNumber ? kFirstNumber + 1 : cboZoom.ListIndex();
    cboZoom.SetListIndex(std::clamp(from + steps, kFirstNumber, last));
}

QString frm_ReportPreview::SuggestedName() const
{
    return u"Report %1 %2"_s.arg(m_layoutName, m_facts.now.toString(u"yyyy-MM-dd"_s));
}

void frm_ReportPreview::TellNoPrinter()
{
    lblmsg.Show(
        u"This computer has no printer. Set one up in the system's settings, or save the report as a PDF."_s,
        forms::Colour::Red);
}

void frm_ReportPreview::TellOtherPaper(const QString& paper)
{
    lblmsg.Show(u"Reports are not laid out for %1, which the printer was set to. Choose a paper above. Nothing was printed."_s
                    .arg(paper),
                forms::Colour::Red);
}

} // namespace vasclip::upkeep
