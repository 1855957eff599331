#include "forms/controls.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::forms {
namespace {

/// Counts how often a signal was raised.
template <class Sender, class Signal>
std::shared_ptr<int> Count(Sender& sender, Signal signal)
{
    auto count = std::make_shared<int>(0);
    QObject::connect(&sender, signal, &sender, [count] { ++*count; });
    return count;
}

int NumberOf(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RuntimeError& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(ControlSet, FindsByNameAndIndexWithoutRegardToCase)
{
    ControlSet set;
    TextBox key(set, u"txtKey"_s);
    ControlArray<TextBox> comps(set, u"txtComp"_s, 1, 9);
    EXPECT_EQ(set.All().size(), 10U);
    EXPECT_EQ(set.Find(u"TXTKEY"_s), &key);
    EXPECT_EQ(set.Find(u"txtcomp"_s, 4), &comps(4));
    EXPECT_EQ(set.Find(u"txtComp"_s), nullptr);
    EXPECT_EQ(set.Find(u"txtComp"_s, 10), nullptr);
    EXPECT_EQ(key.ObjectName(), u"txtKey"_s);
    EXPECT_EQ(comps(4).ObjectName(), u"txtComp_4"_s);
}

TEST(ControlSet, ForgetsAControlThatIsGone)
{
    ControlSet set;
    {
        Label label(set, u"lblOne"_s);
        EXPECT_EQ(set.All().size(), 1U);
    }
    EXPECT_TRUE(set.All().empty());
}

TEST(ControlArray, HasBounds)
{
    ControlSet set;
    ControlArray<Label> labels(set, u"lbltag"_s, 0, 20);
    EXPECT_EQ(labels.First(), 0);
    EXPECT_EQ(labels.Last(), 20);
    EXPECT_EQ(labels(20).Index(), 20);
    EXPECT_EQ(NumberOf([&] { (void)labels(21); }), error::kSubscript);
    EXPECT_EQ(NumberOf([&] { (void)labels(-1); }), error::kSubscript);
}

TEST(Control, ChangesAreTold)
{
    ControlSet set;
    Control control(set, u"cmdOk"_s);
    const auto changed = Count(control, &Control::Changed);
    const auto focus = Count(control, &Control::FocusWanted);
    control.SetVisible(true);
    control.SetEnabled(true);
    EXPECT_EQ(*changed, 0);
    control.SetVisible(false);
    control.SetEnabled(false);
    control.SetToolTipText(u"Save"_s);
    control.SetToolTipText(u"Save"_s);
    EXPECT_EQ(*changed, 3);
    EXPECT_FALSE(control.Visible());
    EXPECT_FALSE(control.Enabled());
    EXPECT_EQ(control.ToolTipText(), u"Save"_s);
    control.SetFocus();
    EXPECT_EQ(*focus, 1);
}

TEST(Label, HasAGround)
{
    ControlSet set;
    Label label(set, u"lbltag"_s, 3);
    const auto changed = Count(label, &Control::Changed);
    EXPECT_EQ(label.Back(), Ground::Window);
    label.SetBack(Ground::Yellow);
    label.SetBack(Ground::Yellow);
    EXPECT_EQ(label.Back(), Ground::Yellow);
    EXPECT_EQ(*changed, 1);
}

TEST(PictureBox, SaysWhyItHasNoPicture)
{
    ControlSet set;
    PictureBox box(set, u"geathumb"_s, 0);
    const auto changed = Count(box, &Control::Changed);
    box.ShowWithout(NoPicture::Waiting);
    box.ShowWithout(NoPicture::Waiting);
    EXPECT_EQ(*changed, 1);
    box.SetPicture(QImage(4, 3, QImage::Format_RGB32));
    EXPECT_EQ(box.WithoutPicture(), NoPicture::Empty);
    box.ShowWithout(NoPicture::Broken);
    EXPECT_TRUE(box.Picture().isNull());
    EXPECT_EQ(box.WithoutPicture(), NoPicture::Broken);
    box.SetPicture({});
    EXPECT_EQ(box.WithoutPicture(), NoPicture::Empty);
    EXPECT_EQ(*changed, 4);
}

TEST(ListBox, ASourceWhoseLinesChangeKeepsTheSelectionThatIsNamed)
{
    struct Numbers : ListSource
    {
        int count = 50;
        [[nodiscard]] int Count() const override { return count; }
        [[nodiscard]] QString Line(int index) const override { return QString::number(index); }
    } numbers;
    ControlSet set;
    ListBox list(set, u"filCapture"_s);
    list.SetSource(&numbers);
    list.SetListIndex(40);
    list.SetTopIndex(36);
    EXPECT_EQ(list.TopIndex(), 36);
    const auto selected = Count(list, &ListBox::ListIndexChanged);
    const auto items = Count(list, &ListBox::ItemsChanged);
    numbers.count = 20;
    list.SourceChanged(7);
    EXPECT_EQ(list.ListIndex(), 7);
    EXPECT_EQ(list.TopIndex(), 19);
    list.SourceChanged(20);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(*selected, 0);
    EXPECT_EQ(*items, 2);
    list.SetTopIndex(-4);
    EXPECT_EQ(list.TopIndex(), 0);
}

TEST(TextBox, RaisesItsEventAtOnceAndOnlyOnADifference)
{
    ControlSet set;
    TextBox box(set, u"txtView"_s);
    QString seen;
    QObject::connect(&box, &TextBox::TextChanged, &box, [&] { seen = box.Text(); });
    const auto raised = Count(box, &TextBox::TextChanged);
    box.SetText(u"FRONT VIEW"_s);
    EXPECT_EQ(seen, u"FRONT VIEW"_s);
    box.SetText(u"FRONT VIEW"_s);
    EXPECT_EQ(*raised, 1);
    box.SetText(u"Front View"_s);
    EXPECT_EQ(*raised, 2);
}

TEST(TextBox, CutsAtItsMaximum)
{
    ControlSet set;
    TextBox box(set, u"txtKey"_s);
    box.SetText(u"12 OAK STREET"_s);
    box.SetMaxLength(6);
    EXPECT_EQ(box.Text(), u"12 OAK"_s);
    box.SetText(u"123456789"_s);
    EXPECT_EQ(box.Text(), u"123456"_s);
    box.SetMaxLength(0);
    box.SetText(u"123456789"_s);
    EXPECT_EQ(box.Text(), u"123456789"_s);
    box.SetMaxLength(-3);
    EXPECT_EQ(box.MaxLength(), 0);
}

TEST(TextBox, Locks)
{
    ControlSet set;
    TextBox box(set, u"txtKey"_s);
    const auto changed = Count(box, &Control::Changed);
    const auto select = Count(box, &TextBox::SelectAllWanted);
    box.SetLocked(true);
    box.SetLocked(true);
    EXPECT_TRUE(box.Locked());
    EXPECT_EQ(*changed, 1);
    box.SelectAll();
    EXPECT_EQ(*select, 1);
}

TEST(Label, ShowsTextAndColour)
{
    ControlSet set;
    Label label(set, u"lblmsg"_s);
    label.Show(u"No associated picture"_s, Colour::Red);
    EXPECT_EQ(label.Caption(), u"No associated picture"_s);
    EXPECT_EQ(label.Fore(), Colour::Red);
    label.SetCaption(u"Done"_s);
    EXPECT_EQ(label.Fore(), Colour::Red);
    const auto changed = Count(label, &Control::Changed);
    label.Show(u"Done"_s, Colour::Red);
    EXPECT_EQ(*changed, 0);
    label.Show(u"Done"_s, Colour::Blue);
    EXPECT_EQ(*changed, 1);
}

TEST(CheckBox, Toggles)
{
    ControlSet set;
    CheckBox box(set, u"ckbFreeze"_s);
    box.SetCaption(u"&Freeze"_s);
    const auto toggled = Count(box, &CheckBox::Toggled);
    box.SetValue(false);
    EXPECT_EQ(*toggled, 0);
    box.SetValue(true);
    EXPECT_EQ(*toggled, 1);
    EXPECT_EQ(box.Caption(), u"&Freeze"_s);
}

struct ListTest : testing::Test
{
    ControlSet set;
    ListBox list{set, u"lstViews"_s};
    void SetUp() override
    {
        for (const QString& line : {u"FRONT VIEW"_s, u"REAR VIEW"_s, u" Street Scene "_s})
            list.AddItem(line);
    }
};

TEST_F(ListTest, FindsTrimmedAndUpperCased)
{
    EXPECT_EQ(list.IndexOf(u" front view"_s), 0);
    EXPECT_EQ(list.IndexOf(u"STREET SCENE"_s), 2);
    EXPECT_EQ(list.IndexOf(u"KITCHEN"_s), -1);
    EXPECT_EQ(list.IndexOf(u"FRONT VIEW\r"_s), -1);
}

TEST_F(ListTest, SelectionRaisesItsEventAtOnce)
{
    const auto raised = Count(list, &ListBox::ListIndexChanged);
    EXPECT_EQ(list.ListIndex(), -1);
    list.SetListIndex(1);
    list.SetListIndex(1);
    EXPECT_EQ(*raised, 1);
    EXPECT_EQ(list.List(list.ListIndex()), u"REAR VIEW"_s);
    list.SetListIndex(-1);
    EXPECT_EQ(*raised, 2);
}

TEST_F(ListTest, RemovingKeepsTheSelectedLine)
{
    list.SetListIndex(2);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListIndex(), 1);
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Items(), QStringList{u"REAR VIEW"_s});
    list.SetListIndex(0);
    list.Clear();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(ListTest, RefusesLinesThatAreNotThere)
{
    EXPECT_EQ(NumberOf([&] { list.SetItem(3, u"X"_s); }), 5);
    EXPECT_EQ(NumberOf([&] { list.RemoveItem(-1); }), 5);
    EXPECT_EQ(NumberOf([&] { list.SetListIndex(3); }), 5);
    EXPECT_EQ(list.List(3), QString());
    EXPECT_EQ(list.List(-1), QString());
    list.SetItem(2, u"STREET SCENE"_s);
    EXPECT_EQ(list.List(2), u"STREET SCENE"_s);
}

TEST(ComboBox, TextFollowsTheSelectionAndTheOtherWay)
{
    ControlSet set;
    ComboBox combo(set, u"cboGeneral"_s, 3);
    combo.AddItem(u"KITCHEN"_s);
    combo.AddItem(u"BATH"_s);
    QString textAtEvent;
    QObject::connect(&combo, &ListBox::ListIndexChanged, &combo, [&] { textAtEvent = combo.Text(); });
    const auto selected = Count(combo, &ListBox::ListIndexChanged);
    combo.SetListIndex(1);
    EXPECT_EQ(textAtEvent, u"BATH"_s);
    combo.SetText(u"KITCHEN"_s);
    EXPECT_EQ(combo.ListIndex(), 0);
    combo.SetText(u"Porch"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(*selected, 1);
    combo.SetListIndex(0);
    EXPECT_EQ(combo.Text(), u"KITCHEN"_s);
    combo.Clear();
    EXPECT_EQ(combo.Text(), QString());
}

TEST(PictureBox, TakesAndLosesItsPicture)
{
    ControlSet set;
    PictureBox box(set, u"imaComp"_s, 1);
    const auto changed = Count(box, &Control::Changed);
    box.SetPicture({});
    EXPECT_EQ(*changed, 0);
    box.SetPicture(QImage(4, 3, QImage::Format_RGB32));
    EXPECT_EQ(box.Picture().width(), 4);
    box.SetPicture({});
    EXPECT_TRUE(box.Picture().isNull());
    EXPECT_EQ(*changed, 2);
}

TEST(TabControl, ChangesTabsAndCaptions)
{
    ControlSet set;
    TabControl tabs(set, u"tabSource"_s, {u"Databook"_s, u"Map"_s, u"Photos"_s});
    int previous = -1;
    QObject::connect(&tabs, &TabControl::TabClicked, &tabs, [&](int from) { previous = from; });
    tabs.SetTab(0);
    EXPECT_EQ(previous, -1);
    tabs.SetTab(2);
    EXPECT_EQ(previous, 0);
    EXPECT_EQ(tabs.Tab(), 2);
    tabs.SetTabCaption(1, u"Korvat Atlas"_s);
    EXPECT_EQ(tabs.TabCaption(1), u"Korvat Atlas"_s);
    tabs.SetTabEnabled(1, false);
    EXPECT_FALSE(tabs.TabEnabled(1));
    EXPECT_EQ(NumberOf([&] { tabs.SetTab(3); }), error::kSubscript);
    EXPECT_EQ(tabs.Tab(), 2);
    EXPECT_EQ(NumberOf([&] { tabs.SetTabCaption(-1, QString()); }), error::kSubscript);
    EXPECT_EQ(NumberOf([&] { (void)tabs.TabEnabled(3); }), error::kSubscript);
}

TEST(Gauge, KeepsItsValueWithinTheRange)
{
    ControlSet set;
    Gauge gauge(set, u"gauStatus"_s);
    gauge.SetRange(0);
    EXPECT_EQ(gauge.Max(), 1);
    gauge.SetRange(100);
    gauge.SetValue(30);
    EXPECT_EQ(gauge.Value(), 30);
    gauge.SetValue(130);
    EXPECT_EQ(gauge.Value(), 100);
    gauge.SetValue(-1);
    EXPECT_EQ(gauge.Value(), 0);
    gauge.SetValue(50);
    gauge.SetRange(10);
    EXPECT_EQ(gauge.Value(), 0);
    gauge.SetCaption(u"Correcting address."_s);
    EXPECT_EQ(gauge.Caption(), u"Correcting address."_s);
}

struct MenuTest : testing::Test
{
    ControlSet set;
    Menu menu{
        set,
        u"mnuFileItem"_s,
        u"&File"_s,
        {{0, u"Launch"_s},
         {1, u"-"_s},
         {2, u"Export"_s, true, false, {}, {{0, u"Comps"_s}, {1, u"Photos"_s, false}}, u"mnuFileItemSub"_s}}};
    QStringList chosen;
    void SetUp() override
    {
        QObject::connect(&menu, &Menu::Chosen, &menu, [this](const QString& array, int index) {
            chosen << array + QString::number(index);
        });
    }
};

TEST_F(MenuTest, ChoosesEnabledEntriesOnly)
{
    menu.Choose(u"mnuFileItem"_s, 0);
    menu.Choose(u"mnuFileItem"_s, 1); // a separator
    menu.Choose(u"mnuFileItem"_s, 7); // no such entry
    menu.Choose(u"mnuFileItemSub"_s, 0);
    menu.Choose(u"mnuFileItemSub"_s, 1); // disabled
    EXPECT_EQ(chosen, (QStringList{u"mnuFileItem0"_s, u"mnuFileItemSub0"_s}));
}

TEST_F(MenuTest, ADisabledSubmenuHasNoEntriesToChoose)
{
    menu.SetEntryEnabled(2, false);
    menu.Choose(u"mnuFileItemSub"_s, 0);
    menu.SetEntryEnabled(2, true);
    menu.SetEnabled(false);
    menu.Choose(u"mnuFileItem"_s, 0);
    EXPECT_TRUE(chosen.isEmpty());
}

TEST_F(MenuTest, EntriesOfBothLevelsCanBeChanged)
{
    const auto changed = Count(menu, &Control::Changed);
    menu.SetEntryCaption(0, u"Launch Korvat Forms"_s);
    menu.SetEntryChecked(0, true);
    menu.SetEntryEnabled(u"mnuFileItemSub"_s, 1, true);
    menu.SetEntryEnabled(u"mnuFileItemSub"_s, 1, true);
    EXPECT_EQ(*changed, 3);
    EXPECT_EQ(menu.Entries()[0].caption, u"Launch Korvat Forms"_s);
    EXPECT_TRUE(menu.Entries()[0].checked);
    menu.Choose(u"mnuFileItemSub"_s, 1);
    EXPECT_EQ(chosen, QStringList{u"mnuFileItemSub1"_s});
    EXPECT_EQ(NumberOf([&] { menu.SetEntryEnabled(9, true); }), error::kSubscript);
    EXPECT_EQ(menu.Entry(u"mnuNone"_s, 0), nullptr);
}

} // namespace
} // namespace vasclip::forms
