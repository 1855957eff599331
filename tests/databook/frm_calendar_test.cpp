#include "databook/frm_calendar.h"

#include "support/scripted_ports.h"

#include <gtest/gtest.h>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The clock of the tests stands at 17 May 2024.
class Calendar : public testing::Test
{
protected:
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    forms::ControlSet set;
    forms::TextBox box{set, u"txtSaleDate"_s};

    using Play = std::function<void(frm_Calendar&)>;
    QString TextAfter(const QString& before, const Play& play)
    {
        box.SetText(before);
        doubles.screens.Play([play](forms::Screen& screen) { play(dynamic_cast<frm_Calendar&>(screen)); });
        GetCalandarDate(ports, box, u"Sale Date"_s);
        return box.Text();
    }
    static void Click(forms::Control& control) { Q_EMIT control.Clicked(); }
};

TEST_F(Calendar, OpensOnTheDateOfTheBoxOrOnToday)
{
    const QDate today(2024, 5, 17);
    const std::pair<QString, QDate> rows[] = {{u"3/7/2004"_s, {2004, 3, 7}},
                                              {u"01/01/1900"_s, {1900, 1, 1}},
                                              {u"March 7, 2004"_s, {2004, 3, 7}},
                                              {{}, today},
                                              {u"soon"_s, today},
                                              {u"13/45/2004"_s, today},
                                              {u"12/30/1899"_s, today},
                                              {u"3/7"_s, today}};
    for (const auto& [text, day] : rows)
        TextAfter(text, [day = day, text = text](frm_Calendar& calendar) {
            EXPECT_EQ(calendar.calCalendar.Value(), day) << text.toStdString();
            EXPECT_EQ(calendar.Caption(), u"Sale Date"_s);
        });
}

TEST_F(Calendar, EachButtonMovesTheDay)
{
    const std::tuple<const char*, forms::Button frm_Calendar::*, QString> rows[] = {
        {"today", &frm_Calendar::cmdToday, u"05/17/2024"_s},
        {"next day", &frm_Calendar::cmdTomorrow, u"02/01/2004"_s},
        {"previous day", &frm_Calendar::cmdYesterDay, u"01/30/2004"_s},
        {"next week", &frm_Calendar::cmdNextWeek, u"02/07/2004"_s},
        {"previous week", &frm_Calendar::cmdLastWeek, u"01/24/2004"_s},
        {"next month, shorter", &frm_Calendar::cmdNextMonth, u"02/29/2004"_s},
        {"previous month", &frm_Calendar::cmdLastMonth, u"12/31/2003"_s},
    };
    for (const auto& [name, button, text] : rows)
        EXPECT_EQ(TextAfter(u"1/31/2004"_s,
                            [button = button](frm_Calendar& calendar) {
                                Click(calendar.*button);
                                Click(calendar.cmdOk);
                            }),
                  text)
            << name;
}

TEST_F(Calendar, PendingIsTheFirstOfJanuary1900)
{
    EXPECT_EQ(TextAfter(u"1/31/2004"_s,
                        [](frm_Calendar& calendar) {
                            Click(calendar.cmdPending);
                            EXPECT_EQ(calendar.Result(), u"January 1, 1900"_s);
                            EXPECT_FALSE(calendar.IsOpen());
                        }),
              u"01/01/1900"_s);
}

TEST_F(Calendar, CancelAndTheWindowsCrossLeaveTheBox)
{
    EXPECT_EQ(TextAfter(u"1/31/2004"_s, [](frm_Calendar& calendar) { Click(calendar.cmdCancel); }),
              u"1/31/2004"_s);
    EXPECT_EQ(TextAfter(u"soon"_s, [](frm_Calendar& calendar) { calendar.Unload(); }), u"soon"_s);
}

TEST_F(Calendar, AClickOnADayClosesItOnlyWithQuickExit)
{
    const auto click = [](frm_Calendar& calendar) {
        calendar.calCalendar.SetValue(QDate(2004, 2, 9));
        Q_EMIT calendar.calCalendar.DateClick();
    };
    EXPECT_EQ(TextAfter({},
                        [&](frm_Calendar& calendar) {
                            calendar.ckbQuickExit.SetValue(false);
                            click(calendar);
                            EXPECT_TRUE(calendar.IsOpen());
                        }),
              QString());
    EXPECT_EQ(TextAfter({},
                        [&](frm_Calendar& calendar) {
                            calendar.ckbQuickExit.SetValue(true);
                            click(calendar);
                            EXPECT_FALSE(calendar.IsOpen());
                        }),
              u"02/09/2004"_s);
    TextAfter({}, [](frm_Calendar& calendar) {
        EXPECT_TRUE(calendar.ckbQuickExit.Value()) << "stays as the user left it";
        calendar.ckbQuickExit.SetValue(false);
    });
}

TEST_F(Calendar, ADoubleClickOnADayChoosesIt)
{
    EXPECT_EQ(TextAfter({},
                        [](frm_Calendar& calendar) {
                            calendar.ckbQuickExit.SetValue(false);
                            calendar.calCalendar.SetValue(QDate(2004, 2, 9));
                            Q_EMIT calendar.calCalendar.DateDblClick();
                            EXPECT_FALSE(calendar.IsOpen());
                        }),
              u"02/09/2004"_s);
}

TEST_F(Calendar, Captions)
{
    frm_Calendar calendar(ports, u"Load Date"_s, {});
    QStringList captions;
    for (const forms::Button* button :
         {&calendar.cmdPending, &calendar.cmdToday, &calendar.cmdTomorrow, &calendar.cmdYesterDay,
          &calendar.cmdNextWeek, &calendar.cmdLastWeek, &calendar.cmdNextMonth, &calendar.cmdLastMonth,
          &calendar.cmdOk, &calendar.cmdCancel})
        captions << button->Caption();
    EXPECT_EQ(captions, (QStringList{u"&Pending (Jan 1, 1900)"_s, u"&Today"_s, u"&Next Day"_s, u"Pr&ev Day"_s,
                                     u"N&ext Wk"_s, u"P&rev Wk"_s, u"Ne&xt Mo"_s, u"&Prev Mo"_s, u"&Ok"_s,
                                     u"&Cancel"_s}));
    EXPECT_EQ(calendar.ckbQuickExit.Caption(), u"Quick Exit"_s);
}

} // namespace
} // namespace vasclip::databook
