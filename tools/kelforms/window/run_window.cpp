#include "kelforms/window/run_window.h"

#include <QApplication>

namespace kelforms {

int RunWindow(Service& service, const Options&)
{
    service.Listen();
    return QApplication::exec();
}

} // namespace kelforms
