#include "demo/market.h"

#include "demo/market_types.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

constexpr int kNoRecord = -1; ///< the place of a subject among the records; its location is always known

struct Address
{
    QString text;
    Place place;
};

const QStringList& Notes()
{
    static const QStringList notes{
        u"Kitchen remodeled two years before the sale. Seller paid no concessions."_s,
        u"Sold with adjoining strip along the creek; tax lots since combined."_s,
        u"Multiple offers in the first week, closed above list."_s,
        u"Roof replaced at time of sale, credited to buyer in escrow."_s,
        u"Backs to the greenway. Good natural light, territorial view to the west."_s,
        u"Estate sale, original finishes, well kept."_s,
        u"Corner lot with alley access and room for a boat."_s,
        u"Verified with both agents, an ordinary sale between strangers."_s,
        u"Relocation sale through employer; typical market terms."_s,
        u"Drainage easement along the rear line, no effect on utility."_s,
        u"New furnace and water heater. Windows original."_s,
        u"Walking distance to the ferry landing and the farmers market."_s};
    return notes;
}

const QStringList& Comments()
{
    static const QStringList comments{
        u"Best comparable for the older part of town."_s, u"Use with care: view not typical."_s,
        u"Exterior inspected from the street."_s, u"Interior pictures in the office file."_s,
        u"Check the permit for the added bath."_s};
    return comments;
}

Season SeasonOf(const QDate& date)
{
    static constexpr Season kMonths[12] = {Season::Winter, Season::Winter, Season::Spring, Season::Spring,
                                           Season::Spring, Season::Summer, Season::Summer, Season::Summer,
                                           Season::Autumn, Season::Autumn, Season::Autumn, Season::Winter};
    return kMonths[date.month() - 1];
}

/// The comp types in the shares they have in the Databook.
QChar TypeOf(Dice& dice, int index)
{
    static const QString first = u"FCSRLM"_s;
    if (index < first.size())
        return first.at(index); // so that even a small home has all six
    const double at = dice.Real();
    return at < 0.56   ? u'F'
           : at < 0.69 ? u'C'
           : at < 0.78 ? u'S'
           : at < 0.87 ? u'R'
           : at < 0.94 ? u'L'
                       : u'M';
}

const Neighbourhood& NeighbourhoodFor(Dice& dice, QChar type)
{
    for (;;) {
        const Neighbourhood& place = dice.Pick(Town());
        if (place.builds.contains(type))
            return place;
    }
}

/// Sales thicken towards today.
QDate SaleDate(Dice& dice)
{
    const double back = dice.Real();
    return DemoToday().addDays(-5 - static_cast<int>(back * back * 1050));
}

QString NewStem(Dice& dice, QSet<QString>& used)
{
    for (;;) {
        QString stem;
        for (int i = 0; i < 8; ++i)
            stem += QChar(u'0' + dice.Below(10));
        if (!used.contains(stem)) {
            used.insert(stem);
            return stem;
        }
    }
}

/// A free house number on one of the neighbourhood's streets, never given twice.
Address NewAddress(Dice& dice, const Neighbourhood& place, QSet<QString>& taken)
{
    for (;;) {
        const Street& street = dice.Pick(place.streets);
        const int number = dice.Between(street.firstNumber, street.lastNumber);
        const QString text = QString::number(number) + u' ' + street.name;
        if (taken.contains(text))
            continue;
        taken.insert(text);
        return {text, PlaceOf(street, number)};
    }
}

