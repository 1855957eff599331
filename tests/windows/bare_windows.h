#pragma once

#include "platform/engine/database.h"
#include "sample_screen.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/guard.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

/// What a window needs, without a program behind it.
class BareWindows : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts ports;
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    EventGuard guard{ports.prompter, {}};
    QSettings settings{home.Native(u"window.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    tests::SamplePort port;
};

} // namespace vasclip::windows
