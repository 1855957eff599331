#include "platform/conduit/socket_conduit.h"

#include "platform/conduit/socket_path.h"
#include "servers.h"
#include "support/unix.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

class Link : public testing::Test
{
protected:
    QTemporaryDir m_dir;
    QString m_path = m_dir.filePath(u"kel.sock"_s);

    [[nodiscard]] ServerOptions Options() const { return {m_path, u"memo"_s, PeerOf, {}, {}, {}, {}}; }
    [[nodiscard]] std::unique_ptr<Conduit> Client(int timeLimitMs = 5000) const
    {
        return MakeSocketConduit({m_path, timeLimitMs, PeerOf});
    }

    static void Open(Conduit& link, const QString& topic, const QString& item = {})
    {
        link.SetLinkMode(0);
        link.SetLinkTopic(topic);
        link.SetLinkMode(2);
        link.SetLinkItem(item);
    }
};

TEST_F(Link, RequestPokeAndExecute)
{
    ServerThread server(Options());
    const auto link = Client();
    Open(*link, u"KEL|SMITH"_s, u"URAR|14|2"_s);
    link->SetText(u"1.2 Mi. NW"_s);
    link->LinkPoke();
    EXPECT_EQ(link->LinkMode(), 2);
    link->SetText(u"NULL"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"1.2 Mi. NW"_s);
    link->LinkExecute(u"[RunMacro(recalc.bas)]\r"_s);
    EXPECT_EQ(link->Text(), u"1.2 Mi. NW"_s);
    link->SetLinkMode(0);
    server.Stop();
    EXPECT_EQ(server.handler.commands, QStringList{u"[RunMacro(recalc.bas)]\r"_s});
}

TEST_F(Link, TopicIsFixedWhileOpen)
{
    ServerThread server(Options());
    const auto link = Client();
    Open(*link, u"KEL|System"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkTopic(u"KEL|System"_s); }).number, 287);
    link->SetLinkMode(0);
    link->SetLinkTopic(u"KEL|Query"_s);
    EXPECT_EQ(link->LinkTopic(), u"KEL|Query"_s);
}

TEST_F(Link, OnlyModesZeroAndTwo)
{
    const auto link = Client();
    link->SetLinkTopic(u"KEL|Query"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(1); }).number, 380);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(-1); }).number, 380);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(Link, AnExchangeNeedsAConversation)
{
    const auto link = Client();
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 293);
    EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).number, 293);
    EXPECT_EQ(ThrownBy([&] { link->LinkExecute(u"x"_s); }).number, 293);
}

TEST_F(Link, NobodyThere)
{
    const auto link = Client();
    link->SetLinkTopic(u"KEL|Query"_s);
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 282);
    EXPECT_EQ(thrown.words, u"No forms program listens at "_s + m_path);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(Link, APathFromHereIsAPathToo)
{
    VASCLIP_NEEDS_UNIX("a socket that is a file");
    const QString relative = QDir::current().relativeFilePath(m_path);
    ServerOptions options = Options();
    options.socketPath = relative;
    ServerThread server(options);
    EXPECT_TRUE(QFileInfo::exists(m_path));
    const auto link = MakeSocketConduit({relative, 5000, PeerOf});
    Open(*link, u"KEL|S"_s, u"x"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
}

TEST_F(Link, ATopicWithoutServiceOpensNothing)
{
    ServerThread server(Options());
    const auto link = Client();
    for (const QString& topic : {u""_s, u"KEL"_s, u"|Query"_s}) {
        link->SetLinkTopic(topic);
        EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, 282);
    }
}

TEST_F(Link, ARefusalKeepsTheConversation)
{
    ServerThread server(Options());
    const auto link = Client();
    Open(*link, u"KEL|SMITH"_s, u"REFUSE"_s);
    link->SetText(u"before"_s);
    const Thrown thrown = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(thrown.number, 285);
    EXPECT_EQ(thrown.words, u"I will not say \"REFUSE\""_s);
    EXPECT_EQ(link->Text(), u"before"_s);
    EXPECT_EQ(link->LinkMode(), 2);
    link->SetLinkItem(u"other"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
}

TEST_F(Link, AMegabyteAndEveryPlaneOfUnicode)
{
    ServerThread server(Options());
    const auto link = Client();
    QString text;
    while (text.size() < 1024 * 1024)
        text += u"Müller's \"house\" \\ 漢字 "_s + QString::fromUcs4(U"\U0001F3E0") + u"\r\n"_s;
    Open(*link, u"KEL|É"_s, u"Ünïcode|1|2"_s);
    link->SetText(text);
    link->LinkPoke();
    link->SetText({});
    link->LinkRequest();
    EXPECT_TRUE(link->Text() == text);
}

TEST_F(Link, ATextBeyondTheLongestLineIsRefusedHere)
{
    ServerThread server(Options());
    const auto link = Client();
    Open(*link, u"KEL|SMITH"_s, u"A|1|1"_s);
    link->SetText(QString(kMaxLine, u'x'));
    EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).number, 285);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
}

