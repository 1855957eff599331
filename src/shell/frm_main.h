#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "databook/record_actions.h"
#include "databook/record_desk.h"
#include "drops/drag.h"
#include "link/link_state.h"
#include "link/report_desk.h"
#include "photos/capture_controls.h"
#include "photos/photo_lists.h"
#include "photos/pointed_file.h"
#include "photos/slots.h"
#include "platform/conduit/conduit.h"
#include "platform/engine/health.h"
#include "store/store.h"

#include <QTimer>

namespace vasclip::comments {
class frm_FKey;
}
namespace vasclip::drops {
struct DropDesk;
class Router;
enum class SlotPart;
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
namespace vasclip::databook {
class GridRows;
class QuickFind;
} // namespace vasclip::databook

namespace vasclip::shell {

struct frm_Splash;
struct StartUpOptions;
struct SystemPlaces;
enum class Silence;

/// Where a Databook lies.
struct Databook
{
    QString directory; ///< with a backslash
    QString file;
};

/// What came over from a damaged Databook, for people.
[[nodiscard]] QString RescueText(const engine::Rescued& rescued, const QString& source, const QString& target);

/// What the main window stands on; all of it outlives the window.
struct Foundation
{
    const files::Disk& disk;
    engine::Engine& engine;
    conduit::Conduit& txtDDE;
    forms::Ports ports;
    link::Talk* talk = nullptr; ///< the patience of the conduit, where a window waits with it
};

/// The one screen that stays open: it composes the desks of the rooms below and dispatches to them.
class frm_Main : public QObject
{
    Q_OBJECT
public:
    explicit frm_Main(const Foundation& foundation);
    ~frm_Main() override;

    forms::ControlSet controls;

    forms::TabControl tabSource; ///< report and Databook, map
    forms::Label lblChangingDB;  ///< shown while another database is being opened
    common::StatusDesk status;
    databook::RecordDesk records;
    link::ReportControls report;
    photos::SlotControls slots;
    photos::PhotoLists photoLists;
    forms::ListBox lstGenViews; ///< hidden: the general views that cboGeneral offers
    photos::CaptureControls capture;
    forms::Control fraAddaComp; ///< frame of the "Add a comp" area

    forms::Menu mnuFileItem, mnuSetupItem, mnuMaintItem, mnuTransferItem, mnuRefreshItem, mnuDBItem,
        mnuHelpItem;
    forms::Menu popGrid_M; ///< of the grid, by the right button
    forms::Menu popPhoto_M; ///< of the record's photo and its views
    forms::Menu popThumb_M, popPicture_M, popGeneral_M, popTextData_M, popPicAndData_M;

    common::Globals globals;
    store::Sources sources;
    link::frm_Addr addr;
    link::LinkState linkState;

    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    [[nodiscard]] const Foundation& Base() const { return m_base; }
    [[nodiscard]] link::LinkDesk& Link() { return *m_link; }
    [[nodiscard]] photos::PhotoDesk& Photos() { return *m_photos; }
    [[nodiscard]] photos::CaptureDesk& Capture() { return *m_capture; }

    /// Brings the program up in the fixed order. @throws forms::EndOfProgram when it may not go on
    void Form_load(const StartUpOptions& options, frm_Splash& splash);

    // The steps of the start that a program without windows takes too.
    void LocateInis(const SystemPlaces& places, Silence silence); ///< @throws forms::EndOfProgram
    void ReadSettings();
    void ConnectDatabook(); ///< @throws forms::EndOfProgram after saying why
    void ConnectMapping();  ///< @throws forms::EndOfProgram after saying why
    /// Looks whether the Databook that is open is whole. One that is not is open for reading only from then on.
    /// @return false if it is damaged
    bool LookAtDatabook(engine::CheckDepth depth);
    /// The same, with the ways out offered for a damaged one.
    void CheckDatabook(engine::CheckDepth depth);

    /// The photo of the record on show. The start leaves it to the window, which shows it once the grid
    /// stands.
    void ShowRecordPhoto();
    /// The capture directory's pictures, which the start leaves to the window likewise.
    void ShowCapture();
    /// Saves and closes in the fixed order; a second call does nothing.
    void Form_Unload();

    void RefreshAppraisal();
    /// Somebody has looked how the forms program is doing; the window's line on the link follows.
    void LinkSeen(link::LinkWatch::Sees sees, const QString& words);
    void DisplayAllRecords();
    /// Opens the entry screen of the comp with this key. @return true if something was stored there
    bool LoadCompForm(const QString& key);

    // The "Add a comp" area.
    void CompAddRecord();
    void CompEditRecord();
    void CompDeleteRecord();
    void CompCopyRecord();
    void CompRenameRecord();
    /// Shows the records anew and stands on the row of a key. A record that the grid leaves out is shown beside
    /// a grid that stands nowhere; for a key without a record the row that has moved up takes its place.
    void ShowRecord(const QString& key);
    /// No search and no quick find: every record, and the one on show stays it.
    void ShowAllRecords();

