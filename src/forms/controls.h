#pragma once

#include "platform/text/runtime_error.h"

#include <QDate>
#include <QImage>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace vasclip::forms {

using namespace Qt::StringLiterals;

class Control;

/// The controls of one screen, in order of construction. The binder walks it; nothing else owns through it.
class ControlSet
{
public:
    void Add(Control* control) { m_controls.push_back(control); }
    void Remove(Control* control) { std::erase(m_controls, control); }
    [[nodiscard]] const std::vector<Control*>& All() const { return m_controls; }
    /// By name and index, without regard to case; nullptr if there is none.
    [[nodiscard]] Control* Find(const QString& name, int index = -1) const;

private:
    std::vector<Control*> m_controls;
};

// Key codes and shift states of KeyPressed.
inline constexpr int kKeyReturn = 13;
inline constexpr int kKeyDown = 40;
inline constexpr int kKeyF1 = 112; ///< F2 is 113, and so on
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;

/// Status colours by meaning; a window maps them to its theme.
enum class Colour { Normal, Blue, Red, Green };
/// What a label stands on: the window's own ground, or light yellow.
enum class Ground { Window, Yellow };

/// A control without a widget: what rules read and write, and what a window shows.
///
/// `Name` and `Index` are the control's fixed name; its widget's objectName is `ObjectName()`, "txtComp_4".
class Control : public QObject
{
    Q_OBJECT
public:
    /// @param index  -1 for a control that is no member of an array
    Control(ControlSet& set, const QString& name, int index = -1);
    ~Control() override;

    [[nodiscard]] const QString& Name() const { return m_name; }
    [[nodiscard]] int Index() const { return m_index; }
    [[nodiscard]] QString ObjectName() const;

    [[nodiscard]] bool Visible() const { return m_visible; }
    [[nodiscard]] bool Enabled() const { return m_enabled; }
    [[nodiscard]] const QString& ToolTipText() const { return m_toolTip; }
    void SetVisible(bool visible);
    void SetEnabled(bool enabled);
    void SetToolTipText(const QString& text);
    void SetFocus() { Q_EMIT FocusWanted(); }
    void ZOrderFront() { Q_EMIT FrontWanted(); } ///< above the controls that overlap it
    /// What the Tab key does when the control has the focus; `back` with Shift.
    void SendTab(bool back = false) { Q_EMIT TabWanted(back); }

Q_SIGNALS:
    void Changed();     ///< something that a window shows has changed
    void FocusWanted(); ///< the rule wants the focus here
    void FrontWanted(); ///< the rule wants the control above those that overlap it
    void TabWanted(bool back);
    void Pressed(); ///< the left button went down on a picture, or the keyboard came to it
    void Hovered(); ///< the pointer moves over a picture, or the keyboard came to it
    void Clicked(); ///< the user clicked (or pressed the key that means it)
    void DoubleClicked();
    void GotFocus(); ///< the user came here; not when a window or a menu gave the focus back
    void LostFocus();
    /// A key went down in a control that takes keys. `handled` set keeps it from the widget.
    /// @param keyCode  Enter 13, Down 40, F1 to F12 112 to 123; other keys are not told
    /// @param shift    sum of kShiftMask, kCtrlMask and kAltMask
    void KeyPressed(int keyCode, int shift, bool& handled);

private:
    ControlSet& m_set;
    QString m_name;
    int m_index;
    bool m_visible = true;
    bool m_enabled = true;
    QString m_toolTip;
};

class TextBox : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] const QString& Text() const { return m_text; }
    /// Raises TextChanged at once if the text differs. What goes beyond MaxLength is cut off without an
    /// error.
    void SetText(const QString& text);
    [[nodiscard]] int MaxLength() const { return m_maxLength; } ///< 0 is no limit
    void SetMaxLength(int length);
    [[nodiscard]] bool Locked() const { return m_locked; }
    void SetLocked(bool locked);
    void SelectAll() { Q_EMIT SelectAllWanted(); }

Q_SIGNALS:
    void TextChanged();
    void SelectAllWanted();

private:
    QString m_text;
    int m_maxLength = 0;
    bool m_locked = false;
};

class Label : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    [[nodiscard]] Colour Fore() const { return m_colour; }
    void SetCaption(const QString& caption) { Show(caption, m_colour); }
    void Show(const QString& caption, Colour colour); ///< text and colour together
    [[nodiscard]] Ground Back() const { return m_ground; }
    void SetBack(Ground ground);

private:
    QString m_caption;
    Colour m_colour = Colour::Normal;
    Ground m_ground = Ground::Window;
};

