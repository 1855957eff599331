#include "platform/street/address_words.h"

#include <QHash>

#include <array>

namespace vasclip::street {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongestAddress = 400;

struct TypeRow
{
    const char* postal;
    const char* whole;
    const char* others;
    bool endsName;
};

// A type's number is its row, and stands in county files: new ones go to the end.
constexpr TypeRow kTypes[] = {
    {"", "", "", false},
    {"ALY", "ALLEY", "ALLEE ALLY", true},
    {"ANX", "ANNEX", "ANEX ANNX", false},
    {"ARC", "ARCADE", "", false},
    {"AVE", "AVENUE", "AV AVEN AVENU AVN AVNUE", true},
    {"BYU", "BAYOU", "BAYOO", false},
    {"BCH", "BEACH", "", false},
    {"BND", "BEND", "", false},
    {"BLF", "BLUFF", "BLUF", false},
    {"BLVD", "BOULEVARD", "BOUL BOULV BLV BVD", true},
    {"BR", "BRANCH", "BRNCH", false},
    {"BRG", "BRIDGE", "BRDGE", false},
    {"BRK", "BROOK", "", false},
    {"BYP", "BYPASS", "BYPA BYPAS BYPS", true},
    {"CP", "CAMP", "CMP", false},
    {"CYN", "CANYON", "CANYN CNYN", false},
    {"CPE", "CAPE", "", false},
    {"CSWY", "CAUSEWAY", "CAUSWA", true},
    {"CTR", "CENTER", "CEN CENT CENTR CENTRE CNTER CNTR", false},
    {"CIR", "CIRCLE", "CIRC CIRCL CRCL CRCLE", true},
    {"CLF", "CLIFF", "", false},
    {"CLB", "CLUB", "", false},
    {"CMN", "COMMON", "", false},
    {"COR", "CORNER", "", false},
    {"CORS", "CORNERS", "", false},
    {"CRSE", "COURSE", "", false},
    {"CT", "COURT", "CRT", true},
    {"CTS", "COURTS", "", true},
    {"CV", "COVE", "", false},
    {"CRK", "CREEK", "", false},
    {"CRES", "CRESCENT", "CRSENT CRSNT CRECENT", true},
    {"CRST", "CREST", "", false},
    {"XING", "CROSSING", "CRSSNG CRSG", false},
    {"XRD", "CROSSROAD", "CROSSRD XROAD", true},
    {"CURV", "CURVE", "", false},
    {"CUTOFF", "CUTOFF", "CUTF CTOF", true},
    {"DL", "DALE", "", false},
    {"DM", "DAM", "", false},
    {"DR", "DRIVE", "DRIV DRV", true},
    {"EST", "ESTATE", "", false},
    {"ESTS", "ESTATES", "", false},
    {"EXPY", "EXPRESSWAY", "EXP EXPR EXPRESS EXPW", true},
    {"EXT", "EXTENSION", "EXTN EXTNSN", true},
    {"FALL", "FALL", "", false},
    {"FLS", "FALLS", "", false},
    {"FRY", "FERRY", "FRRY", false},
    {"FLD", "FIELD", "", false},
    {"FLDS", "FIELDS", "", false},
    {"FLT", "FLAT", "", false},
    {"FRD", "FORD", "", false},
    {"FRST", "FOREST", "FORESTS", false},
    {"FRK", "FORK", "", false},
    {"FT", "FORT", "FRT", false},
    {"FWY", "FREEWAY", "FREEWY FRWAY FRWY", true},
    {"GDN", "GARDEN", "GARDN GRDEN GRDN", false},
    {"GDNS", "GARDENS", "GRDNS", false},
    {"GTWY", "GATEWAY", "GATEWY GATWAY", false},
    {"GLN", "GLEN", "", false},
    {"GRN", "GREEN", "", false},
    {"GRV", "GROVE", "GROV", false},
    {"HBR", "HARBOR", "HARB HARBR HRBOR", false},
    {"HVN", "HAVEN", "", false},
    {"HTS", "HEIGHTS", "HT", false},
    {"HWY", "HIGHWAY", "HIGHWY HIWAY HIWY HWAY HGWY", true},
    {"HL", "HILL", "", false},
    {"HLS", "HILLS", "", false},
    {"HOLW", "HOLLOW", "HLLW HOLWS HOLLOWS", false},
    {"INLT", "INLET", "", false},
    {"IS", "ISLAND", "ISLND", false},
    {"ISLE", "ISLE", "ISLES", false},
    {"JCT", "JUNCTION", "JCTION JCTN JUNCTN JUNCTON", false},
    {"KY", "KEY", "", false},
    {"KNL", "KNOLL", "KNOL", false},
    {"KNLS", "KNOLLS", "", false},
    {"LK", "LAKE", "", false},
    {"LKS", "LAKES", "", false},
    {"LNDG", "LANDING", "LNDNG", false},
    {"LN", "LANE", "LA", true},
    {"LGT", "LIGHT", "", false},
    {"LDG", "LODGE", "LDGE LODG", false},
    {"LOOP", "LOOP", "LOOPS LP", true},
    {"MALL", "MALL", "", false},
    {"MNR", "MANOR", "", false},
    {"MDW", "MEADOW", "", false},
    {"MDWS", "MEADOWS", "MEDOWS", false},
    {"MEWS", "MEWS", "", false},
    {"ML", "MILL", "", false},
    {"MLS", "MILLS", "", false},
    {"MT", "MOUNT", "MNT", false},
    {"MTN", "MOUNTAIN", "MNTAIN MNTN MOUNTIN MTIN", false},
    {"NCK", "NECK", "", false},
    {"ORCH", "ORCHARD", "ORCHRD", false},
    {"OVAL", "OVAL", "OVL", false},
    {"PARK", "PARK", "PRK", false},
    {"PKWY", "PARKWAY", "PARKWY PKWAY PKY PAKWAY PKWYS PARKWAYS", true},
    {"PASS", "PASS", "", false},
    {"PATH", "PATH", "PATHS", true},
    {"PIKE", "PIKE", "PIKES", true},
    {"PNE", "PINE", "", false},
    {"PNES", "PINES", "", false},
    {"PL", "PLACE", "", true},
    {"PLN", "PLAIN", "", false},
    {"PLZ", "PLAZA", "PLZA", true},
    {"PT", "POINT", "", false},
    {"PTE", "POINTE", "", false},
    {"PRT", "PORT", "", false},
    {"PR", "PRAIRIE", "PRR", false},
    {"RAMP", "RAMP", "", true},
    {"RNCH", "RANCH", "RANCHES RNCHS", false},
    {"RST", "REST", "", false},
    {"RDG", "RIDGE", "RDGE", false},
    {"RIV", "RIVER", "RVR RIVR", false},
    {"RD", "ROAD", "", true},
    {"RTE", "ROUTE", "RT", true},
    {"ROW", "ROW", "", false},
    {"RUN", "RUN", "", false},
    {"SHR", "SHORE", "SHOAR", false},
    {"SHRS", "SHORES", "SHOARS", false},
    {"SPG", "SPRING", "SPNG SPRNG", false},
    {"SPGS", "SPRINGS", "SPNGS SPRNGS", false},
    {"SPUR", "SPUR", "", false},
    {"SQ", "SQUARE", "SQR SQRE SQU", true},
    {"STA", "STATION", "STATN STN", false},
    {"STRM", "STREAM", "STREME", false},
    {"ST", "STREET", "STR STRT STRA", true},
    {"SMT", "SUMMIT", "SUMIT SUMITT", false},
    {"TER", "TERRACE", "TERR", true},
    {"TRCE", "TRACE", "TRACES", false},
    {"TRAK", "TRACK", "TRACKS TRK", false},
    {"TRL", "TRAIL", "TRAILS TRLS TR", true},
    {"TUNL", "TUNNEL", "TUNNL", true},
    {"TPKE", "TURNPIKE", "TRNPK TURNPK", true},
    {"UN", "UNION", "", false},
    {"VLY", "VALLEY", "VALLY VLLY", false},
    {"VIA", "VIADUCT", "VDCT VIADCT", false},
    {"VW", "VIEW", "", false},
    {"VLG", "VILLAGE", "VILL VILLAG VILLG", false},
    {"VL", "VILLE", "", false},
    {"VIS", "VISTA", "VIST VST VSTA", false},
    {"WALK", "WALK", "WALKS WLK", false},
    {"WAY", "WAY", "WY", true},
    {"WL", "WELL", "", false},
    {"WLS", "WELLS", "", false},
    {"CIRS", "CIRCLES", "", true},
    {"GLNS", "GLENS", "", false},
    {"GTE", "GATE", "", false},
    {"HOLLER", "HOLLER", "", false},
    {"PSGE", "PASSAGE", "", false},
    {"THWY", "THRUWAY", "TRWY", true},
    {"SVC", "SERVICE", "", false},
    {"CON", "CONNECTOR", "CONN", true},
};

struct StateRow
{
    const char* code;
    const char* name;
    const char* county; ///< the first two digits of its counties' codes
};

constexpr StateRow kStates[] = {
    {"AL", "ALABAMA", "01"},         {"AK", "ALASKA", "02"},         {"AZ", "ARIZONA", "04"},
    {"AR", "ARKANSAS", "05"},        {"CA", "CALIFORNIA", "06"},     {"CO", "COLORADO", "08"},
    {"CT", "CONNECTICUT", "09"},     {"DE", "DELAWARE", "10"},       {"DC", "DISTRICT OF COLUMBIA", "11"},
    {"FL", "FLORIDA", "12"},         {"GA", "GEORGIA", "13"},        {"HI", "HAWAII", "15"},
    {"ID", "IDAHO", "16"},           {"IL", "ILLINOIS", "17"},       {"IN", "INDIANA", "18"},
    {"IA", "IOWA", "19"},            {"KS", "KANSAS", "20"},         {"KY", "KENTUCKY", "21"},
    {"LA", "LOUISIANA", "22"},       {"ME", "MAINE", "23"},          {"MD", "MARYLAND", "24"},
    {"MA", "MASSACHUSETTS", "25"},   {"MI", "MICHIGAN", "26"},       {"MN", "MINNESOTA", "27"},
    {"MS", "MISSISSIPPI", "28"},     {"MO", "MISSOURI", "29"},       {"MT", "MONTANA", "30"},
    {"NE", "NEBRASKA", "31"},        {"NV", "NEVADA", "32"},         {"NH", "NEW HAMPSHIRE", "33"},
    {"NJ", "NEW JERSEY", "34"},      {"NM", "NEW MEXICO", "35"},     {"NY", "NEW YORK", "36"},
    {"NC", "NORTH CAROLINA", "37"},  {"ND", "NORTH DAKOTA", "38"},   {"OH", "OHIO", "39"},
    {"OK", "OKLAHOMA", "40"},        {"OR", "OREGON", "41"},         {"PA", "PENNSYLVANIA", "42"},
    {"RI", "RHODE ISLAND", "44"},    {"SC", "SOUTH CAROLINA", "45"}, {"SD", "SOUTH DAKOTA", "46"},
    {"TN", "TENNESSEE", "47"},       {"TX", "TEXAS", "48"},          {"UT", "UTAH", "49"},
    {"VT", "VERMONT", "50"},         {"VA", "VIRGINIA", "51"},       {"WA", "WASHINGTON", "53"},
    {"WV", "WEST VIRGINIA", "54"},   {"WI", "WISCONSIN", "55"},      {"WY", "WYOMING", "56"},
    {"AS", "AMERICAN SAMOA", "60"},  {"GU", "GUAM", "66"},           {"PR", "PUERTO RICO", "72"},
    {"VI", "VIRGIN ISLANDS", "78"},
};

constexpr const char* kOrdinals[] = {"FIRST",    "SECOND",     "THIRD",      "FOURTH",    "FIFTH",
                                     "SIXTH",    "SEVENTH",    "EIGHTH",     "NINTH",     "TENTH",
                                     "ELEVENTH", "TWELFTH",    "THIRTEENTH", "FOURTEENTH", "FIFTEENTH",
                                     "SIXTEENTH", "SEVENTEENTH", "EIGHTEENTH", "NINETEENTH", "TWENTIETH"};

const QHash<QString, StreetType>& TypeTable()
{
    static const QHash<QString, StreetType> table = [] {
        QHash<QString, StreetType> made;
        for (std::size_t row = 1; row < std::size(kTypes); ++row) {
            const auto type = static_cast<StreetType>(row);
            made.insert(QString::fromLatin1(kTypes[row].postal), type);
            made.insert(QString::fromLatin1(kTypes[row].whole), type);
            for (const QString& other : QString::fromLatin1(kTypes[row].others).split(u' ', Qt::SkipEmptyParts))
                made.insert(other, type);
        }
        return made;
    }();
    return table;
}

const QHash<QString, QString>& StateTable()
{
    static const QHash<QString, QString> table = [] {
        QHash<QString, QString> made;
        for (const StateRow& row : kStates) {
            made.insert(QString::fromLatin1(row.code), QString::fromLatin1(row.code));
            made.insert(QString::fromLatin1(row.name), QString::fromLatin1(row.code));
        }
        return made;
    }();
    return table;
}

/// Whether a hyphen at `at` holds a house number together ("12-34"), where elsewhere it parts two words.
bool HyphenJoins(const QString& text, qsizetype at)
{
    return at > 0 && at + 1 < text.size() && text.at(at - 1).isDigit() && text.at(at + 1).isDigit();
}

/// "723-B Main St" is 723B: a hyphen before the one letter of a house number.
bool HyphenVanishes(const QString& text, qsizetype at)
{
    return at > 0 && at + 1 < text.size() && text.at(at - 1).isDigit() && text.at(at + 1).isLetter() &&
           (at + 2 == text.size() || text.at(at + 2) == u' ' || text.at(at + 2) == u',');
}

} // namespace

