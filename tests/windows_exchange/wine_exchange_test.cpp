// A program of this system speaks with a forms program under Wine: the conduit, Wine, the bridge, the exchange and a partner
// are all real. Started by `run`, which has made the Wine.

#include "windows_exchange/under_wine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <vector>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::test;

namespace {

TEST(WineExchange, AWholeConversation)
{
    const auto link = Link();
    const Thrown nobody = ThrownBy([&] { Ask(*link, u"X"_s); });
    EXPECT_EQ(nobody.number, 282);
    EXPECT_EQ(nobody.words, u"No program takes a conversation about \"KEL|R1\""_s);
    {
        const Partner partner;
        const QString text = u"1.2 Mi. NW\r\n\"café\" € \\ \t"_s;
        for (int i = 0; i < 50; ++i) {
            link->SetLinkMode(2);
            link->SetLinkItem(u"UA5|14|%1"_s.arg(i));
            link->SetText(text + QString::number(i));
            link->LinkPoke();
            link->SetLinkMode(0);
        }
        for (int i = 0; i < 50; ++i)
            EXPECT_EQ(Ask(*link, u"UA5|14|%1"_s.arg(i)), text + QString::number(i));
        link->LinkExecute(u"[RunMacro(recalc.bas)]\r"_s);
        EXPECT_EQ(Ask(*link, u"COMMANDS"_s), u"[RunMacro(recalc.bas)]\r"_s);
        EXPECT_EQ(ThrownBy([&] { Ask(*link, u"REFUSE"_s); }).words,
                  u"The forms program refuses the request of \"REFUSE\""_s);
        link->SetText(u"12 漢 Street"_s);
        EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).words,
                  u"The value for \"REFUSE\" holds \"漢\" (U+6F22) at place 4, which code page 1252 does not have; nothing "
                  "was sent"_s);
        EXPECT_EQ(Ask(*link, u"UA5|14|7"_s), text + u'7');
    }
    // It has gone, which the bridge has heard; the next one is found by the same bridge.
    EXPECT_EQ(ThrownBy([&] { Ask(*link, u"X"_s); }).number, 282);
    const Partner another;
    EXPECT_EQ(Ask(*link, u"X"_s), u"nothing"_s);
}

TEST(WineExchange, APartnerThatIsSilentOrGoesInTheMiddle)
{
    const auto link = Link(Options(3000));
    {
        const Partner partner({u"--copies"_s, u"0"_s});
        ThrownBy([&] { link->SetLinkMode(2); }); // the bridge may still be starting
        const Thrown late = ThrownBy([&] { Ask(*link, u"X"_s); });
        EXPECT_EQ(late.number, 286);
        EXPECT_EQ(late.words, u"The forms program did not answer the request of \"X\" within 3 seconds"_s);
        EXPECT_EQ(link->LinkMode(), 0);
    }
    const Partner partner({u"--vanish-after"_s, u"1"_s});
    EXPECT_EQ(Ask(*link, u"X"_s), u"nothing"_s);
    const Thrown gone = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(gone.number, 289);
    EXPECT_EQ(gone.words, u"The forms program has gone in the middle of the request of \"X\""_s);
}

/// The processes that a process of this system has started.
std::vector<pid_t> ChildrenOf(qint64 process)
{
    QFile file(u"/proc/%1/task/%1/children"_s.arg(process));
    std::vector<pid_t> children;
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& child : file.readAll().simplified().split(' ')) {
            if (!child.isEmpty())
                children.push_back(child.toInt());
        }
    }
    return children;
}

/// The only one whose command line names the bridge.
pid_t BridgeOf(qint64 process)
{
    pid_t bridge = 0;
    for (const pid_t child : ChildrenOf(process)) {
        QFile file(u"/proc/%1/cmdline"_s.arg(child));
        if (!file.open(QIODevice::ReadOnly) || !file.readAll().contains("vasclip-bridge.exe"))
            continue;
        EXPECT_EQ(bridge, 0);
        bridge = child;
    }
    return bridge;
}

bool Ends(pid_t process)
{
    for (int i = 0; i < 300 && QFile::exists(u"/proc/%1/cmdline"_s.arg(process)); ++i)
        QThread::msleep(100);
    return !QFile::exists(u"/proc/%1/cmdline"_s.arg(process));
}