class Button : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption); ///< "&" marks the access key

private:
    QString m_caption;
};

class CheckBox : public Button
{
    Q_OBJECT
public:
    using Button::Button;
    [[nodiscard]] bool Value() const { return m_value; }
    void SetValue(bool value); ///< raises Toggled at once if it differs

Q_SIGNALS:
    void Toggled();

private:
    bool m_value = false;
};

/// Lines of a list that are asked for as they are shown: of a list too long to hold.
class ListSource
{
public:
    virtual ~ListSource() = default;
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual QString Line(int index) const = 0;
};

/// A list of lines with at most one selected.
///
/// The lines are its own, or those of a source, which then cannot be changed here and of which nothing is
/// held. Adding or removing lines keeps the selected line selected (its index may move) and raises
/// ItemsChanged only; when the selected line itself goes, the list is left without a selection.
class ListBox : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    void Clear();
    void AddItem(const QString& text);
    void SetItem(int index, const QString& text); ///< @throws RuntimeError 5 out of range
    void RemoveItem(int index);                   ///< @throws RuntimeError 5 out of range
    /// Takes other lines in one go and raises ItemsChanged once. Nothing is selected then, but that a combo
    /// box keeps its text, and with it the line that reads so.
    void SetItems(const QStringList& lines);
    /// Takes the lines of a source (not owned) instead of its own, and tells that they are others; a text
    /// stays. nullptr gives an empty list of its own.
    void SetSource(const ListSource* source);
    [[nodiscard]] const ListSource* Source() const { return m_source; }
    /// The lines of the source are others now; the line that was selected is `selected` (-1: it is gone).
    void SourceChanged(int selected);
    [[nodiscard]] int ListCount() const
    {
        return m_source ? m_source->Count() : static_cast<int>(m_items.size());
    }
    [[nodiscard]] QString List(int index) const;                       ///< "" out of range
    [[nodiscard]] const QStringList& Items() const { return m_items; } ///< its own lines
    [[nodiscard]] int ListIndex() const { return m_current; }          ///< -1 without a selection
    /// Raises ListIndexChanged at once if it differs; -1 takes the selection away. @throws RuntimeError 5 out
    /// of range
    void SetListIndex(int index);
    /// The first line on view, as the rules set it; a window scrolls to it.
    [[nodiscard]] int TopIndex() const { return m_top; }
    void SetTopIndex(int index); ///< kept within the list
    /// Index of a line, both trimmed and upper-cased; -1 if absent.
    [[nodiscard]] int IndexOf(const QString& text) const;

Q_SIGNALS:
    void ListIndexChanged();
    void ItemsChanged();
    void TopWanted(); ///< the window scrolls to TopIndex

protected:
    virtual void FollowSelection() {} ///< the selection was set, its event comes next
    virtual void FollowClear() {}     ///< the lines are gone
    virtual void FollowLines() {}     ///< the lines are others
    void TakeSelection(int index) { m_current = index; }

private:
    QStringList m_items;
    const ListSource* m_source = nullptr;
    int m_current = -1;
    int m_top = 0;
};

/// A list with a text that may be typed. Selecting a line takes its text; a typed text that is a line of the
/// list selects it without an event, any other takes the selection away.
class ComboBox : public ListBox
{
    Q_OBJECT
public:
    using ListBox::ListBox;
    [[nodiscard]] const QString& Text() const { return m_text; }
    void SetText(const QString& text); ///< raises TextChanged at once if the text differs

Q_SIGNALS:
    void TextChanged();

protected:
    void FollowSelection() override;
    void FollowClear() override;
    void FollowLines() override;

private:
    QString m_text;
};

/// What stands where no picture is: nothing, one that is on its way, or a file that is no picture.
enum class NoPicture { Empty, Waiting, Broken };

/// Shows a picture. Which file it shows is kept beside it (the slot table), not in it.
class PictureBox : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] const QImage& Picture() const { return m_picture; }
    void SetPicture(const QImage& picture); ///< a null image clears the control
    [[nodiscard]] NoPicture WithoutPicture() const { return m_without; }
    void ShowWithout(NoPicture reason); ///< clears the picture and says why there is none

private:
    QImage m_picture;
    NoPicture m_without = NoPicture::Empty;
};

struct TabPage
{
    QString caption;
    bool enabled = true;
    bool operator==(const TabPage&) const = default;
};

