#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace vasclip::formsbook {

/// The picture pages come in four editions; a report uses one.
enum class Edition { Small, Large, SmallPlain, LargePlain };
inline constexpr Edition kEditions[] = {Edition::Small, Edition::Large, Edition::SmallPlain,
                                        Edition::LargePlain};

/// "3X5_PHOTO_PAGES" and so on, in the order in which a page key is looked for.
[[nodiscard]] QLatin1StringView EditionSection(Edition edition);

enum class PhotoKind { Subject, Comps, Alternates, General, Listings, Rentals, Single };

/// A picture page and what it is the n-th of.
struct PhotoPage
{
    QString code;
    QString title;
    QString key; ///< page key of KEL.INI ("COMPARABLES_2"); "" for single pages
    PhotoKind kind = PhotoKind::Single;
    int number = 1;
    QStringList objects; ///< image objects from the top
};

/// All picture pages of an edition: subject, comps, alternates, general, listings, rentals, then the single
/// pages that every edition shares (cover, sketch, maps, fax).
[[nodiscard]] QList<PhotoPage> PhotoPages(Edition edition);

/// @return nullopt if no edition has the page
[[nodiscard]] std::optional<PhotoPage> FindPhotoPage(const QString& code);

/// What is said of an image object beside its picture: "Comp 4 front", "Location map".
[[nodiscard]] QString ObjectCaption(const QString& object);

} // namespace vasclip::formsbook