TEST(WineExchange, ABridgeThatIsKilledInTheMiddle)
{
    const Partner partner({u"--delay"_s, u"2000"_s, u"--delays"_s, u"1"_s});
    const auto link = Link();
    link->SetLinkMode(2);
    link->SetLinkItem(u"X"_s);
    const pid_t bridge = BridgeOf(QCoreApplication::applicationPid());
    ASSERT_NE(bridge, 0);
    const std::unique_ptr<QThread> killer(QThread::create([bridge] {
        QThread::msleep(500);
        kill(bridge, SIGKILL);
    }));
    killer->start();
    const Thrown gone = ThrownBy([&] { link->LinkRequest(); });
    killer->wait();
    EXPECT_EQ(gone.number, 289);
    EXPECT_EQ(gone.words, u"The bridge to the forms program has ended: it crashed, without a word"_s);
    EXPECT_EQ(link->LinkMode(), 0);
    EXPECT_EQ(Ask(*link, u"COUNT"_s), u"1"_s);
    EXPECT_NE(BridgeOf(QCoreApplication::applicationPid()), bridge);
    EXPECT_EQ(Ask(*link, u"CONVERSATIONS"_s), u"1"_s); // that of the dead one is over
}

/// Vasclip itself goes, between two lines and in the middle of one.
TEST(WineExchange, AHostThatIsKilledTakesTheBridgeWithIt)
{
    const Partner partner({u"--delay"_s, u"1500"_s, u"--delays"_s, u"1000"_s});
    for (const QString& manner : {u"--rests"_s, u"--asks"_s}) {
        QProcess host;
        host.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        host.start(QCoreApplication::applicationFilePath(), {u"--host"_s, manner});
        ASSERT_TRUE(host.waitForReadyRead(60000));
        const pid_t bridge = BridgeOf(host.processId());
        ASSERT_NE(bridge, 0);
        host.kill();
        ASSERT_TRUE(host.waitForFinished(10000));
        EXPECT_TRUE(Ends(bridge));
        const auto link = Link();
        EXPECT_EQ(Ask(*link, u"CONVERSATIONS"_s), u"1"_s);
    }
}

/// What the test above starts: it asks once, says so, and asks again or waits to be killed.
int Host(bool asks)
{
    const auto link = Link();
    link->SetLinkMode(2);
    link->SetLinkItem(u"X"_s);
    link->LinkRequest();
    std::puts("asked");
    std::fflush(stdout);
    for (;;) {
        if (asks)
            link->LinkRequest();
        else
            QThread::msleep(1000);
    }
}

/// The opening takes most of a time limit, and the exchange behind it another one.
TEST(WineExchange, APartnerThatIsLateTwice)
{
    // Five seconds at work, and the system says that it hangs.
    const Partner partner({u"--slow-to-take"_s, u"4000"_s, u"--delay"_s, u"4000"_s});
    const auto link = Link(Options(5000));
    ThrownBy([&] { link->SetLinkMode(2); }); // the bridge may still be starting
    EXPECT_EQ(Ask(*link, u"COUNT"_s), u"1"_s);
}

TEST(WineExchange, ACodePageThatTheExchangeHasNot)
{
    for (const auto& [number, words] :
         {std::pair(4U, u"The system can't exchange text in code page 4; CodePage in section [LINK] of KEL.INI names the one "
                        "that is used"_s),
          std::pair(37U, u"code page 37 has other places for plain letters, and the exchange can't use it; CodePage in section "
                         "[LINK] of KEL.INI names the one that is used"_s)}) {
        conduit::DdeOptions options = Options();
        options.codePage = number;
        const Thrown told = ThrownBy([&] { Ask(*Link(options), u"X"_s); });
        EXPECT_EQ(told.number, 298);
        EXPECT_EQ(told.words, u"The bridge to the forms program has ended: vasclip-bridge: "_s + words);
    }
}

TEST(WineExchange, PathsWithBlanksAndOtherLetters)
{
    const QByteArray locale = qgetenv("LC_ALL");
    qputenv("LC_ALL", "C"); // as a program has that a timer starts
    const QTemporaryDir directory;
    const QString place = directory.filePath(u"Büro 漢字 of Ann's"_s);
    ASSERT_TRUE(QDir().mkpath(place));
    conduit::DdeOptions options = Options();
    options.bridge = place + u"/vasclip-bridge.exe"_s;
    ASSERT_TRUE(QFile::copy(Beside(u"vasclip-bridge.exe"_s), options.bridge));
    options.winePrefix = place + u"/a Wine"_s;
    ASSERT_TRUE(QFile::link(qEnvironmentVariable("WINEPREFIX"), options.winePrefix));
    const Partner partner;
    EXPECT_EQ(Ask(*Link(options), u"X"_s), u"nothing"_s);
    qputenv("LC_ALL", locale);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication app(argc, argv);
    if (argc == 3 && app.arguments().at(1) == u"--host"_s)
        return Host(app.arguments().at(2) == u"--asks"_s);
    return RUN_ALL_TESTS();
}