QStringList AddressWords(const QString& text)
{
    QStringList words;
    QString word;
    const auto close = [&] {
        if (!word.isEmpty())
            words.append(word);
        word.clear();
    };
    QString whole = text.left(kLongestAddress);
    whole.replace(u'\u00bd', u" 1/2 "_s).replace(u'\u00bc', u" 1/4 "_s).replace(u'\u00be', u" 3/4 "_s);
    whole = whole.normalized(QString::NormalizationForm_D).toUpper();
    for (qsizetype at = 0; at < whole.size(); ++at) {
        const QChar letter = whole.at(at);
        if (letter.isLetterOrNumber() || letter.isSurrogate()) {
            word.append(letter);
        } else if (letter == u'.' || letter == u'\'' || letter == u'\u2019' || letter.isMark()) {
            continue; // "U.S." is one word
        } else if ((letter == u'-' || letter == u'/') && HyphenJoins(whole, at)) {
            word.append(letter);
        } else if (letter == u'-' && words.isEmpty() && HyphenVanishes(whole, at)) {
            continue;
        } else {
            close();
            if (letter == u',' || letter == u';' || letter == u'\n' || letter == u'\r' || letter == u'\t')
                words.append(u","_s);
            else if (letter == u'#' || letter == u'&' || letter == u'@')
                words.append(QString(letter));
        }
    }
    close();
    return words;
}

