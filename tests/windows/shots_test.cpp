#include "sample_screen.h"

#include "databook/frm_grid.h"
#include "databook/frm_search_sql.h"
#include "databook/grid.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/about_box.h"
#include "windows/columns_dialog.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/record_grid.h"
#include "windows/screens.h"
#include "windows/send_to_slot.h"
#include "windows/splash_window.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QSettings>
#include <QStyle>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

// Pictures of the windows, for eyes: VASCLIP_SHOTS=1 writes them to out/shots below the working directory (or
// to the directory that it names). Run once more with QT_SCALE_FACTOR=2 for a screen at 200 %.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(Shots, EveryWindowInBothThemes)
{
    const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
    if (wish.isEmpty())
        GTEST_SKIP() << "set VASCLIP_SHOTS to write the pictures";
    const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
    ASSERT_TRUE(QDir().mkpath(out));
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR").isEmpty() ? QString() : u"-scaled"_s;

    QTemporaryDir dir;
    QSettings settings(dir.filePath(u"view.ini"_s), QSettings::IniFormat);
    Theme theme(*qApp, &settings);
    tests::ScriptedPrompter prompter;
    EventGuard guard(prompter, {});
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        tests::SampleRows rows;
        tests::SampleScreen screen;
        tests::SamplePort port;
        MainWindow window(screen.controls, port, port, guard, theme, settings);
        screen.Fill(rows);
        window.setWindowTitle(u"Vasclip"_s);
        const auto save = [&](QWidget& widget, const QString& what) {
            QTest::qWait(30);
            const QString path = u"%1/%2-%3%4.png"_s.arg(out, what, name, scale);
            EXPECT_TRUE(widget.grab().save(path)) << path.toStdString();
        };
        QList<QSize> sizes{{1366, 768}, {1920, 1080}};
        if (scale.isEmpty())
            sizes.append({3840, 2160}); // 1920 by 1080 scaled is the same screen at 200 %
        for (const QSize& size : std::as_const(sizes)) {
            window.show();
            window.resize(size);
            QTest::qWait(20);
            window.ResetLayout();
            const QString wide = QString::number(size.width());
            save(window, u"main-subject-"_s + wide);
            screen.Get<forms::TabControl>(u"TabData"_s).SetTab(1);
            screen.Get<forms::TabControl>(u"TabComp"_s).SetTab(0);
            window.Databook().setFocus();
            save(window, u"main-comps-"_s + wide);
            const auto mark = [&](const QString& widget, const char* property) {
                auto* found = window.findChild<QWidget*>(widget);
                ASSERT_NE(found, nullptr);
                found->setProperty(property, true);
                found->style()->unpolish(found);
                found->style()->polish(found);
            };
            for (const QString& target : {u"imaComp_1"_s, u"geaComp_1"_s, u"txtComp_2"_s, u"imaComp_3"_s})
                mark(target, "dropWanted");
            mark(u"txtComp_3"_s, "dropHover");
            mark(u"imaComp_2"_s, "dropHover");
            save(window, u"main-drag-"_s + wide);
            screen.Get<forms::TabControl>(u"TabData"_s).SetTab(2);
            save(window, u"main-general-"_s + wide);
            screen.Get<forms::TabControl>(u"TabData"_s).SetTab(0);
        }
        window.resize(1366, 768);
        QTest::qWait(20);
        window.resize(1000, 620);
        save(window, u"main-small"_s);
        window.resize(1366, 768);
        QTest::qWait(20);
        auto& status = screen.Get<forms::Gauge>(u"gauStatus"_s);
        status.SetCaption(u"Reading Comp photos"_s);
        status.SetRange(12);
        status.SetValue(5);
        screen.Get<forms::TabControl>(u"tabSource"_s).SetTab(1);
        save(window, u"main-map"_s);
        SendToSlotDialog send(u"122 ALDER AVE"_s, SlotChoices(screen.controls, port, u"grddatabook"_s),
                              &window);
        send.show();
        save(send, u"send"_s);
        send.close();
        QMessageBox box(QMessageBox::Question, u"Overwrite"_s,
                        u"Replace 1135 2nd St with 1013 CASCADE AVE!  Are you sure?"_s,
                        QMessageBox::Yes | QMessageBox::No, &window);
        box.show();
        save(box, u"question"_s);
        box.close();
        AboutBox about(
            {u"Vasclip"_s,
             u"1.0.0"_s,
             u"Ostrand Ltd."_s,
             {{u"Databook"_s, u"C:\\VASSNAP\\DATABOOK.MDB"_s}, {u"Forms program"_s, u"Korvat Forms 7.02"_s}}},
            &window);
        about.show();
        save(about, u"about"_s);
        about.close();

        {
            tests::TempHome home;
            tests::TestPorts ports;
            auto& grid = screen.Get<forms::Grid>(u"grddatabook"_s);
            for (const QString& layout : {u"Default"_s, u"Current (User)"_s, u"Prices first"_s, u"Rentals"_s})
                databook::SaveGrid(home.disk, grid, u"C:\\VAS2000.grx"_s, layout);
            databook::frm_Grid layouts(home.disk, ports.Get(), grid, u"C:\\"_s);
            layouts.Open();
            layouts.grdLayout.SetColumns(grid.Columns());
            layouts.txtLayout.SetText(u"Prices first"_s);
            layouts.cmdUseSelected.SetFocus();
            layouts.lblmsg.Show(u"The grid uses Prices first now."_s, forms::Colour::Blue);
            ScreenWindow window2(layouts, guard, &window);
            window2.show();
            save(window2, u"grid-layout"_s);
            window2.hide();
            ColumnsDialog columns(databook::DefaultColumns(), &window);
            columns.show();
            save(columns, u"columns"_s);
            columns.close();
        }

        forms::ControlSet controls;
        forms::ListBox lines(controls, u"lstSplash"_s);
        forms::Gauge gauge(controls, u"gauProgress"_s);
        forms::Label company(controls, u"lblCompany"_s), version(controls, u"lblVersion"_s);
        forms::PictureBox logo(controls, u"imgLogo"_s);
        company.SetCaption(u"Ostrand Ltd."_s);
        version.SetCaption(u"Version 1.0.0"_s);
        for (const QString& step :
             {u"Application INI  - C:\\APPRAISE\\VAS2000.INI"_s, u"Loading Configuration Settings"_s,
              u"Checking data - C:\\VASSNAP\\"_s, u"Displaying Capture Pictures"_s})
            lines.AddItem(u"9:41:07 AM - "_s + step);
        lines.SetListIndex(3);
        gauge.SetRange(100);
        gauge.SetValue(36);
        SplashWindow splash(controls, guard);
        splash.show();
        save(splash, u"splash"_s);
        EXPECT_TRUE(splash.Leftovers().isEmpty()) << splash.Leftovers().join(u'\n').toStdString();
    }
    theme.Choose(ThemeChoice::System);
}

