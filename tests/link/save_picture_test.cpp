#include "link/save_picture.h"

#include "desk_test.h"
#include "link/slot_photos.h"
#include "link/transfer.h"
#include "photos/photo_desk.h"

namespace vasclip::link {
namespace {

class Questions : public photos::PhotoQuestions
{
public:
    forms::Answer Overwrite(const QString& existing, const QString&, const QString&) override
    {
        asked << existing;
        return answer;
    }
    QString View(const QString&, const QString& proposal, const QString&) override { return proposal; }
    forms::Answer answer = forms::Answer::Yes;
    QStringList asked;
};

/// The desk with the photo store, and a report whose pictures lie beside it.
class SavePicture : public DeskTest
{
protected:
    Questions questions;
    photos::PhotoDesk photoDesk{doubles.Get(), home.disk, globals, sources.datDatabook,
                                lists,         loader,    status,  questions};

    void SetUp() override
    {
        DeskTest::SetUp();
        home.MakeDirs(u"C:\\KEL\\DATA"_s);
        desk.photoDesk = &photoDesk;
        photoDesk.setCity = [](const QString&) {};
        globals.useSubjCsz = u"NONE"_s;
        doubles.random.sequence = {0.7055475, 0.533424, 0.5795186, 0.2895625, 0.301948};
        OpenReport(u"SMITH"_s, u"UA5,SUBPHOTO,"_s);
        addr.txtKelReport.SetText(u"SMITH"_s);
        addr.txtFormType.SetText(u"UA5"_s);
        Map({u"UA5"_s, u"PAGE"_s, u"GLA"_s, u"7"_s, u"1"_s, u"SALE"_s, u"1"_s, u"1"_s});
        Map({u"UA5"_s, u"UA5"_s, u"GLA"_s, u"7"_s, u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
    }
    void Show(forms::PictureBox& slot, const QString& name)
    {
        const QString path = u"C:\\KEL\\DATA\\"_s + name;
        Picture(path);
        loader.ErrLoadThumb(slot, path);
    }
    /// Views of a record; each must name a file that is there.
    [[nodiscard]] QStringList Views(const QString& key)
    {
        StandOn(key);
        QStringList views;
        for (const auto& [view, stem] :
             photos::ParsePhotos(sources.datDatabook.Recordset().Value(u"PHOTOS"_s).toString())) {
            views << view;
            EXPECT_TRUE(home.disk.FileExists(u"C:\\JPG\\"_s + stem + u".jpg"_s)) << stem.toStdString();
        }
        return views;
    }
};

TEST_F(SavePicture, ABlankKeyAndAnEmptySlotAreSaid)
{
    Show(slots.imaComp(1), u"a.jpg"_s);
    EXPECT_EQ(SavePictureToDatabook(desk, {}, slots.imaComp(1), u"FRONT VIEW"_s), PictureOutcome::NoAddress);
    EXPECT_EQ(status.lblmsg.Caption(), u"Blank address"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Blue);
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 A"_s, slots.imaComp(2), u"FRONT VIEW"_s), PictureOutcome::NoPicture);
    EXPECT_EQ(status.lblmsg.Caption(), u"No associated picture"_s);
    table.ErrSetPict(slots.imaComp(2), u"C:\\VAS2000\\Empty.bmp"_s);
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 A"_s, slots.imaComp(2), u"FRONT VIEW"_s), PictureOutcome::NoPicture);
    EXPECT_TRUE(home.disk.Dir(u"C:\\JPG\\*.jpg"_s).isEmpty());
}

TEST_F(SavePicture, TheReportsPictureIsFiledWithANewRecord)
{
    Show(slots.imaComp(1), u"a.jpg"_s);
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 a st"_s, slots.imaComp(1), u"FRONT VIEW"_s), PictureOutcome::Filed);
    EXPECT_EQ(Views(u"1 A ST"_s), QStringList(u"FRONT VIEW"_s));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\KEL\\DATA\\a.jpg"_s)) << "the report keeps its own";
}

TEST_F(SavePicture, APictureOfACompBringsTheCityOfItsSecondAddressLine)
{
    globals.useSubjCsz = u"CSZ"_s;
    addr.txtKelCity.SetText(u"Marlow Falls"_s);
    AddComp(u"1 A"_s, {{u"NEIGHBORHD"_s, u"Alder, WI 54001"_s}});
    report.txtComp(1).SetText(u"1 A"_s);
    Show(slots.imaComp(1), u"a.jpg"_s);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Pic).pictures, 1);
    EXPECT_EQ(Read(u"1 A"_s).Text(u"CITY"_s), u"Alder"_s);
}

TEST_F(SavePicture, TheRecordsOwnPictureIsNotFiledAgain)
{
    Picture(u"C:\\JPG\\12345678.jpg"_s);
    AddComp(u"1 A"_s, {{u"PHOTOS"_s, u"FRONT VIEW|12345678\r\n"_s}});
    loader.ErrLoadThumb(slots.imaComp(1), u"C:\\JPG\\12345678.JPG"_s);
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 A"_s, slots.imaComp(1), u"FRONT VIEW"_s), PictureOutcome::IsThere);
    EXPECT_TRUE(questions.asked.isEmpty());
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*.jpg"_s).size(), 1);
}

TEST_F(SavePicture, AnotherPictureOfTheViewAsksAndNoKeepsIt)
{
    Picture(u"C:\\JPG\\12345678.jpg"_s);
    AddComp(u"1 A"_s, {{u"PHOTOS"_s, u"FRONT VIEW|12345678\r\n"_s}});
    Show(slots.imaComp(1), u"a.jpg"_s);
    questions.answer = forms::Answer::No;
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 A"_s, slots.imaComp(1), u"FRONT VIEW"_s), PictureOutcome::NotFiled);
    EXPECT_EQ(questions.asked.size(), 1);
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*.jpg"_s).size(), 1);
    questions.answer = forms::Answer::Yes;
    EXPECT_EQ(SavePictureToDatabook(desk, u"1 A"_s, slots.imaComp(1), u"FRONT VIEW"_s), PictureOutcome::Filed);
    EXPECT_EQ(Views(u"1 A"_s), QStringList(u"FRONT VIEW"_s));
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*.jpg"_s).size(), 2) << "the earlier file stays";
}

TEST_F(SavePicture, BothStoresDataAndFrontViewOfEachComp)
{
    for (int i : {1, 2}) {
        report.txtComp(i).SetText(u"%1 A"_s.arg(i));
        Show(slots.imaComp(i), u"%1.jpg"_s.arg(i));
    }
    const TransferTally tally = TransferComps(desk, true, 0, What::Both);
    EXPECT_EQ(tally.added, 2);
    EXPECT_EQ(tally.pictures, 2);
    EXPECT_EQ(tally.Text(), u"2 records were added, 2 pictures were filed."_s);
    EXPECT_EQ(Views(u"1 A"_s), QStringList(u"FRONT VIEW"_s));
    EXPECT_EQ(Views(u"2 A"_s), QStringList(u"FRONT VIEW"_s));
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"FRONT"_s), u"1"_s);
}

