#pragma once

#include "forms/screen.h"
#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// Runs the work with its failures reported. A Databook that somebody keeps locked is told and ends nothing.
/// @return false after a failure
bool ReportedUnlessLocked(forms::Prompter& prompter, const char* routine, const std::function<void()>& work);

/// What the screens of export and import have in common: a directory with its databases, the tables of one of them,
/// and what is deleted there. Long work has a gauge and a button that stops it.
class FileScreen : public forms::Screen
{
public:
    forms::TextBox txtPath, txtFileName, txtTable;
    forms::ListBox filexport, lstTables;
    forms::Label lblRecordCount;
    forms::CheckBox ckbCopy;
    forms::Button cmdDelete, cmdDeleteDatabase, cmdBrowse;
    forms::Label lblAccount;
    forms::ListBox lstaccount; ///< what the work left out, line by line
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdStop, cmdExit;

    void cmdDelete_Click();
    void cmdDeleteDatabase_Click();
    void cmdBrowse_Click();
    void txtPath_LostFocus();

protected:
    FileScreen(const QString& name, const TransferDesk& desk);

    [[nodiscard]] const TransferDesk& Desk() const { return m_desk; }
    [[nodiscard]] forms::Prompter& Prompter() const { return m_desk.ports.prompter; }
    /// The file that the boxes name: the path with its backslash, and the name.
    [[nodiscard]] QString File() const;
    void ListFiles();
    /// @param selected  table to select, else the first
    void ListFileTables(const QString& selected = {});
    /// Both of them behind some work, whose words stay.
    void ListAgain(const QString& selected = {});
    /// Does the table box take a table of the file where it names none of them?
    void SetTakesListedTable(bool takes) { m_takesListed = takes; }
    /// Are text and spreadsheet files listed and taken beside databases?
    void SetTakesLists(bool takes) { m_takesLists = takes; }
    /// Do the boxes name such a file?
    [[nodiscard]] bool NamesList() const;
    /// Another directory or another name was chosen.
    void GoTo(const QString& directory, const QString& fileName);
    void Tell(const QString& words, forms::Colour colour = forms::Colour::Blue);
    void TellOutcome(bool done, const QString& words, forms::Colour colour);
    void ShowAccount(const QString& heading, const QStringList& lines);
    /// Makes a directory with those above it. @throws RuntimeError of the disk
    void MakeDirectories(const QString& path) const;

    /// Runs long work under the common error reporter: the buttons wait meanwhile, whatever ends it. A Databook that
    /// somebody keeps locked is told and does not end the program: nothing was stored, and nothing is corrupt.
    /// @return false if an error ended it
    bool Run(const char* routine, const std::function<void(const WorkStep& step)>& work);
    [[nodiscard]] bool Busy() const { return m_busy; }
    /// The buttons of the screen itself follow.
    virtual void EnableButtons(bool free) = 0;
    /// Of a file that is gone, before anything is deleted in it. @return true if it was told and is over
    virtual bool RefusesMissing(const QString& file) = 0;
    bool IsGone(const QString& file); ///< the same, and the lists follow
    bool QueryUnload() override;

private:
    void TellOfListing(const QString& words);
    void ForgetOtherFile();
    void TakeFile();
    void TakeTable();
    bool ShowCount();
    void SetBusy(bool busy);

    TransferDesk m_desk;
    bool m_busy = false;
    bool m_stop = false;
    bool m_asking = false;
    QString m_toldOf; ///< the file that the boxes named when something was told; "" for what was done
    QString m_damage; ///< what the listing found wrong with the file
    QString m_listed; ///< what the listing has told of that file, and stands there still
    QString m_left; ///< what stood in the path's box when it was left the last time
    bool m_takesListed = false;
    bool m_takesLists = false;
    bool m_listsAgain = false;
    bool m_listing = false; ///< the list is filled: what it selects then is not the user's choice
};

} // namespace vasclip::upkeep
