#pragma once

#include <QColor>
#include <QObject>
#include <QString>

class QApplication;
class QSettings;

namespace vasclip::windows {

struct ThemeColours
{
    QColor window, surface, well, photoGround;
    QColor text, muted, faint, icon;
    QColor absent; ///< words that can be chosen all the same: the tab of a page that the report lacks
    QColor border, borderStrong;
    QColor field; ///< the edge of what is typed into or chosen from
    QColor accent, accentText, accentSoft;
    QColor alternate, selection, selectionText;
    QColor tint; ///< a mark under words, what a bar is filled with
    QColor blue, red, green;
};

enum class ThemeChoice { System, Light, Dark };

/// The look of the program: Fusion with an own palette and a small style sheet, light or dark.
class Theme : public QObject
{
    Q_OBJECT
public:
    /// @param settings  where the choice is kept; nullptr keeps it for this run only
    explicit Theme(QApplication& app, QSettings* settings = nullptr);
    ~Theme() override;

    [[nodiscard]] ThemeChoice Choice() const { return m_choice; }
    void Choose(ThemeChoice choice);
    [[nodiscard]] bool IsDark() const { return m_dark; }

    /// The colours at hand; the light ones while no theme stands.
    [[nodiscard]] static const ThemeColours& Colours();
    [[nodiscard]] static const ThemeColours& ColoursOf(bool dark);

Q_SIGNALS:
    void Changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Apply();
    QApplication& m_app;
    QSettings* m_settings;
    ThemeChoice m_choice = ThemeChoice::System;
    bool m_systemDark = false;
    bool m_dark = false;
    bool m_dressed = false; ///< the style sheet is set
};

} // namespace vasclip::windows
