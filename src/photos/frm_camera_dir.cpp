#include "photos/frm_camera_dir.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "platform/files/profile.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

frm_CameraDir::frm_CameraDir(const forms::Ports& ports, const files::Disk& disk, common::Globals& globals,
                             const QString& programDir)
    : Screen(u"frm_CameraDir"_s)
    , m_lists(disk, controls, u"DrvCapture"_s, u"dirCapture"_s)
    , lstFavorites(controls, u"lstFavorites"_s)
    , lbldirectory(controls, u"lbldirectory"_s)
    , cmdOK(controls, u"cmdOK"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdSetDefault(controls, u"cmdSetDefault"_s)
    , cmdRevDefault(controls, u"cmdRevDefault"_s)
    , cmdFavorites(controls, u"cmdFavorites"_s)
    , cmdDelFavorite(controls, u"cmdDelFavorite"_s)
    , m_ports(ports)
    , m_disk(disk)
    , m_globals(globals)
    , m_programDir(programDir)
{
    SetCaption(u"Current Camera Folder"_s);
    cmdOK.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    cmdSetDefault.SetCaption(u"Set Default to Current Path"_s);
    cmdRevDefault.SetCaption(u"Revert to Previous Default"_s);
    cmdFavorites.SetCaption(u"&Add Current Path to Favorites"_s);
    cmdDelFavorite.SetCaption(u"&Delete Selected from Favorites"_s);
    connect(&m_lists, &DirLists::PathChanged, this, [this] { lbldirectory.SetCaption(m_lists.Path()); });
    connect(&m_lists, &DirLists::Refused, this, [this](const QString& directory) {
        m_ports.prompter.Box(m_globals.productName, directory + u" is not there or can't be read."_s);
    });
    connect(&cmdOK, &forms::Control::Clicked, this, &frm_CameraDir::cmdOK_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
    connect(&cmdSetDefault, &forms::Control::Clicked, this, &frm_CameraDir::cmdSetDefault_Click);
    connect(&cmdRevDefault, &forms::Control::Clicked, this, &frm_CameraDir::cmdRevDefault_Click);
    connect(&cmdFavorites, &forms::Control::Clicked, this, &frm_CameraDir::cmdFavorites_Click);
    connect(&cmdDelFavorite, &forms::Control::Clicked, this, &frm_CameraDir::cmdDelFavorite_Click);
    connect(&lstFavorites, &forms::Control::Clicked, this, &frm_CameraDir::lstFavorites_Click);
    connect(&lstFavorites, &forms::Control::DoubleClicked, this, [this] {
        lstFavorites_Click();
        if (text::Folded(m_lists.Path()) ==
            text::Folded(common::CkRSlash(lstFavorites.List(lstFavorites.ListIndex()))))
            cmdOK_Click();
    });
}

common::IniListPlace frm_CameraDir::Favorites(const common::Globals& globals)
{
    return {globals.applicationIni, u"CAMERADIRECTORIES"_s, u"CAMERADIRECTORY"_s};
}

void frm_CameraDir::Form_Load()
{
    const common::RoutineScope scope{"frm_CameraDir"};
    // A card that was pulled out: its drive, else the first one.
    if (!m_lists.GoTo(m_globals.G_CaptureDir) && !m_lists.GoTo(m_globals.G_CaptureDir.left(2)))
        m_lists.GoTo(DrvCapture.List(0));
    common::LoadList(lstFavorites, m_disk, Favorites(m_globals));
    for (int i = 0; i < lstFavorites.ListCount(); ++i)
        if (text::Folded(common::CkRSlash(lstFavorites.List(i))) == text::Folded(m_lists.Path()))
            lstFavorites.SetListIndex(i);
    dirCapture.SetFocus();
}

void frm_CameraDir::cmdOK_Click()
{
    const common::RoutineScope scope{"frm_CameraDir"};
    m_globals.G_CaptureDir = m_lists.Path();
    m_changed = true;
    if (!common::SaveList(lstFavorites, m_disk, Favorites(m_globals)))
        m_ports.prompter.Box(m_globals.productName,
                             u"The favorites could not be written to "_s + m_globals.applicationIni);
    Unload();
}

void frm_CameraDir::cmdSetDefault_Click()
{
    const common::RoutineScope scope{"frm_CameraDir"};
    common::WriteSetting(*common::FindSetting(&common::Globals::G_CaptureDir), m_lists.Path(), m_globals,
                         m_disk);
    m_changed = true;
}

void frm_CameraDir::cmdRevDefault_Click()
{
    const common::RoutineScope scope{"frm_CameraDir"};
    const QString standard = common::ParseFileName(m_programDir).drive + u"\\VASSNAP"_s;
    GoOrTell(files::GetPrivateProfileString(m_disk, u"DIRECTORIES"_s, u"CAPTUREDIR"_s, standard,
                                            m_globals.applicationIni));
}

void frm_CameraDir::cmdFavorites_Click()
{
    common::AddUnlessPresent(lstFavorites, text::Folded(m_lists.Path()), common::Case::Ignored);
}

void frm_CameraDir::cmdDelFavorite_Click()
{
    const int row = lstFavorites.ListIndex();
    if (row < 0 || !m_ports.prompter.YesNo(m_globals.productName,
                                           u"Delete from Favorites.  Are you sure?"_s))
        return;
    if (row < lstFavorites.ListCount())
        lstFavorites.RemoveItem(row);
}

void frm_CameraDir::lstFavorites_Click()
{
    const QString entry = text::Trim(lstFavorites.List(lstFavorites.ListIndex()));
    if (!entry.isEmpty())
        GoOrTell(entry);
}

void frm_CameraDir::GoOrTell(const QString& directory)
{
    if (!m_lists.GoTo(directory))
        Q_EMIT m_lists.Refused(directory);
}

} // namespace vasclip::photos
