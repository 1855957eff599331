#include "mapdata/osm_order.h"

#include "platform/street/bytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

namespace vasclip::mapdata {
namespace {

using namespace Qt::StringLiterals;

/// A field of bytes of a message.
QByteArray Field(int number, const QByteArray& bytes)
{
    street::ByteWriter out;
    out.Number(static_cast<quint64>(number) << 3 | 2);
    out.Number(static_cast<quint64>(bytes.size()));
    out.Raw(bytes);
    return out.Bytes();
}

QByteArray Blob(const char* type, const QByteArray& content)
{
    const QByteArray blob = Field(1, content);
    street::ByteWriter size;
    size.Number(3 << 3);
    size.Number(static_cast<quint64>(blob.size()));
    const QByteArray head = Field(1, type) + size.Bytes();
    QByteArray length(4, '\0');
    qToBigEndian(static_cast<quint32>(head.size()), length.data());
    return length + head + blob;
}

/// A block with one group of one kind: 2 dense nodes, 3 ways, 4 relations.
QByteArray Block(int kind)
{
    return Blob("OSMData", Field(1, "names") + Field(2, Field(kind, "things")));
}

class OsmOrder : public testing::Test
{
protected:
    QString Fault(const QByteArray& content, const QString& name = u"x.osm.pbf"_s)
    {
        QFile file(directory.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(content);
        file.close();
        return OsmOrderFault(file.fileName());
    }
    QTemporaryDir directory;
};

const QByteArray kHead = Blob("OSMHeader", Field(4, "OsmSchema-V0.6"));

TEST_F(OsmOrder, NodesThenWaysThenRelationsIsFine)
{
    EXPECT_EQ(Fault(kHead + Block(2) + Block(2) + Block(3) + Block(4)), QString());
    EXPECT_EQ(Fault(kHead), QString());
}

TEST_F(OsmOrder, ANodeBehindAWayIsTold)
{
    EXPECT_TRUE(Fault(kHead + Block(3) + Block(2)).contains(u"it is not sorted"));
    EXPECT_TRUE(Fault(kHead + Block(2) + Block(4) + Block(3)).contains(u"it is not sorted"));
}

TEST_F(OsmOrder, AFileThatSaysSoIsBelieved)
{
    const QByteArray head = Blob("OSMHeader", Field(4, "OsmSchema-V0.6") + Field(5, "Sort.Type_then_ID"));
    EXPECT_EQ(Fault(head + "anything"), QString());
}

TEST_F(OsmOrder, DamageIsTold)
{
    EXPECT_FALSE(Fault("xx").isEmpty());
    EXPECT_FALSE(Fault(QByteArray(1000, '\xff')).isEmpty());
    const QByteArray whole = kHead + Block(2) + Block(3);
    EXPECT_EQ(Fault(whole.first(whole.size() - 3)), u"it ends in the middle"_s);
    EXPECT_FALSE(OsmOrderFault(directory.filePath(u"none"_s)).isEmpty());
    EXPECT_TRUE(Fault("<osm><node id=", u"x.osm"_s).startsWith(u"it is damaged in line 1"));
}

TEST_F(OsmOrder, XmlInOneLineIsReadToo)
{
    EXPECT_EQ(Fault("<osm><node id='1'/><way id='1'/><relation id='1'/></osm>", u"x.osm"_s), QString());
    EXPECT_TRUE(Fault("<osm><way id='1'/><node id='1'/></osm>", u"x.osm"_s).contains(u"it is not sorted"));
}

} // namespace
} // namespace vasclip::mapdata
