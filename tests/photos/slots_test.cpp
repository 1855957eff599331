#include "photos/slots.h"

#include "platform/picture/picture.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {
namespace {

using forms::Answer;
using forms::ControlArray;
using forms::ControlSet;
using forms::PictureBox;
using tests::ShownBox;

const QString kPhoto = u"C:\\PHOTOS\\AB12CD34.jpg"_s;
const QString kDamaged = u"C:\\PHOTOS\\BAD.JPG"_s;

int NumberOf(const std::function<void()>& step)
{
    try {
        step();
    } catch (const RuntimeError& failure) {
        return failure.Number();
    }
    return 0;
}

struct BoundRow
{
    const char* name;
    int last;
};

TEST(SlotTable, KnowsTheBoundsOfItsNames)
{
    const BoundRow rows[] = {{"geaThumb", 20},   {"geaSubject", 20}, {"geaComp", 20},    {"geaAltComp", 20},
                             {"geaGeneral", 50}, {"geaRental", 20},  {"geaListing", 20}, {"imaSubject", 20},
                             {"imaComp", 20},    {"imaAltComp", 20}, {"imaGeneral", 50}, {"imaRental", 20},
                             {"imaListing", 20}};
    for (const BoundRow& row : rows) {
        ControlSet set;
        SlotTable table;
        const ControlArray<PictureBox> boxes(set, QString::fromLatin1(row.name), 0, 51);
        for (const int index : {0, 1, row.last}) {
            table.ErrSetPict(boxes(index), u"C:\\%1.JPG"_s.arg(index));
            EXPECT_EQ(table.ErrGetPict(boxes(index)), u"C:\\%1.JPG"_s.arg(index)) << row.name << index;
            table.Blank(boxes(index));
            EXPECT_EQ(table.ErrGetPict(boxes(index)), QString()) << row.name << index;
        }
        const int beyond = row.last + 1;
        EXPECT_EQ(NumberOf([&] { table.ErrSetPict(boxes(beyond), u"x"_s); }), error::kSubscript) << row.name;
        EXPECT_EQ(NumberOf([&] { (void)table.ErrGetPict(boxes(beyond)); }), error::kSubscript) << row.name;
        EXPECT_EQ(NumberOf([&] { table.Blank(boxes(beyond)); }), error::kSubscript) << row.name;
    }
}

TEST(SlotTable, SingleControlsHaveOneValueEach)
{
    for (const char* name : {"geamaintain", "geatemp", "geaRes", "geaMapPhoto", "geaTrashcan", "mappic"}) {
        ControlSet set;
        SlotTable table;
        const PictureBox box(set, QString::fromLatin1(name));
        table.ErrSetPict(box, u"C:\\A.JPG"_s);
        EXPECT_EQ(table.ErrGetPict(box), u"C:\\A.JPG"_s) << name;
        table.Blank(box);
        EXPECT_EQ(table.ErrGetPict(box), QString()) << name;
    }
}

TEST(SlotTable, TheCaptureListAndItsPreviewShareOneValue)
{
    ControlSet set;
    SlotTable table;
    const PictureBox list(set, u"filCapture"_s);
    const PictureBox preview(set, u"geaListBox"_s);
    table.ErrSetPict(list, u"C:\\A.JPG"_s);
    EXPECT_EQ(table.ErrGetPict(preview), u"C:\\A.JPG"_s);
    table.ErrSetPict(preview, u"C:\\B.JPG"_s);
    EXPECT_EQ(table.ErrGetPict(list), u"C:\\B.JPG"_s);
}

TEST(SlotTable, TheDoubleBoxesAreLoadedAndClearedUnderDifferentNames)
{
    for (const QString& number : {QString(), u"2"_s}) {
        ControlSet set;
        SlotTable table;
        const PictureBox bmp(set, u"bmpDouble"_s + number);
        const PictureBox ima(set, u"imaDouble"_s + number);
        table.ErrSetPict(bmp, u"C:\\A.JPG"_s);
        table.ErrSetPict(ima, u"C:\\B.JPG"_s);
        EXPECT_EQ(table.ErrGetPict(bmp), u"C:\\A.JPG"_s);
        EXPECT_EQ(table.ErrGetPict(ima), QString());
        table.Blank(ima);
        table.Blank(bmp);
        EXPECT_EQ(table.ErrGetPict(bmp), u"C:\\A.JPG"_s);
    }
}

TEST(SlotTable, AnUnknownNameHasNoPath)
{
    ControlSet set;
    SlotTable table;
    const PictureBox box(set, u"imaLogo"_s, 99);
    table.ErrSetPict(box, u"C:\\A.JPG"_s);
    EXPECT_EQ(table.ErrGetPict(box), QString());
    table.Blank(box);
}

TEST(SlotTable, IndexesAreKeptApart)
{
    ControlSet set;
    SlotTable table;
    const SlotControls slots(set);
    table.ErrSetPict(slots.imaComp(1), u"one"_s);
    table.ErrSetPict(slots.imaAltComp(1), u"alt"_s);
    table.ErrSetPict(slots.geaComp(1), u"box"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(1)), u"one"_s);
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), QString());
    EXPECT_EQ(table.ErrGetPict(slots.imaAltComp(1)), u"alt"_s);
    EXPECT_EQ(table.ErrGetPict(slots.geaComp(1)), u"box"_s);
}

