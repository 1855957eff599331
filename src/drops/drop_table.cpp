#include "drops/drop_table.h"

#include "platform/text/text.h"

#include <algorithm>
#include <array>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

using enum DropAction;

constexpr auto kGrid = "GRDDATABOOK"_L1;
constexpr auto kMapAddress = "TXTMAPADDRESS"_L1;
constexpr auto kMapProximity = "TXTMAPPROXIMITY"_L1;
constexpr auto kMapView = "MAPVIEW"_L1;
constexpr auto kMapPhoto = "GEAMAPPHOTO"_L1;
constexpr auto kThumb = "GEATHUMB"_L1;
constexpr auto kList = "FILCAPTURE"_L1;
constexpr auto kPreview = "GEALISTBOX"_L1;
constexpr auto kShown = "GEAMAINTAIN"_L1;

// clang-format off
constexpr std::array kDropMatrix{
    // Photo slots of the report.
    DropRule{kGrid,       "IMASUBJECT"_L1, SendViewOfIndex, Group::Subject},
    DropRule{kGrid,       "IMACOMP"_L1,    SendFrontView,   Group::Sales},
    DropRule{kGrid,       "IMAALTCOMP"_L1, SendFrontView,   Group::Alternates},
    DropRule{kGrid,       "IMALISTING"_L1, SendFrontView,   Group::Listings},
    DropRule{kGrid,       "IMARENTAL"_L1,  SendFrontView,   Group::Rentals},
    DropRule{kGrid,       "IMAGENERAL"_L1, SendAskedView,   Group::General},
    DropRule{kMapAddress, "IMASUBJECT"_L1, SendViewOfIndex, Group::Subject},
    DropRule{kMapAddress, "IMACOMP"_L1,    SendFrontView,   Group::Sales},
    DropRule{kMapAddress, "IMAALTCOMP"_L1, SendFrontView,   Group::Alternates},
    DropRule{kMapAddress, "IMALISTING"_L1, SendFrontView,   Group::Listings},
    DropRule{kMapAddress, "IMARENTAL"_L1,  SendFrontView,   Group::Rentals},
    DropRule{kMapAddress, "IMAGENERAL"_L1, SendAskedView,   Group::General},
    DropRule{kThumb,      "IMASUBJECT"_L1, FileIntoSlot,    Group::Subject},
    DropRule{kThumb,      "IMACOMP"_L1,    FileIntoSlot,    Group::Sales},
    DropRule{kThumb,      "IMAALTCOMP"_L1, FileIntoSlot,    Group::Alternates},
    DropRule{kThumb,      "IMALISTING"_L1, FileIntoSlot,    Group::Listings},
    DropRule{kThumb,      "IMARENTAL"_L1,  FileIntoSlot,    Group::Rentals},
    DropRule{kThumb,      "IMAGENERAL"_L1, FileIntoGeneral, Group::General},
    DropRule{kList,       "IMASUBJECT"_L1, FileIntoSlot,    Group::Subject},
    DropRule{kList,       "IMACOMP"_L1,    FileIntoSlot,    Group::Sales},
    DropRule{kList,       "IMAALTCOMP"_L1, FileIntoSlot,    Group::Alternates},
    DropRule{kList,       "IMALISTING"_L1, FileIntoSlot,    Group::Listings},
    DropRule{kList,       "IMARENTAL"_L1,  FileIntoSlot,    Group::Rentals},
    DropRule{kList,       "IMAGENERAL"_L1, FileIntoGeneral, Group::General},
    DropRule{kPreview,    "IMASUBJECT"_L1, FileIntoSlot,    Group::Subject},
    DropRule{kPreview,    "IMACOMP"_L1,    FileIntoSlot,    Group::Sales},
    DropRule{kPreview,    "IMAALTCOMP"_L1, FileIntoSlot,    Group::Alternates},
    DropRule{kPreview,    "IMALISTING"_L1, FileIntoSlot,    Group::Listings},
    DropRule{kPreview,    "IMARENTAL"_L1,  FileIntoSlot,    Group::Rentals},
    DropRule{kPreview,    "IMAGENERAL"_L1, FileIntoGeneral, Group::General},
    DropRule{kFiles,      "IMASUBJECT"_L1, FileIntoSlot,    Group::Subject},
    DropRule{kFiles,      "IMACOMP"_L1,    FileIntoSlot,    Group::Sales},
    DropRule{kFiles,      "IMAALTCOMP"_L1, FileIntoSlot,    Group::Alternates},
    DropRule{kFiles,      "IMALISTING"_L1, FileIntoSlot,    Group::Listings},
    DropRule{kFiles,      "IMARENTAL"_L1,  FileIntoSlot,    Group::Rentals},
    DropRule{kFiles,      "IMAGENERAL"_L1, FileIntoGeneral, Group::General},
    DropRule{kShown,      "IMASUBJECT"_L1, SendShownPhoto,  Group::Subject},
    DropRule{kShown,      "IMACOMP"_L1,    SendShownPhoto,  Group::Sales},
    DropRule{kShown,      "IMAALTCOMP"_L1, SendShownPhoto,  Group::Alternates},
    DropRule{kShown,      "IMALISTING"_L1, SendShownPhoto,  Group::Listings},
    DropRule{kShown,      "IMARENTAL"_L1,  SendShownPhoto,  Group::Rentals},
    DropRule{kShown,      "IMAGENERAL"_L1, SendShownAsked,  Group::General},
    // Text slots.
    DropRule{kGrid,       "TXTSUBJECT"_L1, ReplaceSubjectPhotos, Group::Subject},
    DropRule{kGrid,       "TXTCOMP"_L1,    PasteCompAndPhoto, Group::Sales},
    DropRule{kGrid,       "TXTALTCOMP"_L1, PasteCompAndPhoto, Group::Alternates},
    DropRule{kGrid,       "TXTLISTING"_L1, PasteCompAndPhoto, Group::Listings},
    DropRule{kGrid,       "TXTRENTAL"_L1,  PasteCompAndPhoto, Group::Rentals},
    DropRule{kMapAddress, "TXTCOMP"_L1,    PasteCompAndPhoto, Group::Sales},
    DropRule{kMapAddress, "TXTALTCOMP"_L1, PasteCompAndPhoto, Group::Alternates},
    DropRule{kMapProximity, "TXTALTCOMP"_L1, SendProximity,  Group::Alternates},
    DropRule{kMapView,    "TXTCOMP"_L1,    PasteCompAndPhoto, Group::Sales},
    DropRule{kMapView,    "TXTALTCOMP"_L1, PasteCompAndPhoto, Group::Alternates},
    DropRule{kMapView,    "TXTLISTING"_L1, PasteCompAndPhoto, Group::Listings},
    DropRule{kMapView,    "TXTRENTAL"_L1,  PasteCompAndPhoto, Group::Rentals},
    DropRule{kThumb,      "TXTSUBJECT"_L1, ShowInSubject,   Group::Subject},
    DropRule{kList,       "TXTSUBJECT"_L1, ShowInSubject,   Group::Subject},
    DropRule{kFiles,      "TXTSUBJECT"_L1, ShowInSubject,   Group::Subject},
    // Data boxes.
    DropRule{kGrid,       "GEACOMP"_L1,    PasteComp, Group::Sales},
    DropRule{kGrid,       "GEAALTCOMP"_L1, PasteComp, Group::Alternates},
    DropRule{kGrid,       "GEALISTING"_L1, PasteComp, Group::Listings},
    DropRule{kGrid,       "GEARENTAL"_L1,  PasteComp, Group::Rentals},
    DropRule{kMapAddress, "GEACOMP"_L1,    PasteComp, Group::Sales},
    DropRule{kMapAddress, "GEAALTCOMP"_L1, PasteComp, Group::Alternates},
    DropRule{kMapPhoto,   "GEACOMP"_L1,    PasteComp, Group::Sales},
    DropRule{kMapPhoto,   "GEAALTCOMP"_L1, PasteComp, Group::Alternates},
    // The Databook's grid.
    DropRule{kThumb,      kGrid, FileInRecord},
    DropRule{kList,       kGrid, FileInRecord},
    DropRule{kFiles,      kGrid, FileInRecord},
    DropRule{"GEACOMP"_L1,    kGrid, SaveData,  Group::Sales},
    DropRule{"GEAALTCOMP"_L1, kGrid, SaveData,  Group::Alternates},
    DropRule{"GEALISTING"_L1, kGrid, SaveData,  Group::Listings},
    DropRule{"GEARENTAL"_L1,  kGrid, SaveData,  Group::Rentals},
    DropRule{"IMACOMP"_L1,    kGrid, SavePhoto, Group::Sales},
    DropRule{"IMAALTCOMP"_L1, kGrid, SavePhoto, Group::Alternates},
    DropRule{"IMALISTING"_L1, kGrid, SavePhoto, Group::Listings},
    DropRule{"IMARENTAL"_L1,  kGrid, SavePhoto, Group::Rentals},
    DropRule{"IMASUBJECT"_L1, kGrid, SavePhoto, Group::Subject},
    DropRule{"TXTCOMP"_L1,    kGrid, SaveBoth,  Group::Sales},
    DropRule{"TXTALTCOMP"_L1, kGrid, SaveBoth,  Group::Alternates},
    DropRule{"TXTLISTING"_L1, kGrid, SaveBoth,  Group::Listings},
    DropRule{"TXTRENTAL"_L1,  kGrid, SaveBoth,  Group::Rentals},
    DropRule{"TXTSUBJECT"_L1, kGrid, SaveBoth,  Group::Subject},
    DropRule{"IMAGENERAL"_L1, kGrid, AdviseGeneral, Group::General},
    DropRule{"TXTGENERAL"_L1, kGrid, AdviseGeneral, Group::General},
    DropRule{"CBOGENERAL"_L1, kGrid, AdviseGeneral, Group::General},
    // The address of a comp. Its box is txtcentralkey.
    DropRule{kThumb, "CBOADDRESS"_L1,    FileUnderAddress},
    DropRule{kList,  "CBOADDRESS"_L1,    FileUnderAddress},
    DropRule{kFiles, "CBOADDRESS"_L1,    FileUnderAddress},
    DropRule{kThumb, "TXTCENTRALKEY"_L1, FileUnderAddress},
    DropRule{kList,  "TXTCENTRALKEY"_L1, FileUnderAddress},
    DropRule{kFiles, "TXTCENTRALKEY"_L1, FileUnderAddress},
    DropRule{kThumb, "FRAADDACOMP"_L1,   FileUnderAddress},
    DropRule{kList,  "FRAADDACOMP"_L1,   FileUnderAddress},
    DropRule{kFiles, "FRAADDACOMP"_L1,   FileUnderAddress},
    DropRule{kThumb, "TXTADDACOMP"_L1,   FileUnderAddress},
    DropRule{kList,  "TXTADDACOMP"_L1,   FileUnderAddress},
    DropRule{kFiles, "TXTADDACOMP"_L1,   FileUnderAddress},
    // The trash.
    DropRule{kThumb, "IMATRASHCAN"_L1, ToTrash},
    // Back to the capture directory.
    DropRule{kGrid,            kThumb,       CopyBack},
    DropRule{"IMASUBJECT"_L1,  kThumb,       CopyBack, Group::Subject},
    DropRule{"IMACOMP"_L1,     kThumb,       CopyBack, Group::Sales},
    DropRule{"IMAALTCOMP"_L1,  kThumb,       CopyBack, Group::Alternates},
    DropRule{"IMALISTING"_L1,  kThumb,       CopyBack, Group::Listings},
    DropRule{"IMARENTAL"_L1,   kThumb,       CopyBack, Group::Rentals},
    DropRule{"IMAGENERAL"_L1,  kThumb,       CopyBack, Group::General},
    DropRule{kGrid,            "FRAPICS"_L1, CopyBack},
    DropRule{"IMASUBJECT"_L1,  "FRAPICS"_L1, CopyBack, Group::Subject},
    DropRule{"IMACOMP"_L1,     "FRAPICS"_L1, CopyBack, Group::Sales},
    DropRule{"IMAALTCOMP"_L1,  "FRAPICS"_L1, CopyBack, Group::Alternates},
    DropRule{"IMALISTING"_L1,  "FRAPICS"_L1, CopyBack, Group::Listings},
    DropRule{"IMARENTAL"_L1,   "FRAPICS"_L1, CopyBack, Group::Rentals},
    DropRule{"IMAGENERAL"_L1,  "FRAPICS"_L1, CopyBack, Group::General},
    DropRule{kGrid,            "LBLTAB"_L1,  CopyBack},
    DropRule{"IMASUBJECT"_L1,  "LBLTAB"_L1,  CopyBack, Group::Subject},
    DropRule{"IMACOMP"_L1,     "LBLTAB"_L1,  CopyBack, Group::Sales},
    DropRule{"IMAALTCOMP"_L1,  "LBLTAB"_L1,  CopyBack, Group::Alternates},
    DropRule{"IMALISTING"_L1,  "LBLTAB"_L1,  CopyBack, Group::Listings},
    DropRule{"IMARENTAL"_L1,   "LBLTAB"_L1,  CopyBack, Group::Rentals},
    DropRule{"IMAGENERAL"_L1,  "LBLTAB"_L1,  CopyBack, Group::General},
    DropRule{kFiles,           kThumb,       CopyIn},
    DropRule{kFiles,           "FRAPICS"_L1, CopyIn},
    DropRule{kFiles,           "LBLTAB"_L1,  CopyIn},
    DropRule{kFiles,           kList,        CopyIn},
    DropRule{kFiles,           kPreview,     CopyIn},
};

