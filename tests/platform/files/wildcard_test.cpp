#include "platform/files/wildcard.h"

#include "support/error_number.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

TEST(Wildcards, Match)
{
    struct Row
    {
        const char16_t* name;
        const char16_t* pattern;
        bool matches;
    };
    const Row rows[] = {
        {u"A.JPG", u"*.JPG", true},
        {u"A.JPEG", u"*.JPG", false},
        {u"A.B.JPG", u"*.JPG", true},
        {u"README", u"*.*", true},
        {u"README", u"*", true},
        {u"README", u"*.", true},
        {u"READ.ME", u"*.", false},
        {u"A1.JPG", u"A?.JPG", true},
        {u"A.JPG", u"A?.JPG", true},
        {u"A12.JPG", u"A?.JPG", false},
        {u"A12.JPG", u"A??.JPG", true},
        {u"A", u"A??", true},
        {u"TEMPDAT_1.MDB", u"TEMPDAT_*", true},
        {u"XTEMPDAT_", u"TEMPDAT_*", false},
        {u"ABCABD", u"*ABD", true},
        {u"", u"*", true},
        {u"A", u"", false},
        {u"[1].JPG", u"[1].*", true},
        {u"AXB", u"A*B", true},
        {u"AB", u"A*B", true},
        {u"\u00C9T\u00C9.JPG", u"?T?.JPG", true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(MatchesPattern(QStringView(row.name), QStringView(row.pattern)), row.matches)
            << QString::fromUtf16(row.name).toStdString() << " in "
            << QString::fromUtf16(row.pattern).toStdString();
}

TEST(Wildcards, ManyStarsTakeNoLonger)
{
    const QString name(250, u'A');
    QString pattern;
    for (int star = 0; star < 60; ++star)
        pattern += u"*A"_s;
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(MatchesPattern(name, pattern + u"*B"_s));
    EXPECT_LT(timer.elapsed(), 1000);
}

TEST(FoldedNames, KeepTheirLength)
{
    EXPECT_EQ(FoldedName(u"Ren\u00E9's stra\u00DFe \u0131.jpg"_s), u"REN\u00C9'S STRA\u00DFE I.JPG"_s);
}

} // namespace
} // namespace vasclip::files