TEST(SlotControls, HaveTheirNamesAndBounds)
{
    ControlSet set;
    const SlotControls slots(set);
    const std::tuple<const ControlArray<PictureBox>*, const char*, int, int> rows[] = {
        {&slots.imaSubject, "imaSubject", 1, 3},
        {&slots.imaComp, "imaComp", 1, 9},
        {&slots.imaAltComp, "imaAltComp", 1, 6},
        {&slots.imaGeneral, "imaGeneral", 1, 36},
        {&slots.imaListing, "imaListing", 1, 6},
        {&slots.imaRental, "imaRental", 1, 9},
        {&slots.geaComp, "geaComp", 1, 9},
        {&slots.geaAltComp, "geaAltComp", 1, 6},
        {&slots.geaListing, "geaListing", 1, 6},
        {&slots.geaRental, "geaRental", 1, 9},
        {&slots.imaSubjectAnchor, "imaSubjectAnchor", 0, 3},
        {&slots.imaCompAnchor, "imaCompAnchor", 1, 9},
        {&slots.imaGeneralIcon, "imaGeneralIcon", 1, 36},
    };
    for (const auto& [array, name, first, last] : rows) {
        EXPECT_EQ(array->Name().toStdString(), name);
        EXPECT_EQ(array->First(), first) << name;
        EXPECT_EQ(array->Last(), last) << name;
    }
    EXPECT_NE(set.Find(u"geamaintain"_s), nullptr);
}

struct SlotLoaderTest : testing::Test
{
    tests::TempHome home;
    tests::TestPorts ports;
    ControlSet set;
    SlotControls controls{set};
    ControlArray<PictureBox> geathumb{set, u"geaThumb"_s, 0, 20};
    ControlArray<forms::Label> lbltag{set, u"lbltag"_s, 0, 20};
    PictureBox geatemp{set, u"geatemp"_s};
    PictureBox geaRes{set, u"geaRes"_s};
    SlotTable table;
    SlotLoader loader{home.disk, ports.Get(), table};
    QStringList protectedFiles;