    /// A drag ended on a control. Nothing happens for a pair without a rule.
    drops::Outcome Drop(const drops::Drag& drag, forms::Control& target);
    /// The row that a drop was let go on becomes the current one.
    /// @param key  of the record that was seen there
    /// @return false if another record stands there now, or none; the status line says so
    bool TakeRow(qint64 row, const QString& key);
    /// Would a drop of this source on this control do something now?
    [[nodiscard]] bool Accepts(const QString& sourceName, const forms::Control& target) const;
    /// The hint line while a drag is over a control goes to lblmsg; an empty target name clears it.
    void DragOver(const QString& sourceName, const QString& targetName);
    /// The drag that the current row of the grid starts.
    [[nodiscard]] drops::Drag grddatabook_dragCell();
    /// May a drag begin on this control now?
    [[nodiscard]] bool CanStart(const forms::Control& source) const;
    /// A drag begins on a control. @param shift  sum of kShiftMask, kCtrlMask and kAltMask
    drops::Drag BeginDrag(const forms::Control& source, int shift = 0);
    /// Exchanges two sales comps of the report; the status line tells.
    drops::Outcome SwapComps(int target, int source);
    /// Files of another program end on a control. @param files  drive paths
    drops::Outcome DropFiles(const QStringList& files, forms::Control& target);
    /// The icon of the drag that lasts; null if the program directory has none.
    [[nodiscard]] QImage DragPicture() const;
    /// Native path of the picture file that a control shows, for other programs; "" without one.
    [[nodiscard]] QString NativeFileOf(const forms::Control& source) const;
    /// Its pixels, upright. @throws RuntimeError 481 for a file that is no picture
    [[nodiscard]] QImage ImageOf(const forms::Control& source) const;
    /// The menu that the right button opens over a control, its captions set; nullptr for none. What it leads
    /// to is done to that control.
    forms::Menu* MenuOver(const forms::Control& control);
    /// The delete key on a thumbnail: what the menu over it would delete.
    void DeleteKeyOn(const forms::Control& thumb);

Q_SIGNALS:
    void CaptionChanged();
    void UnloadWanted(); ///< File, Exit
    void AboutWanted();
    void WhatsNewWanted(const QString& text);
    void GuideWanted();                  ///< Program Help without a help file of its own
    void ResetSizeWanted();              ///< the window back to its design size and position
    void TabColoursChanged(bool themed); ///< themed: the theme's own; else the tabbed areas are plain
    void LinkLookWanted(); ///< the state of the link may have changed
    void EndWanted();                    ///< Timer1: the stop is over and the process still lives

private:
    void WireControls();
    // The capture browser.
    void WireCapture();
    void ShowViewTicks();
    void ShowCameraDir();
    void popThumb_M_Click(int index);
    void DeleteImage();
    bool Refused(const QString& why); ///< says why, and is true, unless there is nothing to say
    [[nodiscard]] QString WhyOtherSlotPhoto() const;
    bool CaptureChosen(const QString& array, int index); ///< @return false for an entry of other rooms
    // The photos of the record on show.
    void WirePhotos();
    bool StandOnShownPhoto();
    [[nodiscard]] QString ShownPhoto() const;
    void CmdDeletePhoto_Click();
    void CmdRenamePhotoView_Click();
    // Slots, drags and their menus.
    void WireSlots();
    void MakeRouter();
    [[nodiscard]] QString FileOf(const forms::Control& source) const;
    [[nodiscard]] drops::DropDesk Drops();
    drops::Outcome Told(drops::Outcome outcome);
    void SaveSlotNow(QLatin1StringView group, int index, drops::SlotPart part);
    void AutoSaveSlot(QLatin1StringView group, int index);
    void SetCorrectPicMenuText(bool subject);
    void popPicture_M_Click(int index);
    void popGeneral_M_Click(int index);
    void popTextData_M_Click(int index);
    void popTextData_MSubSwap_Click(int index);
    void OfferSwap(const forms::Control& slot);
    void popPicAndData_M_Click(int index);
    void SlotPhoto_DblClick(forms::PictureBox& slot);
    void ReadCaption();
    void StartStep(const std::function<void()>& step);
    void WithCaptureDisk(const SystemPlaces& places, const std::function<void()>& step);
    void TakeStartSteps(const StartUpOptions& options, frm_Splash& splash);
    void RefuseSecondCopy(const StartUpOptions& options, const QString& title, const QString& text);
    [[nodiscard]] bool AskForDisk();
    void ReadiniSettings();
    void LockAddresses();
    void TurnOnMaps(const SystemPlaces& places);
    void LoadMenu();
    void VerifyCaptureDirectory() const;
    void AddGenViews2CBO();
    void checkUpdate() const;
    void AtEnd(const std::function<void()>& step);
    void ClearTempFiles();
    void PrepareGrid(bool loadUserLayout, frm_Splash& splash);
    void cmdSearch_Click();
    void grddatabook_RowColChange();
    void grddatabook_Click();
    void ShowNoRecord();
    void ShowOutside(const QString& key);
    [[nodiscard]] qint64 PlaceOf(const QString& key);
    void AfterAction();
    void WireConditions();
    void CloseCondition(const QString& chip);
    void ShowOtherRecords(const std::function<void()>& change);
    void grddatabook_HeadClick(const QString& field);
    void WireGrid();
    void popGrid_M_Click(int index);
    void ShowGridLayout();
    void txtcentralkey_Change();
    void txtcentralkey_LostFocus();
    void MassCity();
    void TransferChosen(int index);
    void AttachCity();
    [[nodiscard]] databook::RecordWork Records();
    [[nodiscard]] QStringList ReportAddresses() const;
    void MenuChosen(const QString& array, int index);
    bool MediaChosen(const QString& array, int index); ///< @return false for an entry of other rooms
    void ShowTrash();
    void CopyPhotos(const QString& word, const QString& caption);
    void FindPhotos();
    [[nodiscard]] QStringList OrphanLines(const std::function<bool()>& goOn) const;
    void ShowGeneralViews();
    void LaunchAppraisalProgram();
    void WireLink();
    void ShowLink();
    void cmdLink_Click();
    void SetupChosen(int index);
    void HelpChosen(const QString& array, int index);
    void ShowConfiguration();
    void ChangeDatabase();
    void OpenDatabook(); ///< at the start; @throws forms::EndOfProgram
    [[nodiscard]] QString WhyNotOpened();
    void NameDatabook(const Databook& databook);
    [[nodiscard]] Databook ChooseDatabook();
    bool OfferWaysOut();
    [[nodiscard]] Databook CopyReadable();
    void DisplayFirstRecords();
    /// Opens another Databook, whole or not at all. @return false if the present one stays, which has been
    /// told
    bool SwitchDatabook(const QString& directory, const QString& file);
    void ToggleManualEntry();
    void ConnectToWebsite();
    void LoadHelpMenu();
    void StartTutorial(int index);
    void OpenHelp();
    [[nodiscard]] QString HelpFile() const;
    [[nodiscard]] QStringList Tutorials() const;
    [[nodiscard]] QString ChangesText() const;
    void Connect(store::DataSource& source, const QString& path, const std::function<void()>& open);

