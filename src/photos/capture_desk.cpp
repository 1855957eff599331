#include "photos/capture_desk.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/text.h"

#include <QScopeGuard>

#include <algorithm>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLastThumb = CaptureControls::kThumbs - 1;
/// 1 MB for 100 pictures, and never more than this.
constexpr qsizetype kBytesOfAPicture = 10 * 1024;
constexpr qsizetype kMostBytes = qsizetype(32) * 1024 * 1024;

} // namespace

CaptureDesk::CaptureDesk(const CaptureBase& base, CaptureControls& controls,
                         std::unique_ptr<ThumbSource> source, std::unique_ptr<work::Workers> workers)
    : m_base(base)
    , m_controls(controls)
    , m_folder(base.disk)
    , m_workers(std::move(workers))
    , m_loader(std::move(source), *m_workers)
{
    m_controls.filCapture.SetSource(&m_folder);
    connect(&m_folder, &CaptureFolder::Changed, this, &CaptureDesk::News);
    connect(&m_folder, &CaptureFolder::Opened, this, &CaptureDesk::Opened);
    connect(&m_folder, &CaptureFolder::Polled, this, &CaptureDesk::LookAtBroken);
    connect(&m_controls.filCapture, &forms::ListBox::ListIndexChanged, this, &CaptureDesk::FollowHighlight);
    connect(&m_loader, &ThumbLoader::Arrived, this, &CaptureDesk::Arrived);
    connect(&m_loader, &ThumbLoader::Broken, this, &CaptureDesk::Broken);
    connect(&m_loader, &ThumbLoader::Settled, this,
            [this] { m_controls.lblRefreshing.SetVisible(!ListMode() && m_folder.Reading()); });
}

bool CaptureDesk::ListMode() const
{
    return text::Folded(m_base.globals.imageListBox) == "ON"_L1;
}

bool CaptureDesk::NamesOn() const
{
    return text::Folded(m_base.globals.imageFileNames) != "OFF"_L1;
}

QString CaptureDesk::PathOf(int row) const
{
    const QString name = m_folder.Line(row);
    return name.isEmpty() ? QString() : m_folder.Directory() + name;
}

QString CaptureDesk::SelectedFile() const
{
    return PathOf(m_controls.filCapture.ListIndex());
}

QString CaptureDesk::FileOfThumb(int index) const
{
    return m_base.loader.Table().ErrGetPict(m_controls.geathumb(index));
}

void CaptureDesk::StartBrowsing()
{
    const common::RoutineScope scope{"StartBrowsing"};
    m_browsing = true;
    DisplayCamera();
    m_folder.Watch();
}

/// Twelve thumbnails from the position on. With the list on show they stay as they are.
void CaptureDesk::errdisplayThumbs()
{
    const common::RoutineScope scope{"errdisplayThumbs"};
    if (!m_browsing)
        return;
    m_pressed = -1;
    forms::ListBox& list = m_controls.filCapture;
    const int last = list.ListCount() - 1;
    if (last < 0) {
        ClearThumb();
        TellPlace();
        return;
    }
    list.SetListIndex(std::clamp(list.ListIndex(), 0, last));
    if (ListMode()) {
        TellPlace();
        return;
    }
    const forms::Hourglass hourglass(m_base.ports.window);
    FillPage(FirstOfPage(m_turn, list.ListIndex(), last));
}

/// Records and names the files of a page and asks for their pictures. A file that is on show already takes
/// its picture along.
void CaptureDesk::FillPage(int first)
{
    m_first = std::clamp(first, 0, std::max(0, m_folder.Count() - 1));
    m_controls.filCapture.SetTopIndex(m_first);
    QHash<QString, Standing> standing;
    for (int i = 0; i <= kLastThumb; ++i) {
        const forms::PictureBox& thumb = m_controls.geathumb(i);
        if (thumb.Visible())
            standing.insert(FileOfThumb(i), {thumb.Picture(), thumb.WithoutPicture(), PixelsOfThumb(i)});
    }
    for (int i = 0; i <= kLastThumb; ++i) {
        const QString path = PathOf(m_first + i);
        if (path.isEmpty()) {
            ClearThumbAt(i);
            continue;
        }
        if (!standing.contains(path))
            m_loader.Renew(path);
        if (path != FileOfThumb(i) || !m_controls.geathumb(i).Visible())
            ShowThumb(i, path, standing.value(path));
    }
    DisplayImageLabels();
    AskForPictures();
    TellPlace();
}