Direction DirectionOf(QStringView word)
{
    struct Row
    {
        QLatin1StringView word;
        Direction direction;
    };
    static constexpr Row kRows[] = {
        {"N"_L1, Direction::N},          {"NORTH"_L1, Direction::N},      {"NO"_L1, Direction::N},
        {"S"_L1, Direction::S},          {"SOUTH"_L1, Direction::S},      {"SO"_L1, Direction::S},
        {"E"_L1, Direction::E},          {"EAST"_L1, Direction::E},       {"W"_L1, Direction::W},
        {"WEST"_L1, Direction::W},       {"NE"_L1, Direction::NE},        {"NORTHEAST"_L1, Direction::NE},
        {"NW"_L1, Direction::NW},        {"NORTHWEST"_L1, Direction::NW}, {"SE"_L1, Direction::SE},
        {"SOUTHEAST"_L1, Direction::SE}, {"SW"_L1, Direction::SW},        {"SOUTHWEST"_L1, Direction::SW},
    };
    for (const Row& row : kRows) {
        if (word == row.word)
            return row.direction;
    }
    return Direction::None;
}

QString DirectionText(Direction direction)
{
    static constexpr std::array kTexts{""_L1, "N"_L1, "NE"_L1, "E"_L1, "SE"_L1, "S"_L1, "SW"_L1, "W"_L1, "NW"_L1};
    return kTexts.at(std::min<std::size_t>(static_cast<std::size_t>(direction), kTexts.size() - 1));
}

