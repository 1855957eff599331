#include "photos/photo_records.h"

#include "photo_home.h"
#include "store/change.h"
#include "support/standing_time.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using photos::PhotoChange;
using photos::SavePhotoToRecord;

namespace {

const QString kKey = u"12 OAK ST"_s;

class PhotoRecords : public tests::PhotoHome
{
protected:
    QString source;
    void SetUp() override
    {
        PhotoHome::SetUp();
        AddComps({kKey, u"9 ELM ST"_s});
        source = PutJpeg(u"DSC1.JPG"_s);
    }
    bool Save(const QString& view, const QString& key = kKey)
    {
        table_.ErrSetPict(imaComp, source);
        const bool saved = SavePhotoToRecord(desk, key, imaComp, view);
        if (store::ReadRecord(datDatabook, kKey))
            Show(kKey);
        return saved;
    }
    /// Brings a record on show.
    void Show(const QString& key)
    {
        ASSERT_TRUE(store::FindRecord(ports, datDatabook, key, u"CENTRALKEY"_s));
        photos::ReadPhotoLists(datDatabook, lists.lstViews, lists.lstimages);
    }
    QString FrontOf(const QString& key)
    {
        EXPECT_TRUE(store::FindRecord(ports, datDatabook, key, u"CENTRALKEY"_s));
        return store::GetFieldData(datDatabook, u"FRONT"_s);
    }
    void SetPhotos(const QString& text)
    {
        ASSERT_TRUE(store::FindRecord(ports, datDatabook, kKey, u"CENTRALKEY"_s));
        datDatabook.Recordset().Edit();
        store::SetFieldData(datDatabook, text, u"PHOTOS"_s);
        datDatabook.Recordset().Update();
        Show(kKey);
    }
};

/// Answers Yes, after somebody has done something in the meantime.
class SlowYes : public tests::ScriptedPrompter
{
public:
    std::function<void()> meanwhile;
    forms::Answer MsgBox(forms::Buttons, forms::Icon, const QString&, const QString&) override
    {
        meanwhile();
        return forms::Answer::Yes;
    }
};

TEST_F(PhotoRecords, ANewViewBecomesALineAndAFile)
{
    EXPECT_TRUE(Save(u"FRONT VIEW"_s));
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_EQ(FrontOf(kKey), u"1"_s);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_TRUE(disk.FileExists(source));
    EXPECT_TRUE(Save(u"Rear view, porch"_s)) << "a view is kept as it was given";
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\nRear view, porch|00533424\r\n"_s);
    EXPECT_EQ(lists.lstViews.Items(), (QStringList{u"FRONT VIEW"_s, u"Rear view, porch"_s}));
    EXPECT_EQ(lists.lstimages.Items(), (QStringList{u"07055475"_s, u"00533424"_s}));
    EXPECT_TRUE(questions.asked.isEmpty());
    EXPECT_EQ(PhotosOf(u"9 ELM ST"_s), QString()) << "another record stays as it was";
}

TEST_F(PhotoRecords, ARecordThatIsNotThereIsAdded)
{
    QStringList cities;
    desk.setCity = [&](const QString& key) { cities << key; };
    EXPECT_TRUE(Save(u"REAR VIEW"_s, u"1 new rd"_s));
    EXPECT_EQ(PhotosOf(u"1 NEW RD"_s), u"REAR VIEW|07055475\r\n"_s);
    EXPECT_EQ(FrontOf(u"1 NEW RD"_s), QString());
    EXPECT_EQ(store::GetFieldData(datDatabook, u"ADDRESS"_s), u"1 new rd"_s);
    EXPECT_EQ(cities, QStringList{u"1 NEW RD"_s});
    desk.addRecord = [&](const QString& key) { AddComps({key.toUpper()}); };
    EXPECT_TRUE(Save(u"REAR VIEW"_s, u"2 new rd"_s));
    EXPECT_EQ(cities.last(), u"2 NEW RD"_s);
}

TEST_F(PhotoRecords, TheRecordOnShowItsListsAndItsEditStayWhileAnotherGetsAPhoto)
{
    SetPhotos(u"POOL|33333333\r\n"_s);
    lists.lstViews.SetListIndex(0);
    datDatabook.Recordset().Edit();
    EXPECT_TRUE(SavePhotoToRecord(desk, u"9 ELM ST"_s, source, u"FRONT VIEW"_s));
    EXPECT_TRUE(SavePhotoToRecord(desk, u"1 NEW RD"_s, source, u"FRONT VIEW"_s));
    EXPECT_EQ(datDatabook.Recordset().CurrentEditMode(), engine::EditMode::InProgress);
    EXPECT_EQ(store::GetFieldData(datDatabook, u"CENTRALKEY"_s), kKey);
    EXPECT_EQ(lists.lstViews.Items(), QStringList{u"POOL"_s});
    EXPECT_EQ(lists.lstViews.ListIndex(), 0);
    EXPECT_EQ(PhotosOf(u"9 ELM ST"_s), u"FRONT VIEW|07055475\r\n"_s);
}

TEST_F(PhotoRecords, EveryStepIsToldInItsWords)
{
    QStringList words;
    datDatabook.Watch([&](const store::Step& step) { words.append(step.words); });
    EXPECT_TRUE(Save(u"FRONT VIEW"_s));
    EXPECT_TRUE(Save(u"FRONT VIEW"_s, u"1 new rd"_s));
    EXPECT_EQ(words, (QStringList{u"Photos of 12 OAK ST"_s, u"Add 1 NEW RD for a photo"_s, u"Photos of 1 NEW RD"_s}));
}

TEST_F(PhotoRecords, WhatIsMissingIsSaidInRed)
{
    EXPECT_FALSE(Save(u"FRONT VIEW"_s, u"  "_s));
    EXPECT_EQ(status.lblmsg.Caption(), u"Blank address"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
    for (const QString& none : {QString(), u"  "_s, u"C:\\VASCLIP\\Addendum_Empty.bmp"_s}) {
        status.lblmsg.Show({}, forms::Colour::Normal);
        table_.ErrSetPict(imaComp, none);
        EXPECT_FALSE(SavePhotoToRecord(desk, kKey, imaComp, u"FRONT VIEW"_s));
        EXPECT_EQ(status.lblmsg.Caption(), u"No associated picture"_s);
        EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
    }
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(PhotoRecords, ArgumentsAreChecked)
{
    using photos::CheckFiling;
    using photos::FilingCheck;
    EXPECT_EQ(CheckFiling(disk, u" "_s, source, u"V"_s), FilingCheck::BlankKey);
    EXPECT_EQ(CheckFiling(disk, kKey, u" "_s, u"V"_s), FilingCheck::BlankSource);
    EXPECT_EQ(CheckFiling(disk, kKey, u"C:\\NONE.JPG"_s, u"V"_s), FilingCheck::MissingSource);
    EXPECT_EQ(CheckFiling(disk, kKey, source, u" "_s), FilingCheck::BlankView);
    EXPECT_EQ(CheckFiling(disk, kKey, source, u"V"_s), FilingCheck::Fine);
    EXPECT_EQ(static_cast<int>(FilingCheck::BlankView), 4);
    EXPECT_FALSE(Save(u"  "_s));
    source = u"C:\\VASSNAP\\NONE.JPG"_s;
    EXPECT_FALSE(Save(u"FRONT VIEW"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "no message is shown here";
    EXPECT_EQ(PhotosOf(kKey), u" "_s) << "written whatever the outcome";
}

TEST_F(PhotoRecords, AViewThatIsPresentAsksAndKeepsTheEarlierFile)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    EXPECT_TRUE(Save(u"front view "_s)) << "case and blanks don't make another view";
    EXPECT_EQ(questions.asked, QStringList{u"C:\\JPG\\07055475.JPG <- "_s + source});
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|00533424\r\n"_s);
    EXPECT_EQ(Stored(), (QStringList{u"00533424.JPG"_s, u"07055475.JPG"_s}));
    for (const forms::Answer answer : {forms::Answer::No, forms::Answer::Cancel}) {
        questions.overwrite = answer;
        EXPECT_FALSE(Save(u"FRONT VIEW"_s));
        EXPECT_FALSE(desk.PictureSaved);
        EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|00533424\r\n"_s);
    }
    EXPECT_EQ(Stored().size(), 2);
    disk.Kill(u"C:\\JPG\\00533424.JPG"_s);
    questions.asked.clear();
    EXPECT_TRUE(Save(u"FRONT VIEW"_s)) << "a file that is gone is not asked about";
    EXPECT_TRUE(questions.asked.isEmpty());
}

TEST_F(PhotoRecords, APictureThatIsReplacedWhileTheOverwriteIsAskedIsNotFiled)
{
    class Slow : public tests::ScriptedQuestions
    {
    public:
        std::function<void()> meanwhile;
        forms::Answer Overwrite(const QString&, const QString&, const QString&) override
        {
            meanwhile();
            return forms::Answer::Yes;
        }
    } user;
    user.meanwhile = [this] { picture::SaveJpeg(disk, Sample(80, 60), source, 95); };
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    photos::PhotoDesk slow{ports, disk, globals, datDatabook, lists, loader, status, user};
    EXPECT_FALSE(SavePhotoToRecord(slow, kKey, source, u"FRONT VIEW"_s));
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_FALSE(slow.PictureSaved);
    EXPECT_TRUE(status.lblmsg.Caption().contains(u"is another picture now than the one you chose"_s))
        << status.lblmsg.Caption().toStdString();
    EXPECT_TRUE(Save(u"FRONT VIEW"_s)) << "the next time it is the one that the question shows";
}

TEST_F(PhotoRecords, ASaveThatFailsLeavesTheRecordAsItWas)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    globals.G_PhotoDir = u"Q:\\"_s; // no such drive
    EXPECT_FALSE(Save(u"REAR VIEW"_s));
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
    EXPECT_FALSE(status.lblmsg.Caption().isEmpty()) << "the status line tells why";
    EXPECT_EQ(lists.lstViews.ListCount(), 1);
    EXPECT_TRUE(disk.FileExists(source));
}

TEST_F(PhotoRecords, ACorruptPictureCostsItsMessage)
{
    disk.WriteWhole(source, "\xFF\xD8\xFF\xE0 none");
    EXPECT_FALSE(Save(u"FRONT VIEW"_s));
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"The File '"_s + source + u"' appears to be a corrupt file."_s});
    EXPECT_EQ(PhotosOf(kKey), u" "_s);
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(PhotoRecords, PhotosThatAnotherUserFiledMeanwhileStay)
{
    engine::Engine other(disk, tests::SomeTime());
    bool done = false;
    doubles.clock.onWait = [&] { // while the picture is being stored, after the lists were read
        if (std::exchange(done, true))
            return;
        const auto database = other.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, kKey);
        ASSERT_FALSE(rows->NoMatch());
        rows->Edit();
        rows->SetValue(u"PHOTOS"_s, u"STREET SCENE|87654321\r\n"_s);
        rows->Update();
    };
    EXPECT_TRUE(Save(u"FRONT VIEW"_s));
    EXPECT_EQ(PhotosOf(kKey), u"STREET SCENE|87654321\r\nFRONT VIEW|07055475\r\n"_s);
}

TEST_F(PhotoRecords, ALineCanHoldTheView)
{
    EXPECT_TRUE(Save(u"SIDE | NORTH\r\nEND"_s));
    EXPECT_EQ(PhotosOf(kKey), u"SIDE   NORTH  END|07055475\r\n"_s);
}

TEST_F(PhotoRecords, AViewWithABarIsOneViewAndAsksBeforeItIsReplaced)
{
    ASSERT_TRUE(Save(u"SIDE|NORTH"_s));
    questions.overwrite = forms::Answer::No;
    EXPECT_FALSE(Save(u"SIDE|NORTH"_s));
    EXPECT_EQ(questions.asked.size(), 1) << "the record has that view";
    EXPECT_EQ(questions.whose, QStringList{kKey});
    EXPECT_EQ(PhotosOf(kKey), u"SIDE NORTH|07055475\r\n"_s);
    EXPECT_FALSE(Save(u"|"_s)) << "blank, once it is cleaned";
    EXPECT_EQ(PhotosOf(kKey), u"SIDE NORTH|07055475\r\n"_s);
}

TEST_F(PhotoRecords, RenamingKeepsThePhotoWithItsRecordWhateverIsTyped)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    ASSERT_TRUE(Save(u"REAR VIEW"_s));
    lists.lstViews.SetListIndex(0);
    questions.view = u"POOL|DECK"_s;
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::Changed);
    EXPECT_EQ(PhotosOf(kKey), u"POOL DECK|07055475\r\nREAR VIEW|00533424\r\n"_s);
    EXPECT_EQ(questions.whose.last(), kKey);
    lists.lstViews.SetListIndex(0);
    questions.view = u"POOL\r\nFENCE|"_s;
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::Changed);
    EXPECT_EQ(PhotosOf(kKey), u"POOL  FENCE |07055475\r\nREAR VIEW|00533424\r\n"_s);
    lists.lstViews.SetListIndex(0);
    questions.view = u"rear|view"_s;
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::None);
    EXPECT_EQ(doubles.prompter.Last().title, u"Name already in Use"_s);
}

