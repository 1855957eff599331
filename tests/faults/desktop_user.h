#pragma once

#include <QString>

namespace vasclip::tests {

/// Somebody at the main screen of a home, who files every picture of the capture directory with one record after
/// the other, and deletes every third photo again. Says "ready" when the screen stands, and what has been done.
/// Ends when the capture directory is empty.
int WorkAtTheMainScreen(const QString& home);

} // namespace vasclip::tests
