#include "comments/frm_fkey.h"

#include "comments/comment_file.h"
#include "comments/comment_store.h"
#include "comments/comment_upgrade.h"
#include "comments/frm_comment.h"
#include "comments/messages.h"
#include "common/error_block.h"
#include "platform/text/runtime_error.h"
#include "store/change.h"
#include "store/messages.h"
#include "store/store.h"
#include "store/transaction.h"

#include <QCoreApplication>

namespace vasclip::comments {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kTimerMs = 500;
constexpr int kCaptionWidth = 22;

Capitals CapitalsOf(const common::Globals& globals)
{
    return globals.caps == u"0"_s ? Capitals::Keep : Capitals::Upper;
}

} // namespace

int SlotOfKey(int keyCode, int shift)
{
    if (keyCode < kF3 || keyCode > kF8)
        return -1;
    const bool ctrl = (shift & kCtrl) != 0;
    const bool alt = (shift & kAlt) != 0;
    if (alt && !ctrl)
        return -1;
    const bool stores = ctrl && (alt || (shift & kShift) != 0);
    return keyCode - kF3 + (stores ? kKeys : 0);
}

QString FitCaption(const QString& phrase, int width)
{
    QString fitted = phrase.simplified();
    if (fitted.size() > width)
        fitted = fitted.left(width - 1).trimmed() + QChar(0x2026);
    return fitted.replace(u'&', u"&&"_s);
}

frm_FKey::frm_FKey(const FKeyDesk& desk)
    : Screen(u"frm_FKey"_s)
    , cmdComment(controls, u"cmdComment"_s, 0, kKeys - 1)
    , datComment(desk.engine, u"datComment"_s)
    , datDatabook(desk.engine, u"datDatabook"_s)
    , m_desk(desk)
{
    SetCaption(u"Function Keys"_s);
    TimerFKEY.setInterval(kTimerMs);
    connect(&TimerFKEY, &QTimer::timeout, this, &frm_FKey::TimerFKEY_Timer);
    for (int i = 0; i < kKeys; ++i)
        connect(&cmdComment(i), &forms::Control::Clicked, this, [this, i] { cmdComment_Click(i); });
    RestButtons();
}

frm_FKey::~frm_FKey() = default;

void frm_FKey::EntryOpened(forms::Screen& screen, EntryKeys&)
{
    m_entries.removeAll(&screen);
    TimerFKEY_Timer(); // the last comp's screen may have closed a moment ago
    m_entries.append(&screen);
    if (!IsOpen())
        Open();
}

void frm_FKey::Form_Load()
{
    const RoutineScope scope{"frm_FKey"};
    if (QCoreApplication::instance())
        TimerFKEY.start();
    static_cast<void>(OpenComments());
    BindDatabook();
}

void frm_FKey::BindDatabook()
{
    const QString key = m_desk.currentKey ? m_desk.currentKey() : QString();
    store::Connect2mdb(m_desk.ports, datDatabook, m_desk.globals.G_DataDir + m_desk.globals.G_DataFile,
                       m_desk.globals.G_Table, store::SourceKind::Table);
    static_cast<void>(store::FindRecord(m_desk.ports, datDatabook, key, store::kKeyIndex));
}

/// @return true if the file is open; what is wrong with it is told
bool frm_FKey::OpenComments()
{
    const common::Globals& globals = m_desk.globals;
    const files::Disk& disk = m_desk.engine.Disk();
    const bool shared = globals.share != 0;
    const QString path = CommentFilePath(globals);
    try {
        if (!HasCommentFile(disk, path)) {
            const QString directory = shared ? globals.G_DataDir : globals.G_UserDir;
            if (!disk.DirExists(directory))
                throw RuntimeError(error::kPathNotFound, kNotReached.arg(directory));
            if (shared && !TurnSharingOn(m_desk.ports, m_desk.engine, globals))
                return false;
            if (!shared)
                TurnSharingOff(m_desk.ports, m_desk.engine, globals);
        }
        CheckCommentsDBF(m_desk.ports, m_desk.engine, globals, path);
        OpenCommentSource(datComment, path);
        return true;
    } catch (const RuntimeError& failure) {
        m_desk.ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                                     kNoKeys.arg(failure.Description()));
    }
    return datComment.Bound();
}

bool frm_FKey::FileReady()
{
    return datComment.Bound() || OpenComments();
}

void frm_FKey::Form_Unload()
{
    TimerFKEY.stop();
    m_entries.clear();
    m_keys = nullptr;
    m_field.clear();
    RestButtons();
    datComment.Close();
    if (datDatabook.Bound() && store::Change::Open(datDatabook))
        common::Guarded(m_desk.ports.prompter, [this] { store::Change::StoreOpen(datDatabook); });
    datDatabook.Close();
}

void frm_FKey::TimerFKEY_Timer()
{
    m_entries.removeIf([](const QPointer<forms::Screen>& entry) { return !entry || !entry->IsOpen(); });
    if (!m_entries.isEmpty() || !IsOpen())
        return;
    TimerFKEY.stop();
    Unload();
    End();
}

void frm_FKey::RestButtons()
{
    for (int i = 0; i < kKeys; ++i) {
        cmdComment(i).SetCaption({});
        cmdComment(i).SetToolTipText({});
        cmdComment(i).SetEnabled(false);
    }
}

void frm_FKey::FieldEntered(EntryKeys& keys, forms::TextBox& field, const QString& dataField)
{
    m_keys = &keys;
    m_field = &field;
    LoadCommentKeyCaptions(datComment, dataField);
}

