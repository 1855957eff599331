#include "house/include_graph.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::house {
namespace {

const QSet<QString> kWidgets = {u"QPushButton"_s};

struct Row
{
    const char* name;
    Sources sources;
    QString wanted; ///< the violations, "|" between them
};

QString Text(const char* text)
{
    return QString::fromLatin1(text);
}

Sources Of(std::initializer_list<std::pair<const char*, const char*>> files)
{
    Sources sources;
    for (const auto& [path, text] : files)
        sources.insert(Text(path), Text(text));
    return sources;
}

TEST(HouseRules, CatchWhatBreaksThem)
{
    const Row rows[] = {
        {"down is fine", Of({{"src/link/a.cpp", "#include \"common/c.h\"\n"}, {"src/common/c.h", ""}}),
         QString()},
        {"within a room is fine", Of({{"src/link/a.cpp", "#include \"link/b.h\"\n"}, {"src/link/b.h", ""}}),
         QString()},
        {"up", Of({{"src/common/c.h", "#include \"link/a.h\"\n"}, {"src/link/a.h", ""}}),
         Text("src/common/c.h includes link/a.h, which stands above it")},
        {"sideways",
         Of({{"src/platform/engine/e.h", "#  include \"platform/picture/p.h\"\n"},
             {"src/platform/picture/p.h", ""}}),
         Text("src/platform/engine/e.h includes platform/picture/p.h of its own floor")},
        {"a circle",
         Of({{"src/link/a.h", "#include \"link/b.h\"\n"}, {"src/link/b.h", "#include \"link/a.h\"\n"}}),
         Text("a circle of includes: src/link/a.h > src/link/b.h > src/link/a.h")},
        {"itself", Of({{"src/link/a.h", "#include \"link/a.h\"\n"}}),
         Text("a circle of includes: src/link/a.h > src/link/a.h")},
        {"not from src", Of({{"src/link/a.cpp", "#include \"b.h\"\n"}, {"src/link/b.h", ""}}),
         Text("src/link/a.cpp includes \"b.h\", which is no path from src/ or tools/")},
        {"a generated form is fine", Of({{"src/windows/a.cpp", "#include \"ui_a.h\"\n"}}), QString()},
        {"no room", Of({{"src/cellar/a.cpp", ""}}), Text("src/cellar/a.cpp lies in no room of the plan")},
        {"a widget in a rule", Of({{"src/link/a.cpp", "#include <QPushButton>\n"}}),
         Text("src/link/a.cpp includes the widget <QPushButton>")},
        {"a widget by its library", Of({{"src/link/a.cpp", "#include <QtWidgets/qframe.h>\n"}}),
         Text("src/link/a.cpp includes the widget <QtWidgets/qframe.h>")},
        {"a widget in a window", Of({{"src/windows/a.cpp", "#include <QPushButton>\n"}}), QString()},
        {"a whole library", Of({{"src/windows/a.cpp", "#include <QtWidgets>\n"}}),
         Text("src/windows/a.cpp includes all of <QtWidgets>")},
        {"tools may use all",
         Of({{"tools/kelforms/a.cpp", "#include \"windows/w.h\"\n#include \"kelforms/b.h\"\n"},
             {"tools/kelforms/b.h", ""},
             {"src/windows/w.h", ""}}),
         QString()},
        {"the house does not use tools",
         Of({{"src/app/a.cpp", "#include \"kelforms/b.h\"\n"}, {"tools/kelforms/b.h", ""}}),
         Text("src/app/a.cpp includes \"kelforms/b.h\", which is no path from src/ or tools/")},
        {"a system in a rule", Of({{"src/common/c.cpp", "#if defined(_WIN32)\n#endif\n"}}),
         Text("src/common/c.cpp asks for a system by _WIN32 outside platform/")},
        {"a system by Qt's name", Of({{"tools/a/c.cpp", "# ifdef Q_OS_LINUX\n"}}),
         Text("tools/a/c.cpp asks for a system by Q_OS_LINUX outside platform/")},
        {"a system on the ground floor", Of({{"src/platform/files/c.cpp", "#ifdef _WIN32\n"}}), QString()},
        {"one kind of database in another",
         Of({{"src/platform/engine/sqlite/d.cpp", "#include \"platform/engine/jet/c.h\"\n"},
             {"src/platform/engine/jet/c.h", ""}}),
         Text("src/platform/engine/sqlite/d.cpp includes platform/engine/jet/c.h, which is one kind of database's own")},
        {"a kind of database in the engine's own rules",
         Of({{"src/platform/engine/d.cpp", "#include \"platform/engine/sqlite/c.h\"\n"},
             {"src/platform/engine/sqlite/c.h", ""}}),
         Text("src/platform/engine/d.cpp includes platform/engine/sqlite/c.h, which is one kind of database's own")},
        {"its library above it", Of({{"src/store/s.cpp", "#include <sqlite3.h>\n"}}),
         Text("src/store/s.cpp includes sqlite3.h, which is one kind of database's own")},
        {"its library under the maps' own files", Of({{"src/platform/street/s.cpp", "#include <sqlite3.h>\n"}}),
         QString()},
        {"the list of kinds knows them",
         Of({{"src/platform/engine/kinds/k.cpp", "#include \"platform/engine/sqlite/c.h\"\n"},
             {"src/platform/engine/sqlite/c.h", "#include <sqlite3.h>\n"}}),
         QString()},
        {"the map's files are its own", Of({{"src/platform/street/s.cpp", "#include <sqlite3.h>\n"}}), QString()},
        {"a text spelt in the long way", Of({{"src/common/a.cpp", "QString" "Literal(\"a\")\n"}}),
         Text("src/common/a.cpp spells a text in the long way: it is u\"...\"_s")},
        {"a record changed by hand", Of({{"src/link/a.cpp", "source.Recordset().Edit();\n"}}),
         Text("src/link/a.cpp changes records by Edit, past store::Change")},
        {"a statement run by hand", Of({{"src/app/a.cpp", "database->Execute(sql);\n"}}),
         Text("src/app/a.cpp changes records by Execute, past store::Change")},
        {"the one writer", Of({{"src/store/a.cpp", "record.Update();\n"}, {"src/link/a.cpp", "change.Store();\n"}}),
         QString()},
        {"an error by its number", Of({{"src/link/a.cpp", "throw RuntimeError(5, words);\n"}}),
         Text("src/link/a.cpp has the number 5 of an error, which has a name in namespace error")},
        {"an error asked for by its number", Of({{"src/store/a.cpp", "if (failure.Number() == 3167)\n"}}),
         Text("src/store/a.cpp has the number 3167 of an error, which has a name in namespace error")},
        {"an error named a second time", Of({{"src/link/a.cpp", "constexpr int kGone = 3167;\n"}}),
         Text("src/link/a.cpp has the number 3167 of an error, which has a name in namespace error")},
        {"an error's name", Of({{"src/platform/engine/errors.h", "inline constexpr int kGone = 3167;\n"}}), QString()},
        {"another number", Of({{"src/photos/a.h", "static constexpr int kPollMilliseconds = 3000;\n"}}), QString()},
        {"a transaction past the watcher", Of({{"src/photos/a.cpp", "engine::Transaction whole(database);\n"}}),
         Text("src/photos/a.cpp begins a transaction of the engine: it is store::Transaction")},
        {"a transaction of the store", Of({{"src/photos/a.cpp", "store::Transaction whole(source);\n"},
                                           {"src/store/t.h", "engine::Transaction m_whole;\n"}}),
         QString()},
        {"a file that is made has no watcher",
         Of({{"src/map/export_database.cpp", "engine::Transaction whole(database);\n"}}), QString()},
        {"a caption of the table", Of({{"src/windows/w.cpp", "if (caption == \"N/A\")\n"}}),
         Text("src/windows/w.cpp spells \"N/A\" itself: it is kNotAvailable")},
        {"the table has it", Of({{"src/link/slot_table.h", "x{\"N/A\"};\n"}}), QString()},
        {"a comment may name it", Of({{"src/drops/d.h", "/// on a page \"N/A\"\n"}}), QString()},
        {"below the link it is another word", Of({{"src/photos/p.cpp", "u\"N/A\"_s\n"}}), QString()},
        {"a comment is no include",
         Of({{"src/common/c.h", "// see #include \"link/a.h\"\n"}, {"src/link/a.h", ""}}), QString()},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Violations(row.sources, kWidgets).join(u'|').toStdString(), row.wanted.toStdString())
            << row.name;
}

TEST(House, StandsAsPlanned)
{
    const Sources sources = ReadSources(Text(VASCLIP_SOURCE_DIR));
    ASSERT_GT(sources.size(), 50) << "the sources were not found";
    const QSet<QString> widgets = ReadWidgetHeaders(Text(VASCLIP_QT_INCLUDE_DIRS).split(u'|'));
    ASSERT_TRUE(widgets.contains(Text("QPushButton")));
    ASSERT_FALSE(widgets.contains(Text("QAction"))) << "an action is no widget";
    const QStringList violations = Violations(sources, widgets);
    EXPECT_TRUE(violations.isEmpty()) << violations.join(u'\n').toStdString();
}

} // namespace
} // namespace vasclip::house
