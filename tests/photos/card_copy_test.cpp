#include "photos/card_copy.h"

#include "photos/frm_copy_pics.h"
#include "platform/files/profile.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;
using forms::Answer;

class CardCopy : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    common::Globals globals;
    SlotTable table;
    SlotLoader loader{home.disk, ports, table};
    const QString card = u"C:\\CARD\\"_s;
    const QString capture = u"C:\\VASSNAP\\"_s;
    qint64 freeBytes = 1'000'000'000;
    QHash<QString, QString> records;

    void SetUp() override
    {
        globals.G_CaptureDir = capture;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.G_ProgramDir = u"C:\\VAS2000\\"_s;
        globals.applicationIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
        globals.floppy = u"C:\\FLOP\\"_s;
        globals.reader = card;
        globals.rom = u"C:\\ROM\\"_s;
        home.MakeDirs(u"C:\\VASSNAP"_s);
        home.MakeDirs(u"C:\\VAS2000"_s);
        home.Put(globals.applicationIni, "");
        home.Put(card + u"A.JPG"_s, "picture a");
        home.Put(card + u"B.JPG"_s, "picture bb");
        home.Put(card + u"C.BMP"_s, "picture ccc");
    }
    CopyDesk Desk()
    {
        return {.ports = ports,
                .disk = home.disk,
                .globals = globals,
                .recordOf = [this](const QString& stem) { return records.value(stem); },
                .freeBytes = [this](const QString&) { return freeBytes; }};
    }
    CopyOutcome Copy(const QStringList& names, const CopyStep& step = {})
    {
        return CopyFromMedia(Desk(), card, names, step);
    }
    std::unique_ptr<frm_CopyPics> Opened(const QString& word = u"REMOVABLE"_s)
    {
        auto screen = std::make_unique<frm_CopyPics>(Desk(), globals, loader, word, u"Copy"_s);
        screen->Open();
        return screen;
    }
    [[nodiscard]] QStringList Names(const QString& directory) const
    {
        return QDir(home.disk.ToNative(directory)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    [[nodiscard]] QByteArray Read(const QString& path) const { return home.disk.ReadWhole(path); }
};

TEST_F(CardCopy, CopiesUnderItsOwnNamesAndLeavesTheCard)
{
    QList<qint64> told;
    const CopyOutcome outcome = Copy({u"A.JPG"_s, u"C.BMP"_s}, [&](const QString&, qint64 done, qint64 total) {
        if (total > 0)
            told.append(done);
        return true;
    });
    EXPECT_TRUE(outcome.begun);
    EXPECT_FALSE(outcome.stopped);
    EXPECT_EQ(outcome.copied, 2);
    EXPECT_EQ(Names(capture), (QStringList{u"A.JPG"_s, u"C.BMP"_s}));
    EXPECT_EQ(Read(capture + u"A.JPG"_s), "picture a");
    EXPECT_EQ(Names(card).size(), 3);
    ASSERT_FALSE(told.isEmpty());
    EXPECT_EQ(told.last(), 20) << "both are told to the last byte";
    EXPECT_TRUE(std::is_sorted(told.cbegin(), told.cend()));
    EXPECT_EQ(outcome.Text(capture), u"Photos copied to C:\\VASSNAP\\: 2"_s);
}

TEST_F(CardCopy, AnEqualNameIsOverwrittenAfterItIsKeptInTheTrash)
{
    home.Put(capture + u"A.JPG"_s, "another one");
    home.disk.SetAttr(capture + u"A.JPG"_s, files::ReadOnly);
    home.Put(capture + u"TRASHCAN\\A.JPG"_s, "an older one");
    const CopyOutcome outcome = Copy({u"A.JPG"_s});
    EXPECT_EQ(outcome.copied, 1);
    EXPECT_EQ(Read(capture + u"A.JPG"_s), "picture a");
    EXPECT_EQ(Read(capture + u"TRASHCAN\\A.JPG"_s), "an older one");
    EXPECT_EQ(Read(capture + u"TRASHCAN\\A (2).JPG"_s), "another one");
    EXPECT_EQ(outcome.kept, QStringList{u"C:\\VASSNAP\\TRASHCAN\\A (2).JPG"_s});
    EXPECT_TRUE(outcome.Text(capture).endsWith(u", replaced and kept in the trash: 1"_s));
}

TEST_F(CardCopy, WhatIsThereUnderItsNameIsNotCopiedAgain)
{
    home.Put(capture + u"a.jpg"_s, "picture a");
    const CopyOutcome outcome = Copy({u"A.JPG"_s, u"B.JPG"_s});
    EXPECT_EQ(outcome.copied, 1);
    EXPECT_EQ(outcome.thereAlready, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Names(capture), (QStringList{u"B.JPG"_s, u"a.jpg"_s}));
    EXPECT_FALSE(home.disk.DirExists(capture + u"TRASHCAN"_s)) << "nothing was replaced";
}

TEST_F(CardCopy, KnownPicturesAreToldByContentAndAskedAbout)
{
    home.Put(capture + u"OTHER.JPG"_s, "picture a");
    home.Put(u"C:\\JPG\\12345678.jpg"_s, "picture bb");
    home.Put(capture + u"TRASHCAN\\GONE.BMP"_s, "picture ccc");
    home.Put(card + u"D.JPG"_s, "picture dddd");
    records.insert(u"12345678"_s, u"12 OAK ST"_s);
    const QStringList all{u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s, u"D.JPG"_s};
    doubles.prompter.Answer(Answer::Cancel);
    CopyOutcome outcome = Copy(all);
    EXPECT_FALSE(outcome.begun);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNoCancel, forms::Icon::Question, {},
                               u"3 of 4 photos have come in before:\r\n\r\n"
                               u"A.JPG is C:\\VASSNAP\\OTHER.JPG\r\nB.JPG is filed with 12 OAK ST\r\n"
                               u"C.BMP is in the trash as C:\\VASSNAP\\TRASHCAN\\GONE.BMP\r\n\r\nCopy them again?"_s}));
    EXPECT_EQ(Names(capture), QStringList{u"OTHER.JPG"_s});
    doubles.prompter.Answer(Answer::No);
    outcome = Copy(all);
    EXPECT_EQ(outcome.copied, 1);
    EXPECT_EQ(outcome.leftOut, 3);
    EXPECT_EQ(Names(capture), (QStringList{u"D.JPG"_s, u"OTHER.JPG"_s}));
    doubles.prompter.Answer(Answer::Yes);
    outcome = Copy(all);
    EXPECT_EQ(outcome.copied, 3);
    EXPECT_EQ(outcome.thereAlready, 1);
    EXPECT_EQ(Names(capture).size(), 5);
}