TEST_F(PhotoRecords, ARefusedPictureLeavesNoNewRecord)
{
    disk.WriteWhole(source, "\xFF\xD8\xFF\xE0 none");
    EXPECT_FALSE(Save(u"FRONT VIEW"_s, u"1 NEW RD"_s));
    EXPECT_FALSE(Save(u"  "_s, u"1 NEW RD"_s));
    source = u"C:\\VASSNAP\\NONE.JPG"_s;
    EXPECT_FALSE(Save(u"FRONT VIEW"_s, u"1 NEW RD"_s));
    globals.G_PhotoDir = u"Q:\\"_s; // no such drive
    source = PutJpeg(u"DSC2.JPG"_s);
    EXPECT_FALSE(Save(u"FRONT VIEW"_s, u"1 NEW RD"_s));
    EXPECT_FALSE(store::FindRecord(ports, datDatabook, u"1 NEW RD"_s, u"CENTRALKEY"_s));
}

TEST_F(PhotoRecords, WhatTheDatabookRefusesIsTakenBack)
{
    desk.setCity = [](const QString&) { throw RuntimeError(61, u"The disk is full"_s); };
    for (const QString& record : {kKey, u"1 NEW RD"_s}) {
        try {
            (void)Save(u"FRONT VIEW"_s, record);
            ADD_FAILURE() << "nothing was told";
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.Description(), u"The disk is full"_s);
        }
        EXPECT_FALSE(desk.PictureSaved) << "or the source would go to the trash";
        EXPECT_EQ(Stored(), QStringList()) << "a file that no record names";
    }
    EXPECT_EQ(PhotosOf(kKey), QString());
    EXPECT_FALSE(store::FindRecord(ports, datDatabook, u"1 NEW RD"_s, u"CENTRALKEY"_s));
    EXPECT_TRUE(disk.FileExists(source));
}