    QString m_damageTold; ///< the Databook, upper-cased, whose damage the user knows of
    QTimer Timer1; ///< the exit of last resort, armed when the stop is over
    Foundation m_base;
    QString m_caption;
    QString m_version;
    bool m_starting = false;     ///< within Form_load
    bool m_readOnlyHome = false; ///< what can't be written there is told once
    bool m_settingsRead = false; ///< what the settings say was read; before that nothing is saved
    bool m_unloaded = false;
    bool m_showingRecords = false; ///< rows come and go: the one to stand on is not known yet
    QString m_shownKey;            ///< of the record that the window speaks of; "" for none
    bool m_gridReady = false;      ///< the layout on show is the user's and is saved at exit
    photos::SlotTable m_slotTable;
    std::unique_ptr<photos::SlotLoader> m_slotLoader;
    std::unique_ptr<databook::GridRows> m_rows;
    std::unique_ptr<databook::QuickFind> m_quickFind;
    std::unique_ptr<photos::PhotoQuestions> m_photoQuestions;
    std::unique_ptr<photos::PhotoDesk> m_photos;
    std::unique_ptr<photos::CaptureDesk> m_capture;
    std::unique_ptr<link::LinkDesk> m_link;
    std::unique_ptr<drops::Router> m_router;
    std::unique_ptr<comments::frm_FKey> m_functionKeys; ///< made when the first entry screen opens
    QString m_entryKey;                                 ///< of the comp whose entry screen is open
    link::LinkWatch::Sees m_sees = link::LinkWatch::Sees::Nothing;
    QString m_seenWords;
    link::LinkHelp m_linkHelp = link::LinkHelp::None;
    // Over what the last pop-up menu opened: what is chosen in it is done to that and to nothing else.
    QString m_menuControl;
    int m_menuIndex = -1;
    photos::PointedFile m_menuFile;
    QString m_menuPhoto; ///< record, view and file name of the photo on show
    int m_swapComp = 0;      ///< the comp over which the swap was offered
    QStringList m_swapShown; ///< what comps 1 to 9 showed then
};

} // namespace vasclip::shell
