#pragma once

namespace vasclip::common {

/// A read that another user kept waiting (3187) is asked about by FileErrors, with the holder's name: Retry, or
/// Cancel, which raises it. What was given up so is logged by ReportError and not told again.
///
/// For a caller that deals with it without ReportError. @return was there anything?
bool TakeGivenUp();

} // namespace vasclip::common