TEST_F(CardCopy, AStoredFileThatNoRecordNamesIsNotFiled)
{
    home.Put(u"C:\\JPG\\12345678.jpg"_s, "picture a");
    EXPECT_EQ(Copy({u"A.JPG"_s}).copied, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(CardCopy, ManyKnownPicturesAreCountedAndFiveAreNamed)
{
    QStringList names;
    for (int i = 0; i < 8; ++i) {
        names.append(u"P%1.JPG"_s.arg(i));
        home.Put(card + names.last(), "content " + QByteArray::number(i));
        home.Put(capture + u"Q%1.JPG"_s.arg(i), "content " + QByteArray::number(i));
    }
    doubles.prompter.Answer(Answer::Cancel);
    Copy(names);
    const QString text = doubles.prompter.Last().text;
    EXPECT_TRUE(text.startsWith(u"8 of 8 photos have come in before:"_s));
    EXPECT_EQ(text.count(u" is C:\\VASSNAP\\Q"_s), 5);
    EXPECT_TRUE(text.contains(u"and 3 more"_s));
}

TEST_F(CardCopy, ADirectoryWithAPercentSignIsToldAsItStands)
{
    globals.G_CaptureDir = u"C:\\100%2\\"_s;
    const CopyOutcome outcome = Copy({u"A.JPG"_s});
    EXPECT_EQ(outcome.Text(globals.G_CaptureDir), u"Photos copied to C:\\100%2\\: 1"_s);
    freeBytes = 1;
    home.Put(card + u"BIG.JPG"_s, QByteArray(3 * 1024 * 1024 - 5, 'x'));
    EXPECT_FALSE(Copy({u"BIG.JPG"_s}).begun);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(
        u"There is not enough room in C:\\100%2\\: the photos need 3 MB, and 0 MB are free."_s))
        << doubles.prompter.Last().text.toStdString();
}

TEST_F(CardCopy, WithoutRoomNothingIsCopied)
{
    freeBytes = 2 * 1024 * 1024;
    home.Put(card + u"BIG.JPG"_s, QByteArray(3 * 1024 * 1024 - 5, 'x'));
    const CopyOutcome outcome = Copy({u"A.JPG"_s, u"BIG.JPG"_s});
    EXPECT_FALSE(outcome.begun);
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::Ok, forms::Icon::Exclamation, u"Not Enough Room"_s,
                               u"There is not enough room in C:\\VASSNAP\\: the photos need 4 MB, and 2 MB are free. "
                               u"Nothing was copied. Select fewer photos, or make room and try again."_s}));
    EXPECT_TRUE(Names(capture).isEmpty());
    EXPECT_EQ(Copy({u"A.JPG"_s}).copied, 1) << "fewer go in";
}

