#include "photos/format_picture.h"

#include "photo_home.h"
#include "platform/picture/exif.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using photos::FormatPictureNow;
using photos::Stem;

namespace {

const QString kFirst = u"C:\\JPG\\07055475.JPG"_s; ///< of the first number of the sequence
const QString kWorking = u"C:\\VAS2000\\respic.jpg"_s;

class FormatPicture : public tests::PhotoHome
{
protected:
    QByteArray Content(const QString& file) const { return disk.ReadWhole(file); }
    QSize SizeOf(const QString& file) const { return picture::PictureSize(disk, file); }
    bool Save(const QString& source) { return FormatPictureNow(desk, source, imaComp); }
    void PutPicture(const QString& file, const QImage& image, const char* format)
    {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        ASSERT_TRUE(image.save(&buffer, format));
        disk.WriteWhole(file, bytes);
    }
    /// A corrupt file that begins as a JPEG.
    QString PutCorrupt()
    {
        disk.WriteWhole(u"C:\\VASSNAP\\BAD.JPG"_s, "\xFF\xD8\xFF\xE0 this is none");
        return u"C:\\VASSNAP\\BAD.JPG"_s;
    }
};

TEST_F(FormatPicture, FilesUnderARandomStemAndShowsTheStoredFile)
{
    const QString source = PutJpeg(u"DSC1.JPG"_s, 1200, 900);
    const QByteArray before = Content(source);
    EXPECT_TRUE(Save(source));
    EXPECT_TRUE(desk.PictureSaved);
    EXPECT_EQ(Stored(), QStringList{u"07055475.JPG"_s});
    EXPECT_EQ(SizeOf(kFirst), QSize(800, 600));
    EXPECT_EQ(table_.ErrGetPict(imaComp), kFirst);
    EXPECT_FALSE(imaComp.Picture().isNull());
    EXPECT_EQ(Content(source), before) << "the source is not touched";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(desk.notSaved, QString());
}

TEST_F(FormatPicture, EachSideIsCutToItsLimitForItself)
{
    struct Row
    {
        QSize source, stored;
    };
    for (const Row& row : {Row{{1200, 1600}, {800, 600}}, Row{{1000, 300}, {800, 300}},
                           Row{{300, 1000}, {300, 600}}, Row{{640, 480}, {640, 480}},
                           Row{{801, 600}, {800, 600}}, Row{{800, 600}, {800, 600}}}) {
        const QString source = PutJpeg(u"A.JPG"_s, row.source.width(), row.source.height());
        ASSERT_TRUE(Save(source));
        EXPECT_EQ(SizeOf(table_.ErrGetPict(imaComp)), row.stored)
            << row.source.width() << " by " << row.source.height();
    }
}

TEST_F(FormatPicture, TheBranchGoesByExtensionReduxAndQuality)
{
    enum class Means { Reduced, Encoded, Copied };
    struct Row
    {
        QString name;
        bool redux;
        int quality;
        Means means;
        QString extension;
    };
    const Row rows[] = {
        {u"A.JPG"_s, true, 90, Means::Reduced, u".JPG"_s},   {u"A.JPG"_s, true, 100, Means::Reduced, u".JPG"_s},
        {u"A.JPG"_s, false, 90, Means::Encoded, u".JPG"_s},  {u"A.jpg"_s, false, 100, Means::Copied, u".JPG"_s},
        {u"A.JPEG"_s, false, 100, Means::Reduced, u".jpg"_s}, {u"A..JPG"_s, false, 100, Means::Reduced, u".jpg"_s},
        {u"A.B.JPG"_s, false, 90, Means::Reduced, u".jpg"_s},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name.toStdString() + (row.redux ? " redux " : " plain ") + std::to_string(row.quality));
        globals.redux = row.redux;
        globals.quality = row.quality;
        for (const QString& stored : Stored())
            disk.Kill(u"C:\\JPG\\"_s + stored);
        const QString source = PutJpeg(row.name, 1000, 750);
        ASSERT_TRUE(Save(source));
        ASSERT_EQ(Stored().size(), 1);
        EXPECT_TRUE(Stored()[0].endsWith(row.extension)) << Stored()[0].toStdString();
        const QString stored = u"C:\\JPG\\"_s + Stored()[0];
        EXPECT_EQ(SizeOf(stored), row.means == Means::Reduced ? QSize(800, 600) : QSize(1000, 750));
        EXPECT_EQ(Content(stored) == Content(source), row.means == Means::Copied);
        EXPECT_EQ(disk.FileExists(kWorking), row.means != Means::Copied);
        disk.Kill(source);
    }
}

