#include "windows/theme.h"

#include "windows/icons.h"
#include "windows/style.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QMainWindow>
#include <QPalette>
#include <QSettings>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

const QString kThemeKey = u"view/theme"_s;

QColor Rgb(unsigned value)
{
    return QColor::fromRgb(value);
}

ThemeColours Light()
{
    return {.window = Rgb(0xf2f4f7),
            .surface = Rgb(0xffffff),
            .well = Rgb(0xf6f8fa),
            .photoGround = Rgb(0xe9edf1),
            .text = Rgb(0x1a2330),
            .muted = Rgb(0x5a6675),
            .faint = Rgb(0xa3adb9),
            .icon = Rgb(0x3c4a5a),
            .absent = Rgb(0x6b7784),
            .border = Rgb(0xd3dae2),
            .borderStrong = Rgb(0xa9b4c1),
            .field = Rgb(0x7a8695),
            .accent = Rgb(0x0b6e75),
            .accentText = Rgb(0xffffff),
            .accentSoft = Rgb(0xdcf0f0),
            .alternate = Rgb(0xf7f9fb),
            .selection = Rgb(0x1f8088),
            .selectionText = Rgb(0xffffff),
            .tint = Rgb(0xcfe8e9),
            .blue = Rgb(0x1d5fbf),
            .red = Rgb(0xb3261e),
            .green = Rgb(0x1e7b3a)};
}

ThemeColours Dark()
{
    return {.window = Rgb(0x161b21),
            .surface = Rgb(0x1f262e),
            .well = Rgb(0x1a2027),
            .photoGround = Rgb(0x12161b),
            .text = Rgb(0xe7ecf2),
            .muted = Rgb(0x9eabba),
            .faint = Rgb(0x5f6c7b),
            .icon = Rgb(0xc3ccd7),
            .absent = Rgb(0x8391a1),
            .border = Rgb(0x354150),
            .borderStrong = Rgb(0x55647a),
            .field = Rgb(0x6b7a8f),
            .accent = Rgb(0x45c1bd),
            .accentText = Rgb(0x06282a),
            .accentSoft = Rgb(0x1d3d40),
            .alternate = Rgb(0x222a33),
            .selection = Rgb(0x2f7d83),
            .selectionText = Rgb(0xffffff),
            .tint = Rgb(0x23555a),
            .blue = Rgb(0x7fb2ff),
            .red = Rgb(0xff8a80),
            .green = Rgb(0x7ad893)};
}

bool g_dark = false;

QPalette PaletteOf(const ThemeColours& c)
{
    QPalette palette;
    palette.setColor(QPalette::Window, c.window);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::Base, c.surface);
    palette.setColor(QPalette::AlternateBase, c.alternate);
    palette.setColor(QPalette::ToolTipBase, c.surface);
    palette.setColor(QPalette::ToolTipText, c.text);
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::PlaceholderText, c.muted);
    palette.setColor(QPalette::Button, c.surface);
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::BrightText, c.red);
    palette.setColor(QPalette::Link, c.accent);
    palette.setColor(QPalette::LinkVisited, c.accent);
    palette.setColor(QPalette::Highlight, c.selection);
    palette.setColor(QPalette::HighlightedText, c.selectionText);
    palette.setColor(QPalette::Light, c.surface);
    palette.setColor(QPalette::Midlight, c.border);
    palette.setColor(QPalette::Mid, c.border);
    palette.setColor(QPalette::Dark, c.borderStrong);
    palette.setColor(QPalette::Shadow, c.borderStrong);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, c.faint);
    return palette;
}

