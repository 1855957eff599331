#include "house/handed_rules.h"

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
    const char* text;
    QString wanted; ///< the violations, "|" between them
};

QString Asks(const char* path, const char* what)
{
    return Text("%1 asks the system's clock (%2): it is handed a text::TimeSource").arg(Text(path), Text(what));
}

TEST(HandedRules, CatchWhoLooksAtTheClock)
{
    const Row rows[] = {
        {"a moment", "src/platform/engine/a.cpp", "x = QDateTime::currentDateTimeUtc();",
         Asks("src/platform/engine/a.cpp", "QDateTime::currentDateTimeUtc")},
        {"a default in a header", "src/forms/controls.h", "    QDate m_value = QDate::currentDate();",
         Asks("src/forms/controls.h", "QDate::currentDate")},
        {"a time of day", "src/link/a.cpp", "QTime::currentTime()", Asks("src/link/a.cpp", "QTime::currentTime")},
        {"the library's", "src/link/a.cpp", "std::time(nullptr)", Asks("src/link/a.cpp", "std::time")},
        {"the old library's", "src/link/a.cpp", "srand(time(0));", Asks("src/link/a.cpp", "time(0")},
        {"chrono's wall clock", "src/link/a.cpp", "std::chrono::system_clock::now()",
         Asks("src/link/a.cpp", "system_clock")},
        {"the kernel's", "src/platform/street/a.cpp", "clock_gettime(CLOCK_REALTIME, &now);",
         Asks("src/platform/street/a.cpp", "clock_gettime")},
        {"the other system's", "src/platform/desktop/a_win.cpp", "GetLocalTime(&now);",
         Asks("src/platform/desktop/a_win.cpp", "GetLocalTime(")},
        {"the port itself", "src/forms/system_ports.cpp", "return QDateTime::currentDateTime();", QString()},
        {"the stamps of files", "src/platform/files/native_unix.cpp", "clock_gettime(CLOCK_REALTIME, &now);",
         QString()},
        {"how long it takes", "src/link/a.cpp",
         "    QElapsedTimer t; QDeadlineTimer d(5); std::chrono::steady_clock::now(); timer.restart(); wait(time);",
         QString()},
        {"a comment", "src/link/a.cpp", "// not QDate::currentDate()\n", QString()},
        {"a tool", "tools/kelforms/a.cpp", "QTime::currentTime()", QString()},
    };
    for (const Row& row : rows)
        EXPECT_EQ(HandedViolations({{Text(row.path), Text(row.text)}}).join(u'|').toStdString(),
                  row.wanted.toStdString())
            << row.name;
}

QString Keeps(const char* path, const char* name)
{
    return Text("%1 keeps %2 for the whole process: the program owns what it remembers").arg(Text(path), Text(name));
}

TEST(HandedRules, CatchStateOfTheWholeProcess)
{
    const Row rows[] = {
        {"a variable of the file", "src/link/a.cpp", "namespace {\nbool g_busy = false;\n}\n",
         Keeps("src/link/a.cpp", "g_busy")},
        {"one without a value", "src/link/a.cpp", "QHash<QString, int> found;\n", Keeps("src/link/a.cpp", "found")},
        {"with a braced one", "src/link/a.h", "inline std::atomic<int> running{0};\n", Keeps("src/link/a.h", "running")},
        {"of a function", "src/link/a.cpp", "State& The()\n{\n    static State state;\n    return state;\n}\n",
         Keeps("src/link/a.cpp", "state")},
        {"of a thread", "src/link/a.cpp", "    thread_local const Engine engine;\n",
         Text("src/link/a.cpp uses thread_local, whose storage is freed on Windows before what lies in it is taken down: "
              "QThreadStorage keeps it")},
        {"a table", "src/link/a.cpp",
         "const int kRows[] = {1};\nconstexpr int kMost = 3;\n    static const QStringList names = {u\"a\"_s};\n",
         QString()},
        {"functions", "src/link/a.h",
         "bool Busy();\nstruct Other;\nclass X : public Y\n{\n    static bool Of(int* a);\n    int m_count = 0;\n};\n",
         QString()},
        {"with a reason", "src/windows/theme.cpp", "bool g_dark = false;\n", QString()},
        {"another one beside it", "src/windows/theme.cpp", "bool g_light = false;\n",
         Keeps("src/windows/theme.cpp", "g_light")},
    };
    for (const Row& row : rows)
        EXPECT_EQ(HandedViolations({{Text(row.path), Text(row.text)}}).join(u'|').toStdString(),
                  row.wanted.toStdString())
            << row.name;
}

TEST(House, IsHandedWhatIsTheProgramsOwn)
{
    const Sources sources = ReadSources(Text(VASCLIP_SOURCE_DIR));
    ASSERT_TRUE(sources.contains(Text("src/forms/system_ports.cpp"))) << "the sources were not found";
    const QStringList violations = HandedViolations(sources);
    EXPECT_TRUE(violations.isEmpty()) << violations.join(u'\n').toStdString();
}

} // namespace
} // namespace vasclip::house
