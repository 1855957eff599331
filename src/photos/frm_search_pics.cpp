#include "photos/frm_search_pics.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "photos/content.h"
#include "photos/media_messages.h"
#include "photos/trash_messages.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

const QString kCaptions[] = {
    u"Orphan Search:  Searches For Records With Lost Photo References"_s,
    u"Time Search: Search For Images Saved To My Computer After The Specified Date And Time.  Slow But "
    u"Probably Accurate"_s,
    u"Search the Current Path Onward (Quicker)"_s,
    u"Whole Search: Search From The Whole Drive (Thorough But Slow)"_s,
};
constexpr int kShownAtOnce = 100; ///< of many, some at a time: a list that is redrawn for each takes long

/// By age and then by name: recent directories stand first.
bool NewerFirst(const QString& left, const QString& right)
{
    const QStringView leftAge = QStringView(left).right(kAgeDigits);
    const QStringView rightAge = QStringView(right).right(kAgeDigits);
    return leftAge != rightAge ? leftAge < rightAge : left < right;
}

} // namespace

frm_SearchPics::frm_SearchPics(const forms::Ports& ports, const files::Disk& disk,
                               const common::Globals& globals, Orphans orphans)
    : Screen(u"frm_SearchPics"_s)
    , folders(disk, controls, u"drive"_s, u"dir"_s)
    , files(controls, u"files"_s)
    , txtPictureType(controls, u"txtPictureType"_s)
    , txtAfter(controls, u"txtAfter"_s)
    , lblAfter(controls, u"lblAfter"_s)
    , lstfoundfiles(controls, u"lstfoundfiles"_s)
    , lstdirectory2(controls, u"lstdirectory2"_s)
    , optSearch(controls, u"optSearch"_s, 0, 3)
    , cmdSearch(controls, u"cmdSearch"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , lblSelect(controls, u"lblSelect"_s)
    , lblRecent(controls, u"lblRecent"_s)
    , lbldirectory(controls, u"lbldirectory"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_ports(ports)
    , m_disk(disk)
    , m_globals(globals)
    , m_orphans(std::move(orphans))
{
    SetCaption(u"Find Photos"_s);
    cmdSearch.SetCaption(u"&Find"_s);
    cmdCancel.SetCaption(u"E&xit"_s);
    cmdCancel.SetToolTipText(u"Stops the search, or closes the window"_s);
    lblSelect.SetCaption(u"Select the desired directory to display the images (in the main menu)."_s);
    lblRecent.SetCaption(u"The directories with the most recent image/photo files will list first"_s);
    lblAfter.SetCaption(u"Saved after"_s);
    txtPictureType.SetText(u"*.jpg;*.bmp"_s);
    lstfoundfiles.SetVisible(false);
    for (int i = optSearch.First(); i <= optSearch.Last(); ++i) {
        optSearch(i).SetCaption(kCaptions[i]);
        connect(&optSearch(i), &forms::Control::Clicked, this, [this, i] { Choose(i); });
    }
    connect(&folders, &DirLists::PathChanged, this, &frm_SearchPics::ListFiles);
    connect(&folders, &DirLists::Refused, this,
            [this] { m_ports.prompter.Box({}, kMediaUnreadable); });
    connect(&txtPictureType, &forms::Control::LostFocus, this, &frm_SearchPics::ListFiles);
    connect(&lstdirectory2, &forms::ListBox::ListIndexChanged, this, &frm_SearchPics::lstdirectory2_Click);
    connect(&lstdirectory2, &forms::Control::Clicked, this, &frm_SearchPics::lstdirectory2_Click);
    connect(&lstdirectory2, &forms::Control::DoubleClicked, this, [this] {
        lstdirectory2_Click();
        if (!m_showsOrphans && lstdirectory2.ListIndex() >= 0)
            Unload();
    });
    connect(&cmdSearch, &forms::Control::Clicked, this, &frm_SearchPics::cmdSearch_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_SearchPics::Unload);
}

void frm_SearchPics::Form_Load()
{
    const RoutineScope scope{"frm_SearchPics"};
    (void)folders.GoToFirst({m_globals.G_CaptureDir, m_globals.G_CaptureDir.left(2) + u'\\', u"C:\\"_s});
    lbldirectory.SetCaption(folders.Path());
    txtAfter.SetText(text::Format(m_ports.clock.Today().startOfDay(), u"m/d/yyyy"_s));
    Choose(CurrentPath);
    cmdSearch.SetFocus();
}

/// A search that runs is stopped; the window then stays for another.
bool frm_SearchPics::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_SearchPics::Choose(int option)
{
    for (int i = optSearch.First(); i <= optSearch.Last(); ++i)
        optSearch(i).SetValue(i == option);
    txtAfter.SetEnabled(option == TimeSearch);
}

frm_SearchPics::Search frm_SearchPics::Option() const
{
    for (int i = optSearch.First(); i <= optSearch.Last(); ++i) {
        if (optSearch(i).Value())
            return static_cast<Search>(i);
    }
    return CurrentPath;
}

void frm_SearchPics::ListFiles()
{
    QStringList names;
    common::Guarded(m_ports.prompter,
                    [&] { names = PictureNames(m_disk, folders.Path(), txtPictureType.Text()); });
    files.SetItems(names);
}

void frm_SearchPics::lstdirectory2_Click()
{
    if (m_showsOrphans || lstdirectory2.ListIndex() < 0)
        return;
    m_chosen = FoundPath(lstdirectory2.List(lstdirectory2.ListIndex()));
    lbldirectory.SetCaption(m_chosen);
}

void frm_SearchPics::cmdSearch_Click()
{
    const RoutineScope scope{"frm_SearchPics"};
    if (m_busy)
        return;
    SearchWish wish{.root = folders.Path(), .patterns = txtPictureType.Text()};
    const Search option = Option();
    if (option == TimeSearch) {
        const QDate today = m_ports.clock.Today();
        if (!common::IsDate(txtAfter.Text(), today)) {
            m_ports.prompter.Box({}, kEnterDate);
            txtAfter.SetFocus();
            return;
        }
        const QDateTime typed = *text::ReadDate(txtAfter.Text(), today);
        wish.after = QDateTime(typed.date(), typed.time()); // the wall clock's, as files have it
    }
    if (option == TimeSearch || option == WholeSearch)
        wish.root = folders.Path().left(2) + u'\\';
    const QScopedValueRollback<bool> busy(m_busy, true);
    m_stop = false;
    m_full = false;
    m_rows.clear();
    m_showsOrphans = option == OrphanSearch;
    ShowFound();
    cmdSearch.SetEnabled(false);
    const auto idle = qScopeGuard([this] { cmdSearch.SetEnabled(true); });
    if (option == OrphanSearch)
        SearchOrphans();
    else
        SearchDirectories(wish);
}

void frm_SearchPics::SearchDirectories(const SearchWish& wish)
{
    const QDateTime now = m_ports.clock.Now();
    const bool whole = SearchPictures(
        m_ports, m_disk, wish,
        [this](const QString& directory) {
            lblmsg.Show(u"Searching %1"_s.arg(directory), forms::Colour::Normal);
            return !m_stop;
        },
        [this, now](const FoundDirectory& found) { return Take(found, now); });
    ShowFound();
    const QString count = u"Directories found: %1"_s.arg(m_rows.size());
    if (m_full)
        m_ports.prompter.Box({}, kListFull);
    lblmsg.Show(whole ? count : u"Stopped. "_s + count, forms::Colour::Blue);
}

bool frm_SearchPics::Take(const FoundDirectory& found, const QDateTime& now)
{
    if (m_rows.size() >= m_listLimit) {
        m_full = true;
        return false;
    }
    const QString row = FoundRow(found, now);
    m_rows.insert(std::lower_bound(m_rows.begin(), m_rows.end(), row, NewerFirst), row);
    if (m_rows.size() < kShownAtOnce || m_rows.size() % kShownAtOnce == 0)
        ShowFound();
    return true;
}

/// The list may grow while the user reads it: the line that is selected stays so.
void frm_SearchPics::ShowFound()
{
    const QString selected = lstdirectory2.List(lstdirectory2.ListIndex());
    QStringList shown;
    for (const QString& row : std::as_const(m_rows))
        shown.append(FoundText(row));
    lstfoundfiles.SetItems(m_rows);
    lstdirectory2.SetItems(shown);
    if (!selected.isEmpty())
        lstdirectory2.SetListIndex(static_cast<int>(shown.indexOf(selected)));
}

void frm_SearchPics::SearchOrphans()
{
    lblmsg.Show(u"Comparing the records with %1"_s.arg(m_globals.G_PhotoDir), forms::Colour::Normal);
    QStringList lines;
    if (!common::Guarded(m_ports.prompter, [&] {
            lines = m_orphans([this] {
                m_ports.pump.DoEvents();
                return !m_stop;
            });
        }))
        return;
    lstdirectory2.SetItems(lines);
    lblmsg.Show((m_stop ? u"Stopped. "_s : QString()) + u"Lost photos and photos without a record: %1"_s.arg(
                                                             lines.size()),
                forms::Colour::Blue);
}

} // namespace vasclip::photos
