#include "photos/slots.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/slot_counts.h"
#include "platform/picture/picture.h"
#include "platform/text/text.h"

#include <QLatin1StringView>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

namespace {

/// Which routines know a name.
enum Routine : unsigned { LoadGetSet = 1, Clear = 2, All = LoadGetSet | Clear };

constexpr int kOneValue = -1;

struct SlotRow
{
    QLatin1StringView name;
    QLatin1StringView store; ///< the name under which the path is kept
    int lastIndex;           ///< or kOneValue
    unsigned routines = All;
    bool reportPhoto = false;
};

constexpr SlotRow Array(QLatin1StringView name, int lastIndex)
{
    return {name, name, lastIndex};
}

constexpr SlotRow ReportPhoto(QLatin1StringView name, int lastIndex)
{
    return {name, name, lastIndex, All, true};
}

constexpr SlotRow One(QLatin1StringView name, unsigned routines = All)
{
    return {name, name, kOneValue, routines};
}

constexpr SlotRow kSlots[] = {
    Array("GEATHUMB"_L1, 20),
    {"FILCAPTURE"_L1, "FILCAPTURE"_L1, kOneValue},
    {"GEALISTBOX"_L1, "FILCAPTURE"_L1, kOneValue}, // both show the file selected in the capture list
    Array("GEASUBJECT"_L1, 20),
    Array("GEACOMP"_L1, 20),
    Array("GEAALTCOMP"_L1, 20),
    Array("GEAGENERAL"_L1, 50),
    Array("GEARENTAL"_L1, 20),
    Array("GEALISTING"_L1, 20),
    ReportPhoto("IMASUBJECT"_L1, 20),
    ReportPhoto("IMACOMP"_L1, 20),
    ReportPhoto("IMAALTCOMP"_L1, 20),
    ReportPhoto("IMAGENERAL"_L1, 50),
    ReportPhoto("IMARENTAL"_L1, 20),
    ReportPhoto("IMALISTING"_L1, 20),
    One("GEAMAINTAIN"_L1),
    One("GEATEMP"_L1),
    One("GEARES"_L1),
    One("GEAMAPPHOTO"_L1),
    One("GEATRASHCAN"_L1),
    One("MAPPIC"_L1),
    One("BMPDOUBLE"_L1, LoadGetSet),
    One("IMADOUBLE"_L1, Clear),
    One("BMPDOUBLE2"_L1, LoadGetSet),
    One("IMADOUBLE2"_L1, Clear),
};

constexpr auto kThumb = "GEATHUMB"_L1;
constexpr int kEndsSilently = 50003;

const SlotRow* RowOf(const forms::Control& control)
{
    const QString name = text::Folded(control.Name());
    const auto found = std::find_if(std::begin(kSlots), std::end(kSlots),
                                    [&](const SlotRow& row) { return name == row.name; });
    return found == std::end(kSlots) ? nullptr : found;
}

/// Where the path of a control is kept; "" if the routine does not know its name.
QString StoreOf(const forms::Control& control, Routine routine)
{
    const SlotRow* row = RowOf(control);
    if (!row || !(row->routines & routine))
        return {};
    if (row->lastIndex == kOneValue)
        return QString(row->store);
    if (control.Index() < 0 || control.Index() > row->lastIndex)
        throw RuntimeError(error::kSubscript,
                           u"%1(%2): subscript out of range"_s.arg(control.Name()).arg(control.Index()));
    return row->store + u'(' + QString::number(control.Index());
}

bool IsThumb(const forms::Control& control)
{
    return text::Folded(control.Name()) == kThumb;
}

bool StaysHidden(const forms::Control& control)
{
    const QString name = text::Folded(control.Name());
    return name.contains("TEMP"_L1) || name.contains("RES"_L1);
}

} // namespace

SlotControls::SlotControls(forms::ControlSet& set)
    : imaSubject(set, u"imaSubject"_s, 1, kSubjectPhotos)
    , imaComp(set, u"imaComp"_s, 1, kComps)
    , imaAltComp(set, u"imaAltComp"_s, 1, kAltComps)
    , imaGeneral(set, u"imaGeneral"_s, 1, kGeneralPhotos)
    , imaListing(set, u"imaListing"_s, 1, kListings)
    , imaRental(set, u"imaRental"_s, 1, kRentals)
    , geaComp(set, u"geaComp"_s, 1, kComps)
    , geaAltComp(set, u"geaAltComp"_s, 1, kAltComps)
    , geaListing(set, u"geaListing"_s, 1, kListings)
    , geaRental(set, u"geaRental"_s, 1, kRentals)
    , imaSubjectIcon(set, u"imaSubjectIcon"_s, 1, kSubjectPhotos)
    , imaCompIcon(set, u"imaCompIcon"_s, 1, kComps)
    , imaAltCompIcon(set, u"imaAltCompIcon"_s, 1, kAltComps)
    , imaListingIcon(set, u"imaListingIcon"_s, 1, kListings)
    , imaRentalIcon(set, u"imaRentalIcon"_s, 1, kRentals)
    , imaGeneralIcon(set, u"imaGeneralIcon"_s, 1, kGeneralPhotos)
    , imaSubjectAnchor(set, u"imaSubjectAnchor"_s, 0, kSubjectPhotos)
    , imaCompAnchor(set, u"imaCompAnchor"_s, 1, kComps)
    , imaAltCompAnchor(set, u"imaAltCompAnchor"_s, 1, kAltComps)
    , imaListingAnchor(set, u"imaListingAnchor"_s, 1, kListings)
    , imaRentalAnchor(set, u"imaRentalAnchor"_s, 1, kRentals)
    , geamaintain(set, u"geamaintain"_s)
{}

