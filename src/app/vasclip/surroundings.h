#pragma once

#include "app/vasclip/fixed_clock.h"
#include "app/vasclip/link_recorder.h"
#include "forms/system_ports.h"
#include "link/talk.h"
#include "platform/conduit/chosen_conduit.h"
#include "platform/conduit/link_watch.h"
#include "shell/program.h"
#include "windows/guard.h"
#include "windows/guide_window.h"
#include "windows/screens.h"
#include "windows/theme.h"
#include "windows/window_desktop.h"
#include "windows/window_prompter.h"
#include "windows/window_pump.h"

#include <QDate>
#include <QSettings>

#include <functional>
#include <memory>

class QApplication;

namespace vasclip::app {

struct SurroundingOptions
{
    QString socket; ///< "": the home's own
    int linkTimeLimitMs = 5000;
    QDate today;           ///< invalid: the machine's
    bool recorded = false; ///< what is said on the link is kept, for the tour
};

/// What a program with a window has around it: the line to the forms program, boxes, screens, clock and queue.
class Surroundings
{
public:
    /// @param end  a rule has ended the program with that code
    Surroundings(QApplication& app, const files::Disk& disk, const SurroundingOptions& options,
                 const std::function<void(int code)>& end);
    [[nodiscard]] shell::Surroundings Get();
    /// The forms program is spoken to by the desktop's own exchange, and can't be looked at beside it.
    [[nodiscard]] bool ByExchange() const { return m_exchange; }

    const QString socket;
    FixedClock clock;
    link::Talk talk;

private:
    conduit::ChosenConduit m_conduit;
    bool m_recorded;
    bool m_socketAsked; ///< on the command line, which outdoes KEL.INI
    bool m_exchange = false;

public:
    conduit::LinkWatch watch;
    LinkRecorder recorder;
    QSettings settings;
    windows::Theme theme;
    windows::WindowPrompter prompter;
    windows::EventGuard guard;
    windows::WindowDesktop desktop;
    windows::WindowScreens screens;

private:
    void ChooseLink(const QString& kelIni);

    const files::Disk& m_disk;
    int m_linkTimeLimitMs;
    windows::GuideKey m_guideKey;
    windows::WindowPump m_pump;
    forms::SystemRandom m_random;
};

} // namespace vasclip::app