TEST_F(SavePicture, NoToTheDataStillFilesThePicture)
{
    AddComp(u"1 A"_s, {{u"GLA"_s, u"900"_s}});
    report.txtComp(1).SetText(u"1 A"_s);
    Show(slots.imaComp(1), u"1.jpg"_s);
    doubles.prompter.Answer(forms::Answer::No);
    const TransferTally tally = TransferComps(desk, false, 1, What::Both);
    EXPECT_EQ(tally.kept, 1);
    EXPECT_EQ(tally.pictures, 1);
    EXPECT_EQ(Views(u"1 A"_s), QStringList(u"FRONT VIEW"_s));
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"GLA"_s), u"900"_s);
}

TEST_F(SavePicture, PicturesAloneNeedNoFormsProgram)
{
    conduit.running = false;
    report.txtRental(9).SetText(u"1 A"_s);
    Show(slots.imaRental(9), u"1.jpg"_s);
    EXPECT_EQ(TransferRentals(desk, false, 9, What::Pic).pictures, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Views(u"1 A"_s), QStringList(u"FRONT VIEW"_s));
}

TEST_F(SavePicture, TheSubjectHasThreeViewsOrTheOneAskedFor)
{
    report.txtSubject.SetText(u"1 S"_s);
    for (int i : {1, 2, 3})
        Show(slots.imaSubject(i), u"s%1.jpg"_s.arg(i));
    EXPECT_EQ(TransferSubject(desk, What::Pic, 2).pictures, 1);
    EXPECT_EQ(Views(u"1 S"_s), QStringList(u"REAR VIEW"_s));
    EXPECT_EQ(TransferSubject(desk, What::Pic, 0).pictures, 3);
    EXPECT_EQ(Views(u"1 S"_s), (QStringList{u"REAR VIEW"_s, u"FRONT VIEW"_s, u"STREET SCENE"_s}));
    EXPECT_EQ(TransferSubject(desk, What::Pic, 4).slots_, 0);
}