TEST_F(FormatPicture, OtherKindsAreAlwaysReducedAndStoredAsJpeg)
{
    globals.redux = false;
    globals.quality = 100;
    for (const char* format : {"BMP", "PNG", "PPM"}) {
        const QString source = u"C:\\VASSNAP\\SCAN."_s + QString::fromLatin1(format);
        PutPicture(source, Sample(900, 500), format);
        ASSERT_TRUE(Save(source)) << format;
        const QString stored = table_.ErrGetPict(imaComp);
        EXPECT_TRUE(stored.endsWith(".jpg"_L1)) << stored.toStdString();
        EXPECT_TRUE(Content(stored).startsWith("\xFF\xD8\xFF")) << format;
        EXPECT_EQ(SizeOf(stored), QSize(800, 500)) << format;
    }
}

TEST_F(FormatPicture, ASmallJpegIsEncodedAnewAtTheQuality)
{
    const QString source = PutJpeg(u"A.JPG"_s, 640, 480);
    globals.quality = 40;
    ASSERT_TRUE(Save(source));
    const QString stored = table_.ErrGetPict(imaComp);
    EXPECT_EQ(SizeOf(stored), QSize(640, 480));
    EXPECT_LT(disk.FileLen(stored), disk.FileLen(source));
}

TEST_F(FormatPicture, TheStoredPictureIsUprightAndKeepsItsDate)
{
    const QDateTime taken(QDate(2024, 5, 17), QTime(10, 30, 5));
    QByteArray jpeg = picture::ToJpeg(Sample(1200, 900), 90, {taken, u"Maker"_s, u"Model 5"_s});
    const qsizetype tag = jpeg.indexOf(QByteArray("\x01\x12\x00\x03\x00\x00\x00\x01\x00\x01", 10));
    ASSERT_GT(tag, 0);
    jpeg[tag + 9] = 6; // to be turned clockwise
    disk.WriteWhole(u"C:\\VASSNAP\\SIDE.JPG"_s, jpeg);
    ASSERT_EQ(SizeOf(u"C:\\VASSNAP\\SIDE.JPG"_s), QSize(900, 1200));
    globals.resolX = 450;
    globals.resolY = 600;
    ASSERT_TRUE(Save(u"C:\\VASSNAP\\SIDE.JPG"_s));
    const picture::Facts facts = picture::Describe(disk, kFirst);
    EXPECT_EQ(facts.size, QSize(450, 600));
    EXPECT_EQ(facts.orientation, 1);
    EXPECT_EQ(facts.notes, (picture::Notes{taken, u"Maker"_s, u"Model 5"_s}));
    const QImage stored = picture::Load(disk, kFirst);
    EXPECT_LT(stored.pixelColor(440, 10).red(), 40) << "red runs down from the top";
    EXPECT_GT(stored.pixelColor(440, 590).red(), 215);
}

TEST_F(FormatPicture, TheStoredPictureKnowsWhereItWasTaken)
{
    // Orientation 6, and a directory of its place with the latitude's letter.
    const QByteArray exif("Exif\0\0MM\0\x2A\0\0\0\x08\0\x02\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\x88\x25\0\x04\0\0\0\x01"
                          "\0\0\0\x26\0\0\0\0\0\x01\0\x01\0\x02\0\0\0\x02N\0\0\0\0\0\0\0",
                          62);
    const QByteArray place = exif.right(18);
    QByteArray jpeg = picture::ToJpeg(Sample(1200, 900), 90);
    jpeg.insert(2, QByteArray("\xFF\xE1\0", 3) + char(exif.size() + 2) + exif);
    for (const bool redux : {true, false}) {
        globals.redux = redux;
        globals.quality = 80;
        disk.WriteWhole(u"C:\\VASSNAP\\PHONE.JPG"_s, jpeg);
        ASSERT_TRUE(Save(u"C:\\VASSNAP\\PHONE.JPG"_s));
        const QByteArray stored = disk.ReadWhole(table_.ErrGetPict(imaComp));
        EXPECT_TRUE(stored.left(200).contains(place)) << redux;
        EXPECT_EQ(picture::Describe(disk, table_.ErrGetPict(imaComp)).orientation, 1) << redux;
    }
}

