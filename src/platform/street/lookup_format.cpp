#include "platform/street/lookup_format.h"

namespace vasclip::street::format {

namespace {

// What an edge or a house has; the rest of it is as the one before had it.
constexpr quint64 kHasLeft = 1;
constexpr quint64 kHasRight = 2;
constexpr quint64 kZips = 4; ///< others than before
constexpr quint64 kCities = 8;
constexpr quint64 kTexts = 16; ///< numbers with letters

constexpr int kDirections = 9;

/// The numbers of a row of edges, each near the one before.
struct Last
{
    quint32 cell = 0;
    quint32 index = 0;
    qint64 left = 0;
    qint64 right = 0;
    quint32 zips[2] = {0, 0};
    quint32 cities[2] = {0, 0};
};

bool HasText(const HouseNumber& number)
{
    return !number.prefix.isEmpty() || !number.suffix.isEmpty();
}

void WriteSide(ByteWriter& bytes, const StoredSide& side, bool texts, qint64& last)
{
    bytes.Signed(side.from.value - last);
    bytes.Signed(side.to.value - side.from.value);
    last = side.to.value;
    if (texts) {
        for (const HouseNumber* number : {&side.from, &side.to}) {
            bytes.Text(number->prefix);
            bytes.Text(number->suffix);
        }
    }
}

void ReadSide(ByteReader& bytes, StoredSide& side, bool texts, qint64& last)
{
    const qint64 from = last + bytes.Signed();
    const qint64 to = from + bytes.Signed();
    side.from.value = static_cast<int>(from);
    side.to.value = static_cast<int>(to);
    last = to;
    if (texts) {
        for (HouseNumber* number : {&side.from, &side.to}) {
            number->prefix = bytes.Text();
            number->suffix = bytes.Text();
        }
    }
}

void WriteEdge(ByteWriter& bytes, const StoredEdge& edge, Last& last)
{
    const bool left = !edge.left.from.IsEmpty();
    const bool right = !edge.right.from.IsEmpty();
    const bool zips = edge.left.zip != last.zips[0] || edge.right.zip != last.zips[1];
    const bool cities = edge.left.city != last.cities[0] || edge.right.city != last.cities[1];
    const bool texts = HasText(edge.left.from) || HasText(edge.left.to) || HasText(edge.right.from) ||
                       HasText(edge.right.to);
    const quint32 cell = edge.position.cell - last.cell;
    bytes.Number((left ? kHasLeft : 0) | (right ? kHasRight : 0) | (zips ? kZips : 0) | (cities ? kCities : 0) |
                 (texts ? kTexts : 0));
    bytes.Number(cell);
    bytes.Number(cell == 0 ? edge.position.index - last.index : edge.position.index);
    last.cell = edge.position.cell;
    last.index = edge.position.index;
    if (zips) {
        bytes.Number(last.zips[0] = edge.left.zip);
        bytes.Number(last.zips[1] = edge.right.zip);
    }
    if (cities) {
        bytes.Number(last.cities[0] = edge.left.city);
        bytes.Number(last.cities[1] = edge.right.city);
    }
    if (left)
        WriteSide(bytes, edge.left, texts, last.left);
    if (right)
        WriteSide(bytes, edge.right, texts, last.right);
}

StoredEdge ReadEdge(ByteReader& bytes, Last& last)
{
    StoredEdge edge;
    const quint64 has = bytes.Number();
    const auto cell = static_cast<quint32>(bytes.Number());
    const auto index = static_cast<quint32>(bytes.Number());
    last.index = cell == 0 ? last.index + index : index;
    last.cell += cell;
    edge.position = {last.cell, last.index};
    if (has & kZips) {
        for (quint32& zip : last.zips)
            zip = static_cast<quint32>(bytes.Number());
    }
    if (has & kCities) {
        for (quint32& city : last.cities)
            city = static_cast<quint32>(bytes.Number());
    }
    edge.left.zip = last.zips[0];
    edge.right.zip = last.zips[1];
    edge.left.city = last.cities[0];
    edge.right.city = last.cities[1];
    if (has & kHasLeft)
        ReadSide(bytes, edge.left, has & kTexts, last.left);
    if (has & kHasRight)
        ReadSide(bytes, edge.right, has & kTexts, last.right);
    return edge;
}

void WriteHouses(ByteWriter& bytes, const std::vector<StoredHouse>& houses)
{
    StoredHouse last;
    last.number.value = 0;
    bytes.Number(houses.size());
    for (const StoredHouse& house : houses) {
        const bool zip = house.zip != last.zip;
        const bool city = house.city != last.city;
        const bool texts = HasText(house.number);
        bytes.Number((zip ? kZips : 0) | (city ? kCities : 0) | (texts ? kTexts : 0));
        bytes.Signed(qint64(house.number.value) - last.number.value);
        if (texts) {
            bytes.Text(house.number.prefix);
            bytes.Text(house.number.suffix);
        }
        if (zip)
            bytes.Number(house.zip);
        if (city)
            bytes.Number(house.city);
        bytes.Signed(qint64(house.place.latitude) - last.place.latitude);
        bytes.Signed(qint64(house.place.longitude) - last.place.longitude);
        last = house;
    }
}

std::vector<StoredHouse> ReadHouses(ByteReader& bytes)
{
    StoredHouse last;
    last.number.value = 0;
    std::vector<StoredHouse> houses(bytes.Count(4));
    for (StoredHouse& house : houses) {
        const quint64 has = bytes.Number();
        house.number.value = static_cast<int>(last.number.value + bytes.Signed());
        if (has & kTexts) {
            house.number.prefix = bytes.Text();
            house.number.suffix = bytes.Text();
        }
        house.zip = has & kZips ? static_cast<quint32>(bytes.Number()) : last.zip;
        house.city = has & kCities ? static_cast<quint32>(bytes.Number()) : last.city;
        house.place.latitude = static_cast<qint32>(last.place.latitude + bytes.Signed());
        house.place.longitude = static_cast<qint32>(last.place.longitude + bytes.Signed());
        last = house;
    }
    return houses;
}

} // namespace

void WriteStreet(ByteWriter& bytes, const StoredStreet& street)
{
    const StreetName& name = street.name;
    const int directions = static_cast<int>(name.before) * kDirections + static_cast<int>(name.behind);
    bytes.Number(static_cast<quint64>(directions * 2 + (name.typeFirst ? 1 : 0)));
    bytes.Number(name.type);
    bytes.Number(street.edges.size());
    Last last;
    for (const StoredEdge& edge : street.edges)
        WriteEdge(bytes, edge, last);
    WriteHouses(bytes, street.houses);
}

StoredStreet ReadStreet(ByteReader& bytes, const QString& base)
{
    StoredStreet street;
    const auto head = static_cast<int>(bytes.Number() & 0xff);
    street.name.base = base;
    street.name.typeFirst = head & 1;
    street.name.before = static_cast<Direction>(std::min(head / 2 / kDirections, kDirections - 1));
    street.name.behind = static_cast<Direction>(head / 2 % kDirections);
    street.name.type = static_cast<StreetType>(bytes.Number());
    street.edges.resize(bytes.Count(3));
    Last last;
    for (StoredEdge& edge : street.edges)
        edge = ReadEdge(bytes, last);
    street.houses = ReadHouses(bytes);
    return street;
}

void WritePlace(ByteWriter& bytes, Place place)
{
    bytes.Signed(place.latitude);
    bytes.Signed(place.longitude);
}

Place ReadPlace(ByteReader& bytes)
{
    Place place;
    place.latitude = static_cast<qint32>(bytes.Signed());
    place.longitude = static_cast<qint32>(bytes.Signed());
    return place;
}

void WriteExtent(ByteWriter& bytes, const Extent& extent)
{
    WritePlace(bytes, extent.low);
    WritePlace(bytes, extent.high);
}

Extent ReadExtent(ByteReader& bytes)
{
    Extent extent;
    extent.low = ReadPlace(bytes);
    extent.high = ReadPlace(bytes);
    return extent;
}

QByteArray SummaryBytes(const LookupSummary& summary)
{
    ByteWriter bytes;
    bytes.Text(summary.state);
    bytes.Number(summary.zips.size());
    for (const ZipSummary& zip : summary.zips) {
        bytes.Text(zip.zip);
        bytes.Text(zip.city);
        WritePlace(bytes, zip.centre);
        WriteExtent(bytes, zip.extent);
    }
    bytes.Number(summary.places.size());
    for (const PlaceSummary& place : summary.places) {
        bytes.Text(place.name);
        bytes.Number(static_cast<quint64>(place.kind));
        bytes.Signed(place.population);
        WritePlace(bytes, place.place);
        WriteExtent(bytes, place.extent);
    }
    return bytes.Bytes();
}

LookupSummary ReadSummary(const QByteArray& from)
{
    ByteReader bytes(from);
    LookupSummary summary;
    summary.state = bytes.Text();
    summary.zips.resize(bytes.Count(8));
    for (ZipSummary& zip : summary.zips) {
        zip.zip = bytes.Text();
        zip.city = bytes.Text();
        zip.centre = ReadPlace(bytes);
        zip.extent = ReadExtent(bytes);
    }
    summary.places.resize(bytes.Count(9));
    for (PlaceSummary& place : summary.places) {
        place.name = bytes.Text();
        place.kind = static_cast<PlaceKind>(std::min<quint64>(bytes.Number(), static_cast<quint64>(PlaceKind::Suburb)));
        place.population = bytes.Signed();
        place.place = ReadPlace(bytes);
        place.extent = ReadExtent(bytes);
    }
    return summary;
}

QByteArray NamesBytes(const std::vector<quint32>& names)
{
    ByteWriter bytes;
    bytes.Number(names.size());
    quint32 last = 0;
    for (const quint32 name : names) {
        bytes.Number(name - last);
        last = name;
    }
    return bytes.Bytes();
}

std::vector<quint32> ReadNames(const QByteArray& from)
{
    ByteReader bytes(from);
    std::vector<quint32> names(bytes.Count(1));
    quint32 last = 0;
    for (quint32& name : names)
        name = last += static_cast<quint32>(bytes.Number());
    return names;
}

QByteArray TextsBytes(const QStringList& texts)
{
    ByteWriter bytes;
    bytes.Number(static_cast<quint64>(texts.size()));
    for (const QString& text : texts)
        bytes.Text(text);
    return bytes.Bytes();
}

QStringList ReadTexts(const QByteArray& from)
{
    ByteReader bytes(from);
    QStringList texts;
    for (std::size_t left = bytes.Count(1); left > 0; --left)
        texts.append(bytes.Text());
    return texts;
}

} // namespace vasclip::street::format
