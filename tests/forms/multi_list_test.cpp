#include "forms/multi_list.h"

#include "forms/scroll_bar.h"

#include <gtest/gtest.h>

namespace vasclip::forms {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(MultiListBox, SelectsAnyNumberOfLines)
{
    ControlSet set;
    MultiListBox list(set, u"lstfiles"_s);
    int told = 0;
    QObject::connect(&list, &MultiListBox::SelectionChanged, [&] { ++told; });
    list.SetItems({u"A"_s, u"B"_s, u"C"_s});
    list.SetSelected(2, true);
    list.SetSelected(0, true);
    EXPECT_EQ(list.SelectedLines(), (QList<int>{0, 2}));
    EXPECT_EQ(told, 2);
    list.SetSelected(0, true);
    EXPECT_EQ(told, 2) << "no difference, no event";
    list.SelectAllLines();
    EXPECT_EQ(list.SelCount(), 3);
    list.SetSelected(1, false);
    EXPECT_FALSE(list.Selected(1));
    list.SelectNone();
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1) << "the selection is not where the user stands";
    EXPECT_THROW(list.SetSelected(3, true), RuntimeError);
    EXPECT_THROW(list.Select({-1}), RuntimeError);
}

TEST(MultiListBox, OtherLinesAreNotSelected)
{
    ControlSet set;
    MultiListBox list(set, u"lstfiles"_s);
    list.SetItems({u"A"_s, u"B"_s});
    list.SelectAllLines();
    list.SetListIndex(1);
    int told = 0;
    QObject::connect(&list, &ListBox::ItemsChanged, [&] { ++told; });
    list.SetItems({u"C"_s, u"D"_s, u"E"_s});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    list.SelectAllLines();
    list.Clear();
    EXPECT_EQ(list.SelCount(), 0);
}

TEST(ComboBoxLines, TakeTheirPlaceUnderTheText)
{
    ControlSet set;
    ComboBox combo(set, u"cboGeneral"_s);
    combo.SetText(u"B"_s);
    int events = 0;
    QObject::connect(&combo, &ComboBox::TextChanged, [&] { ++events; });
    QObject::connect(&combo, &ListBox::ListIndexChanged, [&] { ++events; });
    combo.SetItems({u"A"_s, u"B"_s});
    EXPECT_EQ(combo.Text(), u"B"_s);
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.SetItems({u"C"_s});
    EXPECT_EQ(combo.Text(), u"B"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(events, 0);
}

TEST(ScrollBar, KeepsItsValueWithinTheBounds)
{
    ControlSet set;
    ScrollBar bar(set, u"hsbquality"_s, 1, 100);
    EXPECT_EQ(bar.Value(), 1);
    int told = 0;
    QObject::connect(&bar, &ScrollBar::ValueChanged, [&] { ++told; });
    bar.SetValue(101);
    EXPECT_EQ(bar.Value(), 100);
    bar.SetValue(100);
    EXPECT_EQ(told, 1);
    bar.SetValue(-4);
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(told, 2);
}

} // namespace
} // namespace vasclip::forms
