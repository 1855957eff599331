#pragma once

#include "forms/ports.h"
#include "forms/screen.h"

#include <QDate>

namespace vasclip::databook {

/// Chooses a day. The user closes it with a day, with the pending date, or with nothing.
class frm_Calendar : public forms::Screen
{
public:
    /// @param title  names the date: "Sale Date"
    /// @param shown  the day it opens on; an invalid one is today
    frm_Calendar(const forms::Ports& ports, const QString& title, QDate shown);

    forms::MonthView calCalendar;
    forms::Button cmdToday, cmdTomorrow, cmdYesterDay, cmdNextWeek, cmdLastWeek, cmdNextMonth, cmdLastMonth;
    forms::Button cmdPending, cmdOk, cmdCancel;
    forms::CheckBox ckbQuickExit;

    /// The text chosen: "mm/dd/yyyy", or "January 1, 1900" for a pending sale; "" if nothing was chosen.
    [[nodiscard]] const QString& Result() const { return m_result; }

protected:
    void Form_Unload() override;

private:
    void CheckExit(); ///< a click on a day closes the calendar when ckbQuickExit is ticked
    void cmdOk_Click();

    forms::Ports m_ports;
    QString m_result;
};

/// Lets the user choose a date for a text box: the calendar opens on the box's date, or on today if that is
/// none, and the date chosen goes into the box as "mm/dd/yyyy" ("01/01/1900" for a pending sale). Cancelled,
/// the box stays as it is.
void GetCalandarDate(const forms::Ports& ports, forms::TextBox& box, const QString& title);

} // namespace vasclip::databook