void PutWhereAndWhen(Draft& draft, const Address& address, int index)
{
    Dice& dice = draft.dice;
    const Neighbourhood& place = draft.place;
    draft.Put("ADDRESS", address.text);
    draft.Put("CITY", place.city);
    draft.Put("ST", place.state);
    draft.Put("ZIP", place.zip);
    draft.Put("COUNTY", place.county);
    draft.Put("NEIGHBORHD", place.name);
    draft.Put("CENSUSTRCT", place.tract);
    draft.Put("FLOODMAP", place.floodMap);
    draft.Put("COMPCODE", place.code);
    if (index != kNoRecord)
        draft.Put("COMPID", u"MF%1"_s.arg(index + 1, 5, 10, QChar(u'0')));
    draft.Put("TAXMAPNUM",
              u"14-%1-%2"_s.arg(dice.Between(10, 36)).arg(dice.Between(100, 9899), 4, 10, QChar(u'0')));
    const bool located = dice.Chance(0.5);
    if (located || index == kNoRecord) {
        draft.Put("LATITUDE", QString::number(address.place.latitude, 'f', 6));
        draft.Put("LONGITUDE", QString::number(address.place.longitude, 'f', 6));
        draft.Put("ANCHORED", dice.Chance(0.2) ? 1 : 0);
    }

    const bool rental = draft.comp.type == u'R';
    const QDate closed = draft.pending || rental ? QDate(1900, 1, 1) : draft.sale;
    draft.Put("SALEDATE", draft.pending || rental ? u"01/01/1900"_s : DateText(closed));
    draft.Put("SALESERIAL", text::Str(static_cast<double>(text::DateSerial(closed))));
    if (!rental)
        draft.Put("SALEFLD", draft.pending ? u"Pending"_s : draft.sale.toString(u"MM/dd/yyyy"_s));
    const QDate loaded = std::min(draft.sale.addDays(dice.Between(2, 40)), DemoToday());
    draft.Put("LOADDATE", DateText(loaded));
    draft.Put("LOADSERIAL", text::Str(static_cast<double>(text::DateSerial(loaded))));
    draft.Put("MODIFIEDDATE", DateText(std::min(loaded.addDays(dice.Below(20)), DemoToday())));
    if (!rental && !draft.pending)
        draft.Put("CONTRKDATE", DateText(draft.sale.addDays(-dice.Between(24, 60))));

    draft.Put("DATASOURCE", u"MLS #%1%2"_s.arg(draft.sale.year() % 100).arg(dice.Between(10000, 99999)));
    draft.Put("VERIFYSRCE", dice.Pick(QStringList{u"County Assessor"_s, u"Public Records"_s,
                                                  u"Listing Agent"_s, u"Deed"_s}));
    draft.Put("SFCONCESS1", dice.Pick(QStringList{u"Conv"_s, u"Conv"_s, u"FHA"_s, u"Cash"_s}));
    draft.Put("SFCONCESS2", dice.Chance(0.25) ? QString::number(dice.Between(1, 8) * 1000) : u"None Noted"_s);
    draft.Put("DAYSONMKT", dice.Between(3, 140));
    draft.Put("SALEHIST1", dice.Chance(0.2) ? u"Prior sale %1"_s.arg(draft.sale.year() - dice.Between(2, 9))
                                            : u"None in 36 months"_s);
    if (dice.Chance(0.35))
        draft.Put("NOTES", dice.Pick(Notes()));
    if (dice.Chance(0.12))
        draft.Put("MISCCOMM", dice.Pick(Comments()));
}

/// The age rule: the year of the sale less the year built, when that is 1 or more.
void PutAge(Draft& draft)
{
    if (draft.comp.type == u'L')
        return;
    draft.Put("YEARBUILT", draft.year);
    const int saleYear = draft.comp.fields.value(u"SALEDATE"_s).right(4).toInt();
    if (saleYear - draft.year >= 1)
        draft.Put("AGE", saleYear - draft.year);
}