TEST(Shots, TheSearchScreen)
{
    const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
    if (wish.isEmpty())
        GTEST_SKIP() << "set VASCLIP_SHOTS to write the pictures";
    const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
    ASSERT_TRUE(QDir().mkpath(out));
    Theme theme(*qApp, nullptr);
    tests::TempHome home;
    tests::TestPorts doubles;
    const forms::Ports ports = doubles.Get();
    EventGuard guard(doubles.prompter, {});
    engine::Engine engine(home.disk, tests::SomeTime());
    store::DataSource datsql(engine, u"datsql"_s);
    databook::GridRows rows(datsql);
    forms::ControlSet set;
    databook::RecordDesk desk(set);
    common::Globals globals;
    globals.productName = u"Vasclip"_s;
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        databook::frm_SearchSQL screen({ports, home.disk, globals, desk, datsql, rows});
        screen.Open();
        screen.SetText(u"txtCity"_s, u"Elm Grove"_s);
        screen.SetText(u"txtPrice"_s, u"250000"_s);
        screen.SetText(u"txtPriceRange"_s, u"10%"_s);
        screen.SetText(u"txtSaleDate"_s, u"3/7/2004"_s);
        screen.lblSQL.SetCaption(databook::BuildSearch(screen.Form()).sql);
        screen.lblmsg.Show(u"214 comps found."_s, forms::Colour::Blue);
        ScreenWindow window(screen, guard);
        window.show();
        QTest::qWait(30);
        EXPECT_TRUE(window.grab().save(u"%1/search-%2.png"_s.arg(out, name)));
        for (const auto& [box, text] : {std::pair{u"txtSaleDate"_s, u"13/45/2026"_s}, {u"txtLoadDate"_s, u"2/30"_s}}) {
            screen.SetText(box, text);
            Q_EMIT screen.Box(box)->LostFocus();
        }
        QTest::qWait(30);
        EXPECT_TRUE(window.grab().save(u"%1/search-notes-%2.png"_s.arg(out, name)));
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
