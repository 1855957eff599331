#include "platform/conduit/peer.h"

#include "servers.h"
#include "support/unix.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

PeerIdentity Mallory(qintptr, SocketEnd)
{
    return {u"4242"_s, u"mallory"_s, 666};
}

class Peer : public testing::Test
{
protected:
    QTemporaryDir m_dir;
    QString m_path = m_dir.filePath(u"kel.sock"_s);
};

TEST_F(Peer, TheSystemVouchesForOurselves)
{
    PeerIdentity seen;
    ServerThread server({m_path, u"memo"_s, PeerOf, {}, {}, {}, {}});
    const auto link = MakeSocketConduit({m_path, 5000, [&seen](qintptr descriptor, SocketEnd end) {
                                             seen = PeerOf(descriptor, end);
                                             return seen;
                                         }});
    link->SetLinkTopic(u"KEL|Query"_s);
    link->SetLinkMode(2);
    EXPECT_EQ(seen.userId, CurrentUserId());
    EXPECT_EQ(seen.pid, QCoreApplication::applicationPid());
    EXPECT_FALSE(seen.userName.isEmpty());
}

TEST_F(Peer, AnImpostorBehindTheSocketIsRefusedAndNamed)
{
    ServerThread server({m_path, u"memo"_s, PeerOf, {}, {}, {}, {}});
    const auto link = MakeSocketConduit({m_path, 5000, Mallory});
    link->SetLinkTopic(u"KEL|Query"_s);
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 282);
    EXPECT_EQ(thrown.words,
              u"The program that answers on the link is not this user's: it belongs to user mallory "
              "(uid 4242), process 666"_s);
}

TEST_F(Peer, AnImpostorBeforeTheServerIsTurnedAway)
{
    std::promise<QString> told;
    auto words = told.get_future();
    ServerThread server(
        {m_path, u"memo"_s, Mallory, {}, {}, {}, [&told](const QString& text) { told.set_value(text); }});
    const auto link = MakeSocketConduit({m_path, 5000, PeerOf});
    link->SetLinkTopic(u"KEL|Query"_s);
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 289);
    EXPECT_TRUE(thrown.words.contains(u"user mallory (uid 4242), process 666"_s))
        << thrown.words.toStdString();
    ASSERT_EQ(words.wait_for(std::chrono::seconds(5)), std::future_status::ready);
    EXPECT_EQ(words.get(), u"The program that opened the link is not this user's: it belongs to user mallory "
                           "(uid 4242), process 666"_s);
}

TEST_F(Peer, ALinkInThePlaceOfTheSocketIsRefused)
{
    VASCLIP_NEEDS_UNIX("a socket that is a file");
    const QString real = m_dir.filePath(u"real.sock"_s);
    ServerThread server({real, u"memo"_s, PeerOf, {}, {}, {}, {}});
    ASSERT_TRUE(QFile::link(real, m_path));
    const auto link = MakeSocketConduit({m_path, 5000, PeerOf});
    link->SetLinkTopic(u"KEL|Query"_s);
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 282);
    EXPECT_TRUE(thrown.words.startsWith(m_path + u" is a symbolic link, not a socket"_s))
        << thrown.words.toStdString();
    EXPECT_EQ(ThrownBy([this] {
                  const ServerThread second({m_path, u"memo"_s, PeerOf, {}, {}, {}, {}});
              }).number,
              58);
}

TEST_F(Peer, TheSocketIsItsOwnersAlone)
{
    ServerThread server({m_path, u"memo"_s, PeerOf, {}, {}, {}, {}});
    EXPECT_EQ(QFileInfo(m_path).permissions() &
                  (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
              QFile::Permissions());
}

} // namespace
