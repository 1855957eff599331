#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "forms/ports.h"
#include "link/kel_pages.h"
#include "link/proximity_source.h"
#include "link/report_desk.h"
#include "photos/photo_desk.h"
#include "photos/photo_lists.h"
#include "photos/slots.h"
#include "platform/conduit/conduit.h"
#include "platform/files/disk.h"
#include "store/store.h"

#include <QImage>

#include <array>
#include <functional>

namespace vasclip::link {

class Talk;

/// What the icons beside the slots show.
struct SlotIconPictures
{
    /// 0 not in the Databook, 1 without the slot's view, 2 with it, 3 with its front view.
    std::array<QImage, 4> imaTypeIcon;
    QImage imaSubjectAnchor; ///< the record has coordinates
};

/// Everything that the conversation with the report works on. Each routine of the link takes the desk (or,
/// the bare exchanges, its conduit); whoever composes it owns what it refers to.
struct LinkDesk
{
    conduit::Conduit& txtDDE;
    common::Globals& globals; ///< written here: formsProgramVersion
    forms::Ports ports;
    common::StatusDesk& status;
    ReportControls& report;
    frm_Addr& addr;
    LinkState& state;
    photos::SlotControls& slots;
    photos::SlotLoader& loader;
    photos::PhotoLists& lists;
    store::Sources& sources;
    const files::Disk& disk;
    /// Reads KEL.INI; see ReadsKelIni.
    IniReader kelIni;
    /// File version of an executable by its drive path, "" if it has none or is not there.
    std::function<QString(const QString& drivePath)> fileVersion;
    /// Step texts of a refresh for the log; may be empty.
    std::function<void(const QString& text)> log = {};
    /// Refuses a version of the forms program; empty: every version serves.
    std::function<bool(const QString& version)> versionServes = {};
    QString productVersion = {};
    ProximitySource* proximity = nullptr; ///< none without a map
    SlotIconPictures icons = {};
    Talk* talk = nullptr; ///< keeps the window alive while the forms program takes its time; none: nothing does
    photos::PhotoDesk* photoDesk = nullptr; ///< the photo store; none: nothing is filed
};

/// A file of the forms program's directory, by KEL.INI's APPDIR.
[[nodiscard]] QString FormsProgramFile(const LinkDesk& desk, const QString& name);

/// Runs a script of the forms program if its directory has one of that name. @throws RuntimeError of the
/// exchange
void SendScriptIfThere(LinkDesk& desk, const QString& name);

/// KelIsActive, and is the report named? A list of reports without a comma names none, and without a name nothing can
/// be asked of it: that counts as "no report", and the status line tells why. @throws RuntimeError of the exchange
bool ReportIsNamed(LinkDesk& desk);

/// ReportIsNamed with its failures reported; one that failed counts as "no report".
bool KelIsActive(LinkDesk& desk);

/// Why the forms program has a report and it can't be told which; "" unless that is what Text holds as its answer to
/// the question for its reports.
[[nodiscard]] QString UnnamedReportWords(const LinkDesk& desk);

/// Is a report open, now or after a second try? If not, says so.
bool KelEnsureRunning(LinkDesk& desk);

/// Is nobody at the other end of the link any more? By the number of the failure that told so.
[[nodiscard]] bool LinkIsDead(int number);

/// False while `lblFileNo` of frm_Addr reads "KEL NOT ACTIVE".
[[nodiscard]] bool TestKelLabel(const frm_Addr& addr);

/// Opens the forms program from the File menu and reminds of the refresh; the link never starts by itself.
/// @param open  opens a file with the desktop's "open" verb; false if that failed
/// @return false if it could not be opened, which has been said
bool LaunchFormsProgram(LinkDesk& desk, const std::function<bool(const QString& drivePath)>& open);

} // namespace vasclip::link
