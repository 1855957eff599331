#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "platform/files/disk.h"

#include <optional>

namespace vasclip::comments {

/// The library of one field: its six keys and its free list. It works on a copy; OK hands the copy and the
/// chosen phrase back, Cancel neither.
class frm_Comment : public forms::Screen
{
    Q_OBJECT
public:
    frm_Comment(const forms::Ports& ports, common::Globals& globals, const files::Disk& disk);

    forms::TextBox txtAddComment;
    forms::ControlArray<forms::TextBox> txtFKey;
    forms::ControlArray<forms::CheckBox> optRead; ///< the key's phrase to txtAddComment
    forms::ControlArray<forms::CheckBox> optGet;  ///< txtAddComment to the key
    forms::ListBox lstComment;
    forms::ListBox lstSorted; ///< the sorted copy, hidden
    forms::CheckBox ckbAlphabetic;
    forms::CheckBox ckbAdvance;
    forms::Button cmdRead, CmdInsertRow, cmdDeleteRow, cmdOK, cmdCancel;
    forms::Label lblmsg;

    /// After OK: the six keys, then the phrases of the list; as long as the list had rows, and six.
    QStringList g_CommentList;
    /// After OK: the chosen phrase, in upper case unless CAPS is "0".
    std::optional<QString> g_CommentResult;

    /// @param phraseSize  characters that a phrase may have, 0 for any number
    /// @param capacity    phrases that the list can hold
    void SetLimits(int phraseSize, int capacity);
    void InitializeFKeys(const QStringList& phrases);
    void LoadListArray(const QStringList& phrases); ///< fills the list and selects its first row

    void AddTheItem(); ///< txtAddComment into the list, at the selected row
    [[nodiscard]] bool FKeyAnyOn() const;
    [[nodiscard]] int FKeyWhichIsOn() const; ///< of optGet; -1 for none
    void InitializeCkboxes();                ///< takes all options back
    void lstInsertRow(int index, const QString& text);
    void lstDeleteRow(int index);
    void lstMoveTheItemsUp(int index); ///< the rows behind `index` move up by one, the last one goes
    void LstCopyEliminateBlankItems(); ///< lstComment without blank rows to lstSorted
    void lstSort();
    void lstLoadArray(); ///< builds g_CommentList

    void ckbAlphabetic_Click();
    void cmdOK_Click();

protected:
    void Form_Load() override;

private:
    void optRead_Click(int index);
    void optGet_Click();
    void lstComment_Click();
    void cmdDeleteRow_Click();
    void Store(const char* key, int& value, bool on);

    forms::Ports m_ports;
    common::Globals& m_globals;
    const files::Disk& m_disk;
    int m_capacity = 0;
};

} // namespace vasclip::comments