TEST_F(FormatPicture, AGivenStemIsTakenWithoutItsBlanksAndNoneIsDrawn)
{
    const QString source = PutJpeg(u"A.JPG"_s);
    EXPECT_TRUE(FormatPictureNow(desk, source, imaComp, Stem::Given, u" 12345678 "_s));
    EXPECT_EQ(Stored(), QStringList{u"12345678.JPG"_s});
    EXPECT_EQ(doubles.random.drawn, 0u);
}

TEST_F(FormatPicture, AStemIsEightCharactersOfARandomNumber)
{
    struct Row
    {
        double random;
        const char* stem;
    };
    for (const Row& row : {Row{0.7055475, "07055475"}, Row{0.5, "00000005"}, Row{0.0533424, "33424-02"},
                           Row{0.0123, "00123-02"}, Row{0.0, "00000000"}, Row{0.00001, "00001-05"},
                           Row{0.1, "00000001"}, Row{0.9999999, "09999999"}})
        EXPECT_EQ(photos::StemOf(row.random), QString::fromLatin1(row.stem)) << row.random;
}

TEST_F(FormatPicture, AStemThatIsTakenIsDrawnAgain)
{
    disk.WriteWhole(u"C:\\JPG\\07055475.jpg"_s, "picture");
    disk.WriteWhole(u"C:\\JPG\\00533424.JPG"_s, QByteArray()); // an empty file takes the name too
    disk.MkDir(u"C:\\JPG\\05795186.jpg"_s);
    EXPECT_EQ(photos::findunique(desk), u"02895625"_s);
    EXPECT_EQ(doubles.random.drawn, 4u);
    globals.G_PhotoDir = u"C:\\JPG"_s; // a slash is put between
    EXPECT_EQ(photos::findunique(desk), u"00301948"_s);
}

TEST_F(FormatPicture, WithoutASourceNothingIsSaid)
{
    disk.WriteWhole(u"C:\\VASSNAP\\EMPTY.JPG"_s, QByteArray());
    desk.PictureSaved = true;
    for (const QString& source : {QString(), u"C:\\VASSNAP\\"_s, u"C:\\VASSNAP\\NONE.JPG"_s,
                                  u"C:\\VASSNAP\\EMPTY.JPG"_s, u"Q:\\A.JPG"_s}) {
        EXPECT_FALSE(Save(source)) << source.toStdString();
        EXPECT_FALSE(desk.PictureSaved);
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Stored(), QStringList());
    EXPECT_TRUE(doubles.clock.waits.empty());
}

TEST_F(FormatPicture, TheHiddenControlIsNotShown)
{
    const QString source = PutJpeg(u"A.JPG"_s);
    EXPECT_TRUE(FormatPictureNow(desk, source, desk.geatemp));
    EXPECT_TRUE(desk.geatemp.Picture().isNull());
    EXPECT_EQ(table_.ErrGetPict(desk.geatemp), QString());
}

TEST_F(FormatPicture, TheWorkingFileStaysUntilTheNextOne)
{
    disk.WriteWhole(kWorking, "an older one");
    disk.SetAttr(kWorking, files::ReadOnly);
    ASSERT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(Content(kWorking), Content(kFirst));
    globals.redux = false;
    globals.quality = 100;
    ASSERT_TRUE(Save(PutJpeg(u"B.JPG"_s)));
    EXPECT_FALSE(disk.FileExists(kWorking)) << "a plain copy deletes it and writes none";
}

TEST_F(FormatPicture, WithoutAUserDirectoryTheWorkingFileLiesByTheProgram)
{
    for (const QString& directory : {QString(), u"\\"_s, u"  "_s}) {
        globals.G_UserDir = directory;
        ASSERT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
        EXPECT_TRUE(disk.FileExists(u"C:\\PROGRAM\\respic.jpg"_s)) << directory.toStdString();
        disk.Kill(u"C:\\PROGRAM\\respic.jpg"_s);
    }
    EXPECT_FALSE(disk.FileExists(kWorking));
}

