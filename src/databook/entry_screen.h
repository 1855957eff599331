#pragma once

#include "comments/comment_port.h"
#include "databook/entry_forms.h"
#include "databook/entry_record.h"
#include "databook/entry_twin.h"
#include "forms/screen.h"

#include <memory>
#include <optional>

namespace vasclip::databook {

/// A box of an entry screen with its calendar icon and the words about its text, if it has them.
struct EntryBox
{
    EntryBox(forms::ControlSet& set, const EntryField& row);
    const EntryField& row;
    QString field; ///< the data field behind the box
    forms::TextBox box;
    std::optional<forms::PictureBox> calendar;
    std::optional<FieldNote> note;
};

/// An entry screen: frm_CompMnt1, frm_CompMnt2, frm_CompMntC, frm_CompMntS, frm_CompMntR, frm_CompMntL or
/// frm_CompMntM, by its form. The second page works on the same record as the first and is opened by it.
class EntryScreen : public forms::Screen, public comments::EntryKeys
{
public:
    /// All outlive the screen.
    EntryScreen(const EntryDesk& desk, const EntryForm& form, EntryRecord& record);

    forms::Label lblCentralKey, lblPriceGla, lblmsg;
    forms::Button cmdSave, cmdCancel, cmdExit;
    std::optional<forms::Button> cmdPage2, cmdPage1; ///< the one that leads to the other page
    std::optional<forms::ComboBox> cboCity;          ///< on a form with a city

    [[nodiscard]] const EntryForm& Form() const { return m_form; }
    [[nodiscard]] const std::vector<std::unique_ptr<EntryBox>>& Boxes() const { return m_boxes; }
    [[nodiscard]] forms::TextBox* Box(QLatin1StringView field) const; ///< nullptr if it is not on this form
    /// The user is done with the record, not only with this page.
    [[nodiscard]] bool Ended() const { return m_ended; }

    /// The frame of the phrase keys, whose buttons stand in this window too; nullptr without phrases.
    [[nodiscard]] forms::Screen* Companion() override;

    void SendKey(forms::TextBox& field, int keyCode, int shift) override;

protected:
    void Form_Load() override;
    bool QueryUnload() override;

private:
    void Wire(EntryBox& box);
    void ShowTexts();
    void ShowPriceGla();
    void Validate();
    void DisableFKeys();
    void Entered(EntryBox& box);
    void Left(EntryBox& box);
    void TextChanged(EntryBox& box);
    void Settle(EntryBox& box);
    void SettleAll();
    void SettleNumber(EntryBox& box);
    void SettleLoadDate(EntryBox& box);
    void ErrtxtSaleDate_LostFocus(EntryBox& box);
    void ShowNotes();
    void PutQuietly(EntryBox& box, const QString& text);
    void BringBack(EntryBox& box);
    [[nodiscard]] bool MayLoseDates();
    void Calendar(EntryBox& box);
    [[nodiscard]] bool KeyDown(EntryBox& box, int keyCode, int shift);
    void Recalculate();
    [[nodiscard]] bool MayStore();
    void TellOutcome(Stored stored);
    void cboCity_Click();
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdExit_Click();
    void cmdPage2_Click();

    const EntryDesk& m_desk;
    const EntryForm& m_form;
    EntryRecord& m_record;
    std::vector<std::unique_ptr<EntryBox>> m_boxes;
    std::unique_ptr<EntryTwin> m_twin; ///< on a form with an address
    std::pair<QString, QString> m_ageFrom; ///< year built and sale date of the age on show
    bool m_showing = false; ///< the texts come from the record or a rule, not from the user
    bool m_ended = false;
};

} // namespace vasclip::databook
