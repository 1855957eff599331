#pragma once

#include "forms/multi_list.h"
#include "forms/screen.h"
#include "photos/card_copy.h"
#include "photos/dir_lists.h"
#include "photos/pointed_file.h"
#include "photos/slots.h"

#include <QHash>
#include <QTimer>

namespace vasclip::photos {

/// Copies pictures from a card, a disc or any directory into `CAPTUREDIR`.
class frm_CopyPics : public forms::Screen
{
public:
    /// @param settings  PREVIEWCOPYPICS and LASTCOPY are kept there, and written to the ini file
    /// @param word      the device that the menu names: FLOPPY, REMOVABLE, ROM
    frm_CopyPics(const CopyDesk& desk, common::Globals& settings, SlotLoader& loader, const QString& word,
                 const QString& caption);

    DirLists folders; ///< NewDrive, newPath
    forms::MultiListBox filListBox;
    forms::CheckBox ckbPicPreview;
    forms::PictureBox geaPreview;
    forms::Button cmdSelectAll, cmdClear, cmdCopy, Command2;
    forms::Gauge gauCopy;
    forms::Label lblCount, lblmsg;

    /// What was done, for the status line; "" if nothing was.
    [[nodiscard]] const QString& Done() const { return m_done; }

    void cmdCopy_Click();
    void TimerROM_Timer(); ///< looks whether a medium that did not answer is there now
    [[nodiscard]] bool Polling() const { return m_timerROM.isActive(); }

    static constexpr int kPollMilliseconds = 2000;

protected:
    void Form_Load() override;
    bool QueryUnload() override;
    void Form_Unload() override;

private:
    void ListFiles();
    void ShowPreview();
    void ShowCount();
    void PointAtSelected();
    [[nodiscard]] QString WhyAnotherSelected() const;
    void WithoutPreview(const std::function<void()>& select);
    void Poll(const QString& directory);
    [[nodiscard]] QStringList Wanted() const;

    CopyDesk m_desk;
    common::Globals& m_settings;
    SlotLoader& m_loader;
    QString m_word;
    QHash<QString, PointedFile> m_pointed; ///< the selected photos as they were when they were selected
    QString m_done;
    QString m_awaited; ///< the directory that TimerROM looks for
    QTimer m_timerROM;
    bool m_selecting = false;
    bool m_busy = false;
    bool m_stop = false;
};

} // namespace vasclip::photos