/// The sheet with its colour names put in. Kept small: every widget is matched against it.
QString SheetOf(const ThemeColours& c, bool dark)
{
    QString sheet = uR"(
QMenuBar { background: $window; padding: 2px 4px; }
QMenuBar::item { padding: 4px 10px; border-radius: 4px; background: transparent; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: $accentSoft; }
QMenu { background: $surface; border: 1px solid $border; padding: 4px; }
QMenu::item { padding: 5px 28px 5px 24px; border-radius: 4px; }
QMenu::item:selected { background: $accentSoft; color: $text; }
QMenu::item:disabled { color: $faint; }
QMenu::separator { height: 1px; background: $border; margin: 4px 8px; }
QToolTip { background: $surface; color: $text; border: 1px solid $border; padding: 4px; }
QLineEdit, QComboBox, QSpinBox, QPlainTextEdit { background: $surface; border: 1px solid $field; border-radius: 6px;
  padding: 3px 8px; min-height: 20px; selection-background-color: $accent; selection-color: $accentText; }
QLineEdit:hover, QComboBox:hover { border-color: $muted; }
QLineEdit:focus, QComboBox:focus, QSpinBox:focus, QPlainTextEdit:focus { border: 2px solid $accent; padding: 2px 7px; }
QLineEdit:disabled, QComboBox:disabled, QLineEdit:read-only { background: $well; }
QLineEdit:disabled, QComboBox:disabled { color: $faint; border-color: $border; }
QComboBox QLineEdit, QComboBox QLineEdit:focus { border: none; padding: 0; min-height: 0; background: transparent; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: url(:/icons/chevron-$mode.svg); width: 12px; height: 12px; }
QSpinBox::up-button, QSpinBox::down-button { border: none; width: 22px; subcontrol-origin: border; }
QSpinBox::up-arrow { image: url(:/icons/chevron-up-$mode.svg); width: 10px; height: 10px; }
QSpinBox::down-arrow { image: url(:/icons/chevron-$mode.svg); width: 10px; height: 10px; }
QComboBox QAbstractItemView { background: $surface; border: 1px solid $border; padding: 4px; outline: none; }
QPushButton { background: $surface; border: 1px solid $border; border-radius: 6px; padding: 4px 12px;
  min-height: 20px; }
QPushButton:hover { background: $well; border-color: $borderStrong; }
QPushButton:pressed { background: $accentSoft; }
QPushButton:focus { border: 2px solid $accent; padding: 3px 11px; }
QPushButton:disabled { color: $faint; background: $well; }
QPushButton:default, QPushButton[primary="true"] { background: $accent; color: $accentText; border-color: $accent; }
QPushButton[primary="true"]:hover, QPushButton:default:hover { background: $accentHover; }
QPushButton[primary="true"]:disabled, QPushButton:default:disabled { background: $well; color: $faint;
  border-color: $border; }
QPushButton[primary="true"]:focus, QPushButton:default:focus { border-color: $text; }
QPushButton[dense="true"] { padding: 2px 8px; }
QPushButton[dense="true"]:focus { padding: 1px 7px; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 6px; padding: 4px; }
QToolButton:hover { background: $accentSoft; }
QToolButton:pressed { background: $tint; }
QToolButton:focus { border: 2px solid $accent; padding: 3px; }
QToolButton:disabled { color: $faint; }
QToolButton::menu-indicator { image: none; }
QFrame#reportPane, QFrame#recordPane, QFrame#recordsPane, QFrame#browserPane, QFrame#mapPane { background: $surface;
  border: 1px solid $border; border-radius: 10px; }
QFrame[card="true"] { background: $surface; border: 1px solid $border; border-radius: 8px; }
QGroupBox { background: $surface; border: 1px solid $border; border-radius: 8px; padding-top: 24px; }
QGroupBox::title { subcontrol-origin: border; subcontrol-position: top left; left: 10px; top: 7px; }
QFrame[rule="true"] { background: $border; border: none; }
QFrame[found="true"] { background: $accentSoft; border-radius: 6px; }
QTableView, QListView { background: $surface; alternate-background-color: $alternate; border: 1px solid $field;
  border-radius: 6px; outline: none; selection-background-color: $selection;
  selection-color: $selectionText; }
QListView { padding: 1px; }
QListView:focus { border: 2px solid $accent; padding: 0; }
QListView[pages="true"] { background: transparent; border: none; padding: 0; }
QListView[pages="true"]::item { padding: 8px 12px; }
QListView::item { padding: 3px 6px; border-radius: 4px; }
QListView::item:selected { background: $selection; color: $selectionText; }
QTableView::item { padding: 0 6px; border: none; }
QHeaderView { background: $well; border: none; border-top-left-radius: 6px; border-top-right-radius: 6px; }
QHeaderView::section { background: $well; color: $muted; border: none; border-bottom: 1px solid $border;
  border-right: 1px solid $border; padding: 2px 6px 2px 9px; font-weight: 600; }
