#pragma once

#include "platform/text/text.h"

namespace vasclip::text {

/// How many there are of something, in words: "1 record was added", "3 records were added".
struct Counted
{
    QString one, many;

    [[nodiscard]] QString operator()(qint64 count) const { return Dec(count) + u' ' + (count == 1 ? one : many); }
};

} // namespace vasclip::text
