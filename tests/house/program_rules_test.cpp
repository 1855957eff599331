#include "house/program_rules.h"

#include <gtest/gtest.h>

namespace vasclip::house {
namespace {

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

struct Row
{
    const char* name;
    const char* path;
    QString text;
    QString wanted; ///< the violations, "|" between them
};

TEST(ProgramRules, CatchWhatBreaksThem)
{
    const Row rows[] = {
        {"the table", "src/shell/menus.cpp", Text("if (index == 0)\n\"mnuFileItem\""), QString()},
        {"a number beside it", "src/shell/help.cpp", Text("else if (index == 12)\n"),
         Text("src/shell/help.cpp asks for the number of a menu entry (index == 12) outside the table of "
              "menus")},
        {"its name", "src/windows/menu_desk.cpp", Text("if (entry.index != kWebsiteEntry)\n"),
         Text("src/windows/menu_desk.cpp asks for the number of a menu entry (index != kWebsiteEntry) "
              "outside the table "
              "of menus")},
        {"a menu by its name", "src/shell/setup.cpp", Text("array == u\"mnuSetupItem\"_s"),
         Text("src/shell/setup.cpp names the menu u\"mnuSetupItem\" outside the table of menus")},
        {"a routine's name, which bears the menu's", "src/shell/transfers.cpp",
         Text("RoutineScope scope{\"mnuTransferItem\"};\n"), QString()},
        {"a row of another table", "src/link/drop_comp.cpp", Text("if (index == 0)\n"), QString()},
        {"a comment", "src/shell/help.cpp", Text("// index == 1\n"), QString()},
        {"a screen in the terminal", "src/app/vasctl/swap.cpp", Text("shell::frm_Main main(program);\n"),
         Text("src/app/vasctl/swap.cpp names the screen frm_Main; vasctl has none")},
        {"the controls of the map's rules", "src/app/vasctl/map_desk.h", Text("map::frm_MapTab tab;\n"), QString()},
        {"a screen in the desktop program", "src/app/vasclip/main.cpp",
         Text("shell::frm_Main main(program);\n"), QString()},
        {"a disk beside the program's", "src/app/vasctl/session.h", Text("    files::Disk m_disk;\n"),
         Text("src/app/vasctl/session.h makes files::Disk of its own: the program has one")},
        {"an engine beside it", "src/windows/main_window.cpp", Text("engine::Engine engine{disk, clock};\n"),
         Text("src/windows/main_window.cpp makes engine::Engine of its own: the program has one")},
        {"the program's own", "src/shell/program.h", Text("files::Disk m_disk;\nengine::Engine m_engine;\n"), QString()},
        {"one that is handed over", "src/link/link_desk.h", Text("const files::Disk& disk;\n"), QString()},
        {"a small main screen", "src/shell/frm_main.cpp", QString(599, u'\n'), QString()},
        {"a large one", "src/shell/frm_main_more.cpp", QString(600, u'\n'),
         Text("src/shell/frm_main* has 600 lines; what it does belongs to files of their own")},
        {"a large window", "src/windows/main_window.h", QString(600, u'\n'),
         Text("src/windows/main_window* has 600 lines; what it does belongs to files of their own")},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ProgramViolations({{Text(row.path), row.text}}).join(u'|').toStdString(),
                  row.wanted.toStdString())
            << row.name;
}

TEST(House, KeepsTheProgramApartFromItsScreen)
{
    const Sources sources = ReadSources(Text(VASCLIP_SOURCE_DIR));
    ASSERT_TRUE(sources.contains(Text("src/shell/frm_main.h"))) << "the sources were not found";
    ASSERT_TRUE(sources.contains(Text("src/windows/main_window.h")));
    const QStringList violations = ProgramViolations(sources);
    EXPECT_TRUE(violations.isEmpty()) << violations.join(u'\n').toStdString();
}

} // namespace
} // namespace vasclip::house
