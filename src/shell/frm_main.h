#pragma once

#include "forms/menu_port.h"
#include "shell/capture_events.h"
#include "shell/databook_in_use.h"
#include "shell/drags.h"
#include "shell/entry_area.h"
#include "shell/link_line.h"
#include "shell/map_events.h"
#include "shell/menus.h"
#include "shell/pop_ups.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/record_photos.h"
#include "shell/setup.h"
#include "shell/shown_rows.h"
#include "shell/stop.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

struct frm_Splash;
struct StartUpOptions;

/// The one screen that stays open: the program's controls with menus and tabs around them, and who hears what
/// happens on them. It does nothing itself.
class frm_Main : public WindowWants, public Menus, public forms::MenuPort
{
    Q_OBJECT
public:
    /// @param program  outlives the screen
    explicit frm_Main(Program& program);

    Program& program;

    // The controls, under the names by which the window and the rules call them.
    forms::ControlSet& controls = program.controls;
    common::StatusDesk& status = program.status;
    databook::RecordDesk& records = program.records;
    link::ReportControls& report = program.report;
    photos::SlotControls& slots = program.slots;
    photos::PhotoLists& photoLists = program.photoLists;
    forms::ListBox& lstGenViews = program.lstGenViews;
    photos::CaptureControls& capture = program.capture;
    forms::TabControl tabSource; ///< report and Databook, map
    forms::Label lblChangingDB;  ///< shown while another database is being opened
    forms::Control fraAddaComp;  ///< frame of the "Add a comp" area

    // Who hears them. Each works on the program; a later one may use the ones before it.
    RecordOnShow shown;
    ShownRows rows;
    EntryArea entry;
    DatabookInUse databookInUse;
    Setup setup;
    LinkLine linkLine;
    Drags drags;
    PopUps popUps;
    RecordPhotos recordPhotos;
    CaptureEvents captureEvents;
    MapEvents map;
    Stop stop;

    common::Globals& globals = program.globals;
    store::Sources& sources = program.sources;
    link::frm_Addr& addr = program.addr;
    link::LinkState& linkState = program.linkState;
    [[nodiscard]] link::LinkDesk& Link() { return program.Link(); }
    [[nodiscard]] photos::PhotoDesk& Photos() { return program.Photos(); }
    [[nodiscard]] photos::CaptureDesk& Capture() { return program.Capture(); }
    [[nodiscard]] const QString& Caption() const { return databookInUse.Caption(); }

    /// Brings the program up in the fixed order. @throws forms::EndOfProgram when it may not go on
    void Form_load(const StartUpOptions& options, frm_Splash& splash);
    /// Saves and closes in the fixed order; a second call does nothing.
    void Form_Unload() { stop.Form_Unload(); }

    // The doors of those who work with the screen as a whole.
    void RefreshAppraisal() { linkLine.RefreshAppraisal(); }
    void LinkSeen(link::LinkWatch::Sees sees, const QString& words) { linkLine.LinkSeen(sees, words); }
    void DisplayAllRecords() { shown.DisplayAllRecords(); }
    void ShowRecord(const QString& key) { shown.ShowRecord(key); }
    /// The photo of the record on show. The start leaves it to the window, which shows it once the grid
    /// stands.
    void ShowRecordPhoto() { shown.ShowPhoto(); }
    void ShowCapture() { captureEvents.ShowCapture(); }
    void CheckDatabook(engine::CheckDepth depth) { databookInUse.CheckDatabook(depth); }
    bool LoadCompForm(const QString& key) { return entry.LoadCompForm(key); }
    void CompDeleteRecord() { entry.CompDeleteRecord(); }
    forms::Menu* MenuOver(const forms::Control& control) override { return popUps.MenuOver(control); }
    void DeleteKeyOn(const forms::Control& thumb) override { captureEvents.DeleteKeyOn(thumb); }

private:
    void WireControls();
};

} // namespace vasclip::shell
