#pragma once

#include "drops/router.h"

namespace vasclip::shell {

class Program;
class RecordOnShow;
class WindowWants;

/// Drags and drops on the main screen: what comes of them on the record on show and in the status line.
class Drags : public drops::DropShow
{
public:
    Drags(Program& program, RecordOnShow& shown, WindowWants& wants);

    [[nodiscard]] drops::Router& Router() { return m_router; }
    bool TakeRow(qint64 row, const QString& key) override;
    /// The status line tells of an outcome. Where what was done left the record on show, that comes back, or the one
    /// that has changed comes.
    void Told(const drops::Outcome& outcome) override;

private:
    Program& m_program;
    RecordOnShow& m_shown;
    WindowWants& m_wants;
    drops::Router m_router;
};

} // namespace vasclip::shell
