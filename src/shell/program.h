#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "databook/record_desk.h"
#include "link/link_state.h"
#include "link/report_desk.h"
#include "photos/capture_controls.h"
#include "photos/photo_lists.h"
#include "photos/slots.h"
#include "platform/conduit/conduit.h"
#include "platform/engine/health.h"
#include "store/store.h"

#include <functional>
#include <memory>

namespace vasclip::drops {
struct DropDesk;
} // namespace vasclip::drops
namespace vasclip::photos {
class CaptureDesk;
struct PhotoDesk;
class PhotoQuestions;
} // namespace vasclip::photos
namespace vasclip::link {
struct LinkDesk;
class Talk;
} // namespace vasclip::link

namespace vasclip::shell {

class MapParts;
struct SystemPlaces;
enum class Silence;

/// What a program has around it; all of it outlives the program.
struct Surroundings
{
    conduit::Conduit& txtDDE;
    forms::Ports ports;
    link::Talk* talk = nullptr; ///< the patience of the conduit, where a window waits with it
    /// KEL.INI is found, which says over which way its forms program is spoken to; before the first conversation.
    std::function<void(const QString& kelIni)> chooseLink = {};
};

/// Where the program stands between its first statement and its last.
struct Life
{
    bool starting = false;
    QString locksTold; ///< the Databook, upper-cased, of whose disk the user knows that it keeps no locks
    bool readOnlyHome = false; ///< what can't be written there is told once
    bool settingsRead = false; ///< before that nothing is saved
    bool gridReady = false;    ///< the layout on show is the user's and is saved at exit
    bool unloaded = false;
};

/// What lives as long as the program: the home's disk and engine, the settings, the sources, and the desks of
/// the rooms below with their controls. Whoever works without a screen works with this alone.
class Program
{
public:
    /// Makes the surroundings of a program on the drives of its home, which are there before them.
    using Surround = std::function<Surroundings(const files::Disk& disk)>;

    /// @param home  native directory; see files::Disk
    Program(const QString& home, const Surround& surround);
    Program(const QString& home, const Surroundings& around);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

private:
    files::Disk m_disk;
    Surroundings m_around;
    engine::Engine m_engine; ///< by the clock around it

public:
    forms::ControlSet controls; ///< of the desks, and of the screen that stands on them

    common::StatusDesk status;
    databook::RecordDesk records;
    link::ReportControls report;
    photos::SlotControls slots;
    photos::PhotoLists photoLists;
    forms::ListBox lstGenViews; ///< hidden: the general views that cboGeneral offers
    photos::CaptureControls capture;

    common::Globals globals;
    store::Sources sources;
    link::frm_Addr addr;
    link::LinkState linkState;
    QString version; ///< major.minor.revision
    Life life;

    [[nodiscard]] const files::Disk& Disk() const { return m_disk; }
    [[nodiscard]] engine::Engine& Engine() { return m_engine; }
    [[nodiscard]] const forms::Ports& Ports() const { return m_around.ports; }
    [[nodiscard]] forms::Prompter& Prompter() const { return m_around.ports.prompter; }
    [[nodiscard]] link::LinkDesk& Link() { return *m_link; }
    [[nodiscard]] MapParts& Map() { return *m_map; }
    [[nodiscard]] photos::PhotoDesk& Photos() { return *m_photos; }
    [[nodiscard]] photos::CaptureDesk& Capture() { return *m_capture; }
    [[nodiscard]] photos::SlotTable& SlotTable() { return m_slotTable; }
    [[nodiscard]] photos::SlotLoader& Loader() { return *m_slotLoader; }
    [[nodiscard]] drops::DropDesk Drops();
    /// The Databook that the settings name.
    [[nodiscard]] QString DatabookPath() const { return globals.G_DataDir + globals.G_DataFile; }
    [[nodiscard]] QString MappingPath() const
    {
        return globals.G_UserDir + QString::fromLatin1(common::Globals::kMappingFile);
    }

    void LocateInis(const SystemPlaces& places, Silence silence); ///< @throws forms::EndOfProgram
    void ReadSettings();
    void ReadiniSettings();
    /// The addresses of the report's tabs come from the report and from drops; unless the settings lock them
    /// they can be typed over.
    void LockAddresses();
    void ConnectDatabook(); ///< @throws forms::EndOfProgram after saying why
    void ConnectMapping();  ///< @throws forms::EndOfProgram after saying why
    /// Looks whether the Databook that is open is whole. One that is not is open for reading only from then
    /// on.
    /// @return false if it is damaged
    bool LookAtDatabook(engine::CheckDepth depth);
    /// Says that the Databook's disk keeps no locks, once for each such Databook.
    void TellLocks();
    /// Undoes what an import or an archive of the Databook that was killed has left among the pictures.
    void UndoKilledTransfers();
    void AddGenViews2CBO();

private:
    void Connect(store::DataSource& source, const QString& path, const std::function<void()>& open);

    photos::SlotTable m_slotTable;
    std::unique_ptr<photos::SlotLoader> m_slotLoader;
    std::unique_ptr<photos::PhotoQuestions> m_photoQuestions;
    std::unique_ptr<photos::PhotoDesk> m_photos;
    std::unique_ptr<photos::CaptureDesk> m_capture;
    std::unique_ptr<link::LinkDesk> m_link;
    std::unique_ptr<MapParts> m_map;
};

} // namespace vasclip::shell