Comp MakeProperty(Dice& dice, QChar type, const Neighbourhood& place, const Address& address, int index)
{
    Comp comp;
    comp.type = type;
    comp.key = address.text.toUpper();
    Draft draft{
        dice, place, comp, SaleDate(dice), dice.Chance(0.07), dice.Between(place.firstYear, place.lastYear)};
    comp.look.seed = dice.Next();
    comp.look.day = dice.Next();
    comp.look.season = SeasonOf(draft.sale);
    static const QList<Daylight> lights{Daylight::Noon,    Daylight::Noon,    Daylight::Noon,
                                        Daylight::Morning, Daylight::Evening, Daylight::Overcast};
    comp.look.light = dice.Pick(lights);
    draft.Put("APPRSLTYPE", QString(type));
    PutWhereAndWhen(draft, address, index);
    switch (type.unicode()) {
    case u'C':
        PutCondo(draft);
        break;
    case u'S':
        PutUnitSale(draft);
        break;
    case u'R':
        PutUnitRental(draft);
        break;
    case u'L':
        PutLand(draft);
        break;
    case u'M':
        PutManufactured(draft);
        break;
    default:
        PutSingleFamily(draft);
    }
    PutAge(draft);
    return comp;
}

Comp MakeComp(Dice& dice, int index, QSet<QString>& taken)
{
    const QChar type = TypeOf(dice, index);
    const Neighbourhood& place = NeighbourhoodFor(dice, type);
    return MakeProperty(dice, type, place, NewAddress(dice, place, taken), index);
}

/// Every third comp of the list by address, so that a grid in that order shows pictures from its first row
/// on.
void TakePhotos(Dice& dice, QList<Comp>& comps)
{
    QList<Comp*> byAddress;
    for (Comp& comp : comps)
        byAddress.append(&comp);
    std::sort(byAddress.begin(), byAddress.end(),
              [](const Comp* a, const Comp* b) { return a->key < b->key; });
    QSet<QString> stems;
    int pictured = 0;
    for (qsizetype i = 0; i < byAddress.size(); i += 3, ++pictured) {
        QList<Photo>& photos = byAddress[i]->photos;
        photos.append({u"FRONT VIEW"_s, NewStem(dice, stems)});
        if (pictured % 7 == 2)
            photos.append({u"REAR VIEW"_s, NewStem(dice, stems)});
        if (pictured % 9 == 2)
            photos.append({u"STREET SCENE"_s, NewStem(dice, stems)});
    }
}

} // namespace

QDate DemoToday()
{
    return QDate(2026, 6, 30);
}

QString DateText(const QDate& date)
{
    return date.toString(u"M/d/yyyy"_s);
}

QList<Comp> MakeMarket(int count)
{
    Q_ASSERT(count >= 1 && count <= kMostComps + kRoomToSpare);
    Dice dice(20260630);
    QSet<QString> taken;
    for (const Subject subject : kSubjects)
        taken.insert(SubjectAddress(subject));
    QList<Comp> comps;
    comps.reserve(count);
    for (int index = 0; index < count; ++index)
        comps.append(MakeComp(dice, index, taken));
    TakePhotos(dice, comps);
    return comps;
}

Comp MakeSubject(Subject subject)
{
    const QString text = SubjectAddress(subject);
    for (const Neighbourhood& place : Town()) {
        for (const Street& street : place.streets) {
            if (!text.endsWith(u' ' + street.name))
                continue;
            const int number = text.section(u' ', 0, 0).toInt();
            Dice dice(static_cast<quint32>(number));
            Comp comp = MakeProperty(dice, u'F', place, {text, PlaceOf(street, number)}, kNoRecord);
            comp.look.season = Season::Summer; // inspected these days
            for (const auto field :
                 {"SELLINGPR", "PRICEFLD", "PRICEGLA", "SALEFLD", "SALEDATE", "SALESERIAL", "AGE",
                  "DATASOURCE", "VERIFYSRCE", "SFCONCESS1", "SFCONCESS2", "CONTRKDATE"})
                comp.fields.remove(QString::fromLatin1(field));
            return comp;
        }
    }
    return {};
}

QString SubjectAddress(Subject subject)
{
    switch (subject) {
    case Subject::OakStreet:
        return u"114 Oak St"_s;
    case Subject::FerryStreet:
        return u"22 Ferry St"_s;
    case Subject::LaurelHill:
        break;
    }
    return u"764 Laurel Hill Rd"_s;
}

} // namespace vasclip::demo
