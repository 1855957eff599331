#include "forms/controls.h"

#include "platform/text/call_errors.h"
#include "platform/text/text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::forms {

namespace {

[[noreturn]] void BadIndex(const QString& name, int index)
{
    throw RuntimeError(error::kInvalidCall, u"%1: the list has no line %2"_s.arg(name).arg(index));
}

/// `Entries` is a list of entries or a constant one; the answer is likewise.
template <class Entries>
auto EntryIn(Entries& entries, int index) -> decltype(&*entries.begin())
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [index](const MenuEntry& entry) { return entry.index == index; });
    return found == entries.end() ? nullptr : &*found;
}

/// The entries of the array `array` below `entries`, and whether all menus on the way there are enabled.
template <class Entries>
Entries* ArrayIn(Entries& entries, const QString& array, bool& reachable)
{
    for (auto& entry : entries) {
        if (entry.subEntries.isEmpty())
            continue;
        bool below = reachable && entry.enabled;
        if (entry.subName.compare(array, Qt::CaseInsensitive) == 0) {
            reachable = below;
            return &entry.subEntries;
        }
        if (Entries* found = ArrayIn(entry.subEntries, array, below)) {
            reachable = below;
            return found;
        }
    }
    return nullptr;
}

} // namespace

Control* ControlSet::Find(const QString& name, int index) const
{
    for (Control* control : m_controls) {
        if (control->Index() == index && control->Name().compare(name, Qt::CaseInsensitive) == 0)
            return control;
    }
    return nullptr;
}

Control::Control(ControlSet& set, const QString& name, int index)
    : m_set(set)
    , m_name(name)
    , m_index(index)
{
    m_set.Add(this);
}

Control::~Control()
{
    m_set.Remove(this);
}

QString Control::ObjectName() const
{
    return m_index < 0 ? m_name : m_name + u'_' + QString::number(m_index);
}

void Control::SetVisible(bool visible)
{
    if (m_visible == visible)
        return;
    m_visible = visible;
    Q_EMIT Changed();
}

void Control::SetEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    Q_EMIT Changed();
}

void Control::SetToolTipText(const QString& text)
{
    if (m_toolTip == text)
        return;
    m_toolTip = text;
    Q_EMIT Changed();
}

void TextBox::SetText(const QString& text)
{
    const QString kept = m_maxLength > 0 ? text.left(m_maxLength) : text;
    if (m_text == kept)
        return;
    m_text = kept;
    Q_EMIT Changed();
    Q_EMIT TextChanged();
}

void TextBox::SetMaxLength(int length)
{
    m_maxLength = std::max(0, length);
    Q_EMIT Changed();
    SetText(QString(m_text));
}

void TextBox::SetLocked(bool locked)
{
    if (m_locked == locked)
        return;
    m_locked = locked;
    Q_EMIT Changed();
}

void Label::Show(const QString& caption, Colour colour)
{
    if (m_caption == caption && m_colour == colour)
        return;
    m_caption = caption;
    m_colour = colour;
    Q_EMIT Changed();
}

void Label::SetBack(Ground ground)
{
    if (m_ground == ground)
        return;
    m_ground = ground;
    Q_EMIT Changed();
}

void Button::SetCaption(const QString& caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    Q_EMIT Changed();
}

void CheckBox::SetValue(bool value)
{
    if (m_value == value)
        return;
    m_value = value;
    Q_EMIT Changed();
    Q_EMIT Toggled();
}

void ListBox::SetSource(const ListSource* source)
{
    m_items.clear();
    m_source = source;
    m_current = -1;
    m_top = 0;
    Q_EMIT ItemsChanged();
}

void ListBox::SourceChanged(int selected)
{
    m_current = selected >= 0 && selected < ListCount() ? selected : -1;
    m_top = std::clamp(m_top, 0, std::max(0, ListCount() - 1));
    Q_EMIT ItemsChanged();
}

void ListBox::SetTopIndex(int index)
{
    m_top = std::clamp(index, 0, std::max(0, ListCount() - 1));
    Q_EMIT TopWanted();
}

void ListBox::Clear()
{
    m_items.clear();
    m_source = nullptr;
    m_current = -1;
    FollowClear();
    Q_EMIT ItemsChanged();
}

void ListBox::SetItems(const QStringList& lines)
{
    m_items = lines;
    m_source = nullptr;
    m_current = -1;
    FollowLines();
    Q_EMIT ItemsChanged();
}

void ListBox::AddItem(const QString& text)
{
    m_items.append(text);
    Q_EMIT ItemsChanged();
}

void ListBox::SetItem(int index, const QString& text)
{
    if (index < 0 || index >= m_items.size())
        BadIndex(ObjectName(), index);
    m_items[index] = text;
    Q_EMIT ItemsChanged();
}

void ListBox::RemoveItem(int index)
{
    if (index < 0 || index >= m_items.size())
        BadIndex(ObjectName(), index);
    m_items.removeAt(index);
    if (m_current == index)
        m_current = -1;
    else if (m_current > index)
        --m_current;
    Q_EMIT ItemsChanged();
}

QString ListBox::List(int index) const
{
    if (index < 0 || index >= ListCount())
        return {};
    return m_source ? m_source->Line(index) : m_items[index];
}

void ListBox::SetListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        BadIndex(ObjectName(), index);
    if (m_current == index)
        return;
    m_current = index;
    FollowSelection();
    Q_EMIT Changed();
    Q_EMIT ListIndexChanged();
}