TEST_F(PhotoRecords, ARecordThatIsDeletedWhileItsPictureIsStoredIsTold)
{
    engine::Engine other(disk, tests::SomeTime());
    bool done = false;
    doubles.clock.onWait = [&] {
        if (std::exchange(done, true))
            return;
        const auto rows = other.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, kKey);
        ASSERT_FALSE(rows->NoMatch());
        rows->Delete();
    };
    EXPECT_FALSE(Save(u"FRONT|VIEW"_s)) << "under whatever name";
    EXPECT_EQ(status.lblmsg.Caption(), u"12 OAK ST is not in the Databook any more"_s);
    EXPECT_EQ(Stored(), QStringList());
    EXPECT_FALSE(desk.PictureSaved);
}

TEST_F(PhotoRecords, DeletingNeverLeavesARecordThatNamesAMissingPicture)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    lists.lstViews.SetListIndex(0);
    doubles.prompter.Answer(forms::Answer::Yes);
    engine::Engine other(disk, tests::SomeTime());
    int turns = 0;
    doubles.pump.onTurn = [&] { // as the next start would find it, were the program killed here
        ++turns;
        const auto rows = other.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, kKey);
        ASSERT_FALSE(rows->NoMatch());
        const bool named = rows->Value(u"PHOTOS"_s).toString().contains(u"07055475"_s);
        EXPECT_TRUE(!named || disk.FileExists(u"C:\\JPG\\07055475.JPG"_s));
        EXPECT_TRUE(named || disk.FileExists(u"C:\\VASSNAP\\07055475.JPG"_s));
    };
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::LastGone);
    doubles.pump.onTurn = {};
    EXPECT_GT(turns, 0);
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(PhotoRecords, ADeletionThatTheDatabookRefusesTakesItsCopyBack)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    disk.Kill(source);
    lists.lstViews.SetListIndex(0);
    doubles.prompter.Answer(forms::Answer::Yes);
    engine::Engine other(disk, tests::SomeTime());
    auto holder = other.OpenDatabase(path);
    engine.SetLockWait(50);
    {
        const engine::Transaction held(*holder); // another user stores something
        EXPECT_THROW(static_cast<void>(photos::CmdDeletePhoto(desk, geamaintain)), RuntimeError);
    }
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_EQ(disk.Dir(u"C:\\VASSNAP\\*.*"_s), QStringList()) << "no copy waits to be filed again";
    EXPECT_EQ(lists.lstViews.ListCount(), 1) << "and the list shows the photo";
}

