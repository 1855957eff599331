#pragma once

#include "common/globals.h"
#include "common/ini_list.h"
#include "forms/ports.h"
#include "forms/screen.h"
#include "photos/dir_lists.h"

namespace vasclip::photos {

/// Chooses the directory of the capture browser and keeps favourites.
class frm_CameraDir : public forms::Screen
{
    Q_OBJECT
public:
    /// Disk and globals outlive the screen.
    /// @param programDir  the default directory lies on its drive
    frm_CameraDir(const forms::Ports& ports, const files::Disk& disk, common::Globals& globals,
                  const QString& programDir);

private:
    DirLists m_lists;

public:
    forms::ComboBox& DrvCapture = m_lists.drives;
    forms::ListBox& dirCapture = m_lists.directories;
    forms::ListBox lstFavorites;
    forms::Label lbldirectory;
    forms::Button cmdOK, cmdCancel, cmdSetDefault, cmdRevDefault, cmdFavorites, cmdDelFavorite;

    /// Where the favourites stand.
    [[nodiscard]] static common::IniListPlace Favorites(const common::Globals& globals);
    /// True once CAPTUREDIR has been set.
    [[nodiscard]] bool Changed() const { return m_changed; }

    void cmdOK_Click();
    void cmdSetDefault_Click();
    void cmdRevDefault_Click();
    void cmdFavorites_Click();
    void cmdDelFavorite_Click();
    void lstFavorites_Click();

protected:
    void Form_Load() override;

private:
    void GoOrTell(const QString& directory);
    forms::Ports m_ports;
    const files::Disk& m_disk;
    common::Globals& m_globals;
    QString m_programDir;
    bool m_changed = false;
};

} // namespace vasclip::photos
