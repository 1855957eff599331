#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "photos/dir_lists.h"
#include "photos/picture_search.h"

namespace vasclip::photos {

/// Finds directories that hold pictures, so that one becomes the capture directory, and what records and
/// photo store have lost of each other.
class frm_SearchPics : public forms::Screen
{
public:
    /// Lines about records whose files are gone and files that no record names.
    /// @param goOn  false ends the search early
    using Orphans = std::function<QStringList(const std::function<bool()>& goOn)>;

    frm_SearchPics(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                   Orphans orphans);

    DirLists folders; ///< drive, dir
    forms::ListBox files;
    forms::TextBox txtPictureType, txtAfter;
    forms::Label lblAfter;
    forms::ListBox lstfoundfiles; ///< hidden: rows with their ages, newest first
    forms::ListBox lstdirectory2; ///< the same as shown
    forms::ControlArray<forms::CheckBox> optSearch;
    forms::Button cmdSearch, cmdCancel;
    forms::Label lblSelect, lblRecent, lbldirectory, lblmsg;

    enum Search { OrphanSearch, TimeSearch, CurrentPath, WholeSearch };

    /// The directory that was chosen, with a backslash at its end; "" if none was.
    [[nodiscard]] const QString& Chosen() const { return m_chosen; }
    /// Rows that the list takes; a test may ask for fewer.
    void SetListLimit(int rows) { m_listLimit = rows; }

    void cmdSearch_Click();

protected:
    void Form_Load() override;
    bool QueryUnload() override;

private:
    void Choose(int option);
    [[nodiscard]] Search Option() const;
    void ListFiles();
    void lstdirectory2_Click();
    void SearchDirectories(const SearchWish& wish);
    void SearchOrphans();
    bool Take(const FoundDirectory& found, const QDateTime& now);
    void ShowFound();

    forms::Ports m_ports;
    const files::Disk& m_disk;
    const common::Globals& m_globals;
    Orphans m_orphans;
    QStringList m_rows; ///< newest first
    bool m_showsOrphans = false;
    QString m_chosen;
    int m_listLimit = 32767;
    bool m_busy = false;
    bool m_stop = false;
    bool m_full = false;
};

} // namespace vasclip::photos