TEST_F(PhotoRecords, APictureThatIsReplacedWhileItsDeletionIsAskedStays)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    disk.Kill(source);
    const QString stored = u"C:\\JPG\\07055475.JPG"_s;
    SlowYes user;
    forms::Ports slow{user, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    photos::PhotoDesk other{slow, disk, globals, datDatabook, lists, loader, status, questions};
    user.meanwhile = [&] { picture::SaveJpeg(disk, Sample(80, 60), stored, 95); };
    lists.lstViews.SetListIndex(0);
    EXPECT_EQ(photos::CmdDeletePhoto(other, geamaintain), PhotoChange::None);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"07055475.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_TRUE(disk.FileExists(stored));
}

TEST_F(PhotoRecords, DeletingAPhotoOfARecordThatIsRenamedMeanwhileKeepsThePictureWhereItWas)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    disk.Kill(source);
    SlowYes user;
    forms::Ports slow{user, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    photos::PhotoDesk other{slow, disk, globals, datDatabook, lists, loader, status, questions};
    user.meanwhile = [&] {
        engine::Engine elsewhere(disk, tests::SomeTime());
        const auto database = elsewhere.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, kKey);
        ASSERT_FALSE(rows->NoMatch());
        rows->Edit();
        rows->SetValue(u"CENTRALKEY"_s, u"12 OAK STREET"_s);
        rows->Update();
    };
    lists.lstViews.SetListIndex(0);
    EXPECT_EQ(photos::CmdDeletePhoto(other, geamaintain), PhotoChange::None);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_EQ(disk.Dir(u"C:\\VASSNAP\\*.*"_s), QStringList());
    EXPECT_EQ(status.lblmsg.Caption(), u"12 OAK ST is not in the Databook any more"_s);
}

