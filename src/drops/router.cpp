#include "drops/router.h"

#include "drops/actions.h"
#include "drops/send_record.h"
#include "drops/slot.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/slot_icons.h"
#include "link/tabs.h"
#include "link/talk.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

/// Does the row bring a slot of the report into the Databook?
static bool Saves(const DropRule& rule)
{
    return rule.action == DropAction::SaveData || rule.action == DropAction::SavePhoto ||
           rule.action == DropAction::SaveBoth;
}

Router::Router(DropDesk desk)
    : m_desk(std::move(desk))
{}

Router::Place Router::PlaceOf(const QString& target)
{
    const QString name = text::Folded(target);
    if (!link::GroupWithin(name) || name == "FRAADDACOMP"_L1 || name == "TXTADDACOMP"_L1)
        return Place::Elsewhere;
    if (name.startsWith("IMA"_L1))
        return Place::PhotoSlot;
    return name == "TXTSUBJECT"_L1 ? Place::Subject : Place::TextOrData;
}

bool Router::Accepts(const QString& source, const forms::Control& target) const
{
    const DropRule* rule = RuleFor(source, target.Name());
    if (!rule || !target.Enabled())
        return false;
    if (rule->action == DropAction::FileInRecord && m_desk.grddatabook.RowCount() == 0)
        return false;
    if (PlaceOf(target.Name()) == Place::Elsewhere)
        return true;
    if (link::SlotPageNotAvailable(m_desk.link.report, target.Name(), target.Index()))
        return false;
    // The photo and the data box of a comp that the form does not have stay enabled; its text slot does not.
    const SlotRef slot{*rule->group, target.Index()};
    return slot.group == Group::General || SlotOf(m_desk.link, slot).text.Enabled();
}

bool Router::CanStart(const forms::Control& source) const
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
    if (name != "TXTMAPADDRESS"_L1 && PlaceOf(name) == Place::Elsewhere)
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
        return text::Trim(m_desk.grddatabook.CurrentText(u"CENTRALKEY"_s));
    if (name == "GEAMAINTAIN"_L1)
        return text::Folded(m_desk.txtcentralkey.Text());
    if (name == "TXTMAPADDRESS"_L1 || name == "MAPVIEW"_L1 || name == "GEAMAPPHOTO"_L1)
        return text::Folded(m_desk.link.report.txtMapAddress.Text());
    return {};
}

void Router::SourceMouseDown()
{
    m_state.DragIcon = DragIcon::Hand;
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

Drag Router::Begin(const forms::Control& source, int shift)
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
            .refusal = refusal};
}

Drag Router::BeginFiles(const QStringList& files)
{
    m_state.DragSource = KindOfSource(kFiles);
    SourceMouseDown();
    m_state.DraggedPicture = files.value(0);
    return {.source = kFiles, .picture = photos::PointAt(m_desk.link.disk, files.value(0)), .files = files};
}

/// What was dragged may have been replaced, taken away or sent on since. @return why nothing may come of it
QString Router::Refusal(const Drag& drag) const
{
    if (!drag.refusal.isEmpty())
        return drag.refusal;
    if (PlaceOf(drag.source) == Place::PhotoSlot && !drag.picture.path.isEmpty()) {
        const DropRule* rule = RuleFor(drag.source, u"GRDDATABOOK"_s);
        const QString now =
            rule ? m_desk.link.loader.Table().ErrGetPict(SlotOf(m_desk.link, {*rule->group, drag.index}).photo)
                 : drag.picture.path;
        if (text::Folded(now) != text::Folded(drag.picture.path))
            return u"The slot shows another photo now than the one you dragged. Nothing was done."_s;
    }
    return photos::WhyAnother(m_desk.link.disk, drag.picture);
}

/// What the gauge says of a drop.
static QString AtWork(const DropRule& rule, const Drag& drag)
{
    if (Saves(rule))
        return link::messages::kSavingSlot;
    return drag.key.isEmpty() ? link::messages::kSendingSlots : link::messages::kSending.arg(drag.key);
}

