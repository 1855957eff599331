#include "link/caption_requests.h"

#include "common/error_block.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

void RequestThree(LinkDesk& desk, const char* routine, const QString& stem, int first,
                  const forms::ControlArray<forms::TextBox>& addresses)
{
    const common::RoutineScope scope{routine};
    for (int n = first; n <= first + 2; ++n)
        addresses(n).SetText(KelCleanCaption(KelRequestVar(desk.txtDDE, desk.state, stem + text::Dec(n))));
}

bool HoldsForm(const ReportMirror& desk, QLatin1StringView one, QLatin1StringView other)
{
    const QString forms = desk.addr.txtKelListForms.Text().toUpper();
    return forms.contains(one) || forms.contains(other);
}

} // namespace

void KelRequestSalesCaptions13(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestSalesCaptions13", u"SC_"_s, 1, desk.addr.txtCompAddr);
}

void KelRequestSalesCaptions46(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestSalesCaptions46", u"SC_"_s, 4, desk.addr.txtCompAddr);
}

void KelRequestSalesCaptions79(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestSalesCaptions79", u"SC_"_s, 7, desk.addr.txtCompAddr);
}

void KelRequestAltSalesCaptions13(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestAltSalesCaptions13", u"SC_"_s, 1, desk.addr.txtAltCompAddr);
}

void KelRequestAltSalesCaptions46(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestAltSalesCaptions46", u"SC_"_s, 4, desk.addr.txtAltCompAddr);
}

void KelRequestListingCaptions(LinkDesk& desk)
{
    KelRequestListingCaptions13(desk);
    KelRequestListingCaptions46(desk);
}

void KelRequestListingCaptions13(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestListingCaptions13", u"LC_"_s, 1, desk.addr.txtListingAddr);
}

void KelRequestListingCaptions46(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestListingCaptions46", u"LC_"_s, 4, desk.addr.txtListingAddr);
}

void KelRequestRentalCaptions(LinkDesk& desk)
{
    KelRequestRentalCaptions13(desk);
    KelRequestRentalCaptions46(desk);
    KelRequestRentalCaptions79(desk);
}

void KelRequestRentalCaptions13(LinkDesk& desk)
{
    RequestThree(desk, "KelRequestRentalCaptions13", u"RC_"_s, 1, desk.addr.txtRentalAddr);
}

void KelRequestRentalCaptions46(LinkDesk& desk)
{
    if (HoldsForm(desk, "RENT2"_L1, "MULRNT46"_L1))
        RequestThree(desk, "KelRequestRentalCaptions46", u"RC_"_s, 4, desk.addr.txtRentalAddr);
}

void KelRequestRentalCaptions79(LinkDesk& desk)
{
    if (HoldsForm(desk, "RENT3"_L1, "MULRNT79"_L1))
        RequestThree(desk, "KelRequestRentalCaptions79", u"RC_"_s, 7, desk.addr.txtRentalAddr);
}

} // namespace vasclip::link