class TabControl : public Control
{
    Q_OBJECT
public:
    TabControl(ControlSet& set, const QString& name, const QStringList& captions);
    [[nodiscard]] int Tabs() const { return static_cast<int>(m_pages.size()); }
    [[nodiscard]] int Tab() const { return m_current; }
    void SetTab(int page); ///< raises TabClicked at once if it differs; @throws RuntimeError 9 out of range
    [[nodiscard]] QString TabCaption(int page) const; ///< @throws RuntimeError 9 out of range
    void SetTabCaption(int page, const QString& caption);
    [[nodiscard]] bool TabEnabled(int page) const;
    void SetTabEnabled(int page, bool enabled);

Q_SIGNALS:
    void TabClicked(int previous);

private:
    QList<TabPage> m_pages;
    int m_current = 0;
};

/// A month's days, one of them chosen.
class MonthView : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] QDate Value() const { return m_value; }
    void SetValue(QDate value); ///< an invalid date changes nothing

Q_SIGNALS:
    void DateClick(); ///< the user clicked on a day, which is the value now
    void DateDblClick();

private:
    QDate m_value{2000, 1, 1}; ///< until the screen sets one
};

class Gauge : public Control
{
    Q_OBJECT
public:
    using Control::Control;
    [[nodiscard]] int Value() const { return m_value; }
    [[nodiscard]] int Max() const { return m_max; }
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void SetRange(int max);   ///< value 0, min 0; a maximum below 1 is raised to 1
    void SetValue(int value); ///< kept within the range
    void SetCaption(const QString& caption);

private:
    int m_value = 0;
    int m_max = 1;
    QString m_caption;
};

/// One entry of a menu array; `index` is what its handler sees.
struct MenuEntry
{
    int index = 0;
    QString caption; ///< "-" is a separator
    bool enabled = true;
    bool checked = false;
    QString shortcut = {};            ///< portable key text, may be empty
    QList<MenuEntry> subEntries = {}; ///< a submenu of its own, its name below
    QString subName = {};             ///< the submenu's handler array, "mnuFileItemSubExport"
    QString toolTip = {};
};

/// A menu: one handler for its array of entries.
class Menu : public Control
{
    Q_OBJECT
public:
    Menu(ControlSet& set, const QString& name, const QString& caption, QList<MenuEntry> entries);
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    [[nodiscard]] const QList<MenuEntry>& Entries() const { return m_entries; }
    void SetEntries(QList<MenuEntry> entries);
    /// An entry of `array`, which is Name() or a submenu's name; nullptr if there is none.
    [[nodiscard]] const MenuEntry* Entry(const QString& array, int index) const;
    // Each of these throws RuntimeError 9 for an entry that is not there; without an array the top level is
    // meant.
    void SetEntryEnabled(int index, bool enabled) { SetEntryEnabled(Name(), index, enabled); }
    void SetEntryChecked(int index, bool checked) { SetEntryChecked(Name(), index, checked); }
    void SetEntryCaption(int index, const QString& caption) { SetEntryCaption(Name(), index, caption); }
    void SetEntryEnabled(const QString& array, int index, bool enabled);
    void SetEntryChecked(const QString& array, int index, bool checked);
    void SetEntryCaption(const QString& array, int index, const QString& caption);
    /// The user chose an entry; a disabled one does nothing. `array` is Name() or the submenu's name.
    void Choose(const QString& array, int index);

Q_SIGNALS:
    void Chosen(const QString& array, int index);

private:
    MenuEntry& Needed(const QString& array, int index);
    QString m_caption;
    QList<MenuEntry> m_entries;
};

/// An array of controls that share a name, with the bounds of its indices.
template <class T>
class ControlArray
{
public:
    ControlArray(ControlSet& set, const QString& name, int first, int last)
        : m_name(name)
        , m_first(first)
    {
        for (int i = first; i <= last; ++i)
            m_items.push_back(std::make_unique<T>(set, name, i));
    }

    /// @throws RuntimeError 9 outside the bounds
    [[nodiscard]] T& operator()(int index) const
    {
        if (index < First() || index > Last())
            throw RuntimeError(error::kSubscript, u"%1(%2): subscript out of range"_s.arg(m_name).arg(index));
        return *m_items[static_cast<std::size_t>(index - m_first)];
    }
    [[nodiscard]] int First() const { return m_first; }
    [[nodiscard]] int Last() const { return m_first + static_cast<int>(m_items.size()) - 1; }
    [[nodiscard]] const QString& Name() const { return m_name; }

private:
    QString m_name;
    int m_first;
    std::vector<std::unique_ptr<T>> m_items;
};

} // namespace vasclip::forms
