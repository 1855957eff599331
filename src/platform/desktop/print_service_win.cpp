#include "platform/desktop/print_service.h"

namespace vasclip::desktop {

QString PrintRefusal()
{
    return {};
}

} // namespace vasclip::desktop
