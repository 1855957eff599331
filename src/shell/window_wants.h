#pragma once

#include <QObject>

namespace vasclip::shell {

/// What the rules of the main screen ask of its window.
class WindowWants : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void CaptionChanged();
    void UnloadWanted(); ///< File, Exit
    void AboutWanted();
    void WhatsNewWanted(const QString& text);
    void GuideWanted();                  ///< Program Help without a help file of its own
    void ResetSizeWanted();              ///< the window back to its design size and position
    void TabColoursChanged(bool themed); ///< themed: the theme's own; else the tabbed areas are plain
    void LinkLookWanted();               ///< the state of the link may have changed
    void EndWanted();                    ///< Timer1: the stop is over and the process still lives
};

} // namespace vasclip::shell