int ListBox::IndexOf(const QString& text) const
{
    const QString wanted = text::Folded(text);
    for (int i = 0; i < ListCount(); ++i) {
        if (text::Folded(m_items[i]) == wanted)
            return i;
    }
    return -1;
}

void ComboBox::SetText(const QString& text)
{
    if (List(ListIndex()) != text || ListIndex() < 0)
        TakeSelection(static_cast<int>(Items().indexOf(text)));
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT Changed();
    Q_EMIT TextChanged();
}

void ComboBox::FollowSelection()
{
    SetText(List(ListIndex()));
}

void ComboBox::FollowClear()
{
    SetText(QString());
}

void ComboBox::FollowLines()
{
    TakeSelection(static_cast<int>(Items().indexOf(m_text)));
}

void PictureBox::SetPicture(const QImage& picture)
{
    if (m_picture.isNull() && picture.isNull() && m_without == NoPicture::Empty)
        return;
    m_picture = picture;
    m_without = NoPicture::Empty;
    Q_EMIT Changed();
}

void PictureBox::ShowWithout(NoPicture reason)
{
    if (m_picture.isNull() && m_without == reason)
        return;
    m_picture = {};
    m_without = reason;
    Q_EMIT Changed();
}

TabControl::TabControl(ControlSet& set, const QString& name, const QStringList& captions)
    : Control(set, name)
{
    for (const QString& caption : captions)
        m_pages.append({caption, true});
}

void TabControl::SetTab(int page)
{
    if (page == m_current)
        return;
    (void)TabCaption(page);
    const int previous = std::exchange(m_current, page);
    Q_EMIT Changed();
    Q_EMIT TabClicked(previous);
}

QString TabControl::TabCaption(int page) const
{
    if (page < 0 || page >= Tabs())
        throw RuntimeError(error::kSubscript, u"%1 has no tab %2"_s.arg(ObjectName()).arg(page));
    return m_pages[page].caption;
}

void TabControl::SetTabCaption(int page, const QString& caption)
{
    if (TabCaption(page) == caption)
        return;
    m_pages[page].caption = caption;
    Q_EMIT Changed();
}

bool TabControl::TabEnabled(int page) const
{
    (void)TabCaption(page);
    return m_pages[page].enabled;
}

void TabControl::SetTabEnabled(int page, bool enabled)
{
    if (TabEnabled(page) == enabled)
        return;
    m_pages[page].enabled = enabled;
    Q_EMIT Changed();
}

void MonthView::SetValue(QDate value)
{
    if (!value.isValid() || m_value == value)
        return;
    m_value = value;
    Q_EMIT Changed();
}

void Gauge::SetRange(int max)
{
    m_max = std::max(1, max);
    m_value = 0;
    Q_EMIT Changed();
}

void Gauge::SetValue(int value)
{
    const int kept = std::clamp(value, 0, m_max);
    if (m_value == kept)
        return;
    m_value = kept;
    Q_EMIT Changed();
}

void Gauge::SetCaption(const QString& caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    Q_EMIT Changed();
}

Menu::Menu(ControlSet& set, const QString& name, const QString& caption, QList<MenuEntry> entries)
    : Control(set, name)
    , m_caption(caption)
    , m_entries(std::move(entries))
{}

void Menu::SetEntries(QList<MenuEntry> entries)
{
    m_entries = std::move(entries);
    Q_EMIT Changed();
}

const MenuEntry* Menu::Entry(const QString& array, int index) const
{
    bool reachable = true;
    const auto* where =
        array.compare(Name(), Qt::CaseInsensitive) == 0 ? &m_entries : ArrayIn(m_entries, array, reachable);
    return where ? EntryIn(*where, index) : nullptr;
}

MenuEntry& Menu::Needed(const QString& array, int index)
{
    bool reachable = true;
    auto* where =
        array.compare(Name(), Qt::CaseInsensitive) == 0 ? &m_entries : ArrayIn(m_entries, array, reachable);
    MenuEntry* entry = where ? EntryIn(*where, index) : nullptr;
    if (!entry)
        throw RuntimeError(error::kSubscript, u"%1 has no entry %2"_s.arg(array).arg(index));
    return *entry;
}

void Menu::SetEntryEnabled(const QString& array, int index, bool enabled)
{
    MenuEntry& entry = Needed(array, index);
    if (std::exchange(entry.enabled, enabled) != enabled)
        Q_EMIT Changed();
}

void Menu::SetEntryChecked(const QString& array, int index, bool checked)
{
    MenuEntry& entry = Needed(array, index);
    if (std::exchange(entry.checked, checked) != checked)
        Q_EMIT Changed();
}

void Menu::SetEntryCaption(const QString& array, int index, const QString& caption)
{
    MenuEntry& entry = Needed(array, index);
    if (std::exchange(entry.caption, caption) != caption)
        Q_EMIT Changed();
}

void Menu::Choose(const QString& array, int index)
{
    if (!Enabled())
        return;
    bool reachable = true;
    if (array.compare(Name(), Qt::CaseInsensitive) != 0)
        ArrayIn(m_entries, array, reachable);
    const MenuEntry* entry = Entry(array, index);
    if (!entry || !entry->enabled || !reachable || entry->caption == u"-"_s)
        return;
    Q_EMIT Chosen(array, index);
}

} // namespace vasclip::forms
