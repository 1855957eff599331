#include "drops/router.h"
#include "drops/slot.h"
#include "platform/picture/picture.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <algorithm>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

// What a drag carries when it begins, and how it looks while it lasts.

bool Router::IsSource(const forms::Control& source) const
{
    const QString name = text::Folded(source.Name());
    const photos::SlotTable& table = m_desk.link.loader.Table();
    const auto matrix = Matrix();
    if (std::none_of(matrix.begin(), matrix.end(), [&](const DropRule& rule) { return rule.source == name; }))
        return false;
    if (&source == &m_desk.grddatabook)
        return m_desk.grddatabook.Row() >= 0;
    if (name == "FILCAPTURE"_L1)
        return !m_desk.capture.SelectedFile().isEmpty();
    if (name == "GEATHUMB"_L1)
        return source.Visible() && !table.ErrGetPict(source).isEmpty();
    if (name == "GEALISTBOX"_L1 || name == "GEAMAINTAIN"_L1)
        return !text::Trim(table.ErrGetPict(source)).isEmpty();
    if (PlaceOf(name) == Place::PhotoSlot)
        return !text::Trim(table.ErrGetPict(source)).isEmpty();
    if (name.startsWith("GEA"_L1) && PlaceOf(name) == Place::TextOrData) { // with the text of its slot
        const DropRule* rule = RuleFor(name, u"GRDDATABOOK"_s);
        return rule && !text::Trim(SlotOf(m_desk.link, {*rule->group, source.Index()}).text.Text()).isEmpty();
    }
    if (name == "MAPVIEW"_L1 || name == "GEAMAPPHOTO"_L1) // with the point that is selected
        return !KeyOf(source).isEmpty();
    if (name != "TXTMAPADDRESS"_L1 && name != "TXTMAPPROXIMITY"_L1 && PlaceOf(name) == Place::Elsewhere)
        return false;
    if (const auto* combo = qobject_cast<const forms::ComboBox*>(&source))
        return !text::Trim(combo->Text()).isEmpty();
    const auto* box = qobject_cast<const forms::TextBox*>(&source);
    return box != nullptr && !text::Trim(box->Text()).isEmpty();
}

QString Router::KeyOf(const forms::Control& source) const
{
    const QString name = text::Folded(source.Name());
    if (name == "GRDDATABOOK"_L1)
        return text::Trim(m_desk.grddatabook.CurrentText(fields::CENTRALKEY));
    if (name == "GEAMAINTAIN"_L1)
        return text::Folded(m_desk.txtcentralkey.Text());
    if (name.startsWith("TXTMAP"_L1) || name == "MAPVIEW"_L1 || name == "GEAMAPPHOTO"_L1)
        return text::Folded(m_desk.txtMapAddress.Text());
    return {};
}

void Router::SourceMouseDown()
{
    m_state.DragIcon = drops::DragIcon::Hand;
    m_overSource.clear();
    m_overTarget.clear();
}

void Router::TargetDragOverKel(const QString& source, const QString& target)
{
    if (!m_overTarget.isEmpty())
        m_state.DragIcon = IconOver(m_overSource, m_overTarget, false, m_state.DragIcon);
    if (!target.isEmpty())
        m_state.DragIcon = IconOver(source, target, true, m_state.DragIcon);
    m_overSource = source;
    m_overTarget = target;
}

Drag Router::Start(const forms::Control& source, int shift)
{
    const QString name = text::Folded(source.Name());
    m_state.DragSource = KindOfSource(name);
    QString refusal;
    if (name == "GEATHUMB"_L1) {
        refusal = m_desk.capture.MovedSincePress(source.Index());
        m_desk.capture.geathumb_MouseDown(source.Index());
    } else if (name == "FILCAPTURE"_L1) {
        m_desk.capture.filCapture_Click();
    }
    SourceMouseDown();
    QString picture;
    if (name == "FILCAPTURE"_L1)
        picture = m_desk.capture.SelectedFile();
    else if (qobject_cast<const forms::PictureBox*>(&source) != nullptr)
        picture = m_desk.link.loader.Table().ErrGetPict(source);
    m_state.DraggedPicture = text::Trim(picture).isEmpty() ? QString() : picture;
    if (m_state.DragSource == "KEL"_L1) {
        m_state.DragIndex = static_cast<qint16>(source.Index());
        m_state.DragShift = static_cast<qint16>(shift);
    }
    return {.source = source.Name(),
            .index = source.Index(),
            .key = KeyOf(source),
            .picture = photos::PointAt(m_desk.link.disk, m_state.DraggedPicture),
            .view = name == "GEAMAINTAIN"_L1 ? text::Trim(m_desk.link.lists.txtView.Text()) : QString(),
            .refusal = refusal,
            .text = name == "TXTMAPPROXIMITY"_L1 ? text::Trim(static_cast<const forms::TextBox&>(source).Text())
                                                 : QString()};
}

Drag Router::StartFiles(const QStringList& files)
{
    m_state.DragSource = KindOfSource(kFiles);
    SourceMouseDown();
    m_state.DraggedPicture = files.value(0);
    return {.source = kFiles, .picture = photos::PointAt(m_desk.link.disk, files.value(0)), .files = files};
}

void Router::DragOver(const QString& source, const QString& target)
{
    TargetDragOverKel(source, target);
    m_desk.link.status.lblmsg.Show(HintFor(source, target), forms::Colour::Normal);
}

QImage Router::DragIcon() const
{
    const bool drop = m_state.DragIcon == drops::DragIcon::Drop;
    const QString path = m_desk.link.globals.G_ProgramDir + (drop ? u"DropPict.Ico"_s : u"HandPict.Ico"_s);
    const files::Disk& disk = m_desk.link.disk;
    return disk.FileExists(path) ? QImage(disk.ToNative(path)) : QImage();
}

QString Router::PathOf(const forms::Control& source) const
{
    const QString name = text::Folded(source.Name());
    // What a data box shows is a lamp of the program, no picture.
    const bool lamp = name.startsWith("GEA"_L1) && link::GroupOf(name) != nullptr;
    if (lamp || !IsSource(source))
        return {};
    const QString path = name == "FILCAPTURE"_L1 ? m_desk.capture.SelectedFile()
                                                 : text::Trim(m_desk.link.loader.Table().ErrGetPict(source));
    return m_desk.link.disk.FileExists(path) ? path : QString();
}

QString Router::FileOf(const forms::Control& source) const
{
    const QString path = PathOf(source);
    return path.isEmpty() ? QString() : m_desk.link.disk.ToNative(path);
}

QImage Router::ImageOf(const forms::Control& source) const
{
    const QString path = PathOf(source);
    return path.isEmpty() ? QImage() : picture::Load(m_desk.link.disk, path);
}

} // namespace vasclip::drops
