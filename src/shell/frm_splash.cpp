#include "shell/frm_splash.h"

#include "platform/text/dates.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

frm_Splash::frm_Splash(const forms::Ports& ports)
    : lstSplash(controls, u"lstSplash"_s)
    , gauProgress(controls, u"gauProgress"_s)
    , lblCompany(controls, u"lblCompany"_s)
    , lblVersion(controls, u"lblVersion"_s)
    , imgLogo(controls, u"imgLogo"_s)
    , m_ports(ports)
{
    gauProgress.SetRange(100);
}

void frm_Splash::ShowSplashStatus(const QString& text)
{
    const QString time = text::Format(m_ports.clock.Now(), u"h:nn:ss AM/PM"_s);
    lstSplash.AddItem(time + u" - "_s + text);
    lstSplash.SetListIndex(lstSplash.ListCount() - 1);
    ProgressGauge();
}

void frm_Splash::ProgressGauge()
{
    gauProgress.SetValue(gauProgress.Value() + 2);
}

} // namespace vasclip::shell