/// In this order; what fails ends the drop.
std::optional<Outcome> Router::Guards(const Drag& drag, const DropRule& rule, forms::Control& target)
{
    link::LinkDesk& desk = m_desk.link;
    const Place place = PlaceOf(target.Name());
    if (place != Place::Elsewhere) {
        if (const link::ReportCheck check = link::CheckReport(desk); !check.Stands())
            return NotSent(check.words);
    }
    if (!Accepts(drag.source, target))
        return Outcome{};
    const bool alive = place == Place::PhotoSlot ||
                       (place == Place::Subject && text::Folded(drag.source) != "GRDDATABOOK"_L1);
    if (alive && !link::TestKelLabel(desk.addr)) {
        desk.ports.prompter.Box(desk.globals.productName, u"KEL is not active"_s);
        return Outcome{};
    }
    if (place != Place::PhotoSlot)
        return std::nullopt;
    const QString file =
        text::Trim(desk.loader.Table().ErrGetPict(SlotOf(desk, {*rule.group, target.Index()}).photo));
    if (file.isEmpty() ||
        desk.ports.prompter.YesNo(desk.globals.productName, u"Overwrite %1?  Are you sure?"_s.arg(file)))
        return std::nullopt;
    return Outcome{};
}

Outcome Router::Drop(const Drag& drag, forms::Control& target)
{
    const DropRule* rule = RuleFor(drag.source, target.Name());
    if (!rule)
        return {};
    // A turn of the queue can bring a drop into the middle of other work on the same slots and records.
    if (m_busy)
        return {false, u"What was sent or dropped before is still on its way. Try again in a moment."_s,
                forms::Colour::Red, {}};
    if (m_desk.link.state.refreshing)
        return {false, u"The report is being read. Try again in a moment."_s, forms::Colour::Red, {}};
    const QScopedValueRollback<bool> busy(m_busy, true);
    m_desk.link.state.notSent.clear();
    const link::Talking talking(m_desk.link, AtWork(*rule, drag));
    for (const bool asked : {false, true}) {
        if (const QString why = Refusal(drag); !why.isEmpty())
            return {false, why, forms::Colour::Red, {}};
        if (asked)
            break;
        if (const std::optional<Outcome> ended = Guards(drag, *rule, target))
            return *ended;
    }
    const forms::Hourglass hourglass(m_desk.link.ports.window);
    return Run(drag, target, *rule);
}

Outcome Router::Run(const Drag& drag, forms::Control& target, const DropRule& rule)
{
    const int index = target.Index();
    switch (rule.action) {
    case DropAction::SendViewOfIndex:
        return SendRecordView(m_desk, drag.key, rule, index, link::SubjectView(index));
    case DropAction::SendFrontView:
        return SendRecordView(m_desk, drag.key, rule, index, u"FRONT VIEW"_s);
    case DropAction::SendAskedView:
        return SendAskedView(m_desk, drag.key, rule, index);
    case DropAction::FileIntoSlot:
    case DropAction::FileIntoGeneral:
        return FilePictureIntoSlot(m_desk, drag, rule, index);
    case DropAction::SendShownPhoto:
    case DropAction::SendShownAsked:
        return SendShown(m_desk, drag, rule, index);
    case DropAction::ReplaceSubjectPhotos:
        return ReplaceSubjectPhotos(m_desk, drag.key);
    case DropAction::PasteCompAndPhoto:
        return SendRecord(m_desk.link, {*rule.group, index}, drag.key, WithPhoto::Yes);
    case DropAction::PasteComp:
        return SendRecord(m_desk.link, {*rule.group, index}, drag.key, WithPhoto::No);
    case DropAction::ShowInSubject:
        return ShowInSubject(m_desk, drag.picture.path);
    case DropAction::FileInRecord:
        return FileInRecord(m_desk, drag);
    case DropAction::SaveData:
    case DropAction::SavePhoto:
    case DropAction::SaveBoth:
        return SaveSlot(m_desk, drag, rule);
    case DropAction::AdviseGeneral:
        return AdviseGeneral(m_desk);
    case DropAction::FileUnderAddress:
        return Drop2CBOFromCamera(m_desk, drag);
    case DropAction::CopyBack:
        return CopyBack(m_desk, drag, rule);
    case DropAction::CopyIn:
        return CopyIn(m_desk, drag.files);
    case DropAction::ToTrash:
        return ToTrash(m_desk, drag);
    }
    return {};
}

} // namespace vasclip::drops