TEST_F(CardCopy, WhatIsReplacedNeedsItsRoomInTheTrashToo)
{
    home.Put(capture + u"A.JPG"_s, QByteArray(100, 'y'));
    freeBytes = 50;
    EXPECT_FALSE(Copy({u"A.JPG"_s}).begun);
    freeBytes = 109;
    EXPECT_EQ(Copy({u"A.JPG"_s}).copied, 1);
}

TEST_F(CardCopy, ACopyCanBeStopped)
{
    home.Put(card + u"B.JPG"_s, QByteArray(5 * 1024 * 1024, 'b'));
    int steps = 0;
    const CopyOutcome outcome = Copy({u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s}, [&](const QString& doing, qint64, qint64) {
        return doing != u"Copying B.JPG"_s || ++steps < 3;
    });
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.copied, 1);
    EXPECT_EQ(Names(capture), QStringList{u"A.JPG"_s}) << "nothing half written";
    EXPECT_EQ(outcome.Text(capture), u"Stopped. Photos copied to C:\\VASSNAP\\: 1"_s);
}

TEST_F(CardCopy, ACardPulledOutIsAskedAboutAndTheRestGoesOn)
{
    // The card goes while the second picture is about to be copied, and comes back at the second question.
    const QString native = home.disk.ToNative(u"C:\\CARD"_s);
    int turns = 0;
    bool pulled = false;
    const auto step = [&](const QString& doing, qint64, qint64 total) {
        if (total > 0 && doing == u"Copying B.JPG"_s && !pulled && ++turns == 1) {
            pulled = true;
            EXPECT_TRUE(QDir().rename(native, native + u"-OUT"_s));
        }
        return true;
    };
    doubles.prompter.Answer(Answer::Retry);
    doubles.prompter.Answer(Answer::Cancel);
    const CopyOutcome outcome = Copy({u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s}, step);
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.copied, 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2u);
    EXPECT_EQ(doubles.prompter.Last(), (tests::ShownBox{forms::Buttons::RetryCancel, forms::Icon::Exclamation, {},
                                                        u"Media is not ready/readable. Try again?"_s}));
    EXPECT_EQ(Names(capture), QStringList{u"A.JPG"_s});
    ASSERT_TRUE(QDir().rename(native + u"-OUT"_s, native));
    EXPECT_EQ(Copy({u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s}).copied, 2) << "with the card back the rest comes in";
    EXPECT_EQ(Names(card).size(), 3);
}