TEST_F(FormatPicture, ItWaitsForTheFilesToSettle)
{
    globals.picDelay = 0.5;
    ASSERT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
    // after the deletion; settling and after it; after the copy; settling on the target and after it
    EXPECT_EQ(doubles.clock.waits, (std::vector<double>{0.5, 0.51, 0.5, 0.51, 0.51, 0.5}));
    doubles.clock.waits.clear();
    globals.redux = false;
    ASSERT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.clock.waits, (std::vector<double>{0.5, 0.5, 0.51, 0.5, 0.51, 0.51, 0.5}))
        << "encoding anew waits after loading too";
    doubles.clock.waits.clear();
    globals.quality = 100;
    ASSERT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.clock.waits, (std::vector<double>{0.5, 0.5, 0.51, 0.51, 0.5}))
        << "nothing was written that could settle";
}

TEST_F(FormatPicture, AGrowingFileIsWaitedForAHundredAndOneTimesAtMost)
{
    const QString source = PutJpeg(u"A.JPG"_s);
    int grown = 0;
    int until = 5;
    doubles.clock.onWait = [&] {
        if (grown < until && disk.FileExists(kWorking)) {
            ++grown;
            disk.WriteWhole(kWorking, QByteArray(1000 + grown, 'x'));
        }
    };
    ASSERT_TRUE(Save(source));
    EXPECT_EQ(grown, 5);
    EXPECT_EQ(doubles.clock.waits.size(), 1u + 6 + 1 + 1 + 1 + 1);
    EXPECT_EQ(SizeOf(kFirst), QSize(640, 480)) << "what another program put there is not filed";
    doubles.clock.waits.clear();
    grown = 0;
    until = 1'000'000;
    ASSERT_TRUE(Save(source));
    EXPECT_EQ(doubles.clock.waits.size(), 1u + 101 + 1 + 1 + 1 + 1);
}

TEST_F(FormatPicture, AWorkingFileThatVanishesIsTold)
{
    globals.picDelay = 0.5;
    doubles.clock.onWait = [&] {
        if (doubles.clock.waits.size() == 3)
            disk.Kill(kWorking);
    };
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"The source file does not exist: C:\\VAS2000\\respic.jpg"_s});
    EXPECT_FALSE(desk.PictureSaved);
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(FormatPicture, ASourceThatVanishesBeforeItsCopyIsTold)
{
    globals.redux = false;
    globals.quality = 100;
    const QString source = PutJpeg(u"A.JPG"_s);
    doubles.clock.onWait = [&] {
        if (doubles.clock.waits.size() == 2)
            disk.Kill(source);
    };
    EXPECT_FALSE(Save(source));
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"The source file does not exist: C:\\VASSNAP\\A.JPG"_s});
}

TEST_F(FormatPicture, ATargetThatDoesNotComeToBeIsTold)
{
    doubles.pump.onTurn = [&] {
        if (disk.FileExists(kFirst))
            disk.Kill(kFirst);
    };
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::Ok, forms::Icon::None, u"Unable to Copy Photo"_s,
                               u"Unable to Copy to the Photo DB Directory: \r\n07055475.JPG\r\nC:\\JPG\\\r\n"
                               "Please check folder permissions and try again"_s}));
    EXPECT_FALSE(desk.PictureSaved);
}

TEST_F(FormatPicture, PathErrorsAreRepeatedTenTimesThenAsked)
{
    globals.picDelay = 2;
    globals.G_PhotoDir = u"C:\\NOWHERE\\"_s;
    const QString source = PutJpeg(u"A.JPG"_s);
    doubles.window.hourglass = true;
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(Save(source));
    const QString trace = u"WITH COMPRESSION, Q=90, geaRes.LoadImage = C:\\VASSNAP\\A.JPG, geaRes.SaveImage = "
                          "C:\\VAS2000\\respic.jpg, FileCopy "
                          "C:\\VAS2000\\respic.jpg,C:\\NOWHERE\\07055475.JPG"_s;
    EXPECT_EQ(doubles.prompter.Last(),
              (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Question,
                               u"Picture Compression Incomplete"_s,
                               u"Picture Compression Error: Retry? \r\nERROR = \r\n"_s + trace}));
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_EQ(status.lblmsg.Caption(), trace);
    EXPECT_EQ(doubles.clock.waits.size(), 3u + 10) << "each repetition waits";
    EXPECT_FALSE(doubles.window.hourglass) << "the pointer is its default again";
    EXPECT_FALSE(desk.PictureSaved);
    EXPECT_TRUE(disk.FileExists(source));
}

