#include "shell/frm_config.h"

#include "comments/comment_file.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/call_errors.h"
#include "platform/text/text.h"
#include "shell/config_messages.h"
#include "store/messages.h"

#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::shell {

using common::RoutineScope;
using common::SettingText;
using store::kPlainTitle;

namespace {

/// Is a setting on whose text in the ini is this? A flag of one character is on unless it is "0".
bool IsOn(const common::SettingRow& row, const QString& text)
{
    if (row.rule == common::ReadRule::OneCharacter)
        return text != u"0"_s;
    return text == u"ON"_s || text::Val(text) != 0;
}

QString FlagText(const common::SettingRow& row, bool on)
{
    const bool words = row.rule == common::ReadRule::OnUnlessOff || row.rule == common::ReadRule::OffUnlessOn;
    if (words)
        return on ? u"ON"_s : u"OFF"_s;
    return on ? u"1"_s : u"0"_s;
}

QString FoldedDirectory(QString path)
{
    return text::Folded(common::StripRChar(path));
}

} // namespace

frm_Config::frm_Config(engine::Engine& engine, const forms::Ports& ports, common::Globals& globals)
    : Screen(u"frm_Config"_s)
    , SSConfig(controls, u"SSConfig"_s, PageCaptions())
    , txtFind(controls, u"txtFind"_s)
    , lblFind(controls, u"lblFind"_s)
    , cmdResetSize(controls, u"cmdResetSize"_s)
    , CmdOK(controls, u"CmdOK"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , cmdSave(controls, u"cmdSave"_s)
    , m_engine(engine)
    , m_ports(ports)
    , m_globals(globals)
{
    SetCaption(u"Configuration"_s);
    cmdResetSize.SetCaption(u"Reset Form Size"_s);
    CmdOK.SetCaption(u"&Exit"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    cmdSave.SetCaption(u"&Save"_s);
    MakeControls();
    for (Field& field : m_fields)
        Wire(field);
    connect(&txtFind, &forms::TextBox::TextChanged, this, &frm_Config::txtFind_Change);
    connect(&txtFind, &forms::Control::KeyPressed, this, [this](int keyCode, int, bool& handled) {
        handled = keyCode == forms::kKeyReturn || keyCode == forms::kKeyDown;
        if (handled)
            GoToFound();
    });
    connect(&cmdResetSize, &forms::Control::Clicked, this, &frm_Config::cmdResetSize_Click);
    connect(&CmdOK, &forms::Control::Clicked, this, [this] { Unload(); });
    connect(&cmdCancel, &forms::Control::Clicked, this, &frm_Config::cmdCancel_Click);
    connect(&cmdSave, &forms::Control::Clicked, this, [this] { Save(); });
}

void frm_Config::MakeControls()
{
    int ordinal = 0;
    for (const ConfigField& about : ConfigFields()) {
        Field field{about, {}, {}, {}, {}, {}, true};
        switch (about.kind) {
        case ConfigKind::Check:
            field.check = std::make_unique<forms::CheckBox>(controls, about.control);
            field.check->SetCaption(about.label);
            break;
        case ConfigKind::Options:
            for (std::size_t i = 0; i < about.options.size(); ++i) {
                field.options.push_back(
                    std::make_unique<forms::CheckBox>(controls, about.control, static_cast<int>(i)));
                field.options.back()->SetCaption(about.options[i]);
            }
            break;
        case ConfigKind::Text:
        case ConfigKind::Number:
        case ConfigKind::Directory:
        case ConfigKind::ShownOnly:
            field.text = std::make_unique<forms::TextBox>(controls, about.control);
            field.text->SetLocked(about.kind == ConfigKind::ShownOnly);
            field.note = std::make_unique<forms::Label>(controls, u"lblNote"_s, ordinal);
            if (about.kind == ConfigKind::Directory) {
                field.browse = std::make_unique<forms::Button>(controls, u"cmdBrowse"_s, ordinal);
                field.browse->SetCaption(u"Browse..."_s);
                field.browse->SetToolTipText(u"Choose the directory for %1"_s.arg(about.Words()));
            }
            break;
        }
        m_fields.push_back(std::move(field));
        ++ordinal;
    }
}

void frm_Config::Wire(Field& field)
{
    if (field.text) {
        connect(field.text.get(), &forms::TextBox::TextChanged, this, [this, &field] { Touched(field); });
        connect(field.text.get(), &forms::Control::LostFocus, this, [this, &field] { Leave(field); });
    }
    if (field.browse)
        connect(field.browse.get(), &forms::Control::Clicked, this, [this, &field] { Browse(field); });
    if (field.check) {
        connect(field.check.get(), &forms::CheckBox::Toggled, this, [this, &field] {
            Touched(field);
            if (field.about.setting == common::SettingTarget(&common::Globals::share) && !m_loading)
                ckbShare_Click(*field.check);
        });
    }
    for (const auto& option : field.options) {
        connect(option.get(), &forms::Control::Clicked, this, [this, &field, chosen = option.get()] {
            chosen->SetValue(true);
            for (const auto& other : field.options) {
                if (other.get() != chosen)
                    other->SetValue(false);
            }
            Touched(field);
        });
    }
}

void frm_Config::Form_Load()
{
    const RoutineScope scope{"frm_Config_Load"};
    m_resetWanted = false;
    SSConfig.SetTab(0);
    LoadControls();
}

void frm_Config::LoadControls()
{
    {
        const QScopedValueRollback loading(m_loading, true);
        for (Field& field : m_fields) {
            const common::SettingRow& row = field.about.Row();
            const QString text = SettingText(row, m_globals);
            if (field.text)
                field.text->SetText(text);
            if (field.note)
                field.note->Show({}, forms::Colour::Normal);
            if (field.check)
                field.check->SetValue(IsOn(row, text));
            const int chosen = static_cast<int>(text::Val(text));
            for (int i = 0; i < static_cast<int>(field.options.size()); ++i) {
                if (i == chosen)
                    field.options[static_cast<std::size_t>(i)]->SetValue(true);
            }
            for (int i = 0; i < static_cast<int>(field.options.size()); ++i)
                field.options[static_cast<std::size_t>(i)]->SetValue(i == chosen);
        }
    }
    m_changed = false;
}

/// The text that the ini would hold for what the field shows now.
QString frm_Config::TextOf(const Field& field) const
{
    if (field.text)
        return field.text->Text();
    if (field.check)
        return FlagText(field.about.Row(), field.check->Value());
    const auto on = std::find_if(field.options.begin(), field.options.end(),
                                 [](const auto& option) { return option->Value(); });
    // A number that no option stands for stays as it is until the user chooses.
    return on == field.options.end() ? SettingText(field.about.Row(), m_globals)
                                     : QString::number(std::distance(field.options.begin(), on));
}

/// What is wrong with a field's text; "" if it can be saved.
QString frm_Config::Refusal(const Field& field) const
{
    const common::SettingRow& row = field.about.Row();
    if (field.about.kind == ConfigKind::Number) {
        const double value = text::Val(field.text->Text());
        return value >= row.range.lowest && value <= row.range.highest ? QString()
                                                                       : QString(field.about.refusal);
    }
    const bool typed = field.about.kind == ConfigKind::Text || field.about.kind == ConfigKind::Directory;
    return typed ? common::SettingRefusal(row, field.text->Text()).value_or(QString()) : QString();
}

void frm_Config::Touched(Field& field)
{
    if (m_loading)
        return;
    m_changed = true;
    if (!field.text)
        return;
    const bool watched = field.about.control == "txtPixelX"_L1 || field.about.control == "txtPixelY"_L1;
    if (watched)
        CheckNumber(field, false);
    else if (Refusal(field).isEmpty())
        field.note->Show({}, forms::Colour::Normal);
}

/// @param leaving  the focus goes back and the text is selected; while typing neither would let one type on
void frm_Config::CheckNumber(Field& field, bool leaving)
{
    const QString refusal = Refusal(field);
    field.note->Show(refusal, refusal.isEmpty() ? forms::Colour::Normal : forms::Colour::Red);
    if (refusal.isEmpty())
        return;
    const QScopedValueRollback checking(m_checking, true);
    m_ports.prompter.Box(kPlainTitle, refusal);
    if (!leaving)
        return;
    SSConfig.SetTab(static_cast<int>(field.about.page));
    field.text->SetFocus();
    field.text->SelectAll();
}

void frm_Config::Leave(Field& field)
{
    if (m_checking || m_loading || !IsOpen())
        return;
    const RoutineScope scope{"frm_Config_LostFocus"};
    if (field.about.kind == ConfigKind::Number)
        return CheckNumber(field, true);
    if (field.about.control == "txtProgramDir"_L1)
        txtProgramDir_LostFocus(field);
    const QString refusal = Refusal(field);
    field.note->Show(refusal, refusal.isEmpty() ? forms::Colour::Normal : forms::Colour::Red);
}

void frm_Config::txtProgramDir_LostFocus(Field& field)
{
    if (FoldedDirectory(field.text->Text()) == FoldedDirectory(m_globals.G_ProgramDir))
        return;
    const QScopedValueRollback checking(m_checking, true);
    if (!m_ports.prompter.YesNo(kPlainTitle, messages::kProgramDirQuestion.arg(m_globals.productName)))
        field.text->SetText(m_globals.G_ProgramDir);
}

void frm_Config::ckbShare_Click(forms::CheckBox& box)
{
    const RoutineScope scope{"ckbShare_Click"};
    const bool on = box.Value();
    bool done = false;
    try {
        common::Guarded(m_ports.prompter, [&] {
            if (!on)
                comments::TurnSharingOff(m_ports, m_engine, m_globals);
            done = !on || comments::TurnSharingOn(m_ports, m_engine, m_globals);
        });
    } catch (const RuntimeError& failure) {
        common::ReportError(m_ports.prompter, failure);
    }
    if (done)
        return;
    const QScopedValueRollback loading(m_loading, true);
    box.SetValue(!on);
}

void frm_Config::Browse(Field& field)
{
    const QString chosen = m_ports.prompter.ChooseDirectory(field.about.Words(), field.text->Text());
    if (chosen.isEmpty())
        return;
    field.text->SetText(common::CkRSlash(chosen));
    Leave(field);
}

bool frm_Config::Save()
{
    const RoutineScope scope{"cmdSave_Click"};
    cmdSave.SetEnabled(false);
    cmdCancel.SetEnabled(false);
    bool saved = false;
    try {
        saved = common::Guarded(m_ports.prompter, [this] { Write(); });
    } catch (const RuntimeError& failure) {
        common::ReportError(m_ports.prompter, failure);
    }
    cmdSave.SetEnabled(true);
    cmdCancel.SetEnabled(true);
    if (saved)
        m_changed = false;
    return saved;
}

void frm_Config::Write()
{
    common::Globals changed = m_globals;
    for (const Field& field : m_fields) {
        if (field.about.kind == ConfigKind::ShownOnly)
            continue;
        const common::SettingRow& row = field.about.Row();
        const QString refusal = Refusal(field);
        if (field.note)
            field.note->Show(refusal, refusal.isEmpty() ? forms::Colour::Normal : forms::Colour::Red);
        if (field.about.kind == ConfigKind::Number && !refusal.isEmpty())
            continue; // the old value stays
        if (!refusal.isEmpty()) {
            SSConfig.SetTab(static_cast<int>(field.about.page));
            field.text->SetFocus();
            throw RuntimeError(error::kInvalidCall, field.about.Words() + u": "_s + refusal + u". Nothing was saved"_s);
        }
        // While the trash is on show the screen shows the remembered directory, and saving must not leave it.
        const QString text = TextOf(field);
        if (FoldedDirectory(text) != FoldedDirectory(SettingText(row, m_globals)) ||
            row.rule != common::ReadRule::Directory)
            common::TakeSetting(row, text, changed);
    }
    if (changed.G_CaptureDir != m_globals.G_CaptureDir)
        changed.captureDirBeforeTrash = changed.G_CaptureDir;
    for (const common::SettingTarget& directory : ConfigDirectories())
        common::MakeDirectory(m_engine.Disk(), m_ports.prompter,
                              SettingText(*common::FindSetting(directory), changed));
    common::WriteSettings(ConfigWritingOrder(), changed, m_engine.Disk());
    changed.arrowsDir = common::ArrowsDirectory(changed.G_ProgramDir);
    m_globals = changed;
}

bool frm_Config::QueryUnload()
{
    if (!m_changed)
        return true;
    const RoutineScope scope{"frm_Config_Unload"};
    auto& prompter = m_ports.prompter;
    const QScopedValueRollback checking(m_checking, true);
    if (prompter.MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Information, messages::kSaveTitle,
                        messages::kSaveQuestion) == forms::Answer::Yes) // No loses what was typed
        return Save();
    prompter.Box(messages::kRestoredTitle, messages::kRestoredText);
    return true;
}

void frm_Config::cmdCancel_Click()
{
    cmdSave.SetEnabled(false);
    CmdOK.SetEnabled(false);
    LoadControls();
    cmdSave.SetEnabled(true);
    CmdOK.SetEnabled(true);
}

void frm_Config::cmdResetSize_Click()
{
    m_ports.prompter.Info(messages::kResetTitle, messages::kResetText);
    m_resetWanted = true;
}

void frm_Config::txtFind_Change()
{
    const QString wanted = text::Folded(txtFind.Text());
    const auto holds = [&](const QString& words) {
        return QString(words).remove(u'&').contains(wanted, Qt::CaseInsensitive);
    };
    int count = 0;
    QList<bool> pages(SSConfig.Tabs(), wanted.isEmpty());
    for (Field& field : m_fields) {
        field.found = holds(field.about.label) || holds(field.about.hint) ||
                      std::any_of(field.about.options.begin(), field.about.options.end(), holds) ||
                      wanted == QString(field.about.Row().key);
        if (!field.found)
            continue;
        ++count;
        pages[static_cast<int>(field.about.page)] = true;
    }
    for (int page = 0; page < SSConfig.Tabs(); ++page)
        SSConfig.SetTabEnabled(page, pages.at(page));
    if (count > 0 && !pages.at(SSConfig.Tab()))
        SSConfig.SetTab(static_cast<int>(pages.indexOf(true)));
    lblFind.SetCaption(wanted.isEmpty() ? QString()
                       : count == 0     ? u"No setting is called so"_s
                       : count == 1     ? u"1 setting"_s
                                        : u"%1 settings"_s.arg(count));
    Q_EMIT Searched();
}

void frm_Config::GoToFound()
{
    const auto onPage = [this](bool here) {
        return std::find_if(m_fields.begin(), m_fields.end(), [&](const Field& field) {
            return field.found && (!here || static_cast<int>(field.about.page) == SSConfig.Tab());
        });
    };
    auto field = onPage(true);
    if (field == m_fields.end())
        field = onPage(false);
    if (field == m_fields.end())
        return;
    SSConfig.SetTab(static_cast<int>(field->about.page));
    if (field->text)
        field->text->SetFocus();
    else if (field->check)
        field->check->SetFocus();
    else
        field->options.front()->SetFocus();
}

} // namespace vasclip::shell
