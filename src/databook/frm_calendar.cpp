#include "databook/frm_calendar.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "platform/text/dates.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kPicture = "mm/dd/yyyy"_L1;
constexpr auto kPendingResult = "January 1, 1900"_L1;

/// As long as the program runs, the box stays as the user left it.
bool g_quickExit = false;

} // namespace

frm_Calendar::frm_Calendar(const forms::Ports& ports, const QString& title, QDate shown)
    : Screen(u"frm_Calendar"_s)
    , calCalendar(controls, u"calCalendar"_s)
    , cmdToday(controls, u"cmdToday"_s)
    , cmdTomorrow(controls, u"cmdTomorrow"_s)
    , cmdYesterDay(controls, u"cmdYesterDay"_s)
    , cmdNextWeek(controls, u"cmdNextWeek"_s)
    , cmdLastWeek(controls, u"cmdLastWeek"_s)
    , cmdNextMonth(controls, u"cmdNextMonth"_s)
    , cmdLastMonth(controls, u"cmdLastMonth"_s)
    , cmdPending(controls, u"cmdPending"_s)
    , cmdOk(controls, u"cmdOk"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , ckbQuickExit(controls, u"ckbQuickExit"_s)
    , m_ports(ports)
{
    SetCaption(title);
    calCalendar.SetValue(shown.isValid() ? shown : m_ports.clock.Today());
    cmdToday.SetCaption(u"&Today"_s);
    cmdTomorrow.SetCaption(u"&Next Day"_s);
    cmdYesterDay.SetCaption(u"Pr&ev Day"_s);
    cmdNextWeek.SetCaption(u"N&ext Wk"_s);
    cmdLastWeek.SetCaption(u"P&rev Wk"_s);
    cmdNextMonth.SetCaption(u"Ne&xt Mo"_s);
    cmdLastMonth.SetCaption(u"&Prev Mo"_s);
    cmdPending.SetCaption(u"&Pending (Jan 1, 1900)"_s);
    cmdOk.SetCaption(u"&Ok"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    ckbQuickExit.SetCaption(u"Quick Exit"_s);
    ckbQuickExit.SetValue(g_quickExit);

    const auto moves = [this](forms::Button& button, auto move) {
        connect(&button, &forms::Control::Clicked, this,
                [this, move] { calCalendar.SetValue(move(calCalendar.Value())); });
    };
    moves(cmdToday, [this](QDate) { return m_ports.clock.Today(); });
    moves(cmdTomorrow, [](QDate day) { return day.addDays(1); });
    moves(cmdYesterDay, [](QDate day) { return day.addDays(-1); });
    moves(cmdNextWeek, [](QDate day) { return day.addDays(7); });
    moves(cmdLastWeek, [](QDate day) { return day.addDays(-7); });
    moves(cmdNextMonth, [](QDate day) { return day.addMonths(1); });
    moves(cmdLastMonth, [](QDate day) { return day.addMonths(-1); });
    connect(&cmdPending, &forms::Control::Clicked, this, [this] {
        m_result = kPendingResult;
        Unload();
    });
    connect(&cmdOk, &forms::Control::Clicked, this, &frm_Calendar::cmdOk_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_Calendar::Unload);
    connect(&calCalendar, &forms::MonthView::DateClick, this, &frm_Calendar::CheckExit);
    connect(&calCalendar, &forms::MonthView::DateDblClick, this, &frm_Calendar::cmdOk_Click);
}

void frm_Calendar::Form_Unload()
{
    g_quickExit = ckbQuickExit.Value();
}

void frm_Calendar::CheckExit()
{
    if (ckbQuickExit.Value())
        cmdOk_Click();
}

void frm_Calendar::cmdOk_Click()
{
    if (!IsOpen())
        return;
    m_result = text::Format(calCalendar.Value().startOfDay(), kPicture);
    Unload();
}

void GetCalandarDate(const forms::Ports& ports, forms::TextBox& box, const QString& title)
{
    const common::RoutineScope scope{"GetCalandarDate"};
    const QDate today = ports.clock.Today();
    QDate shown = today;
    if (common::IsDate(box.Text(), today))
        shown = text::ReadDate(box.Text(), today)->date();
    frm_Calendar calendar(ports, title, shown);
    ports.screens.ShowModal(calendar);
    if (!calendar.Result().isEmpty())
        box.SetText(
            text::Format(text::ReadDate(calendar.Result(), today).value_or(today.startOfDay()), kPicture));
}

} // namespace vasclip::databook
