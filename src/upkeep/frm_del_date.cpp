#include "upkeep/frm_del_date.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "databook/frm_calendar.h"
#include "platform/text/text.h"
#include "upkeep/maintenance_messages.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongestDate = 10;

} // namespace

frm_DelDate::frm_DelDate(const forms::Ports& ports, const QString& title)
    : Screen(u"frm_DelDate"_s)
    , lblDate(controls, u"lblDate"_s)
    , txtDate(controls, u"txtDate"_s)
    , imaDate(controls, u"imaDate"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdOK(controls, u"cmdOK"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_ports(ports)
    , m_result(u"CANCEL"_s)
{
    SetCaption(title);
    lblDate.SetCaption(u"Up to and including this date; 1/1/1900 means those without a date."_s);
    imaDate.SetToolTipText(u"Click to get a pop calendar"_s);
    cmdOK.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    connect(&imaDate, &forms::Control::Clicked, this,
            [this] { databook::GetCalandarDate(m_ports, txtDate, Caption()); });
    connect(&cmdOK, &forms::Control::Clicked, this, &frm_DelDate::cmdOK_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_DelDate::Unload);
}

void frm_DelDate::cmdOK_Click()
{
    const common::RoutineScope scope{"frm_DelDate"};
    const QString date = text::Trim(txtDate.Text());
    if (!common::IsDate(date, m_ports.clock.Today())) {
        lblmsg.Show(maintenance::kEnterDate, forms::Colour::Red);
        txtDate.SetFocus();
        return;
    }
    // A box that cut a longer one would take another year from it.
    if (date.size() > kLongestDate) {
        lblmsg.Show(maintenance::kShortDate.arg(date), forms::Colour::Red);
        txtDate.SetFocus();
        return;
    }
    m_result = date;
    Unload();
}

} // namespace vasclip::upkeep