TEST_F(SavePicture, AGeneralPhotoIsFiledWithTheSubjectUnderItsName)
{
    report.txtSubject.SetText(u"1 S"_s);
    Show(slots.imaGeneral(36), u"g.jpg"_s);
    report.cboGeneral(36).SetText(u"KITCHEN"_s);
    EXPECT_EQ(TransferSubject(desk, What::Pic, 136).pictures, 1);
    EXPECT_EQ(Views(u"1 S"_s), QStringList(u"KITCHEN"_s));
    EXPECT_EQ(TransferSubject(desk, What::Pic, 135).slots_, 0) << "a slot without a picture";
    EXPECT_EQ(TransferSubject(desk, What::Pic, 137).slots_, 0);
}

TEST_F(SavePicture, ACaptionWithABarIsCleanedAndToldAndTheSamePictureIsNotFiledTwice)
{
    report.txtSubject.SetText(u"1 S"_s);
    Show(slots.imaGeneral(36), u"g.jpg"_s);
    report.cboGeneral(36).SetText(u"POOL|DECK"_s);
    const TransferTally tally = TransferSubject(desk, What::Pic, 136);
    EXPECT_EQ(tally.Text(), u"1 picture was filed. A view's name can't hold \"|\" or a line break; it is \"POOL "
                            u"DECK\" now."_s);
    EXPECT_EQ(status.lblmsg.Caption(), tally.Text());
    EXPECT_EQ(Views(u"1 S"_s), QStringList(u"POOL DECK"_s));
    const QString stem = photos::PhotoList(Read(u"1 S"_s)).StemOf(u"POOL DECK"_s);
    table.ErrSetPict(slots.imaGeneral(36), u"C:\\JPG\\"_s + stem + u".jpg"_s);
    status.lblmsg.Show({}, forms::Colour::Normal);
    EXPECT_EQ(TransferSubject(desk, What::Pic, 136).pictures, 0);
    EXPECT_TRUE(questions.asked.isEmpty()) << "it is the record's own";
    EXPECT_EQ(status.lblmsg.Caption(), u"A view's name can't hold \"|\" or a line break; it is \"POOL DECK\" now."_s);
    Show(slots.imaGeneral(36), u"h.jpg"_s);
    questions.answer = forms::Answer::No;
    EXPECT_EQ(TransferSubject(desk, What::Pic, 136).pictures, 0);
    EXPECT_EQ(questions.asked.size(), 1) << "another picture of that view asks";
}

TEST_F(SavePicture, AStoredViewGoesOutAsACopyOfItsOwn)
{
    Script(u"refresh.bas"_s);
    Picture(u"C:\\JPG\\12345678.jpg"_s);
    const photos::PhotoList list({{u"FRONT VIEW"_s, u"12345678"_s}});
    EXPECT_TRUE(SendStoredView(desk, slots.imaComp(2), slots.imaComp(2), 2, list, u"FRONT VIEW"_s));
    const QString sent = table.ErrGetPict(slots.imaComp(2));
    EXPECT_NE(sent.toUpper(), u"C:\\JPG\\12345678.JPG"_s);
    EXPECT_TRUE(home.disk.FileExists(sent));
    ASSERT_EQ(conduit.commands.size(), 2) << "the script runs once";
    EXPECT_EQ(conduit.commands[0], u"[RunMacro( SetImage \"CMP_2_3X5\", \"%1\" ) ]\r"_s.arg(
                                       QString(sent).replace(u"\\"_s, u"\\\\"_s)));
    EXPECT_TRUE(SendStoredView(desk, slots.imaComp(2), slots.imaComp(2), 2, list, u"REAR VIEW"_s));
    EXPECT_EQ(table.ErrGetPict(slots.imaComp(2)), QString());
    EXPECT_EQ(conduit.commands.size(), 2);
}

} // namespace
} // namespace vasclip::link
