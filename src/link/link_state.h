#pragma once

#include "link/link_desk.h"
#include "platform/conduit/link_watch.h"

namespace vasclip::link {

/// What the window offers beside the state of the link.
enum class LinkHelp { None, Refresh, StartFormsProgram, TryAgain };

/// How the tabs stand with the forms program, for the line that is always in the window.
struct LinkStanding
{
    QString report; ///< what the tabs show: "OAKST114.RPT, file 24-118, 114 OAK ST"; "" for no report
    QString state;
    forms::Colour colour = forms::Colour::Normal;
    LinkHelp help = LinkHelp::None;
    QString offer; ///< the words of the button
};

using conduit::LinkWatch;

/// @param words  as LinkWatch::Seen gives them
[[nodiscard]] LinkStanding StandingOf(const LinkDesk& desk, LinkWatch::Sees sees, const QString& words);

/// Shows it.
void ShowStanding(ReportControls& report, const LinkStanding& standing);

} // namespace vasclip::link
