#include "photos/frm_copy_pics.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "photos/content.h"
#include "photos/media_messages.h"
#include "platform/text/text.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kGaugeSteps = 1000;

} // namespace

frm_CopyPics::frm_CopyPics(const CopyDesk& desk, common::Globals& settings, SlotLoader& loader,
                           const QString& word, const QString& caption)
    : Screen(u"frm_CopyPics"_s)
    , folders(desk.disk, controls, u"NewDrive"_s, u"newPath"_s)
    , filListBox(controls, u"filListBox"_s)
    , ckbPicPreview(controls, u"ckbPicPreview"_s)
    , geaPreview(controls, u"geaPreview"_s)
    , cmdSelectAll(controls, u"cmdSelectAll"_s)
    , cmdClear(controls, u"cmdClear"_s)
    , cmdCopy(controls, u"cmdCopy"_s)
    , Command2(controls, u"Command2"_s)
    , gauCopy(controls, u"gauCopy"_s)
    , lblCount(controls, u"lblCount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_desk(desk)
    , m_settings(settings)
    , m_loader(loader)
    , m_word(word)
{
    SetCaption(caption);
    ckbPicPreview.SetCaption(u"Preview Image Highlighted"_s);
    ckbPicPreview.SetValue(settings.previewCopyPics == 1);
    cmdSelectAll.SetCaption(u"&Select All"_s);
    cmdClear.SetCaption(u"Unselect All"_s);
    cmdCopy.SetCaption(u"C&opy"_s);
    cmdCopy.SetToolTipText(u"Copies the selected photos, or all of them if none is selected"_s);
    Command2.SetCaption(u"&Cancel"_s);
    m_timerROM.setInterval(kPollMilliseconds);
    connect(&m_timerROM, &QTimer::timeout, this, &frm_CopyPics::TimerROM_Timer);
    connect(&folders, &DirLists::PathChanged, this, [this] {
        m_timerROM.stop();
        ListFiles();
    });
    connect(&folders, &DirLists::Refused, this, [this](const QString& directory) {
        m_desk.ports.prompter.Box({}, kMediaUnreadable);
        Poll(directory);
    });
    connect(&filListBox, &forms::ListBox::ListIndexChanged, this, &frm_CopyPics::ShowPreview);
    connect(&filListBox, &forms::MultiListBox::SelectionChanged, this, [this] {
        PointAtSelected();
        ShowCount();
    });
    connect(&ckbPicPreview, &forms::CheckBox::Toggled, this, [this] {
        if (m_selecting)
            return;
        m_settings.previewCopyPics = ckbPicPreview.Value() ? 1 : 0;
        ShowPreview();
    });
    connect(&cmdSelectAll, &forms::Control::Clicked, this,
            [this] { WithoutPreview([this] { filListBox.SelectAllLines(); }); });
    connect(&cmdClear, &forms::Control::Clicked, this,
            [this] { WithoutPreview([this] { filListBox.SelectNone(); }); });
    connect(&cmdCopy, &forms::Control::Clicked, this, &frm_CopyPics::cmdCopy_Click);
    connect(&Command2, &forms::Control::Clicked, this, &frm_CopyPics::Unload);
}

void frm_CopyPics::Form_Load()
{
    const RoutineScope scope{"frm_CopyPics"};
    const QString start = StartDirectory(m_settings, m_desk.disk, m_word);
    while (!folders.GoTo(start)) {
        if (m_desk.ports.prompter.MsgBox(forms::Buttons::RetryCancel, forms::Icon::Exclamation, {},
                                         kMediaNotReady) == forms::Answer::Retry)
            continue;
        (void)folders.GoTo(m_settings.G_ProgramDir.left(2) + u'\\');
        Poll(start);
        break;
    }
    filListBox.SetFocus();
}

/// While photos are being copied, the first wish to close stops that.
bool frm_CopyPics::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_CopyPics::Form_Unload()
{
    const RoutineScope scope{"frm_CopyPics"};
    m_timerROM.stop();
    m_loader.ErrClearPict(geaPreview);
    if (folders.Path().isEmpty())
        return;
    m_settings.lastCopy = folders.Path();
    try {
        const common::SettingTarget rows[] = {&common::Globals::lastCopy,
                                              &common::Globals::previewCopyPics};
        common::WriteSettings(rows, m_settings, m_desk.disk);
    } catch (const RuntimeError&) {
        // They are written once more when the program ends.
    }
}

void frm_CopyPics::Poll(const QString& directory)
{
    m_awaited = directory;
    m_timerROM.start();
}

void frm_CopyPics::TimerROM_Timer()
{
    if (!m_busy && m_desk.disk.DirExists(m_awaited))
        (void)folders.GoTo(m_awaited);
}

void frm_CopyPics::ListFiles()
{
    const RoutineScope scope{"frm_CopyPics"};
    lblmsg.Show({}, forms::Colour::Normal);
    QStringList names;
    common::Guarded(m_desk.ports.prompter, [&] {
        names = PictureNames(m_desk.disk, folders.Path(), kCapturePatterns);
    });
    m_pointed.clear();
    filListBox.SetItems(names);
    m_loader.ErrClearPict(geaPreview);
    ShowCount();
}

/// A card can be changed for another one that has the same names.
void frm_CopyPics::PointAtSelected()
{
    QHash<QString, PointedFile> before = std::exchange(m_pointed, {});
    for (const int line : filListBox.SelectedLines()) {
        const QString name = filListBox.List(line);
        const auto known = before.constFind(name);
        m_pointed.insert(name, known == before.cend() ? PointAt(m_desk.disk, folders.Path() + name) : *known);
    }
}

/// @return why a selected photo is no longer the one that was selected; "" while all of them are
QString frm_CopyPics::WhyAnotherSelected() const
{
    if (!m_desk.disk.DirExists(folders.Path()))
        return {}; // a card that was pulled out is asked for while copying
    for (const PointedFile& pointed : m_pointed)
        if (const QString why = WhyAnother(m_desk.disk, pointed); !why.isEmpty())
            return why;
    return {};
}

void frm_CopyPics::ShowCount()
{
    lblCount.SetCaption(u"Photos here: %1, selected: %2"_s.arg(filListBox.ListCount())
                            .arg(filListBox.SelCount()));
}

void frm_CopyPics::ShowPreview()
{
    if (m_busy || m_selecting)
        return;
    if (ckbPicPreview.Value() && filListBox.ListIndex() >= 0)
        m_loader.ErrLoadPict(geaPreview, folders.Path() + filListBox.List(filListBox.ListIndex()));
    else
        m_loader.ErrClearPict(geaPreview);
}

/// Selecting row by row would load each picture.
void frm_CopyPics::WithoutPreview(const std::function<void()>& select)
{
    const bool before = ckbPicPreview.Value();
    m_selecting = true;
    ckbPicPreview.SetValue(false);
    select();
    ckbPicPreview.SetValue(before);
    m_selecting = false;
}

/// The selected rows, or all if none is.
QStringList frm_CopyPics::Wanted() const
{
    QStringList names;
    for (int line = 0; line < filListBox.ListCount(); ++line) {
        if (filListBox.SelCount() == 0 || filListBox.Selected(line))
            names.append(filListBox.List(line));
    }
    return names;
}

void frm_CopyPics::cmdCopy_Click()
{
    const RoutineScope scope{"frm_CopyPics"};
    if (m_busy)
        return;
    if (IsCaptureDirectory(m_desk.globals, folders.Path())) {
        m_desk.ports.prompter.Box({}, kSameDirectories);
        return;
    }
    bool anyJpg = false;
    if (!common::Guarded(m_desk.ports.prompter,
                         [&] { anyJpg = m_desk.disk.Found(folders.Path() + u"*.jpg"_s); }))
        return;
    if (!anyJpg) {
        lblmsg.Show(kNoJpg.arg(folders.Path()), forms::Colour::Red);
        return;
    }
    if (const QString why = WhyAnotherSelected(); !why.isEmpty()) {
        ListFiles();
        lblmsg.Show(why, forms::Colour::Red);
        return;
    }
    CopyOutcome outcome;
    {
        const QScopedValueRollback<bool> busy(m_busy, true);
        const auto idle = qScopeGuard([this] { gauCopy.SetCaption({}); });
        m_stop = false;
        gauCopy.SetRange(kGaugeSteps);
        outcome = CopyFromMedia(m_desk, folders.Path(), Wanted(),
                                [this](const QString& doing, qint64 done, qint64 total) {
                                    gauCopy.SetCaption(doing);
                                    gauCopy.SetValue(total > 0 ? static_cast<int>(done * kGaugeSteps / total) : 0);
                                    return !m_stop;
                                });
    }
    const QString text = outcome.Text(m_desk.globals.G_CaptureDir);
    if (outcome.begun)
        m_done = text;
    if (outcome.stopped || !outcome.begun || !outcome.failed.isEmpty()) {
        lblmsg.Show(text, outcome.begun ? forms::Colour::Red : forms::Colour::Normal);
        return;
    }
    Unload();
}

} // namespace vasclip::photos
