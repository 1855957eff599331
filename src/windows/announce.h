#pragma once

class QLabel;

namespace vasclip::windows {

/// Makes a label one whose words a screen reader speaks when they change, wherever the focus is: the line of messages.
void MakeAnnouncing(QLabel& label);

/// Tells screen readers what such a label says now. The toolkit passes it on where one listens.
void Announce(QLabel& label);

} // namespace vasclip::windows
