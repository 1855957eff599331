#include "platform/engine/same_value.h"
#include "platform/engine/home.h"

namespace vasclip::engine {
namespace {

bool Same(FieldType type, const QVariant& left, const QVariant& right)
{
    return SameValue(TypedField(u"F"_s, type), left, right);
}

TEST(SameValues, AreThoseThatBothKindsOfDatabaseTellApart)
{
    const QDateTime day(QDate(2004, 3, 7), QTime(9, 5, 2), Qt::UTC);
    EXPECT_TRUE(Same(FieldType::Date, day, day));
    EXPECT_FALSE(Same(FieldType::Date, day, day.addSecs(1)));
    EXPECT_FALSE(Same(FieldType::Date, day, day.addMSecs(2)));
    EXPECT_TRUE(Same(FieldType::Single, 0.1, static_cast<double>(0.1F)));
    EXPECT_FALSE(Same(FieldType::Single, 0.1, 0.1001));
    EXPECT_TRUE(Same(FieldType::Currency, 12.34561, 12.3456));
    EXPECT_FALSE(Same(FieldType::Currency, 12.3456, 12.3457));
    EXPECT_TRUE(Same(FieldType::Text, u"\uFEFFoak"_s, u"oak"_s));
    EXPECT_FALSE(Same(FieldType::Memo, u"oak"_s, u"Oak"_s));
    EXPECT_FALSE(Same(FieldType::Text, u"oak"_s, u"oak "_s));
    EXPECT_TRUE(Same(FieldType::Long, 7, 7));
    EXPECT_FALSE(Same(FieldType::Long, 7, 8));
    EXPECT_FALSE(Same(FieldType::Double, 0.1, 0.1000001));
    EXPECT_FALSE(Same(FieldType::Boolean, true, false));
    EXPECT_FALSE(Same(FieldType::Binary, QByteArray("ab"), QByteArray("ac")));
    EXPECT_TRUE(Same(FieldType::LongBinary, QByteArray("ab"), QByteArray("ab")));
    EXPECT_FALSE(Same(FieldType::LongBinary, QByteArray("ab"), QByteArray("abc")));
}

TEST(SameValues, AnEmptyOneIsNoOther)
{
    for (const auto& [type, value] : {std::pair<FieldType, QVariant>{FieldType::Text, u""_s},
                                      {FieldType::Long, 0},
                                      {FieldType::Boolean, false},
                                      {FieldType::LongBinary, QByteArray("")}}) {
        EXPECT_FALSE(Same(type, {}, value)) << static_cast<int>(type);
        EXPECT_FALSE(Same(type, value, {})) << static_cast<int>(type);
        EXPECT_TRUE(Same(type, {}, {})) << static_cast<int>(type);
    }
}

} // namespace
} // namespace vasclip::engine
