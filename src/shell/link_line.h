#pragma once

#include "link/link_state.h"

#include <QObject>

namespace vasclip::shell {

class Program;
class RecordOnShow;
class WindowWants;

/// The report on show and the line that tells how it stands with the forms program.
class LinkLine : public QObject
{
    Q_OBJECT
public:
    using Sees = link::LinkWatch::Sees;

    LinkLine(Program& program, RecordOnShow& shown, WindowWants& wants);

    void RefreshAppraisal();
    /// Somebody has looked how the forms program is doing; the window's line on the link follows.
    void LinkSeen(Sees sees, const QString& words);
    void LaunchAppraisalProgram();

private:
    void ShowLink();
    void cmdLink_Click();

    Program& m_program;
    RecordOnShow& m_shown;
    WindowWants& m_wants;
    Sees m_sees = Sees::Nothing;
    QString m_seenWords;
    link::LinkHelp m_help = link::LinkHelp::None;
};

} // namespace vasclip::shell
