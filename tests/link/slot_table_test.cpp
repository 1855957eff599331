#include "link/slot_table.h"

#include "desk_test.h"
#include "link/slot_photos.h"

namespace vasclip::link {
namespace {

class SlotTable : public DeskTest
{
protected:
    /// Every control of an array answers to the name that the row gives it, from the first slot to the last.
    template <class Array>
    void Holds(const GroupRow& row, const Array& array, const char* kind, const char* rest = "")
    {
        const QString name = QLatin1StringView(kind) + QString(row.controls) + QLatin1StringView(rest);
        EXPECT_EQ(array.Last(), row.slots) << name.toStdString();
        for (const int i : {1, row.slots})
            EXPECT_EQ(array(i).Name().toUpper(), name.toUpper()) << name.toStdString();
    }
};

TEST_F(SlotTable, EachRowFitsItsControls)
{
    for (const GroupRow& row : GroupTable()) {
        SCOPED_TRACE(row.controls.data());
        EXPECT_EQ(&RowOf(row.group), &row);
        Holds(row, slots.*row.photos, "ima");
        Holds(row, slots.*row.icons, "ima", "Icon");
        if (row.anchors)
            Holds(row, slots.*row.anchors, "ima", "Anchor");
        if (row.boxes)
            Holds(row, slots.*row.boxes, "gea");
        if (row.texts && row.group != Group::General)
            Holds(row, report.*row.texts, "txt");
        EXPECT_EQ((report.*row.tabControl).Name(), QString(row.tab));
        EXPECT_EQ(row.slots, row.pages * kSlotsOnAPage);
        EXPECT_LE(row.firstPage + row.pages, (report.*row.tabControl).Tabs());
        if (row.headings) {
            EXPECT_EQ((report.*row.headings).Last(), row.pages - 1);
            EXPECT_TRUE((report.*row.headings)(0).Caption().startsWith(row.heading));
        }
        EXPECT_EQ(row.Comps(), !row.lamp.isEmpty());
        EXPECT_EQ(row.Comps(), row.boxes != nullptr);
        for (const auto list : {row.addresses, row.cities, row.states, row.zips}) {
            ASSERT_EQ(row.Comps(), list != nullptr);
            if (list) {
                EXPECT_EQ((addr.*list).Last(), row.slots);
            }
        }
    }
}

TEST_F(SlotTable, TheWordsOfTheWireAndTheMappingAreTheRows)
{
    QStringList wire, mapping, storing;
    for (const GroupRow& row : GroupTable()) {
        wire << row.wire;
        mapping << row.mapping;
        storing << row.storing;
        EXPECT_EQ(ImageObjectName((slots.*row.photos)(1).Name(), 1), row.wire + u"_1_"_s);
    }
    EXPECT_EQ(wire, (QStringList{u"SUB"_s, u"CMP"_s, u"ALT"_s, u"GN"_s, u"LCMP"_s, u"RCMP"_s}));
    EXPECT_EQ(mapping, (QStringList{u"SALE"_s, u"SALE"_s, u"ALT"_s, QString(), u"LIST"_s, u"RENT"_s}));
    EXPECT_EQ(storing, (QStringList{u"SALE"_s, u"COMP"_s, u"ALT"_s, QString(), u"LIST"_s, u"RENT"_s}));
    QStringList gathered;
    for (const GroupRow* row : GatheredGroups())
        gathered << row->mapping;
    EXPECT_EQ(gathered, (QStringList{u"SALE"_s, u"ALT"_s, u"RENT"_s, u"LIST"_s}));
}

TEST_F(SlotTable, AControlsNameTellsItsGroup)
{
    for (const GroupRow& row : GroupTable()) {
        EXPECT_EQ(GroupOf((slots.*row.photos)(1).Name().toUpper()), &row);
        EXPECT_EQ(GroupOf((slots.*row.icons)(1).Name()), nullptr);
        EXPECT_EQ(GroupWithin((slots.*row.icons)(1).Name()), &row);
    }
    EXPECT_EQ(GroupOf(u" cboGeneral"_s)->group, Group::General);
    EXPECT_EQ(GroupOf(u"geathumb"_s), nullptr);
    EXPECT_EQ(GroupWithin(u"geaListBox"_s), nullptr);
    EXPECT_EQ(GroupOfWord(u"altcomps"_s)->group, Group::Alternates);
    EXPECT_EQ(GroupOfWord(u"SALE"_s)->group, Group::Sales);
    EXPECT_EQ(GroupOfWord(u"SUBJECT"_s), nullptr);
}

TEST_F(SlotTable, ASlotsControlsAndItsPage)
{
    EXPECT_EQ(&TextOf(report, {Group::Rentals, 9}), &report.txtRental(9));
    EXPECT_EQ(&TextOf(report, {Group::Subject, 3}), &report.txtSubject);
    EXPECT_EQ(&PhotoOf(slots, {Group::Subject, 0}), &slots.imaSubject(1));
    EXPECT_EQ(&PhotoOf(slots, {Group::General, 36}), &slots.imaGeneral(36));
    EXPECT_EQ(BoxOf(slots, {Group::Alternates, 2}), &slots.geaAltComp(2));
    EXPECT_EQ(BoxOf(slots, {Group::General, 2}), nullptr);
    report.TabComp.SetTabCaption(4, kNotAvailable);
    EXPECT_TRUE(OnMissingPage(report, {Group::Alternates, 4}));
    EXPECT_FALSE(OnMissingPage(report, {Group::Alternates, 3}));
    EXPECT_FALSE(OnMissingPage(report, {Group::Sales, 9}));
    EXPECT_FALSE(OnMissingPage(report, {Group::Subject, 1}));
}

TEST(Slots, TheSlotsOnViewComeInThrees)
{
    const int firsts[] = {1, 1, 1, 4, 4, 4, 7};
    for (int i = 1; i <= 7; ++i)
        EXPECT_EQ(FirstShown(i), firsts[i - 1]);
}

} // namespace
} // namespace vasclip::link
