#pragma once

#include "demo/market.h"
#include "demo/photo_shoot.h"
#include "platform/engine/database.h"

#include <QJsonObject>

namespace vasclip::demo {

/// Where the files go, as drive paths with a trailing backslash.
struct FormsPlaces
{
    QString iniDirectory;
    QString userDirectory; ///< of Comp2Kel.mdb
    QString photoDirectory;
};

/// The directories of the forms program.
[[nodiscard]] QStringList FormsDirectories();

/// Installs the forms program's side: KEL.INI, its scripts and stand-in executable, the mapping Comp2Kel.mdb
/// and the reports.
void MakeFormsFiles(engine::Engine& engine, const QList<Comp>& comps, const FormsPlaces& places);

/// The subjects' own pictures and the general ones of the full report, which stand beside the reports.
[[nodiscard]] QList<Shot> SubjectPictures();

/// The big report: all pages of the main form "UA5", its subject, and two comps of the Databook already in
/// it.
[[nodiscard]] QJsonObject BigReport(const QList<Comp>& comps, const QString& photoDirectory);
/// The full report: as the big one, but its pages hold comps, alternates, listings, rentals, general photos with
/// their views, and a text addendum. The fifth comp's photo is still to be taken.
[[nodiscard]] QJsonObject FullReport(const QList<Comp>& comps, const QString& photoDirectory);
/// The small one: "2055" with subject photos and the first page of comp photos, one comp in it.
[[nodiscard]] QJsonObject SmallReport(const QList<Comp>& comps, const QString& photoDirectory);

} // namespace vasclip::demo