void frm_FKey::FieldLeft()
{
    m_keys = nullptr;
    m_field.clear();
    RestButtons();
}

void frm_FKey::LoadCommentKeyCaptions(store::DataSource& data, const QString& column)
{
    const RoutineScope scope{"LoadCommentKeyCaptions"};
    if (column.isEmpty() || !data.Bound() || data.FieldIndex(column) < 0)
        return RestButtons();
    QStringList phrases;
    try {
        phrases = KeyPhrases(data, column);
    } catch (const RuntimeError&) {
        return RestButtons(); // the key itself says what is wrong; coming into a field doesn't
    }
    for (int i = 0; i < kKeys; ++i) {
        const QString phrase = phrases.at(i).simplified();
        cmdComment(i).SetCaption(FitCaption(phrase, kCaptionWidth));
        cmdComment(i).SetToolTipText(phrase);
        cmdComment(i).SetEnabled(true);
    }
}

void frm_FKey::cmdComment_Click(int index)
{
    const RoutineScope scope{"cmdComment_Click"};
    if (!m_keys || !m_field)
        return;
    m_field->SetFocus();
    m_keys->SendKey(*m_field, kF3 + index, kNoShift);
    m_desk.ports.pump.DoEvents();
}

KeyAnswer frm_FKey::KeyDown(int keyCode, int shift, forms::TextBox& field, const QString& dataField)
{
    if (keyCode == kEnter && (shift & (kCtrl | kAlt)) == 0)
        return {true, (shift & kShift) != 0 ? Advance::Previous : Advance::Next};
    if (dataField.isEmpty())
        return {};
    const int slot = SlotOfKey(keyCode, shift);
    const bool library = keyCode == kF2 && shift == kNoShift;
    if (slot < 0 && !library)
        return {};
    if (!FileReady())
        return {true, Advance::Stay};
    if (library)
        OpenLibrary(field, dataField);
    else if (slot < kKeys)
        return Recall(slot, field, dataField);
    else
        StoreOn(slot - kKeys, field, dataField);
    return {true, Advance::Stay};
}

KeyAnswer frm_FKey::Recall(int slot, forms::TextBox& field, const QString& column)
{
    const QString phrase = ReturnComment(datComment, slot, column, CapitalsOf(m_desk.globals));
    if (phrase.isEmpty())
        return {true, Advance::Stay};
    field.SetText(phrase);
    return {true, m_desk.globals.autoAdvance != 0 ? Advance::Next : Advance::Stay};
}

/// A file that another user holds for a moment is worth a second try; it never ends the program, for an entry
/// screen with unsaved fields is open.
void frm_FKey::Trying(const std::function<void()>& step)
{
    for (;;) {
        try {
            return step();
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kCouldNotUpdateLocked)
                throw;
            if (m_desk.ports.prompter.MsgBox(forms::Buttons::RetryCancel, forms::Icon::Exclamation,
                                             store::kPlainTitle,
                                             kInUse.arg(datComment.DatabaseName())) != forms::Answer::Retry)
                return;
        }
    }
}

void frm_FKey::StoreOn(int slot, const forms::TextBox& field, const QString& column)
{
    Trying([&] { SaveTheComment(m_desk.ports, datComment, slot, column, field.Text()); });
    LoadCommentKeyCaptions(datComment, column);
}

void frm_FKey::OpenLibrary(forms::TextBox& field, const QString& column)
{
    const RoutineScope scope{"OpenLibrary"};
    const Library opened = ReadLibrary(datComment, column);
    frm_Comment dialog(m_desk.ports, m_desk.globals, m_desk.engine.Disk());
    dialog.SetLimits(store::SizeOf(datComment, column), ListCapacity(datComment));
    dialog.txtAddComment.SetText(field.Text());
    PreLoadFKeys(opened, dialog);
    PreLoadListControl(opened, dialog);
    for (;;) {
        dialog.g_CommentResult.reset();
        m_desk.ports.screens.ShowModal(dialog);
        if (!dialog.g_CommentResult)
            return;
        try {
            SaveLibrary(column, opened, dialog.g_CommentList);
            break;
        } catch (const RuntimeError& failure) {
            m_desk.ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                                         kNotStored.arg(failure.Description()));
        }
    }
    LoadCommentKeyCaptions(datComment, column);
    if (!dialog.g_CommentResult->isEmpty())
        field.SetText(*dialog.g_CommentResult);
}

void frm_FKey::PreLoadFKeys(const Library& library, frm_Comment& dialog)
{
    dialog.InitializeFKeys(library.keys);
}

void frm_FKey::PreLoadListControl(const Library& library, frm_Comment& dialog)
{
    dialog.LoadListArray(library.list);
}

/// Writes what the dialogue made of a library. Nothing that would stay as it is is written; what stands behind
/// a gap in the list was not shown and goes.
void frm_FKey::SaveLibrary(const QString& column, const Library& opened, const QStringList& entries)
{
    Library mine{entries.mid(0, kKeys), entries.mid(kKeys)};
    mine.list.removeAll(QString());
    if (mine == opened && (!datComment.Updatable() || !HasPhrasesBehindAGap(datComment, column)))
        return;
    store::Transaction all(datComment);
    const Library merged = Merged(opened, mine, ReadLibrary(datComment, column));
    const QStringList left = SaveListControl(datComment, column, merged.keys + merged.list);
    all.Commit();
    if (!left.isEmpty())
        m_desk.ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                                     kNoRoom + u"\r\n"_s + left.join(u"\r\n"_s));
}

} // namespace vasclip::comments
