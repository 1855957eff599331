// The bridge under Wine as its pipe sees it: lines in pieces, lines together, pauses around those in which it waits for the
// next one, and the end of its input wherever it comes.

#include "windows_exchange/under_wine.h"

#include <QElapsedTimer>
#include <QThread>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::test;

namespace {

constexpr int kPlentyMs = 60000;

class RawBridge
{
public:
    RawBridge()
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(qEnvironmentVariable("EXCHANGE_WINE"),
                        {Beside(u"vasclip-bridge.exe"_s), u"--time-limit"_s, u"30000"_s, u"--code-page"_s, u"1252"_s});
    }
    ~RawBridge()
    {
        m_process.kill();
        m_process.waitForFinished(kPlentyMs);
    }

    void Write(const QByteArray& bytes)
    {
        m_process.write(bytes);
        while (m_process.bytesToWrite() > 0 && m_process.waitForBytesWritten(kPlentyMs)) {
        }
    }
    QByteArray ReadLine()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(kPlentyMs)) {
        }
        return m_process.readLine();
    }
    void Greet()
    {
        EXPECT_TRUE(Asked("{\"hello\":\"vasclip-link\",\"version\":1,\"nonce\":\"n\"}\n").contains("\"nonce\":\"n\""));
    }
    QByteArray Asked(const QByteArray& bytes)
    {
        Write(bytes);
        return ReadLine();
    }
    /// @return its code after the end of its input; -1 if it does not end
    int End()
    {
        m_process.closeWriteChannel();
        return Ended();
    }
    int Ended()
    {
        return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(kPlentyMs) ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
};

QByteArray Question(int id, const char* item = "COUNT")
{
    return "{\"id\":" + QByteArray::number(id) + R"(,"do":"request","topic":"KEL|R1","item":")" + item + "\"}\n";
}

QByteArray Answer(int id, const QByteArray& text)
{
    return "{\"id\":" + QByteArray::number(id) + ",\"text\":\"" + text + "\"}\n";
}

TEST(BridgeLines, InPiecesAndTogether)
{
    const Partner partner;
    RawBridge bridge;
    bridge.Write("{\"hello\":\"vasclip-");
    QThread::msleep(30);
    EXPECT_TRUE(bridge.Asked("link\",\"version\":1,\"nonce\":\"n\"}\n").contains("vasclip-bridge"));
    int id = 0;
    for (const int pause : {0, 5, 19, 21, 700}) { // within the wait for the next line, about its end, at rest
        for (const int at : {1, 30, static_cast<int>(Question(1).size()) - 1}) {
            const QByteArray line = Question(++id);
            bridge.Write(line.first(at));
            QThread::msleep(static_cast<unsigned long>(pause));
            EXPECT_EQ(bridge.Asked(line.sliced(at)), Answer(id, QByteArray::number(id)));
        }
    }
    for (const int together : {2, 3, 200}) {
        QByteArray lines;
        for (int i = 1; i <= together; ++i)
            lines += Question(id + i);
        bridge.Write(lines + Question(id + together + 1).first(20)); // and the next one's beginning
        for (int i = 0; i < together; ++i, ++id)
            EXPECT_EQ(bridge.ReadLine(), Answer(id + 1, QByteArray::number(id + 1)));
        const QByteArray rest = Question(++id).sliced(20);
        EXPECT_EQ(bridge.Asked(rest), Answer(id, QByteArray::number(id)));
    }
    EXPECT_EQ(bridge.End(), 0);
}

