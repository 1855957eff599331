#pragma once

#include "forms/ports.h"
#include "forms/screen.h"

namespace vasclip::upkeep {

/// Asks up to which date records are to be deleted.
class frm_DelDate : public forms::Screen
{
public:
    frm_DelDate(const forms::Ports& ports, const QString& title);

    forms::Label lblDate;
    forms::TextBox txtDate;
    forms::PictureBox imaDate;
    forms::Label lblmsg;
    forms::Button cmdOK, cmdCancel;

    /// At most 10 characters; "CANCEL" unless a date was confirmed.
    [[nodiscard]] const QString& Result() const { return m_result; }

private:
    void cmdOK_Click();

    forms::Ports m_ports;
    QString m_result;
};

} // namespace vasclip::upkeep
