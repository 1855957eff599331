#include "platform/street/cell_codec.h"

#include "platform/street/bytes.h"
#include "platform/street/cell_grid.h"

#include <QThreadStorage>

#include <limits>
#include <memory>

#include <libdeflate.h>

namespace vasclip::street {

namespace {

constexpr char kPlain = 0;
constexpr char kPacked = 1;
/// The largest cell there is, unpacked; a packed one can't stand for more.
constexpr quint32 kLargest = 16 * 1024 * 1024;
constexpr int kPackLevel = 6; ///< beyond it the work grows and the bytes hardly shrink
constexpr int kLongestNumber = 9;
constexpr quint64 kLargestPopulation = 0xffffffff;

/// Two heads, the count of places, two places.
constexpr qsizetype kLeastEdge = 7;

// An edge's first byte: its class in the low bits, then what it has.
constexpr quint8 kClassMask = 0x0f;
constexpr quint8 kHidden = 0x10;
constexpr quint8 kLeft = 0x20;
constexpr quint8 kRight = 0x40;

/// House numbers are mostly digits alone; those go as numbers, doubled, others as texts with the low bit set.
class NumberCoder
{
public:
    static void Write(ByteWriter& out, const QString& text, qint64& before)
    {
        if (const qint64 value = Plain(text); value >= 0) {
            out.Number(Zigzag(value - before) << 1);
            before = value;
            return;
        }
        const QByteArray bytes = text.toUtf8();
        out.Number(static_cast<quint64>(bytes.size()) << 1 | 1);
        out.Raw(bytes);
    }
    static QString Read(ByteReader& in, qint64& before)
    {
        const quint64 head = in.Number();
        if (head & 1)
            return in.Raw(head >> 1);
        const quint64 step = head >> 1;
        before += static_cast<qint64>(step >> 1) ^ -static_cast<qint64>(step & 1);
        if (before < 0 || before > 999'999'999) {
            in.Fail();
            return {};
        }
        return QString::number(before);
    }

private:
    static quint64 Zigzag(qint64 value)
    {
        return (static_cast<quint64>(value) << 1) ^ static_cast<quint64>(value >> 63);
    }
    /// -1 for a text that is not spelt as its number is.
    static qint64 Plain(const QString& text)
    {
        if (text.isEmpty() || text.size() > kLongestNumber || (text.size() > 1 && text[0] == u'0'))
            return -1;
        qint64 value = 0;
        for (const QChar letter : text) {
            if (letter < u'0' || letter > u'9')
                return -1;
            value = value * 10 + letter.unicode() - u'0';
        }
        return value;
    }
};

class PlaceCoder
{
public:
    explicit PlaceCoder(quint32 id)
        : m_before(grid::ExtentOf(id).low)
    {}

