#include "platform/conduit/socket_path.h"

#include "platform/conduit/peer.h"
#include "servers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

class SocketPath : public testing::Test
{
protected:
    SocketPath() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_runtime.path())); }
    ~SocketPath() override
    {
        if (m_before.isNull())
            qunsetenv("XDG_RUNTIME_DIR");
        else
            qputenv("XDG_RUNTIME_DIR", m_before);
    }

    QByteArray m_before = qgetenv("XDG_RUNTIME_DIR");
    QTemporaryDir m_runtime;
    QTemporaryDir m_home;
};

TEST_F(SocketPath, LiesInTheRuntimeDirectoryUnderTheHomesDigest)
{
    const QString path = DefaultSocketPath(m_home.path());
    EXPECT_EQ(QFileInfo(path).absolutePath(), m_runtime.path());
    EXPECT_TRUE(
        QRegularExpression(u"^kel-[0-9a-f]{8}\\.sock$"_s).match(QFileInfo(path).fileName()).hasMatch())
        << path.toStdString();
    EXPECT_LT(path.toUtf8().size(), 100);
}

TEST_F(SocketPath, IsTheSameByWhateverNameTheHomeIsReached)
{
    const QString link = m_runtime.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(m_home.path(), link));
    EXPECT_EQ(DefaultSocketPath(link), DefaultSocketPath(m_home.path()));
    EXPECT_EQ(DefaultSocketPath(m_home.path() + u"/./x/.."_s), DefaultSocketPath(m_home.path() + u"/"_s));
    const QTemporaryDir other;
    EXPECT_NE(DefaultSocketPath(other.path()), DefaultSocketPath(m_home.path()));
}

TEST_F(SocketPath, FallsBackWhenTheRuntimeDirectoryIsOpenOrTooLong)
{
    const QString fallback = u"/tmp/vasclip-"_s + CurrentUserId();
    QFile::setPermissions(m_runtime.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther);
    EXPECT_EQ(QFileInfo(DefaultSocketPath(m_home.path())).absolutePath(), fallback);
    const QString deep = m_runtime.filePath(QString(90, u'd'));
    ASSERT_TRUE(QDir().mkpath(deep));
    QFile::setPermissions(deep, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(deep));
    EXPECT_EQ(QFileInfo(DefaultSocketPath(m_home.path())).absolutePath(), fallback);
    qputenv("XDG_RUNTIME_DIR", "relative");
    EXPECT_EQ(QFileInfo(DefaultSocketPath(m_home.path())).absolutePath(), fallback);
}

TEST_F(SocketPath, TheDirectoryIsMadeForItsOwnerOnly)
{
    const QString path = m_home.filePath(u"sub/kel.sock"_s);
    PrepareSocketDirectory(path);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    EXPECT_EQ(QFileInfo(m_home.filePath(u"sub"_s)).permissions() & others, QFile::Permissions());
}

TEST_F(SocketPath, ADirectoryOpenToOthersIsRefused)
{
    QFile::setPermissions(m_home.path(),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeGroup);
    const Thrown thrown = ThrownBy([this] { PrepareSocketDirectory(m_home.filePath(u"kel.sock"_s)); });
    EXPECT_EQ(thrown.number, 70);
    EXPECT_TRUE(thrown.words.contains(u"0700"_s));
}

TEST_F(SocketPath, ADirectoryThatIsALinkIsRefused)
{
    const QString link = m_runtime.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(m_home.path(), link));
    EXPECT_EQ(ThrownBy([&] { PrepareSocketDirectory(link + u"/kel.sock"_s); }).number, 70);
}

TEST_F(SocketPath, APathTheSystemCannotTakeIsRefused)
{
    const QString path = m_home.filePath(QString(120, u'x') + u"/kel.sock"_s);
    EXPECT_EQ(ThrownBy([&] { PrepareSocketDirectory(path); }).number, 52);
}

} // namespace
