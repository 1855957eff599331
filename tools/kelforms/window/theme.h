#pragma once

#include <QColor>

class QApplication;

namespace kelforms {

/// The colours of the window.
struct Theme
{
    bool dark = false;
    QColor window; ///< behind everything
    QColor panel;  ///< lists and bars
    QColor paper;  ///< the page
    QColor shade;  ///< label cells, column heads
    QColor line;   ///< rules between cells
    QColor text;
    QColor muted;    ///< labels, hints
    QColor accent;   ///< the active report, links
    QColor onAccent; ///< text on the accent
    QColor flash;    ///< a cell that has just been written
    QColor good, warn;
};

[[nodiscard]] const Theme& LightTheme();
[[nodiscard]] const Theme& DarkTheme();

/// Palette and style sheet of the whole program.
void Apply(QApplication& application, const Theme& theme);

} // namespace kelforms