TEST_F(PhotoRecords, DeletingAsksGivesTheFileBackAndWritesTheRecord)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    ASSERT_TRUE(Save(u"REAR VIEW"_s));
    lists.lstViews.SetListIndex(-1);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::None) << "nothing is selected";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    lists.lstViews.SetListIndex(0);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::None);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete this photo?  Are you sure?"_s);
    EXPECT_EQ(Stored().size(), 2);
    disk.SetAttr(u"C:\\JPG\\07055475.JPG"_s, files::ReadOnly);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::Changed);
    EXPECT_EQ(PhotosOf(kKey), u"REAR VIEW|00533424\r\n"_s);
    EXPECT_EQ(FrontOf(kKey), QString());
    EXPECT_EQ(Stored(), QStringList{u"00533424.JPG"_s});
    EXPECT_TRUE(disk.FileExists(u"C:\\VASSNAP\\07055475.JPG"_s)) << "it waits to be filed again";
    EXPECT_EQ(disk.GetAttr(u"C:\\VASSNAP\\07055475.JPG"_s), files::Normal);
    EXPECT_EQ(lists.lstViews.ListIndex(), 0);
    EXPECT_EQ(table_.ErrGetPict(geamaintain), u"C:\\JPG\\00533424.JPG"_s);
}

TEST_F(PhotoRecords, DeletingTheLastPhotoLeavesABlank)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    lists.lstViews.SetListIndex(0);
    lists.txtView.SetText(u"FRONT VIEW"_s);
    lists.txtimage.SetText(u"07055475"_s);
    lists.lblPhotomsg.SetCaption(u"something"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::LastGone);
    EXPECT_EQ(PhotosOf(kKey), u" "_s);
    EXPECT_EQ(FrontOf(kKey), QString());
    EXPECT_EQ(lists.txtView.Text() + lists.txtimage.Text() + lists.lblPhotomsg.Caption(), QString());
    EXPECT_TRUE(geamaintain.Picture().isNull());
    EXPECT_EQ(table_.ErrGetPict(geamaintain), QString());
}

TEST_F(PhotoRecords, APhotoWhoseFileIsGoneCanBeDeletedToo)
{
    SetPhotos(u"FRONT VIEW|11111111\r\n"_s);
    lists.lstViews.SetListIndex(0);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::LastGone);
    EXPECT_EQ(PhotosOf(kKey), u" "_s);
}

