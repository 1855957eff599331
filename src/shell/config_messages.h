#pragma once

#include <QString>

namespace vasclip::shell::messages {

// The boxes of the settings screen, letter for letter.
inline const QString kProgramDirQuestion = QStringLiteral(
    "Chaning the Program Directory could cause %1 to stop functioning. Do you wish to change?");

inline const QString kSaveTitle = QStringLiteral("Save Configuration Changes?");
inline const QString kSaveQuestion = QStringLiteral("Changes have been made to configuration. Save Changes?");
inline const QString kRestoredTitle = QStringLiteral("Configuration restored");
inline const QString kRestoredText =
    QStringLiteral("Configuration has been restored to pre-existing settings");

inline const QString kResetTitle = QStringLiteral("Reset Form Size");
inline const QString kResetText =
    QStringLiteral("The main form will reset upon exiting the configuration screen");

} // namespace vasclip::shell::messages