/// A line that nobody is woken for is found at the next look, half a second later.
TEST(BridgeLines, NoneIsLeftLyingAfterAnyPause)
{
    const Partner partner;
    RawBridge bridge;
    bridge.Greet();
    constexpr int kRounds = 30;
    int id = 0, late = 0;
    for (int round = 0; round < kRounds; ++round) {
        for (const unsigned long pause : {0UL, 1UL, 15UL, 18UL, 19UL, 20UL, 21UL, 22UL, 25UL, 50UL, 51UL}) {
            QThread::msleep(pause);
            QElapsedTimer clock;
            clock.start();
            ++id;
            EXPECT_EQ(bridge.Asked(Question(id)), Answer(id, QByteArray::number(id)));
            late += pause >= 50 && clock.elapsed() >= 100 ? 1 : 0;
        }
    }
    EXPECT_LT(late, kRounds); // of twice as many; some turns take long on a machine with other things to do
    EXPECT_EQ(bridge.End(), 0);
}

TEST(BridgeLines, TheEndOfTheInput)
{
    const Partner partner;
    for (const unsigned long pause : {0UL, 10UL, 20UL, 100UL, 2700UL}) {
        RawBridge bridge;
        bridge.Greet();
        EXPECT_EQ(bridge.Asked(Question(1, "X")), Answer(1, "nothing"));
        QThread::msleep(pause);
        EXPECT_EQ(bridge.End(), 0) << pause;
    }
    RawBridge bridge; // behind a line that has none, and behind one whose answer nobody has read
    bridge.Greet();
    bridge.Write(Question(1, "X") + Question(2, "X").chopped(1));
    EXPECT_EQ(bridge.End(), 0);
    EXPECT_EQ(bridge.ReadLine(), Answer(1, "nothing"));
    EXPECT_EQ(bridge.ReadLine(), QByteArray());
    RawBridge last;
    last.Greet();
    EXPECT_EQ(last.Asked(Question(1, "CONVERSATIONS")), Answer(1, "1")); // each has taken leave
}

TEST(BridgeLines, OneThatIsTooLong)
{
    constexpr int kLongest = 16 * 1024 * 1024; // with its line feed
    const Partner partner;
    {
        RawBridge bridge;
        bridge.Greet();
        const QByteArray full = Question(1, "X").chopped(2) + ",\"more\":\"";
        const QByteArray longest = full + QByteArray(kLongest - 3 - full.size(), 'x') + "\"}\n";
        ASSERT_EQ(longest.size(), kLongest);
        EXPECT_TRUE(bridge.Asked(longest).contains("\"id\":0,")); // it is read, and is none of the three
        EXPECT_EQ(bridge.Asked(Question(2, "X")), Answer(2, "nothing"));
    }
    for (const QByteArray& end : {QByteArray("\n"), QByteArray()}) {
        RawBridge bridge;
        bridge.Greet();
        bridge.Write(Question(1, "X") + QByteArray(kLongest, 'x') + end);
        EXPECT_EQ(bridge.ReadLine(), Answer(1, "nothing"));
        EXPECT_TRUE(bridge.ReadLine().contains("a line longer than 16777216 bytes"));
        EXPECT_EQ(bridge.Ended(), 1);
    }
}

TEST(BridgeLines, ThePartnerGoesBetweenTwoOfThem)
{
    RawBridge bridge;
    bridge.Greet();
    EXPECT_TRUE(bridge.Asked(Question(1)).contains("\"number\":282"));
    int id = 1;
    for (int round = 0; round < 3; ++round) {
        const Partner partner; // that of the round before has gone
        for (const char* count : {"1", "2"}) {
            ++id;
            EXPECT_EQ(bridge.Asked(Question(id)), Answer(id, count));
        }
    }
    // One that ends the conversation while the bridge waits for the next line, or just as that one comes.
    const Partner partner({u"--ends-after"_s, u"5"_s});
    int answers = 0;
    for (int round = 0; round < 40; ++round) {
        ++id;
        const QByteArray said = bridge.Asked(Question(id));
        if (said == Answer(id, QByteArray::number(answers + 1)))
            ++answers;
        else
            EXPECT_TRUE(said.contains("\"number\":289,")) << said.constData();
        QThread::msleep(12);
    }
    EXPECT_GT(answers, 10);
    EXPECT_EQ(bridge.End(), 0);
}

} // namespace
