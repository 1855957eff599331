#include "platform/conduit/link_watch.h"
#include "servers.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

#include <cerrno>
#include <cstring>

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

#ifdef Q_OS_UNIX
/// A program that hangs takes nobody in; each look that gave up stays in its queue until that is full.
class Hanging
{
public:
    explicit Hanging(const QString& path)
        : m_listener(socket(AF_UNIX, SOCK_STREAM, 0))
    {
        m_address.sun_family = AF_UNIX;
        const QByteArray name = QFile::encodeName(path);
        std::memcpy(m_address.sun_path, name.constData(), static_cast<size_t>(name.size()) + 1);
        bind(m_listener, Address(), sizeof m_address);
        listen(m_listener, 1);
    }
    ~Hanging()
    {
        for (const int waiting : m_waiting)
            close(waiting);
        close(m_listener);
    }
    Hanging(const Hanging&) = delete;
    Hanging& operator=(const Hanging&) = delete;
    /// @return false if the queue is not known to be full
    bool Fill()
    {
        for (int i = 0; i < 64; ++i) {
            const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
            m_waiting.append(client);
            if (connect(client, Address(), sizeof m_address) != 0)
                return errno == EAGAIN;
        }
        return false;
    }

private:
    sockaddr* Address() { return reinterpret_cast<sockaddr*>(&m_address); }
    sockaddr_un m_address{};
    int m_listener;
    QList<int> m_waiting;
};

TEST_F(Watch, OfOneThatHangsNeverSaysThatItIsNotRunning)
{
    Hanging program(m_path);
    ASSERT_TRUE(program.Fill());
    watch.Start(50);
    EXPECT_TRUE(Sees(LinkWatch::Sees::Silent));
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 1500)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_FALSE(seen.contains(LinkWatch::Sees::NotRunning));
    EXPECT_GE(seen.count(LinkWatch::Sees::Silent), 2);
}

TEST_F(PatienceTest, OneThatHangsHasNotGone)
{
    Hanging program(m_path);
    ASSERT_TRUE(program.Fill());
    const auto link = Client(300);
    link->SetLinkMode(0);
    link->SetLinkTopic(u"KEL|SMITH"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, error::kLinkTimeOut);
}
#endif

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
