// Which directory the capture browser shows.

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/capture_desk.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kTrash = "TRASHCAN\\"_L1;

QString Compared(const QString& directory)
{
    return text::Folded(common::CkRSlash(directory));
}

} // namespace

void CaptureDesk::check4CaptureDir()
{
    const common::RoutineScope scope{"check4CaptureDir"};
    QString& directory = m_base.globals.G_CaptureDir;
    if (text::Trim(directory).isEmpty()) {
        MakeCaptureDir();
        return;
    }
    if (const QString whole = common::CkRSlash(directory); whole.endsWith(kTrash, Qt::CaseInsensitive))
        directory = whole.chopped(kTrash.size());
    if (!m_base.disk.DirExists(directory))
        MakeCaptureDir();
}

void CaptureDesk::MakeCaptureDir()
{
    const common::RoutineScope scope{"MakeCaptureDir"};
    QString& directory = m_base.globals.G_CaptureDir;
    forms::Prompter& prompter = m_base.ports.prompter;
    const QString root = common::CkRSlash(m_systemDrive);
    if (!text::Trim(directory).isEmpty()) {
        const QString question = u"Drive: %1 is empty or unreadable.\r\nWould you like to create a default "
                                 u"capture directory?\r\n(On the default computer drive)"_s;
        const auto answer =
            prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Question,
                            u"Unable to connect to Directory"_s,
                            question.arg(common::ParseFileName(directory).drive));
        if (answer != forms::Answer::Yes) {
            prompter.Box(u"Capture Directory"_s, u"Changing to the local drive."_s);
            directory = root;
            return;
        }
    }
    const QString fresh = root + u"VASSNAP\\"_s;
    try {
        if (!m_base.disk.DirExists(fresh))
            m_base.disk.MkDir(fresh);
        directory = fresh;
    } catch (const RuntimeError&) {
        prompter.Box(u"Directory Error"_s, u"Error creating directory. Reverting to local drive"_s);
        directory = root;
    }
}

/// A path with a dot can't be taken apart; the program moves elsewhere.
void CaptureDesk::CheckPeriod()
{
    common::Globals& globals = m_base.globals;
    if (!globals.G_CaptureDir.contains(u'.'))
        return;
    const QString refused = globals.G_CaptureDir;
    m_base.ports.prompter.Box(
        u"Unable to Open Capture Directory"_s,
        u"Unable to open capture directory. The folder path has a period '.' character. Please Rename the "
        u"Folder (excluding the period) OR choose a different capture directory. Chosen Directory = "_s +
            refused);
    const QString root = common::CkRSlash(m_systemDrive);
    QString previous = text::Trim(globals.captureDirBeforeTrash);
    if (previous.isEmpty())
        previous = text::Trim(globals.lastCopy);
    if (previous.isEmpty())
        previous = root;
    for (const QString& place : {previous, globals.lastCopy, root}) {
        if (text::Trim(place).isEmpty() || Compared(place) == Compared(refused))
            continue;
        globals.G_CaptureDir = common::CkRSlash(place);
        return;
    }
}

void CaptureDesk::DisplayCamera()
{
    const common::RoutineScope scope{"DisplayCamera"};
    common::Globals& globals = m_base.globals;
    CheckPeriod();
    if (!common::IsTrashDirectory(common::CkRSlash(globals.G_CaptureDir)))
        globals.captureDirBeforeTrash = globals.G_CaptureDir;
    QString shown = globals.G_CaptureDir;
    m_controls.lblTab.SetCaption(common::StripRChar(shown));
    if (!m_browsing)
        return;
    const QString directory = common::CkRSlash(globals.G_CaptureDir);
    if (directory != m_folder.Directory())
        m_loader.ForgetAll();
    m_folder.Open(directory);
    m_first = 0;
    for (int i = 0; i < CaptureControls::kThumbs; ++i)
        ClearThumbAt(i);
    Opened();
}

void CaptureDesk::ShowDirectory(const QString& directory)
{
    m_base.globals.G_CaptureDir = common::CkRSlash(directory);
    DisplayCamera();
}

} // namespace vasclip::photos
