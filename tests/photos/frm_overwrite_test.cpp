#include "photos/frm_overwrite.h"

#include "support/scripted_ports.h"
#include "support/temp_home.h"

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class OverwriteTest : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    SlotTable table;
    SlotLoader loader{home.disk, doubles.Get(), table};

    void SetUp() override
    {
        home.MakeDirs(u"C:\\JPG"_s);
        for (const auto& [name, side] : {std::pair{u"OLD.jpg"_s, 20}, {u"NEW.jpg"_s, 30}}) {
            QImage image(side, 10, QImage::Format_RGB32);
            image.fill(Qt::darkGreen);
            ASSERT_TRUE(image.save(home.disk.ToNative(u"C:\\JPG"_s) + u'/' + name));
        }
    }
};

TEST_F(OverwriteTest, ShowsBothPicturesAndAnswersWithItsButtons)
{
    const std::pair<forms::Button frm_Overwrite::*, forms::Answer> rows[] = {
        {&frm_Overwrite::cmdYes, forms::Answer::Yes},
        {&frm_Overwrite::cmdNo, forms::Answer::No},
        {&frm_Overwrite::cmdCancel, forms::Answer::Cancel}};
    for (const auto& [button, answer] : rows) {
        frm_Overwrite screen(loader, u"C:\\JPG\\OLD.jpg"_s, u"C:\\JPG\\NEW.jpg"_s,
                             u"12 OAK ST                          "_s); // as the Databook pads it
        screen.Open();
        EXPECT_EQ(screen.geaExisting.Picture().width(), 20);
        EXPECT_EQ(screen.geaFresh.Picture().width(), 30);
        EXPECT_EQ(screen.lblQuestion.Caption(),
                  u"12 OAK ST has a photo of this view already. Shall the new one take its place?"_s);
        EXPECT_EQ(screen.lblExisting.Caption(), u"The record's photo: OLD.JPG"_s);
        EXPECT_EQ(screen.lblFresh.Caption(), u"The new photo: NEW.JPG"_s);
        Q_EMIT (screen.*button).Clicked();
        EXPECT_FALSE(screen.IsOpen());
        EXPECT_EQ(screen.Answer(), answer);
    }
}

TEST_F(OverwriteTest, ClosingTheWindowCancels)
{
    frm_Overwrite screen(loader, u"C:\\JPG\\OLD.jpg"_s, u"C:\\JPG\\NEW.jpg"_s, u"12 OAK ST"_s);
    screen.Open();
    screen.Unload();
    EXPECT_EQ(screen.Answer(), forms::Answer::Cancel);
}

TEST_F(OverwriteTest, TheSlotsAreEmptiedBeforeTheFirstUse)
{
    forms::ControlSet set;
    SlotControls slots(set);
    for (forms::PictureBox* box : {&slots.imaGeneral(36), &slots.geaRental(9), &slots.geamaintain})
        loader.ErrLoadPict(*box, u"C:\\JPG\\OLD.jpg"_s);
    SetGearImages(slots, loader);
    for (const forms::PictureBox* box : {&slots.imaGeneral(36), &slots.geaRental(9), &slots.geamaintain}) {
        EXPECT_TRUE(box->Picture().isNull());
        EXPECT_EQ(table.ErrGetPict(*box), QString());
    }
}

} // namespace
} // namespace vasclip::photos
