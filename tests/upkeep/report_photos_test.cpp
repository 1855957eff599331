#include "upkeep/pager_home.h"

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

/// Nothing stands on a photo, and no two photos one on the other.
int ExpectClear(const QList<paper::Page>& pages)
{
    int pictures = 0;
    for (const paper::Page& page : pages) {
        pictures += static_cast<int>(page.pictures.size());
        for (const paper::PictureItem& one : page.pictures)
            for (const paper::PictureItem& other : page.pictures)
                EXPECT_TRUE(&one == &other || !one.box.intersects(other.box));
        for (const paper::TextItem& text : page.texts)
            for (const paper::PictureItem& picture : page.pictures)
                EXPECT_FALSE(picture.box.intersects(
                    QRect(text.at.x(), text.at.y() - text.face.size / 2, text.width, text.face.size / 2)))
                    << text.text.toStdString();
    }
    return pictures;
}

TEST_F(Pager, PhotosHaveCaptionsAndStayClearOfTheRest)
{
    Lay("heading \"{ADDRESS}\" right \"{CITY}\"\nphotos front beside high 1.5in captions\nsection \"\" "
        "columns 1\n"
        "field GLA\nphotos all across 3 high 1.5in captions\n");
    for (int i = 0; i < 12; ++i)
        records.append(
            {{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
             {u"CITY"_s, u"at the right"_s},
             {u"GLA"_s, u"100"_s},
             {u"PHOTOS"_s, i == 0 ? u" "_s : u"FRONT VIEW|f%1\r\nStreet|s%1\r\nRear|r%1\r\n"_s.arg(i)}});
    const auto pages = Pages();
    ExpectTidy(pages);
    EXPECT_EQ(ExpectClear(pages), 11 * 4);
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"Front View"_s));
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"Street"_s));
}

TEST_F(Pager, ARecordThatIsShorterThanItsPhotoKeepsTheNextAway)
{
    Lay("heading \"{ADDRESS}\" right \"{CITY}\"\nphotos all beside high 1in\n");
    for (int i = 0; i < 20; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                        {u"CITY"_s, u"at the right"_s},
                        {u"PHOTOS"_s, u"FRONT VIEW|f%1\r\nStreet|s%1\r\n"_s.arg(i)}});
    const auto pages = Pages();
    ExpectTidy(pages);
    EXPECT_EQ(ExpectClear(pages), 20 * 2);
}

TEST_F(Pager, ManyPhotosBesideARecordStayOnItsPage)
{
    Lay("heading \"{ADDRESS}\"\nphotos all beside high 2in\n");
    records.append({{u"ADDRESS"_s, u"1 Oak St"_s}, {u"PHOTOS"_s, QString(u"General|g\r\n"_s).repeated(30)}});
    const auto pages = Pages();
    ExpectTidy(pages);
    EXPECT_GT(ExpectClear(pages), 0);
}

TEST_F(Pager, TakesScriptsOfEveryDirection)
{
    Lay("column ADDRESS\ncolumn CITY lines 3\n");
    for (const QString& text :
         {u"שלום 12 עולם"_s, u"🏠🏠🏠 Main"_s, QString(QChar(0xd800)), QString(2000, u'ש'), QString(2000, u'W')})
        records.append({{u"ADDRESS"_s, text}, {u"CITY"_s, text}});
    ExpectTidy(Pages());
}

TEST_F(Pager, HoldsNoMoreThanOneRecord)
{
    Lay("column ADDRESS\n");
    for (int i = 0; i < 500; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}});
    static_cast<void>(Pages());
    EXPECT_LE(asked, 520) << "each is read once, and once more where a page begins";
}

} // namespace
} // namespace vasclip::upkeep
