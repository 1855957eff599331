#pragma once

#include "forms/controls.h"
#include "platform/engine/health.h"

namespace vasclip::shell {

class Program;
class RecordOnShow;
class WindowWants;

/// Where a Databook lies.
struct Databook
{
    QString directory; ///< with a backslash
    QString file;
};

/// What the main screen shows while another database is being opened.
struct ChangingDatabook
{
    forms::TabControl& tabSource;
    forms::Label& lblChangingDB;
};

/// The Databook that the program works on: opened at the start, looked at, changed for another one, and the ways out
/// when it can't be used.
class DatabookInUse
{
public:
    DatabookInUse(Program& program, RecordOnShow& shown, WindowWants& wants, const ChangingDatabook& place);

    /// Of the main window: product, version and Databook.
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void ReadCaption();

    void OpenDatabook(); ///< at the start; @throws forms::EndOfProgram
    void DisplayFirstRecords();
    /// Looks whether the Databook is whole, with the ways out offered for a damaged one.
    void CheckDatabook(engine::CheckDepth depth);
    void ChangeDatabase();
    /// Opens another Databook, whole or not at all. @return false if the present one stays, which has been
    /// told
    bool SwitchDatabook(const QString& directory, const QString& file);

private:
    void OfferUpgrade(const QString& path);
    [[nodiscard]] QString WhyNotOpened();
    void NameDatabook(const Databook& databook);
    [[nodiscard]] Databook ChooseDatabook();
    bool OfferWaysOut();
    [[nodiscard]] Databook CopyReadable();

    Program& m_program;
    RecordOnShow& m_shown;
    WindowWants& m_wants;
    ChangingDatabook m_place;
    QString m_caption;
    QString m_damageTold; ///< the Databook, upper-cased, whose damage the user knows of
};

} // namespace vasclip::shell
