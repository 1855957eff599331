#pragma once

#include "demo/drawing/look.h"
#include "demo/town.h"

#include <QDate>
#include <QMap>

namespace vasclip::demo {

/// The day the demo is made for: no clock is read, so that two runs give the same home.
[[nodiscard]] QDate DemoToday();

/// A stored picture of a comp.
struct Photo
{
    QString view; ///< "FRONT VIEW", "REAR VIEW" or "STREET SCENE"
    QString stem; ///< eight digits
};

/// One record of the Databook before it is written.
struct Comp
{
    QString key;                   ///< trimmed, upper case
    QChar type;                    ///< F, C, S, R, L or M
    QMap<QString, QString> fields; ///< all others are blank
    Look look;
    QList<Photo> photos;
};

/// The most comps that the streets have house numbers for, with room to spare.
inline constexpr int kMostComps = 5000;
inline constexpr int kRoomToSpare = 200;

/// `count` properties with all six types (from 6 up), each address once; every third has pictures.
/// @param count  1 to kMostComps and kRoomToSpare
[[nodiscard]] QList<Comp> MakeMarket(int count);

/// The properties that the reports appraise. They are no records of the Databook.
enum class Subject { OakStreet, FerryStreet, LaurelHill };
inline constexpr Subject kSubjects[] = {Subject::OakStreet, Subject::FerryStreet, Subject::LaurelHill};
[[nodiscard]] QString SubjectAddress(Subject subject);
[[nodiscard]] Comp MakeSubject(Subject subject);

/// MM/DD/YYYY as the Databook stores it: no leading zeros.
[[nodiscard]] QString DateText(const QDate& date);

} // namespace vasclip::demo