bool DirectionsMeet(Direction one, Direction other)
{
    if (one == Direction::None || other == Direction::None)
        return false;
    const int apart = std::abs(static_cast<int>(one) - static_cast<int>(other));
    return apart <= 1 || apart == 7;
}

StreetType TypeOf(QStringView word)
{
    return TypeTable().value(word.toString(), 0);
}

QString TypeText(StreetType type)
{
    return type < std::size(kTypes) ? QString::fromLatin1(kTypes[type].postal) : QString();
}

QString TypeWhole(StreetType type)
{
    return type < std::size(kTypes) ? QString::fromLatin1(kTypes[type].whole) : QString();
}

bool TypeEndsName(StreetType type)
{
    return type < std::size(kTypes) && kTypes[type].endsName;
}

QString StateAt(const QStringList& words, qsizetype at, qsizetype& count)
{
    QString name;
    QString code;
    count = 0;
    for (qsizetype taken = 1; taken <= 3 && at + taken <= words.size(); ++taken) {
        name += (taken > 1 ? u" "_s : QString()) + words.at(at + taken - 1);
        if (const QString found = StateTable().value(name); !found.isEmpty()) {
            code = found;
            count = taken;
        }
    }
    return code;
}

QString OrdinalText(int number)
{
    const int last = number % 10;
    const bool teen = number / 10 % 10 == 1;
    const QLatin1StringView end = teen        ? "TH"_L1
                                  : last == 1 ? "ST"_L1
                                  : last == 2 ? "ND"_L1
                                  : last == 3 ? "RD"_L1
                                              : "TH"_L1;
    return QString::number(number) + end;
}

