#include "kelforms/window/run_window.h"

#include "kelforms/app/system_signals.h"
#include "kelforms/window/main_window.h"
#include "kelforms/window/tour.h"
#include "platform/text/runtime_error.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace kelforms {

namespace {

constexpr int kScreenshotFailed = 5;
constexpr int kSettleMs = 300;

} // namespace

int RunWindow(Service& service, const Options& options)
{
    service.Listen();
    MainWindow window(service, options.dark, !options.saveOnExit);
    std::optional<Tour> tour;
    if (!options.tourDir.isEmpty()) {
        tour.emplace(window, options.tourDir, [&window](const QString& page) { window.ShowPage(page); });
        window.KeepGlow();
    }
    const SystemSignals signals([] { QApplication::exit(0); },
                                [&tour] {
                                    if (tour)
                                        tour->Shoot();
                                });
    window.ShowPage(options.page);
    window.show();
    std::printf("kelforms: listening at %s\n", qPrintable(service.SocketPath()));
    std::fflush(stdout);
    if (!options.screenshot.isEmpty()) {
        QTimer::singleShot(kSettleMs, &window, [&window, &options] {
            try {
                SavePicture(window, options.screenshot);
                QApplication::exit(0);
            } catch (const vasclip::RuntimeError& failure) {
                std::fprintf(stderr, "kelforms: %s\n", failure.what());
                QApplication::exit(kScreenshotFailed);
            }
        });
    }
    return QApplication::exec();
}

} // namespace kelforms