TEST_F(CardCopy, AnErrorOfTheTargetGoesToTheCommonBlock)
{
    home.Put(u"C:\\VASSNAP\\TRASHCAN"_s, "a file where the trash directory should be");
    home.Put(capture + u"A.JPG"_s, "another one");
    const CopyOutcome outcome = Copy({u"B.JPG"_s, u"A.JPG"_s, u"C.BMP"_s});
    EXPECT_EQ(outcome.Text(capture), u"Stopped. Photos copied to C:\\VASSNAP\\: 1, not copied: A.JPG"_s);
    EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"C:\\VASSNAP\\TRASHCAN"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(Read(capture + u"A.JPG"_s), "another one") << "what can't be kept is not replaced";
}

TEST_F(CardCopy, PicturesFromADiscCanBeChangedAfterwards)
{
    home.disk.SetAttr(card + u"A.JPG"_s, files::ReadOnly);
    Copy({u"A.JPG"_s});
    EXPECT_EQ(home.disk.GetAttr(capture + u"A.JPG"_s) & files::ReadOnly, 0u);
}

TEST_F(CardCopy, TheStartDirectoryFollowsTheDeviceUnlessTheLastOneIsThere)
{
    struct Row
    {
        QString last, word, wanted;
    };
    for (const Row& row : {Row{{}, u"FLOPPY"_s, u"C:\\FLOP\\"_s}, Row{{}, u"Removable"_s, u"C:\\CARD\\"_s},
                           Row{{}, u"CDROM"_s, u"C:\\ROM\\"_s}, Row{{}, u"anything"_s, u"C:\\"_s},
                           Row{u"C:\\VAS2000"_s, u"FLOPPY"_s, u"C:\\VAS2000\\"_s},
                           Row{u"C:\\NOWHERE"_s, u"ROM"_s, u"C:\\ROM\\"_s}}) {
        globals.lastCopy = row.last;
        EXPECT_EQ(StartDirectory(globals, home.disk, row.word), row.wanted)
            << row.last.toStdString() << " " << row.word.toStdString();
    }
}

TEST_F(CardCopy, TheWindowListsAndCopiesWhatIsSelected)
{
    auto screen = Opened();
    EXPECT_EQ(screen->filListBox.Items(), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s}));
    EXPECT_EQ(screen->ckbPicPreview.Caption(), u"Preview Image Highlighted"_s);
    EXPECT_EQ(screen->cmdSelectAll.Caption(), u"&Select All"_s);
    EXPECT_EQ(screen->cmdClear.Caption(), u"Unselect All"_s);
    EXPECT_EQ(screen->cmdCopy.Caption(), u"C&opy"_s);
    EXPECT_EQ(screen->Command2.Caption(), u"&Cancel"_s);
    screen->filListBox.Select({1});
    screen->cmdCopy_Click();
    EXPECT_FALSE(screen->IsOpen()) << "on end the window closes";
    screen->End();
    EXPECT_EQ(Names(capture), QStringList{u"B.JPG"_s});
    EXPECT_EQ(screen->Done(), u"Photos copied to C:\\VASSNAP\\: 1"_s);
    EXPECT_EQ(globals.lastCopy, card);
    EXPECT_EQ(files::GetPrivateProfileString(home.disk, u"COPY DEVICE"_s, u"LASTCOPY"_s, {}, globals.applicationIni),
              card);
}

TEST_F(CardCopy, WithoutASelectionTheWholeDirectoryIsCopied)
{
    auto screen = Opened();
    screen->cmdCopy_Click();
    EXPECT_EQ(Names(capture), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"C.BMP"_s}));
}

