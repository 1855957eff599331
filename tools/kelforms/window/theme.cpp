#include "kelforms/window/theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

/// %1 panel, %2 line, %3 shade, %4 accent, %5 on the accent, %6 muted
constexpr QLatin1StringView kSheet = R"(
QToolBar { background: %1; border: 0; border-bottom: 1px solid %2; padding: 4px 8px; spacing: 4px; }
QToolButton { border: 0; border-radius: 5px; padding: 5px 10px; }
QToolButton:hover { background: %3; }
QToolButton:checked { background: %3; color: %4; }
QToolButton:focus { outline: 0; border: 1px solid %4; padding: 4px 9px; }
QTreeWidget { background: %1; border: 0; outline: 0; padding: 4px; }
QTreeWidget::item { padding: 4px 2px; border-radius: 4px; }
QTreeWidget::branch:selected:!has-children { background: %1; }
QTreeWidget::item:hover { background: %3; }
QTreeWidget::item:selected { background: %4; color: %5; }
QStatusBar { background: %1; border-top: 1px solid %2; }
QStatusBar::item { border: 0; }
QSplitter::handle { background: %2; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 10px; margin: 0; }
QScrollBar::handle { background: %2; border-radius: 4px; margin: 1px; min-height: 30px; min-width: 30px; }
QScrollBar::handle:hover { background: %6; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; background: transparent; }
QScrollBar::up-arrow, QScrollBar::down-arrow { width: 0; height: 0; background: transparent; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QScrollArea { border: 0; }
)"_L1;

} // namespace

const Theme& LightTheme()
{
    static const Theme theme{false,        "#eef1f5"_L1, "#f8f9fb"_L1, "#ffffff"_L1, "#f3f5f8"_L1,
                             "#d9dee6"_L1, "#1d2530"_L1, "#66717f"_L1, "#1f6f5c"_L1, "#ffffff"_L1,
                             "#ffe9a8"_L1, "#1f8a5f"_L1, "#b3541e"_L1};
    return theme;
}

const Theme& DarkTheme()
{
    static const Theme theme{true,         "#15191f"_L1, "#1b2027"_L1, "#20262e"_L1, "#272e38"_L1,
                             "#36404c"_L1, "#e6eaf0"_L1, "#93a0b0"_L1, "#4fb89c"_L1, "#0f1a17"_L1,
                             "#6b5a1c"_L1, "#5fcf9c"_L1, "#f0a35e"_L1};
    return theme;
}

void Apply(QApplication& application, const Theme& theme)
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette palette;
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.panel);
    palette.setColor(QPalette::AlternateBase, theme.shade);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::Button, theme.panel);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::ToolTipBase, theme.paper);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.onAccent);
    palette.setColor(QPalette::PlaceholderText, theme.muted);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, theme.muted);
    palette.setColor(QPalette::Disabled, QPalette::Text, theme.muted);
    QApplication::setPalette(palette);
    application.setStyleSheet(QString(kSheet).arg(theme.panel.name(), theme.line.name(), theme.shade.name(),
                                                  theme.accent.name(), theme.onAccent.name(),
                                                  theme.muted.name()));
}

} // namespace kelforms
