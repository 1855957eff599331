#include "formsbook/photo_pages.h"

#include <QHash>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

/// A page's code may not begin with another's: a code is found in a forms list by its beginning.
struct EditionRow
{
    QLatin1StringView section;
    QLatin1StringView size;
    QLatin1StringView subject;
    QLatin1StringView comps;
    QLatin1StringView general;
    QLatin1StringView listings;
    QLatin1StringView rentals;
    int firstAlternate; ///< ALTPH1 and 2 are the small pages, 3 and 4 the large ones
};

constexpr std::array kRows{
    EditionRow{"3X5_PHOTO_PAGES"_L1, "3X5"_L1, "SUBPHOTO"_L1, "COMPPH"_L1, "GENPH"_L1, "LISTPH"_L1,
               "RENTPH"_L1, 1},
    EditionRow{"4X6_PHOTO_PAGES"_L1, "4X6"_L1, "SUBPHOT2"_L1, "CMP2PH"_L1, "GEN2PH"_L1, "LST2PH"_L1,
               "RNT2PH"_L1, 3},
    EditionRow{"3X5_NLPHOTO_PAGES"_L1, "3X5"_L1, "NLSUBPH1"_L1, "NLCMPH"_L1, "NLGNPH"_L1, "NLLSPH"_L1,
               "NLRNPH"_L1, 1},
    EditionRow{"4X6_NLPHOTO_PAGES"_L1, "3X5"_L1, "NLSUBPH2"_L1, "NLCM2P"_L1, "NLGN2P"_L1, "NLLS2P"_L1,
               "NLRN2P"_L1, 1},
};

const EditionRow& RowOf(Edition edition)
{
    return kRows[static_cast<size_t>(edition)];
}

struct Series
{
    PhotoKind kind;
    QLatin1StringView keyPrefix;
    QLatin1StringView title;
    QLatin1StringView objectPrefix;
    int pages;
};

constexpr Series kSubject{PhotoKind::Subject, "SUBJECT_"_L1, "Subject photos"_L1, "SUB_"_L1, 1};
constexpr Series kComps{PhotoKind::Comps, "COMPARABLES_"_L1, "Comparable photos"_L1, "CMP_"_L1, 3};
constexpr Series kAlternates{PhotoKind::Alternates, "ALTPH"_L1, "Alternate comparable photos"_L1, "ALT_"_L1,
                             2};
constexpr Series kGeneral{PhotoKind::General, "GENERAL_"_L1, "General photos"_L1, "GN_"_L1, 12};
constexpr Series kListings{PhotoKind::Listings, "LISTINGS_"_L1, "Listing photos"_L1, "LCMP_"_L1, 2};
constexpr Series kRentals{PhotoKind::Rentals, "RENTALS_"_L1, "Rental photos"_L1, "RCMP_"_L1, 3};

struct SingleRow
{
    QLatin1StringView code, title, object;
};

constexpr SingleRow kSingles[] = {
    {"COVER"_L1, "Cover page"_L1, "SUB_TITLE"_L1},
    {"SKETCH"_L1, "Building sketch"_L1, "SKETCH_SUBJECT"_L1},
    {"MAPLOC"_L1, "Location map"_L1, "MAP_LOCATION"_L1},
    {"MAPGEN"_L1, "General map"_L1, "MAP_GENERAL_1"_L1},
    {"FAXSCAN"_L1, "Scanned page"_L1, "FAX_SCAN_A"_L1},
};

void Append(QList<PhotoPage>& pages, const Series& series, const EditionRow& row, const auto& codeOf)
{
    for (int number = 1; number <= series.pages; ++number) {
        PhotoPage page;
        page.kind = series.kind;
        page.number = number;
        page.code = codeOf(number);
        page.key = series.kind == PhotoKind::Alternates ? page.code
                                                        : QString(series.keyPrefix) + QString::number(number);
        page.title = series.kind == PhotoKind::Subject
                         ? QString(series.title)
                         : u"%1 %2 - %3"_s.arg(series.title).arg(number * 3 - 2).arg(number * 3);
        for (int n = number * 3 - 2; n <= number * 3; ++n)
            page.objects.append(series.objectPrefix + QString::number(n) + u'_' + row.size);
        pages.append(page);
    }
}

} // namespace

QLatin1StringView EditionSection(Edition edition)
{
    return RowOf(edition).section;
}

QList<PhotoPage> PhotoPages(Edition edition)
{
    const EditionRow& row = RowOf(edition);
    const auto numbered = [](QLatin1StringView prefix) {
        return [prefix](int number) { return prefix + QString::number(number); };
    };
    QList<PhotoPage> pages;
    Append(pages, kSubject, row, [&row](int) { return QString(row.subject); });
    Append(pages, kComps, row, numbered(row.comps));
    Append(pages, kAlternates, row,
           [&row](int number) { return u"ALTPH"_s + QString::number(number + row.firstAlternate - 1); });
    Append(pages, kGeneral, row,
           [&row](int number) { return row.general + u"%1"_s.arg(number, 2, 10, QLatin1Char('0')); });
    Append(pages, kListings, row, numbered(row.listings));
    Append(pages, kRentals, row, numbered(row.rentals));
    for (const SingleRow& single : kSingles) {
        PhotoPage page;
        page.code = single.code;
        page.title = single.title;
        page.objects = {QString(single.object)};
        pages.append(page);
    }
    return pages;
}

std::optional<PhotoPage> FindPhotoPage(const QString& code)
{
    static const QHash<QString, PhotoPage> pages = [] {
        QHash<QString, PhotoPage> all;
        for (const Edition edition : kEditions) {
            for (const PhotoPage& page : PhotoPages(edition))
                all.insert(page.code, page);
        }
        return all;
    }();
    const auto found = pages.constFind(code.toUpper());
    return found == pages.constEnd() ? std::nullopt : std::optional(*found);
}

QString ObjectCaption(const QString& object)
{
    for (const SingleRow& single : kSingles) {
        if (object == single.object)
            return single.title;
    }
    constexpr QLatin1StringView kViews[] = {"Front view"_L1, "Rear view"_L1, "Street scene"_L1};
    const int number = object.section(u'_', 1, 1).toInt();
    if (object.startsWith("SUB_"_L1) && number >= 1 && number <= 3)
        return kViews[number - 1];
    struct Word
    {
        QLatin1StringView prefix, word;
    };
    constexpr Word kWords[] = {{"CMP_"_L1, "Comparable"_L1},
                               {"ALT_"_L1, "Alternate"_L1},
                               {"GN_"_L1, "Photo"_L1},
                               {"LCMP_"_L1, "Listing"_L1},
                               {"RCMP_"_L1, "Rental"_L1}};
    for (const Word& word : kWords) {
        if (object.startsWith(word.prefix))
            return u"%1 %2"_s.arg(word.word).arg(number);
    }
    return object;
}

} // namespace vasclip::formsbook