    void Write(ByteWriter& out, Place place)
    {
        out.Signed(qint64(place.latitude) - m_before.latitude);
        out.Signed(qint64(place.longitude) - m_before.longitude);
        m_before = place;
    }
    Place Read(ByteReader& in)
    {
        // Added as 64 bits and cut: a hostile step wraps to another place, and the check refuses it.
        const qint64 latitude = m_before.latitude + in.Signed() % kTurn;
        const qint64 longitude = m_before.longitude + in.Signed() % kTurn;
        const Place place{static_cast<qint32>(latitude), static_cast<qint32>(longitude)};
        if (place.latitude != latitude || place.longitude != longitude || !grid::IsOnEarth(place)) {
            in.Fail();
            return m_before;
        }
        return m_before = place;
    }
    void Write(ByteWriter& out, const std::vector<Place>& line)
    {
        out.Number(line.size());
        for (const Place place : line)
            Write(out, place);
    }
    std::vector<Place> ReadLine(ByteReader& in)
    {
        std::vector<Place> line(in.Count(2));
        for (Place& place : line)
            place = Read(in);
        return line;
    }

private:
    static constexpr qint64 kTurn = 1'000'000'000;
    Place m_before;
};

template <class Kind>
Kind ReadKind(ByteReader& in, Kind last)
{
    const quint64 value = in.Number();
    if (value > static_cast<quint64>(last)) {
        in.Fail();
        return last;
    }
    return static_cast<Kind>(value);
}

void WriteEdges(ByteWriter& out, PlaceCoder& places, const std::vector<CellEdge>& edges)
{
    out.Number(edges.size());
    qint64 number = 0;
    qint64 street = 0;
    for (const CellEdge& edge : edges) {
        const bool left = !edge.left.from.isEmpty() || !edge.left.to.isEmpty();
        const bool right = !edge.right.from.isEmpty() || !edge.right.to.isEmpty();
        out.Number(static_cast<quint8>(edge.roadClass) | (edge.hidden ? kHidden : 0) | (left ? kLeft : 0) |
                   (right ? kRight : 0));
        out.Signed(edge.street - street);
        street = edge.street;
        places.Write(out, edge.line);
        if (left) {
            NumberCoder::Write(out, edge.left.from, number);
            NumberCoder::Write(out, edge.left.to, number);
        }
        if (right) {
            NumberCoder::Write(out, edge.right.from, number);
            NumberCoder::Write(out, edge.right.to, number);
        }
    }
}

void ReadEdges(ByteReader& in, PlaceCoder& places, Cell& cell)
{
    cell.edges.resize(in.Count(kLeastEdge));
    qint64 number = 0;
    qint64 street = 0;
    for (CellEdge& edge : cell.edges) {
        const quint64 head = in.Number();
        const quint64 roadClass = head & kClassMask;
        street += in.Signed() % std::numeric_limits<qint32>::max();
        if (in.Failed() || roadClass > static_cast<quint64>(RoadClass::Rail) || street < 0 ||
            street > static_cast<qint64>(cell.streets.size()))
            return in.Fail();
        edge.roadClass = static_cast<RoadClass>(roadClass);
        edge.hidden = head & kHidden;
        edge.street = static_cast<quint32>(street);
        edge.line = places.ReadLine(in);
        if (edge.line.size() < 2)
            return in.Fail();
        if (head & kLeft) {
            edge.left.from = NumberCoder::Read(in, number);
            edge.left.to = NumberCoder::Read(in, number);
        }
        if (head & kRight) {
            edge.right.from = NumberCoder::Read(in, number);
            edge.right.to = NumberCoder::Read(in, number);
        }
    }
}

void WriteRest(ByteWriter& out, PlaceCoder& places, const Cell& cell)
{
    out.Number(cell.houses.size());
    qint64 number = 0;
    for (const CellHouse& house : cell.houses) {
        NumberCoder::Write(out, house.number, number);
        places.Write(out, house.place);
    }
    out.Number(cell.areas.size());
    for (const MapArea& area : cell.areas) {
        out.Number(static_cast<quint8>(area.kind));
        out.Text(area.name);
        out.Number(area.rings.size());
        for (const std::vector<Place>& ring : area.rings)
            places.Write(out, ring);
    }
    out.Number(cell.waterLines.size());
    for (const WaterLine& line : cell.waterLines) {
        out.Text(line.name);
        places.Write(out, line.line);
    }
    out.Number(cell.places.size());
    for (const PlaceName& place : cell.places) {
        out.Number(static_cast<quint8>(place.kind));
        out.Text(place.name);
        out.Number(static_cast<quint64>(std::max<qint64>(0, place.population)));
        places.Write(out, place.place);
    }
}

void ReadRest(ByteReader& in, PlaceCoder& places, Cell& cell)
{
    cell.houses.resize(in.Count(3));
    qint64 number = 0;
    for (CellHouse& house : cell.houses) {
        house.number = NumberCoder::Read(in, number);
        house.place = places.Read(in);
        if (in.Failed())
            return;
    }
    cell.areas.resize(in.Count(3));
    for (MapArea& area : cell.areas) {
        area.kind = ReadKind(in, AreaKind::Builtup);
        area.name = in.Text();
        area.rings.resize(in.Count(1));
        for (std::vector<Place>& ring : area.rings)
            ring = places.ReadLine(in);
        if (in.Failed())
            return;
    }
    cell.waterLines.resize(in.Count(2));
    for (WaterLine& line : cell.waterLines) {
        line.name = in.Text();
        line.line = places.ReadLine(in);
        if (in.Failed())
            return;
    }
    cell.places.resize(in.Count(5));
    for (PlaceName& place : cell.places) {
        place.kind = ReadKind(in, PlaceKind::Street);
        place.name = in.Text();
        place.population = static_cast<qint64>(in.Number() & kLargestPopulation);
        place.place = places.Read(in);
        if (in.Failed())
            return;
    }
}

struct FreePacker
{
    void operator()(libdeflate_compressor* packer) const { libdeflate_free_compressor(packer); }
    void operator()(libdeflate_decompressor* unpacker) const { libdeflate_free_decompressor(unpacker); }
};

/// Its length, then its bytes packed as zlib has them; empty where that is no shorter.
QByteArray Packed(const QByteArray& plain)
{
    static QThreadStorage<std::unique_ptr<libdeflate_compressor, FreePacker>> packers;
    auto& packer = packers.localData();
    if (!packer)
        packer.reset(libdeflate_alloc_compressor(kPackLevel));
    if (!packer)
        return {};
    ByteWriter head;
    head.Number(static_cast<quint64>(plain.size()));
    QByteArray packed = head.Bytes();
    const qsizetype start = packed.size();
    const auto size = static_cast<std::size_t>(plain.size());
    packed.resize(start + static_cast<qsizetype>(libdeflate_zlib_compress_bound(packer.get(), size)));
    const std::size_t done = libdeflate_zlib_compress(packer.get(), plain.constData(), size, packed.data() + start,
                                                      static_cast<std::size_t>(packed.size() - start));
    packed.resize(start + static_cast<qsizetype>(done));
    return done > 0 && packed.size() < plain.size() ? packed : QByteArray();
}

/// The bytes of a packed cell; empty where they are damaged or say more than they can hold.
QByteArray Unpacked(QByteArrayView packed)
{
    static QThreadStorage<std::unique_ptr<libdeflate_decompressor, FreePacker>> unpackers;
    auto& unpacker = unpackers.localData();
    if (!unpacker)
        unpacker.reset(libdeflate_alloc_decompressor());
    ByteReader head(packed);
    const quint64 size = head.Number();
    const QByteArrayView content = packed.last(head.Left());
    // Deflate makes at most about a thousand bytes of one.
    if (!unpacker || size > kLargest || size / 1100 > static_cast<quint64>(content.size()))
        return {};
    QByteArray plain(static_cast<qsizetype>(size), Qt::Uninitialized);
    const libdeflate_result done =
        libdeflate_zlib_decompress(unpacker.get(), content.data(), static_cast<std::size_t>(content.size()),
                                   plain.data(), static_cast<std::size_t>(size), nullptr);
    return done == LIBDEFLATE_SUCCESS ? plain : QByteArray();
}

} // namespace

QByteArray EncodeCell(const Cell& cell)
{
    ByteWriter out;
    PlaceCoder places(cell.id);
    out.Number(cell.streets.size());
    for (const CellStreet& street : cell.streets) {
        out.Text(street.name);
        out.Text(street.shield);
    }
    WriteEdges(out, places, cell.edges);
    WriteRest(out, places, cell);
    const QByteArray plain = out.Bytes();
    const QByteArray packed = Packed(plain);
    return packed.isEmpty() ? kPlain + plain : kPacked + packed;
}

std::shared_ptr<const Cell> DecodeCell(QByteArrayView bytes, quint32 id)
{
    const std::optional<Level> level = grid::LevelOf(id);
    if (bytes.isEmpty() || !level || (bytes[0] != kPlain && bytes[0] != kPacked))
        return {};
    QByteArray unpacked;
    QByteArrayView content = bytes.sliced(1);
    if (bytes[0] == kPacked) {
        unpacked = Unpacked(content);
        content = unpacked;
    }
    ByteReader in(content);
    PlaceCoder places(id);
    auto cell = std::make_shared<Cell>();
    cell->level = *level;
    cell->id = id;
    cell->extent = grid::ExtentOf(id);
    cell->streets.resize(in.Count(2));
    for (CellStreet& street : cell->streets) {
        street.name = in.Text();
        street.shield = in.Text();
    }
    ReadEdges(in, places, *cell);
    ReadRest(in, places, *cell);
    if (in.Failed() || in.Left() > 0)
        return {};
    return cell;
}

qsizetype BytesOf(const Cell& cell)
{
    constexpr qsizetype kHeap = 32; ///< around each block of memory
    const auto text = [](const QString& value) { return value.isEmpty() ? 0 : value.capacity() * 2 + kHeap; };
    const auto line = [](const std::vector<Place>& places) {
        return static_cast<qsizetype>(places.capacity() * sizeof(Place)) + kHeap;
    };
    qsizetype bytes = sizeof(Cell) + kHeap;
    for (const CellStreet& street : cell.streets)
        bytes += static_cast<qsizetype>(sizeof street) + text(street.name) + text(street.shield);
    for (const CellEdge& edge : cell.edges)
        bytes += static_cast<qsizetype>(sizeof edge) + line(edge.line) + text(edge.left.from) + text(edge.left.to) +
                 text(edge.right.from) + text(edge.right.to);
    for (const CellHouse& house : cell.houses)
        bytes += static_cast<qsizetype>(sizeof house) + text(house.number);
    for (const MapArea& area : cell.areas) {
        bytes += static_cast<qsizetype>(sizeof area) + text(area.name);
        for (const std::vector<Place>& ring : area.rings)
            bytes += static_cast<qsizetype>(sizeof ring) + line(ring);
    }
    for (const WaterLine& water : cell.waterLines)
        bytes += static_cast<qsizetype>(sizeof water) + text(water.name) + line(water.line);
    for (const PlaceName& place : cell.places)
        bytes += static_cast<qsizetype>(sizeof place) + text(place.name);
    return bytes;
}

} // namespace vasclip::street