    void SetUp() override
    {
        QImage image(1200, 800, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        const QByteArray jpeg = picture::ToJpeg(image, 80);
        home.Put(kPhoto, jpeg);
        home.Put(kDamaged, jpeg.left(jpeg.size() / 2));
        loader.SetThumbTags(&lbltag);
        loader.SetWriteProtect([this](const QString& path) { protectedFiles << path; });
    }
};

TEST_F(SlotLoaderTest, LoadsScaledDownAndRecordsThePath)
{
    PictureBox& box = controls.imaComp(1);
    box.SetVisible(false);
    loader.ErrLoadPict(box, u"  "_s + kPhoto + u" "_s);
    EXPECT_EQ(box.Picture().size(), QSize(480, 320));
    EXPECT_TRUE(box.Visible());
    EXPECT_EQ(table.ErrGetPict(box), kPhoto);
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST_F(SlotLoaderTest, AFileThatIsNotThereHidesTheControl)
{
    PictureBox& box = controls.imaComp(1);
    loader.ErrLoadPict(box, kPhoto);
    loader.ErrLoadPict(box, u"C:\\PHOTOS\\GONE.JPG"_s);
    EXPECT_FALSE(box.Visible());
    EXPECT_TRUE(box.Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(box), QString());
    loader.ErrLoadPict(box, u"Q:\\PHOTOS\\GONE.JPG"_s);
    EXPECT_FALSE(box.Visible());
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST_F(SlotLoaderTest, WorkingControlsStayHidden)
{
    for (PictureBox* box : {&geatemp, &geaRes}) {
        box->SetVisible(false);
        loader.ErrLoadPict(*box, kPhoto);
        EXPECT_FALSE(box->Visible());
        EXPECT_FALSE(box->Picture().isNull());
        EXPECT_EQ(table.ErrGetPict(*box), kPhoto);
    }
}

TEST_F(SlotLoaderTest, ReportSlotsProtectTheirFileOthersDoNot)
{
    for (const auto* array : {&controls.imaSubject, &controls.imaComp, &controls.imaAltComp,
                              &controls.imaGeneral, &controls.imaListing, &controls.imaRental}) {
        protectedFiles.clear();
        loader.ErrLoadPict((*array)(2), kPhoto);
        EXPECT_EQ(protectedFiles, QStringList{kPhoto}) << array->Name().toStdString();
    }
    protectedFiles.clear();
    loader.ErrLoadPict(controls.geamaintain, kPhoto);
    loader.ErrLoadPict(controls.geaComp(1), kPhoto);
    loader.ErrLoadPict(geathumb(1), kPhoto);
    loader.ErrLoadPict(controls.imaComp(1), u"C:\\GONE.JPG"_s);
    EXPECT_TRUE(protectedFiles.isEmpty());
}

TEST_F(SlotLoaderTest, ACorruptFileLeavesPathAndControl)
{
    PictureBox& box = controls.imaComp(1);
    loader.ErrLoadPict(box, kPhoto);
    loader.ErrLoadPict(box, kDamaged);
    EXPECT_EQ(table.ErrGetPict(box), kPhoto);
    EXPECT_EQ(box.Picture().size(), QSize(480, 320));
    EXPECT_TRUE(box.Visible());
    const ShownBox wanted{forms::Buttons::Ok, forms::Icon::None, QString(),
                          u"The File 'C:\\PHOTOS\\BAD.JPG' appears to be a corrupt file."_s};
    ASSERT_EQ(ports.prompter.Boxes().size(), 1U);
    EXPECT_EQ(ports.prompter.Boxes()[0], wanted);
    EXPECT_EQ(protectedFiles, QStringList{kPhoto});
}

struct ErrorRow
{
    int number;
    const char* box;
    bool cleared;
};

TEST_F(SlotLoaderTest, ErrorsHaveTheirOwnReactions)
{
    const ErrorRow rows[] = {
        {52, "C:\\PHOTOS\\AB12CD34.jpgFile not found.", false},
        {481, "The File 'C:\\PHOTOS\\AB12CD34.jpg' appears to be a corrupt file.", false},
        {50003, "", false},
        {76, "", true},
    };
    for (const ErrorRow& row : rows) {
        ports.prompter.Forget();
        loader.SetWriteProtect([&](const QString&) { throw RuntimeError(row.number, u"x"_s); });
        PictureBox& box = controls.imaComp(3);
        loader.ErrLoadPict(box, kPhoto);
        EXPECT_EQ(ports.prompter.Texts().join(u'|').toStdString(), row.box) << row.number;
        EXPECT_EQ(table.ErrGetPict(box), row.cleared ? QString() : kPhoto) << row.number;
        EXPECT_EQ(box.Picture().isNull(), row.cleared) << row.number;
    }
}

TEST_F(SlotLoaderTest, OtherErrorsGoToTheCommonBlock)
{
    int calls = 0;
    loader.SetWriteProtect([&](const QString&) {
        ++calls;
        throw RuntimeError(error::kDiskNotReady, u"Disk not ready"_s);
    });
    ports.prompter.Answer(Answer::Retry);
    ports.prompter.Answer(Answer::Ignore);
    loader.ErrLoadPict(controls.imaComp(1), kPhoto);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(ports.prompter.Last().text, u"Disk not ready.\r\nError # 71 in module ErrLoadPict."_s);
    ports.prompter.Answer(Answer::Abort);
    loader.ErrLoadPict(controls.imaComp(1), kPhoto);
    EXPECT_EQ(calls, 3);
    loader.SetWriteProtect([](const QString&) { throw RuntimeError(error::kPermissionDenied, u"Denied"_s); });
    EXPECT_EQ(NumberOf([&] { loader.ErrLoadPict(controls.imaComp(1), kPhoto); }), error::kPermissionDenied);
}

TEST_F(SlotLoaderTest, AnIndexBeyondTheBoundIsASubscriptError)
{
    const ControlArray<PictureBox> wide(set, u"imaComp"_s, 20, 21);
    loader.ErrLoadPict(wide(20), kPhoto);
    EXPECT_EQ(table.ErrGetPict(wide(20)), kPhoto);
    EXPECT_EQ(NumberOf([&] { loader.ErrLoadPict(wide(21), kPhoto); }), error::kSubscript);
    const ControlArray<PictureBox> general(set, u"imaGeneral"_s, 50, 51);
    loader.ErrLoadPict(general(50), kPhoto);
    EXPECT_EQ(table.ErrGetPict(general(50)), kPhoto);
    EXPECT_EQ(NumberOf([&] { loader.ErrLoadPict(general(51), kPhoto); }), error::kSubscript);
}

TEST_F(SlotLoaderTest, AThumbnailNamesItsFile)
{
    lbltag(4).SetVisible(false);
    geathumb(4).SetVisible(false);
    loader.ErrLoadPict(geathumb(4), kPhoto);
    EXPECT_EQ(lbltag(4).Caption(), u"AB12CD34.JPG"_s);
    EXPECT_TRUE(lbltag(4).Visible());
    EXPECT_TRUE(geathumb(4).Visible());
    loader.ErrClearPict(geathumb(4));
    EXPECT_EQ(lbltag(4).Caption(), QString());
    EXPECT_FALSE(geathumb(4).Visible());
    EXPECT_EQ(table.ErrGetPict(geathumb(4)), QString());
    loader.ErrLoadPict(geathumb(4), u"C:\\GONE.JPG"_s);
    EXPECT_TRUE(geathumb(4).Visible());
    EXPECT_EQ(lbltag(4).Caption(), QString());
}

TEST_F(SlotLoaderTest, ClearingAReportSlotLeavesItVisible)
{
    PictureBox& box = controls.imaRental(9);
    loader.ErrLoadPict(box, kPhoto);
    loader.ErrClearPict(box);
    EXPECT_TRUE(box.Visible());
    EXPECT_TRUE(box.Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(box), QString());
}

TEST_F(SlotLoaderTest, ClearImageBringsTheControlToTheFront)
{
    loader.ErrLoadPict(geaRes, kPhoto);
    int front = 0;
    QObject::connect(&geaRes, &forms::Control::FrontWanted, &geaRes, [&] { ++front; });
    loader.geaClearImage(geaRes);
    EXPECT_EQ(front, 1);
    EXPECT_TRUE(geaRes.Picture().isNull());
}

TEST_F(SlotLoaderTest, LoadThumbShowsOrHides)
{
    PictureBox& box = controls.imaListing(6);
    box.SetVisible(false);
    loader.ErrLoadThumb(box, kPhoto);
    EXPECT_TRUE(box.Visible());
    EXPECT_EQ(table.ErrGetPict(box), kPhoto);
    loader.ErrLoadThumb(box, u"    "_s);
    EXPECT_FALSE(box.Visible());
    EXPECT_TRUE(box.Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(box), QString());
    loader.ErrLoadThumb(box, QString());
    EXPECT_FALSE(box.Visible());
}

} // namespace
} // namespace vasclip::photos
