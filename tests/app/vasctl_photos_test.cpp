// vasctl photos: whole processes on a demo home.

#include "support/processes.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3, kDeclined = 4;

class VasctlPhotos : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        const QDir store(home.Native(u"VASCLIPS/JPG"_s));
        const QStringList stored = store.entryList({u"*.jpg"_s}, QDir::Files);
        ASSERT_FALSE(stored.isEmpty());
        picture = home.Native(u"VASSNAP/MINE.JPG"_s);
        ASSERT_TRUE(QDir().mkpath(home.Native(u"VASSNAP"_s)));
        ASSERT_TRUE(QFile::copy(store.filePath(stored.first()), picture));
    }
    Ended Photos(const QStringList& arguments, const QStringList& answers = {}) const
    {
        return home.Vasctl(answers + QStringList{u"photos"_s} + arguments);
    }
    Ended File(const QString& view, const QStringList& answers = {}) const
    {
        return Photos({u"file"_s, key, view, u"C:\\VASSNAP\\MINE.JPG"_s}, answers);
    }
    QStringList Views() const
    {
        QStringList views;
        for (const QJsonValue& row : Photos({u"list"_s, key}).Array())
            views << row.toObject()[u"VIEW"_s].toString();
        return views;
    }

    ProgramHome home;
    const QString key = u"7 NEW RD"_s;
    QString picture;
};

TEST_F(VasctlPhotos, FilesListsRenamesAndDeletes)
{
    EXPECT_EQ(Photos({u"list"_s, key}).code, kNotFound);
    const Ended filed = File(u"FRONT VIEW"_s);
    EXPECT_EQ(filed.code, kDone) << filed.err.toStdString();
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, key}).Object()[u"FRONT"_s].toString(), u"1"_s)
        << "the record was added with its photo";
    const QJsonObject row = Photos({u"list"_s, key}).Array()[0].toObject();
    EXPECT_EQ(row[u"VIEW"_s].toString(), u"FRONT VIEW"_s);
    EXPECT_EQ(row[u"SIZE"_s].toString(), u"800 x 600"_s);
    EXPECT_EQ(row[u"STEM"_s].toString().size(), 8);
    EXPECT_TRUE(QFile::exists(picture)) << "the source stays";

    EXPECT_EQ(Photos({u"rename-view"_s, key, u"front view"_s, u"POOL"_s}).code, kDone);
    EXPECT_EQ(Views(), QStringList{u"POOL"_s});
    EXPECT_EQ(File(u"REAR VIEW"_s).code, kDone);
    const Ended inUse = Photos({u"rename-view"_s, key, u"POOL"_s, u"rear view"_s});
    EXPECT_EQ(inUse.code, kFailed);
    EXPECT_TRUE(inUse.err.contains("You already have a picture for this entry by that name"));

    const QString stem = Photos({u"list"_s, key}).Array()[0].toObject()[u"STEM"_s].toString();
    EXPECT_EQ(Photos({u"delete"_s, key, u"POOL"_s}, {u"--no"_s}).code, kDeclined);
    EXPECT_EQ(Views(), (QStringList{u"POOL"_s, u"REAR VIEW"_s}));
    EXPECT_EQ(Photos({u"delete"_s, key, u"POOL"_s}, {u"--yes"_s}).code, kDone);
    EXPECT_EQ(Views(), QStringList{u"REAR VIEW"_s});
    EXPECT_TRUE(QFile::exists(home.Native(u"VASSNAP/%1.JPG"_s.arg(stem)))) << "it waits to be filed again";
}

TEST_F(VasctlPhotos, AViewThatIsThereIsReplacedAfterAsking)
{
    ASSERT_EQ(File(u"FRONT VIEW"_s).code, kDone);
    const QString stem = Photos({u"list"_s, key}).Array()[0].toObject()[u"STEM"_s].toString();
    for (const QStringList& answer : {QStringList{u"--no"_s}, QStringList{u"--answer"_s, u"cancel"_s}, QStringList{}}) {
        EXPECT_EQ(File(u"front view"_s, answer).code, kDeclined);
        EXPECT_EQ(Photos({u"list"_s, key}).Array()[0].toObject()[u"STEM"_s].toString(), stem);
    }
    EXPECT_EQ(File(u"FRONT VIEW"_s, {u"--yes"_s}).code, kDone);
    EXPECT_NE(Photos({u"list"_s, key}).Array()[0].toObject()[u"STEM"_s].toString(), stem);
    const Ended orphans = Photos({u"orphans"_s});
    EXPECT_TRUE(orphans.out.contains(stem.toUtf8())) << "the earlier file stays, and is found";
}

