#include "link/slot_icons.h"
#include "router_home.h"
#include "support/counting_back_end.h"

namespace vasclip::drops {
namespace {

/// Eight comps stand in the report, its second slot is free, and what the Databook is asked for is counted.
class DropCounts : public RouterTest
{
protected:
    tests::RowCounts rows;

    DropCounts() { engine.AddBackEnd(std::make_unique<tests::CountingBackEnd>(home.disk, rows)); }

    void SetUp() override
    {
        RouterTest::SetUp();
        for (int i = 1; i <= 9; ++i) {
            if (i == 2)
                continue;
            AddComp(NameOf(i), {{u"PHOTOS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)}});
            report.txtComp(i).SetText(NameOf(i));
        }
        link::RefreshCompIcons(desk);
        StandOn(u"14 ELM ST"_s);
        rows = {};
    }
    static QString NameOf(int comp) { return u"%1 Ash St"_s.arg(comp); }
    void ChangePhotos(const QString& key, const QString& photos)
    {
        const auto database = engine.OpenDatabase(kDatabook);
        const auto others = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        others->SetIndex(u"CENTRALKEY"_s);
        others->Seek(u"="_s, key);
        ASSERT_FALSE(others->NoMatch());
        others->Edit();
        others->SetValue(u"PHOTOS"_s, photos);
        others->Update();
        rows = {};
    }
    void ExpectAsked(int seeks, int records)
    {
        EXPECT_LE(rows.seeks, seeks);
        EXPECT_LE(rows.records, records);
        EXPECT_LE(rows.photoLists, records);
        EXPECT_EQ(rows.changes, 0);
    }
};

TEST_F(DropCounts, ARowDroppedOnATextAsksForItsOwnRecordAlone)
{
    EXPECT_TRUE(DropOn(report.txtComp(2)).done);
    EXPECT_GT(rows.seeks, 0);
    ExpectAsked(3, 1);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
}

TEST_F(DropCounts, ARowDroppedOnADataBoxToo)
{
    EXPECT_TRUE(DropOn(slots.geaComp(2)).done);
    ExpectAsked(3, 1);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
}

TEST_F(DropCounts, ARowDroppedOnAPhotoToo)
{
    for (forms::PictureBox* photo : {&slots.imaComp(2), &slots.imaSubject(1)}) {
        rows = {};
        EXPECT_TRUE(DropOn(*photo).done) << photo->Name().toStdString();
        ExpectAsked(3, 1);
    }
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
    EXPECT_TRUE(slots.imaSubjectIcon(3).Visible());
}

TEST_F(DropCounts, ASendThatBreaksOffToo)
{
    for (const QString& field : {u"ADDRESS"_s, u"ST"_s})
        Map({u"UA5"_s, u"SALEPAGE"_s, field, u"30"_s, u"3"_s, u"SALE"_s, u"1"_s, u"2"_s});
    rows = {};
    int pokes = 0;
    conduit.before = [&pokes](const QString& entry) {
        if (entry == "poke"_L1 && ++pokes == 3)
            throw RuntimeError(error::kLinkBusy, u"Busy"_s);
    };
    EXPECT_TRUE(DropOn(report.txtComp(2)).message.startsWith(u"Only a part of 12 OAK ST reached"_s));
    ASSERT_EQ(report.txtComp(2).Text(), u"12 Oak St"_s);
    ExpectAsked(3, 1);
    EXPECT_TRUE(slots.imaCompIcon(2).Visible());
}

TEST_F(DropCounts, ASlotThatWentStaleIsPutRightByTheNextRefresh)
{
    desk.icons.imaTypeIcon[1] = QImage(11, 11, QImage::Format_RGB32);
    desk.icons.imaTypeIcon[3] = QImage(13, 13, QImage::Format_RGB32);
    link::RefreshCompIcons(desk);
    ASSERT_EQ(slots.imaCompIcon(3).Picture().width(), 13);
    ChangePhotos(u"3 ASH ST"_s, {});
    EXPECT_TRUE(DropOn(report.txtComp(2)).done);
    EXPECT_EQ(slots.imaCompIcon(2).Picture().width(), 13);
    EXPECT_EQ(slots.imaCompIcon(3).Picture().width(), 13) << "the drop looked at a slot beside its own";
    link::RefreshAllSlotIcons(desk);
    EXPECT_EQ(slots.imaCompIcon(3).Picture().width(), 11);
}

} // namespace
} // namespace vasclip::drops
