#include "mapdata/house_columns.h"

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;

QString Joined(const QStringList& words)
{
    QStringList there;
    for (const QString& word : words) {
        if (!word.isEmpty())
            there.append(word);
    }
    return there.join(u' ');
}

} // namespace

HouseColumns::HouseColumns(const VectorLayer& layer)
    : m_number(layer.Column({u"addr:housenumber"_s, u"addr_housenumber"_s, u"housenumber"_s, u"HOUSE_NUMBER"_s,
                             u"number"_s, u"Add_Number"_s, u"AddNum"_s, u"ADDRNUM"_s, u"ADDR_NUM"_s, u"HOUSENUM"_s,
                             u"HOUSE_NUM"_s, u"HOUSENO"_s, u"HOUSE_NO"_s, u"STREETNUM"_s, u"STREET_NUM"_s,
                             u"STNUM"_s, u"ST_NUM"_s, u"ST_NUMBER"_s, u"ADDRESS_NUMBER"_s, u"ADDRESSNUMBER"_s,
                             u"ADD_NUM"_s, u"ADRNUM"_s, u"LOC_NUM"_s}))
    , m_numberPrefix(layer.Column({u"HOUSE_NUMBERPREFIX"_s, u"AddNum_Pre"_s, u"NUM_PREFIX"_s}))
    , m_numberSuffix(layer.Column({u"HOUSE_NUMBERSUFFIX"_s, u"HOUSE_NUM_1"_s, u"HOUSE_NU_1"_s, u"AddNum_Suf"_s,
                                   u"NUMSUFFIX"_s, u"NUM_SUFFIX"_s, u"ADDRNUMSUF"_s}))
    , m_street(layer.Column({u"addr:street"_s, u"addr_street"_s, u"street"_s, u"PRIMARYNAME"_s, u"FULLNAME"_s,
                             u"FULL_NAME"_s, u"FULLSTREET"_s, u"FullStName"_s, u"STREETNAME"_s, u"STREET_NAME"_s,
                             u"ST_FULL"_s, u"ROADNAME"_s, u"ROAD_NAME"_s, u"RoadNm"_s, u"LSt_Name"_s}))
    , m_direction(layer.Column({u"PD"_s, u"St_PreDir"_s, u"PREDIR"_s, u"PRE_DIR"_s, u"PREFIXDIR"_s, u"ST_DIR"_s}))
    , m_typeBefore(layer.Column({u"PT"_s, u"St_PreTyp"_s, u"PRETYPE"_s, u"PRE_TYPE"_s}))
    , m_name(layer.Column({u"SN"_s, u"St_Name"_s, u"STNAME"_s, u"ST_NAME"_s}))
    , m_type(layer.Column({u"St_PosTyp"_s, u"POSTTYPE"_s, u"STTYPE"_s, u"ST_TYPE"_s, u"STREET_TYPE"_s, u"SUFTYPE"_s,
                           u"SUFFIX"_s}))
    , m_directionBehind(layer.Column({u"SD"_s, u"St_PosDir"_s, u"POSTDIR"_s, u"POST_DIR"_s, u"SUFDIR"_s,
                                      u"SUF_DIR"_s}))
    , m_address(layer.Column({u"PRIMARYADDRESS"_s, u"PRIMARYADD"_s, u"FULLADDR"_s, u"FULLADDRESS"_s, u"FULL_ADDR"_s,
                              u"FULL_ADDRESS"_s, u"ADDRESS"_s, u"SITEADDR"_s, u"SITE_ADDR"_s, u"SITUS"_s, u"LABEL"_s}))
    , m_unit(layer.Column({u"addr:unit"_s, u"addr_unit"_s, u"unit"_s, u"UNITNUM"_s, u"UNIT_NUM"_s, u"SUBADDRESS"_s,
                           u"APT"_s}))
    , m_city(layer.Column({u"addr:city"_s, u"addr_city"_s, u"city"_s, u"TOWNNAME"_s, u"Post_City"_s, u"PostComm"_s,
                           u"POSTALCITY"_s, u"MUNICIPALITY"_s, u"MUNI"_s, u"Inc_Muni"_s, u"COMMUNITY"_s,
                           u"PLACENAME"_s, u"TOWN"_s}))
    , m_zip(layer.Column({u"addr:postcode"_s, u"addr_postcode"_s, u"zip"_s, u"postcode"_s, u"Post_Code"_s,
                          u"ZIPCODE"_s, u"ZIP_CODE"_s, u"ZIP5"_s, u"POSTALCODE"_s}))
{
    // "ST" is a type where the name stands beside it in parts, and a state or a whole street elsewhere.
    if (m_type < 0 && m_name >= 0 && m_direction >= 0)
        m_type = layer.Column({u"ST"_s});
}

bool HouseColumns::AreThere() const
{
    return m_address >= 0 || (m_number >= 0 && (m_street >= 0 || m_name >= 0));
}

std::vector<int> HouseColumns::All() const
{
    return {m_number, m_numberPrefix, m_numberSuffix, m_street, m_direction,       m_typeBefore, m_name,
            m_type,   m_directionBehind, m_address,   m_unit,   m_city,            m_zip};
}

street::AddressPoint HouseColumns::Read(const OGRFeature& row) const
{
    street::AddressPoint house;
    house.number = Joined({TextOf(row, m_numberPrefix), TextOf(row, m_number), TextOf(row, m_numberSuffix)});
    house.street = TextOf(row, m_street);
    if (house.street.isEmpty())
        house.street = Joined({TextOf(row, m_direction), TextOf(row, m_typeBefore), TextOf(row, m_name),
                               TextOf(row, m_type), TextOf(row, m_directionBehind)});
    if ((house.number.isEmpty() || house.street.isEmpty()) && m_address >= 0) {
        // "110 N Main St, Unit 4": the first word is the number where it begins with a digit.
        const QString address = TextOf(row, m_address).section(u',', 0, 0).simplified();
        const qsizetype blank = address.indexOf(u' ');
        if (blank > 0 && address[0].isDigit()) {
            house.number = address.left(blank);
            house.street = address.mid(blank + 1);
        }
    }
    // A number that a table keeps with decimals.
    if (house.number.endsWith(u".0"))
        house.number.chop(2);
    if (house.number == u"0")
        house.number.clear();
    house.unit = TextOf(row, m_unit);
    house.city = TextOf(row, m_city);
    house.zip = TextOf(row, m_zip);
    if (house.zip.endsWith(u".0"))
        house.zip.chop(2);
    // A column of numbers drops the zero in front.
    if (house.zip.size() == 4)
        house.zip.prepend(u'0');
    return house;
}

} // namespace vasclip::mapdata
