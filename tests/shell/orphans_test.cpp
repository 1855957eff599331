#include "photos/frm_search_pics.h"
#include "report_home.h"

#include <QImage>

// Which stored files the search for lost photos names.

namespace vasclip::shell {
namespace {

class Orphans : public ReportHome
{
protected:
    void SetUp() override
    {
        ReportHome::SetUp();
        for (const QString& stem : {u"LOOSE"_s, u"SKETCH"_s, u"SLOT"_s})
            Picture(u"C:\\JPG\\"_s + stem + u".jpg"_s);
    }
    /// What the search lists, chosen from the menu.
    QStringList Found()
    {
        QStringList lines;
        doubles.screens.Play([&lines](forms::Screen& shown) {
            auto& screen = dynamic_cast<photos::frm_SearchPics&>(shown);
            for (int i = screen.optSearch.First(); i <= screen.optSearch.Last(); ++i)
                screen.optSearch(i).SetValue(i == 0);
            screen.cmdSearch_Click();
            lines = screen.lstdirectory2.Items();
        });
        main.mnuFileItem.Choose(u"mnuFileItem"_s, 6);
        return lines;
    }
};

TEST_F(Orphans, AreNoPicturesThatTheOpenReportShowsOrNames)
{
    conduit.Answer(u"KEL|System"_s, u"IMAGES"_s, u"SKETCH_SUBJECT|C:\\JPG\\sketch.jpg;"_s);
    Load();
    program.Loader().ErrLoadThumb(program.slots.imaGeneral(3), u"C:\\JPG\\SLOT.jpg"_s); // stored with no record
    EXPECT_EQ(Found(), QStringList{u"C:\\JPG\\LOOSE.jpg: no record names it"_s});
}

TEST_F(Orphans, AreNotLookedForWithoutADatabook)
{
    EXPECT_EQ(Found(), QStringList());
}

} // namespace
} // namespace vasclip::shell
