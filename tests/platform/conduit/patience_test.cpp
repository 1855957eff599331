#include "platform/conduit/link_watch.h"
#include "servers.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

class Counting final : public Patience
{
public:
    int before = 0, after = 0, waits = 0;
    bool refuse = false;
    std::function<void()> within;
    void BeforeExchange() override
    {
        if (refuse)
            throw RuntimeError(kUserInterrupt, u"Cancelled"_s);
        ++before;
    }
    void AfterExchange() override { ++after; }
    void Waiting() override
    {
        ++waits;
        if (within)
            within();
    }
};

class PatienceTest : public testing::Test
{
protected:
    QTemporaryDir m_dir;
    QString m_path = m_dir.filePath(u"kel.sock"_s);
    Counting patience;

    [[nodiscard]] static LinkFaults Late(int milliseconds)
    {
        LinkFaults faults;
        faults.delayMs = milliseconds;
        return faults;
    }
    [[nodiscard]] static LinkFaults Silent()
    {
        LinkFaults faults;
        faults.neverAnswer = true;
        return faults;
    }
    [[nodiscard]] ServerOptions Options(LinkFaults faults = {}) const
    {
        return {m_path, u"memo"_s, PeerOf, faults, {}, {}, {}};
    }
    [[nodiscard]] std::unique_ptr<Conduit> Client(int timeLimitMs = 5000)
    {
        return MakeSocketConduit({m_path, timeLimitMs, PeerOf, &patience});
    }
    static void Open(Conduit& link)
    {
        link.SetLinkMode(0);
        link.SetLinkTopic(u"KEL|SMITH"_s);
        link.SetLinkMode(2);
        link.SetLinkItem(u"A"_s);
    }
};

TEST_F(PatienceTest, IsAskedWhileAnAnswerIsLateAndNotForOneThatComesAtOnce)
{
    {
        ServerThread quick(Options());
        const auto link = Client();
        Open(*link);
        link->LinkRequest();
        EXPECT_EQ(patience.waits, 0);
        EXPECT_EQ(patience.before, patience.after);
    }
    ServerThread slow(Options(Late(300)));
    const auto link = Client();
    Open(*link);
    link->LinkRequest();
    EXPECT_GE(patience.waits, 4);
    EXPECT_EQ(link->Text(), u"nothing"_s);
    EXPECT_EQ(patience.before, patience.after);
}

TEST_F(PatienceTest, StillHasATimeLimit)
{
    ServerThread server(Options(Silent()));
    const auto link = Client(250);
    Open(*link);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, error::kLinkTimeOut);
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(patience.before, patience.after);
}

TEST_F(PatienceTest, ThatIsAtItsEndLetsNothingOut)
{
    ServerThread server(Options());
    const auto link = Client();
    Open(*link);
    link->SetText(u"x"_s);
    patience.refuse = true;
    EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).number, kUserInterrupt);
    server.Stop();
    EXPECT_TRUE(server.handler.memory.isEmpty());
}

TEST_F(PatienceTest, AnExchangeWithinAnotherIsRefusedAndTheOuterOneGetsItsAnswer)
{
    ServerThread server(Options(Late(200)));
    const auto link = Client();
    Open(*link);
    int inner = 0;
    patience.within = [&] {
        inner = ThrownBy([&] { link->LinkExecute(u"[RunMacro(x)]"_s); }).number;
    };
    link->LinkRequest();
    EXPECT_EQ(inner, error::kLinkBusy);
    EXPECT_EQ(link->Text(), u"nothing"_s);
    server.Stop();
    EXPECT_TRUE(server.handler.commands.isEmpty());
}

class Watch : public PatienceTest
{
protected:
    LinkWatch watch{{m_path, 300, PeerOf}};
    QList<LinkWatch::Sees> seen;
    QString words;

    void SetUp() override
    {
        QObject::connect(&watch, &LinkWatch::Seen, &watch, [this](LinkWatch::Sees sees, const QString& told) {
            seen.append(sees);
            words = told;
        });
    }
    bool Sees(LinkWatch::Sees wanted)
    {
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 5000) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            if (!seen.isEmpty() && seen.last() == wanted)
                return true;
        }
        return false;
    }
};

TEST_F(Watch, SeesTheProgramComeItsReportsAndThatItHasGone)
{
    watch.Start(30);
    EXPECT_TRUE(Sees(LinkWatch::Sees::NotRunning));
    {
        ServerThread server(Options());
        server.handler.memory[u"KEL|Query/ActiveReports"_s] = u"SMITH,JONES,"_s;
        EXPECT_TRUE(Sees(LinkWatch::Sees::Reports));
        EXPECT_TRUE(words == u"SMITH,JONES,"_s || words == u"nothing"_s) << words.toStdString();
    }
    EXPECT_TRUE(Sees(LinkWatch::Sees::NotRunning));
}

TEST_F(Watch, SeesOneThatIsSilentAndOneThatIsAnothersWithoutBlocking)
{
    {
        ServerThread server(Options(Silent()));
        QElapsedTimer timer;
        timer.start();
        watch.Look();
        EXPECT_LT(timer.elapsed(), 200);
        EXPECT_TRUE(Sees(LinkWatch::Sees::Silent));
    }
    LinkWatch stranger({m_path, 300, [](qintptr, SocketEnd) {
                            return PeerIdentity{u"4711"_s, u"bob"_s, 99};
                        }});
    QString told;
    LinkWatch::Sees sees = LinkWatch::Sees::Nothing;
    QObject::connect(&stranger, &LinkWatch::Seen, &stranger, [&](LinkWatch::Sees what, const QString& text) {
        sees = what;
        told = text;
    });
    ServerThread server(Options());
    stranger.Look();
    for (int i = 0; i < 100 && sees == LinkWatch::Sees::Nothing; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(sees, LinkWatch::Sees::AnothersUser);
    EXPECT_TRUE(told.contains(u"bob"_s)) << told.toStdString();
}

} // namespace
