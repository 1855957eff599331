// An exchange with a forms program under Wine, over the conduit, its bridge and the pipes between, beside the bare request of
// the smallest client there, which exchange_bench.exe measures; in turns. Wants a Wine that needs no display, as
// tests/windows_exchange/run makes one: tests/windows_exchange/run BIN --bench. usage: bench_exchange [EXCHANGES [ROUNDS]]

#include "platform/conduit/dde_conduit.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

constexpr int kFields = 40; // of a send, which asks nothing twice in one conversation

QString Beside(const QString& name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

QString Wine()
{
    return qEnvironmentVariable("EXCHANGE_WINE", u"wine"_s);
}

/// Microseconds, as the program under Wine prints them; 0 if it does not.
double BareRequest(int exchanges)
{
    QProcess bench;
    bench.start(Wine(), {Beside(u"exchange_bench.exe"_s), QString::number(exchanges), u"1"_s});
    bench.waitForFinished(300000);
    static const QRegularExpression figure(u"bare request ([0-9.]+) us"_s);
    return figure.match(QString::fromLatin1(bench.readAllStandardOutput())).captured(1).toDouble();
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const int exchanges = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
    QProcess partner;
    partner.start(Wine(), {Beside(u"exchange_partner.exe"_s)});
    partner.waitForReadyRead(60000);
    conduit::DdeOptions options;
    options.wine = Wine();
    options.bridge = Beside(u"vasclip-bridge.exe"_s);
    options.timeLimitMs = 60000;
    const auto link = conduit::MakeDdeConduit(options);
    link->SetLinkTopic(u"KEL|System"_s);
    link->SetLinkItem(u"UA5|14|2"_s);
    link->SetLinkMode(2);
    link->LinkRequest();
    std::vector<double> bare, ours, ratios;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer clock;
        clock.start();
        for (int i = 0; i < exchanges; ++i) {
            link->SetLinkMode(0);
            link->SetLinkMode(2);
            link->SetLinkItem(u"UA5|14|%1"_s.arg(i % kFields));
            link->LinkRequest();
        }
        ours.push_back(static_cast<double>(clock.nsecsElapsed()) / 1000.0 / exchanges);
        bare.push_back(BareRequest(exchanges));
        ratios.push_back(ours.back() / bare.back());
    }
    std::printf("bare request %.1f us, over conduit and bridge %.1f us, ratio %.2f (limit 1.5)\n", Median(bare), Median(ours),
                Median(ratios));
    partner.closeWriteChannel();
    partner.waitForFinished(5000);
    return 0;
}