struct HintRow
{
    QLatin1StringView source, target, text;
};

constexpr auto kPasteData = "Drop here to paste the comp data in the appraisal"_L1;
constexpr auto kPlacePhoto = "Drop here to place the photo into the appraisal"_L1;
constexpr auto kPasteBoth = "Drop here to place both the photo and the comp data into the appraisal"_L1;
constexpr auto kAddPhoto = "Drop here to add a photo to the currently highlighted data entry"_L1;

// The first and the third have always stood on each other's target: a text slot takes the photo too, a data
// box the data alone. The tool tips of both say it as it is.
constexpr std::array kHints{
    HintRow{kGrid, "TXTCOMP"_L1, kPasteData},
    HintRow{kGrid, "TXTALTCOMP"_L1, kPasteData},
    HintRow{kGrid, "TXTLISTING"_L1, kPasteData},
    HintRow{kGrid, "TXTRENTAL"_L1, kPasteData},
    HintRow{kGrid, "IMACOMP"_L1, kPlacePhoto},
    HintRow{kGrid, "IMAALTCOMP"_L1, kPlacePhoto},
    HintRow{kGrid, "IMASUBJECT"_L1, kPlacePhoto},
    HintRow{kGrid, "IMAGENERAL"_L1, kPlacePhoto},
    HintRow{kGrid, "IMALISTING"_L1, kPlacePhoto},
    HintRow{kGrid, "IMARENTAL"_L1, kPlacePhoto},
    HintRow{kGrid, "GEACOMP"_L1, kPasteBoth},
    HintRow{kGrid, "GEAALTCOMP"_L1, kPasteBoth},
    HintRow{kGrid, "GEASUBJECT"_L1, kPasteBoth},
    HintRow{kGrid, "GEAGENERAL"_L1, kPasteBoth},
    HintRow{kGrid, "GEALISTING"_L1, kPasteBoth},
    HintRow{kGrid, "GEARENTAL"_L1, kPasteBoth},
    // A capture picture over an alternate comp has always shown no hint, though the drop works.
    HintRow{kThumb, "IMACOMP"_L1, kPlacePhoto},
    HintRow{kThumb, "IMASUBJECT"_L1, kPlacePhoto},
    HintRow{kThumb, "IMAGENERAL"_L1, kPlacePhoto},
    HintRow{kThumb, "IMALISTING"_L1, kPlacePhoto},
    HintRow{kThumb, "IMARENTAL"_L1, kPlacePhoto},
    HintRow{kList, "IMACOMP"_L1, kPlacePhoto},
    HintRow{kList, "IMASUBJECT"_L1, kPlacePhoto},
    HintRow{kList, "IMAGENERAL"_L1, kPlacePhoto},
    HintRow{kList, "IMALISTING"_L1, kPlacePhoto},
    HintRow{kList, "IMARENTAL"_L1, kPlacePhoto},
    HintRow{kThumb, kGrid, kAddPhoto},
    HintRow{kList, kGrid, kAddPhoto},
};