QString OrdinalOf(QStringView word)
{
    for (std::size_t at = 0; at < std::size(kOrdinals); ++at) {
        if (word == QLatin1StringView(kOrdinals[at]))
            return OrdinalText(static_cast<int>(at) + 1);
    }
    if (word.size() < 3 || word.size() > 7 || !word.front().isDigit())
        return {};
    const QStringView end = word.last(2);
    if (end != "ST"_L1 && end != "ND"_L1 && end != "RD"_L1 && end != "TH"_L1)
        return {};
    bool isNumber = false;
    const int number = word.chopped(2).toInt(&isNumber);
    return isNumber ? OrdinalText(number) : QString();
}

bool IsUnitWord(QStringView word)
{
    static constexpr QLatin1StringView kUnits[] = {
        "APT"_L1,      "APARTMENT"_L1, "STE"_L1, "SUITE"_L1, "UNIT"_L1,  "#"_L1,    "RM"_L1,   "ROOM"_L1, "BLDG"_L1,
        "BUILDING"_L1, "LOT"_L1,       "SPC"_L1, "SPACE"_L1, "TRLR"_L1, "FLOOR"_L1, "FLR"_L1,  "DEPT"_L1, "PH"_L1,
        "UPPR"_L1,     "LOWR"_L1,      "NUM"_L1, "SLIP"_L1,  "HNGR"_L1, "OFC"_L1,
    };
    for (const QLatin1StringView unit : kUnits) {
        if (word == unit)
            return true;
    }
    return false;
}

} // namespace vasclip::street
