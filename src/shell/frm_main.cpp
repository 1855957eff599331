#include "shell/frm_main.h"

#include "comments/frm_fkey.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "databook/frm_search_sql.h"
#include "databook/grid.h"
#include "databook/quick_find.h"
#include "drops/router.h"
#include "link/general_text.h"
#include "link/set_city.h"
#include "link/tabs.h"
#include "link/talk.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"
#include "photos/picture_thumbs.h"
#include "platform/desktop/desktop.h"
#include "platform/text/text.h"
#include "shell/g_shell.h"
#include "shell/menus.h"
#include "shell/photo_questions.h"
#include "shell/slot_icon_pictures.h"

#include <QScopedValueRollback>

#include <algorithm>

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

frm_Main::frm_Main(const Foundation& foundation)
    : tabSource(controls, u"tabSource"_s, {u"Report and Databook"_s, u"Atlas"_s})
    , lblChangingDB(controls, u"lblChangingDB"_s)
    , status(controls)
    , records(controls)
    , report(controls)
    , slots(controls)
    , photoLists(controls)
    , lstGenViews(controls, u"lstGenViews"_s)
    , capture(controls)
    , fraAddaComp(controls, u"fraAddaComp"_s)
    , mnuFileItem(controls, u"mnuFileItem"_s, u"&File"_s, FileEntries())
    , mnuSetupItem(controls, u"mnuSetupItem"_s, u"&Setup"_s, SetupEntries())
    , mnuMaintItem(controls, u"mnuMaintItem"_s, u"&Maintenance"_s, MaintenanceEntries())
    , mnuTransferItem(controls, u"mnuTransferItem"_s, u"&Transfer"_s, TransferEntries())
    , mnuRefreshItem(controls, u"mnuRefreshItem"_s, u"&Refresh"_s, RefreshEntries())
    , mnuDBItem(controls, u"mnuDBItem"_s, u"&Database"_s, DatabaseEntries())
    , mnuHelpItem(controls, u"mnuHelpItem"_s, u"&Help"_s, HelpEntries())
    , popGrid_M(controls, u"popGrid_M"_s, {}, GridEntries())
    , popPhoto_M(controls, u"popPhoto_M"_s, {}, PhotoEntries())
    , popThumb_M(controls, u"popThumb_M"_s, {}, ThumbEntries())
    , popPicture_M(controls, u"popPicture_M"_s, {}, PictureEntries())
    , popGeneral_M(controls, u"popGeneral_M"_s, {}, GeneralEntries())
    , popTextData_M(controls, u"popTextData_M"_s, {}, TextDataEntries())
    , popPicAndData_M(controls, u"popPicAndData_M"_s, {}, PicAndDataEntries())
    , sources(foundation.engine)
    , m_base(foundation)
    , m_slotLoader(std::make_unique<photos::SlotLoader>(foundation.disk, foundation.ports, m_slotTable))
    , m_rows(std::make_unique<databook::GridRows>(sources.datsql))
{
    m_photoQuestions = MakePhotoQuestions(foundation.ports, foundation.disk, globals, *m_slotLoader,
                                          [this] { AddGenViews2CBO(); });
    m_photos =
        std::make_unique<photos::PhotoDesk>(foundation.ports, foundation.disk, globals, sources.datDatabook,
                                            photoLists, *m_slotLoader, status, *m_photoQuestions);
    m_photos->setCity = [this] { link::ErrDatabookSetCity(*m_link, link::CityRule::Fill); };
    m_capture = std::make_unique<photos::CaptureDesk>(
        photos::CaptureBase{foundation.disk, foundation.ports, globals, status, *m_slotLoader}, capture,
        std::make_unique<photos::PictureThumbs>(foundation.disk));
    m_link = std::make_unique<link::LinkDesk>(link::LinkDesk{
        .txtDDE = foundation.txtDDE,
        .globals = globals,
        .ports = foundation.ports,
        .status = status,
        .report = report,
        .addr = addr,
        .state = linkState,
        .slots = slots,
        .loader = *m_slotLoader,
        .lists = photoLists,
        .sources = sources,
        .disk = foundation.disk,
        .kelIni =
            [this](const QString& section, const QString& key) {
                return link::ReadsKelIni(m_base.disk, globals.kelIni)(section, key);
            },
        .fileVersion = [this](const QString& path) { return FileVersionOf(m_base.disk, path); },
        .icons = SlotIconPictures(),
        .talk = foundation.talk,
        .photoDesk = m_photos.get(),
    });
    if (foundation.talk)
        foundation.talk->Attach(status, foundation.ports);
    m_quickFind = std::make_unique<databook::QuickFind>(foundation.ports, records, sources.datsql, *m_rows,
                                                        status, globals);
    MakeRouter();
    WireControls();
}

frm_Main::~frm_Main() = default;

void frm_Main::SetCaption(const QString& caption)
{
    m_caption = caption;
    Q_EMIT CaptionChanged();
}

