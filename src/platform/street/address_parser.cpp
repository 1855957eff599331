#include "platform/street/address_parser.h"

namespace vasclip::street {

using namespace Qt::StringLiterals;

namespace {

bool AllDigits(QStringView word)
{
    for (const QChar digit : word) {
        if (digit < u'0' || digit > u'9')
            return false;
    }
    return !word.isEmpty();
}

/// Whether a word can name a unit: "4", "4B", "B", "12-3".
bool NamesUnit(const QString& word)
{
    if (word.size() <= 2 && word != u"," && DirectionOf(word) == Direction::None && TypeOf(word) == 0)
        return true;
    for (const QChar letter : word) {
        if (letter >= u'0' && letter <= u'9')
            return true;
    }
    return false;
}

/// Whether a last word that may be a state is the street's end: "Main St NE", "Peachtree Street, NE", "Elm Ct", where
/// "12 Main St, Branford CT" is not.
bool EndsStreet(const QStringList& before, const QString& word)
{
    if (DirectionOf(word) == Direction::None && TypeOf(word) == 0)
        return false;
    const bool apart = before.constLast() == u",";
    const QString last = apart ? before.value(before.size() - 2) : before.constLast();
    if (TypeEndsName(TypeOf(last)))
        return true;
    for (qsizetype at = 2; at < before.size(); ++at) {
        if (TypeEndsName(TypeOf(before.at(at))) || before.at(at) == u",")
            return false; // the street ended there, a city lies between
    }
    return !apart;
}

/// Whether a ZIP may be of a state whose letters are a street's word too, or of any other state.
bool ZipFits(const QString& zip, const QString& state)
{
    struct Row
    {
        QLatin1StringView state;
        int low;
        int high;
    };
    static constexpr Row kRows[] = {{"CT"_L1, 60, 69},   {"KY"_L1, 400, 427}, {"LA"_L1, 700, 714},
                                    {"MT"_L1, 590, 599}, {"NE"_L1, 680, 693}, {"PR"_L1, 6, 9}};
    for (const Row& row : kRows) {
        const int area = zip.left(3).toInt();
        if (state == row.state)
            return area >= row.low && area <= row.high;
    }
    return true;
}

/// Takes the country, the ZIP and the state off the end.
void TakeEnd(QStringList& words, Address& address)
{
    const auto commas = [&words] {
        while (!words.isEmpty() && words.constLast() == u",")
            words.removeLast();
    };
    commas();
    if (words.size() > 1 && (words.constLast() == u"USA" || words.constLast() == u"US"))
        words.removeLast();
    commas();
    if (!words.isEmpty()) {
        const QString last = words.constLast();
        const qsizetype hyphen = last.indexOf(u'-');
        const QString five = last.left(5);
        const bool plain = AllDigits(last) && (last.size() == 5 || last.size() == 9);
        const bool plus = hyphen == 5 && last.size() <= 10 && AllDigits(five);
        // "123 Highway 12345" hardly is; a lone five digits may be a house number only in front of a street.
        if (plain || plus) {
            address.zip = five;
            words.removeLast();
        } else if (words.size() > 1 && AllDigits(last) && last.size() == 4 && AllDigits(words.at(words.size() - 2)) &&
                   words.at(words.size() - 2).size() == 5) {
            address.zip = words.at(words.size() - 2);
            words.remove(words.size() - 2, 2);
        }
    }
    commas();
    for (qsizetype take = std::min<qsizetype>(3, words.size() - 1); take >= 1; --take) {
        qsizetype count = 0;
        const qsizetype at = words.size() - take;
        const QString state = StateAt(words, at, count);
        if (state.isEmpty() || count != take)
            continue;
        const bool apart = words.at(at - 1) == u",";
        const QString& word = words.at(at);
        if (take == 1 && (address.zip.isEmpty() ? EndsStreet(words.first(at), word) : !ZipFits(address.zip, word)))
            break; // "Elm Ct, 36067"
        // "1400 Avenue of the Americas, New York" names the city.
        if (take > 1 && address.zip.isEmpty() && apart && words.indexOf(u","_s) == at - 1 && state == u"NY")
            break;
        address.state = state;
        words.remove(at, take);
        break;
    }
    commas();
}

/// Takes the unit out of the words behind `from`; a comma stays in its place.
void TakeUnit(QStringList& words, qsizetype from, Address& address)
{
    for (qsizetype at = from; at < words.size(); ++at) {
        if (!IsUnitWord(words.at(at))) {
            // "3rd Floor"
            const bool floor = at > from && at + 1 < words.size() && words.at(at + 1) == u"FLOOR" &&
                               !OrdinalOf(words.at(at)).isEmpty();
            if (!floor)
                continue;
            address.unit = u"FLOOR "_s + words.at(at);
            words.remove(at, 2);
            words.insert(at, u","_s);
            return;
        }
        qsizetype end = at + 1;
        while (end < words.size() && IsUnitWord(words.at(end)))
            ++end;
        if (end >= words.size() || !NamesUnit(words.at(end)))
            continue;
        ++end;
        // "Apt 13 C"
        if (end < words.size() && words.at(end).size() == 1 && words.at(end).at(0).isLetter() &&
            (end + 1 == words.size() || words.at(end + 1) == u","))
            ++end;
        address.unit = words.sliced(at, end - at).join(u' ');
        words.remove(at, end - at);
        if (at > from)
            words.insert(at, u","_s); // the street ends here
        return;
    }
}

/// Where the city begins among the words of one run that has street and city, `words.size()` for none.
qsizetype CityStart(const QStringList& words, bool cityLikely)
{
    const qsizetype size = words.size();
    QString road;
    const qsizetype low = size > 1 && DirectionOf(words.at(0)) != Direction::None ? 1 : 0;
    const auto pastDirection = [&](qsizetype at, bool numbered) {
        if (at >= size)
            return at;
        const Direction direction = DirectionOf(words.at(at));
        if (direction == Direction::None)
            return at;
        const bool lone = at + 1 == size;
        const bool intercardinal = words.at(at).size() == 2 || direction == Direction::NE ||
                                   direction == Direction::NW || direction == Direction::SE || direction == Direction::SW;
        // "Terrace North St Petersburg" turns the street, "Rd North Little Rock" names the town.
        const bool twice = !lone && DirectionOf(words.at(at + 1)) != Direction::None;
        if (lone || intercardinal || twice || (numbered && low == 0))
            return at + 1;
        return at;
    };
    if (const qsizetype taken = RoadNumberAt(words, low, road); taken > 0)
        return pastDirection(low + taken, false);
    if (words.value(low + 1) == u"COUNTY") { // "Autauga County 40"
        if (const qsizetype taken = RoadNumberAt(words, low + 1, road); taken > 0)
            return pastDirection(low + 1 + taken, false);
    }

    qsizetype weak = 0;
    for (qsizetype at = low + 1; at < size; ++at) {
        const StreetType type = TypeOf(words.at(at));
        if (type == 0)
            continue;
        if (!TypeEndsName(type)) {
            if (weak == 0)
                weak = at;
            continue;
        }
        // "Old St Augustine Rd": a saint, since the street's own type is still to come.
        if (words.at(at) == u"ST" && at + 1 < size && TypeOf(words.at(at + 1)) == 0) {
            bool later = false;
            for (qsizetype next = at + 1; next < size; ++next)
                later = later || (TypeEndsName(TypeOf(words.at(next))) && words.at(next) != u"ST");
            if (later)
                continue;
        }
        qsizetype end = at + 1;
        while (end < size && TypeEndsName(TypeOf(words.at(end))) && !(words.at(end) == u"ST" && end + 1 < size))
            ++end;
        // "Scenic Hwy 98"
        if (end == at + 1 && end < size && TypeText(type) == u"HWY" && words.at(end).at(0).isDigit())
            ++end;
        return pastDirection(end, words.at(low).at(0).isDigit() && low == 0);
    }
    // "Avenue H"
    if (size - low >= 2 && TypeEndsName(TypeOf(words.at(low))) && words.at(low + 1).size() <= 2)
        return low + 2;
    if (!cityLikely)
        return size;
    if (weak > 0 && weak + 1 < size)
        return pastDirection(weak + 1, false);
    return size - low >= 2 && !words.constLast().at(0).isDigit() ? size - 1 : size;
}

qsizetype KnownCityStart(const QStringList& words, const IsPlace& isPlace)
{
    for (qsizetype at = 1; at < words.size(); ++at) {
        if (isPlace(CityKey(words.sliced(at).join(u' ')))) {
            // A direction alone is no street: "10 East Lake" of Lake.
            if (at == 1 && DirectionOf(words.at(0)) != Direction::None)
                continue;
            return at;
        }
    }
    return -1;
}

void SplitStreetAndCity(const QStringList& words, bool cityLikely, const IsPlace& isPlace, Address& address)
{
    qsizetype start = -1;
    const qsizetype guess = CityStart(words, cityLikely);
    if (isPlace) {
        start = KnownCityStart(words, isPlace);
        // "Prattville" of "St Prattville": where the guess leaves a known place too, it knows the type.
        if (guess < words.size() && isPlace(CityKey(words.sliced(guess).join(u' '))))
            start = guess;
    }
    if (start < 0)
        start = guess;
    address.street = ParseStreetWords(words.first(start));
    address.city = CityKey(words.sliced(start).join(u' '));
}

/// Where "and" or the like parts two streets, -1 where it doesn't.
qsizetype CrossingAt(const QStringList& words)
{
    for (qsizetype at = 1; at + 1 < words.size(); ++at) {
        const QString& word = words.at(at);
        if (word == u"&" || word == u"AND" || word == u"AT" || word == u"@")
            return words.at(at - 1) == u"," || words.at(at + 1) == u"," ? -1 : at;
    }
    return -1;
}

} // namespace

QString CityKey(const QString& city)
{
    QStringList words = AddressWords(city);
    words.removeAll(u","_s);
    for (qsizetype at = 0; at < words.size(); ++at) {
        QString& word = words[at];
        if (word == u"ST")
            word = u"SAINT"_s;
        else if (word == u"STE")
            word = u"SAINTE"_s;
        else if (word == u"FT")
            word = u"FORT"_s;
        else if (word == u"MT")
            word = u"MOUNT"_s;
        else if (word == u"TWP" || word == u"TW")
            word = u"TOWNSHIP"_s;
        else if (at == 0 && word == u"N")
            word = u"NORTH"_s;
        else if (at == 0 && word == u"S")
            word = u"SOUTH"_s;
        else if (at == 0 && word == u"E")
            word = u"EAST"_s;
        else if (at == 0 && word == u"W")
            word = u"WEST"_s;
        else if (at > 0 && word.size() <= 4 && TypeOf(word) != 0 && !TypeEndsName(TypeOf(word)))
            word = TypeWhole(TypeOf(word)); // "Virginia Bch"
    }
    return words.join(u' ');
}

QString Address::Text() const
{
    QString line = number.Text();
    const auto add = [&line](const QString& part, QLatin1StringView mark) {
        if (!part.isEmpty())
            line += line.isEmpty() ? part : QString(mark) + part;
    };
    add(street.Text(), " "_L1);
    add(crossing.Text(), " & "_L1);
    add(city, ", "_L1);
    add(state, ", "_L1);
    add(zip, state.isEmpty() ? ", "_L1 : " "_L1);
    return line;
}

Address ParseAddress(const QString& text, const IsPlace& isPlace)
{
    Address address;
    QStringList words = AddressWords(text);
    while (!words.isEmpty() && words.constFirst() == u",")
        words.removeFirst();
    TakeEnd(words, address);
    const bool cityLikely = !address.state.isEmpty() || !address.zip.isEmpty();

    qsizetype count = 0;
    address.number = NumberAt(words, 0, count);
    // A number with nothing behind it is none; "5 Ave" is Fifth Avenue.
    if (count > 0 && (count == words.size() || (count + 1 == words.size() && TypeEndsName(TypeOf(words.at(count)))))) {
        address.number = {};
        count = 0;
    }
    words.remove(0, count);
    if (count > 0 && !words.isEmpty() && words.constFirst() == u",")
        words.removeFirst();
    TakeUnit(words, count > 0 && !words.isEmpty() && IsUnitWord(words.constFirst()) ? 0 : 1, address);
    if (words.isEmpty())
        return address;

    // The first run is the street line, the last the city; runs between them are units, buildings, counties.
    QList<QStringList> runs{{}};
    for (const QString& word : std::as_const(words)) {
        if (word != u",")
            runs.last().append(word);
        else if (!runs.constLast().isEmpty())
            runs.append(QStringList());
    }
    if (runs.constLast().isEmpty())
        runs.removeLast();
    if (runs.isEmpty())
        return address;
    QStringList line = runs.constFirst();
    // "Street, NW Norcross" and "Street, NW"
    if (runs.size() > 1) {
        QStringList& next = runs[1];
        if (const Direction direction = DirectionOf(next.constFirst());
            direction != Direction::None && next.constFirst().size() <= 2 && next.constFirst().size() > 1) {
            line.append(next.takeFirst());
        } else if (next.size() >= 2 && next.at(0).size() == 1 && next.at(1).size() == 1 &&
                   DirectionOf(QString(next.at(0) + next.at(1))) != Direction::None) {
            line.append(next.at(0) + next.at(1));
            next.remove(0, 2);
        }
        if (next.isEmpty())
            runs.removeAt(1);
    }
    QStringList first = line;
    if (address.number.IsEmpty()) {
        const qsizetype of = line.size() > 2 && (line.at(0) == u"CORNER" || line.at(0) == u"INTERSECTION") &&
                                     line.at(1) == u"OF"
                                 ? 2
                                 : 0;
        line.remove(0, of);
        if (const qsizetype at = CrossingAt(line); at > 0) {
            first = line.first(at);
            line = line.sliced(at + 1);
            address.crossing = ParseStreetWords(first);
        }
    }
    if (runs.size() > 1) {
        address.street = ParseStreetWords(line);
        address.city = CityKey(runs.constLast().join(u' '));
    } else if (address.number.IsEmpty() && address.crossing.IsEmpty() && cityLikely &&
               CityStart(line, false) == line.size() && (!isPlace || isPlace(CityKey(line.join(u' '))))) {
        address.city = CityKey(line.join(u' ')); // "Prattville, AL"
    } else {
        SplitStreetAndCity(line, cityLikely, isPlace, address);
    }
    if (!address.crossing.IsEmpty())
        std::swap(address.street, address.crossing);
    return address;
}

} // namespace vasclip::street
