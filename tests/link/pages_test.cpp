#include "link/kel_pages.h"

#include <gtest/gtest.h>

#include <QMap>

namespace vasclip::link {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A KEL.INI of one text per "section/key", upper-cased.
IniReader Ini(const QMap<QString, QString>& entries)
{
    return [entries](const QString& section, const QString& key) {
        return entries.value(section.toUpper() + u'/' + key.toUpper());
    };
}

TEST(FormOnList, FindsTheValueAmongTheForms)
{
    const IniReader ini = Ini({{u"S/COMPARABLES_1"_s, u" comppage "_s}});
    EXPECT_TRUE(KelFormOnList(ini, u"COMPARABLES_1"_s, u"S"_s, u"UA5,SUBPHOTO,CompPage"_s));
    EXPECT_FALSE(KelFormOnList(ini, u"COMPARABLES_1"_s, u"S"_s, u"UA5,SUBPHOTO"_s));
}

TEST(FormOnList, NeedsACommaBeforeTheCode)
{
    const IniReader ini = Ini({{u"S/SUBJECT_1"_s, u"UA5"_s}});
    EXPECT_FALSE(KelFormOnList(ini, u"SUBJECT_1"_s, u"S"_s, u"UA5,SUBPHOTO"_s));
}

TEST(FormOnList, AShorterValueMatchesALongerCode)
{
    const IniReader ini = Ini({{u"S/COMPARABLES_1"_s, u"COMP"_s}});
    EXPECT_TRUE(KelFormOnList(ini, u"COMPARABLES_1"_s, u"S"_s, u"UA5,COMPX"_s));
}

TEST(FormOnList, AKeyWithoutAValueCountsAsFound)
{
    EXPECT_TRUE(KelFormOnList(Ini({}), u"COMPARABLES_2"_s, u"S"_s, u"UA5,SUBPHOTO"_s));
}

TEST(FormOnList, AnAlternatesKeyIsLookedForItself)
{
    const IniReader ini = Ini({{u"DESCRIPTIONS/ALTPH1"_s, u"Alternates"_s}});
    EXPECT_TRUE(KelFormOnList(ini, u"altph1"_s, u"Descriptions"_s, u"UA5,Altph1"_s));
    EXPECT_FALSE(KelFormOnList(ini, u"ALTPH2"_s, u"Descriptions"_s, u"UA5,ALTPH1"_s));
}

TEST(PageSection, TriesTheFourSectionsInOrder)
{
    const QString forms = u"UA5,A,B,C,D"_s;
    const QMap<QString, QString> all = {{u"3X5_PHOTO_PAGES/K"_s, u"A"_s},
                                        {u"4X6_PHOTO_PAGES/K"_s, u"B"_s},
                                        {u"3X5_NLPHOTO_PAGES/K"_s, u"C"_s},
                                        {u"4X6_NLPHOTO_PAGES/K"_s, u"D"_s}};
    const IniReader ini = Ini(all);
    EXPECT_EQ(KelPageSection(ini, u"K"_s, forms), u"3X5_PHOTO_PAGES"_s);
    EXPECT_EQ(KelPageSection(ini, u"K"_s, u"UA5,B,C,D"_s), u"4X6_PHOTO_PAGES"_s);
    EXPECT_EQ(KelPageSection(ini, u"K"_s, u"UA5,C,D"_s), u"3X5_NLPHOTO_PAGES"_s);
    EXPECT_EQ(KelPageSection(ini, u"K"_s, u"UA5,D"_s), u"4X6_NLPHOTO_PAGES"_s);
    EXPECT_EQ(KelPageSection(ini, u"K"_s, u"UA5,E"_s), u""_s);
}

TEST(PageSection, OfAnAlternatesKey)
{
    EXPECT_EQ(KelPageSection(Ini({}), u"ALTPH1"_s, u"UA5,ALTPH1"_s), u"Descriptions"_s);
    EXPECT_EQ(KelPageSection(Ini({}), u"ALTPH1"_s, u"UA5"_s), u""_s);
}

TEST(ReturnPage, AnUnlistedKeyFallsIntoTheFirstSectionAndIsBlank)
{
    const IniReader ini = Ini({{u"3X5_PHOTO_PAGES/COMPARABLES_1"_s, u"COMPPAGE"_s}});
    const QString forms = u"UA5,SUBPHOTO,COMPPAGE"_s;
    EXPECT_EQ(KelReturnPage(ini, u"COMPARABLES_1"_s, forms), u"COMPPAGE"_s);
    EXPECT_EQ(KelPageSection(ini, u"COMPARABLES_2"_s, forms), u"3X5_PHOTO_PAGES"_s);
    EXPECT_EQ(KelReturnPage(ini, u"COMPARABLES_2"_s, forms), u""_s);
}

TEST(ReturnPage, OfAnAlternatesKeyIsItsDescription)
{
    const IniReader ini = Ini({{u"DESCRIPTIONS/ALTPH1"_s, u"Alternate photos"_s}});
    EXPECT_EQ(KelReturnPage(ini, u"ALTPH1"_s, u"UA5,ALTPH1"_s), u"Alternate photos"_s);
    EXPECT_EQ(KelReturnPage(ini, u"ALTPH1"_s, u"UA5"_s), u""_s);
}

TEST(ReturnPage, OfNoSectionIsBlank)
{
    const IniReader ini = Ini({{u"3X5_PHOTO_PAGES/K"_s, u"A"_s},
                               {u"4X6_PHOTO_PAGES/K"_s, u"A"_s},
                               {u"3X5_NLPHOTO_PAGES/K"_s, u"A"_s},
                               {u"4X6_NLPHOTO_PAGES/K"_s, u"A"_s}});
    EXPECT_EQ(KelReturnPage(ini, u"K"_s, u"UA5,B"_s), u""_s);
}

TEST(PageLookUps, ReadTheirSection)
{
    const IniReader ini =
        Ini({{u"4X6_PHOTO_PAGES/SUBJECT_1"_s, u"SUBPHOT2"_s}, {u"DESCRIPTIONS/UA5"_s, u"Uniform"_s}});
    EXPECT_EQ(KelPageOfSection(ini, u"SUBJECT_1"_s, u"4x6_Photo_Pages"_s), u"SUBPHOT2"_s);
    EXPECT_EQ(KelDescriptionOf(ini, u"UA5"_s), u"Uniform"_s);
}

} // namespace
} // namespace vasclip::link
