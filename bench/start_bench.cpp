// Program start to the first painted grid on the demo, beside an empty window that opens the same database
// and reads one screen. Both run as whole processes, in turn, and their medians are compared.
//
//   start_bench HOME [RUNS]     HOME as vasclip-demo makes it

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <cstdio>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongestMs = 60000;

/// Milliseconds from the start of the process to its end; -1 if it failed, which it says.
double Run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!environment.contains(u"QT_QPA_PLATFORM"_s))
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kLongestMs);
    if (!ended || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        std::fprintf(stderr, "start_bench: %s %s (%s)\n", qPrintable(program),
                     !ended ? "has not ended by itself"
                     : process.exitStatus() != QProcess::NormalExit
                         ? "crashed"
                         : qPrintable(u"ended with code %1"_s.arg(process.exitCode())),
                     qPrintable(process.errorString()));
        return -1;
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: start_bench HOME [RUNS]\n");
        return 2;
    }
    const QString bin = QCoreApplication::applicationDirPath();
    const QString home = arguments[1];
    const int runs = arguments.size() > 2 ? arguments[2].toInt() : 11;
    std::vector<double> ours;
    std::vector<double> peer;
    for (int i = 0; i <= runs; ++i) {
        const double vasclip = Run(bin + u"/vasclip"_s, {u"--home"_s, home, u"--quit-when-painted"_s});
        const double empty = Run(bin + u"/empty_window"_s, {home + u"/drive_c/DATABOOK/DATABOOK.MDB"_s});
        if (vasclip < 0 || empty < 0)
            return 1;
        if (i == 0)
            continue; // warms the caches of both
        ours.push_back(vasclip);
        peer.push_back(empty);
    }
    std::printf(
        "start to first painted grid: %.0f ms, empty window %.0f ms, ratio %.2f (limit 2.00), %d runs\n",
        Median(ours), Median(peer), Median(ours) / Median(peer), runs);
    return 0;
}
