#pragma once

#include "forms/screen.h"
#include "upkeep/archive_records.h"
#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// Moves the records of a range of sale dates out of the Databook into an archive.
class frm_Archive : public forms::Screen
{
public:
    /// @param letGo      lets go of the records that are on show
    /// @param showAgain  shows them again
    frm_Archive(const TransferDesk& desk, std::function<void()> letGo, std::function<void()> showAgain);

    forms::TextBox txtPath, txtFileName, txtTable;
    forms::ListBox fildatabases; ///< hidden: what the directory has
    forms::ListBox lstdatabases, lstTables;
    forms::CheckBox ckbDateStamp;
    forms::ControlArray<forms::CheckBox> optduplicates; ///< don't prompt, prompt for overwrite
    forms::TextBox txtstartdate, txtenddate;
    forms::PictureBox imastart, imastop;
    forms::Label lblRange; ///< which records the dates mean
    forms::Button cmdarchive, cmdcreate, cmddelete, cmdBrowse;
    forms::Label lblCountMoved, lblCountOverwritten;
    forms::Label lblAccount;
    forms::ListBox lstaccount; ///< records of these dates that stay
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdStop, cmdExit;

    void cmdarchive_Click();
    void cmdcreate_Click();
    void cmddelete_Click();
    void cmdBrowse_Click();

protected:
    void Form_Load() override;
    bool QueryUnload() override;

private:
    class Work;

    [[nodiscard]] QString File() const;
    [[nodiscard]] forms::Prompter& Prompter() const { return m_desk.ports.prompter; }
    void Tell(const QString& words, forms::Colour colour = forms::Colour::Blue);
    void StampName();
    void TakeFile();  ///< that is selected in the list
    void TakeTable();
    void ListFiles();
    void ListFileTables();
    void ListAgain();
    void TellOfListing(const QString& words);
    void ForgetOtherFile();
    void GoTo(const QString& path);
    void ShowRange();
    void ShowCounts(const Archived& done);
    void EnableButtons();
    /// The date that was typed in a box; an empty one stands for the day of a pending sale.
    [[nodiscard]] static QString DateOf(const QString& typed);
    [[nodiscard]] bool DatesAreGood();
    [[nodiscard]] bool PrepareTarget(const QString& target);
    [[nodiscard]] bool BeginAnew(const QString& target);
    void ShowAgain();
    void Archive(const QString& target, const QString& table);

    TransferDesk m_desk;
    std::function<void()> m_letGo, m_showAgain;
    QString m_base;    ///< the file's name without a stamp
    QString m_toldOf;  ///< the file that the boxes named when something was told
    QString m_stamped; ///< what the stamp made of it
    bool m_busy = false;
    bool m_stop = false;
    bool m_listing = false;
    bool m_listsAgain = false;
};

} // namespace vasclip::upkeep
