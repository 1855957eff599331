#include "shell/drags.h"

#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

namespace {

drops::DropDesk DeskFor(Program& program, drops::DropShow& show)
{
    drops::DropDesk desk = program.Drops();
    desk.show = &show;
    return desk;
}

} // namespace

Drags::Drags(Program& program, RecordOnShow& shown, WindowWants& wants)
    : m_program(program)
    , m_shown(shown)
    , m_wants(wants)
    , m_router(DeskFor(program, *this))
{}

bool Drags::TakeRow(qint64 row, const QString& key)
{
    return m_shown.TakeRow(row, key);
}

void Drags::Told(const drops::Outcome& outcome)
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
}

} // namespace vasclip::shell
