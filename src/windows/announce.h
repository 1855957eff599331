#pragma once

class QLabel;

namespace vasclip::windows {

/// Makes a label one whose words a screen reader speaks when they change, wherever the focus is: the line of messages.
void MakeAnnouncing(QLabel& label);

/// Tells screen readers what such a label says now. Does nothing while none listens.
void Announce(QLabel& label);

} // namespace vasclip::windows