struct KindRow
{
    QLatin1StringView name, kind;
};
constexpr std::array kKinds{
    KindRow{kList, "FILCAPTURE"_L1},       KindRow{kPreview, "FILCAPTURE"_L1},
    KindRow{kFiles, "FILCAPTURE"_L1},      KindRow{kThumb, "THUMB"_L1},
    KindRow{kShown, "THUMB"_L1},           KindRow{kMapAddress, "THUMB"_L1},
    KindRow{"TXTSUBJECT"_L1, "KEL"_L1},    KindRow{"TXTCOMP"_L1, "KEL"_L1},
    KindRow{"TXTALTCOMP"_L1, "KEL"_L1},    KindRow{"TXTLISTING"_L1, "KEL"_L1},
    KindRow{"TXTRENTAL"_L1, "KEL"_L1},     KindRow{"CBOGENERAL"_L1, "KEL"_L1},
    KindRow{"IMASUBJECT"_L1, "KEL"_L1},    KindRow{"IMACOMP"_L1, "KEL"_L1},
    KindRow{"IMAALTCOMP"_L1, "KEL"_L1},    KindRow{"IMALISTING"_L1, "KEL"_L1},
    KindRow{"IMARENTAL"_L1, "KEL"_L1},     KindRow{"IMAGENERAL"_L1, "KEL"_L1},
    KindRow{"GEACOMP"_L1, "KEL"_L1},       KindRow{"GEAALTCOMP"_L1, "KEL"_L1},
    KindRow{"GEALISTING"_L1, "KEL"_L1},    KindRow{"GEARENTAL"_L1, "KEL"_L1},
};

