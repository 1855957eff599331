#include "platform/files/letters.h"

namespace vasclip::files {

const Letters& SystemLetters()
{
    return Windows1252();
}

} // namespace vasclip::files
