#include "kelforms/app/options.h"
#include "kelforms/app/service.h"
#include "kelforms/app/system_signals.h"
#include "kelforms/window/run_window.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/terminal.h"
#include "platform/text/runtime_error.h"

#include <QApplication>
#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsage = 2;
constexpr int kCannotStart = 3;
constexpr int kNotSaved = 4;

int RunHeadless(kelforms::Service& service)
{
    const kelforms::SystemSignals signals([] { QCoreApplication::quit(); }, [] {});
    service.onRefused = [](const QString& words) {
        std::fprintf(stderr, "kelforms: %s\n", qPrintable(words));
    };
    service.Listen();
    std::printf("kelforms: listening at %s\n", qPrintable(service.SocketPath()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}

int Run(const kelforms::Options& options)
{
    int result = 0;
    try {
        kelforms::Service service(options);
        result = options.headless ? RunHeadless(service) : kelforms::RunWindow(service, options);
        try {
            service.End();
        } catch (const vasclip::RuntimeError& failure) {
            std::fprintf(stderr, "kelforms: %s\n", failure.what());
            return kNotSaved;
        }
    } catch (const vasclip::RuntimeError& failure) {
        std::fprintf(stderr, "kelforms: %s\n", failure.what());
        return kCannotStart;
    }
    return result;
}

int Start()
{
    QCoreApplication::setApplicationName(u"kelforms"_s);
    int exitCode = kUsage;
    const std::optional<kelforms::Options> options =
        kelforms::ReadOptions(QCoreApplication::arguments(), exitCode);
    return options ? Run(*options) : exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    const vasclip::desktop::TerminalOutput terminal;
    if (kelforms::WantsNoWindow(argc, argv)) {
        const QCoreApplication application(argc, argv);
        return Start();
    }
    if (!vasclip::desktop::CanShowWindows()) {
        std::fputs(
            "kelforms: there is no display, so the window is out of sight; --headless serves without one\n",
            stderr);
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    return Start();
}
