#include "shell/program.h"

#include "common/error_block.h"
#include "common/settings.h"
#include "drops/drop_desk.h"
#include "link/link_desk.h"
#include "link/set_city.h"
#include "link/talk.h"
#include "photos/capture_desk.h"
#include "photos/gen_views.h"
#include "photos/photo_copies.h"
#include "photos/photo_desk.h"
#include "photos/picture_thumbs.h"
#include "platform/desktop/desktop.h"
#include "platform/engine/health.h"
#include "platform/text/text.h"
#include "platform/work/thread_workers.h"
#include "shell/ini_location.h"
#include "shell/map_parts.h"
#include "shell/photo_questions.h"
#include "shell/slot_icon_pictures.h"
#include "upkeep/archive_journal.h"
#include "upkeep/picture_journal.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// "" for an executable that is not there or lies outside the drives.
QString FileVersionOf(const files::Disk& disk, const QString& path)
{
    try {
        return desktop::FileVersion(disk.ToNative(path));
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

Program::Program(const QString& home, const Surroundings& around)
    : Program(home, [&around](const files::Disk&) { return around; })
{}

Program::Program(const QString& home, const Surround& surround)
    : m_disk(home)
    , m_around(surround(m_disk))
    , m_engine(m_disk, m_around.ports.clock)
    , status(controls)
    , records(controls)
    , report(controls)
    , slots(controls)
    , photoLists(controls)
    , lstGenViews(controls, u"lstGenViews"_s)
    , capture(controls)
    , sources(m_engine)
    , m_slotLoader(std::make_unique<photos::SlotLoader>(m_disk, m_around.ports, m_slotTable))
{
    m_slotLoader->SetThumbTags(&capture.lbltag);
    m_slotLoader->SetWriteProtect(
        [this](const QString& path) { photos::ApplyWriteProtect(m_around.ports, m_disk, globals, path); });
    m_photoQuestions = MakePhotoQuestions(m_around.ports, m_disk, globals, *m_slotLoader,
                                          [this] { AddGenViews2CBO(); });
    m_photos =
        std::make_unique<photos::PhotoDesk>(m_around.ports, m_disk, globals, sources.datDatabook,
                                            photoLists, *m_slotLoader, status, *m_photoQuestions);
    m_photos->setCity = [this](const QString& key) { link::SetCityOf(*m_link, key, link::CityRule::Fill); };
    m_capture = std::make_unique<photos::CaptureDesk>(
        photos::CaptureBase{m_disk, m_around.ports, globals, status, *m_slotLoader}, capture,
        std::make_unique<photos::PictureThumbs>(m_disk), std::make_unique<work::ThreadWorkers>());
    m_link = std::make_unique<link::LinkDesk>(link::LinkDesk{
        {.txtDDE = m_around.txtDDE,
         .ports = m_around.ports,
         .status = status,
         .kelIni =
            [this](const QString& section, const QString& key) {
                return link::ReadsKelIni(m_disk, globals.kelIni)(section, key);
            },
         .fileVersion = [this](const QString& path) { return FileVersionOf(m_disk, path); },
         .talk = m_around.talk},
        {.report = report,
         .addr = addr,
         .state = linkState,
         .slots = slots,
         .loader = *m_slotLoader,
         .icons = SlotIconPictures()},
        {.sources = sources,
         .globals = globals,
         .lists = photoLists,
         .disk = m_disk,
         .photoDesk = m_photos.get()}});
    m_map = std::make_unique<MapParts>(*this);
    m_link->proximity = m_map.get();
    if (m_around.talk)
        m_around.talk->Attach(status, m_around.ports);
}

Program::~Program() = default;

drops::DropDesk Program::Drops()
{
    return {.link = *m_link,
            .photos = *m_photos,
            .capture = *m_capture,
            .grddatabook = records.grddatabook,
            .txtcentralkey = records.txtcentralkey,
            .txtMapAddress = m_map->tab.txtMapAddress};
}

void Program::LocateInis(const SystemPlaces& places, Silence silence)
{
    auto& prompter = m_around.ports.prompter;
    globals.isVista = places.isVista;
    globals.windowsName = places.windowsName;
    SystemPlaces looked = places;
    looked.isVista = places.isVista && silence == Silence::Ask; // the notice is for people at the screen
    const IniDirectory found = GetIniDir(m_disk, prompter, looked);
    globals.iniDir = found.directory;
    globals.preferredIniDir = found.preferred;
    globals.applicationIni = LocateIni(m_disk, prompter, u"VAS2000.INI"_s, IniKind::Application,
                                       globals.iniDir, places.windowsDirectory, silence);
    globals.kelIni = LocateIni(m_disk, prompter, u"KEL.INI"_s, IniKind::Appraisal, globals.iniDir,
                               places.windowsDirectory, silence);
    if (m_around.chooseLink)
        m_around.chooseLink(globals.kelIni);
    common::ReadNames(globals, common::ProfileReader(m_disk, globals));
}

void Program::ReadSettings()
{
    common::ReadGlobals(globals, common::ProfileReader(m_disk, globals));
    ReadiniSettings();
    life.settingsRead = true;
}

void Program::ReadiniSettings()
{
    common::ReadiniSettings(globals, common::ProfileReader(m_disk, globals));
    LockAddresses();
}

void Program::LockAddresses()
{
    const bool locked = globals.lockAddr != 0;
    report.txtSubject.SetLocked(locked);
    for (const auto* boxes :
         {&report.txtComp, &report.txtAltComp, &report.txtListing, &report.txtRental, &report.txtgeneraladdr})
        for (int i = boxes->First(); i <= boxes->Last(); ++i)
            (*boxes)(i).SetLocked(locked);
}

void Program::Connect(store::DataSource& source, const QString& path, const std::function<void()>& open)
{
    try {
        open();
    } catch (const RuntimeError& failure) {
        // Nothing works without this file; say what is wrong with it and stop before anything is changed.
        common::ReportError(m_around.ports.prompter,
                            RuntimeError(failure.Number(), u"%1 can't be opened for %2. %3"_s.arg(
                                                               path, source.Name(), failure.Description())));
        throw forms::EndOfProgram{1};
    }
}

void Program::ConnectDatabook()
{
    const common::RoutineScope scope{"Connect2Databook"};
    const QString path = DatabookPath();
    Connect(sources.datDatabook, path,
            [&] { store::Connect2Databook(m_around.ports, sources, path, globals.G_Table); });
    if (!LookAtDatabook(engine::CheckDepth::Opening))
        m_around.ports.prompter.Info(u"Databook Damaged"_s,
                                   u"%1 is damaged: %2. It is open for reading only. Restore it from a "
                                   u"backup, or let 'vasctl databook copy "
                                   u"FILE' make a new one of what can be read."_s.arg(
                                       path, engine::DamageOf(sources.datDatabook.Database())));
    TellLocks();
    UndoKilledTransfers();
}

void Program::TellLocks()
{
    const QString path = text::Folded(DatabookPath());
    if (!sources.datDatabook.Bound() || life.locksTold == path || engine::LocksHold(sources.datDatabook.Database()))
        return;
    life.locksTold = path;
    m_around.ports.prompter.Info(u"Databook Without Locks"_s,
                                 u"The disk of %1 keeps no locks: two users who store at the same time can spoil it for each other. "
                                 u"Let one user at a time work on it, or put it on a disk that keeps locks."_s.arg(DatabookPath()));
}

void Program::ConnectMapping()
{
    const common::RoutineScope scope{"Connect2mdb"};
    const QString path = MappingPath();
    Connect(sources.datComp2Kel_CURRENT, path, [&] {
        store::Connect2mdb(m_around.ports, sources.datComp2Kel_CURRENT, path,
                           QString::fromLatin1(common::Globals::kMappingTable),
                           store::SourceKind::Query);
    });
}

bool Program::LookAtDatabook(engine::CheckDepth depth)
{
    engine::Database& database = sources.datDatabook.Database();
    try {
        if (engine::DamageOf(database).isEmpty())
            engine::CheckDatabase(database, depth);
    } catch (const RuntimeError&) {
        return true; // in use, or its disk failed: whoever reads it next is told
    }
    return engine::DamageOf(database).isEmpty();
}

void Program::UndoKilledTransfers()
{
    if (!sources.datDatabook.Bound() || life.readOnlyHome)
        return;
    upkeep::PictureJournal::Replay({.databook = sources.datDatabook, .globals = globals, .ports = Ports()});
    upkeep::ArchiveJournal::Replay(sources.datDatabook);
}

void Program::AddGenViews2CBO()
{
    photos::AddGenViews2CBO(lstGenViews, report.cboGeneral, m_disk, globals);
}

} // namespace vasclip::shell