TEST_F(FormatPicture, YesRepeatsWithoutANewLimit)
{
    globals.G_PhotoDir = u"C:\\NOWHERE\\"_s;
    for (int i = 0; i < 3; ++i)
        doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.AnswerAlways(forms::Answer::No);
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.prompter.Boxes().size(), 4u) << "each further error asks at once";
    EXPECT_EQ(doubles.clock.waits.size(), 3u + 10);
}

TEST_F(FormatPicture, ARepetitionThatSucceedsSavesThePicture)
{
    globals.G_PhotoDir = u"C:\\NOWHERE\\"_s;
    int waits = 0;
    doubles.clock.onWait = [&] {
        if (++waits == 7)
            disk.MkDir(u"C:\\NOWHERE"_s);
    };
    EXPECT_TRUE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(disk.FileExists(u"C:\\NOWHERE\\07055475.JPG"_s));
}

TEST_F(FormatPicture, AStoredFileThatVanishesBeforeItIsShownAsks)
{
    globals.redux = false;
    globals.quality = 100;
    doubles.clock.onWait = [&] {
        if (disk.FileExists(kFirst) && doubles.clock.waits.size() >= 5)
            disk.Kill(kFirst);
    };
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Picture Compression Error: Retry? \r\nERROR = \r\nLoadPicture(TargetPic)"_s + kFirst);
    EXPECT_FALSE(desk.PictureSaved);
}

TEST_F(FormatPicture, TheErrorsOfOneCallAreCountedTogether)
{
    // Nine errors at the working file, two more at the target.
    globals.G_UserDir = u"C:\\USERS\\"_s;
    globals.G_PhotoDir = u"C:\\NOWHERE\\"_s;
    int waits = 0;
    doubles.clock.onWait = [&] {
        if (++waits == 10)
            disk.MkDir(u"C:\\USERS"_s);
    };
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_EQ(doubles.clock.waits.size(), 1u + 9 + 2 + 1);
}

TEST_F(FormatPicture, AnyOtherErrorLeavesSilentlyAndTheReasonIsKept)
{
    const QString corrupt = PutCorrupt();
    desk.PictureSaved = true;
    EXPECT_FALSE(Save(corrupt));
    EXPECT_FALSE(desk.PictureSaved);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(desk.notSaved.contains(corrupt)) << desk.notSaved.toStdString();
    EXPECT_EQ(Stored(), QStringList());
    EXPECT_TRUE(disk.FileExists(corrupt));
    globals.G_PhotoDir = u"Q:\\JPG\\"_s; // no such drive
    EXPECT_FALSE(Save(PutJpeg(u"A.JPG"_s)));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(desk.notSaved.contains(u"drive"_s)) << desk.notSaved.toStdString();
}

TEST_F(FormatPicture, SavesTheImageOfAControl)
{
    imaComp.SetPicture(Sample(200, 100));
    globals.quality = 30;
    photos::SaveTheImage(desk, u"C:\\VAS2000\\MAP.jpg"_s, imaComp);
    EXPECT_EQ(SizeOf(u"C:\\VAS2000\\MAP.jpg"_s), QSize(200, 100));
    EXPECT_EQ(doubles.clock.waits, std::vector<double>{1});
    const qint64 small = disk.FileLen(u"C:\\VAS2000\\MAP.jpg"_s);
    photos::SaveTheImage(desk, u"C:\\VAS2000\\MAP.pic"_s, imaComp); // JPEG, but at the usual quality
    EXPECT_GT(disk.FileLen(u"C:\\VAS2000\\MAP.pic"_s), small);
    EXPECT_TRUE(Content(u"C:\\VAS2000\\MAP.pic"_s).startsWith("\xFF\xD8\xFF"));
    imaComp.SetPicture({});
    EXPECT_THROW(photos::SaveTheImage(desk, u"C:\\VAS2000\\MAP.jpg"_s, imaComp), RuntimeError);
}

} // namespace
