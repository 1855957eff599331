#pragma once

#include "databook/layouts.h"
#include "forms/controls.h"
#include "forms/ports.h"

#include <functional>

namespace vasclip::databook {

inline constexpr int kLongestLayoutName = 60;

/// What a piece of work on the saved layouts came to.
struct LayoutOutcome
{
    bool done = false; ///< false: refused, answered with No, or given up
    QString said = {}; ///< for the status line
    forms::Colour colour = forms::Colour::Blue;
    QString refusedTitle = {}; ///< of the box with `refused`
    QString refused = {};      ///< why nothing was done
    bool listChanged = false;  ///< there may be other layouts now
    QString select = {};       ///< the one to stand on among them
    bool standard = false;     ///< "Default" is the layout that one works on now
};

/// The rules of the grid's saved layouts. What the central error block does not handle is thrown; files and grid are then
/// as they were, unless said otherwise.
class LayoutWork
{
public:
    /// All outlive the work.
    /// @param grddatabook  the grid whose layouts these are
    /// @param programDir   where VAS2000.grx and default.grx stand, with its backslash
    LayoutWork(const files::Disk& disk, const forms::Ports& ports, forms::Grid& grddatabook, const QString& programDir);

    [[nodiscard]] const QString& UserFile() const { return m_userFile; }

    /// Gives `grid` a layout of a file. @return false if file or layout is not there
    bool LayoutLoadLayout(forms::Grid& grid, const QString& file, const QString& layoutName) const;
    void LayoutSaveLayout(const QString& layoutName) const;   ///< of the record grid, in the user's file
    bool LayoutDeleteLayout(const QString& layoutName) const; ///< @return false if it is not there

    [[nodiscard]] LayoutOutcome Save(const QString& typed);
    [[nodiscard]] LayoutOutcome Delete(const QString& typed);
    /// The grid has the layout even if it can't be written as "Current (User)" afterwards.
    [[nodiscard]] LayoutOutcome Use(const QString& layoutName);
    [[nodiscard]] LayoutOutcome UseDefault();
    [[nodiscard]] LayoutOutcome RemoveAll();

private:
    bool Step(const std::function<void()>& step) const;
    [[nodiscard]] bool HasDefault() const;
    [[nodiscard]] LayoutOutcome RevertCurrent();
    [[nodiscard]] LayoutOutcome RebuildDefault();

    const files::Disk& m_disk;
    forms::Ports m_ports;
    forms::Grid& m_grid;
    QString m_userFile;    ///< VAS2000.grx
    QString m_programFile; ///< default.grx
};

} // namespace vasclip::databook
