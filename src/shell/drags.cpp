#include "shell/drags.h"

#include "common/error_block.h"
#include "drops/router.h"
#include "drops/slot_menus.h"
#include "drops/swap_slots.h"
#include "photos/capture_desk.h"
#include "platform/picture/picture.h"
#include "platform/text/text.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

Drags::Drags(Program& program, RecordOnShow& shown, WindowWants& wants)
    : m_program(program)
    , m_shown(shown)
    , m_wants(wants)
    , m_router(std::make_unique<drops::Router>(program.Drops()))
{}

Drags::~Drags() = default;

bool Drags::CanStart(const forms::Control& source) const
{
    return m_router->CanStart(source);
}

drops::Drag Drags::Begin(const forms::Control& source, int shift)
{
    return m_router->Begin(source, shift);
}

bool Drags::Accepts(const QString& sourceName, const forms::Control& target) const
{
    return m_router->Accepts(sourceName, target);
}

drops::Outcome Drags::Drop(const drops::Drag& drag, forms::Control& target)
{
    m_program.status.lblmsg.Show({}, forms::Colour::Normal);
    return Told(m_router->Drop(drag, target));
}

drops::Outcome Drags::DropFiles(const QStringList& files, forms::Control& target)
{
    if (files.isEmpty())
        return Told(
            {false, u"Only picture files can be dropped here, no folders."_s, forms::Colour::Red, {}});
    m_program.status.lblmsg.Show({}, forms::Colour::Normal);
    return Told(m_router->Drop(m_router->BeginFiles(files), target));
}

drops::Outcome Drags::SwapComps(int target, int source)
{
    drops::DropDesk desk = m_program.Drops();
    return Told(drops::SwapSlots(desk, target, source));
}

drops::Outcome Drags::Told(drops::Outcome outcome)
{
    Q_EMIT m_wants.LinkLookWanted();
    const QString said = m_program.status.lblmsg.Caption();
    const forms::Colour colour = m_program.status.lblmsg.Fore();
    if (outcome.done && !outcome.record.isEmpty())
        m_shown.ShowRecord(outcome.record);
    else if (!outcome.stayed && m_program.records.grddatabook.Row() < 0 && !m_shown.Key().isEmpty())
        m_shown.ShowPhoto(); // of a record that the grid leaves out
    else if (!outcome.stayed)
        m_shown.grddatabook_RowColChange();
    if (!outcome.message.isEmpty())
        m_program.status.lblmsg.Show(outcome.message, outcome.colour);
    else if (outcome.done && !said.isEmpty())
        m_program.status.lblmsg.Show(said, colour);
    return outcome;
}

void Drags::DragOver(const QString& sourceName, const QString& targetName)
{
    m_router->TargetDragOverKel(sourceName, targetName);
    m_program.status.lblmsg.Show(drops::HintFor(sourceName, targetName), forms::Colour::Normal);
}

QImage Drags::DragPicture() const
{
    const bool drop = m_router->State().DragIcon == drops::DragIcon::Drop;
    const QString path = m_program.globals.G_ProgramDir + (drop ? u"DropPict.Ico"_s : u"HandPict.Ico"_s);
    return m_program.Disk().FileExists(path) ? QImage(m_program.Disk().ToNative(path)) : QImage();
}

QString Drags::FileOf(const forms::Control& source) const
{
    const QString name = text::Folded(source.Name());
    // What a data box shows is a lamp of the program, no picture.
    const bool lamp = name.startsWith(u"GEA"_s) && link::GroupOf(name) != nullptr;
    if (lamp || !m_router->CanStart(source))
        return {};
    const QString path = name == u"FILCAPTURE"_s ? m_program.Capture().SelectedFile()
                                                 : text::Trim(m_program.SlotTable().ErrGetPict(source));
    return m_program.Disk().FileExists(path) ? path : QString();
}

QString Drags::NativeFileOf(const forms::Control& source) const
{
    const QString path = FileOf(source);
    return path.isEmpty() ? QString() : m_program.Disk().ToNative(path);
}

QImage Drags::ImageOf(const forms::Control& source) const
{
    const QString path = FileOf(source);
    return path.isEmpty() ? QImage() : picture::Load(m_program.Disk(), path);
}

} // namespace vasclip::shell
