#include "photos/photo_files.h"

#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using photos::Quiet;

namespace {

class PhotoFiles : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    forms::Ports ports = doubles.Get();
    const QString path = u"C:\\JPG\\12345678.jpg"_s;
    QString prompt;
    void SetUp() override { home.Put(path); }
    bool Delete(const QString& file, Quiet quiet)
    {
        return photos::DelPict(ports, home.disk, file, quiet, prompt);
    }
    QStringList DeleteAll(const QStringList& stems)
    {
        return photos::DeletePhotos(ports, home.disk, u"C:\\JPG"_s, stems);
    }
};

TEST_F(PhotoFiles, AQuietDeletionAsksNothing)
{
    EXPECT_TRUE(Delete(path, Quiet::Yes));
    EXPECT_FALSE(home.disk.FileExists(path));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(doubles.pump.turns, 2);
    EXPECT_FALSE(Delete(path, Quiet::Yes)) << "it is gone";
}

TEST_F(PhotoFiles, AnyOtherAsks)
{
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(Delete(path, Quiet::No));
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete C:\\JPG\\12345678.jpg?"_s);
    EXPECT_EQ(prompt, u"Delete C:\\JPG\\12345678.jpg?"_s);
    EXPECT_TRUE(home.disk.FileExists(path));
    prompt = u"Really?"_s;
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(Delete(path, Quiet::No));
    EXPECT_EQ(doubles.prompter.Last().text, u"Really?"_s);
    EXPECT_FALSE(home.disk.FileExists(path));
}

TEST_F(PhotoFiles, WithoutANameOrAFileNothingIsAsked)
{
    for (const QString& file : {u"C:\\JPG\\"_s, u"C:\\JPG\\.jpg"_s, QString(), u"C:\\JPG\\none.jpg"_s,
                                u"C:\\JPG\\*.jpg"_s, u"Q:\\x.jpg"_s})
        EXPECT_FALSE(Delete(file, Quiet::No)) << file.toStdString();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(home.disk.FileExists(path));
}

TEST_F(PhotoFiles, AWriteProtectedPictureGoesToo)
{
    home.disk.SetAttr(path, files::ReadOnly);
    EXPECT_TRUE(Delete(path, Quiet::Yes));
    EXPECT_FALSE(home.disk.FileExists(path));
}

TEST_F(PhotoFiles, ARecordsFilesGoAndNoOthers)
{
    home.Put(u"C:\\JPG\\87654321.JPG"_s);
    home.Put(u"C:\\JPG\\other.jpg"_s);
    home.Put(u"C:\\other.jpg"_s);
    home.Put(u"C:\\JPG\\.jpg"_s);
    EXPECT_EQ(DeleteAll({u" 12345678 "_s, u"87654321"_s, u"missing"_s, u"*"_s, u"?ther"_s, u"..\\other"_s,
                         u"../other"_s, QString()}),
              QStringList());
    EXPECT_EQ(home.disk.Dir(u"C:\\JPG\\*.jpg"_s), (QStringList{u".jpg"_s, u"other.jpg"_s}));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\other.jpg"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

} // namespace
