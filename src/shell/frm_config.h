#pragma once

#include "forms/ports.h"
#include "forms/screen.h"
#include "platform/engine/database.h"
#include "shell/config_fields.h"

#include <memory>
#include <vector>

namespace vasclip::shell {

/// The settings screen: edits the globals and writes them to VAS2000.INI.
///
/// Its controls come from ConfigFields(); each is found under its fixed name in `controls`. Nothing reaches
/// the globals before it has been written.
class frm_Config : public forms::Screen
{
    Q_OBJECT
public:
    /// One field of the screen with its controls; those that its kind does not have are null.
    struct Field
    {
        const ConfigField& about;
        std::unique_ptr<forms::TextBox> text;
        std::unique_ptr<forms::CheckBox> check;
        std::vector<std::unique_ptr<forms::CheckBox>> options;
        std::unique_ptr<forms::Label> note;    ///< what is wrong with the text, beside it
        std::unique_ptr<forms::Button> browse; ///< chooses the directory
        bool found = true;                     ///< by the search
    };

    /// All of it outlives the screen.
    frm_Config(engine::Engine& engine, const forms::Ports& ports, common::Globals& globals);

    forms::TabControl SSConfig;
    forms::TextBox txtFind; ///< finds settings by their labels
    forms::Label lblFind;   ///< how many it found
    forms::Button cmdResetSize, CmdOK, cmdCancel, cmdSave;

    [[nodiscard]] const std::vector<Field>& Fields() const { return m_fields; }
    [[nodiscard]] bool HasChanged() const { return m_changed; }
    /// Does the user want the main window back at its design size?
    [[nodiscard]] bool ResetWanted() const { return m_resetWanted; }

    /// Writes the settings. @return false if that failed, which has been told; the globals are then as they
    /// were
    bool Save();
    /// The focus to the first setting that the search found, on its page.
    void GoToFound();

Q_SIGNALS:
    void Searched(); ///< `found` of the fields is set anew

protected:
    void Form_Load() override;
    bool QueryUnload() override;

private:
    void MakeControls();
    void Wire(Field& field);
    void LoadControls();
    void Touched(Field& field);
    void CheckNumber(Field& field, bool leaving);
    void Leave(Field& field);
    void txtProgramDir_LostFocus(Field& field);
    void ckbShare_Click(forms::CheckBox& box);
    void Browse(Field& field);
    void txtFind_Change();
    void cmdResetSize_Click();
    void cmdCancel_Click();
    [[nodiscard]] QString TextOf(const Field& field) const;
    [[nodiscard]] QString Refusal(const Field& field) const;
    void Write();

    engine::Engine& m_engine;
    forms::Ports m_ports;
    common::Globals& m_globals;
    std::vector<Field> m_fields;
    bool m_changed = false;
    bool m_loading = false;  ///< the controls are being filled, the user does nothing
    bool m_checking = false; ///< a box about a field is open, and moves the focus itself
    bool m_resetWanted = false;
};

} // namespace vasclip::shell
