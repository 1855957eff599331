#include "common/proper_case.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

TEST(ProperCase, RaisesLettersBehindNonLetters)
{
    const std::pair<QString, QString> rows[] = {
        {u""_s, u""_s},
        {u"101 WEST MAIN STREET"_s, u"101 West Main Street"_s},
        {u"12TH ST"_s, u"12Th St"_s},
        {u"o'neil-mcgraw rd."_s, u"O'Neil-Mcgraw Rd."_s},
        {u"  main   st  "_s, u"  Main   St  "_s},
        {u"ÉTOILE AVE"_s, u"Étoile Ave"_s},
    };
    for (const auto& [text, wanted] : rows)
        EXPECT_EQ(ProperCase(text).toStdString(), wanted.toStdString());
}

TEST(AddressInCase, FollowsTheSetting)
{
    const QString address = u"12th Ave NE"_s;
    EXPECT_EQ(AddressInCase(address, 0), u"12TH AVE NE"_s);
    EXPECT_EQ(AddressInCase(address, 1), u"12Th Ave Ne"_s);
    EXPECT_EQ(AddressInCase(address, 2), address);
    EXPECT_EQ(AddressInCase(address, 7), address);
    EXPECT_EQ(AddressInCase(address, -1), address);
}

} // namespace
} // namespace vasclip::common