QString SlotTable::ErrGetPict(const forms::Control& control) const
{
    return m_paths.value(StoreOf(control, LoadGetSet));
}

void SlotTable::ErrSetPict(const forms::Control& control, const QString& path)
{
    if (const QString store = StoreOf(control, LoadGetSet); !store.isEmpty())
        m_paths[store] = path;
}

void SlotTable::Blank(const forms::Control& control)
{
    if (const QString store = StoreOf(control, Clear); !store.isEmpty())
        m_paths.remove(store);
}

SlotLoader::SlotLoader(const files::Disk& disk, const forms::Ports& ports, SlotTable& table)
    : m_disk(disk)
    , m_ports(ports)
    , m_table(table)
{}

/// One statement of ErrLoadPict with its own errors ahead of the common ones.
template <class Statement>
SlotLoader::Outcome SlotLoader::Step(forms::PictureBox& control, const QString& path, Statement&& step)
{
    for (;;) {
        try {
            step();
            return Outcome::Loaded;
        } catch (const RuntimeError& failure) {
            switch (failure.Number()) {
            case error::kBadFileName:
                m_ports.prompter.Box({}, path + "File not found."_L1);
                return Outcome::Ended;
            case error::kCorruptPicture:
                m_ports.prompter.Box({}, u"The File '%1' appears to be a corrupt file."_s.arg(path));
                return Outcome::Ended;
            case kEndsSilently:
                return Outcome::Ended;
            case error::kPathNotFound:
                ErrClearPict(control);
                return Outcome::Ended;
            default:
                break;
            }
            switch (common::FileErrors(m_ports.prompter, failure)) {
            case common::ErrorAction::Retry:
                continue;
            case common::ErrorAction::Skip:
                return Outcome::Skipped;
            case common::ErrorAction::Abandon:
                return Outcome::Ended;
            case common::ErrorAction::Raise:
                throw;
            }
        }
    }
}

/// The thirty data boxes show the same mark, one after the other: it is read once.
QImage SlotLoader::PictureOf(const QString& path)
{
    if (!common::WholeFileName(path).startsWith("Addendum_"_L1, Qt::CaseInsensitive))
        return picture::Load(m_disk, path, kSlotPixels);
    const PointedFile mark = PointAt(m_disk, path);
    if (mark != m_mark) {
        m_markPicture = picture::Load(m_disk, path, kSlotPixels);
        m_mark = mark;
    }
    return m_markPicture;
}

SlotLoader::Outcome SlotLoader::LoadFile(forms::PictureBox& control, const QString& path)
{
    const Outcome outcome = Step(control, path, [&] { control.SetPicture(PictureOf(path)); });
    if (outcome != Outcome::Ended && !StaysHidden(control))
        control.SetVisible(true);
    return outcome;
}

void SlotLoader::ErrLoadPict(forms::PictureBox& control, const QString& path)
{
    const common::RoutineScope scope("ErrLoadPict");
    QString shown = text::Trim(path);
    if (m_disk.FileExists(shown)) {
        if (LoadFile(control, shown) == Outcome::Ended)
            return;
    } else {
        control.SetVisible(false);
        control.SetPicture({});
        shown.clear();
    }
    m_table.ErrSetPict(control, shown);
    if (IsThumb(control)) {
        control.SetVisible(true);
        TagThumb(control, common::WholeFileName(shown), true);
    }
    const SlotRow* row = RowOf(control);
    if (m_writeProtect && row && row->reportPhoto && !shown.isEmpty())
        Step(control, shown, [&] { m_writeProtect(shown); });
}

void SlotLoader::ErrClearPict(forms::PictureBox& control)
{
    const common::RoutineScope scope("ErrClearPict");
    control.SetPicture({});
    m_table.Blank(control);
    if (IsThumb(control)) {
        TagThumb(control, {}, false);
        control.SetVisible(false);
    }
}

void SlotLoader::geaClearImage(forms::PictureBox& control)
{
    ErrClearPict(control);
    control.ZOrderFront();
}

void SlotLoader::ErrLoadThumb(forms::PictureBox& control, const QString& path)
{
    const common::RoutineScope scope("ErrLoadThumb");
    if (text::Trim(path).isEmpty()) {
        ErrClearPict(control);
        control.SetVisible(false);
        return;
    }
    ErrLoadPict(control, path);
    control.SetVisible(true);
}

void SlotLoader::TagThumb(const forms::PictureBox& control, const QString& text, bool visible)
{
    if (!m_thumbTags || control.Index() < m_thumbTags->First() || control.Index() > m_thumbTags->Last())
        return;
    forms::Label& tag = (*m_thumbTags)(control.Index());
    ErrLoadLblTag(tag, text);
    if (visible)
        tag.SetVisible(true);
}

void SetGearImages(SlotControls& slots, SlotLoader& loader)
{
    const common::RoutineScope scope("SetGearImages");
    for (const auto* array : {&slots.imaSubject, &slots.imaComp, &slots.imaAltComp, &slots.imaGeneral,
                              &slots.imaListing, &slots.imaRental, &slots.geaComp, &slots.geaAltComp,
                              &slots.geaListing, &slots.geaRental})
        for (int i = array->First(); i <= array->Last(); ++i)
            loader.ErrClearPict((*array)(i));
    loader.ErrClearPict(slots.geamaintain);
}

void ErrLoadLblTag(forms::Label& label, const QString& text)
{
    label.SetCaption(text);
}

} // namespace vasclip::photos