TEST_F(VasctlPhotos, AViewWithABarStaysWithItsPhotoAndIsTold)
{
    const Ended filed = File(u"SIDE|NORTH"_s);
    EXPECT_EQ(filed.code, kDone) << filed.err.toStdString();
    EXPECT_TRUE(filed.Object()[u"message"_s].toString().contains(
        u"is the SIDE NORTH of 7 NEW RD now, stored as "_s)) << filed.out.toStdString();
    EXPECT_TRUE(filed.Object()[u"message"_s].toString().endsWith(
        u"A view's name can't hold \"|\" or a line break; it is \"SIDE NORTH\" now."_s));
    EXPECT_EQ(Photos({u"file"_s, key, u"SIDE|NORTH"_s, u"C:\\VASSNAP\\MINE.JPG"_s}, {u"--no"_s}).code, kDeclined)
        << "asked before it is replaced";
    EXPECT_EQ(Photos({u"rename-view"_s, key, u"SIDE|NORTH"_s, u"POOL\n2|"_s}).code, kDone);
    EXPECT_EQ(Views(), QStringList{u"POOL 2 "_s});
    EXPECT_EQ(Photos({u"rename-view"_s, key, u"POOL 2"_s, u"|"_s}).code, kUsage);
    EXPECT_EQ(Photos({u"verify"_s}).code, kDone) << "no photo is cut off its record";
}

TEST_F(VasctlPhotos, ARefusedPictureLeavesNoNewRecord)
{
    QFile damaged(home.Native(u"VASSNAP/BAD.JPG"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("\xFF\xD8\xFF nothing") > 0);
    damaged.close();
    EXPECT_EQ(Photos({u"file"_s, u"8 NEW RD"_s, u"POOL"_s, u"C:\\VASSNAP\\BAD.JPG"_s}).code, kFailed);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"8 NEW RD"_s}).code, kNotFound);
}

TEST_F(VasctlPhotos, OrphansAndDamageAreFound)
{
    ASSERT_EQ(File(u"FRONT VIEW"_s).code, kDone);
    ASSERT_EQ(File(u"REAR VIEW"_s).code, kDone);
    EXPECT_EQ(Photos({u"verify"_s}).code, kDone);
    EXPECT_EQ(Photos({u"orphans"_s}).Array().size(), 0);
    const QJsonArray photos = Photos({u"list"_s, key}).Array();
    const auto file = [&](int row) {
        return home.Native(u"VASCLIPS/JPG/%1.JPG"_s.arg(photos[row].toObject()[u"STEM"_s].toString()));
    };
    ASSERT_TRUE(QFile::remove(file(0)));
    QFile cut(file(1));
    ASSERT_TRUE(cut.resize(cut.size() / 2));
    QFile alien(home.Native(u"VASCLIPS/JPG/alien.jpg"_s));
    ASSERT_TRUE(alien.open(QIODevice::WriteOnly) && alien.write("x") == 1);
    alien.close();
    const QJsonArray orphans = Photos({u"orphans"_s}).Array();
    ASSERT_EQ(orphans.size(), 2);
    EXPECT_EQ(orphans[0].toObject()[u"VIEW"_s].toString(), u"FRONT VIEW"_s);
    EXPECT_EQ(orphans[0].toObject()[u"WHY"_s].toString(), u"The file is not there"_s);
    EXPECT_EQ(orphans[1].toObject()[u"STEM"_s].toString(), u"alien"_s);
    EXPECT_EQ(orphans[1].toObject()[u"WHY"_s].toString(), u"No record names the file"_s);
    const Ended verified = Photos({u"verify"_s});
    EXPECT_EQ(verified.code, kFailed);
    EXPECT_TRUE(verified.err.contains("cut short")) << verified.err.toStdString();
    const QJsonObject counts = verified.Object();
    EXPECT_EQ(counts[u"photos"_s].toInt() - counts[u"whole"_s].toInt(), 2);
    EXPECT_EQ(Photos({u"list"_s, key}).Array()[0].toObject()[u"SIZE"_s].toString(), u"missing"_s);
}