void frm_Main::WireControls()
{
    for (forms::Menu* menu : {&mnuFileItem, &mnuSetupItem, &mnuMaintItem, &mnuTransferItem, &mnuRefreshItem,
                              &mnuDBItem, &mnuHelpItem})
        connect(menu, &forms::Menu::Chosen, this, &frm_Main::MenuChosen);

    connect(&records.cmdRefresh, &forms::Control::Clicked, this, [this] { DisplayAllRecords(); });
    connect(&records.cmdSearch, &forms::Control::Clicked, this, &frm_Main::cmdSearch_Click);
    connect(&records.cmdEdit, &forms::Control::Clicked, this, &frm_Main::CompEditRecord);
    connect(&records.grddatabook, &forms::Control::Clicked, this, &frm_Main::grddatabook_Click);
    connect(&records.grddatabook, &forms::Control::DoubleClicked, this, [this] {
        grddatabook_Click();
        CompEditRecord();
    });
    connect(&records.grddatabook, &forms::Grid::RowColChange, this, &frm_Main::grddatabook_RowColChange);
    connect(&records.txtcentralkey, &forms::TextBox::TextChanged, this, &frm_Main::txtcentralkey_Change);
    connect(&records.txtcentralkey, &forms::Control::LostFocus, this, &frm_Main::txtcentralkey_LostFocus);
    connect(&records.cmdAdd, &forms::Control::Clicked, this, &frm_Main::CompAddRecord);
    connect(&records.cmdDelete, &forms::Control::Clicked, this, &frm_Main::CompDeleteRecord);
    connect(&records.cmdCopy, &forms::Control::Clicked, this, &frm_Main::CompCopyRecord);
    connect(&records.cmdRename, &forms::Control::Clicked, this, &frm_Main::CompRenameRecord);
    for (forms::TabControl* tab :
         {&report.TabSubject, &report.TabComp, &report.TabGeneral, &report.TabListing, &report.TabRental})
        connect(tab, &forms::TabControl::TabClicked, this,
                [this, tab](int previous) { link::TabClicked(*m_link, *tab, previous); });
    for (int i = report.cboGeneral.First(); i <= report.cboGeneral.Last(); ++i) {
        connect(&report.cboGeneral(i), &forms::ComboBox::TextChanged, this,
                [this, i] { link::cboGeneral_Change(*m_link, i); });
        connect(&report.cboGeneral(i), &forms::ListBox::ListIndexChanged, this,
                [this, i] { link::cboGeneral_Click(*m_link, i); });
    }

    Timer1.setParent(this);
    Timer1.setObjectName(u"Timer1"_s);
    Timer1.setSingleShot(true);
    connect(&Timer1, &QTimer::timeout, this, &frm_Main::EndWanted);

    lblChangingDB.Show(u"Changing database..."_s, forms::Colour::Blue);
    lblChangingDB.SetVisible(false);

    // Their screens are not there yet: disabled, not dead.
    for (forms::Button* button :
         {&records.cmdAddManual, &records.cmdPrint, &records.cmdDetails, &report.cmdSubjectAnd})
        button->SetEnabled(false);
    WireGrid();
    WireConditions();
    WireLink();
    WirePhotos();
    WireCapture();
    WireSlots();
}

void frm_Main::DisplayAllRecords()
{
    const common::RoutineScope scope{"DisplayAllRecords"};
    const forms::Hourglass hourglass(m_base.ports.window);
    {
        const QScopedValueRollback<bool> showing(m_showingRecords, true);
        databook::DisplayAllRecords(m_base.ports, records, sources.datsql, *m_rows, globals.sortGrid);
        m_quickFind->NarrowAgain();
        records.grddatabook.SetRow(std::max<qint64>(records.grddatabook.Row(), 0));
    }
    grddatabook_RowColChange();
}

void frm_Main::cmdSearch_Click()
{
    databook::frm_SearchSQL search({m_base.ports, m_base.disk, globals, records, sources.datsql, *m_rows});
    m_quickFind->Clear();
    m_base.ports.screens.ShowModal(search);
    if (!records.state.searchOnDisplay && records.state.search)
        DisplayAllRecords(); // the search was cleared on its screen
    grddatabook_RowColChange();
}

void frm_Main::MenuChosen(const QString& array, int index)
{
    if (MediaChosen(array, index) || CaptureChosen(array, index))
        return;
    if (array == u"mnuFileItem"_s && index == 0)
        LaunchAppraisalProgram();
    else if (array == u"mnuFileItem"_s && index == 11)
        Q_EMIT UnloadWanted();
    else if (array == u"mnuMaintItem"_s && index == 3)
        MassCity();
    else if (array == u"mnuTransferItem"_s)
        TransferChosen(index);
    else if (array == u"mnuRefreshItem"_s && index == 0)
        RefreshAppraisal();
    else if (array == u"mnuRefreshItem"_s && index == 2)
        ShowAllRecords();
    else if (array == u"mnuSetupItem"_s && index == 2)
        ShowGridLayout();
    else if (array == u"mnuSetupItem"_s)
        SetupChosen(index);
    else if (array == u"mnuDBItem"_s && index == 4)
        ChangeDatabase();
    else if (array.startsWith(u"mnuHelp"_s))
        HelpChosen(array, index);
}

} // namespace vasclip::shell
