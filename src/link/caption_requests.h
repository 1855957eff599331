#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

// The comps' captions as the forms program's global variables give them, cleaned, into the address fields of
// frm_Addr. Addresses come through the mapping nowadays; these stay as operations.
// @throws RuntimeError of the exchange

void KelRequestSalesCaptions13(LinkDesk& desk);
void KelRequestSalesCaptions46(LinkDesk& desk);
void KelRequestSalesCaptions79(LinkDesk& desk);
void KelRequestAltSalesCaptions13(LinkDesk& desk);
void KelRequestAltSalesCaptions46(LinkDesk& desk);
void KelRequestListingCaptions(LinkDesk& desk); ///< both pages
void KelRequestListingCaptions13(LinkDesk& desk);
void KelRequestListingCaptions46(LinkDesk& desk);
void KelRequestRentalCaptions(LinkDesk& desk); ///< all pages that the report has
void KelRequestRentalCaptions13(LinkDesk& desk);
void KelRequestRentalCaptions46(LinkDesk& desk); ///< only with a form "RENT2" or "MULRNT46"
void KelRequestRentalCaptions79(LinkDesk& desk); ///< only with a form "RENT3" or "MULRNT79"

} // namespace vasclip::link
