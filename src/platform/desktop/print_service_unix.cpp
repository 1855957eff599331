#include "platform/desktop/print_service.h"

#include <QLibrary>

namespace vasclip::desktop {

using namespace Qt::Literals::StringLiterals;

/// The toolkit hands a finished document to the service and looks at no answer, but the service's library, which the
/// toolkit has loaded, keeps it for the thread.
QString PrintRefusal()
{
    constexpr int kRefused = 0x0400; ///< answers from here on are refusals, as are those below 0
    QLibrary cups(u"cups"_s, 2);
    const auto last = reinterpret_cast<int (*)()>(cups.resolve("cupsLastError"));
    const auto words = reinterpret_cast<const char* (*)()>(cups.resolve("cupsLastErrorString"));
    if (last == nullptr || words == nullptr)
        return {};
    if (const int answer = last(); answer >= 0 && answer < kRefused)
        return {};
    QString said = QString::fromUtf8(words()).trimmed();
    while (said.endsWith(u'.'))
        said.chop(1);
    return said.isEmpty() ? u"it gave no reason"_s : said;
}

} // namespace vasclip::desktop
