#include "house/built_rules.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::house {
namespace {

TEST(BuiltRules, FindWhatNoListNames)
{
    struct Row
    {
        const char* name;
        QString file, listAt, list;
        bool built;
    };
    const Row rows[] = {
        {"in the list beside it", u"tests/a/x_test.cpp"_s, u"tests/a/CMakeLists.txt"_s, u"SOURCES x_test.cpp)"_s, true},
        {"in one above", u"src/app/a/x.cpp"_s, u"src/app/CMakeLists.txt"_s, u"a/x.cpp\n"_s, true},
        {"in none", u"tests/a/x_test.cpp"_s, u"tests/a/CMakeLists.txt"_s, u"SOURCES y_test.cpp)"_s, false},
        {"as the end of another", u"tests/a/x_test.cpp"_s, u"tests/a/CMakeLists.txt"_s, u"max_test.cpp"_s, false},
        {"as the beginning of another", u"tests/a/x.cpp"_s, u"tests/a/CMakeLists.txt"_s, u"x.cpp.in"_s, false},
        {"in another folder's", u"tests/a/main.cpp"_s, u"tests/b/CMakeLists.txt"_s, u"SOURCES main.cpp)"_s, false},
        {"in another folder's by its folder", u"tests/a/x_win.cpp"_s, u"tools/b/CMakeLists.txt"_s, u"${tests}/x_win.cpp)"_s,
         true},
        {"one system's", u"src/a/x_win.cpp"_s, u"src/a/CMakeLists.txt"_s, u"x_${system}.cpp"_s, true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(NotBuilt({{row.file, {}}, {row.listAt, row.list}}),
                  row.built ? QStringList() : QStringList{row.file + u" is in no build list"_s})
            << row.name;
}

TEST(House, BuildsAllItHas)
{
    const Sources files = ReadBuildFiles(QString::fromLatin1(VASCLIP_SOURCE_DIR));
    ASSERT_TRUE(files.contains(u"tests/house/built_rules_test.cpp"_s)) << "the files were not found";
    const QStringList missing = NotBuilt(files);
    EXPECT_TRUE(missing.isEmpty()) << missing.join(u'\n').toStdString();
}

} // namespace
} // namespace vasclip::house