QCalendarWidget QWidget#qt_calendar_navigationbar { background: transparent; }
QCalendarWidget QToolButton { color: $text; font-weight: 600; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QSplitter::handle { background: transparent; }
QSplitter::handle:hover { background: $accentSoft; }
QProgressBar { background: $well; border: 1px solid $border; border-radius: 6px; text-align: center;
  color: $text; min-height: 16px; max-height: 16px; }
QProgressBar::chunk { background: $tint; border-radius: 5px; }
QScrollBar:vertical { background: transparent; width: 12px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 0; }
QScrollBar::handle { background: $borderStrong; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::handle:hover { background: $muted; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QStatusBar { background: $window; border-top: 1px solid $border; }
QStatusBar::item { border: none; }
QLabel[role="title"] { font-weight: 600; }
QLabel[role="quiet"] { color: $muted; }
QLabel[role="heading"] { font-size: 14pt; font-weight: 600; }
QLabel[tone="blue"] { color: $blue; }
QLabel[tone="red"] { color: $red; font-weight: 600; }
QLabel[tone="green"] { color: $green; }
QLabel[role="tag"] { font-size: 8.5pt; }
QLabel[role="link"] { color: $accent; }
QLabel[yellow="true"] { background: #ffff80; color: #1c1c1c; border-radius: 3px; }
QLineEdit[dropWanted="true"], QComboBox[dropWanted="true"] { border: 2px dashed $accent;
  padding: 2px 7px; }
QLineEdit[dropHover="true"], QComboBox[dropHover="true"] { border: 2px solid $accent; padding: 2px 7px;
  background: $accentSoft; }
QFrame[dropWanted="true"], QLabel[dropWanted="true"] { border: 2px dashed $accent; border-radius: 6px; }
QFrame[dropHover="true"], QLabel[dropHover="true"] { border: 2px solid $accent; border-radius: 6px; }
)"_s;
    const QColor hover = dark ? c.accent.lighter(112) : c.accent.darker(112);
    // Longer names first, so that "$accent" does not eat the head of "$accentSoft".
    const std::pair<const char*, QString> names[] = {
        {"$accentSoft", c.accentSoft.name()},
        {"$accentText", c.accentText.name()},
        {"$accentHover", hover.name()},
        {"$accent", c.accent.name()},
        {"$field", c.field.name()},
        {"$tint", c.tint.name()},
        {"$selectionText", c.selectionText.name()},
        {"$selection", c.selection.name()},
        {"$borderStrong", c.borderStrong.name()},
        {"$border", c.border.name()},
        {"$alternate", c.alternate.name()},
        {"$window", c.window.name()},
        {"$surface", c.surface.name()},
        {"$well", c.well.name()},
        {"$text", c.text.name()},
        {"$muted", c.muted.name()},
        {"$faint", c.faint.name()},
        {"$blue", c.blue.name()},
        {"$red", c.red.name()},
        {"$green", c.green.name()},
        {"$mode", dark ? u"dark"_s : u"light"_s},
    };
    for (const auto& [name, value] : names)
        sheet.replace(QLatin1StringView(name), value);
    return sheet;
}

} // namespace

Theme::Theme(QApplication& app, QSettings* settings)
    : m_app(app)
    , m_settings(settings)
{
    m_systemDark = app.palette().color(QPalette::Window).lightness() < 128;
    if (m_settings != nullptr) {
        const int stored = m_settings->value(kThemeKey, 0).toInt();
        m_choice = static_cast<ThemeChoice>(stored >= 0 && stored <= 2 ? stored : 0);
    }
    QApplication::setStyle(new TabStyle);
    InitIcons(); // the sheet names files among them
    app.installEventFilter(this);
    Apply();
}

/// The sheet comes with the first window: while one is being built, each pane that finds its place would be
/// matched against it anew, with all that stands on it.
bool Theme::eventFilter(QObject* watched, QEvent* event)
{
    const bool window = event->type() == QEvent::Polish ? qobject_cast<QDialog*>(watched) != nullptr ||
                                                              qobject_cast<QMainWindow*>(watched) != nullptr
                                                        : event->type() == QEvent::Show;
    if (window) {
        m_app.removeEventFilter(this);
        m_dressed = true;
        m_app.setStyleSheet(SheetOf(Colours(), m_dark));
    }
    return QObject::eventFilter(watched, event);
}

Theme::~Theme()
{
    g_dark = false;
    QApplication::setPalette(QPalette()); // the system's own, by which a theme after this one tells light from dark
}

void Theme::Choose(ThemeChoice choice)
{
    m_choice = choice;
    if (m_settings != nullptr)
        m_settings->setValue(kThemeKey, static_cast<int>(choice));
    Apply();
}

void Theme::Apply()
{
    m_dark = m_choice == ThemeChoice::Dark || (m_choice == ThemeChoice::System && m_systemDark);
    g_dark = m_dark;
    QApplication::setPalette(PaletteOf(Colours()));
    if (m_dressed)
        m_app.setStyleSheet(SheetOf(Colours(), m_dark));
    Q_EMIT Changed();
}

const ThemeColours& Theme::Colours()
{
    return ColoursOf(g_dark);
}

const ThemeColours& Theme::ColoursOf(bool dark)
{
    static const ThemeColours light = Light();
    static const ThemeColours night = Dark();
    return dark ? night : light;
}

} // namespace vasclip::windows
