#include "photos/capture_folder.h"

#include "capture_home.h"

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;

class FolderTest : public testing::Test
{
protected:
    tests::TempHome home;
    CaptureFolder folder{home.disk};
    QStringList before;
    int told = 0;

    void SetUp() override
    {
        home.MakeDirs(u"C:\\SNAP"_s);
        QObject::connect(&folder, &CaptureFolder::Changed, &folder, [this](const QStringList& names) {
            before = names;
            ++told;
        });
    }
    void Put(const QString& name) { home.Put(u"C:\\SNAP\\"_s + name); }
};

TEST_F(FolderTest, ListsJpgAndBmpInOneOrderWithoutCase)
{
    for (const QString& name : {u"b.JPG"_s, u"C.bmp"_s, u"a.jpg"_s, u"notes.txt"_s, u"d.jpeg"_s, u"B2.Bmp"_s})
        Put(name);
    home.MakeDirs(u"C:\\SNAP\\TRASHCAN.JPG"_s);
    folder.Open(u"C:\\SNAP\\"_s);
    EXPECT_EQ(folder.Names(), (QStringList{u"a.jpg"_s, u"b.JPG"_s, u"B2.Bmp"_s, u"C.bmp"_s}));
    EXPECT_EQ(folder.Count(), 4);
    EXPECT_EQ(folder.Line(2), u"B2.Bmp"_s);
    EXPECT_EQ(folder.Line(4), QString());
}

TEST_F(FolderTest, ADirectoryThatIsGoneOrOfNoDriveIsEmpty)
{
    for (const QString& place : {u"C:\\NOWHERE\\"_s, u"Q:\\"_s, QString()}) {
        folder.Open(place);
        EXPECT_EQ(folder.Count(), 0) << place.toStdString();
    }
}

TEST_F(FolderTest, FindsThePlaceOfANameOrOfTheNextOne)
{
    for (const QString& name : {u"a.jpg"_s, u"c.jpg"_s, u"e.jpg"_s})
        Put(name);
    folder.Open(u"C:\\SNAP\\"_s);
    EXPECT_EQ(folder.PlaceOf(u"C.JPG"_s), 1);
    EXPECT_EQ(folder.PlaceOf(u"d.jpg"_s), 2);
    EXPECT_EQ(folder.PlaceOf(u"z.jpg"_s), 3);
}

TEST_F(FolderTest, NewAndVanishedFilesAreToldOnceWatched)
{
    Put(u"a.jpg"_s);
    folder.Open(u"C:\\SNAP\\"_s);
    EXPECT_FALSE(folder.Watching());
    folder.Watch();
    Put(u"b.jpg"_s);
    ASSERT_TRUE(tests::Until([this] { return told == 1; }));
    EXPECT_EQ(folder.Names(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    EXPECT_EQ(before, QStringList{u"a.jpg"_s});
    home.disk.Kill(u"C:\\SNAP\\a.jpg"_s);
    ASSERT_TRUE(tests::Until([this] { return told == 2; }));
    EXPECT_EQ(folder.Names(), QStringList{u"b.jpg"_s});
}

TEST_F(FolderTest, ADirectoryThatComesLaterIsFoundByTheLook)
{
    folder.Open(u"C:\\CARD\\"_s);
    folder.Watch(); // there is nothing to watch yet
    home.Put(u"C:\\CARD\\a.jpg"_s);
    ASSERT_TRUE(tests::Until([this] { return told == 1; }));
    EXPECT_EQ(folder.Names(), QStringList{u"a.jpg"_s});
}

TEST_F(FolderTest, WhatTheRulesHaveReadThemselvesIsNotToldAgain)
{
    folder.Open(u"C:\\SNAP\\"_s);
    folder.Watch();
    Put(u"a.jpg"_s);
    EXPECT_TRUE(folder.Refresh());
    EXPECT_FALSE(folder.Refresh());
    bool looked = false;
    QObject::connect(&folder, &CaptureFolder::Polled, &folder, [&] { looked = true; });
    ASSERT_TRUE(tests::Until([&] { return looked; }));
    EXPECT_EQ(told, 0);
}

TEST_F(FolderTest, WithoutPatienceTheNamesComeLaterAndAreToldOnce)
{
    Put(u"a.jpg"_s);
    int opened = 0;
    QObject::connect(&folder, &CaptureFolder::Opened, &folder, [&] { ++opened; });
    folder.SetPatience(0);
    folder.Open(u"C:\\SNAP\\"_s);
    if (!folder.Reading()) // the worker was quicker than no time at all
        GTEST_SKIP() << "the names were there at once";
    EXPECT_EQ(folder.Count(), 0);
    ASSERT_TRUE(tests::Until([&] { return opened == 1; }));
    EXPECT_FALSE(folder.Reading());
    EXPECT_EQ(folder.Names(), QStringList{u"a.jpg"_s});
    Put(u"b.jpg"_s);
    if (!folder.Refresh()) {
        ASSERT_TRUE(tests::Until([&] { return told == 1; }));
        EXPECT_EQ(before, QStringList{u"a.jpg"_s});
    }
    EXPECT_EQ(folder.Names(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
    EXPECT_EQ(opened, 1);
}

TEST_F(FolderTest, OfTwoDirectoriesOpenedAtOnceTheLastOneIsShown)
{
    Put(u"a.jpg"_s);
    home.Put(u"C:\\CARD\\c.jpg"_s);
    folder.SetPatience(0);
    folder.Open(u"C:\\SNAP\\"_s);
    folder.Open(u"C:\\CARD\\"_s);
    ASSERT_TRUE(tests::Until([&] { return !folder.Reading(); }));
    EXPECT_EQ(folder.Names(), QStringList{u"c.jpg"_s});
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    EXPECT_EQ(folder.Names(), QStringList{u"c.jpg"_s}) << "the first one's names are not taken";
}

} // namespace
} // namespace vasclip::photos
