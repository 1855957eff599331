#include "comments/frm_comment.h"

#include "comments/comment_store.h"
#include "comments/messages.h"
#include "common/ini_list.h"
#include "common/settings.h"
#include "platform/text/text.h"
#include "store/messages.h"

#include <algorithm>

namespace vasclip::comments {

using namespace Qt::Literals::StringLiterals;

frm_Comment::frm_Comment(const forms::Ports& ports, common::Globals& globals, const files::Disk& disk)
    : Screen(u"frm_Comment"_s)
    , txtAddComment(controls, u"txtAddComment"_s)
    , txtFKey(controls, u"txtFKey"_s, 0, kKeys - 1)
    , optRead(controls, u"optRead"_s, 0, kKeys - 1)
    , optGet(controls, u"optGet"_s, 0, kKeys - 1)
    , lstComment(controls, u"lstComment"_s)
    , lstSorted(controls, u"lstSorted"_s)
    , ckbAlphabetic(controls, u"ckbAlphabetic"_s)
    , ckbAdvance(controls, u"ckbAdvance"_s)
    , cmdRead(controls, u"cmdRead"_s)
    , CmdInsertRow(controls, u"CmdInsertRow"_s)
    , cmdDeleteRow(controls, u"cmdDeleteRow"_s)
    , cmdOK(controls, u"cmdOK"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_ports(ports)
    , m_globals(globals)
    , m_disk(disk)
{
    SetCaption(u"Comment Dialog"_s);
    lstSorted.SetVisible(false);
    ckbAlphabetic.SetCaption(u"&Sort Comments"_s);
    ckbAdvance.SetCaption(u"A key goes on to the &next field"_s);
    cmdRead.SetCaption(u"&Read <<"_s);
    CmdInsertRow.SetCaption(u"&Add >>"_s);
    cmdDeleteRow.SetCaption(u"&Delete"_s);
    cmdOK.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    for (int i = 0; i < kKeys; ++i) {
        const QString key = u"F%1"_s.arg(i + 3);
        txtFKey(i).SetLocked(true);
        connect(&txtFKey(i), &forms::TextBox::TextChanged, this, // a long phrase does not fit its box
                [this, i] { txtFKey(i).SetToolTipText(txtFKey(i).Text()); });
        optRead(i).SetCaption(u"Read"_s);
        optRead(i).SetToolTipText(u"Take the phrase of %1 (%1)"_s.arg(key));
        optGet(i).SetCaption(u"Store"_s);
        optGet(i).SetToolTipText(u"Put the phrase above on %1 (Ctrl+Shift+%1 or Ctrl+Alt+%1)"_s.arg(key));
        connect(&optRead(i), &forms::Control::Clicked, this, [this, i] { optRead_Click(i); });
        connect(&txtFKey(i), &forms::Control::Clicked, this, [this, i] { optRead_Click(i); });
        connect(&optGet(i), &forms::Control::Clicked, this, [this] { optGet_Click(); });
    }
    connect(&lstComment, &forms::Control::Clicked, this, [this] { lstComment_Click(); });
    connect(&cmdRead, &forms::Control::Clicked, this, [this] { lstComment_Click(); });
    connect(&CmdInsertRow, &forms::Control::Clicked, this, [this] { AddTheItem(); });
    connect(&cmdDeleteRow, &forms::Control::Clicked, this, [this] { cmdDeleteRow_Click(); });
    connect(&ckbAlphabetic, &forms::Control::Clicked, this, [this] { ckbAlphabetic_Click(); });
    connect(&ckbAdvance, &forms::Control::Clicked, this,
            [this] { Store("AUTOADVANCE", m_globals.autoAdvance, ckbAdvance.Value()); });
    connect(&cmdOK, &forms::Control::Clicked, this, [this] { cmdOK_Click(); });
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
}

void frm_Comment::Form_Load()
{
    ckbAlphabetic.SetValue(m_globals.sortComments == 1);
    ckbAdvance.SetValue(m_globals.autoAdvance != 0);
    InitializeCkboxes();
    if (ckbAlphabetic.Value())
        lstSort();
    txtAddComment.SetFocus();
    txtAddComment.SelectAll();
}

void frm_Comment::SetLimits(int phraseSize, int capacity)
{
    m_capacity = capacity;
    txtAddComment.SetMaxLength(phraseSize);
    for (int i = 0; i < kKeys; ++i)
        txtFKey(i).SetMaxLength(phraseSize);
}

void frm_Comment::InitializeFKeys(const QStringList& phrases)
{
    for (int i = 0; i < kKeys; ++i)
        txtFKey(i).SetText(phrases.value(i));
}

void frm_Comment::LoadListArray(const QStringList& phrases)
{
    lstComment.Clear();
    for (const QString& phrase : phrases)
        lstComment.AddItem(phrase);
    if (lstComment.ListCount() > 0)
        lstComment.SetListIndex(0);
}

bool frm_Comment::FKeyAnyOn() const
{
    return FKeyWhichIsOn() >= 0;
}

int frm_Comment::FKeyWhichIsOn() const
{
    for (int i = 0; i < kKeys; ++i)
        if (optGet(i).Value())
            return i;
    return -1;
}

void frm_Comment::InitializeCkboxes()
{
    for (int i = 0; i < kKeys; ++i) {
        optRead(i).SetValue(false);
        optGet(i).SetValue(false);
    }
}

void frm_Comment::optRead_Click(int index)
{
    InitializeCkboxes();
    txtAddComment.SetText(txtFKey(index).Text());
}

void frm_Comment::optGet_Click()
{
    if (!FKeyAnyOn())
        return;
    forms::TextBox& key = txtFKey(FKeyWhichIsOn());
    InitializeCkboxes();
    const QString old = text::Trim(key.Text());
    if (!old.isEmpty() && !m_ports.prompter.YesNo(store::kPlainTitle, kOverwriteInList.arg(old)))
        return;
    key.SetText(txtAddComment.Text());
}

void frm_Comment::lstComment_Click()
{
    const QString phrase = lstComment.List(lstComment.ListIndex());
    if (!phrase.isEmpty())
        txtAddComment.SetText(phrase);
}

void frm_Comment::AddTheItem()
{
    const QString phrase = text::Trim(txtAddComment.Text());
    const int selected = lstComment.ListIndex();
    if (selected >= 0 && phrase == text::Trim(lstComment.List(selected)))
        return;
    if (!phrase.isEmpty() && common::FindInList(lstComment, phrase, common::Case::Matters) >= 0) {
        lblmsg.Show(kAlreadyExists.arg(phrase), forms::Colour::Red);
        return;
    }
    if (lstComment.ListCount() >= m_capacity) {
        lblmsg.Show(kListFull.arg(m_capacity), forms::Colour::Red);
        return;
    }
    const int place = selected < 0 ? lstComment.ListCount() : selected;
    lstInsertRow(place, phrase);
    lstComment.SetListIndex(place);
    if (ckbAlphabetic.Value())
        lstSort();
    lblmsg.Show(QString(), forms::Colour::Normal);
}

void frm_Comment::lstInsertRow(int index, const QString& text)
{
    lstComment.AddItem(text);
    for (int row = lstComment.ListCount() - 1; row > index; --row)
        lstComment.SetItem(row, lstComment.List(row - 1));
    lstComment.SetItem(index, text);
}

void frm_Comment::cmdDeleteRow_Click()
{
    const int selected = lstComment.ListIndex();
    if (selected < 0)
        return;
    const QString phrase = text::Trim(lstComment.List(selected));
    if (!phrase.isEmpty() && !m_ports.prompter.YesNo(store::kPlainTitle, kDeletePhrase.arg(phrase)))
        return;
    lstDeleteRow(selected);
    lblmsg.Show(QString(), forms::Colour::Normal);
}

void frm_Comment::lstDeleteRow(int index)
{
    lstMoveTheItemsUp(index);
    if (lstComment.ListCount() > 0)
        lstComment.SetListIndex(std::min(index, lstComment.ListCount() - 1));
}

void frm_Comment::lstMoveTheItemsUp(int index)
{
    for (int row = index; row + 1 < lstComment.ListCount(); ++row)
        lstComment.SetItem(row, lstComment.List(row + 1));
    lstComment.RemoveItem(lstComment.ListCount() - 1);
}

void frm_Comment::ckbAlphabetic_Click()
{
    if (ckbAlphabetic.Value())
        lstSort();
    Store("SORTCOMMENTS", m_globals.sortComments, ckbAlphabetic.Value());
}

void frm_Comment::LstCopyEliminateBlankItems()
{
    lstSorted.Clear();
    for (const QString& phrase : lstComment.Items())
        if (!text::Trim(phrase).isEmpty())
            lstSorted.AddItem(phrase);
}

void frm_Comment::lstSort()
{
    const QString selected = lstComment.List(lstComment.ListIndex());
    LstCopyEliminateBlankItems();
    QStringList sorted = lstSorted.Items();
    std::stable_sort(sorted.begin(), sorted.end(), [](const QString& left, const QString& right) {
        return left.compare(right, Qt::CaseInsensitive) < 0;
    });
    lstSorted.Clear();
    for (const QString& phrase : std::as_const(sorted))
        lstSorted.AddItem(phrase);
    LoadListArray(sorted);
    if (const auto row = sorted.indexOf(selected); row >= 0)
        lstComment.SetListIndex(static_cast<int>(row));
}

void frm_Comment::lstLoadArray()
{
    g_CommentList.clear();
    for (int i = 0; i < kKeys; ++i)
        g_CommentList.append(text::Trim(txtFKey(i).Text()));
    for (const QString& phrase : lstComment.Items())
        if (!text::Trim(phrase).isEmpty())
            g_CommentList.append(phrase);
    g_CommentList.resize(lstComment.ListCount() + kKeys);
}

void frm_Comment::cmdOK_Click()
{
    const QString phrase = text::Trim(txtAddComment.Text());
    g_CommentResult = m_globals.caps == u"0"_s ? phrase : phrase.toUpper();
    lstLoadArray();
    Unload();
}

void frm_Comment::Store(const char* key, int& value, bool on)
{
    const common::SettingRow* row = common::FindSetting(u"PREFERENCES"_s, QLatin1StringView(key));
    Q_ASSERT(row);
    value = on ? 1 : 0; // good for this run even if the file can't be written
    common::WriteSetting(*row, on ? u"1"_s : u"0"_s, m_globals, m_disk);
}

} // namespace vasclip::comments
