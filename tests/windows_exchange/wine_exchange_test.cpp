// A program of this system speaks with a forms program under Wine: the conduit, Wine, the bridge, the exchange and a partner
// are all real. Started by `run`, which has made the Wine.

#include "platform/conduit/dde_conduit.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

QString Beside(const QString& name)
{
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

/// The partner, which ends with its input.
class Partner
{
public:
    explicit Partner(const QStringList& arguments = {})
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(qEnvironmentVariable("EXCHANGE_WINE"), QStringList{Beside(u"exchange_partner.exe"_s)} + arguments);
        m_process.waitForReadyRead(60000);
        EXPECT_TRUE(m_process.readLine().startsWith("ready"));
    }
    ~Partner()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(10000))
            m_process.kill();
    }

private:
    QProcess m_process;
};

std::unique_ptr<conduit::Conduit> Link(int timeLimitMs = 30000)
{
    conduit::DdeOptions options;
    options.wine = qEnvironmentVariable("EXCHANGE_WINE");
    options.bridge = Beside(u"vasclip-bridge.exe"_s);
    options.codePage = 1252;
    options.timeLimitMs = timeLimitMs;
    auto link = conduit::MakeDdeConduit(options);
    link->SetLinkTopic(u"KEL|R1"_s);
    return link;
}

QString Ask(conduit::Conduit& link, const QString& item)
{
    link.SetLinkMode(2);
    link.SetLinkItem(item);
    link.LinkRequest();
    return link.Text();
}

struct Thrown
{
    int number = 0;
    QString words;
};

Thrown ThrownBy(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RuntimeError& failure) {
        return {failure.Number(), failure.Description()};
    }
    return {};
}

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
    const auto link = Link(3000);
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

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
