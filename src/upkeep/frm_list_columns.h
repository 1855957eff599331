#pragma once

#include "forms/screen.h"
#include "upkeep/list_presets.h"
#include "upkeep/list_preview.h"

#include <memory>

namespace vasclip::upkeep {

/// Where the columns of a list go and how its values are written, with the first lines as they would come in.
class frm_ListColumns : public forms::Screen
{
public:
    /// @param sheet  of a spreadsheet file, "" for its first
    frm_ListColumns(const TransferDesk& desk, std::shared_ptr<const ListFile> file, const QString& sheet);

    forms::Label lblSource;
    forms::ComboBox cboSheet, cboDelimiter, cboCodePage, cboDates, cboDecimal;
    forms::TextBox txtHeadings; ///< the line that they stand in
    forms::ComboBox cboPreset;
    forms::Button cmdKeep, cmdForget;
    forms::Grid grdcolumns;
    forms::ComboBox cboField; ///< of the column on which the grid stands
    forms::Grid grdlines;
    forms::Label lblFaults;
    forms::ListBox lstfaults;
    forms::Label lblmsg;
    forms::Button cmdGo, cmdExit;

    void cmdGo_Click();
    void cmdKeep_Click();
    void cmdForget_Click();
    /// Was the list taken on, and not left?
    [[nodiscard]] bool Accepted() const { return m_accepted; }
    [[nodiscard]] const ListLook& Look() const { return m_look; }

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void FillChoices();
    /// Looks again with another choice about what the lines are. @return false, told, where it can't be read so
    bool Propose(const ListChoice& choice);
    void Listen();
    bool Repropose(ListChoice choice);
    [[nodiscard]] ListChoice Lines() const;
    void ShowLook();
    void ShowPreview();
    void ShowField();
    void StandOnColumn();
    void TakeField();
    void GuessAgain();
    void ShowWriting();
    bool TakeHeadings();
    void TakePreset();
    void ShowPresets(const QString& selected);
    void Tell(const QString& words, forms::Colour colour);

    TransferDesk m_desk;
    std::shared_ptr<const ListFile> m_file;
    ListLook m_look;
    QList<ListColumn> m_before; ///< the columns when the grid came to stand where it is
    ListSample m_sample;
    ListPreview m_preview;
    ColumnRows m_columns;
    PreviewRows m_lines;
    QStringList m_fields; ///< behind the lines of cboField
    QString m_sheet;
    bool m_datesOpen = false;
    bool m_datesSaid = false; ///< by the user; no value changes it then
    bool m_decimalSaid = false;
    bool m_showing = false; ///< the boxes take what is, not what the user chose
    bool m_accepted = false;
};

} // namespace vasclip::upkeep