constexpr QLatin1StringView kIconSources[] = {kThumb,          kList,           "IMASUBJECT"_L1,
                                              "IMACOMP"_L1,    "IMAALTCOMP"_L1, "IMALISTING"_L1,
                                              "IMARENTAL"_L1,  "IMAGENERAL"_L1};
constexpr QLatin1StringView kReportSlots[] = {
    "TXTSUBJECT"_L1, "TXTCOMP"_L1,    "TXTALTCOMP"_L1, "TXTLISTING"_L1, "TXTRENTAL"_L1, "IMASUBJECT"_L1,
    "IMACOMP"_L1,    "IMAALTCOMP"_L1, "IMALISTING"_L1, "IMARENTAL"_L1,  "IMAGENERAL"_L1, "GEACOMP"_L1,
    "GEAALTCOMP"_L1, "GEALISTING"_L1, "GEARENTAL"_L1};
// clang-format on

template <class Names>
bool Holds(const Names& names, const QString& name)
{
    return std::any_of(std::begin(names), std::end(names),
                       [&](QLatin1StringView known) { return name == known; });
}

} // namespace

const DropRule* RuleFor(const QString& source, const QString& target)
{
    const QString from = text::Folded(source);
    const QString to = text::Folded(target);
    const auto row = std::find_if(kDropMatrix.begin(), kDropMatrix.end(), [&](const DropRule& rule) {
        return rule.source == from && rule.target == to;
    });
    return row == kDropMatrix.end() ? nullptr : &*row;
}

QString HintFor(const QString& source, const QString& target)
{
    QString from = text::Folded(source);
    const QString to = text::Folded(target);
    if (from == kFiles) // they count as pictures of the capture list
        from = kList;
    for (const HintRow& row : kHints) {
        if (row.source == from && row.target == to)
            return row.text;
    }
    return {};
}

std::span<const DropRule> Matrix()
{
    return kDropMatrix;
}

QString KindOfSource(const QString& name)
{
    const QString folded = text::Folded(name);
    for (const KindRow& row : kKinds)
        if (row.name == folded)
            return row.kind;
    return {};
}

DragIcon IconOver(const QString& source, const QString& target, bool entering, DragIcon now)
{
    const QString from = text::Folded(source);
    const QString to = text::Folded(target);
    if (to == kGrid)
        return entering ? DragIcon::Drop : DragIcon::Hand;
    if (Holds(kReportSlots, to) && Holds(kIconSources, from))
        return DragIcon::Drop; // the hand doesn't come back by leaving
    return now;
}

} // namespace vasclip::drops
