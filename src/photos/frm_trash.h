#pragma once

#include "forms/multi_list.h"
#include "forms/screen.h"
#include "photos/dir_lists.h"
#include "photos/trash.h"

namespace vasclip::photos {

/// Empties trash directories, or brings pictures back from them.
class frm_Trash : public forms::Screen
{
public:
    /// Lets the user choose the date of a text box in a calendar.
    using Calendar = std::function<void(forms::TextBox& box, const QString& title)>;

    frm_Trash(const TrashDesk& desk, SlotLoader& loader, Calendar calendar);

    DirLists folders; ///< DrvCapture, dirCapture
    forms::ListBox filFilename; ///< hidden: the names that lstfiles is made of
    forms::MultiListBox lstfiles;
    forms::PictureBox geatrashcan;
    forms::Label lblDeleteDate;
    forms::TextBox txtDeleteDate;
    forms::PictureBox imaDeleteCal;
    forms::Button cmdClearAll, cmdSelectDate, cmdSelectAll, cmdDelete, cmdRestore, cmdExit;
    forms::Gauge gauTrash;
    forms::Label lblCount, lblmsg;

    /// Opens another directory. @return false if there is none
    bool ShowDirectory(const QString& path) { return folders.GoTo(path); }

    void cmdSelectDate_Click();
    void cmdDelete_Click();
    void cmdRestore_Click();

protected:
    void Form_Load() override;
    bool QueryUnload() override;
    void Form_Unload() override;

private:
    void Reload();
    void lstfiles_Click();
    void ShowCount();
    [[nodiscard]] QList<TrashedFile> SelectedPictures() const;

    TrashDesk m_desk;
    SlotLoader& m_loader;
    Calendar m_calendar;
    QString m_shown; ///< the directory that lstfiles shows, upper-cased
    QList<TrashedFile> m_files;
    bool m_busy = false;
    bool m_stop = false;
};

} // namespace vasclip::photos
