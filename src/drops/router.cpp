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

#include <QFileInfo>
#include <QScopedValueRollback>

#include <utility>

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

Outcome Router::DropUntold(const Drag& drag, forms::Control& target)
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

Outcome Router::Tell(const Outcome& outcome)
{
    if (m_desk.show)
        m_desk.show->Told(outcome);
    return outcome;
}

Outcome Router::End(const Drag& drag, forms::Control& target)
{
    m_desk.link.status.lblmsg.Show({}, forms::Colour::Normal);
    return Tell(DropUntold(drag, target));
}

void Router::Drop(forms::Control& source, forms::Control& target)
{
    const Drag drag = std::exchange(m_drag, {});
    if (drag.source == source.Name() && drag.index == source.Index())
        End(drag, target);
}

void Router::DropFiles(const QStringList& files, forms::Control& target)
{
    QStringList paths;
    for (const QString& file : files)
        if (const auto path = m_desk.link.disk.ToDrivePath(file); path && QFileInfo(file).isFile())
            paths.append(*path);
    if (paths.isEmpty())
        Tell({false, u"Only picture files can be dropped here, no folders."_s, forms::Colour::Red, {}});
    else
        End(StartFiles(paths), target);
}

bool Router::AimsAtRow(const QString& source, const forms::Control& target) const
{
    const DropRule* rule = RuleFor(source, target.Name());
    return rule != nullptr && rule->action == DropAction::FileInRecord;
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
    case DropAction::SendProximity:
        return SendProximity(m_desk, drag, {*rule.group, index});
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