TEST_F(Link, SilenceEndsAtTheTimeLimit)
{
    ServerOptions options = Options();
    options.faults.neverAnswer = true;
    ServerThread server(options);
    const auto link = Client(200);
    Open(*link, u"KEL|Query"_s, u"ActiveReports"_s);
    QElapsedTimer clock;
    clock.start();
    const Thrown thrown = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(thrown.number, 286);
    EXPECT_GE(clock.elapsed(), 190);
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(Link, SilenceAtTheGreetingToo)
{
    ScriptedServer server(m_path, [](QLocalSocket& socket, int) { socket.waitForDisconnected(3000); });
    const auto link = Client(200);
    link->SetLinkTopic(u"KEL|Query"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, 286);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(Link, ALateAnswerIsNeverTakenForTheNextOne)
{
    ServerOptions options = Options();
    options.faults.delayMs = 400;
    ServerThread server(options);
    server.handler.memory[u"KEL|S/first"_s] = u"the first answer"_s;
    server.handler.memory[u"KEL|S/second"_s] = u"the second answer"_s;
    const auto hasty = Client(150);
    Open(*hasty, u"KEL|S"_s, u"first"_s);
    EXPECT_EQ(ThrownBy([&] { hasty->LinkRequest(); }).number, 286);
    QThread::msleep(400);
    Open(*hasty, u"KEL|S"_s, u"second"_s);
    EXPECT_EQ(ThrownBy([&] { hasty->LinkRequest(); }).number, 286);
    EXPECT_EQ(hasty->Text(), QString());
    const auto patient = Client(5000);
    Open(*patient, u"KEL|S"_s, u"second"_s);
    patient->LinkRequest();
    EXPECT_EQ(patient->Text(), u"the second answer"_s);
}

struct RawRow
{
    const char* name;
    QByteArray bytes;
    int number;
    QString says;
};

void PrintTo(const RawRow& row, std::ostream* out)
{
    *out << row.name;
}

class RawAnswer : public Link, public testing::WithParamInterface<RawRow>
{};

TEST_P(RawAnswer, EndsTheConversation)
{
    ScriptedServer server(m_path, [](QLocalSocket& socket, int client) {
        ScriptedServer::Greet(socket);
        ScriptedServer::ReadLine(socket);
        ScriptedServer::Write(socket,
                              client == 0 ? GetParam().bytes : QByteArray("{\"id\":1,\"text\":\"well\"}\n"));
    });
    const auto link = Client(2000);
    Open(*link, u"KEL|Query"_s, u"ActiveReports"_s);
    link->SetText(u"kept"_s);
    const Thrown thrown = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(thrown.number, GetParam().number);
    EXPECT_TRUE(thrown.words.contains(GetParam().says)) << thrown.words.toStdString();
    EXPECT_EQ(link->Text(), u"kept"_s);
    EXPECT_EQ(link->LinkMode(), 0);
    Open(*link, u"KEL|Query"_s, u"ActiveReports"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"well"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RawAnswer,
    testing::Values(
        RawRow{"garbage", "\x01{what?\xff\n", 289, u"Garbage on the link"_s},
        RawRow{"otherId", "{\"id\":2,\"text\":\"SMITH.RPT,\"}\n", 289, u"answer 2 to question 1"_s},
        RawRow{"wrongKind", "{\"id\":1,\"ok\":true}\n", 289, u"of the wrong kind"_s},
        RawRow{"halfLine", "{\"id\":1,\"te", 289, u"in the middle of an answer"_s},
        RawRow{"nothing", "", 289, u"closed the link"_s},
        RawRow{"unreadable", "{\"id\":0,\"error\":{\"number\":289,\"text\":\"eh?\"}}\n", 289, u"eh?"_s}),
    [](const auto& info) { return info.param.name; });

TEST_F(Link, AnAnswerInPiecesIsOneAnswer)
{
    ScriptedServer server(m_path, [](QLocalSocket& socket, int) {
        ScriptedServer::Greet(socket);
        ScriptedServer::ReadLine(socket);
        for (const char c : QByteArray("{\"id\":1,\"text\":\"bit by bit\"}\n")) {
            ScriptedServer::Write(socket, QByteArray(1, c));
            QThread::msleep(1);
        }
        socket.waitForDisconnected(2000);
    });
    const auto link = Client();
    Open(*link, u"KEL|Query"_s, u"ActiveReports"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"bit by bit"_s);
}

TEST_F(Link, AGreetingForSomebodyElseIsRefused)
{
    ScriptedServer server(m_path, [](QLocalSocket& socket, int) {
        ScriptedServer::ReadLine(socket);
        ScriptedServer::Write(socket, Encode(Hello{u"another"_s, u"script"_s, 1}));
        socket.waitForDisconnected(2000);
    });
    const auto link = Client();
    link->SetLinkTopic(u"KEL|Query"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, 289);
}

TEST_F(Link, AServerThatCameBackIsFoundAgain)
{
    const auto link = Client();
    {
        ServerThread server(Options());
        Open(*link, u"KEL|S"_s, u"x"_s);
        link->LinkRequest();
        link->SetLinkMode(0);
    }
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, 282);
    ServerThread server(Options());
    link->SetLinkMode(2);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
}

TEST_F(Link, AServerThatGoesWhileOpenIsReported)
{
    const auto link = Client();
    {
        ServerThread server(Options());
        Open(*link, u"KEL|S"_s, u"x"_s);
    }
    EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).number, 289);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST_F(Link, SeveralClientsDoNotDisturbEachOther)
{
    ServerThread server(Options());
    std::vector<std::unique_ptr<QThread>> clients;
    std::atomic<int> right = 0;
    for (int n = 0; n < 4; ++n) {
        clients.emplace_back(QThread::create([this, n, &right] {
            const auto link = Client();
            for (int i = 0; i < 100; ++i) {
                const QString value = u"client %1 value %2"_s.arg(n).arg(i);
                Open(*link, u"KEL|CLIENT%1"_s.arg(n), u"x"_s);
                link->SetText(value);
                link->LinkPoke();
                link->SetText({});
                link->LinkRequest();
                right += link->Text() == value;
            }
        }));
        clients.back()->start();
    }
    for (const auto& client : clients)
        client->wait();
    EXPECT_EQ(right, 400);
}

TEST_F(Link, TheServerSurvivesAClientThatSpeaksNonsense)
{
    ServerThread server(Options());
    QLocalSocket rude;
    rude.connectToServer(m_path);
    ASSERT_TRUE(rude.waitForConnected(2000));
    rude.write(QByteArray(100000, '\xff') + '\n');
    ASSERT_TRUE(rude.waitForReadyRead(2000));
    EXPECT_TRUE(rude.readAll().startsWith("{\"error\":{"));
    QLocalSocket gone;
    gone.connectToServer(m_path);
    ASSERT_TRUE(gone.waitForConnected(2000));
    gone.write("{\"hello\":\"vascl");
    gone.abort();
    const auto link = Client();
    Open(*link, u"KEL|S"_s, u"x"_s);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
}

TEST_F(Link, ASecondServerIsRefusedInWords)
{
    ServerThread first(Options());
    const Thrown thrown = ThrownBy([this] { const ServerThread second(Options()); });
    EXPECT_EQ(thrown.number, 55);
    EXPECT_TRUE(thrown.words.contains(u"process %1"_s.arg(QCoreApplication::applicationPid())))
        << thrown.words.toStdString();
    const auto link = Client();
    Open(*link, u"KEL|S"_s, u"x"_s);
    link->LinkRequest();
}

TEST_F(Link, TheSocketOfADeadProcessIsReplaced)
{
    VASCLIP_NEEDS_UNIX("a socket that is a file");
    QProcess peer;
    peer.start(u"" LINK_PEER ""_s, {u"--socket"_s, m_path});
    ASSERT_TRUE(peer.waitForReadyRead(10000));
    const auto link = Client();
    Open(*link, u"KEL|S"_s, u"x"_s);
    link->SetText(u"from another process"_s);
    link->LinkPoke();
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"from another process"_s);
    peer.kill();
    ASSERT_TRUE(peer.waitForFinished(5000));
    ASSERT_TRUE(QFile::exists(m_path));
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 289);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).number, 282);
    ServerThread server(Options());
    link->SetLinkMode(2);
    link->LinkRequest();
    EXPECT_EQ(link->Text(), u"nothing"_s);
    server.Stop();
    EXPECT_FALSE(QFileInfo(m_path).exists());
}

TEST_F(Link, SomethingElseAtTheAddressIsLeftAlone)
{
    VASCLIP_NEEDS_UNIX("a socket that is a file");
    QFile file(m_path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("my diary");
    file.close();
    EXPECT_EQ(ThrownBy([this] { const ServerThread server(Options()); }).number, 58);
    EXPECT_EQ(QFileInfo(m_path).size(), 8);
    const auto link = Client();
    link->SetLinkTopic(u"KEL|Query"_s);
    EXPECT_EQ(ThrownBy([&] { link->SetLinkMode(2); }).words, m_path + u" is not a socket"_s);
}

TEST_F(Link, GarbageAfterNAnswers)
{
    ServerOptions options = Options();
    options.faults.garbageAfter = 2;
    ServerThread server(options);
    const auto link = Client();
    Open(*link, u"KEL|S"_s, u"x"_s);
    link->LinkRequest();
    link->LinkPoke();
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 289);
}

} // namespace
