#pragma once

#include <QString>

namespace vasclip::shell::messages {

using namespace Qt::StringLiterals;

// The boxes of the settings screen, letter for letter.
inline const QString kProgramDirQuestion =
    u"Chaning the Program Directory could cause %1 to stop functioning. Do you wish to change?"_s;

inline const QString kSaveTitle = u"Save Configuration Changes?"_s;
inline const QString kSaveQuestion = u"Changes have been made to configuration. Save Changes?"_s;
inline const QString kRestoredTitle = u"Configuration restored"_s;
inline const QString kRestoredText = u"Configuration has been restored to pre-existing settings"_s;

inline const QString kResetTitle = u"Reset Form Size"_s;
inline const QString kResetText = u"The main form will reset upon exiting the configuration screen"_s;

} // namespace vasclip::shell::messages