TEST_F(VasctlPhotos, APictureThatTheOpenReportShowsIsNoOrphan)
{
    ASSERT_TRUE(home.StartForms());
    ASSERT_EQ(File(u"FRONT VIEW"_s).code, kDone);
    ASSERT_EQ(home.Vasctl({u"--yes"_s, u"drop"_s, key, u"--on"_s, u"txtComp:3"_s}).code, kDone);
    const QString stem = Photos({u"list"_s, key}).Array()[0].toObject()[u"STEM"_s].toString();
    const QString stored = home.Native(u"VASCLIPS/JPG/%1.JPG"_s.arg(stem));
    const QString kept = home.Native(u"KEPT.JPG"_s);
    ASSERT_TRUE(QFile::copy(stored, kept)) << stored.toStdString();
    ASSERT_EQ(Photos({u"delete"_s, key, u"FRONT VIEW"_s}, {u"--yes"_s}).code, kDone);
    ASSERT_TRUE(QFile::copy(kept, stored)); // no record names it any more, the report does
    EXPECT_EQ(Photos({u"orphans"_s}).Array().size(), 0);
    ProgramHome::Stop(home.forms);
    EXPECT_EQ(Photos({u"orphans"_s}).Array().size(), 1);
}

TEST_F(VasctlPhotos, BadInputIsRefusedInWords)
{
    struct Row
    {
        QStringList arguments;
        int code;
    };
    ASSERT_EQ(File(u"FRONT VIEW"_s).code, kDone);
    QFile damaged(home.Native(u"VASSNAP/BAD.JPG"_s));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write("\xFF\xD8\xFF nothing") > 0);
    damaged.close();
    const Row rows[] = {
        {{}, kUsage},
        {{u"list"_s}, kUsage},
        {{u"show"_s, key}, kUsage},
        {{u"file"_s, key, u"FRONT VIEW"_s}, kUsage},
        {{u"orphans"_s, u"all"_s}, kUsage},
        {{u"file"_s, u" "_s, u"POOL"_s, u"C:\\VASSNAP\\MINE.JPG"_s}, kUsage},
        {{u"file"_s, key, u" "_s, u"C:\\VASSNAP\\MINE.JPG"_s}, kUsage},
        {{u"file"_s, key, u"POOL"_s, u"C:\\VASSNAP\\NONE.JPG"_s}, kNotFound},
        {{u"file"_s, key, u"POOL"_s, u"/nowhere/at/all.jpg"_s}, kNotFound},
        {{u"file"_s, key, u"POOL"_s, u"C:\\VASSNAP"_s}, kNotFound},
        {{u"file"_s, key, u"POOL"_s, u"C:\\VASSNAP\\BAD.JPG"_s}, kFailed},
        {{u"list"_s, u"1 NOWHERE LN"_s}, kNotFound},
        {{u"delete"_s, u"1 NOWHERE LN"_s, u"POOL"_s}, kNotFound},
        {{u"delete"_s, key, u"POOL"_s}, kNotFound},
        {{u"rename-view"_s, key, u"POOL"_s, u"DECK"_s}, kNotFound},
        {{u"rename-view"_s, key, u"FRONT VIEW"_s, u" "_s}, kUsage},
    };
    for (const Row& row : rows) {
        const Ended run = Photos(row.arguments);
        EXPECT_EQ(run.code, row.code) << row.arguments.join(u' ').toStdString() << "\n" << run.err.toStdString();
        EXPECT_FALSE(run.err.isEmpty()) << row.arguments.join(u' ').toStdString();
    }
    EXPECT_EQ(Views(), QStringList{u"FRONT VIEW"_s});
    EXPECT_TRUE(home.Vasctl({u"--help"_s}).out.contains("photos file KEY VIEW FILE"));
}

TEST_F(VasctlPhotos, AFileOfTheSystemIsTakenByItsOwnPath)
{
    EXPECT_EQ(Photos({u"file"_s, key, u"FRONT VIEW"_s, picture}).code, kDone);
    EXPECT_EQ(Views(), QStringList{u"FRONT VIEW"_s});
}

} // namespace
