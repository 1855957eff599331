#include "photos/photo_lists.h"

#include "store/store.h"
#include "support/databook_home.h"
#include "support/scripted_ports.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {
namespace {

struct Row
{
    const char* name;
    QString photos;
    QList<PhotoPair> pairs;
};

class ParsePhotosTest : public testing::TestWithParam<Row>
{};

TEST_P(ParsePhotosTest, Parses)
{
    EXPECT_EQ(ParsePhotos(GetParam().photos), GetParam().pairs);
}

const Row kRows[] = {
    {"empty", u""_s, {}},
    {"single_blank", u" "_s, {}},
    {"one", u"FRONT VIEW|AB12CD34\r\n"_s, {{u"FRONT VIEW"_s, u"AB12CD34"_s}}},
    {"two", u"FRONT VIEW|1\r\nREAR VIEW|2\r\n"_s, {{u"FRONT VIEW"_s, u"1"_s}, {u"REAR VIEW"_s, u"2"_s}}},
    {"last_line_without_its_end", u"FRONT VIEW|1\r\nREAR VIEW|2"_s, {{u"FRONT VIEW"_s, u"1"_s}}},
    {"only_a_line_feed", u"FRONT VIEW|1\n"_s, {}},
    {"empty_line_ends_the_reading", u"A|1\r\n\r\nB|2\r\n"_s, {{u"A"_s, u"1"_s}}},
    {"begins_with_an_empty_line", u"\r\nA|1\r\n"_s, {}},
    {"two_bars", u"A|1|2\r\n"_s, {{u"A"_s, u"1|2"_s}}},
    {"no_bar", u"A\r\nB|2\r\n"_s, {{u"A"_s, QString()}, {u"B"_s, u"2"_s}}},
    {"view_as_given", u" General view 3 |1\r\n"_s, {{u" General view 3 "_s, u"1"_s}}},
};

INSTANTIATE_TEST_SUITE_P(Rows, ParsePhotosTest, testing::ValuesIn(kRows),
                         [](const auto& info) { return std::string(info.param.name); });

struct PhotoListsTest : tests::DatabookHome
{
    forms::ControlSet set;
    PhotoLists lists{set};
    void Fill(const QList<PhotoPair>& pairs)
    {
        for (const auto& [view, stem] : pairs) {
            lists.lstViews.AddItem(view);
            lists.lstimages.AddItem(stem);
        }
    }
};

TEST_F(PhotoListsTest, ReadsTheCurrentRecord)
{
    AddRow({{key, u"12 OAK ST"_s}, {u"PHOTOS"_s, u"FRONT VIEW|AB12CD34\r\nREAR VIEW|EF56GH78\r\n"_s}});
    store::DataSource source(engine, u"datDatabook"_s);
    Bind(source);
    Fill({{u"OLD"_s, u"1"_s}});
    ReadPhotoLists(source, lists.lstViews, lists.lstimages);
    EXPECT_EQ(lists.lstViews.Items(), (QStringList{u"FRONT VIEW"_s, u"REAR VIEW"_s}));
    EXPECT_EQ(lists.lstimages.Items(), (QStringList{u"AB12CD34"_s, u"EF56GH78"_s}));
}

TEST_F(PhotoListsTest, ARecordWithoutPhotosEmptiesTheLists)
{
    AddRow({{key, u"12 OAK ST"_s}, {u"PHOTOS"_s, u" "_s}});
    store::DataSource source(engine, u"datDatabook"_s);
    Bind(source);
    Fill({{u"OLD"_s, u"1"_s}});
    ReadPhotoLists(source, lists.lstViews, lists.lstimages);
    EXPECT_EQ(lists.lstViews.ListCount(), 0);
    EXPECT_EQ(lists.lstimages.ListCount(), 0);
}

} // namespace
} // namespace vasclip::photos
