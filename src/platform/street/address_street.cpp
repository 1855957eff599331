#include "platform/street/address_street.h"

namespace vasclip::street {

using namespace Qt::StringLiterals;

namespace {

/// What numbers a road has: "31", "35W", "1400N", "ABC" of a county's lettered roads.
bool IsRoadNumber(const QString& word, bool lettered)
{
    if (word.isEmpty() || word.size() > 6)
        return false;
    if (word.at(0).isDigit()) {
        qsizetype digits = 0;
        while (digits < word.size() && word.at(digits).isDigit())
            ++digits;
        return word.size() - digits <= 1;
    }
    if (!lettered || word.size() > 3)
        return false;
    for (const QChar letter : word) {
        if (letter < u'A' || letter > u'Z')
            return false;
    }
    return word.size() == 1 || (DirectionOf(word) == Direction::None && TypeOf(word) == 0);
}

bool IsHighwayWord(const QString& word)
{
    static const StreetType highway = TypeOf(u"HWY");
    static const StreetType route = TypeOf(u"RTE");
    return TypeOf(word) == highway || TypeOf(word) == route;
}

bool IsRoadWord(const QString& word)
{
    static const StreetType road = TypeOf(u"RD");
    return IsHighwayWord(word) || TypeOf(word) == road;
}

/// "US", "STATE" and so on from `at`: the words that say whose road it is, with what follows them.
/// @param taken  how many words; @return the head of its one name, "" for none
QString OwnerAt(const QStringList& words, qsizetype at, qsizetype& taken)
{
    const auto word = [&](qsizetype offset) { return words.value(at + offset); };
    const auto with = [&](qsizetype count, QLatin1StringView head) {
        taken = count;
        return QString(head);
    };
    const QString first = word(0);
    const QString second = word(1);
    if (first == u"I" || first == u"INTERSTATE" || first == u"IH") {
        if (IsHighwayWord(second))
            return with(2, "I"_L1);
        return with(1, "I"_L1);
    }
    if (first == u"US" || first == u"USHWY" || (first == u"U" && second == u"S")) {
        const qsizetype own = first == u"U" ? 2 : 1;
        return with(IsRoadWord(word(own)) ? own + 1 : own, "US HWY"_L1);
    }
    if (first == u"UNITED" && second == u"STATES" && IsRoadWord(word(2)))
        return with(3, "US HWY"_L1);
    if ((first == u"FM" || first == u"RM") && IsRoadWord(second))
        return with(2, first == u"FM" ? "FM"_L1 : "RM"_L1);
    if (first == u"FM" || first == u"RM")
        return with(1, first == u"FM" ? "FM"_L1 : "RM"_L1);
    if (first == u"FARM" && second == u"TO" && word(2) == u"MARKET")
        return with(IsRoadWord(word(3)) ? 4 : 3, "FM"_L1);
    if (first == u"RANCH" && second == u"TO" && word(2) == u"MARKET")
        return with(IsRoadWord(word(3)) ? 4 : 3, "RM"_L1);
    const bool county = first == u"COUNTY" || first == u"CO" || first == u"CNTY" || first == u"COUNTRY" ||
                        first == u"CTY" || first == u"CITY";
    if (county && IsRoadWord(second) && (first != u"COUNTRY" || second == u"ROAD" || second == u"RD"))
        return with(2, "CO RD"_L1);
    if (first == u"CR" || first == u"CH" || first == u"COUNTY" || first == u"CNTY")
        return with(1, "CO RD"_L1);
    if ((first == u"C" || first == u"COUNTY") && second == u"R")
        return with(2, "CO RD"_L1);
    if ((first == u"STATE" || first == u"ST") && IsRoadWord(second))
        return with(2, "STATE HWY"_L1);
    if (first == u"SR" || first == u"SH" || first == u"STHWY" || first == u"STRTE")
        return with(1, "STATE HWY"_L1);
    if (qsizetype count = 0; !StateAt(words, at, count).isEmpty()) {
        if (IsRoadWord(word(count)))
            return with(count + 1, "STATE HWY"_L1);
        if (IsHighwayWord(first) || DirectionOf(first) != Direction::None || TypeOf(first) != 0)
            return {}; // "CT 5", "NE 5"
        return with(count, "STATE HWY"_L1);
    }
    if (IsHighwayWord(first))
        return with(1, "HWY"_L1);
    return {};
}

QString WholeWord(const QString& word, bool first, bool last)
{
    if (const QString ordinal = OrdinalOf(word); !ordinal.isEmpty())
        return ordinal;
    if (word == u"ST" || word == u"SAINT")
        return first || !last ? u"SAINT"_s : u"STREET"_s;
    if (word == u"MTN")
        return u"MOUNTAIN"_s;
    if (word == u"STE")
        return u"SAINTE"_s;
    if (word == u"DR" && first)
        return u"DOCTOR"_s;
    if (word == u"LA" || word == u"VIA" || word == u"CON" || word == u"PR")
        return word; // Spanish names
    if (const Direction direction = DirectionOf(word); direction != Direction::None && word.size() <= 2) {
        switch (direction) {
        case Direction::N: return u"NORTH"_s;
        case Direction::S: return u"SOUTH"_s;
        case Direction::E: return u"EAST"_s;
        case Direction::W: return u"WEST"_s;
        default: return word;
        }
    }
    const StreetType type = TypeOf(word);
    return type != 0 ? TypeWhole(type) : word;
}

QString TensOrdinal(const QString& tens, const QString& word)
{
    static constexpr QLatin1StringView kTens[] = {"TWENTY"_L1, "THIRTY"_L1,  "FORTY"_L1, "FIFTY"_L1,
                                                  "SIXTY"_L1,  "SEVENTY"_L1, "EIGHTY"_L1, "NINETY"_L1};
    for (int at = 0; at < static_cast<int>(std::size(kTens)); ++at) {
        if (tens == kTens[at]) {
            QString digits = OrdinalOf(word);
            digits.chop(2);
            const int ones = digits.toInt();
            return ones >= 1 && ones <= 9 && !word.at(0).isDigit() ? OrdinalText((at + 2) * 10 + ones) : QString();
        }
    }
    return {};
}

QString BaseOf(const QStringList& words)
{
    QStringList whole;
    for (qsizetype at = 0; at < words.size(); ++at) {
        if (at + 1 < words.size()) {
            if (const QString ordinal = TensOrdinal(words.at(at), words.at(at + 1)); !ordinal.isEmpty()) {
                whole.append(ordinal);
                ++at;
                continue;
            }
        }
        // "26TH STREET DR" has a street within, "OLD ST PAUL" a saint.
        const bool afterOrdinal = at > 0 && words.at(at - 1).at(0).isDigit();
        whole.append(WholeWord(words.at(at), at == 0, at + 1 == words.size() || afterOrdinal));
    }
    return whole.join(u' ');
}

/// "S W" at `at` is one direction in two words.
Direction TwoLetters(const QStringList& words, qsizetype at)
{
    if (at < 0 || at + 1 >= words.size() || words.at(at).size() != 1 || words.at(at + 1).size() != 1)
        return Direction::None;
    return DirectionOf(QString(words.at(at) + words.at(at + 1)));
}

} // namespace

QString StreetName::Text() const
{
    QStringList parts;
    const auto add = [&parts](const QString& part) {
        if (!part.isEmpty())
            parts.append(part);
    };
    add(DirectionText(before));
    if (typeFirst)
        add(TypeWhole(type));
    add(base);
    if (!typeFirst)
        add(TypeText(type));
    add(DirectionText(behind));
    return parts.join(u' ');
}

qsizetype RoadNumberAt(const QStringList& words, qsizetype at, QString& base)
{
    qsizetype taken = 0;
    const QString head = OwnerAt(words, at, taken);
    if (head.isEmpty())
        return 0;
    const bool lettered = head == u"CO RD" && taken == 2;
    QString number = words.value(at + taken);
    if (number == u"NO" || number == u"NUMBER" || number == u"#")
        number = words.value(at + ++taken);
    if (!IsRoadNumber(number, lettered))
        return 0;
    base = head + u' ' + number;
    return taken + 1;
}

QStringList OtherBases(const QString& base)
{
    QStringList others;
    const auto number = [&base](qsizetype head) { return base.sliced(head); };
    if (base.startsWith(u"HWY "))
        others = {u"US HWY "_s + number(4), u"STATE HWY "_s + number(4), u"CO RD "_s + number(4)};
    else if (base.startsWith(u"US HWY "))
        others = {u"HWY "_s + number(7)};
    else if (base.startsWith(u"STATE HWY "))
        others = {u"HWY "_s + number(10)};
    else if (base.startsWith(u"CO RD "))
        others = {u"HWY "_s + number(6)};
    bool isNumber = false;
    if (const int plain = base.toInt(&isNumber); isNumber && plain > 0 && plain < 1000)
        others.append(OrdinalText(plain));
    else if (!OrdinalOf(base).isEmpty())
        others.append(base.chopped(2));
    return others;
}

StreetName ParseStreetWords(const QStringList& words)
{
    StreetName street;
    qsizetype low = 0;
    qsizetype high = words.size();
    if (high == 0)
        return street;

    // A direction in front, unless it is all there is but a type.
    qsizetype ahead = 0;
    Direction before = TwoLetters(words, 0);
    if (before != Direction::None)
        ahead = 2;
    else if (before = DirectionOf(words.at(0)); before != Direction::None && words.at(0) != u"NO" && words.at(0) != u"SO")
        ahead = 1;
    if (ahead > 0 && high - ahead >= 1 &&
        !(high - ahead == 1 && (TypeEndsName(TypeOf(words.at(ahead))) || DirectionOf(words.at(ahead)) != Direction::None))) {
        street.before = before;
        low = ahead;
    }

    // "Old", "Scenic" and the like before a numbered road are part of its name, so only the front is looked at;
    // "Autauga County 40" is named by its county.
    QString road;
    qsizetype taken = RoadNumberAt(words, low, road);
    qsizetype skipped = 0;
    if (taken == 0 && high - low >= 3 && words.at(low + 1) == u"COUNTY") {
        skipped = 1;
        taken = RoadNumberAt(words, low + 1, road);
    }
    if (taken > 0) {
        low += skipped + taken;
        if (low < high && DirectionOf(words.at(high - 1)) != Direction::None) {
            street.behind = DirectionOf(words.at(high - 1));
            --high;
        }
        street.base = low < high ? road + u' ' + BaseOf(words.sliced(low, high - low)) : road;
        return street;
    }

    if (high - low >= 2) {
        if (const Direction behind = TwoLetters(words, high - 2); behind != Direction::None && high - low >= 3) {
            street.behind = behind;
            high -= 2;
        } else if (const Direction one = DirectionOf(words.at(high - 1)); one != Direction::None) {
            street.behind = one;
            --high;
        }
    }
    if (high - low >= 2) {
        if (const StreetType type = TypeOf(words.at(high - 1)); type != 0) {
            street.type = type;
            --high;
        } else if (const StreetType first = TypeOf(words.at(low));
                   high - low == 2 && TypeEndsName(first) && words.at(high - 1).size() <= 2 && words.at(low) != u"ST") {
            street.type = first;
            street.typeFirst = true;
            ++low;
        }
    }
    street.base = BaseOf(words.sliced(low, high - low));
    return street;
}

StreetName ParseStreet(const QString& name)
{
    QStringList words = AddressWords(name);
    words.removeAll(u","_s);
    return ParseStreetWords(words);
}

} // namespace vasclip::street
