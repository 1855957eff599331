#include "mapdata/osm_order.h"

#include "platform/street/bytes.h"

#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>
#include <QtEndian>

#include <algorithm>

#include <zlib.h>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;

const QString kUnsorted = u"it is not sorted (nodes, then ways, then relations), so its streets can't be read; sort it "
                          u"first, for instance by: osmium sort IN.osm.pbf -o OUT.osm.pbf"_s;
const QString kDamaged = u"it is damaged, or no OpenStreetMap file"_s;

/// Walks the fields of a message. `take` gets a field's number and the bytes of those that have bytes, or the number
/// of those that are one.
template <class Take>
bool EachField(QByteArrayView message, Take take)
{
    street::ByteReader in(message);
    while (in.Left() > 0 && !in.Failed()) {
        const quint64 head = in.Number();
        const int field = static_cast<int>(head >> 3);
        switch (head & 7) {
        case 0:
            take(field, QByteArrayView(), in.Number());
            break;
        case 1:
            (void)in.Bytes(8);
            break;
        case 2: {
            const quint64 size = in.Number();
            take(field, in.Bytes(size), size);
            break;
        }
        case 5:
            (void)in.Bytes(4);
            break;
        default:
            return false;
        }
    }
    return !in.Failed();
}

QByteArray Inflated(QByteArrayView packed, quint64 size)
{
    constexpr quint64 kLargest = 64 * 1024 * 1024;
    if (size > kLargest)
        return {};
    QByteArray plain(static_cast<qsizetype>(size), Qt::Uninitialized);
    auto made = static_cast<uLongf>(size);
    const int done = uncompress(reinterpret_cast<Bytef*>(plain.data()), &made,
                                reinterpret_cast<const Bytef*>(packed.data()), static_cast<uLong>(packed.size()));
    return done == Z_OK ? plain : QByteArray();
}

/// Nodes are 1, ways 2, relations 3; a kind may not come before a lower one.
class Order
{
public:
    void See(int kind)
    {
        m_sorted = m_sorted && kind >= m_highest;
        m_highest = std::max(m_highest, kind);
    }
    [[nodiscard]] bool IsSorted() const { return m_sorted; }

private:
    int m_highest = 0;
    bool m_sorted = true;
};

void SeeGroup(QByteArrayView group, Order& order)
{
    EachField(group, [&order](int field, QByteArrayView, quint64) {
        // Of a group: nodes, dense nodes, ways, relations, change sets.
        if (field == 1 || field == 2)
            order.See(1);
        else if (field == 3 || field == 4)
            order.See(field - 1);
    });
}

/// @return false where the file says itself that it is sorted, or where it is clear that it isn't
bool SeeBlock(const QByteArray& type, QByteArrayView content, Order& order)
{
    bool sortedBySelf = false;
    if (type == "OSMHeader") {
        EachField(content, [&](int field, QByteArrayView bytes, quint64) {
            sortedBySelf = sortedBySelf || (field == 5 && bytes == "Sort.Type_then_ID");
        });
        return !sortedBySelf;
    }
    EachField(content, [&](int field, QByteArrayView bytes, quint64) {
        if (field == 2)
            SeeGroup(bytes, order);
    });
    return order.IsSorted();
}

QString PbfFault(QFile& file)
{
    Order order;
    constexpr quint32 kLargestHead = 64 * 1024;
    constexpr quint64 kLargestBlob = 32 * 1024 * 1024;
    while (!file.atEnd()) {
        const QByteArray length = file.read(4);
        const quint32 headSize = length.size() == 4 ? qFromBigEndian<quint32>(length.constData()) : kLargestHead + 1;
        if (headSize > kLargestHead)
            return kDamaged;
        const QByteArray head = file.read(headSize);
        QByteArray type;
        quint64 size = 0;
        if (!EachField(head, [&](int field, QByteArrayView bytes, quint64 number) {
                if (field == 1)
                    type = bytes.toByteArray();
                else if (field == 3)
                    size = number;
            }) || size > kLargestBlob)
            return kDamaged;
        const QByteArray blob = file.read(static_cast<qint64>(size));
        if (blob.size() != static_cast<qsizetype>(size))
            return u"it ends in the middle"_s;
        QByteArray plain;
        QByteArrayView packed;
        quint64 plainSize = 0;
        EachField(blob, [&](int field, QByteArrayView bytes, quint64 number) {
            if (field == 1)
                plain = bytes.toByteArray();
            else if (field == 2)
                plainSize = number;
            else if (field == 3)
                packed = bytes;
        });
        if (!packed.isEmpty())
            plain = Inflated(packed, plainSize);
        if (!SeeBlock(type, plain, order))
            return order.IsSorted() ? QString() : kUnsorted;
    }
    return {};
}

QString XmlFault(QFile& file)
{
    Order order;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd() && order.IsSorted()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"node")
            order.See(1);
        else if (xml.name() == u"way")
            order.See(2);
        else if (xml.name() == u"relation")
            order.See(3);
    }
    if (xml.hasError())
        return u"it is damaged in line %1: %2"_s.arg(QString::number(xml.lineNumber()), xml.errorString());
    return order.IsSorted() ? QString() : kUnsorted;
}

} // namespace

QString OsmOrderFault(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return u"it can't be read: %1"_s.arg(file.errorString());
    return path.endsWith(u".pbf"_s, Qt::CaseInsensitive) ? PbfFault(file) : XmlFault(file);
}

} // namespace vasclip::mapdata
