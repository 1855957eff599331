#include "house/handed_rules.h"

#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::house {

namespace {

const QString kSrc = u"src/"_s;

/// A source without what people read in it alone.
QString Code(QString text)
{
    static const QRegularExpression comment(uR"(//[^\n]*|/\*.*?\*/)"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression page(uR"re(R"\(.*?\)")re"_s, QRegularExpression::DotMatchesEverythingOption);
    return text.remove(page).remove(comment);
}

/// A test sets the clock, so nobody but its port looks at the wall. How long something takes is another matter.
void CheckClock(const QString& path, const QString& code, QStringList& violations)
{
    // The second stamps files; what they say is compared with it.
    static const QRegularExpression owner(u"^src/(forms/system_ports|platform/files/native_\\w+)\\.cpp$"_s);
    static const QRegularExpression clock(
        uR"(\bQ(?:DateTime|Date|Time)::current\w+|\bstd::time\b|\btime\(\s*(?:nullptr|NULL|0|&)|)"
        uR"(\bsystem_clock\b|\b(?:clock_)?gettime(?:ofday)?\b|\b(?:localtime|gmtime|timespec_get)\w*\(|)"
        uR"(\bGet(?:System|Local)Time\w*\()"_s);
    if (owner.match(path).hasMatch())
        return;
    if (const auto found = clock.match(code); found.hasMatch())
        violations.append(u"%1 asks the system's clock (%2): it is handed a text::TimeSource"_s.arg(
            path, found.captured()));
}

/// Where state of the whole process has a reason.
const QHash<QString, QString>& OfTheProcess()
{
    static const QHash<QString, QString> names = {
        {u"src/common/error_block.cpp"_s, u"states"_s},               // the stack of calls is a thread's
        {u"src/databook/frm_calendar.cpp"_s, u"g_quickExit"_s},       // a box that stays as the user left it
        {u"src/platform/desktop/termination_unix.cpp"_s, u"wakeUp"_s}, // a signal handler reaches nothing else
        {u"src/platform/engine/jet/being_made.cpp"_s, u"all"_s},        // so are files, as long as they have no name
        {u"src/platform/engine/sqlite/connection.cpp"_s, u"files openMutex"_s}, // locks are the process's
        {u"src/platform/picture/heif_reader.cpp"_s, u"asideRunning"_s}, // threads that outlive who asked
        {u"src/platform/street/cell_codec.cpp"_s, u"packers unpackers"_s}, // too large to be made for each cell
        {u"src/platform/street/draw/glyphs.cpp"_s, u"known fonts"_s}, // shapes of letters, which never change
        {u"src/windows/theme.cpp"_s, u"g_dark"_s},                    // the palette is the application's
    };
    return names;
}

/// What a program remembers is a member of what it owns, so that two of them can stand in one process.
void CheckState(const QString& path, const QString& code, QStringList& violations)
{
    // Namespaces are not indented, and functions with their bodies are no declarations that end at once.
    static const QRegularExpression ofNamespace(
        uR"(^(?:(?:static|inline|thread_local)\s+)*)"
        R"((?!(?:static|inline|thread_local|constexpr|const|constinit|using|return|class|struct|union|enum|namespace|)"
        R"(template|typedef|extern|friend|public|private|protected|case|default|else|throw|delete|static_assert)\b|Q_))"
        R"([A-Za-z_][\w:<>,*& ]*[ >*&](\w+)(?:\s*=[^=;][^;]*|\{[^;]*\})?;)"_s,
        QRegularExpression::MultilineOption);
    static const QRegularExpression ofFunction(
        uR"(^\s+static\s+)"
        R"((?!const\b|constexpr\b|inline\s+const|thread_local\b)[A-Za-z_][\w:<>,*& ]*[ >*&](\w+))"
        R"((?:\s*=[^=;][^;]*|\s*\{[^;]*\})?;)"_s,
        QRegularExpression::MultilineOption);
    static const QRegularExpression ofThread(u"\\bthread_local\\b"_s);
    if (code.contains(ofThread))
        violations.append(u"%1 uses thread_local, whose storage is freed on Windows before what lies in it is taken down: "
                          "QThreadStorage keeps it"_s.arg(path));
    const QStringList known = OfTheProcess().value(path).split(u' ');
    for (const QRegularExpression& pattern : {ofNamespace, ofFunction}) {
        for (auto found = pattern.globalMatch(code); found.hasNext();) {
            const QString name = found.next().captured(1);
            if (!known.contains(name))
                violations.append(u"%1 keeps %2 for the whole process: the program owns what it remembers"_s.arg(
                    path, name));
        }
    }
}

} // namespace

QStringList HandedViolations(const Sources& sources)
{
    QStringList violations;
    for (auto source = sources.cbegin(); source != sources.cend(); ++source) {
        if (!source.key().startsWith(kSrc))
            continue;
        const QString code = Code(source.value());
        CheckClock(source.key(), code, violations);
        CheckState(source.key(), code, violations);
    }
    return violations;
}

} // namespace vasclip::house
