#pragma once

#include "shell/frm_main.h"

#include "platform/files/profile.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

inline const QString kIni = u"C:\\APPRAISE\\VAS2000.INI"_s;

/// Notes what is asked of the screens.
class WatchedScreens : public tests::ScriptedScreens
{
public:
    void UnloadAllForms() override { ++unloads; }
    int unloads = 0;
};

/// A home with empty databases, before the program has started in it.
class StartSequence : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    WatchedScreens screens;
    forms::Ports ports{doubles.prompter, doubles.pump,   doubles.clock,
                       doubles.random,   doubles.window, screens};
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    StartUpOptions options{
        {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\EXE\\"_s, false}, u"6.2.1"_s};
    frm_Splash splash{ports};
    Program program{home.disk.Home(), {conduit, ports}};
    frm_Main main{program};

    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\WINDOWS"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\VASSNAP"_s, u"C:\\KEL"_s})
            home.MakeDirs(directory);
        home.Put(kIni, "[PREFERENCES]\r\nSORTGRID=0\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n");
        store::MakeDatabase(engine, u"C:\\DATABOOK\\DATABOOK.MDB"_s);
        store::MakeDatabase(engine, u"C:\\VAS2000\\Comp2Kel.mdb"_s);
        conduit.running = false;
    }
    void Set(const QString& section, const QString& key, const QString& value)
    {
        ASSERT_TRUE(files::WritePrivateProfileString(home.disk, section, key, value, kIni));
    }
    [[nodiscard]] QString Stored(const QString& key, const QString& section = u"PREFERENCES"_s) const
    {
        return files::GetPrivateProfileString(home.disk, section, key, u"(absent)"_s, kIni);
    }
    void Load() { main.Form_load(options, splash); }
    [[nodiscard]] bool Told(const QString& status) const
    {
        for (int i = 0; i < splash.lstSplash.ListCount(); ++i)
            if (splash.lstSplash.List(i).endsWith(u" - "_s + status))
                return true;
        return false;
    }
};

} // namespace vasclip::shell