void CaptureDesk::ShowThumb(int index, const QString& path, const Standing& standing)
{
    forms::PictureBox& thumb = m_controls.geathumb(index);
    m_base.loader.Table().ErrSetPict(thumb, path);
    if (standing.picture.isNull())
        thumb.ShowWithout(standing.without);
    else
        thumb.SetPicture(standing.picture);
    thumb.SetVisible(true);
    thumb.SetToolTipText(path);
    m_pixels[static_cast<std::size_t>(index)] = standing.pixels;
    ErrLoadLblTag(m_controls.lbltag(index), common::WholeFileName(path));
    MarkLarge(index);
}

/// The user can tell by the ground of the label which pictures will be reduced.
void CaptureDesk::MarkLarge(int index)
{
    const QSize pixels = PixelsOfThumb(index);
    const common::Globals& globals = m_base.globals;
    const bool large = pixels.width() > globals.resolX || pixels.height() > globals.resolY;
    m_controls.lbltag(index).SetBack(large ? forms::Ground::Yellow : forms::Ground::Window);
}

void CaptureDesk::ClearThumbAt(int index)
{
    m_base.loader.ErrClearPict(m_controls.geathumb(index));
    m_pixels[static_cast<std::size_t>(index)] = {};
    forms::Label& tag = m_controls.lbltag(index);
    ErrLoadLblTag(tag, {});
    tag.SetBack(forms::Ground::Window);
    tag.SetVisible(false);
}

void CaptureDesk::ClearThumb()
{
    for (int i = 0; i <= kLastThumb; ++i)
        ClearThumbAt(i);
    AskForPictures();
}

/// What is on show, and for the next turn of the page the files behind and before it.
void CaptureDesk::AskForPictures()
{
    if (!m_browsing)
        return;
    QStringList onShow;
    QStringList next;
    if (ListMode()) {
        if (const QString file = m_base.loader.Table().ErrGetPict(m_controls.filCapture); !file.isEmpty())
            onShow.append(file);
    } else {
        for (int i = 0; i <= kLastThumb; ++i)
            if (const QString file = FileOfThumb(i); !file.isEmpty())
                onShow.append(file);
        for (int i = 0; i <= kLastThumb; ++i)
            next.append(PathOf(m_first + kPageStep + i));
        for (int i = 1; i <= kPageStep; ++i)
            next.append(PathOf(m_first - i));
        next.removeAll(QString());
    }
    m_broken.clear();
    m_controls.lblRefreshing.SetVisible(!ListMode() && (!onShow.isEmpty() || m_folder.Reading()));
    m_loader.SetLimit(std::min(kMostBytes, kBytesOfAPicture * m_folder.Count()));
    m_loader.Show(onShow, next, ListMode() ? kPreviewPixels : kThumbPixels);
}

void CaptureDesk::Arrived(const QString& path, const Thumb& thumb)
{
    if (ListMode()) {
        if (path == m_base.loader.Table().ErrGetPict(m_controls.geaListBox))
            m_controls.geaListBox.SetPicture(thumb.image);
        return;
    }
    for (int i = 0; i <= kLastThumb; ++i) {
        if (path != FileOfThumb(i))
            continue;
        m_controls.geathumb(i).SetPicture(thumb.image);
        if (thumb.fullSize.isEmpty())
            continue;
        m_pixels[static_cast<std::size_t>(i)] = thumb.fullSize;
        MarkLarge(i);
    }
}

void CaptureDesk::Broken(const QString& path, const QString& why)
{
    try {
        m_broken.insert(path, {m_base.disk.FileLen(path), m_base.disk.FileDateTime(path)});
    } catch (const RuntimeError&) {
        m_broken.insert(path, {}); // gone meanwhile
    }
    if (ListMode()) {
        if (path == m_base.loader.Table().ErrGetPict(m_controls.geaListBox))
            m_controls.geaListBox.ShowWithout(forms::NoPicture::Broken);
        return;
    }
    for (int i = 0; i <= kLastThumb; ++i) {
        if (path != FileOfThumb(i))
            continue;
        m_controls.geathumb(i).ShowWithout(forms::NoPicture::Broken);
        m_controls.geathumb(i).SetToolTipText(why);
    }
}

