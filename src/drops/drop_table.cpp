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
constexpr auto kMapView = "MAPVIEW"_L1;
constexpr auto kMapPhoto = "GEAMAPPHOTO"_L1;
constexpr auto kThumb = "GEATHUMB"_L1;
constexpr auto kList = "FILCAPTURE"_L1;
constexpr auto kPreview = "GEALISTBOX"_L1;
constexpr auto kShown = "GEAMAINTAIN"_L1;

// clang-format off
constexpr std::array kDropMatrix{
    // Photo slots of the report.
    DropRule{kGrid,       "IMASUBJECT"_L1, SendViewOfIndex, "SUBJECT"_L1},
    DropRule{kGrid,       "IMACOMP"_L1,    SendFrontView,   "SALE"_L1},
    DropRule{kGrid,       "IMAALTCOMP"_L1, SendFrontView,   "ALT"_L1},
    DropRule{kGrid,       "IMALISTING"_L1, SendFrontView,   "LIST"_L1},
    DropRule{kGrid,       "IMARENTAL"_L1,  SendFrontView,   "RENT"_L1},
    DropRule{kGrid,       "IMAGENERAL"_L1, SendAskedView,   "GENERAL"_L1},
    DropRule{kMapAddress, "IMASUBJECT"_L1, SendViewOfIndex, "SUBJECT"_L1},
    DropRule{kMapAddress, "IMACOMP"_L1,    SendFrontView,   "SALE"_L1},
    DropRule{kMapAddress, "IMAALTCOMP"_L1, SendFrontView,   "ALT"_L1},
    DropRule{kMapAddress, "IMALISTING"_L1, SendFrontView,   "LIST"_L1},
    DropRule{kMapAddress, "IMARENTAL"_L1,  SendFrontView,   "RENT"_L1},
    DropRule{kMapAddress, "IMAGENERAL"_L1, SendAskedView,   "GENERAL"_L1},
    DropRule{kThumb,      "IMASUBJECT"_L1, FileIntoSlot,    "SUBJECT"_L1},
    DropRule{kThumb,      "IMACOMP"_L1,    FileIntoSlot,    "SALE"_L1},
    DropRule{kThumb,      "IMAALTCOMP"_L1, FileIntoSlot,    "ALT"_L1},
    DropRule{kThumb,      "IMALISTING"_L1, FileIntoSlot,    "LIST"_L1},
    DropRule{kThumb,      "IMARENTAL"_L1,  FileIntoSlot,    "RENT"_L1},
    DropRule{kThumb,      "IMAGENERAL"_L1, FileIntoGeneral, "GENERAL"_L1},
    DropRule{kList,       "IMASUBJECT"_L1, FileIntoSlot,    "SUBJECT"_L1},
    DropRule{kList,       "IMACOMP"_L1,    FileIntoSlot,    "SALE"_L1},
    DropRule{kList,       "IMAALTCOMP"_L1, FileIntoSlot,    "ALT"_L1},
    DropRule{kList,       "IMALISTING"_L1, FileIntoSlot,    "LIST"_L1},
    DropRule{kList,       "IMARENTAL"_L1,  FileIntoSlot,    "RENT"_L1},
    DropRule{kList,       "IMAGENERAL"_L1, FileIntoGeneral, "GENERAL"_L1},
    DropRule{kPreview,    "IMASUBJECT"_L1, FileIntoSlot,    "SUBJECT"_L1},
    DropRule{kPreview,    "IMACOMP"_L1,    FileIntoSlot,    "SALE"_L1},
    DropRule{kPreview,    "IMAALTCOMP"_L1, FileIntoSlot,    "ALT"_L1},
    DropRule{kPreview,    "IMALISTING"_L1, FileIntoSlot,    "LIST"_L1},
    DropRule{kPreview,    "IMARENTAL"_L1,  FileIntoSlot,    "RENT"_L1},
    DropRule{kPreview,    "IMAGENERAL"_L1, FileIntoGeneral, "GENERAL"_L1},
    DropRule{kFiles,      "IMASUBJECT"_L1, FileIntoSlot,    "SUBJECT"_L1},
    DropRule{kFiles,      "IMACOMP"_L1,    FileIntoSlot,    "SALE"_L1},
    DropRule{kFiles,      "IMAALTCOMP"_L1, FileIntoSlot,    "ALT"_L1},
    DropRule{kFiles,      "IMALISTING"_L1, FileIntoSlot,    "LIST"_L1},
    DropRule{kFiles,      "IMARENTAL"_L1,  FileIntoSlot,    "RENT"_L1},
    DropRule{kFiles,      "IMAGENERAL"_L1, FileIntoGeneral, "GENERAL"_L1},
    DropRule{kShown,      "IMASUBJECT"_L1, SendShownPhoto,  "SUBJECT"_L1},
    DropRule{kShown,      "IMACOMP"_L1,    SendShownPhoto,  "SALE"_L1},
    DropRule{kShown,      "IMAALTCOMP"_L1, SendShownPhoto,  "ALT"_L1},
    DropRule{kShown,      "IMALISTING"_L1, SendShownPhoto,  "LIST"_L1},
    DropRule{kShown,      "IMARENTAL"_L1,  SendShownPhoto,  "RENT"_L1},
    DropRule{kShown,      "IMAGENERAL"_L1, SendShownAsked,  "GENERAL"_L1},
    // Text slots.
    DropRule{kGrid,       "TXTSUBJECT"_L1, ReplaceSubjectPhotos, "SUBJECT"_L1},
    DropRule{kGrid,       "TXTCOMP"_L1,    PasteCompAndPhoto, "SALE"_L1},
    DropRule{kGrid,       "TXTALTCOMP"_L1, PasteCompAndPhoto, "ALT"_L1},
    DropRule{kGrid,       "TXTLISTING"_L1, PasteCompAndPhoto, "LIST"_L1},
    DropRule{kGrid,       "TXTRENTAL"_L1,  PasteCompAndPhoto, "RENT"_L1},
    DropRule{kMapAddress, "TXTCOMP"_L1,    PasteCompAndPhoto, "SALE"_L1},
    DropRule{kMapAddress, "TXTALTCOMP"_L1, PasteCompAndPhoto, "ALT"_L1},
    DropRule{kMapView,    "TXTCOMP"_L1,    PasteCompAndPhoto, "SALE"_L1},
    DropRule{kMapView,    "TXTALTCOMP"_L1, PasteCompAndPhoto, "ALT"_L1},
    DropRule{kMapView,    "TXTLISTING"_L1, PasteCompAndPhoto, "LIST"_L1},
    DropRule{kMapView,    "TXTRENTAL"_L1,  PasteCompAndPhoto, "RENT"_L1},
    DropRule{kThumb,      "TXTSUBJECT"_L1, ShowInSubject,   "SUBJECT"_L1},
    DropRule{kList,       "TXTSUBJECT"_L1, ShowInSubject,   "SUBJECT"_L1},
    DropRule{kFiles,      "TXTSUBJECT"_L1, ShowInSubject,   "SUBJECT"_L1},
    // Data boxes.
    DropRule{kGrid,       "GEACOMP"_L1,    PasteComp, "SALE"_L1},
    DropRule{kGrid,       "GEAALTCOMP"_L1, PasteComp, "ALT"_L1},
    DropRule{kGrid,       "GEALISTING"_L1, PasteComp, "LIST"_L1},
    DropRule{kGrid,       "GEARENTAL"_L1,  PasteComp, "RENT"_L1},
    DropRule{kMapAddress, "GEACOMP"_L1,    PasteComp, "SALE"_L1},
    DropRule{kMapAddress, "GEAALTCOMP"_L1, PasteComp, "ALT"_L1},
    DropRule{kMapPhoto,   "GEACOMP"_L1,    PasteComp, "SALE"_L1},
    DropRule{kMapPhoto,   "GEAALTCOMP"_L1, PasteComp, "ALT"_L1},
    // The Databook's grid.
    DropRule{kThumb,      kGrid, FileInRecord, ""_L1},
    DropRule{kList,       kGrid, FileInRecord, ""_L1},
    DropRule{kFiles,      kGrid, FileInRecord, ""_L1},
    DropRule{"GEACOMP"_L1,    kGrid, SaveData,  "SALE"_L1},
    DropRule{"GEAALTCOMP"_L1, kGrid, SaveData,  "ALT"_L1},
    DropRule{"GEALISTING"_L1, kGrid, SaveData,  "LIST"_L1},
    DropRule{"GEARENTAL"_L1,  kGrid, SaveData,  "RENT"_L1},
    DropRule{"IMACOMP"_L1,    kGrid, SavePhoto, "SALE"_L1},
    DropRule{"IMAALTCOMP"_L1, kGrid, SavePhoto, "ALT"_L1},
    DropRule{"IMALISTING"_L1, kGrid, SavePhoto, "LIST"_L1},
    DropRule{"IMARENTAL"_L1,  kGrid, SavePhoto, "RENT"_L1},
    DropRule{"IMASUBJECT"_L1, kGrid, SavePhoto, "SUBJECT"_L1},
    DropRule{"TXTCOMP"_L1,    kGrid, SaveBoth,  "SALE"_L1},
    DropRule{"TXTALTCOMP"_L1, kGrid, SaveBoth,  "ALT"_L1},
    DropRule{"TXTLISTING"_L1, kGrid, SaveBoth,  "LIST"_L1},
    DropRule{"TXTRENTAL"_L1,  kGrid, SaveBoth,  "RENT"_L1},
    DropRule{"TXTSUBJECT"_L1, kGrid, SaveBoth,  "SUBJECT"_L1},
    DropRule{"IMAGENERAL"_L1, kGrid, AdviseGeneral, "GENERAL"_L1},
    DropRule{"TXTGENERAL"_L1, kGrid, AdviseGeneral, "GENERAL"_L1},
    DropRule{"CBOGENERAL"_L1, kGrid, AdviseGeneral, "GENERAL"_L1},
    // The address of a comp. Its box is txtcentralkey.
    DropRule{kThumb, "CBOADDRESS"_L1,    FileUnderAddress, ""_L1},
    DropRule{kList,  "CBOADDRESS"_L1,    FileUnderAddress, ""_L1},
    DropRule{kFiles, "CBOADDRESS"_L1,    FileUnderAddress, ""_L1},
    DropRule{kThumb, "TXTCENTRALKEY"_L1, FileUnderAddress, ""_L1},
    DropRule{kList,  "TXTCENTRALKEY"_L1, FileUnderAddress, ""_L1},
    DropRule{kFiles, "TXTCENTRALKEY"_L1, FileUnderAddress, ""_L1},
    DropRule{kThumb, "FRAADDACOMP"_L1,   FileUnderAddress, ""_L1},
    DropRule{kList,  "FRAADDACOMP"_L1,   FileUnderAddress, ""_L1},
    DropRule{kFiles, "FRAADDACOMP"_L1,   FileUnderAddress, ""_L1},
    DropRule{kThumb, "TXTADDACOMP"_L1,   FileUnderAddress, ""_L1},
    DropRule{kList,  "TXTADDACOMP"_L1,   FileUnderAddress, ""_L1},
    DropRule{kFiles, "TXTADDACOMP"_L1,   FileUnderAddress, ""_L1},
    // The trash.
    DropRule{kThumb, "IMATRASHCAN"_L1, ToTrash, ""_L1},
    // Back to the capture directory.
    DropRule{kGrid,            kThumb,       CopyBack, ""_L1},
    DropRule{"IMASUBJECT"_L1,  kThumb,       CopyBack, "SUBJECT"_L1},
    DropRule{"IMACOMP"_L1,     kThumb,       CopyBack, "SALE"_L1},
    DropRule{"IMAALTCOMP"_L1,  kThumb,       CopyBack, "ALT"_L1},
    DropRule{"IMALISTING"_L1,  kThumb,       CopyBack, "LIST"_L1},
    DropRule{"IMARENTAL"_L1,   kThumb,       CopyBack, "RENT"_L1},
    DropRule{"IMAGENERAL"_L1,  kThumb,       CopyBack, "GENERAL"_L1},
    DropRule{kGrid,            "FRAPICS"_L1, CopyBack, ""_L1},
    DropRule{"IMASUBJECT"_L1,  "FRAPICS"_L1, CopyBack, "SUBJECT"_L1},
    DropRule{"IMACOMP"_L1,     "FRAPICS"_L1, CopyBack, "SALE"_L1},
    DropRule{"IMAALTCOMP"_L1,  "FRAPICS"_L1, CopyBack, "ALT"_L1},
    DropRule{"IMALISTING"_L1,  "FRAPICS"_L1, CopyBack, "LIST"_L1},
    DropRule{"IMARENTAL"_L1,   "FRAPICS"_L1, CopyBack, "RENT"_L1},
    DropRule{"IMAGENERAL"_L1,  "FRAPICS"_L1, CopyBack, "GENERAL"_L1},
    DropRule{kGrid,            "LBLTAB"_L1,  CopyBack, ""_L1},
    DropRule{"IMASUBJECT"_L1,  "LBLTAB"_L1,  CopyBack, "SUBJECT"_L1},
    DropRule{"IMACOMP"_L1,     "LBLTAB"_L1,  CopyBack, "SALE"_L1},
    DropRule{"IMAALTCOMP"_L1,  "LBLTAB"_L1,  CopyBack, "ALT"_L1},
    DropRule{"IMALISTING"_L1,  "LBLTAB"_L1,  CopyBack, "LIST"_L1},
    DropRule{"IMARENTAL"_L1,   "LBLTAB"_L1,  CopyBack, "RENT"_L1},
    DropRule{"IMAGENERAL"_L1,  "LBLTAB"_L1,  CopyBack, "GENERAL"_L1},
    DropRule{kFiles,           kThumb,       CopyIn, ""_L1},
    DropRule{kFiles,           "FRAPICS"_L1, CopyIn, ""_L1},
    DropRule{kFiles,           "LBLTAB"_L1,  CopyIn, ""_L1},
    DropRule{kFiles,           kList,        CopyIn, ""_L1},
    DropRule{kFiles,           kPreview,     CopyIn, ""_L1},
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
