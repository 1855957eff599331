#pragma once

#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QImage>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

/// The program and its main screen on a home of its own, before the start.
class MainHome : public testing::Test
{
protected:
    /// What a test has of its own in place of the doubles; nullptr for the double.
    struct Own
    {
        forms::ScreenPort* screens = nullptr;
        forms::EventPump* pump = nullptr;
        conduit::Conduit* wire = nullptr;
        link::Talk* talk = nullptr;
        forms::Prompter* prompter = nullptr;
    };
    MainHome()
        : MainHome(Own())
    {}
    explicit MainHome(const Own& own)
        : ports{own.prompter != nullptr ? *own.prompter : doubles.prompter,
                own.pump != nullptr ? *own.pump : doubles.pump,
                doubles.clock,
                doubles.random,
                doubles.window,
                own.screens != nullptr ? *own.screens : doubles.screens}
        , program{home.disk.Home(), {own.wire != nullptr ? *own.wire : conduit, ports, own.talk}}
    {}

    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports;
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    StartUpOptions options{
        {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s};
    frm_Splash splash{ports};
    Program program;
    frm_Main main{program};

    void Load() { main.Form_load(options, splash); }
    void Add(const QString& path, const QString& table, const QList<std::pair<QString, QString>>& fields)
    {
        const auto database = engine.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        for (const auto& [field, value] : fields)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
    }
    /// A picture file of one colour, which its path decides.
    void Picture(const QString& path, QSize size = {16, 12})
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(static_cast<int>(qHash(path) % 360), 200, 200));
        ASSERT_TRUE(image.save(home.disk.ToNative(path)));
    }
};

} // namespace vasclip::shell