TEST_F(CardCopy, TheSameDirectoryAndOneWithoutJpgAreNotCopied)
{
    auto screen = Opened();
    home.Put(capture + u"A.JPG"_s);
    globals.G_CaptureDir = u" c:\\card"_s;
    screen->cmdCopy_Click();
    EXPECT_EQ(doubles.prompter.Last().text, u"The Source and target directories are the same.  Copy ignored."_s);
    EXPECT_TRUE(screen->IsOpen());
    globals.G_CaptureDir = capture;
    home.Put(u"C:\\BMPS\\X.BMP"_s);
    ASSERT_TRUE(screen->folders.GoTo(u"C:\\BMPS"_s));
    screen->cmdCopy_Click();
    EXPECT_EQ(screen->lblmsg.Caption(), u"C:\\BMPS\\ holds no photos (*.jpg)."_s);
    EXPECT_EQ(Names(capture), QStringList{u"A.JPG"_s});
}

TEST_F(CardCopy, ThePreviewFollowsItsBoxAndIsOffWhileAllAreSelected)
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(home.disk.ToNative(card + u"A.JPG"_s), "JPG"));
    auto screen = Opened();
    EXPECT_TRUE(screen->ckbPicPreview.Value());
    screen->filListBox.SetListIndex(0);
    EXPECT_EQ(screen->geaPreview.Picture().size(), QSize(20, 10));
    bool wasOff = false;
    QObject::connect(&screen->filListBox, &forms::MultiListBox::SelectionChanged,
                     [&] { wasOff = !screen->ckbPicPreview.Value(); });
    Q_EMIT screen->cmdSelectAll.Clicked();
    EXPECT_EQ(screen->filListBox.SelCount(), 3);
    EXPECT_TRUE(wasOff);
    EXPECT_TRUE(screen->ckbPicPreview.Value());
    EXPECT_EQ(globals.previewCopyPics, 1) << "the state between is not the user's";
    Q_EMIT screen->cmdClear.Clicked();
    EXPECT_EQ(screen->filListBox.SelCount(), 0);
    screen->ckbPicPreview.SetValue(false);
    EXPECT_TRUE(screen->geaPreview.Picture().isNull());
    EXPECT_EQ(globals.previewCopyPics, 0);
    screen->Unload();
    screen->End();
    EXPECT_EQ(files::GetPrivateProfileString(home.disk, u"PREFERENCES"_s, u"PREVIEWCOPYPICS"_s, u"1"_s,
                                             globals.applicationIni),
              u"0"_s);
}

TEST_F(CardCopy, AStartDirectoryThatDoesNotAnswerIsAskedAboutAndAwaited)
{
    doubles.prompter.Answer(Answer::Retry);
    doubles.prompter.Answer(Answer::Cancel);
    auto screen = Opened(u"FLOPPY"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2u);
    EXPECT_EQ(doubles.prompter.Last().text, u"Media is not ready/readable. Try again?"_s);
    EXPECT_EQ(screen->folders.Path(), u"C:\\"_s) << "the drive of the program's home";
    EXPECT_TRUE(screen->Polling());
    screen->TimerROM_Timer();
    EXPECT_EQ(screen->folders.Path(), u"C:\\"_s);
    home.Put(u"C:\\FLOP\\F.JPG"_s);
    screen->TimerROM_Timer();
    EXPECT_EQ(screen->folders.Path(), u"C:\\FLOP\\"_s);
    EXPECT_FALSE(screen->Polling());
    EXPECT_EQ(screen->filListBox.Items(), QStringList{u"F.JPG"_s});
}

