#include "platform/conduit/socket_path.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

using namespace vasclip;
using namespace vasclip::conduit;
using namespace Qt::StringLiterals;

namespace {

TEST(PipeName, IsTheHomesByWhateverNameItIsReached)
{
    const QTemporaryDir home;
    const QString name = DefaultSocketPath(home.path());
    EXPECT_TRUE(QRegularExpression(u"^\\\\\\\\\\.\\\\pipe\\\\kel-[0-9a-f]{8}\\.sock$"_s).match(name).hasMatch()) << name.toStdString();
    EXPECT_EQ(DefaultSocketPath(home.path().toUpper()), name);
    EXPECT_EQ(DefaultSocketPath(QDir::toNativeSeparators(home.path()) + u"\\.\\"_s), name);
    const QTemporaryDir other;
    EXPECT_NE(DefaultSocketPath(other.path()), name);
}

} // namespace