TEST_F(PhotoRecords, TheOnlyCopyStaysWhenItCannotBeGivenBack)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    lists.lstViews.SetListIndex(0);
    globals.G_CaptureDir = globals.G_PhotoDir;
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::None);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Cannot copy.  Source and destination paths cannot be the same."_s);
    EXPECT_EQ(PhotosOf(kKey), u"FRONT VIEW|07055475\r\n"_s);
    EXPECT_EQ(Stored().size(), 1);
}

TEST_F(PhotoRecords, FrontViewClearsWithItsRowAlone)
{
    SetPhotos(u"front view|11111111\r\nREAR VIEW|22222222\r\n"_s);
    photos::WritePhotoLists(ports, datDatabook, lists.lstViews, lists.lstimages);
    EXPECT_EQ(FrontOf(kKey), u"1"_s) << "in any case";
    disk.WriteWhole(u"C:\\JPG\\FRONT VIEW.jpg"_s, "a file of that name means nothing");
    lists.lstViews.SetListIndex(0);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(photos::CmdDeletePhoto(desk, geamaintain), PhotoChange::Changed);
    EXPECT_EQ(FrontOf(kKey), QString());
    EXPECT_EQ(PhotosOf(kKey), u"REAR VIEW|22222222\r\n"_s);
}

TEST_F(PhotoRecords, DeletingKeepsToItsRecordAndToWhatOthersFiledMeanwhile)
{
    SetPhotos(u"FRONT VIEW|11111111\r\nREAR VIEW|22222222\r\n"_s);
    engine::Engine other(disk, tests::SomeTime());
    lists.lstViews.SetListIndex(0);
    SlowYes user;
    forms::Ports slow{user, doubles.pump, doubles.clock, doubles.random, doubles.window, doubles.screens};
    photos::PhotoDesk filing{slow, disk, globals, datDatabook, lists, loader, status, questions};
    user.meanwhile = [&] { // another user files a photo, and this one goes to another record
        const auto database = other.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, kKey);
        rows->Edit();
        rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|11111111\r\nREAR VIEW|22222222\r\nPOOL|33333333\r\n"_s);
        rows->Update();
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, u"99 OTHER RD"_s);
        rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|44444444\r\n"_s);
        rows->Update();
        ASSERT_TRUE(store::FindRecord(ports, datDatabook, u"99 OTHER RD"_s, u"CENTRALKEY"_s));
        photos::ReadPhotoLists(datDatabook, lists.lstViews, lists.lstimages);
    };
    EXPECT_EQ(photos::CmdDeletePhoto(filing, geamaintain), PhotoChange::Changed);
    EXPECT_EQ(PhotosOf(kKey), u"REAR VIEW|22222222\r\nPOOL|33333333\r\n"_s);
    EXPECT_EQ(PhotosOf(u"99 OTHER RD"_s), u"FRONT VIEW|44444444\r\n"_s);
}

TEST_F(PhotoRecords, RenamingChangesTheViewAndNoFile)
{
    ASSERT_TRUE(Save(u"FRONT VIEW"_s));
    ASSERT_TRUE(Save(u"REAR VIEW"_s));
    lists.lstViews.SetListIndex(-1);
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::None);
    EXPECT_TRUE(questions.asked.isEmpty()) << "nothing is selected";
    lists.lstViews.SetListIndex(0);
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::None) << "the user gave up";
    EXPECT_EQ(questions.asked, QStringList{u"C:\\JPG\\07055475.JPG ? FRONT VIEW"_s});
    questions.view = u"rear view"_s;
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::None);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::Ok, forms::Icon::None, u"Name already in Use"_s,
                               u"You already have a picture for this entry by that name"_s}));
    questions.view = u"POOL"_s;
    EXPECT_EQ(photos::CmdRenamePhotoView(desk), PhotoChange::Changed);
    EXPECT_EQ(PhotosOf(kKey), u"POOL|07055475\r\nREAR VIEW|00533424\r\n"_s);
    EXPECT_EQ(FrontOf(kKey), QString());
    EXPECT_EQ(lists.txtView.Text(), u"POOL"_s);
    EXPECT_EQ(desk.CurrentView, QString());
    EXPECT_EQ(Stored().size(), 2);
}

} // namespace