/// A file that was still being written when it was read is read again once it has changed.
void CaptureDesk::LookAtBroken()
{
    const auto failed = m_broken;
    for (auto it = failed.cbegin(); it != failed.cend(); ++it) {
        try {
            if (QPair(m_base.disk.FileLen(it.key()), m_base.disk.FileDateTime(it.key())) == it.value())
                continue;
        } catch (const RuntimeError&) {
            continue;
        }
        m_broken.remove(it.key());
        m_loader.Again(it.key());
    }
}

void CaptureDesk::TellPlace()
{
    const int count = m_folder.Count();
    const int last = std::min(m_first + kPageStep, count);
    if (m_folder.Reading())
        m_controls.lblDirectory.SetCaption(u"Looking for pictures..."_s);
    else if (count == 0)
        m_controls.lblDirectory.SetCaption(u"No pictures"_s);
    else if (ListMode() || count <= kPageStep)
        m_controls.lblDirectory.SetCaption(count == 1 ? u"1 picture"_s : u"%1 pictures"_s.arg(count));
    else
        m_controls.lblDirectory.SetCaption(u"%1 to %2 of %3"_s.arg(m_first + 1).arg(last).arg(count));
    const bool more = count > (ListMode() ? 1 : kPageStep);
    const int row = ListMode() ? m_controls.filCapture.ListIndex() : m_first;
    const int end = ListMode() ? count - 1 : count - kPageStep;
    m_controls.imaScroll(0).SetEnabled(more && row > 0);
    m_controls.imaScroll(1).SetEnabled(more && row > 0);
    m_controls.imaScroll(2).SetEnabled(more && row < end);
    m_controls.imaScroll(3).SetEnabled(more && row < end);
}

void CaptureDesk::TurnPage(PageTurn turn)
{
    const common::RoutineScope scope{"lstPage"};
    forms::ListBox& list = m_controls.filCapture;
    const int last = list.ListCount() - 1;
    if (last < 0)
        return;
    const int p = std::clamp(list.ListIndex(), 0, last);
    if (!ListMode() && !list.Visible()) {
        list.SetListIndex(ThumbTurn(turn, p, last));
        return;
    }
    const int row = ListTurn(turn, p, last);
    list.SetTopIndex(row);
    list.SetListIndex(row);
    PreviewSelected();
}

void CaptureDesk::imaScroll_Click(int button)
{
    constexpr PageTurn kTurns[] = {PageTurn::First, PageTurn::Up, PageTurn::Down, PageTurn::Last};
    if (button < 0 || button > 3)
        return;
    m_turn = kTurns[button];
    const auto cleared = qScopeGuard([this] { m_turn = PageTurn::None; });
    TurnPage(m_turn);
    errdisplayThumbs();
    TellPlace();
}

void CaptureDesk::Test2PopulateThumbs()
{
    const forms::Hourglass hourglass(m_base.ports.window);
    m_refreshPending = false;
}

/// The names of a large or slow directory have come.
void CaptureDesk::Opened()
{
    m_controls.filCapture.SetSource(&m_folder);
    errdisplayThumbs();
    if (ListMode())
        PreviewSelected();
    TellPlace();
}

/// Others have changed the directory: the page keeps its first file, the list its selected one.
void CaptureDesk::News(const QStringList& before)
{
    forms::ListBox& list = m_controls.filCapture;
    const QString selected = before.value(list.ListIndex());
    const QString first = before.value(m_first);
    const int at = selected.isEmpty() ? -1 : std::min(m_folder.PlaceOf(selected), m_folder.Count() - 1);
    list.SourceChanged(at);
    if (!m_browsing)
        return;
    if (ListMode()) {
        ShowPreview();
        TellPlace();
        return;
    }
    // Pictures that come before a full first page would push it away; the first page stays the first.
    const int lastPage = std::max(0, m_folder.Count() - 1);
    FillPage(m_first == 0 ? 0 : std::min(m_folder.PlaceOf(first), lastPage));
}

void CaptureDesk::RefreshList()
{
    if (!m_browsing)
        return;
    const QStringList before = m_folder.Names();
    if (m_folder.Refresh())
        News(before);
}

void CaptureDesk::RefreshCapture()
{
    RefreshList();
    errdisplayThumbs();
}

} // namespace vasclip::photos