TEST_F(CardCopy, AnUnreadableDirectoryIsTold)
{
    auto screen = Opened();
    Q_EMIT screen->folders.Refused(u"E:\\"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Media appears to be unreadable or not inserted properly.  Please try again."_s);
    EXPECT_TRUE(screen->Polling());
    EXPECT_EQ(screen->folders.Path(), card);
}

TEST_F(CardCopy, AWishToCloseStopsTheCopyAndKeepsTheWindow)
{
    auto screen = Opened();
    doubles.pump.onTurn = [&] {
        if (!home.disk.Dir(capture + u'*').isEmpty())
            screen->Unload();
    };
    screen->cmdCopy_Click();
    doubles.pump.onTurn = {};
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(screen->lblmsg.Caption(), u"Stopped. Photos copied to C:\\VASSNAP\\: 1"_s);
    EXPECT_EQ(Names(capture).size(), 1);
}

TEST_F(CardCopy, AnotherCardWithTheSameNamesIsNotCopiedForTheOneThatWasSelected)
{
    const auto screen = Opened();
    screen->filListBox.SetSelected(0, true);
    home.Put(card + u"A.JPG"_s, "of another card");
    screen->cmdCopy_Click();
    EXPECT_TRUE(Names(capture).isEmpty());
    EXPECT_EQ(screen->lblmsg.Caption(), u"A.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_EQ(screen->filListBox.SelCount(), 0) << "the card has been read again";
    screen->filListBox.SetSelected(0, true);
    screen->cmdCopy_Click();
    EXPECT_EQ(Read(capture + u"A.JPG"_s), "of another card");
}

TEST_F(CardCopy, ANameThatNoReportCanNameIsChanged)
{
    home.Put(card + u"A[1].JPG"_s, "picture a1");
    home.Put(card + u"A(2).JPG"_s, "picture a2");
    home.Put(card + u"A[2].JPG"_s, "another a2");
    CopyOutcome outcome = Copy({u"A[1].JPG"_s, u"A(2).JPG"_s, u"A[2].JPG"_s});
    EXPECT_EQ(Names(capture), (QStringList{u"A(1).JPG"_s, u"A(2) (2).JPG"_s, u"A(2).JPG"_s}));
    EXPECT_EQ(Read(capture + u"A(2).JPG"_s), "picture a2");
    EXPECT_EQ(Read(capture + u"A(2) (2).JPG"_s), "another a2");
    EXPECT_EQ(outcome.Text(capture), u"Photos copied to C:\\VASSNAP\\: 3, renamed since no report can name a file with "
                                     u"\"]\": A(1).JPG, A(2) (2).JPG"_s);
    outcome = Copy({u"A[1].JPG"_s});
    EXPECT_EQ(outcome.thereAlready, 1) << "and known again under its new one";
    EXPECT_EQ(Names(capture).size(), 3);
}

TEST_F(CardCopy, AChangedNameTakesThePlaceOfNoOther)
{
    home.Put(card + u"B[1].JPG"_s, "before its namesake");
    home.Put(card + u"B(1).JPG"_s, "the namesake");
    home.Put(card + u"C[1].JPG"_s, "one of two");
    home.Put(card + u"C(1].JPG"_s, "two of two");
    home.Put(card + u"D[1].JPG"_s, "of the card");
    home.Put(capture + u"D(1).JPG"_s, "of the capture directory");
    Copy({u"B[1].JPG"_s, u"B(1).JPG"_s, u"C[1].JPG"_s, u"C(1].JPG"_s, u"D[1].JPG"_s});
    const std::pair<QString, QByteArray> files[] = {{u"B(1) (2).JPG"_s, "before its namesake"},
                                                    {u"B(1).JPG"_s, "the namesake"},
                                                    {u"C(1).JPG"_s, "one of two"},
                                                    {u"C(1) (2).JPG"_s, "two of two"},
                                                    {u"D(1) (2).JPG"_s, "of the card"},
                                                    {u"D(1).JPG"_s, "of the capture directory"}};
    for (const auto& [name, content] : files)
        EXPECT_EQ(Read(capture + name), content) << name.toStdString();
}

} // namespace
} // namespace vasclip::photos
