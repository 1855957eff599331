#pragma once

#include "forms/screen.h"
#include "map/map_desk.h"
#include "map/map_rows.h"
#include "platform/street/map_import.h"

namespace vasclip::map {

/// What the screen of the maps works on.
struct MapDataDesk
{
    MapDesk& map;
    QString directory; ///< of the maps, native
    QString shown;     ///< the same as a drive path
    CheckedMaps& checked; ///< as long as the program runs
    std::function<void()> changed; ///< other maps are in use now
};

/// Street maps: which there are, new ones from public files, and what these would change.
class frm_MapData : public forms::Screen
{
public:
    explicit frm_MapData(const MapDataDesk& desk);

    forms::Label lblDirectory, lblTotal;
    forms::Grid grdmaps;
    forms::Button cmdVerify, cmdRemove;
    forms::ListBox lstsources;
    forms::Button cmdFile, cmdFolder, cmdTakeOut;
    forms::TextBox txtcounty, txtstate;
    forms::CheckBox ckbBeside;
    forms::Button cmdImport;
    forms::Label lblBeside; ///< which new maps wait
    forms::Button cmdDiff, cmdUse, cmdDiscard;
    forms::Label lblAccount;
    forms::ListBox lstaccount;
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdStop, cmdExit;

    void cmdImport_Click();
    void cmdVerify_Click();
    void cmdRemove_Click();
    void cmdDiff_Click();
    void cmdUse_Click();
    void cmdDiscard_Click();

    /// Lines of an account that are shown; the file has them all.
    static constexpr int kShownLines = 5000;

protected:
    void Form_Load() override;
    bool QueryUnload() override;
    void Form_Unload() override;

private:
    class Work;

    void AddSource(const QString& drivePath);
    void Reload();
    void EnableButtons();
    /// Shows a step and turns the queue. @return false once a stop was wanted
    bool Step(qint64 done, qint64 of, const QString& words);
    void Tell(const QString& words, forms::Colour colour);
    void ShowLines(const QString& heading, const QStringList& lines);
    void ShowImport(const street::ImportResult& result, const QString& account);
    [[nodiscard]] QString Selected() const;

    MapDataDesk m_desk;
    MapRows m_rows;
    bool m_busy = false;
    bool m_stop = false;
};

} // namespace vasclip::map
